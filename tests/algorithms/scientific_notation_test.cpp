#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "algorithms.h"
#include "oracle/decimal.h"
#include "support/allocation.h"
#include "support/bits.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

// A count in the type that the interface takes.
char Byte(int n) {
  return static_cast<char>(static_cast<signed char>(n));
}

std::string Text(double value, int digits, int decimals) {
  int exponent = 77;
  double mantissa = 77;
  return ZEPH_MathToScientificNotation(value, exponent, mantissa, Byte(digits), Byte(decimals))
      .GetString();
}

std::vector<double> Values() {
  std::vector<double> values = Awkward(1000, 3);
  for (int e = -320; e <= 308; ++e)
    for (const double m : {1.0, 9.99, 5.0, -1.0, -3.25}) values.push_back(m * std::pow(10.0, e));
  return values;
}

}  // namespace

TEST(ScientificNotationBase, KeepsTheRequestedDigitsBeforeThePoint) {
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(0.05, 2), -2);
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(0.5, 2), -1);
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(1.0, 2), 0);
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(100, 2), 0);
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(101, 2), 1);
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(999, 2), 1);
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(12345, 2), 3);
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(-12345, 2), 3);
}

TEST(ScientificNotationBase, KeepsOneMoreDigitForAPowerOfTen) {
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(1000, 2), 1);
  EXPECT_EQ(ZEPH_MathGetScientificNotationValue(1000, 1), 100.0);
}

TEST(ScientificNotationBase, OfZeroInfinityAndNaNIsIntMin) {
  for (const double x : {0.0, -0.0, HUGE_VAL, -HUGE_VAL, std::nan("")})
    for (const int digits : {0, 2, -5, 127, -127})
      EXPECT_EQ(ZEPH_MathGetScientificNotationBase(x, Byte(digits)), INT_MIN) << x;
}

TEST(ScientificNotationBase, ReadsTheDigitCountAsASignedByte) {
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(12345, Byte(-3)), 8);
  EXPECT_EQ(ZEPH_MathGetScientificNotationBase(12345, Byte(-128)), 133);
}

TEST(ScientificNotationBase, AgreesWithTheOracle) {
  for (const double x : Values())
    for (const int digits : {-128, -3, 0, 1, 2, 3, 9, 127})
      EXPECT_EQ(ZEPH_MathGetScientificNotationBase(x, Byte(digits)),
                oracle::Exponent(x, static_cast<signed char>(digits)))
          << Show(x) << " digits " << digits;
}

TEST(ScientificNotationValue, DividesByThePowerOrByItsInverse) {
  EXPECT_SAME_BITS(ZEPH_MathGetScientificNotationValue(12345.678, 3), 12.345678);
  EXPECT_SAME_BITS(ZEPH_MathGetScientificNotationValue(0.05, -2), 0.05 / (1.0 / 100.0));
  for (const double x : Values())
    for (const int e : {INT_MIN, -400, -308, -23, -5, -1, 0, 1, 5, 22, 23, 30, 308, 400, INT_MAX})
      EXPECT_SAME_VALUE(ZEPH_MathGetScientificNotationValue(x, e), oracle::Mantissa(x, e))
          << "x " << x << ", e " << e;
}

TEST(ScientificNotationValue, MultipliesPowersOfTenInOneFixedOrder) {
  for (int e = -330; e <= 330; ++e)
    EXPECT_SAME_VALUE(ZEPH_MathGetScientificNotationValue(1.0, e), oracle::Mantissa(1.0, e))
        << "e " << e;
}

TEST(ScientificNotationText, SeparatesMantissaAndExponentByXE) {
  int exponent = 0;
  double mantissa = 0;
  const CString text = ZEPH_MathToScientificNotation(12345.678, exponent, mantissa, 2, 3);
  EXPECT_STREQ(text.GetString(), "12.346xE3");
  EXPECT_EQ(exponent, 3);
  EXPECT_SAME_BITS(mantissa, 12.345678);
  EXPECT_EQ(Text(0.05, 2, 1), "5.0xE-2");
  EXPECT_EQ(Text(-7.0, 2, 0), "-7xE0");
}

TEST(ScientificNotationText, AgreesWithTheOracle) {
  for (const double x : Values())
    for (const int digits : {0, 2, 5})
      for (const int decimals : {0, 3, 12})
        EXPECT_EQ(Text(x, digits, decimals),
                  oracle::ScientificText(x, static_cast<signed char>(digits),
                                         static_cast<signed char>(decimals)))
            << "x " << x << ", digits " << digits << ", decimals " << decimals;
}

TEST(ScientificNotationText, HoldsTheLongestNumbers) {
  // Digits 127 leaves the largest double unsplit up to 10^127 and long above.
  EXPECT_EQ(Text(1e308, 127, 127), oracle::ScientificText(1e308, 127, 127));
  EXPECT_EQ(Text(std::numeric_limits<double>::max(), 127, 127).size(), 127u + 1 + 127 + 5);
}

TEST(ScientificNotationText, SetsBothResultsBeforeItAllocates) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException}) {
    const long before = LiveBlocks();
    int exponent = 0;
    double mantissa = 0;
    const long failures = FailEachAllocation(
        how, false,
        [&] {
          exponent = 0;
          mantissa = 0;
          try {
            ZEPH_MathToScientificNotation(12345.678, exponent, mantissa, 2, 60);
          } catch (const std::bad_alloc&) {
          } catch (CMemoryException* exception) {
            exception->Delete();
          }
        },
        [&](long k) {
          EXPECT_EQ(exponent, 3) << k;
          EXPECT_SAME_BITS(mantissa, 12.345678) << how;
        });
    EXPECT_GE(failures, 1) << how;
    EXPECT_EQ(LiveBlocks(), before) << how;
  }
}
