# A repeatable search, so that a finding belongs to the current change; ./dev fuzz searches
# elsewhere.
export ZEPH_FUZZ_SEED=1
. tools/dev/fuzz.sh 60
