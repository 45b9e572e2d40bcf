// Every entry of the tables against a series. A wrong digit far behind the point would round one argument of
// thousands differently, and only in one step of the table or for one magnitude.
#include "portable_math/tables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

#include "fixed.h"
#include "portable_math/mantissa.h"

namespace zeph::portable_math {
namespace {

/// Computed numbers differ from exact ones by less than 2^-kExact.
constexpr int kExact = 240;

/// The distance of two numbers is below 2^-bits.
::testing::AssertionResult Within(int bits, const Fixed& got, const Fixed& want) {
  const int equal = LeadingPlace(Magnitude(Difference(got, want))) - 31;
  if (equal > bits) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << equal << " bits behind the point are right, not " << bits;
}

/// A head and the nearest double to the rest.
::testing::AssertionResult IsNearest(const tables::Pair& pair, const Fixed& want) {
  if (pair.rest == 0) return Within(kExact, ToFixed(pair.head), want);
  return Within(53 - std::ilogb(pair.rest), Sum(ToFixed(pair.head), ToFixed(pair.rest)), want);
}

/// ln((1 + p / q) / (1 - p / q)) for 0 <= p / q < 1/4.
Fixed LogarithmOfRatio(std::uint32_t p, std::uint32_t q) {
  Fixed power = Quotient(Multiple(FixedOf(2), p), q), sum{};
  for (std::uint32_t n = 1; !IsZero(power); n += 2) {
    sum = Sum(sum, Quotient(power, n));
    power = Quotient(Quotient(Multiple(Multiple(power, p), p), q), q);
  }
  return sum;
}

Fixed LogarithmOf2() {  // 2 = (3/2) * (4/3)
  return Sum(LogarithmOfRatio(1, 5), LogarithmOfRatio(1, 7));
}

TEST(PortableMathTables, LogarithmsAreThoseOfASeries) {
  const Fixed log10 = Sum(Multiple(LogarithmOf2(), 3), LogarithmOfRatio(1, 9));
  EXPECT_TRUE(Within(kExact, Product(log10, tables::kInverseLn10), FixedOf(1)));
  EXPECT_TRUE(Within(kExact, tables::kLog2, Product(LogarithmOf2(), tables::kInverseLn10)));
  EXPECT_TRUE(IsNearest(tables::kInverseLn10Pair, tables::kInverseLn10));
  EXPECT_TRUE(IsNearest(tables::kLog2Pair, tables::kLog2));
}

/// Of 512 over each reciprocal, which is negative in front of the entry of 1.
TEST(PortableMathTables, LogarithmsOfMantissasAreThoseOfASeries) {
  ASSERT_EQ(std::size(tables::kReciprocals), std::size(tables::kMantissaLogs));
  ASSERT_EQ(std::size(tables::kReciprocals), std::size(tables::kMantissaLogsFixed));
  for (unsigned entry = 0; entry < std::size(tables::kReciprocals); ++entry) {
    const std::uint32_t reciprocal = tables::kReciprocals[entry];
    const bool negative = entry < kEntryOfOne;
    EXPECT_EQ(reciprocal > 512, negative) << entry;
    const Fixed natural =
        LogarithmOfRatio(negative ? reciprocal - 512 : 512 - reciprocal, 512 + reciprocal);
    const Fixed want = Product(natural, tables::kInverseLn10);
    EXPECT_TRUE(Within(kExact, tables::kMantissaLogsFixed[entry], want)) << entry;
    EXPECT_TRUE(IsNearest(tables::kMantissaLogs[entry], negative ? Negative(want) : want)) << entry;
  }
}

Fixed Sine(const Fixed& angle) {
  Fixed sum = angle, term = angle;
  for (std::uint32_t n = 2; !IsZero(term); n += 2) {
    term = Quotient(Product(Product(term, angle), angle), n * (n + 1));
    sum = n % 4 == 2 ? Difference(sum, term) : Sum(sum, term);
  }
  return sum;
}

TEST(PortableMathTables, SinesAreThoseOfASeries) {
  for (std::uint32_t step = 0; step <= tables::kQuarterSteps; ++step) {
    const Fixed angle = Quotient(Multiple(tables::kQuarterTurn, step), tables::kQuarterSteps);
    EXPECT_TRUE(IsNearest(tables::kSines[step], Sine(angle))) << step;
  }
}

TEST(PortableMathTables, StepsAreThoseOfAQuarterTurn) {
  EXPECT_TRUE(IsNearest(tables::kQuarterTurnPair, tables::kQuarterTurn));
  Fixed step{};
  for (const double part : tables::kStep) step = Sum(step, ToFixed(part));
  EXPECT_TRUE(Within(152, step, Quotient(tables::kQuarterTurn, tables::kQuarterSteps)));
  EXPECT_TRUE(Within(46, Product(ToFixed(tables::kStepsPerRadian), step), FixedOf(1)));
}

/// A fraction of as many words as 2/pi has in the table, and a few more; the first is the integer part.
using Words = std::vector<std::uint32_t>;
constexpr std::size_t kWords = tables::kTwoOverPiWords + 4;

void Divide(Words& a, std::uint32_t by) {
  std::uint64_t rest = 0;
  for (std::uint32_t& word : a) {
    rest = rest << 32 | word;
    word = static_cast<std::uint32_t>(rest / by);
    rest %= by;
  }
}

/// a += factor * b, or -= where it is negative, modulo 2^32.
void Add(Words& a, const Words& b, std::int32_t factor) {
  std::int64_t carry = 0;
  for (std::size_t i = kWords; i-- > 0;) {
    carry += a[i];
    carry += std::int64_t{factor} * b[i];
    a[i] = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
}

/// factor * arctan(1 / x) is added to `sum`.
void AddArcTangent(Words& sum, std::int32_t factor, std::uint32_t x) {
  Words power(kWords);
  power[0] = 1;
  Divide(power, x);
  for (std::uint32_t n = 1; n < 32 * kWords; n += 2) {
    Words term = power;
    Divide(term, n);
    Add(sum, term, n % 4 == 1 ? factor : -factor);
    Divide(power, x * x);
  }
}

/// pi/2, by Machin.
Words QuarterTurn() {
  Words sum(kWords);
  AddArcTangent(sum, 8, 5);
  AddArcTangent(sum, -2, 239);
  return sum;
}

TEST(PortableMathTables, AQuarterTurnIsThatOfASeries) {
  const Words turn = QuarterTurn();
  Fixed want;
  for (int i = 0; i <= Fixed::kWords; ++i) want.word[i] = turn[static_cast<std::size_t>(i)];
  EXPECT_TRUE(Within(kExact, tables::kQuarterTurn, want));
}

/// Their product with pi/2 is 1, but for less than their last bit.
TEST(PortableMathTables, TheWordsOfTwoOverPiAreExact) {
  const Words turn = QuarterTurn();
  Words product(kWords);  // word by word: 2^(-32 * (k + 1)) of pi/2 for each
  for (std::size_t k = 0; k < std::size(tables::kTwoOverPi); ++k) {
    std::uint64_t carry = 0;
    for (std::size_t i = kWords - k - 1; i-- > 0;) {
      std::uint32_t& word = product[i + k + 1];
      carry += word + std::uint64_t{tables::kTwoOverPi[k]} * turn[i];
      word = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
    for (std::size_t i = k + 1; carry != 0 && i-- > 0; carry >>= 32) {
      carry += product[i];
      product[i] = static_cast<std::uint32_t>(carry);
    }
  }
  EXPECT_EQ(product[0], 0u);
  for (std::size_t i = 1; i < std::size(tables::kTwoOverPi); ++i)
    EXPECT_EQ(product[i], 0xFFFFFFFFu) << i;
  EXPECT_GE(product[std::size(tables::kTwoOverPi)], 0xFFFFFFFDu);
}

}  // namespace
}  // namespace zeph::portable_math
