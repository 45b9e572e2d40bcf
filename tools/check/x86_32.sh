# The whole suite as 32-bit x86 programs, where `long` really has 32 bits.
need g++-12-multilib googletest
configure build/x86_32 -DCMAKE_TOOLCHAIN_FILE=cmake/x86-32-linux.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_GTEST_SOURCE=/usr/src/googletest -DZEPH_WARNINGS_AS_ERRORS=ON
build build/x86_32
run_programs build/x86_32
