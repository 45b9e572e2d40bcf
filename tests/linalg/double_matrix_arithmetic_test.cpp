#include <gtest/gtest.h>

#include <utility>

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
      SCOPED_TRACE(::testing::Message() << "rows " << rows << ", cols " << cols);
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

TEST(DoubleMatrixArithmetic, WorksOnEveryShapeInEveryForm) {
  for (int rows = 1; rows <= 5; ++rows)
    for (int cols = 1; cols <= 20; ++cols) {
      const auto seed = static_cast<std::uint64_t>(50 * rows + cols);
      const Rows x = ModerateRows(rows, cols, seed), y = ModerateRows(rows, cols, seed + 7000);
      CZEPHDoubleMatrix a = ToDoubleMatrix(x, rows, cols), b = ToDoubleMatrix(y, rows, cols);
      const CZEPHDoubleMatrix fixed(a);
      const Rows sum = Zip(x, y, kAdd), difference = Zip(x, y, kSubtract);
      const Rows zeros(Count(rows), std::vector<double>(Count(cols), 0.0));
      EXPECT_TRUE(SameBits(Elements(a + b), sum));
      EXPECT_TRUE(SameBits(Elements(fixed + b), sum));
      EXPECT_TRUE(SameBits(Elements(a - b), difference));
      EXPECT_TRUE(SameBits(Elements(fixed - b), difference));
      EXPECT_TRUE(SameBits(Elements(-a), Zip(zeros, x, kSubtract)));
      EXPECT_TRUE(SameBits(Elements(-fixed), Zip(zeros, x, kSubtract)));
      EXPECT_TRUE(SameBits(Elements(+fixed), x));
      a += b;
      EXPECT_TRUE(SameBits(Elements(a), sum));
      b -= fixed;
      EXPECT_TRUE(SameBits(Elements(b), Zip(y, x, kSubtract)));
    }
}

TEST(DoubleMatrixArithmetic, MissingRowsOfAnOperandGiveZeros) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHDoubleMatrix whole = ToDoubleMatrix({{1, 2}, {3, 4}, {5, 6}}, 3, 2), lacking(whole);
  delete[] lacking.m_ppData[1];
  delete[] lacking.m_ppData[2];
  lacking.m_ppData[1] = lacking.m_ppData[2] = nullptr;  // as exhaustion leaves it
  const CZEPHDoubleMatrix &fixed = whole, &fixedLacking = lacking;
  const Rows twice = {{2, 4}, {0, 0}, {0, 0}}, none = {{0, 0}, {0, 0}, {0, 0}};
  EXPECT_TRUE(SameBits(Elements(whole + lacking), twice));
  EXPECT_TRUE(SameBits(Elements(lacking + whole), twice));
  EXPECT_TRUE(SameBits(Elements(fixed + lacking), twice));
  EXPECT_TRUE(SameBits(Elements(whole - lacking), none));
  EXPECT_TRUE(SameBits(Elements(fixedLacking - whole), none));
  EXPECT_TRUE(SameBits(Elements(-lacking), {{-1, -2}, {0, 0}, {0, 0}}));
  EXPECT_TRUE(SameBits(Elements(+fixedLacking), {{1, 2}, {0, 0}, {0, 0}}));
  CZEPHDoubleMatrix sum(whole), difference(whole), copied(whole);
  sum += lacking;
  difference -= lacking;
  copied = fixedLacking;
  EXPECT_TRUE(SameBits(Elements(sum), {{2, 4}, {3, 4}, {5, 6}}));
  EXPECT_TRUE(SameBits(Elements(difference), {{0, 0}, {3, 4}, {5, 6}}));
  EXPECT_TRUE(SameBits(Elements(copied), {{1, 2}, {3, 4}, {5, 6}}));
  const CZEPHDoubleArray products = fixedLacking * CZEPHDoubleArray(2, 1.0);
  EXPECT_TRUE(SameBits(Elements(products), {3, 0, 0}));
  lacking += whole;
  EXPECT_EQ(lacking.m_ppData[0][1], 4.0);
  EXPECT_EQ(lacking.m_ppData[1], nullptr);
  whole *= CZEPHDoubleMatrix(2, 2, 1.0);
  EXPECT_TRUE(SameBits(Elements(whole), {{3, 3}, {7, 7}, {11, 11}}));
}

TEST(DoubleMatrixArithmetic, NegatedResultsCanBeOperandsAndBeNegatedAgain) {
  CZEPHDoubleMatrix a = ToDoubleMatrix({{1, -2}, {0.0, 4}}, 2, 2);
  EXPECT_TRUE(SameBits(Elements(-(-a)), {{1, -2}, {0.0, 4}}));
  a += -a;
  EXPECT_TRUE(SameBits(Elements(a), {{0, 0}, {0, 0}}));
  CZEPHDoubleMatrix b(2, 2, 3.0);
  b = -b;
  EXPECT_TRUE(SameBits(Elements(b), {{-3, -3}, {-3, -3}}));
  CZEPHDoubleMatrix wide(1, 3, 2.0);
  CZEPHDoubleMatrix &ofB = -b, &ofWide = -wide;  // of their own sizes
  EXPECT_EQ(ofB.m_nColumns, 2);
  EXPECT_EQ(ofWide.m_nRows, 1);
  EXPECT_EQ(ofWide.m_nColumns, 3);
}

TEST(DoubleMatrixArithmetic, NegativeCountsLeftByExtractionMeanNoElements) {
  CZEPHDoubleMatrix a(2, 2, 1.0), b(2, 2, 1.0);
  a.m_nColumns = b.m_nColumns = -7;  // as `>>` leaves them
  a += b;
  a -= b;
  a.SetEntry(9.0);
  a = b;
  a.m_nColumns = 2;
  EXPECT_TRUE(SameBits(Elements(a), {{1, 1}, {1, 1}}));
}

/// A result has its table and both counts, as a copy has, where there is no element.
TEST(DoubleMatrixArithmetic, OfMatricesWithoutElementsKeepsBothCounts) {
  for (const auto& [rows, cols] : {std::pair(0, 0), {0, 3}, {2, 0}, {5, 0}, {0, 40}}) {
    SCOPED_TRACE(::testing::Message() << rows << " x " << cols);
    CZEPHDoubleMatrix a(rows, cols, 1.0), b(a);
    const CZEPHDoubleMatrix fixed(a);
    const CZEPHDoubleMatrix results[] = {a + b,  fixed + b, a - b, fixed - b, CZEPHDoubleMatrix(-a),
                                         -fixed, +fixed,    fixed};
    for (const CZEPHDoubleMatrix& result : results) {
      EXPECT_EQ(result.m_nRows, rows);
      EXPECT_EQ(result.m_nColumns, cols);
      EXPECT_NE(result.m_ppData, nullptr);
    }
    const CZEPHDoubleMatrix& negated = -a;
    EXPECT_EQ(negated.m_nRows, rows);
    EXPECT_EQ(negated.m_nColumns, cols);
    EXPECT_NE(negated.m_ppData, nullptr);
    const CZEPHDoubleArray products = fixed * CZEPHDoubleArray(cols, 1.0);
    EXPECT_EQ(products.size, rows);
    EXPECT_NE(products.data, nullptr);
  }
}

TEST(DoubleMatrixArithmetic, UnaryPlusReturnsTheMatrixOrACopyIfConst) {
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

TEST(DoubleMatrixArithmetic, ResultsAllocateTheirTableAndRowsOnly) {
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
  EXPECT_EQ(cost([&] { a -= b; }), 0);
  EXPECT_EQ(cost([&] { CZEPHDoubleMatrix c = fixed - b; }), 6);
  EXPECT_EQ(cost([&] { a = b; }), 0);
  EXPECT_EQ(cost([&] { a *= CZEPHDoubleMatrix(3, 3, 1.0); }),
            6 + 4);  // the product and the operand
  EXPECT_EQ(cost([&] { fixed* CZEPHDoubleArray(3, 1.0); }), 2);
  -a;  // this thread's places
  EXPECT_EQ(cost([&] { -a; }), 6);
}
