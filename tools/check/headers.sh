# Each public header alone, by every compiler and standard; alone after a header that defines macros
# as the Windows system header does; and the layout of every class. No warning anywhere.
need clang g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix g++-12-multilib
work=build/headers
mkdir -p $work
warnings="-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror"
i686="g++-12 -m32 -idirafter /usr/include/x86_64-linux-gnu"

# compiles WHAT SOURCE COMPILER...: one verdict.
compiles() {
  try "$1: ${*:3}" "${@:3}" -fsyntax-only $warnings -I include "$2"
}

cat >$work/windows_macros.h <<'TEXT'
// What <windows.h> leaves behind unless told otherwise.
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define near
#define far
#define NEAR near
#define FAR far
TEXT

for header in include/*.h include/*/*.h; do
  name=${header#include/}
  source=$work/$(tr / _ <<<"${name%.h}")
  printf '#include "%s"\nint main() { return 0; }\n' "$name" >$source.cpp
  printf '#include <algorithm>\n#include <limits>\n#include <string>\n#include <istream>\n#include <ostream>\n#include "../build/headers/windows_macros.h"\n#include "%s"\nint main() { return 0; }\n' \
    "$name" >${source}_macros.cpp
  for compiler in g++ clang++ x86_64-w64-mingw32-g++-posix; do
    for standard in 17 20 2b; do
      compiles "$name" $source.cpp $compiler -std=c++$standard
    done
    compiles "$name behind macros" ${source}_macros.cpp $compiler -std=c++17
  done
  compiles "$name" $source.cpp i686-w64-mingw32-g++-posix -std=c++17
  compiles "$name" $source.cpp $i686 -std=c++17
done
for compiler in g++ "g++ -march=native" clang++ "clang++ -march=native" "$i686" \
  x86_64-w64-mingw32-g++-posix i686-w64-mingw32-g++-posix; do
  compiles "layout" tests/headers/layout.cpp $compiler -std=c++17
done
verdicts
