#include <gtest/gtest.h>

#include "algorithms.h"
#include "support/child.h"

using namespace zeph::test;

#if defined(ZEPH_TEST_SHARED) && defined(__ELF__)
// A program cannot intercept the library's calls to its own functions.
TEST(OwnString, OfTheProgramDoesNotReplaceTheLibrarys) {
  CaptureStdout capture;
  CZEPHPermutation::Test1(stdout);
  const std::string want = capture.Text();
  const auto child = RunChild("zeph_manners_own_string_child", {});
  EXPECT_EQ(child.status, 0) << "the library called the program's own members";
  EXPECT_EQ(child.out, want);
}
#endif
