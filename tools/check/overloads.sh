# Documented calls select documented functions, and the additions work with the ranges of C++20.
need clang clang-format python3
mkdir -p build/overloads
build static ZEPHDataStructureEngine
source=tests/headers/overloads.cpp
wanted=build/overloads/wanted
grep -nE '// added$' $source | cut -d: -f1 >$wanted
ranges() {
  "$@" -O1 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -DZEPH_STATIC -I include tests/headers/ranges.cpp \
    build/static/src/libZEPHDataStructureEngine.a -o build/overloads/ranges && build/overloads/ranges
}
for compiler in g++ clang++; do
  for standard in 17 20 2b; do
    found=build/overloads/found
    # Marked as deprecated, an addition is reported on every line that reaches it; so is an error.
    $compiler -std=c++$standard -fsyntax-only -I include -Wno-unused \
      '-DZEPH_ADDED=__attribute__((deprecated("added")))' $source 2>&1 |
      sed -nE "s,^$source:([0-9]+):.*(deprecated|error:).*,\1,p" | sort -nu >$found
    try "$source, $compiler, C++$standard" diff $wanted $found
    [ $standard = 17 ] || try "tests/headers/ranges.cpp, $compiler, C++$standard" ranges $compiler -std=c++$standard
  done
done
# Programs written against the documented declarations alone, and their output.
python3 tests/headers/strip_additions.py include | clang-format --assume-filename=tests/headers/documented.h \
  >build/overloads/documented.h
try "tests/headers/documented.h is the headers without their additions" \
  diff tests/headers/documented.h build/overloads/documented.h
for compiler in g++ clang++; do
  try "tests/headers/uses.txt, $compiler" python3 tests/headers/compare_uses.py --compiler $compiler \
    --flag=-DZEPH_STATIC --library build/static/src/libZEPHDataStructureEngine.a \
    --documented tests/headers/documented.h --work build/overloads/uses-$compiler
done
verdicts
