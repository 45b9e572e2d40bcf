# Documented calls select documented functions, and the additions work with the ranges of C++20.
need clang clang-format python3
mkdir -p build/overloads
build static ZEPHDataStructureEngine
source=tests/headers/overloads.cpp
wanted=build/overloads/wanted
grep -nE '// added$' $source | cut -d: -f1 >$wanted
for compiler in g++ clang++; do
  for standard in 17 20 2b; do
    found=build/overloads/found
    # Marked as deprecated, an addition is reported on every line that reaches it; so is an error.
    $compiler -std=c++$standard -fsyntax-only -I include -Wno-unused \
      '-DZEPH_ADDED=__attribute__((deprecated("added")))' $source 2>&1 |
      sed -nE "s,^$source:([0-9]+):.*(deprecated|error:).*,\1,p" | sort -nu >$found
    status=0
    diff $wanted $found || status=1
    check $status "$source, $compiler, C++$standard"
    [ $standard = 17 ] && continue
    status=0
    $compiler -std=c++$standard -O1 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -DZEPH_STATIC \
      -I include tests/headers/ranges.cpp build/static/src/libZEPHDataStructureEngine.a \
      -o build/overloads/ranges && build/overloads/ranges || status=$?
    check $status "tests/headers/ranges.cpp, $compiler, C++$standard"
  done
done
# Programs written against the documented declarations alone, and their output.
status=0
python3 tests/headers/strip_additions.py include | clang-format --assume-filename=tests/headers/documented.h |
  diff tests/headers/documented.h - || status=1
check $status "tests/headers/documented.h is the headers without their additions"
for compiler in g++ clang++; do
  status=0
  python3 tests/headers/compare_uses.py --compiler $compiler --flag=-DZEPH_STATIC \
    --library build/static/src/libZEPHDataStructureEngine.a --documented tests/headers/documented.h \
    --work build/overloads/uses-$compiler || status=1
  check $status "tests/headers/uses.txt, $compiler"
done
verdicts
