# The standard library's own checks are on: indices, empty containers, null pointers. What the tests
# reach is counted on the way, for the step "coverage".
dir=build/coverage
rm -f $dir/counted
configure $dir -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=None -DZEPH_BUILD_EXAMPLES=OFF \
  -DCMAKE_CXX_FLAGS="-O0 -g --coverage -fprofile-update=atomic -D_GLIBCXX_ASSERTIONS" \
  -DZEPH_WARNINGS_AS_ERRORS=ON
say "dev: building unoptimised, with coverage"
build $dir
find $dir -name '*.gcda' -delete
say "dev: running the tests"
run_ctest $dir
echo "${check_run:-}" >$dir/counted
