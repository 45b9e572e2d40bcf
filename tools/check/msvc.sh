# What Visual C++ sees, by clang++ in its dialect over declarations of the standard library (tests/msvc): every
# header in both word sizes, with the system's macros before and after it, as a user, as a static
# library, as the library itself and hardened; sizes and offsets of the fields; the names to link;
# every source that needs nothing of the system's own header, with the code for that compiler and
# with that for clang-cl.
need $packages_build clang clang-tools lld python3
msvc() {  # msvc PROCESSOR OPTION... SOURCE
  clang++ "--target=$1-pc-windows-msvc" -fms-compatibility -fms-extensions -fms-compatibility-version=19.29 \
    -nostdinc -std=c++17 -Wall -Wextra -Wshadow -Wconversion -Werror \
    -I tests/msvc/standard -I tests/msvc -I include "${@:2}"
}
# Compiles up to code generation: a function for one instruction set must not inline one for
# another.
compile() {  # compile PROCESSOR OPTION... SOURCE
  msvc "$1" -c -emit-llvm -Xclang -disable-llvm-passes -o /dev/null -ffreestanding -isystem "$intrinsics" -I src \
    -DZEPH_BUILDING "${@:2}" || echo "failed: ${*}"
}
export -f msvc compile
intrinsics=$(clang++ -print-resource-dir)/include
export intrinsics
# sources WHAT OPTION...: every source, and a verdict on each.
sources() {
  local what=$1 all bad
  shift
  all=$(list_sources | grep -E '^src/.*\.cpp$' | grep -vE '_(posix|neon)\.cpp$' | xargs grep -LF '#include <windows.h>')
  bad=$(echo "$all" | xargs -P "$jobs" -I{} bash -c 'compile "$@" 2>&1' compile "$@" {})
  [ -z "$bad" ] || echo "$bad"
  bad=$(echo "$bad" | grep -c '^failed: ' || true)
  passed=$((passed + $(echo "$all" | wc -l) - bad)) failed=$((failed + bad))
  echo "$what: $(echo "$all" | wc -l) sources, $bad bad"
}
for processor in x86_64 i686; do
  for use in ZEPH_USED ZEPH_STATIC ZEPH_BUILDING ZEPH_HARDENED; do
    for macros in BEHIND FIRST; do
      try "$processor, $use, macros of the system $macros" \
        msvc $processor -fsyntax-only -D$use -DZEPH_MACROS_$macros tests/msvc/all_headers.cpp
    done
  done
  try "$processor, layout" msvc $processor -fsyntax-only tests/headers/layout.cpp
  try "$processor, names to link" \
    diff tools/manifests/msvc-$processor.txt <(python3 tools/check/msvc_names.py $processor)
done
like_cl=(-DZEPH_LIKE_CL -mavx2 -mpopcnt -mavx512f -mavx512bw -mavx512dq -mavx512vl)  # it takes every intrinsic
sources "x86_64, as Visual C++" x86_64 "${like_cl[@]}"
sources "i686, as Visual C++" i686 -DZEPH_LIKE_CL
sources "x86_64, as clang in its place" x86_64

mkdir -p build/results
# The project itself, configured for clang-cl: options that it does not know are ignored with a
# warning.
status=0
env -u CMAKE_CXX_COMPILER_LAUNCHER cmake -S . -B build/msvc -G Ninja -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_SYSTEM_PROCESSOR=AMD64 \
  "-DCMAKE_CXX_COMPILER=$(dirname "$(readlink -f "$(command -v clang++)")")/clang-cl" \
  "-DCMAKE_CXX_FLAGS=/X /imsvc$PWD/tests/msvc/standard /imsvc$intrinsics /clang:-ffreestanding /fp:fast" \
  -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY -DCMAKE_CXX_COMPILER_WORKS=1 \
  "-DCMAKE_MT=$(command -v true)" "-DCMAKE_RC_COMPILER=$(command -v true)" -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF >build/results/configure-msvc.log 2>&1 || status=1
objects=src/CMakeFiles/zeph_kernels.dir/kernels
rm -f build/msvc/$objects/{table,elementwise_avx2}.cpp.obj
cmake --build build/msvc --target $objects/{table,elementwise_avx2}.cpp.obj >build/results/build-msvc.log 2>&1 ||
  status=1
grep warning build/results/build-msvc.log | grep -v 'overriding .*-ffp-contract' && status=1  # of /fp:fast, as told
check $status "clang-cl takes every option of the project's (build/results/build-msvc.log)"
verdicts
