#include <gtest/gtest.h>

#include "linalg/matrices.h"
#include "support/allocation.h"

using namespace zeph::test;

namespace {

constexpr auto kAdd = [](double x, double y) { return x + y; };
constexpr auto kSubtract = [](double x, double y) { return x - y; };

}  // namespace

TEST(DoubleMatrixArithmetic, AddsAndSubtractsElementByElementInEveryForm) {
  for (int rows : {0, 1, 2, 7})
    for (int cols : {0, 1, 3, 16, 33}) {
      const Rows x = AwkwardRows(rows, cols, 1), y = AwkwardRows(rows, cols, 2);
      const Rows sum = Zip(x, y, kAdd), difference = Zip(x, y, kSubtract);
      CZEPHDoubleMatrix a = ToDoubleMatrix(x, rows, cols), b = ToDoubleMatrix(y, rows, cols);
      const CZEPHDoubleMatrix fixed(a);
      EXPECT_TRUE(SameValues(Elements(a + b), sum));
      EXPECT_TRUE(SameValues(Elements(fixed + b), sum));
      EXPECT_TRUE(SameValues(Elements(a - b), difference));
      EXPECT_TRUE(SameValues(Elements(fixed - b), difference));
      EXPECT_TRUE(SameBits(Elements(a), x));
      CZEPHDoubleMatrix c(a), d(a);
      EXPECT_EQ(&(c += b), &c);
      EXPECT_EQ(&(d -= b), &d);
      EXPECT_TRUE(SameValues(Elements(c), sum));
      EXPECT_TRUE(SameValues(Elements(d), difference));
      EXPECT_TRUE(SameBits(Elements(b), y));
    }
}

TEST(DoubleMatrixArithmetic, TakesTheSameMatrixOnBothSides) {
  const Rows x = AwkwardRows(3, 4, 3);
  CZEPHDoubleMatrix a = ToDoubleMatrix(x, 3, 4), b(a);
  const CZEPHDoubleMatrix &sameA = a, &sameB = b;
  a += sameA;
  b -= sameB;
  EXPECT_TRUE(SameValues(Elements(a), Zip(x, x, kAdd)));
  EXPECT_TRUE(SameValues(Elements(b), Zip(x, x, kSubtract)));
}

TEST(DoubleMatrixArithmetic, NegativeCountsThatWereReadMeanNoElements) {
  CZEPHDoubleMatrix a(2, 2, 1.0), b(2, 2, 1.0);
  a.m_nColumns = b.m_nColumns = -7;  // as `>>` leaves them
  a += b;
  a -= b;
  a.SetEntry(9.0);
  a = b;
  a.m_nColumns = 2;
  EXPECT_TRUE(SameBits(Elements(a), {{1, 1}, {1, 1}}));
}

TEST(DoubleMatrixArithmetic, UnaryPlusIsTheMatrixItselfOrACopyOfAConstOne) {
  CZEPHDoubleMatrix a(2, 2, 1.5);
  EXPECT_EQ(&+a, &a);
  const CZEPHDoubleMatrix& fixed = a;
  const CZEPHDoubleMatrix copy = +fixed;
  EXPECT_TRUE(SameBits(Elements(copy), Elements(a)));
  EXPECT_NE(copy.m_ppData, a.m_ppData);
}

TEST(DoubleMatrixArithmetic, NegationSubtractsFromZeroSoZeroStaysPositive) {
  const Rows x = AwkwardRows(5, 9, 4);
  const Rows zeros(5, std::vector<double>(9, 0.0));
  CZEPHDoubleMatrix a = ToDoubleMatrix(x, 5, 9);
  const CZEPHDoubleMatrix& fixed = a;
  EXPECT_TRUE(SameValues(Elements(-a), Zip(zeros, x, kSubtract)));
  EXPECT_TRUE(SameValues(Elements(-fixed), Zip(zeros, x, kSubtract)));
  EXPECT_TRUE(SameBits(Elements(a), x));
  CZEPHDoubleMatrix zero(1, 2, 0.0);
  zero[0][1] = -0.0;
  EXPECT_TRUE(SameBits(Elements(-zero), {{0.0, 0.0}}));
}

TEST(DoubleMatrixArithmetic, ResultsCostTheirTableAndRowsAndNothingElse) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHDoubleMatrix a(5, 3, 1.0), b(5, 3, 2.0);
  const CZEPHDoubleMatrix& fixed = a;
  const auto cost = [](auto body) {
    const long before = AllocationCount();
    body();
    return AllocationCount() - before;
  };
  EXPECT_EQ(cost([&] { CZEPHDoubleMatrix c = a + b; }), 6);
  EXPECT_EQ(cost([&] { CZEPHDoubleMatrix c = fixed + b; }), 6);
  EXPECT_EQ(cost([&] { CZEPHDoubleMatrix c = a - b; }), 6);
  EXPECT_EQ(cost([&] { CZEPHDoubleMatrix c = -fixed; }), 6);
  EXPECT_EQ(cost([&] { CZEPHDoubleMatrix c = +fixed; }), 6);
  EXPECT_EQ(cost([&] { a += b; }), 0);
}
