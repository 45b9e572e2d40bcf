# ./dev prove [PROOF...]: every short array, and a million random cases a family, compared with the
# literal steps; without a name also half an hour of fuzzing and 2000 mutants.
need $packages_build $packages_test libmpfr-dev
build release zeph_prove zeph_make_tables
build/release/tests/zeph_make_tables | diff - src/portable_math/tables.h ||
  fail "src/portable_math/tables.h is not what tools/portable_math/make_tables.cpp writes"
build/release/tests/zeph_prove --every 1 "$@"
if [ $# -eq 0 ]; then
  ./dev fuzz 225
  ./dev mutants --sample 2000
fi
