# ./dev coverage: lines and branches of src/ and of the headers' inline code that the tests reach.
# Kernel forms that this processor lacks are not run: they are listed as unmeasured.
need $packages_build $packages_test gcovr
dir=build/coverage
configure $dir -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=None \
  -DCMAKE_CXX_FLAGS="-O0 -g --coverage -fprofile-update=atomic" -DZEPH_BUILD_EXAMPLES=OFF
say "dev: building with coverage"
build $dir
find $dir -name '*.gcda' -delete
say "dev: running the tests"
# gcov keeps blocks of its own when the library is unloaded: that test would count them.
run_ctest $dir -E '^Unloading\.TwoHundredTimesUsedInEveryPart'
coverage_gcov() {
  gcovr --root . --object-directory $dir --filter 'src/' --filter 'include/' \
    --exclude-throw-branches --exclude-unreachable-branches --gcov-ignore-parse-errors "$@"
}
coverage_gcov -j "$jobs" --json $dir/coverage.json --html-details $dir/index.html >/dev/null 2>$dir/gcovr.log ||
  { tail -n 20 $dir/gcovr.log >&2; fail "gcovr failed"; }
say "details: $dir/index.html"
# Least percentages of lines and of branches.
python3 tools/dev/coverage_report.py $dir/coverage.json 100 98
