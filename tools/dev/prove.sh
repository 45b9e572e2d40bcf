# ./dev prove [PROOF...]: every short array, and a million random cases a family, compared with the
# literal steps. ZEPH_PROVE_EVERY=N takes every Nth case.
need $packages_build $packages_test
configure build/test -DCMAKE_BUILD_TYPE=Release -DZEPH_WARNINGS_AS_ERRORS=ON
build build/test zeph_prove
build/test/tests/zeph_prove --every "${ZEPH_PROVE_EVERY:-1}" "$@"
