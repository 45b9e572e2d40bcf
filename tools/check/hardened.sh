# Every precondition checked: the suite passes and each breach stops. A plain and a hardened part
# link into one program, with the plain library and with the hardened one, and each keeps its
# behaviour.
need clang binutils
build release ZEPHDataStructureEngine
status=0
workflow hardened || status=1
check "$(grep -c 'SKIPPED.*Hardened' build/results/hardened.xml)" "hardened tests were skipped"

work=build/hardened/mixed
mkdir -p $work
mixed() { # mixed COMPILER LEVEL LIBRARY-DIR FIRST SECOND: 0 when both parts act as compiled
  local flags="-std=c++17 $2 -I include" stop="CZEPHDoubleArray::operator[]: i is 5, outside 0..4"
  $1 $flags -c tests/headers/mixed_object.cpp -DZEPH_TEST_PART=ReadPlain -o $work/plain.o &&
    $1 $flags -c tests/headers/mixed_object.cpp -DZEPH_TEST_PART=ReadHardened -DZEPH_HARDENED \
      -o $work/hardened.o &&
    $1 $flags tests/headers/mixed_main.cpp $work/$4.o $work/$5.o -L "$3" -lZEPHDataStructureEngine \
      -Wl,-rpath,"$PWD/$3" -o $work/program && $work/program &&
    [ "$($work/program breach 2>&1 >/dev/null | head -n 1)" = "$stop" ]
}
for compiler in g++ clang++; do
  for level in -O0 -O2; do
    for library in build/release/src build/hardened/src; do
      for order in "plain hardened" "hardened plain"; do
        try "$compiler $level with $library, $order" mixed $compiler $level $library $order
      done
    done
  done
done
# The same names are exported, so either library can stand in for the other.
exports() { nm -D --defined-only "build/$1/src/libZEPHDataStructureEngine.so" | awk '{print $NF}' | sort; }
try "the hardened library exports the same names" diff <(exports release) <(exports hardened)
# docs/hardened.md lists every line that a test provokes.
provoked() {
  cat tests/*/hardened_test.cpp | tr '\n' ' ' | sed -E 's/" +"//g' |
    grep -oE 'EXPECT_STOP\( *"[^"]*"' | cut -d'"' -f2 | LC_ALL=C sort -u
}
try "docs/hardened.md lists the lines that the tests provoke" \
  diff <(sed -n '/^## The lines/,/^## /p' docs/hardened.md | sed -n '/^```/,/^```/p' | sed '1d;$d') <(provoked)
verdicts && exit $status
