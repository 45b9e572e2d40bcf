# ./dev test: builds in Release and runs every test.
need $packages_build $packages_test
say "dev: building the library and its tests"
configure build/test -DCMAKE_BUILD_TYPE=Release -DZEPH_WARNINGS_AS_ERRORS=ON
build build/test
say "dev: running the tests"
run_ctest build/test
