#include "platform/format_number.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdio>
#include <string>

#include "support/not_finite.h"
#include "support/numbers.h"

using zeph::platform::NumberConventions;
using zeph::platform::RealFormat;
using zeph::platform::WriteInt;

namespace {

using zeph::test::kInfinity;
using zeph::test::kNaN;

std::string Scientific(double x, const NumberConventions& conventions) {
  char text[RealFormat::kRoom];
  const RealFormat format("%-5.4le", RealFormat::Notation::kScientific, 4, conventions);
  return std::string(text, format.Write(text, x));
}

std::string Fixed(double x, const NumberConventions& conventions) {
  char text[RealFormat::kRoom];
  const RealFormat format("%lf", RealFormat::Notation::kFixed, 6, conventions);
  return std::string(text, format.Write(text, x));
}

}  // namespace

TEST(RealFormat, WritesThreeDigitExponentsWhereTheRuntimeDoes) {
  const NumberConventions three{true, 3, "."};
  EXPECT_EQ(Scientific(1.5, three), "1.5000e+000");
  EXPECT_EQ(Scientific(-1.5e-7, three), "-1.5000e-007");
  EXPECT_EQ(Scientific(1.5e20, three), "1.5000e+020");
  EXPECT_EQ(Scientific(1.5e-20, three), "1.5000e-020");
  EXPECT_EQ(Scientific(1.5e100, three), "1.5000e+100");
  EXPECT_EQ(Scientific(-1.5e-100, three), "-1.5000e-100");
  EXPECT_EQ(Scientific(1.5e42, three), "1.5000e+042");
  EXPECT_EQ(Scientific(1.5e-300, three), "1.5000e-300");
  EXPECT_EQ(Fixed(1.5, three), "1.500000");
}

TEST(RealFormat, WritesTheLocalesDecimalPointOfAnyLength) {
  const NumberConventions comma{true, 2, ","};
  EXPECT_EQ(Scientific(-0.0, comma), "-0,0000e+00");
  EXPECT_EQ(Scientific(12345678, comma), "1,2346e+07");
  EXPECT_EQ(Fixed(-1234.5, comma), "-1234,500000");
  const NumberConventions arabic{true, 3, "\xD9\xAB"};
  EXPECT_EQ(Scientific(-2.5, arabic),
            "-2\xD9\xAB"
            "5000e+000");
  EXPECT_EQ(Fixed(0.25, arabic),
            "0\xD9\xAB"
            "250000");
}

TEST(RealFormat, FallsBackToPrintfWhereTheRuntimeRoundsDifferently) {
  const NumberConventions inexact{false, 3,
                                  ","};  // its different text shows which of the two wrote
  EXPECT_EQ(Scientific(1.5, inexact), "1.5000e+00");
  EXPECT_EQ(Fixed(1.5, inexact), "1.500000");
}

TEST(RealFormat, PadsItsOwnNamesOfInfinityAndNaN) {
  const NumberConventions own{true, 2, ".", true};
  EXPECT_EQ(Scientific(kInfinity, own), "inf  ");
  EXPECT_EQ(Scientific(-kInfinity, own), "-inf ");
  EXPECT_EQ(Scientific(std::copysign(kNaN, 1.0), own), "nan  ");
  EXPECT_EQ(Scientific(std::copysign(kNaN, -1.0), own), "-nan ");
  EXPECT_EQ(Fixed(-kInfinity, own), "-inf");
  char text[RealFormat::kRoom];
  const RealFormat wide("%12.4lf", RealFormat::Notation::kFixed, 4, own);
  EXPECT_EQ(std::string(text, wide.Write(text, kInfinity)), "         inf");
}

TEST(RealFormat, WritesTheLongestNumbers) {
  for (const double x : {1.7976931348623157e308, -1.7976931348623157e308, 5e-324, -2.2e-308}) {
    char want[RealFormat::kRoom];
    std::snprintf(want, sizeof want, "%lf", x);
    EXPECT_EQ(Fixed(x, NumberConventions::Current()), want) << "x " << x;
  }
}

TEST(RealFormat, MatchesPrintfForEveryConversionInUse) {
  const NumberConventions now = NumberConventions::Current();
  for (const double x : zeph::test::Awkward(20000, 1)) {
    char want[RealFormat::kRoom];
    std::snprintf(want, sizeof want, "%-5.4le", x);
    ASSERT_EQ(Scientific(x, now), want) << "x " << x;
    std::snprintf(want, sizeof want, "%lf", x);
    ASSERT_EQ(Fixed(x, now), want) << "x " << x;
  }
}

/// Odd multiples of a power of two lie halfway between two texts.
TEST(RealFormat, RoundsHalvesToEven) {
  for (int decimals = 1; decimals <= 6; ++decimals)
    for (int odd = -99; odd <= 99; odd += 2) {
      const double half = std::ldexp(odd, -decimals - 1);
      const std::string conversion = "%." + std::to_string(decimals) + "f";
      char want[64], text[RealFormat::kRoom];
      std::snprintf(want, sizeof want, conversion.c_str(), half);
      const RealFormat format(conversion.c_str(), RealFormat::Notation::kFixed, decimals,
                              NumberConventions::Current());
      EXPECT_EQ(want, std::string(text, format.Write(text, half))) << decimals;
    }
}

TEST(RealFormat, FollowsTheRuntimeInAnotherRoundingDirection) {
#ifdef FE_UPWARD
  const int before = std::fegetround();
  std::fesetround(FE_UPWARD);
  const NumberConventions upward = NumberConventions::Current();
  char want[64];
  std::snprintf(want, sizeof want, "%lf", 0.1);
  const std::string got = Fixed(0.1, upward);
  std::fesetround(before);
  if (upward.ownNames)
    GTEST_SKIP() << "the library's own texts do not depend on the rounding direction";
  EXPECT_EQ(want, got);
#endif
}

TEST(RealFormat, CountsADecimalPointOfAnyLengthAsOneColumn) {
  const RealFormat format("%lf", RealFormat::Notation::kFixed, 6, {true, 2, "\xD9\xAB"});
  EXPECT_EQ(8u, format.Columns(0.25, 9));
  EXPECT_EQ(3u, format.Columns(kInfinity, 3));
  const RealFormat plain("%lf", RealFormat::Notation::kFixed, 6, {true, 2, "."});
  EXPECT_EQ(8u, plain.Columns(0.25, 8));
}

TEST(WriteInt, PadsOnTheRight) {
  for (const int value : {0, 7, -7, 12345, -12345, 123456, 2147483647, -2147483647 - 1}) {
    char text[zeph::platform::kIntRoom], want[32];
    std::snprintf(want, sizeof want, "%-5d", value);
    EXPECT_EQ(std::string(text, WriteInt(text, value, 5)), want) << "value " << value;
    std::snprintf(want, sizeof want, "%-d", value);
    EXPECT_EQ(std::string(text, WriteInt(text, value)), want) << "value " << value;
  }
}
