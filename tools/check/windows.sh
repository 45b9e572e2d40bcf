# The whole suite and the tour as 64-bit Windows programs under Wine; the import library as a consumer.
need g++-mingw-w64-x86-64-posix wine64 wine googletest
export WINEPREFIX=$PWD/build/wine WINEDEBUG=-all
export WINEPATH='Z:\usr\x86_64-w64-mingw32\lib;Z:\usr\lib\gcc\x86_64-w64-mingw32\12-posix;Z:'$(printf %s "$PWD/build/windows/src" | tr / '\\')
configure build/windows -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_GTEST_SOURCE=/usr/src/googletest
build build/windows
run_programs build/windows wine
