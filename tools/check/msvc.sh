# What Visual C++ sees, by clang++ in its dialect over declarations of the standard library (tests/msvc): every
# header in both word sizes, with the system's macros before and behind it, as a user, as a static library, as
# the library itself and hardened; sizes and places of the fields; the names to link.
need clang python3
msvc() {  # msvc PROCESSOR OPTION... SOURCE
  clang++ "--target=$1-pc-windows-msvc" -fms-compatibility -fms-extensions -fms-compatibility-version=19.29 \
    -nostdinc -std=c++17 -Wall -Wextra -Wshadow -Wconversion -Werror -fsyntax-only \
    -I tests/msvc/standard -I tests/msvc -I include "${@:2}"
}
for processor in x86_64 i686; do
  for use in ZEPH_USED ZEPH_STATIC ZEPH_BUILDING ZEPH_HARDENED; do
    for macros in BEHIND FIRST; do
      status=0
      msvc $processor -D$use -DZEPH_MACROS_$macros tests/msvc/all_headers.cpp || status=1
      check $status "$processor, $use, macros of the system $macros"
    done
  done
  status=0
  msvc $processor tests/headers/layout.cpp || status=1
  check $status "$processor, layout"
  status=0
  python3 tools/check/msvc_names.py $processor | diff tools/manifests/msvc-$processor.txt - || status=1
  check $status "$processor, names to link"
done
verdicts
