#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "raw_buffers.h"
#include "support/bits.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

/// The documented loop.
void LiteralMult(int rowsA, int colsA, double** a, int rowsB, int colsB, double** b, double** out) {
  if (colsA != rowsB || !a || !b || !out || rowsA < 1) return;
  for (int i = 0; i < rowsA; ++i)
    for (int j = 0; j < colsB; ++j)
      for (int k = 0; k < colsA; ++k) out[i][j] = b[k][j] + a[i][k];
}

void LiteralMult3(double a[3][3], double b[3][3], double out[3][3]) {
  for (int i = 0; i < 3; ++i)
    for (int k = 0; k < 3; ++k)
      for (int j = 0; j < 3; ++j) out[i][j] = b[k][j] + a[i][k];
}

/// Rows as offsets into one pool of cells, so that any sharing can be laid out twice.
struct Layout {
  std::vector<std::size_t> a, b, out;
};

std::vector<double*> Rows(std::vector<double>& pool, const std::vector<std::size_t>& offsets) {
  std::vector<double*> rows;
  for (const std::size_t offset : offsets) rows.push_back(pool.data() + offset);
  return rows;
}

void ExpectTheLiteralCells(const Layout& layout, std::size_t poolSize, int colsB,
                           std::uint64_t seed) {
  const auto start = Awkward(poolSize, seed);
  auto got = start, want = start;
  const int rowsA = static_cast<int>(layout.a.size()), colsA = static_cast<int>(layout.b.size());
  ZEPH_MatrixMult(rowsA, colsA, Rows(got, layout.a).data(), colsA, colsB,
                  Rows(got, layout.b).data(), Rows(got, layout.out).data());
  LiteralMult(rowsA, colsA, Rows(want, layout.a).data(), colsA, colsB, Rows(want, layout.b).data(),
              Rows(want, layout.out).data());
  EXPECT_TRUE(SameValues(got, want)) << "seed " << seed;
}

std::vector<std::size_t> Apart(std::size_t first, std::size_t rows, std::size_t cols) {
  std::vector<std::size_t> offsets;
  for (std::size_t i = 0; i < rows; ++i) offsets.push_back(first + i * cols);
  return offsets;
}

}  // namespace

TEST(RawMatrixMult, AddsTheLastColumnAndTheLastRow) {
  double a0[] = {1, 2}, a1[] = {3, 4}, b0[] = {5, 6}, b1[] = {7, 8}, o0[2], o1[2];
  double *a[] = {a0, a1}, *b[] = {b0, b1}, *out[] = {o0, o1};
  ZEPH_MatrixMult(2, 2, a, 2, 2, b, out);
  EXPECT_EQ(o0[0], 9);
  EXPECT_EQ(o0[1], 10);
  EXPECT_EQ(o1[0], 11);
  EXPECT_EQ(o1[1], 12);
}

TEST(RawMatrixMult, DoesNothingForMismatchedEmptyOrNullOperands) {
  double cell[] = {1, 1};
  double out0[] = {-7, -7};
  double *m[] = {cell}, *out[] = {out0};
  ZEPH_MatrixMult(1, 1, m, 2, 1, m, out);
  ZEPH_MatrixMult(0, 1, m, 1, 1, m, out);
  ZEPH_MatrixMult(-1, 1, m, 1, 1, m, out);
  ZEPH_MatrixMult(1, 0, m, 0, 1, m, out);
  ZEPH_MatrixMult(1, -1, m, -1, 1, m, out);
  ZEPH_MatrixMult(1, 1, m, 1, 0, m, out);
  ZEPH_MatrixMult(1, 1, m, 1, -3, m, out);
  ZEPH_MatrixMult(1, 1, nullptr, 1, 1, m, out);
  ZEPH_MatrixMult(1, 1, m, 1, 1, nullptr, out);
  ZEPH_MatrixMult(1, 1, m, 1, 1, m, nullptr);
  EXPECT_EQ(out0[0], -7);
  EXPECT_EQ(out0[1], -7);
}

TEST(RawMatrixMult, MatchesTheLiteralLoopForSeparateMatricesOfEveryShape) {
  for (std::size_t rowsA = 1; rowsA <= 5; ++rowsA)
    for (std::size_t colsA = 1; colsA <= 5; ++colsA)
      for (std::size_t colsB = 1; colsB <= 9; ++colsB) {
        const std::size_t bAt = rowsA * colsA, outAt = bAt + colsA * colsB;
        ExpectTheLiteralCells(
            {Apart(0, rowsA, colsA), Apart(bAt, colsA, colsB), Apart(outAt, rowsA, colsB)},
            outAt + rowsA * colsB, static_cast<int>(colsB), rowsA * 100 + colsA * 10 + colsB);
      }
}

TEST(RawMatrixMult, MatchesTheLiteralLoopWhereOutIsAOrBOrBoth) {
  for (std::size_t n = 1; n <= 7; ++n) {
    const auto first = Apart(0, n, n), second = Apart(n * n, n, n);
    const int cols = static_cast<int>(n);
    ExpectTheLiteralCells({first, second, first}, 2 * n * n, cols, n);
    ExpectTheLiteralCells({first, second, second}, 2 * n * n, cols, n);
    ExpectTheLiteralCells({first, first, second}, 2 * n * n, cols, n);
    ExpectTheLiteralCells({first, first, first}, 2 * n * n, cols, n);
  }
}

TEST(RawMatrixMult, MatchesTheLiteralLoopForRowsSharedWithinAnOperand) {
  const std::vector<std::size_t> apart = Apart(0, 4, 4), equal(4, 20), other = Apart(40, 4, 4);
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    ExpectTheLiteralCells({apart, other, equal}, 60, 4, seed);
    ExpectTheLiteralCells({equal, other, equal}, 60, 4, seed);
    ExpectTheLiteralCells({apart, equal, equal}, 60, 4, seed);
    ExpectTheLiteralCells({equal, equal, equal}, 60, 4, seed);
    ExpectTheLiteralCells({equal, equal, apart}, 60, 4, seed);
  }
}

// Rows anywhere in a small pool: identical, shifted by a few cells, shared within one matrix,
// crossing.
TEST(RawMatrixMult, MatchesTheLiteralLoopForRowsThatOverlapInAnyWay) {
  Random random(11);
  for (std::uint64_t round = 0; round < 20000; ++round) {
    const std::size_t rowsA = 1 + random.Below(4), colsA = 1 + random.Below(4);
    const std::size_t colsB = 1 + random.Below(6), pool = 8 + random.Below(24);
    const auto pick = [&](std::size_t rows, std::size_t cols) {
      std::vector<std::size_t> offsets;
      for (std::size_t i = 0; i < rows; ++i) offsets.push_back(random.Below(pool - cols + 1));
      return offsets;
    };
    ExpectTheLiteralCells({pick(rowsA, colsA), pick(colsA, colsB), pick(rowsA, colsB)}, pool,
                          static_cast<int>(colsB), round);
    if (HasFailure()) FAIL() << "round " << round;
  }
}

/// A row of the result at any distance from the last row of `b`, or across the factor's element.
TEST(RawMatrixMult, MatchesTheLiteralLoopForLongRowsAtAnyDistance) {
  for (const std::size_t cols : {1u, 2u, 7u, 8u, 9u, 15u, 16u, 17u, 33u})
    for (std::size_t out = 0; out <= 2 * cols + 4; ++out) {
      const std::size_t b = cols + 2, a = b + cols / 2, end = 3 * cols + 8, size = end + cols + 2;
      ExpectTheLiteralCells({{a}, {end, b}, {out}}, size, static_cast<int>(cols), out);
      ExpectTheLiteralCells({{end}, {0, b}, {out}}, size, static_cast<int>(cols), out);
    }
}

TEST(RawMatrixMult3, OfTheIdentityWithItselfAddsTheLastColumnAndRow) {
  double i[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, out[3][3];
  ZEPH_MatrixMult3(i, i, out);
  const double want[9] = {0, 0, 1, 0, 0, 1, 1, 1, 2};
  EXPECT_TRUE(SameBits(&out[0][0], want, 9));
}

// 3x3 matrices at any distance from each other within 24 cells.
TEST(RawMatrixMult3, MatchesTheLiteralLoopForEveryOverlap) {
  using Matrix = double(*)[3];
  for (std::size_t a = 0; a <= 15; ++a)
    for (std::size_t b = 0; b <= 15; ++b)
      for (std::size_t out = 0; out <= 15; ++out) {
        const auto start = Awkward(24, a * 256 + b * 16 + out);
        auto got = start, want = start;
        const auto at = [](std::vector<double>& pool, std::size_t offset) {
          return reinterpret_cast<Matrix>(pool.data() + offset);
        };
        ZEPH_MatrixMult3(at(got, a), at(got, b), at(got, out));
        LiteralMult3(at(want, a), at(want, b), at(want, out));
        ASSERT_TRUE(SameValues(got, want)) << a << " " << b << " " << out;
      }
}
