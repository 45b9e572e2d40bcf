# ./dev coverage: lines and branches of src/ and of the headers' inline code that the tests reach.
# Kernel forms that this processor lacks are not run: they are listed as unmeasured.
need $packages_build $packages_test gcovr
dir=build/coverage
status=0
[ ! -d $dir ] || find $dir -name '*.gcda' -delete
workflow coverage || status=1
coverage_gcov() {
  gcovr --root . --object-directory $dir --filter 'src/' --filter 'include/' \
    --exclude-throw-branches --exclude-unreachable-branches --gcov-ignore-parse-errors "$@"
}
coverage_gcov -j "$jobs" --json $dir/coverage.json --html-details $dir/index.html >/dev/null 2>$dir/gcovr.log ||
  { tail -n 20 $dir/gcovr.log >&2; fail "gcovr failed"; }
say "details: $dir/index.html"
# Least percentages of lines and of branches.
python3 tools/dev/coverage_report.py $dir/coverage.json 100 98 || status=1
exit $status
