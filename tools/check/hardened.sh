# Every precondition checked: the suite passes and each breach stops. A plain and a hardened part
# link into one program, with the plain library and with the hardened one, and each keeps its manner.
need clang binutils
configure build/test -DCMAKE_BUILD_TYPE=Release -DZEPH_WARNINGS_AS_ERRORS=ON
build build/test ZEPHDataStructureEngine
configure build/hardened -DCMAKE_BUILD_TYPE=Release -DZEPH_HARDENED=ON -DZEPH_WARNINGS_AS_ERRORS=ON
build build/hardened
run_ctest build/hardened
if grep -q 'Hardened.*Skipped' build/hardened/ctest.log; then
  echo "hardened tests were skipped"
  exit 1
fi

work=build/hardened/mixed
mkdir -p $work
passed=0 failed=0
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
    for library in build/test/src build/hardened/src; do
      for order in "plain hardened" "hardened plain"; do
        if mixed $compiler $level $library $order; then
          passed=$((passed + 1))
        else
          echo "$compiler $level with $library, $order: FAILED"
          failed=$((failed + 1))
        fi
      done
    done
  done
done
# The same names are exported, so either library can stand in for the other.
exports() { nm -D --defined-only "build/$1/src/libZEPHDataStructureEngine.so" | awk '{print $NF}' | sort; }
if diff <(exports test) <(exports hardened); then passed=$((passed + 1)); else failed=$((failed + 1)); fi
echo "$passed passed, $failed failed"
[ $failed = 0 ]
