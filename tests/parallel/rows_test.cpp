// Work divided by rows gives the same bits on any number of threads.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "double_array.h"
#include "linalg.h"
#include "parallel/threads.h"
#include "raw_buffers.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

template <class Matrix>
Matrix Empty(int rows, int cols) {
  return Matrix(rows, cols);
}
template <>
CZEPHDoubleMatrix Empty<CZEPHDoubleMatrix>(int rows, int cols) {
  return CZEPHDoubleMatrix(rows, cols, 0.0);
}

/// Numbers, with some of every special value among them.
template <class Matrix>
Matrix Generated(int rows, int cols, std::uint64_t seed) {
  Matrix m = Empty<Matrix>(rows, cols);
  Random random(seed);
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < cols; ++j)
      m.m_ppData[i][j] = random.Below(1000) ? random.Real() : AwkwardValue<double>(random);
  return m;
}

template <class Matrix>
std::vector<double> Elements(const Matrix& m) {
  std::vector<double> all;
  for (int i = 0; i < m.m_nRows; ++i)
    all.insert(all.end(), m.m_ppData[i], m.m_ppData[i] + m.m_nColumns);
  return all;
}

/// Leaves no earlier result in the freed blocks that the next one of `count` numbers, or of `blocks` rows
/// of as many, is likely to get: a part that nobody computes shows.
void Soil(std::size_t count, std::size_t blocks = 4) {
  const std::vector<std::vector<double>> soiled(blocks, std::vector<double>(count, -9.0));
}

struct Shape {
  int rows, inner, cols;
};
/// Around the size from which products run in parallel, and above: few rows, few columns, odd ends.
const std::vector<Shape> kShapes = {{158, 159, 158}, {160, 160, 160}, {200, 201, 203},
                                    {8, 800, 800},   {3, 1000, 1000}, {2000, 50, 50},
                                    {9, 700, 701},   {700, 700, 9}};

template <class Matrix, class Multiply>
void ExpectTheSameProducts(const std::vector<Shape>& shapes, Multiply multiply) {
  for (const Shape& shape : shapes) {
    const Matrix a = Generated<Matrix>(shape.rows, shape.inner, 1);
    const Matrix b = Generated<Matrix>(shape.inner, shape.cols, 2);
    ZEPH_SetThreads(1);
    const std::vector<double> want = Elements(multiply(a, b));
    ForEachNumberOfThreads([&](int threads) {
      Soil(static_cast<std::size_t>(shape.cols), 2 * static_cast<std::size_t>(shape.rows));
      ASSERT_TRUE(SameValues(Elements(multiply(a, b)), want))
          << shape.rows << " x " << shape.inner << " x " << shape.cols << ", " << threads;
    });
  }
}

}  // namespace

TEST(ParallelRows, ProductsOfDoubleMatricesMatchOneThread) {
  // The product is assigned back, so the right operand is square.
  const std::vector<Shape> shapes = {
      {158, 159, 159}, {160, 160, 160}, {8, 800, 800}, {2000, 50, 50}};
  ExpectTheSameProducts<CZEPHDoubleMatrix>(shapes,
                                           [](CZEPHDoubleMatrix a, const CZEPHDoubleMatrix& b) {
                                             a.operator*=(b);
                                             return a;
                                           });
}

TEST(ParallelRows, ProductsOfMatricesMatchOneThread) {
  ExpectTheSameProducts<CZEPHMatrix>(kShapes,
                                     [](CZEPHMatrix a, const CZEPHMatrix& b) { return a * b; });
}

namespace {

/// A matrix in the form of the raw functions.
struct Table {
  explicit Table(int n, std::uint64_t seed) : cells(static_cast<std::size_t>(n * n)) {
    Random random(seed);
    for (double& x : cells) x = random.Below(5000) ? random.Real() : AwkwardValue<double>(random);
    for (int i = 0; i < n; ++i) rows.push_back(cells.data() + std::ptrdiff_t{i} * n);
  }
  std::vector<double> cells;
  std::vector<double*> rows;
};

/// The result of `compute` with any number of threads equals that with one.
template <class Compute>
void ExpectTheSame(const char* what, Compute compute) {
  ZEPH_SetThreads(1);
  const std::vector<double> want = compute();
  ForEachNumberOfThreads([&](int threads) {
    Soil(want.size());
    ASSERT_TRUE(SameValues(compute(), want)) << what << ", " << threads << " threads";
  });
}

}  // namespace

TEST(ParallelRows, NormsByRowAndByColumnMatchOneThread) {
  for (const int n : {501, 708, 1031})
    for (std::uint64_t seed = 0; seed < 3; ++seed) {
      Table table(n + 3, seed);
      if (seed == 0)  // no NaN, so that every element counts
        for (double& x : table.cells) x = x == x ? x : 1.0;
      double** const m = table.rows.data();
      const auto norms = [&]() -> std::vector<double> {
        return {ZEPH_MatrixOneNorm(m, n, 3), ZEPH_MatrixMaxNorm(m, n, 3),
                ZEPH_MatrixFrobNorm(m, n, 3)};
      };
      ExpectTheSame("norms", norms);
    }
}

TEST(ParallelRows, RowSumsAndProductsWithAnArrayMatchOneThread) {
  for (const int rows : {1, 5, 700, 1203}) {
    const int cols = 900'000 / rows;
    CZEPHMatrix m = Generated<CZEPHMatrix>(rows, cols, 4);
    ExpectTheSame("sums", [&] {
      const CZEPHVector sums = ZEPH_SumVector(m);
      return std::vector<double>(sums.begin(), sums.end());
    });
    const CZEPHDoubleMatrix d = Generated<CZEPHDoubleMatrix>(rows, cols, 5);
    const CZEPHDoubleArray v(cols, 0.75);
    ExpectTheSame("times an array", [&] {
      const CZEPHDoubleArray product = d * v;
      return std::vector<double>(product.begin(), product.end());
    });
  }
}

TEST(ParallelRows, TranspositionMatchesOneThread) {
  for (const int n : {500, 517, 1000}) {
    Table from(n, 6);
    Table to(n, 7);
    ExpectTheSame("rows", [&] {
      std::fill(to.cells.begin(), to.cells.end(), -9.0);  // so that a skipped cell shows
      ZEPH_MatrixTranspose(n, from.rows.data(), to.rows.data());
      return to.cells;
    });
    ExpectTheSame("one block", [&] {
      std::fill(to.cells.begin(), to.cells.end(), -9.0);  // so that a skipped cell shows
      ZEPH_MatrixTranspose(n, from.cells.data(), to.cells.data());
      return to.cells;
    });
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        ASSERT_TRUE(SameBits(to.rows[static_cast<std::size_t>(i)][j],
                             from.rows[static_cast<std::size_t>(j)][i]))
            << "n " << n << ", i " << i << ", j " << j;
  }
}

TEST(ParallelElements, ArithmeticOfLongArraysMatchesOneThread) {
  for (const int n : Scaled<std::vector<int>>({499'999, 500'000, 1'000'003}, {500'000})) {
    Random random(8);
    std::vector<double> x(static_cast<std::size_t>(n)), y(x);
    for (double& value : x) value = AwkwardValue<double>(random);
    for (double& value : y) value = AwkwardValue<double>(random);
    const CZEPHDoubleArray a(n, x.data()), b(n, y.data());
    const auto elements = [](const CZEPHDoubleArray& v) {
      return std::vector<double>(v.begin(), v.end());
    };
    ExpectTheSame("a + b", [&] { return elements(a + b); });
    ExpectTheSame("a - b", [&] { return elements(a - b); });
    ExpectTheSame("a * b", [&] { return elements(a * b); });
    ExpectTheSame("-a", [&] { return elements(-a); });
    ExpectTheSame("a / 3", [&] { return elements(a / 3.0); });
    ExpectTheSame("in place", [&] {
      CZEPHDoubleArray sum = a;
      sum += b;
      sum -= a;
      return elements(sum);
    });
    CZEPHVector v(n, x.data()), w(n, y.data());
    ExpectTheSame("vectors", [&] {
      const CZEPHVector sum = (v + w) * 0.5 - v;
      return std::vector<double>(sum.begin(), sum.end());
    });
  }
}

TEST(ParallelElements, FollowTheCallersFloatingPointModes) {
  const int n = 600'000;
  std::vector<double> x(static_cast<std::size_t>(n));
  Random random(9);
  for (double& value : x) value = random.Below(3) ? random.Real() : 1e-310;
  const CZEPHDoubleArray a(n, x.data());
  for (const Mode& mode : Modes()) {
    CZEPHDoubleArray want(n, 0.0), got(n, 0.0);
    ZEPH_SetThreads(1);
    const int allowed = RaisedBy(mode, [&] { want += a * a; });
    ZEPH_SetThreads(3);
    const int raised = RaisedBy(mode, [&] { got += a * a; });
    EXPECT_TRUE(SameBits(std::vector<double>(got.begin(), got.end()),
                         std::vector<double>(want.begin(), want.end())))
        << mode.name;
    EXPECT_EQ(raised, allowed) << mode.name;
  }
  ZEPH_SetThreads(1);
}

}  // namespace zeph::test
