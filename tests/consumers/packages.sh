#!/bin/sh
# packages.sh BUILD WORK COMPILER APP.cpp: the .deb packages are what lintian passes, a program is built and run with what
# they hold, and the links of their pages lead somewhere.
set -eu
rm -rf "$2"
mkdir -p "$2"
cd "$1"
cpack -G DEB -B "$2/packages" >"$2/cpack.log" 2>&1 || { tail -n 20 "$2/cpack.log"; exit 1; }
cd "$2"
findings=$(lintian packages/*.deb 2>lintian.log) || { cat lintian.log; echo "$findings"; exit 1; }
[ -z "$findings" ] || { echo "$findings"; exit 1; }
for package in packages/*.deb; do dpkg-deb -x "$package" root; done
libraries=$(dirname "$(find root -name 'libZEPHDataStructureEngine.so')")
"$3" -std=c++17 -Iroot/usr/include -o app "$4" -L"$libraries" -lZEPHDataStructureEngine -Wl,-rpath,"$PWD/$libraries"
[ "$(./app)" = "1 2 3" ]
cd root/usr/share/doc/ZEPHDataStructureEngine
dead=0
for page in *.md docs/*.md; do
  for link in $(sed 's/`[^`]*`//g' "$page" | grep -oE '\]\([^)# ]+' | sed 's/^](//' | grep -v '^http'); do
    [ -e "$(dirname "$page")/$link" ] || { echo "$page: $link is not there"; dead=1; }
  done
done
exit $dead
