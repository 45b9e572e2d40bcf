# ./dev package: .deb and .tar.gz in build/packages; the Windows .zip too where MinGW is installed.
need $packages_build $packages_test dpkg-dev file
out=$PWD/build/packages

# pack PRESET: its packages.
pack() {
  build "$1" ZEPHDataStructureEngine zeph_selftest
  (cd "build/$1" && show "package-$1" cpack -B "$out") || fail "packaging $1 failed"
}
rm -rf "$out"
mkdir -p "$out"
pack release
if command -v x86_64-w64-mingw32-g++-posix >/dev/null; then
  need googletest
  pack windows
else
  say "dev: no MinGW (Debian g++-mingw-w64-x86-64-posix): the Windows .zip is left out"
fi
rm -rf "$out/_CPack_Packages"
ls -1 "$out"
