#!/usr/bin/env bash
# Puts a 32-bit Wine into build/wine32, for the programs beside this one. Its packages are
# downloaded from the archive with separate apt lists: the machine need not have the architecture
# enabled, nor the same versions. Ends with status 1 where they are not available.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
home=$PWD/build/wine32
[ -e "$home/system/usr/lib/wine/wine" ] && exit 0
command -v apt-get >/dev/null && . /etc/os-release || exit 1
rm -rf "$home"
mkdir -p "$home"/lists/partial "$home"/archives/partial "$home"/parts "$home"/fresh
cat >"$home/parts/i386.sources" <<TEXT
Types: deb
URIs: http://deb.debian.org/debian
Suites: ${VERSION_CODENAME:-stable}
Components: main
Architectures: i386
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
TEXT
apart=(-o APT::Architecture=i386 -o APT::Architectures=i386 -o APT::Sandbox::User=root
  -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$home/parts" -o "Dir::State::lists=$home/lists"
  -o "Dir::Cache=$home" -o Dir::State::status=/dev/null)
cd "$home"
apt-get "${apart[@]}" update -qq
# No fonts: with them Wine's desktop would start, find no display and restart forever.
apt-get "${apart[@]}" download -qq wine32 libwine libunwind8 liblzma5
for package in *.deb; do dpkg -x "$package" fresh; done
rm -rf ./*.deb lists archives
# Files common to all architectures are the system's own.
cp /usr/i686-w64-mingw32/lib/zlib1.dll fresh/usr/lib/i386-linux-gnu/wine/i386-windows/
mv fresh system
