# The whole suite, the examples and the tour as 64-bit Windows programs under Wine, and sampled per form of the kernels;
# the installed DLL, import library and CMake package taken by a consumer; the DLL by clang++; 32-bit Windows is
# built, its digests and main suites run. Wine sometimes loses its server or cannot start a child: a
# program that fails is run again.
need python3 g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix wine64 wine googletest clang lld
status=0
# The kernels' tests once more with the stack 16 bytes lower, where a wide aligned move would fault.
workflow windows windows-low-stack || status=1

# The numeric suites, the digests and the tour once more on each form of the kernels that this processor runs.
forms=(portable)
if grep -qw avx2 /proc/cpuinfo; then forms+=(avx2); fi
if grep -qw avx512vl /proc/cpuinfo; then forms+=(avx512); fi
workflow "${forms[@]/#/windows-}" || status=1

# No aligned move of a wide register to the stack. First tests that the scan finds one, and none
# where the assembler unaligns it.
aligned_spill() { printf 'f:\n vmovapd %%ymm0, 32(%%rsp)\n' | x86_64-w64-mingw32-as "$@" -o build/windows/spill.o -; }
scan() { x86_64-w64-mingw32-objdump -d "$1" | python3 tools/check/aligned_spills.py; }
wide=0
aligned_spill
scan build/windows/spill.o >/dev/null && wide=1
aligned_spill -muse-unaligned-vector-move
scan build/windows/spill.o >/dev/null || wide=1
scan build/windows/src/ZEPHDataStructureEngine.dll || wide=1
check $wide "wide kernels: no aligned move on the stack"

# By clang++, which aligns the stack itself: the same of its DLL, and the digests on each form.
build windows-clang
wide=0
scan build/windows-clang/src/ZEPHDataStructureEngine.dll || wide=1
check $wide "wide kernels by clang++: no aligned move on a stack that the function has not aligned"
for form in "${forms[@]}"; do
  digest=0
  log=build/results/windows-clang-$form.log
  WINEPREFIX=$PWD/build/windows/wine WINEDEBUG=-all ZEPH_TEST_KERNELS=$form \
    WINEPATH="Z:$PWD/build/windows-clang/tests/forms;Z:/usr/x86_64-w64-mingw32/lib;Z:/usr/lib/gcc/x86_64-w64-mingw32/12-posix" \
    timeout 300 wine build/windows-clang/tools/selftest/zeph-selftest.exe >"$log" 2>&1 </dev/null || digest=1
  check $digest "digests of the DLL by clang++, kernels $form ($log)"
done

# Every source compiles with the framework's own classes in place of ours. Declarations suffice.
framework=0
list_sources | grep -E '^src/.*\.cpp$' | grep -vE '_(posix|neon)\.cpp$' |
  xargs -P "$jobs" -I{} x86_64-w64-mingw32-g++-posix -std=c++17 -fsyntax-only -Wall -Wextra -DZEPH_USE_MFC \
    -DZEPH_BUILDING -DNOMINMAX -I include -I src -I tests/msvc/framework {} || framework=1
check $framework "every source with ZEPH_USE_MFC"

# 32-bit Windows is built, and its digests and main suites are run where a Wine for it is available.
# Wine's services keep the streams of the first program open, so these are files.
need libc6-i386
fetched=0
tools/wine32/fetch.sh || fetched=1
build windows32
if [ $fetched = 0 ]; then
  export ZEPH_TEST_SAMPLE=1
  wine32() {  # wine32 LOG PROGRAM OPTION...
    WINEPREFIX=$PWD/build/windows32/wine WINEDEBUG=-all \
      WINEPATH="Z:/usr/i686-w64-mingw32/lib;Z:/usr/lib/gcc/i686-w64-mingw32/12-posix;Z:$PWD/build/windows32/src" \
      timeout 900 tools/wine32/wine "${@:2}" >"build/results/$1" 2>&1 </dev/null
  }
  good=0
  wine32 windows32.log build/windows32/tools/selftest/zeph-selftest.exe || good=1
  check $good "32-bit Windows: the digests (build/results/windows32.log)"
  for suite in double_array linalg raw_buffers graphics containers algorithms platform batch; do
    good=0
    wine32 windows32-$suite.log build/windows32/tests/zeph_${suite}_tests.exe --gtest_brief=1 || good=1
    check $good "32-bit Windows: the suite $suite (build/results/windows32-$suite.log)"
  done
else
  echo "32-bit Windows: built, not run, as no 32-bit Wine could be had"
fi
verdicts && exit $status
