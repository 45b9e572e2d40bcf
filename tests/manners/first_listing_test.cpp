#include <gtest/gtest.h>

#include "support/child.h"

// The library's own digits are many times faster than printf's.
TEST(FirstListing, WhileRoundingUpwardLeavesLaterOnesFast) {
#if defined(ZEPH_TEST_SHARED) && defined(__ELF__)
  const auto child = zeph::test::RunChild("zeph_manners_own_snprintf_child", {});
  EXPECT_EQ(child.status, 0);
  EXPECT_EQ(child.out, "0");
#else
  GTEST_SKIP() << "a program cannot replace the runtime's functions here";
#endif
}
