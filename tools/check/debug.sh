# The standard library's own checks are on: indices, empty containers, null pointers.
configure build/debug -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 \
  -DCMAKE_CXX_FLAGS=-D_GLIBCXX_ASSERTIONS -DZEPH_WARNINGS_AS_ERRORS=ON
build build/debug
run_ctest build/debug
