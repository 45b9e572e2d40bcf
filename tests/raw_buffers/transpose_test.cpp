#include <gtest/gtest.h>

#include <climits>
#include <numeric>
#include <vector>

#include "raw_buffers.h"
#include "support/bits.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

std::vector<double*> RowsOf(std::vector<double>& cells, int n) {
  std::vector<double*> rows;
  for (int i = 0; i < n; ++i) rows.push_back(cells.data() + std::ptrdiff_t{i} * n);
  return rows;
}

void LiteralTranspose(int n, double** a, double** b) {
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) b[i][j] = a[j][i];
}

}  // namespace

TEST(RawMatrixTranspose, MovesEveryCellOfEverySizeInBothShapes) {
  for (int n = 0; n <= 70; ++n) {
    const std::size_t cells = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    auto a = Awkward(cells + 1, static_cast<std::uint64_t>(n));
    const auto before = a;
    std::vector<double> want(cells + 1, -7), flat = want, rowwise = want;
    LiteralTranspose(n, RowsOf(a, n).data(), RowsOf(want, n).data());
    ZEPH_MatrixTranspose(n, a.data(), flat.data());
    ZEPH_MatrixTranspose(n, RowsOf(a, n).data(), RowsOf(rowwise, n).data());
    EXPECT_TRUE(SameBits(flat, want)) << n;
    EXPECT_TRUE(SameBits(rowwise, want)) << n;
    EXPECT_TRUE(SameBits(a, before)) << n << ": the source has changed";
  }
}

TEST(RawMatrixTranspose, InPlaceOverwritesElementsAsTheRowByRowCopyDoes) {
  for (int n = 1; n <= 40; ++n) {
    const std::size_t cells = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    const auto start = Awkward(cells, static_cast<std::uint64_t>(n));
    auto want = start, flat = start, rowwise = start;
    LiteralTranspose(n, RowsOf(want, n).data(), RowsOf(want, n).data());
    ZEPH_MatrixTranspose(n, flat.data(), flat.data());
    ZEPH_MatrixTranspose(n, RowsOf(rowwise, n).data(), RowsOf(rowwise, n).data());
    EXPECT_TRUE(SameBits(flat, want)) << n;
    EXPECT_TRUE(SameBits(rowwise, want)) << n;
  }
}

/// A row of both matrices, whichever it is, takes every row the way of the plain loops.
TEST(RawMatrixTranspose, CopiesRowByRowWhereAnyRowIsItsOwnDestination) {
  for (int n = 1; n <= 20; ++n)
    for (std::size_t shared = 0; shared < static_cast<std::size_t>(n); ++shared) {
      const std::size_t cells = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
      const auto start = Awkward(cells, cells + shared);
      auto a = start, wantA = start;
      std::vector<double> b(cells, -7), wantB = b;
      auto to = RowsOf(b, n), wantTo = RowsOf(wantB, n);
      to[shared] = RowsOf(a, n)[shared];
      wantTo[shared] = RowsOf(wantA, n)[shared];
      ZEPH_MatrixTranspose(n, RowsOf(a, n).data(), to.data());
      LiteralTranspose(n, RowsOf(wantA, n).data(), wantTo.data());
      ASSERT_TRUE(SameBits(a, wantA)) << shared << " of " << n;
      ASSERT_TRUE(SameBits(b, wantB)) << shared << " of " << n;
    }
}

TEST(RawMatrixTranspose, DoesNothingForNoRows) {
  double a = 1, b = 2;
  for (const int n : {0, -1, INT_MIN}) {
    ZEPH_MatrixTranspose(n, &a, &b);
    ZEPH_MatrixTranspose(n, static_cast<double**>(nullptr), nullptr);
  }
  EXPECT_EQ(b, 2);
}

TEST(RawMatrixSetIdentity, WritesExactlyTheIdentity) {
  for (int n = 0; n <= 9; ++n) {
    auto cells = Awkward(81, 3);
    ZEPH_MatrixSetIdentity(n, RowsOf(cells, n).data());
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        EXPECT_SAME_BITS(cells[static_cast<std::size_t>(i * n + j)], i == j ? 1.0 : 0.0)
            << "n " << n << ", i " << i << ", j " << j;
  }
}

TEST(RawMatrixSetIdentity, KeepsEveryOneInASharedRow) {
  double row[3] = {7, 7, 7}, own[3] = {7, 7, 7};
  double* m[] = {row, own, row};
  ZEPH_MatrixSetIdentity(3, m);
  const double want[] = {1, 0, 1};
  EXPECT_TRUE(SameBits(row, want, 3));
}

TEST(RawMatrixSetIdentity, DoesNothingForNoRows) {
  for (const int n : {0, -1, INT_MIN}) ZEPH_MatrixSetIdentity(n, nullptr);
}
