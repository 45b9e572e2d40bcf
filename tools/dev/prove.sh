# ./dev prove [PROOF...]: every short array, and a million random cases a family, compared with the
# literal steps; without a name also half an hour of fuzzing and 2000 mutants. ZEPH_PROVE_EVERY=N takes
# every Nth case, and nothing else.
need $packages_build $packages_test libmpfr-dev
configure build/test -DCMAKE_BUILD_TYPE=Release -DZEPH_WARNINGS_AS_ERRORS=ON
build build/test zeph_prove zeph_make_tables
build/test/tests/zeph_make_tables | diff - src/portable_math/tables.h ||
  fail "src/portable_math/tables.h is not what tools/portable_math/make_tables.cpp writes"
build/test/tests/zeph_prove --every "${ZEPH_PROVE_EVERY:-1}" "$@"
if [ $# -eq 0 ] && [ -z "${ZEPH_PROVE_EVERY:-}" ]; then
  ./dev fuzz 225
  ./dev mutants --sample 2000
fi
