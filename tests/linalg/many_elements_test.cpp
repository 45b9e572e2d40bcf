// Every operation on matrices of many rows and on long vectors goes on to the last of them.
#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

#include "linalg/matrices.h"
#include "support/random_source.h"

using namespace zeph::test;

namespace {

constexpr auto kAdd = [](double x, double y) { return x + y; };
constexpr auto kSubtract = [](double x, double y) { return x - y; };

template <class Body>
void ForEachShape(Body body) {
  for (const auto& [rows, cols] : {std::pair(300, 1), {1100, 2}, {130, 4}, {70, 7}, {3, 5000}}) {
    SCOPED_TRACE(::testing::Message() << rows << " x " << cols);
    body(ModerateRows(rows, cols, 1), ModerateRows(rows, cols, 2), rows, cols);
  }
}

Rows All(int rows, int cols, double value) {
  return Rows(Count(rows), std::vector<double>(Count(cols), value));
}

}  // namespace

TEST(ManyElements, OfDoubleMatricesAreAllReached) {
  ForEachShape([](const Rows& x, const Rows& y, int rows, int cols) {
    CZEPHDoubleMatrix a = ToDoubleMatrix(x, rows, cols), b = ToDoubleMatrix(y, rows, cols);
    const CZEPHDoubleMatrix fixed(a);
    const Rows sum = Zip(x, y, kAdd), difference = Zip(x, y, kSubtract);
    EXPECT_TRUE(SameBits(Elements(fixed), x));
    EXPECT_TRUE(SameBits(Elements(a + b), sum));
    EXPECT_TRUE(SameBits(Elements(fixed - b), difference));
    EXPECT_TRUE(SameBits(Elements(-a), Zip(All(rows, cols, 0.0), x, kSubtract)));
    CZEPHDoubleMatrix c(a), d(a), set, filled(rows, cols, 2.5);
    c += b, d -= b;
    EXPECT_TRUE(SameBits(Elements(c), sum));
    EXPECT_TRUE(SameBits(Elements(d), difference));
    c = fixed;
    EXPECT_TRUE(SameBits(Elements(c), x));
    EXPECT_EQ(set.SetData(rows, cols, b.m_ppData), 1);
    EXPECT_TRUE(SameBits(Elements(set), y));
    EXPECT_TRUE(SameBits(Elements(filled), All(rows, cols, 2.5)));
    filled.SetEntry(-1.5);
    EXPECT_TRUE(SameBits(Elements(filled), All(rows, cols, -1.5)));
    EXPECT_EQ(filled.Create(rows, cols), 1);
    EXPECT_TRUE(SameBits(Elements(filled), All(rows, cols, 0.0)));
  });
}

TEST(ManyElements, OfMatricesAreAllReached) {
  ForEachShape([](const Rows& x, const Rows& y, int rows, int cols) {
    CZEPHMatrix a = ToMatrix(x), b = ToMatrix(y), c(rows, cols), random(a);
    EXPECT_TRUE(SameBits(Elements(a + b), Zip(x, y, kAdd)));
    EXPECT_TRUE(SameBits(Elements(CZEPHMatrix(a)), x));
    c = b;
    EXPECT_TRUE(SameBits(Elements(c), y));
    CZEPHVector column = a.PickCol(cols - 1), sums = ZEPH_SumVector(a);
    ASSERT_EQ(column.GetSize(), rows);
    ASSERT_EQ(sums.GetSize(), rows);
    for (int i = 0; i < rows; ++i) {
      EXPECT_SAME_BITS(column[i], x[Count(i)].back());
      volatile double sum = 0.0;
      for (const double element : x[Count(i)]) sum = sum + element;
      EXPECT_EQ(sums[i], sum);
    }
    b.SetCol(0, column);
    for (int i = 0; i < rows; ++i) EXPECT_SAME_BITS(b[i][0], column[i]);
    const auto draws = DrawsAfterSeed(9, Count(rows * cols));
    Seed(9);
    ZEPH_RandomizeMatrix(random, 1.0);
    for (int i = 0; i < rows; ++i)
      for (int j = 0; j < cols; ++j) EXPECT_EQ(random[i][j], draws[Count(i * cols + j)] / 32767.0);
  });
}

TEST(ManyElements, OfProductsAreAllReached) {
  for (const auto& [rows, inner, cols] :
       {std::tuple(300, 2, 2), {2, 300, 2}, {2, 2, 300}, {130, 7, 3}}) {
    const Rows x = ModerateRows(rows, inner, 1), y = ModerateRows(inner, cols, 2);
    CZEPHMatrix a = ToMatrix(x);
    EXPECT_TRUE(SameBits(Elements(a * ToMatrix(y)),
                         oracle::DenseProduct(x, y, Count(rows), Count(inner), Count(cols))));
    const CZEPHDoubleArray v(inner, ModerateRows(1, inner, 3)[0].data());
    const CZEPHDoubleArray got = ToDoubleMatrix(x, rows, inner) * v;
    for (int i = 0; i < rows; ++i) {
      volatile double sum = 0.0;
      for (int j = 0; j < inner; ++j) {
        volatile double term = x[Count(i)][Count(j)] * v[j];
        sum = sum + term;
      }
      EXPECT_EQ(got[i], sum) << i;
    }
  }
}

TEST(ManyElements, OfVectorsAreAllReached) {
  constexpr int kSize = 9000;
  const std::vector<double> x = Moderate(kSize, 1), y = Moderate(kSize, 2);
  CZEPHVector v = ToVector(x), w = ToVector(y), assigned(kSize);
  const CZEPHVector sum = v + w, difference = v - w, scaled = 3.5 * v, divided = v / 4.0, copy(v);
  assigned = w;
  for (int i = 0; i < kSize; ++i) {
    EXPECT_SAME_BITS(sum[i], x[Count(i)] + y[Count(i)]);
    EXPECT_SAME_BITS(difference[i], x[Count(i)] - y[Count(i)]);
    EXPECT_SAME_BITS(scaled[i], x[Count(i)] * 3.5);
    EXPECT_SAME_BITS(divided[i], x[Count(i)] * 0.25);
    EXPECT_SAME_BITS(copy[i], x[Count(i)]);
    EXPECT_SAME_BITS(assigned[i], y[Count(i)]);
  }
  for (const int at : {0, 1, 1000, 1600, 4096, 8998, 8999}) {
    CZEPHVector high(v), low(v);
    high[at] = 2000.0, low[at] = -3000.0;  // beyond all others
    EXPECT_EQ(ZEPH_GetVectorMaxSite(high), at);
    EXPECT_EQ(ZEPH_GetVectorMinSite(low), at);
    EXPECT_EQ(ZEPH_GetVectorInfititeNorm(low), 3000.0);
  }
  volatile double squares = 0.0;
  for (const double element : x) {
    volatile double square = element * element;
    squares = squares + square;
  }
  EXPECT_EQ(ZEPH_GetVectorSquareNorm(v), squares);
}
