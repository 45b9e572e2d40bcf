# The same turns every time, so that a finding belongs to the change at hand; ./dev fuzz looks elsewhere.
export ZEPH_FUZZ_SEED=1
. tools/dev/fuzz.sh 60
