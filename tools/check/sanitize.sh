need clang libclang-rt-14-dev
configure build/sanitize -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=None \
  -DCMAKE_CXX_FLAGS="-O1 -g1" -DZEPH_SANITIZE=address,undefined
build build/sanitize
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1 UBSAN_OPTIONS=print_stacktrace=1
run_ctest build/sanitize
