// What is shared by rows has the same bits on any number of threads.
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "linalg.h"
#include "parallel/threads.h"
#include "support/numbers.h"

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

/// Numbers, with some of everything else among them.
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

struct Shape {
  int rows, inner, cols;
};
/// About the size from which products are shared and above, with few rows, few columns, odd ends.
const std::vector<Shape> kShapes = {{125, 126, 127}, {128, 128, 128}, {200, 201, 203},
                                    {8, 600, 600},   {3, 1000, 1000}, {2000, 40, 40},
                                    {9, 500, 501},   {700, 700, 7}};

template <class Matrix, class Multiply>
void ExpectTheSameProducts(const std::vector<Shape>& shapes, Multiply multiply) {
  for (const Shape& shape : shapes) {
    const Matrix a = Generated<Matrix>(shape.rows, shape.inner, 1);
    const Matrix b = Generated<Matrix>(shape.inner, shape.cols, 2);
    ZEPH_SetThreads(1);
    const std::vector<double> want = Elements(multiply(a, b));
    ForEachNumberOfThreads([&](int threads) {
      ASSERT_TRUE(SameValues(Elements(multiply(a, b)), want))
          << shape.rows << " x " << shape.inner << " x " << shape.cols << ", " << threads;
    });
  }
}

}  // namespace

TEST(SharedRows, ProductsOfDoubleMatrices) {
  // The product is assigned back, so the right operand is square.
  const std::vector<Shape> shapes = {
      {125, 126, 126}, {128, 128, 128}, {8, 600, 600}, {2000, 40, 40}};
  ExpectTheSameProducts<CZEPHDoubleMatrix>(shapes,
                                           [](CZEPHDoubleMatrix a, const CZEPHDoubleMatrix& b) {
                                             a.operator*=(b);
                                             return a;
                                           });
}

TEST(SharedRows, ProductsOfMatrices) {
  ExpectTheSameProducts<CZEPHMatrix>(kShapes,
                                     [](CZEPHMatrix a, const CZEPHMatrix& b) { return a * b; });
}

}  // namespace zeph::test
