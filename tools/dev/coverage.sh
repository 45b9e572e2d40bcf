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
run_ctest $dir
coverage_gcov() {
  gcovr --root . --object-directory $dir --filter 'src/' --filter 'include/' \
    --exclude-throw-branches --exclude-unreachable-branches --gcov-ignore-parse-errors "$@"
}
coverage_gcov --txt $dir/lines.txt --json-summary $dir/summary.json --html-details $dir/index.html >/dev/null 2>$dir/gcovr.log ||
  { tail -n 20 $dir/gcovr.log >&2; fail "gcovr failed"; }
coverage_gcov --branches --txt $dir/branches.txt >/dev/null 2>&1
awk '/^(src|include)\// && $4 != "100%"' $dir/lines.txt
for form in avx2 avx512; do
  grep -qw "${form/avx512/avx512f}" /proc/cpuinfo || echo "unmeasured: src/kernels/*_$form.cpp (this processor lacks it)"
done
python3 - $dir/summary.json <<'PY'
import json, sys
summary = json.load(open(sys.argv[1]))
print(f"lines    {summary['line_covered']} of {summary['line_total']}: {summary['line_percent']}%")
print(f"branches {summary['branch_covered']} of {summary['branch_total']}: {summary['branch_percent']}%")
PY
echo "details: $dir/index.html"
