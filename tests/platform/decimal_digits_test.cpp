// The leading digits of a number against the runtime's exact printf.
#include "platform/decimal_digits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include "support/modes.h"
#include "support/numbers.h"
#include "support/scale.h"

using namespace zeph::test;
using zeph::platform::Decimal;
using zeph::platform::kMostDecimalDigits;
using zeph::platform::RoundToDecimal;

namespace {

std::string Digits(const Decimal& decimal, int count) {
  std::string text = std::to_string(decimal.digits);
  EXPECT_EQ(text.size(), static_cast<std::size_t>(count));
  if (count > 1) text.insert(1, ".");
  char exponent[16];
  std::snprintf(exponent, sizeof exponent, "e%+03d", decimal.exponent);
  return text + exponent;
}

/// Compares the result if there is one; returns whether there is.
bool Compare(double x, int count) {
  Decimal decimal;
  if (!RoundToDecimal(x, count, decimal)) return false;
  char want[64];
  std::snprintf(want, sizeof want, "%.*e", count - 1, std::fabs(x));
  EXPECT_EQ(Digits(decimal, count), want) << Show(x) << ", " << count << " digits";
  return true;
}

[[maybe_unused]] void CompareAll(double x) {
  for (int count = 1; count <= kMostDecimalDigits; ++count) Compare(x, count);
}

}  // namespace

#ifdef __SIZEOF_INT128__

#if defined(__GLIBC__)  // whose printf is exact
TEST(DecimalDigits, AreCorrectForAnyNumber) {
  Random random(1);
  for (std::size_t i = 0; i < Scaled(60000); ++i) {
    const int exponent = random.Int(-56, 56);
    CompareAll(std::ldexp(random.Real(1, 2), exponent));
    if (HasFailure()) FAIL() << "case " << i;
  }
}

TEST(DecimalDigits, AreCorrectForTies) {
  for (int halvings = 1; halvings <= 40; ++halvings)
    for (int odd = 1; odd < 400; odd += 2) CompareAll(std::ldexp(odd, -halvings));
  Random random(2);
  for (int i = 0; i < Scaled(20000, 2000); ++i) {
    const double whole = static_cast<double>(random.Next() >> random.Int(12, 60));
    CompareAll(whole);
    CompareAll(whole * 5 / 16);
  }
}

TEST(DecimalDigits, AreCorrectAroundPowersOfTen) {
  for (int k = -16; k <= 17; ++k) {
    double below = std::pow(10.0, k), above = below;
    for (int step = 0; step < 40; ++step) {
      CompareAll(below);
      CompareAll(above);
      below = std::nextafter(below, 0.0);
      above = std::nextafter(above, 1e300);
    }
  }
}
#endif

TEST(DecimalDigits, AreAlwaysFoundFrom1eMinus10To2ToThe53) {
  Random random(3);
  for (int i = 0; i < 20000; ++i) {
    const double x = std::pow(10.0, random.Real(-10, 15.95));
    for (int count = 1; count <= kMostDecimalDigits; ++count) {
      Decimal decimal;
      ASSERT_TRUE(RoundToDecimal(-x, count, decimal)) << Show(x) << ", " << count << " digits";
    }
  }
}

TEST(DecimalDigits, AreTheSameInEveryFloatingPointMode) {
  Random random(4);
  for (int i = 0; i < 2000; ++i) {
    const double x = std::ldexp(random.Real(1, 2), random.Int(-48, 52));
    const int count = random.Int(1, kMostDecimalDigits);
    Decimal want{}, got{};
    const bool there = RoundToDecimal(x, count, want);
    for (const Mode& mode : Modes()) {
      bool here = false;
      RaisedBy(mode, [&] { here = RoundToDecimal(x, count, got); });
      ASSERT_EQ(here, there) << mode.name;
      ASSERT_EQ(got.digits, want.digits) << Show(x) << ", " << count << " digits, " << mode.name;
    }
  }
}

#endif

TEST(DecimalDigits, AreRefusedForZeroInfinityNaNAndExtremeMagnitudes) {
  using Limits = std::numeric_limits<double>;
  Decimal decimal;
  for (const double x : {0.0, -0.0, Limits::denorm_min(), Limits::min(), Limits::max(),
                         Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()})
    EXPECT_FALSE(RoundToDecimal(x, 6, decimal)) << Show(x);
}
