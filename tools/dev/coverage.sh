# ./dev coverage: lines and branches of src/ and of the headers' inline code that the tests reach. Kernel forms
# that this processor lacks are not run: they are listed as unmeasured. The preset leaves out the tests that unload
# the library: what counts leaks its file's name.
#
# ./dev coverage fuzz: what the saved inputs of the fuzz targets reach by themselves; nothing is demanded of them.
# ZEPH_RECORD=1 puts the totals of either into docs/data/coverage.json.
what=${1:-suite}
[[ $what =~ ^(suite|fuzz)$ ]] || fail "usage: ./dev coverage [fuzz]"
need $packages_build $packages_test clang libclang-rt-14-dev llvm-14
dir=build/coverage
status=0
rm -rf $dir/profiles
export CCACHE_EXTRAFILES=$PWD/tools/dev/coverage_sources.txt  # which decides what is counted
if [ $what = suite ]; then
  workflow coverage || status=1
  programs="$(echo $dir/tests/zeph_*_tests $dir/tests/zeph_*_child)"
  least="100 98"  # percentages of lines and of branches
else
  programs=$dir/tests/zeph_fuzz_tests
  build coverage zeph_fuzz_tests
  LLVM_PROFILE_FILE=$dir/profiles/fuzz.profraw $programs --gtest_filter='FuzzReplay.*' --gtest_brief=1 || status=1
  least="0 0"
fi
llvm-profdata-14 merge -sparse -o $dir/coverage.profdata $dir/profiles/*.profraw || fail "there are no counters"
objects=($dir/src/libZEPHDataStructureEngine.so)
for program in $programs; do objects+=(-object "$program"); done
coverage_llvm() { llvm-cov-14 "$@" -instr-profile $dir/coverage.profdata "${objects[@]}" 2>>$dir/llvm-cov.log; }
coverage_llvm export -format=lcov >$dir/coverage.lcov && coverage_llvm export >$dir/coverage.json &&
  coverage_llvm show -format=html -show-branches=count -output-dir=$dir/html ||
  { tail -n 20 $dir/llvm-cov.log >&2; fail "llvm-cov failed"; }
say "details: $dir/html/index.html"
python3 tools/dev/coverage_report.py $dir/coverage.lcov $dir/coverage.json tools/dev/coverage_exceptions.txt $least |
  tee $dir/report.txt || status=1
[ -z "${ZEPH_RECORD:-}" ] || python3 -B tools/docs/record.py coverage $what $(
  awk '/^(lines|branches) / {print $1 "=" $2, $1 "_of=" $4 + 0}' $dir/report.txt)
exit $status
