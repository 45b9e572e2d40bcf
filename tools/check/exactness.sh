# The same bits on every build. The numeric suites, each compiled once, run on this system's libraries
# of every compiler and level, and as programs for this very processor; zeph-selftest compares its
# digests on those, on every kernel form, as 32-bit program, under Wine and under QEMU. What other steps
# have built is used.
need clang binutils g++-12-multilib g++-mingw-w64-x86-64-posix wine64 wine g++-aarch64-linux-gnu qemu-user googletest
passed=0 failed=0
results=$PWD/build/check/exactness
rm -rf "$results"
mkdir -p "$results"
export GCOV_PREFIX=$results/counts  # what is reached here is none of the step "coverage"
library_suites="double_array raw_buffers linalg graphics containers algorithms"
native_suites="double_array linalg graphics kernels"

# tests_of SUITE...: their targets
tests_of() { printf 'zeph_%s_tests ' "$@"; }

# make_in DIR "TARGET..." CMAKE-OPTION...: builds them in DIR, which is configured where it does not exist.
make_in() {
  local dir=$1 targets=$2
  shift 2
  [ -f "$dir/build.ninja" ] || configure "$dir" "$@"
  # shellcheck disable=SC2086
  build "$dir" $targets
}

# digests NAME COMMAND...: zeph-selftest; its digests go to their file.
digests() {
  local name=$1 status=0
  shift
  "$@" >"$results/$name.txt" 2>&1 </dev/null || status=$?
  tr -d '\r' <"$results/$name.txt" >"$results/$name.lines"
  if [ $status = 0 ]; then
    passed=$((passed + 1))
    echo "$name: every digest as published"
  else
    failed=$((failed + 1))
    echo "$name: zeph-selftest ends with $status"
    cat "$results/$name.lines"
  fi
}

# suites NAME PROGRAMS LIBRARY SUITE...: the suites built in PROGRAMS, on the library built in LIBRARY.
suites() {
  local name=$1 programs=$2/tests library=$PWD/$3/src suite log tests=0 bad=0
  shift 3
  # shellcheck disable=SC2016
  printf '%s\n' "$@" | LD_LIBRARY_PATH=$library xargs -P "$jobs" -I@ sh -c '
    exec >"$1-@.log" 2>&1 </dev/null
    ldd "$2/zeph_@_tests" | grep -F "$3/libZEPHDataStructureEngine.so" && "$2/zeph_@_tests"
    echo "status $?"' sh "$results/$name" "$programs" "$library"
  for suite in "$@"; do
    log=$results/$name-$suite.log
    if ! grep -qx 'status 0' "$log"; then
      grep -vE '^\[       OK|^\[ RUN' "$log" | tail -n 40
      echo "$name: zeph_${suite}_tests failed"
      grep -qE '^\[  FAILED  \] [0-9]+ test' "$log" || bad=$((bad + 1))
    fi
    tests=$((tests + $(count_in "$log" PASSED)))
    bad=$((bad + $(count_in "$log" FAILED)))
  done
  echo "$name: $tests tests passed, $bad failed ($*)"
  passed=$((passed + tests))
  failed=$((failed + bad))
}

self=tools/selftest/zeph-selftest
all=$(tests_of $library_suites)
native=$(tests_of $native_suites)
plain="-DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF"
make_in build/test "$all zeph_selftest" -DCMAKE_BUILD_TYPE=Release -DZEPH_WARNINGS_AS_ERRORS=ON
make_in build/coverage "$all zeph_selftest" -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=None \
  -DZEPH_BUILD_EXAMPLES=OFF -DZEPH_WARNINGS_AS_ERRORS=ON \
  -DCMAKE_CXX_FLAGS="-O0 -g --coverage -fprofile-update=atomic -D_GLIBCXX_ASSERTIONS"
make_in build/exports-O2 zeph_selftest -DCMAKE_BUILD_TYPE=None "-DCMAKE_CXX_FLAGS=-O2 -g" $plain
make_in build/clang zeph_selftest -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_WARNINGS_AS_ERRORS=ON -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
for level in O0 O2; do
  make_in build/clang-$level zeph_selftest -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=None \
    -DCMAKE_CXX_FLAGS=-$level $plain
done
for compiler in g++ clang++; do
  make_in build/native-$compiler "$native zeph_selftest" -DCMAKE_CXX_COMPILER=$compiler \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS=-march=native -DZEPH_BUILD_EXAMPLES=OFF
done

# Unoptimised libraries are slow: the samples of the unoptimised programs do.
suites g++-O0 build/coverage build/coverage $library_suites
suites g++-O2 build/test build/exports-O2 $library_suites
suites g++-O3 build/test build/test $library_suites
suites clang++-O0 build/coverage build/clang-O0 $library_suites
suites clang++-O2 build/test build/clang-O2 $library_suites
suites clang++-O3 build/test build/clang $library_suites
for compiler in g++ clang++; do
  suites $compiler-native build/native-$compiler build/native-$compiler $native_suites
done

digests g++-O0 build/coverage/$self
digests g++-O2 build/exports-O2/$self
digests g++-O3 build/test/$self
digests clang++-O0 build/clang-O0/$self
digests clang++-O2 build/clang-O2/$self
digests clang++-O3 build/clang/$self
for compiler in g++ clang++; do
  digests $compiler-native build/native-$compiler/$self
done

make_in build/static zeph_selftest -DCMAKE_BUILD_TYPE=Release -DZEPH_SHARED=OFF
for form in portable avx2 avx512; do
  if build/static/$self --kernels $form >/dev/null 2>&1 || [ $? = 1 ]; then
    digests kernels-$form build/static/$self --kernels $form
  else
    echo "kernels-$form: not on this machine, not measured"
  fi
done

make_in build/x86_32 zeph_selftest -DCMAKE_TOOLCHAIN_FILE=cmake/x86-32-linux.cmake \
  -DCMAKE_BUILD_TYPE=Release -DZEPH_GTEST_SOURCE=/usr/src/googletest -DZEPH_WARNINGS_AS_ERRORS=ON
digests x86-32 build/x86_32/$self

make_in build/windows zeph_selftest -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_GTEST_SOURCE=/usr/src/googletest
start_wine "$PWD/build/windows/src"
digests windows under_wine build/windows/$self.exe

make_in build/aarch64 zeph_selftest -DCMAKE_TOOLCHAIN_FILE=cmake/aarch64-linux.cmake \
  -DCMAKE_BUILD_TYPE=Release -DZEPH_GTEST_SOURCE=/usr/src/googletest
LD_LIBRARY_PATH= digests aarch64 qemu-aarch64 -L /usr/aarch64-linux-gnu build/aarch64/$self

# Products and sums round separately: the programs for this processor hold no fused instruction.
for compiler in g++ clang++; do
  fused=$(objdump -d build/native-$compiler/src/libZEPHDataStructureEngine.so |
    grep -cE 'vfn?m(add|sub)' || true)
  if [ "$fused" = 0 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "$compiler-native: $fused fused instructions"
  fi
done

# One runtime serves all of this system's builds: what rests on it is the same on them too.
here() { (cd "$results" && cat g++-*.lines clang++-*.lines kernels-*.lines); }
while read -r name; do
  if [ "$(here | grep -F "$name " | grep -oE ' [0-9a-f]{16} ' | sort -u | wc -l)" = 1 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "builds on one runtime differ in $name"
  fi
done < <(here | grep 'runtime-dependent' | sed -E 's/ +[0-9]+ results.*//' | sort -u)

echo
echo "Digests, and the builds that gave them:"
awk '$NF == "ok" {
    build = FILENAME
    gsub(/.*\/|\.lines$/, "", build)
    line = sprintf("%-14s %9d results  %s", $1, $2, $4)
    builds[line] = builds[line] " " build
    ++count[line]
  }
  END {for (line in builds) print line "  " count[line] ":" builds[line]}' "$results"/*.lines | sort
echo "Lines that rest on the runtime (never a failure):"
(cd "$results" && grep -H 'runtime-dependent, another' ./*.lines | sed -E 's|^\./([^:]*)\.lines:|\1: |') || true
echo "$passed passed, $failed failed"
[ $failed = 0 ]
