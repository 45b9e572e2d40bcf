# ./dev package: .deb and .tar.gz in build/packages; the Windows .zip too where MinGW is installed.
need $packages_build dpkg-dev file
out=$PWD/build/packages
rm -rf "$out"
mkdir -p "$out"
configure build/package -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF
build build/package
(cd build/package && cpack -B "$out" >cpack.log 2>&1) || { tail -n 20 build/package/cpack.log >&2; fail "packaging failed"; }
if command -v x86_64-w64-mingw32-g++-posix >/dev/null; then
  configure build/package-windows -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake \
    -DCMAKE_BUILD_TYPE=Release -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF
  build build/package-windows
  (cd build/package-windows && cpack -B "$out" >cpack.log 2>&1) ||
    { tail -n 20 build/package-windows/cpack.log >&2; fail "packaging for Windows failed"; }
else
  say "dev: no MinGW (Debian g++-mingw-w64-x86-64-posix): the Windows .zip is left out"
fi
rm -rf "$out/_CPack_Packages"
ls -1 "$out"
