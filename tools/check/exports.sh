# What the libraries export, optimised and not, is what the manifests list and the headers declare.
need clang binutils python3 g++-mingw-w64-x86-64-posix abigail-tools
for level in O0 O2; do
  configure build/exports-$level -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-$level -g" -DZEPH_BUILD_TESTS=OFF \
    -DZEPH_BUILD_EXAMPLES=OFF
  build build/exports-$level ZEPHDataStructureEngine
  configure build/exports-windows-$level -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake \
    -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-$level -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF
  build build/exports-windows-$level ZEPHDataStructureEngine
done
status=0
for level in O0 O2; do
  python3 tools/exports.py build/exports-$level/src/libZEPHDataStructureEngine.so tools/manifests/elf.txt --headers || status=1
  python3 tools/exports.py build/exports-windows-$level/src/ZEPHDataStructureEngine.dll tools/manifests/pe.txt || status=1
done
exit $status
