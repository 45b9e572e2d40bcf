# The whole suite and the tour as 64-bit Windows programs under Wine; the installed DLL, import library
# and CMake package taken by a consumer (the ninth); 32-bit Windows is built.
need python3 g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix wine64 wine googletest
top=$PWD
start_wine "$top/build/windows/src"
rm -f build/wine-again.log
status=0
configure build/windows -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_GTEST_SOURCE=/usr/src/googletest
build build/windows
run_programs build/windows under_wine || status=1

echo "the tour"
if under_wine build/windows/examples/tour.exe examples/data/nile.txt --out build/windows/pictures >build/windows/tour.txt &&
  grep -q 'Pictures are in' build/windows/tour.txt; then
  echo "1 passed, 0 failed"
else
  tail -n 20 build/windows/tour.txt
  echo "0 passed, 1 failed"
  status=1
fi

echo "consumer of the import library"
cmake --install build/windows --prefix build/windows/prefix >/dev/null
consumer=build/windows/consumer
cmake -S tests/consumers/find_package -B $consumer -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_TOOLCHAIN_FILE="$top/cmake/mingw-w64.cmake" \
  -DZEPHDataStructureEngine_DIR="$top/build/windows/prefix/lib/cmake/ZEPHDataStructureEngine" >/dev/null
cmake --build $consumer >/dev/null
# Only what the installation brings: no search path to the compiler's libraries.
if [ "$(WINEPATH="$(dos "$top/build/windows/prefix/bin")" under_wine $consumer/app.exe | tr -d '\r')" = "1 2 3" ]; then
  echo "1 passed, 0 failed"
else
  echo "0 passed, 1 failed"
  status=1
fi

echo "wide kernels: no aligned move on the stack, and the kernels' tests with the stack 16 bytes lower"
# What the scan must find, and does not where the assembler unaligns it.
aligned_spill() { printf 'f:\n vmovapd %%ymm0, 32(%%rsp)\n' | x86_64-w64-mingw32-as "$@" -o build/windows/spill.o -; }
scan() { x86_64-w64-mingw32-objdump -d "$1" | python3 tools/check/aligned_spills.py; }
wide=0
aligned_spill
scan build/windows/spill.o >/dev/null && wide=1
aligned_spill -muse-unaligned-vector-move
scan build/windows/spill.o >/dev/null || wide=1
scan build/windows/src/ZEPHDataStructureEngine.dll || wide=1
ZEPH_TEST_STACK_SHIFT=16 under_wine build/windows/tests/zeph_kernels_tests.exe --gtest_brief=1 || wide=1
[ $wide = 0 ] && echo "1 passed, 0 failed" || { echo "0 passed, 1 failed"; status=1; }

configure build/windows32 -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w32.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_BUILD_TESTS=OFF
build build/windows32
echo "32-bit Windows: built, not run"
[ ! -f build/wine-again.log ] || cat build/wine-again.log
exit $status
