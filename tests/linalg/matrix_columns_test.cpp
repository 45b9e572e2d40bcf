#include <gtest/gtest.h>

#include "linalg/matrices.h"
#include "support/random_source.h"

using namespace zeph::test;

namespace {

std::vector<double> RowSums(const Rows& rows) {
  std::vector<double> sums;
  for (const auto& row : rows) {
    volatile double sum = 0.0;
    for (double x : row) sum = sum + x;
    const double rounded = sum;
    sums.push_back(rounded);
  }
  return sums;
}

}  // namespace

TEST(MatrixColumns, AreReadAndSet) {
  const Rows x = AwkwardRows(9, 4, 1);
  CZEPHMatrix m = ToMatrix(x);
  for (int j = 0; j < 4; ++j) {
    CZEPHVector column = m.PickCol(j);
    ASSERT_EQ(column.GetSize(), 9) << "j " << j;
    for (int i = 0; i < 9; ++i) EXPECT_SAME_BITS(column[i], m[i][j]) << "j " << j << ", i " << i;
  }
  CZEPHVector column = m.PickCol(3);
  m.SetCol(0, column);
  for (int i = 0; i < 9; ++i) EXPECT_SAME_BITS(m[i][0], x[Count(i)][3]) << "i " << i;
  column = m.PickCol(2);
  m.SetCol(1, column);
  for (int i = 0; i < 9; ++i) EXPECT_SAME_BITS(m[i][1], x[Count(i)][2]) << "i " << i;
}

TEST(MatrixColumns, PickIntoAVectorLeavesItsSizeAndOtherElementsAlone) {
  CZEPHMatrix m = ToMatrix({{1, 2}, {3, 4}});
  CZEPHVector out = ToVector({9, 9, 9});
  m.PickCol(1, out);
  EXPECT_TRUE(SameBits(Elements(out), {2, 4, 9}));
  ZEPH_SumVector(m, out);
  EXPECT_TRUE(SameBits(Elements(out), {3, 7, 9}));
  CZEPHVector none;
  m.PickCol(1, none);
  ZEPH_SumVector(m, none);
  m.SetCol(1, none);
  EXPECT_EQ(none.GetSize(), 0);
  EXPECT_TRUE(SameBits(Elements(m), {{1, 2}, {3, 4}}));
}

TEST(MatrixColumns, SumVectorSumsRowsFromTheFirstColumnOn) {
  const double values[] = {1, 2, 3, 4, 5, 6};
  CZEPHMatrix m(2, 3, values);
  EXPECT_TRUE(SameBits(Elements(ZEPH_SumVector(m)), {6, 15}));
  for (int rows = 1; rows <= 26; ++rows)
    for (int cols : {1, 2, 7, 40}) {
      const auto seed = static_cast<std::uint64_t>(rows * 50 + cols);
      const Rows x = rows % 3 ? ModerateRows(rows, cols, seed) : AwkwardRows(rows, cols, seed);
      CZEPHMatrix a = ToMatrix(x);
      EXPECT_TRUE(SameValues(Elements(ZEPH_SumVector(a)), RowSums(x))) << rows << " x " << cols;
    }
  const double minus[] = {-0.0};
  EXPECT_SAME_BITS(ZEPH_SumVector(CZEPHMatrix(1, 1, minus))[0], 0.0);
}

TEST(MatrixColumns, RowSumsOfACountOfColumnsBelowOneAreZeros) {
  for (const int rows : {1, 2, 12, 13, 30})
    for (const int cols : {0, -1, -7}) {
      CZEPHMatrix m = ToMatrix(ModerateRows(rows, 2, 1));
      m.m_nColumns = cols;
      CZEPHVector into = ToVector(std::vector<double>(Count(rows), 9.0));
      ZEPH_SumVector(m, into);
      const std::vector<double> zeros(Count(rows), 0.0);
      EXPECT_TRUE(SameBits(Elements(into), zeros));
      EXPECT_TRUE(SameBits(Elements(ZEPH_SumVector(m)), zeros));
    }
}

TEST(MatrixColumns, RowSumsAcceptTemporariesAndConstObjects) {
  const double values[] = {3, -4};
  const CZEPHMatrix m(1, 2, values);
  EXPECT_EQ(ZEPH_SumVector(m)[0], -1.0);
  CZEPHVector out(1);
  ZEPH_SumVector(CZEPHMatrix(1, 2, values), out);
  EXPECT_EQ(out[0], -1.0);
}

TEST(MatrixRandom, FillsRowByRowFromTheRuntimesGenerator) {
  for (double scale : {1.0, -2.5, 1e-3, 0.0}) {
    const std::vector<int> draws = DrawsAfterSeed(77, 12);
    CZEPHMatrix m(3, 4);
    Seed(77);
    ZEPH_RandomizeMatrix(m, scale);
    for (std::size_t n = 0; n < draws.size(); ++n) {
      volatile double scaled = draws[n] * scale;
      EXPECT_SAME_BITS(m.m_ppData[n / 4][n % 4], scaled / 32767.0)
          << "scale " << scale << ", n " << n;
    }
  }
}

TEST(MatrixRandom, StaysBetweenZeroAndTheScaleAndDoesNotReseed) {
  CZEPHMatrix m(50, 50), again(50, 50);
  Seed(1);
  ZEPH_RandomizeMatrix(m, 10.0);
  for (const auto& row : Elements(m))
    for (double x : row) EXPECT_TRUE(x >= 0.0 && x <= 10.0) << "x " << x;
  ZEPH_RandomizeMatrix(again, 10.0);
  EXPECT_FALSE(SameBits(Elements(m), Elements(again)));
}
