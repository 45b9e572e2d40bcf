#include <gtest/gtest.h>

#include "support/child.h"

// Digits of our own are many times faster than printf's.
TEST(FirstListing, RoundingUpwardLeavesLaterOnesTheirSpeed) {
#ifdef __linux__
  const auto child = zeph::test::RunChild("zeph_manners_listing_child", {});
  EXPECT_EQ(child.status, 0);
  EXPECT_EQ(child.out, "0");
#else
  GTEST_SKIP() << "no function of a program's own comes in the runtime's place here";
#endif
}
