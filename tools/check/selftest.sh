# zeph-selftest on every build: the same digests whatever the compiler, its options, the processor and
# the kernel form. Build directories are those of the other steps.
need clang g++-12-multilib g++-mingw-w64-x86-64-posix wine64 wine g++-aarch64-linux-gnu qemu-user googletest
passed=0 failed=0
results=build/check/selftest
mkdir -p $results

# of DIR CMAKE-OPTION...: builds the program in DIR, which is configured where it does not exist.
of() {
  local dir=$1
  shift
  [ -f "$dir/build.ninja" ] || configure "$dir" "$@"
  build "$dir" zeph_selftest
}
# runs NAME COMMAND...: one row of the table; the digests go to their file.
runs() {
  local name=$1 status=0
  shift
  "$@" >"$results/$name.txt" 2>&1 </dev/null || status=$?
  tr -d '\r' <"$results/$name.txt" >"$results/$name.lines"
  if [ $status = 0 ]; then
    passed=$((passed + 1))
    awk -v name="$name" '$NF == "ok" {printf "%-18s %-14s %9d  %s\n", name, $1, $2, $4}' "$results/$name.lines"
  else
    failed=$((failed + 1))
    echo "$name: status $status"
    cat "$results/$name.lines"
  fi
}

of build/test -DCMAKE_BUILD_TYPE=Release -DZEPH_WARNINGS_AS_ERRORS=ON
runs g++-O3 build/test/tools/selftest/zeph-selftest
of build/debug -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0
runs g++-O0 build/debug/tools/selftest/zeph-selftest
of build/exports-O2 -DCMAKE_BUILD_TYPE=None "-DCMAKE_CXX_FLAGS=-O2 -g" -DZEPH_BUILD_TESTS=OFF \
  -DZEPH_BUILD_EXAMPLES=OFF
runs g++-O2 build/exports-O2/tools/selftest/zeph-selftest
of build/native -DCMAKE_BUILD_TYPE=None "-DCMAKE_CXX_FLAGS=-O3 -march=native" -DZEPH_BUILD_TESTS=OFF \
  -DZEPH_BUILD_EXAMPLES=OFF
runs g++-march-native build/native/tools/selftest/zeph-selftest
of build/clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_WARNINGS_AS_ERRORS=ON -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
runs clang++-O3 build/clang/tools/selftest/zeph-selftest

of build/static -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF
for form in portable avx2 avx512; do
  if build/static/tools/selftest/zeph-selftest --kernels $form >/dev/null 2>&1 || [ $? = 1 ]; then
    runs kernels-$form build/static/tools/selftest/zeph-selftest --kernels $form
  else
    echo "kernels-$form: not on this machine, not measured"
  fi
done

of build/x86_32 -DCMAKE_TOOLCHAIN_FILE=cmake/x86-32-linux.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_GTEST_SOURCE=/usr/src/googletest -DZEPH_WARNINGS_AS_ERRORS=ON
runs x86-32 build/x86_32/tools/selftest/zeph-selftest

of build/windows -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_GTEST_SOURCE=/usr/src/googletest
libraries='Z:\usr\x86_64-w64-mingw32\lib;Z:\usr\lib\gcc\x86_64-w64-mingw32\12-posix'
dll=Z:$(printf '%s/build/windows/src' "$PWD" | tr / '\\')
export WINEPREFIX=$PWD/build/wine WINEDEBUG=-all
WINEPATH="$libraries;$dll" runs windows wine build/windows/tools/selftest/zeph-selftest.exe
wineserver -k || true

of build/aarch64 -DCMAKE_TOOLCHAIN_FILE=cmake/aarch64-linux.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_GTEST_SOURCE=/usr/src/googletest
LD_LIBRARY_PATH= runs aarch64 qemu-aarch64 -L /usr/aarch64-linux-gnu build/aarch64/tools/selftest/zeph-selftest

echo
echo "Lines that rest on the runtime (never a failure):"
grep -H 'runtime-dependent' $results/*.lines | sed -E "s|^$results/([^:]*)\.lines:|\1: |"
echo "$passed passed, $failed failed"
[ $failed = 0 ]
