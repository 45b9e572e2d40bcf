# ./dev prove [FILTER]: every short array, and a million random cases a family, compared with the literal
# steps, or those whose names GoogleTest's filter takes; without one also half an hour of fuzzing and 2000 mutants.
need $packages_build $packages_test libmpfr-dev
export ZEPH_PROVE_EVERY=1
if [ $# -gt 0 ]; then
  build release zeph_prove
  exec build/release/tests/zeph_prove --gtest_filter="$1"
fi
step prove
./dev fuzz 225
./dev mutants --sample 2000
