#include <gtest/gtest.h>

#include "linalg/matrices.h"

using namespace zeph::test;

namespace {

std::vector<double> MatrixTimesVector(const Rows& a, const std::vector<double>& v) {
  std::vector<double> out;
  for (const auto& row : a) {
    volatile double sum = 0.0;
    for (std::size_t j = 0; j < row.size(); ++j) {
      volatile double product = row[j] * v[j];
      sum = sum + product;
    }
    const double rounded = sum;
    out.push_back(rounded);
  }
  return out;
}

}  // namespace

TEST(DoubleMatrixProduct, MultipliesAndAssignsBack) {
  CZEPHDoubleMatrix a = ToDoubleMatrix({{1, 2}, {3, 4}, {5, 6}}, 3, 2);
  CZEPHDoubleMatrix b = ToDoubleMatrix({{1, 10}, {100, 1000}}, 2, 2);
  EXPECT_EQ(&(a *= b), &a);
  EXPECT_TRUE(SameBits(Elements(a), {{201, 2010}, {403, 4030}, {605, 6050}}));
  EXPECT_TRUE(SameBits(Elements(b), {{1, 10}, {100, 1000}}));
}

TEST(DoubleMatrixProduct, AgreesWithTheTextbookLoopInBothForms) {
  int seed = 0;
  for (int rows = 0; rows <= 21; rows += 3)
    for (int cols = 0; cols <= 21; cols += 3) {
      ++seed;
      const auto make = seed % 2 ? AwkwardRows : ModerateRows;
      const Rows x = make(rows, cols, static_cast<std::uint64_t>(seed));
      const Rows y = make(cols, cols, static_cast<std::uint64_t>(seed) + 500);
      const Rows want = oracle::DenseProduct(x, y, Count(rows), Count(cols), Count(cols));
      CZEPHDoubleMatrix a = ToDoubleMatrix(x, rows, cols), c(a);
      const CZEPHDoubleMatrix b = ToDoubleMatrix(y, cols, cols);
      a.operator*=(b);
      EXPECT_TRUE(SameValues(Elements(a), want)) << rows << " x " << cols;
      EXPECT_EQ(&operator*=(c, b), &c) << "rows " << rows << ", cols " << cols;
      EXPECT_TRUE(SameValues(Elements(c), want)) << rows << " x " << cols;
    }
}

// No factor is special: also the identity's products are added from 0.0.
TEST(DoubleMatrixProduct, TheIdentityAndZeroMultiplyAsAnyOtherMatrix) {
  for (const int n : {1, 2, 3, 4, 5, 8, 9, 17})
    for (const double diagonal : {1.0, 0.0}) {
      Rows special(Count(n), std::vector<double>(Count(n), 0.0));
      for (std::size_t i = 0; i < Count(n); ++i) special[i][i] = diagonal;
      for (std::uint64_t seed = 0; seed < 10; ++seed) {
        const Rows x = AwkwardRows(n, n, seed);
        CZEPHDoubleMatrix right = ToDoubleMatrix(x, n, n), left = ToDoubleMatrix(special, n, n);
        const CZEPHDoubleMatrix a(right), identity(left);
        CZEPHMatrix general = ToMatrix(x), generalIdentity = ToMatrix(special);
        const Rows after = oracle::DenseProduct(x, special, Count(n), Count(n), Count(n));
        const Rows before = oracle::DenseProduct(special, x, Count(n), Count(n), Count(n));
        right.operator*=(identity), left.operator*=(a);
        EXPECT_TRUE(SameValues(Elements(right), after)) << n;
        EXPECT_TRUE(SameValues(Elements(left), before)) << n;
        EXPECT_TRUE(SameValues(Elements(general * generalIdentity), after)) << n;
        EXPECT_TRUE(SameValues(Elements(generalIdentity * general), before)) << n;
        const CZEPHDoubleArray v(n, x[0].data());
        EXPECT_TRUE(SameValues(Elements(identity * v), MatrixTimesVector(special, x[0]))) << n;
      }
    }
}

TEST(DoubleMatrixProduct, SquaresItself) {
  const Rows x = ModerateRows(6, 6, 1);
  CZEPHDoubleMatrix a = ToDoubleMatrix(x, 6, 6);
  double* const row = a[3];
  a *= a;
  EXPECT_TRUE(SameBits(Elements(a), oracle::DenseProduct(x, x, 6, 6, 6)));
  EXPECT_EQ(a[3], row);  // assigned back into the existing rows
}

TEST(DoubleMatrixProduct, AcceptsAnyNonConstRightOperand) {
  CZEPHDoubleMatrix a(1, 1, 2.0), b(1, 1, 3.0);
  a *= b;
  a *= CZEPHDoubleMatrix(1, 1, 5.0);
  a *= b + b;
  EXPECT_EQ(a[0][0], 180.0);
}

TEST(DoubleMatrixProduct, AMatrixWithoutColumnsBecomesZerosOfTheProductsSize) {
  CZEPHDoubleMatrix a(2, 0, 1.0), b(0, 3, 1.0);
  a *= b;
  EXPECT_TRUE(SameBits(Elements(a), {{0, 0, 0}, {0, 0, 0}}));
}

TEST(DoubleMatrixProduct, ClearedOperandsHaveNoElements) {
  CZEPHDoubleMatrix a(2, 2, 1.0), cleared(2, 2, 1.0);
  cleared.Clear();
  a *= cleared;
  EXPECT_TRUE(SameBits(Elements(a), {{0, 0}, {0, 0}}));
  cleared *= a;
  EXPECT_TRUE(SameBits(Elements(cleared), {{0, 0}, {0, 0}}));
}

TEST(DoubleMatrixProduct, TimesAnArrayAddsEachRowInOrder) {
  for (int rows : {0, 1, 2, 7, 8, 9, 16, 25})
    for (int cols : {0, 1, 2, 5, 31}) {
      const auto seed = static_cast<std::uint64_t>(100 * rows + cols);
      const Rows x = rows % 2 ? AwkwardRows(rows, cols, seed) : ModerateRows(rows, cols, seed);
      std::vector<double> v = Moderate(Count(cols), seed + 7);
      if (rows % 3 == 1) v = Awkward(Count(cols), seed + 7);
      const CZEPHDoubleMatrix a = ToDoubleMatrix(x, rows, cols);
      const CZEPHDoubleArray got = a * CZEPHDoubleArray(cols, v.data());
      EXPECT_EQ(got.size, rows) << "rows " << rows << ", cols " << cols;
      EXPECT_EQ(got.sorted, 0) << "rows " << rows << ", cols " << cols;
      EXPECT_TRUE(SameValues(Elements(got), MatrixTimesVector(x, v))) << rows << " x " << cols;
    }
}

TEST(DoubleMatrixProduct, TimesAnEmptyArrayIsZeros) {
  CZEPHDoubleMatrix a(2, 2, 3.0);
  CZEPHDoubleArray v(2, 5.0);
  a.m_nColumns = v.size = 0;  // both keep their storage
  EXPECT_TRUE(SameValues(Elements(a * v), {0.0, 0.0}));
}

TEST(DoubleMatrixProduct, TimesAnArrayOfANegativeCountIsZeros) {
  for (int rows = 0; rows <= 13; ++rows) {
    CZEPHDoubleMatrix a(rows, 2, 3.0);
    CZEPHDoubleArray v(2, 5.0);
    a.m_nColumns = v.size = -7;  // as `>>` leaves them
    EXPECT_TRUE(SameBits(Elements(a * v), std::vector<double>(Count(rows), 0.0))) << rows;
  }
}

TEST(DoubleMatrixProduct, WithoutColumnsIsZerosWhateverIsStored) {
  for (int rows = 0; rows <= 5; ++rows)
    for (const bool cleared : {false, true}) {
      CZEPHDoubleMatrix m(rows, 0, 1.0);
      if (cleared) m.Clear();
      CZEPHDoubleArray empty, none(0, 5.0);
      for (const CZEPHDoubleArray* v : {&empty, &none})
        EXPECT_TRUE(SameBits(Elements(m * *v), std::vector<double>(Count(rows), 0.0))) << rows;
    }
}
