// The test programs' main: GoogleTest, plus the choice of a kernel form on the static build.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#ifndef ZEPH_TEST_SHARED
#include "kernels/table.h"

/// ZEPH_TEST_KERNELS=portable|avx2|avx512 runs the whole program on that form.
static bool ChooseKernels() {
  const char* wanted = std::getenv("ZEPH_TEST_KERNELS");
  if (!wanted) return true;
  if (zeph::kernels::Force(wanted)) return true;
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
