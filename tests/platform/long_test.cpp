#include <gtest/gtest.h>

#include <sstream>
#include <type_traits>

#include "platform.h"

TEST(Long, HoldsThirtyTwoBitsAndCopiesTrivially) {
  EXPECT_EQ(sizeof(ZEPH_Long), 4u);
  EXPECT_TRUE(std::is_trivially_copyable_v<ZEPH_Long>);
  EXPECT_FALSE((std::is_same_v<ZEPH_Long*, int*>));
}

TEST(Long, ComputesAndStreamsAsAnInt) {
  ZEPH_Long x = 5;
  x += 2;
  ++x;
  EXPECT_EQ(x * 2, 16);
  std::stringstream s("-12");
  s >> x;
  EXPECT_EQ(x, -12);
  std::ostringstream out;
  out << x;
  EXPECT_EQ(out.str(), "-12");
}
