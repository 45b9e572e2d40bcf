# The whole suite as 64-bit ARM programs under QEMU. Long exhaustive tests run a sample, for an emulated
# processor takes many times as long; zeph-selftest's million results per subsystem (step exactness)
# are not sampled.
need g++-aarch64-linux-gnu qemu-user googletest
configure build/aarch64 -DCMAKE_TOOLCHAIN_FILE=cmake/aarch64-linux.cmake -DCMAKE_BUILD_TYPE=Release \
  -DZEPH_GTEST_SOURCE=/usr/src/googletest
build build/aarch64
LD_LIBRARY_PATH= ZEPH_TEST_SAMPLE=1 run_programs build/aarch64 qemu-aarch64 -L /usr/aarch64-linux-gnu
