#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <limits>
#include <sstream>
#include <type_traits>
#include <vector>

#include "platform.h"

TEST(Long, HoldsThirtyTwoBitsAndCopiesTrivially) {
  EXPECT_EQ(sizeof(ZEPH_Long), 4u);
  EXPECT_TRUE(std::is_trivially_copyable_v<ZEPH_Long>);
  EXPECT_TRUE(std::is_standard_layout_v<ZEPH_Long>);
  EXPECT_FALSE((std::is_same_v<ZEPH_Long*, int*>));
}

TEST(Long, IsZeroWhenValueInitialised) {
  EXPECT_EQ(ZEPH_Long{}, 0);
  EXPECT_EQ(std::vector<ZEPH_Long>(3)[2], 0);
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

TEST(Long, ReadingBeyondItsRangeFailsAndStoresTheLimit) {
  std::stringstream s("3000000000");
  ZEPH_Long x = 0;
  s >> x;
  EXPECT_TRUE(s.fail());
  EXPECT_EQ(x, INT_MAX);
}

TEST(Long, ComparesAndComputesWithEveryIntegerTypeWithoutAmbiguity) {
  const ZEPH_Long x = -6;
  EXPECT_TRUE(x == -6 && x == -6L && x == -6LL && x == short{-6} && -6 == x && -6L == x);
  EXPECT_TRUE(x < 0 && x < 0L && x <= x && x != 5u && x > -7LL && !(x == 5));
  EXPECT_EQ(x + 10000000000LL, 9999999994LL);
  EXPECT_EQ(ZEPH_Long{6} + std::size_t{1}, std::size_t{7});
  EXPECT_EQ(x / 4, -1);
  EXPECT_EQ(x % 4, -2);
  EXPECT_EQ(-x, 6);
  EXPECT_EQ(x * 0.5, -3.0);
  EXPECT_EQ(x & 3, 2);
  const int values[] = {10, 20, 30};
  EXPECT_EQ(values[ZEPH_Long{2}], 30);
}

TEST(Long, CompoundAssignmentWrapsLikeAThirtyTwoBitLong) {
#if LONG_MAX != INT_MAX
  ZEPH_Long x = INT_MAX;
  EXPECT_EQ(x += 1, INT_MIN);
  EXPECT_EQ(x -= 1, INT_MAX);
  EXPECT_EQ(x *= 2, -2);
  x = INT_MAX;
  EXPECT_EQ(++x, INT_MIN);
  EXPECT_EQ(--x, INT_MAX);
  EXPECT_EQ(x++, INT_MAX);
  EXPECT_EQ(x--, INT_MIN);
  EXPECT_EQ(x, INT_MAX);
  x = INT_MIN;
  volatile int minusOne = -1;  // divides at run time
  EXPECT_EQ(x /= minusOne, INT_MIN);
  EXPECT_EQ(x %= minusOne, 0);
#endif
  ZEPH_Long y = 1;
  EXPECT_EQ(y <<= 4, 16);
  EXPECT_EQ(y |= 3, 19);
  EXPECT_EQ(y ^= 1, 18);
  EXPECT_EQ(y &= 6, 2);
  y = -5;
  EXPECT_EQ(y >>= 1, -3);
}

#if LONG_MAX != INT_MAX  // where it is long itself, the compiler warns of the narrowing
TEST(Long, CompoundAssignmentAcceptsWideAndUnsignedOperandsAsALongDoes) {
  ZEPH_Long x = 7;
  x += std::int64_t{0x100000001};  // only the low 32 bits count
  EXPECT_EQ(x, 8);
  x += std::size_t{2};
  EXPECT_EQ(x, 10);
  x -= 20u;
  EXPECT_EQ(x, -10);
  x /= std::int64_t{3};
  EXPECT_EQ(x, -3);
  x = -6;
  x /= 2u;  // unsigned division, as for a 32-bit long
  EXPECT_EQ(x, 2147483645);
  x = 17;
  x %= short{5};
  EXPECT_EQ(x, 2);
  x *= char{3};
  EXPECT_EQ(x, 6);
}
#endif

#if LONG_MAX != INT_MAX
/// `x op= other` for both, where the second computes as a 32-bit long: in the common type of the two.
template <class T>
void ExpectCompoundAssignments(int x, T other) {
  using Common = std::common_type_t<int, T>;
  using Wide = std::conditional_t<std::is_same_v<Common, int>, long long, Common>;
  const auto low = [](auto value) { return static_cast<int>(static_cast<std::uint32_t>(value)); };
  const auto after = [x](auto assign) {
    ZEPH_Long y = x;
    EXPECT_EQ(&assign(y), &y);
    return int{y};
  };
  const auto bits = static_cast<std::uint32_t>(x), others = static_cast<std::uint32_t>(other);
  EXPECT_EQ(after([=](ZEPH_Long & y) -> auto& { return y += other; }), low(bits + others));
  EXPECT_EQ(after([=](ZEPH_Long & y) -> auto& { return y -= other; }), low(bits - others));
  EXPECT_EQ(after([=](ZEPH_Long & y) -> auto& { return y *= other; }), low(bits * others));
  EXPECT_EQ(after([=](ZEPH_Long & y) -> auto& { return y &= other; }), low(bits & others));
  EXPECT_EQ(after([=](ZEPH_Long & y) -> auto& { return y |= other; }), low(bits | others));
  EXPECT_EQ(after([=](ZEPH_Long & y) -> auto& { return y ^= other; }), low(bits ^ others));
  if (other == 0) return;
  const auto wide = static_cast<Wide>(x), wideOther = static_cast<Wide>(other);
  EXPECT_EQ(after([=](ZEPH_Long & y) -> auto& { return y /= other; }), low(wide / wideOther));
  EXPECT_EQ(after([=](ZEPH_Long & y) -> auto& { return y %= other; }), low(wide % wideOther));
}

template <class T>
void ExpectCompoundAssignmentsWith() {
  using Limits = std::numeric_limits<T>;
  for (const int x : {0, 1, -1, 7, -6, 1000, 65537, INT_MAX, INT_MIN})
    for (const T other :
         {T(0), T(1), T(-1), T(2), T(5), T(-7), T(100), Limits::max(), Limits::min()})
      ExpectCompoundAssignments(x, other);
}

TEST(Long, EveryCompoundAssignmentAcceptsEveryIntegerType) {
  ExpectCompoundAssignmentsWith<signed char>();
  ExpectCompoundAssignmentsWith<unsigned char>();
  ExpectCompoundAssignmentsWith<short>();
  ExpectCompoundAssignmentsWith<unsigned short>();
  ExpectCompoundAssignmentsWith<int>();
  ExpectCompoundAssignmentsWith<unsigned>();
  ExpectCompoundAssignmentsWith<long>();
  ExpectCompoundAssignmentsWith<unsigned long>();
  ExpectCompoundAssignmentsWith<unsigned long long>();
}

TEST(Long, ShiftsAsAThirtyTwoBitInt) {
  for (const int x : {1, 5, -5, INT_MAX, INT_MIN})
    for (int bits = 0; bits < 32; ++bits) {
      ZEPH_Long left = x, right = x;
      EXPECT_EQ(&(left <<= bits), &left);
      EXPECT_EQ(&(right >>= bits), &right);
      EXPECT_EQ(left, static_cast<int>(static_cast<std::uint32_t>(x) << bits));
      EXPECT_EQ(right, x >> bits);
    }
}
#endif

TEST(Long, IncrementsAndDecrementsInBothForms) {
  ZEPH_Long x = 5;
  EXPECT_EQ(&++x, &x);
  EXPECT_EQ(x, 6);
  EXPECT_EQ(&--x, &x);
  EXPECT_EQ(x, 5);
  EXPECT_EQ(x++, 5);
  EXPECT_EQ(x, 6);
  EXPECT_EQ(x--, 6);
  EXPECT_EQ(x, 5);
}

TEST(Long, HasTheLimitsOfAnInt) {
  EXPECT_EQ(std::numeric_limits<ZEPH_Long>::max(), INT_MAX);
  EXPECT_EQ(std::numeric_limits<ZEPH_Long>::min(), INT_MIN);
}
