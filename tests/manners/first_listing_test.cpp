#include <gtest/gtest.h>

#include "support/child.h"

// Digits of our own are many times faster than printf's.
TEST(FirstListing, RoundingUpwardLeavesLaterOnesTheirSpeed) {
#if defined(ZEPH_TEST_SHARED) && defined(__ELF__)
  const auto child = zeph::test::RunChild("zeph_manners_own_snprintf_child", {});
  EXPECT_EQ(child.status, 0);
  EXPECT_EQ(child.out, "0");
#else
  GTEST_SKIP() << "no function of a program's own comes in the runtime's place here";
#endif
}
