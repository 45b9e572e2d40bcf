# ./dev coverage: lines and branches of src/ and of the headers' inline code that the tests reach. Kernel forms
# that this processor lacks are not run: they are listed as unmeasured. The preset leaves out the tests that unload
# the library: what counts leaks its file's name.
need $packages_build $packages_test clang libclang-rt-14-dev llvm-14
dir=build/coverage
status=0
rm -rf $dir/profiles
export CCACHE_EXTRAFILES=$PWD/tools/dev/coverage_sources.txt  # which decides what is counted
workflow coverage || status=1
llvm-profdata-14 merge -sparse -o $dir/coverage.profdata $dir/profiles/*.profraw || fail "there are no counters"
objects=($dir/src/libZEPHDataStructureEngine.so)
for program in $dir/tests/zeph_*_tests $dir/tests/zeph_*_child; do objects+=(-object "$program"); done
coverage_llvm() { llvm-cov-14 "$@" -instr-profile $dir/coverage.profdata "${objects[@]}" 2>>$dir/llvm-cov.log; }
coverage_llvm export -format=lcov >$dir/coverage.lcov && coverage_llvm export >$dir/coverage.json &&
  coverage_llvm show -format=html -show-branches=count -output-dir=$dir/html ||
  { tail -n 20 $dir/llvm-cov.log >&2; fail "llvm-cov failed"; }
say "details: $dir/html/index.html"
# Least percentages of lines and of branches.
python3 tools/dev/coverage_report.py $dir/coverage.lcov $dir/coverage.json tools/dev/coverage_exceptions.txt 100 98 ||
  status=1
exit $status
