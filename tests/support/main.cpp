// The test programs' main: GoogleTest, plus the choice of a kernel form on the static build.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#ifndef ZEPH_TEST_SHARED
#include "kernels/table.h"

/// ZEPH_TEST_KERNELS=portable|avx2|avx512|neon runs the whole program on that form.
static bool ChooseKernels() {
  const char* wanted = std::getenv("ZEPH_TEST_KERNELS");
  if (!wanted || !*wanted) return true;
  if (zeph::kernels::Force(wanted)) return true;
  std::fprintf(stderr, "this machine cannot run the kernels \"%s\"\n", wanted);
  return false;
}
#else
static bool ChooseKernels() {
  return true;
}
#endif

/// Runs the tests with the stack moved down by as many bytes as ZEPH_TEST_STACK_SHIFT says (a multiple of
/// 16): where the system aligns the stack to 16 bytes only, the alignment of a spilled wide
/// register is a matter of luck.
static int RunAllTests() {
  const char* shift = std::getenv("ZEPH_TEST_STACK_SHIFT");
  auto* below = static_cast<volatile char*>(
      __builtin_alloca(16 + (shift ? static_cast<unsigned>(std::atoi(shift)) : 0u)));
  below[0] = 0;
  return RUN_ALL_TESTS();
}

/// ZEPH_TEST_LIBRARY=FOLDER: the library in use must be the one in that folder, which LD_LIBRARY_PATH named.
static bool LibraryIsTheWantedOne() {
  const char* folder = std::getenv("ZEPH_TEST_LIBRARY");
  if (!folder) return true;
  const std::string wanted = std::string(folder) + "/libZEPHDataStructureEngine.so";
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);)
    if (line.find(wanted) != std::string::npos) return true;
  std::fprintf(stderr, "the library in use is not %s\n", wanted.c_str());
  return false;
}

constexpr int kSkipped = 77;  // ctest's status for "cannot run here"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (!ChooseKernels() && !::testing::GTEST_FLAG(list_tests)) return kSkipped;
  if (!LibraryIsTheWantedOne()) return 1;
  return RunAllTests();
}
