# ./dev fuzz SECONDS [TARGET]: searches with every body of fuzz/ (or one) for SECONDS each, as many at
# a time as there are processors. Inputs that reach new code stay in build/fuzz/found/<target>; the
# saved ones of fuzz/corpus are the start. ZEPH_FUZZ_SEED=N makes a search repeatable; without it no
# two searches are alike. An input that fails is kept and named. ZEPH_RECORD=1 adds what was executed to
# docs/data/fuzz.json.
#
# ./dev fuzz merge [TARGET]: searches nothing, but puts the few of all these inputs into fuzz/corpus that
# reach the places that all reach.
[[ ${1:-} =~ ^([1-9][0-9]*|merge)$ ]] || fail "usage: ./dev fuzz SECONDS|merge [TARGET]"
targets=$(basename -s .cpp fuzz/*.cpp)
if [ $# = 2 ]; then
  [ -f "fuzz/$2.cpp" ] || fail "no fuzz target \"$2\"; there are:" $targets
  targets=$2
fi
need $packages_build $packages_test clang libclang-rt-14-dev
say "dev: building the fuzz targets"
build fuzz $(printf 'zeph_fuzz_%s ' $targets)
ZEPH_JOBS=$jobs python3 -B tools/dev/fuzz.py "$1" $targets
