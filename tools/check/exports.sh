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
  python3 tools/exports.py build/exports-$level/src/libZEPHDataStructureEngine.so tools/manifests/elf.txt || status=1
  python3 tools/exports.py build/exports-windows-$level/src/ZEPHDataStructureEngine.dll tools/manifests/pe.txt || status=1
done

# Everything binary about the interface, against the previous release: sizes, members, virtual tables,
# parameter types. A difference that breaks old programs fails with abidiff's report.
previous=tools/manifests/abi-0.1.0.abi
mkdir -p build/exports-abi
abidw --no-corpus-path --no-comp-dir-path --exported-interfaces-only --no-show-locs --headers-dir include \
  --drop-private-types build/exports-O2/src/libZEPHDataStructureEngine.so >build/exports-abi/now.abi
# New names are welcome; a changed size, member or parameter type is a change (status 4), a lost name an
# incompatible one (12).
changes=0
abidiff --no-added-syms $previous build/exports-abi/now.abi >build/exports-abi/report.txt 2>&1 || changes=$?
cat build/exports-abi/report.txt
if [ $changes = 0 ]; then
  echo "1 passed, 0 failed"
else
  echo "the interface breaks programs built against $previous"
  echo "0 passed, 1 failed"
  status=1
fi
exit $status
