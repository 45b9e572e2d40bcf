// The test programs' main: GoogleTest, plus the choice of a kernel form on the static build.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifndef ZEPH_TEST_SHARED
#include "kernels/level.h"

/// ZEPH_TEST_KERNELS=portable|avx2|avx512 runs the whole program on that form.
static bool ChooseKernels() {
  const char* wanted = std::getenv("ZEPH_TEST_KERNELS");
  if (!wanted) return true;
  for (auto level : zeph::kernels::RunnableLevels())
    if (std::strcmp(zeph::kernels::Name(level), wanted) == 0) return zeph::kernels::Force(level);
  std::fprintf(stderr, "this machine cannot run the kernels \"%s\"\n", wanted);
  return false;
}
#else
static bool ChooseKernels() {
  return true;
}
#endif

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (!ChooseKernels()) return 2;
  return RUN_ALL_TESTS();
}
