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
    std::vector<double> want(cells + 1, -7), flat = want, rowwise = want;
    LiteralTranspose(n, RowsOf(a, n).data(), RowsOf(want, n).data());
    ZEPH_MatrixTranspose(n, a.data(), flat.data());
    ZEPH_MatrixTranspose(n, RowsOf(a, n).data(), RowsOf(rowwise, n).data());
    EXPECT_TRUE(SameBits(flat, want)) << n;
    EXPECT_TRUE(SameBits(rowwise, want)) << n;
  }
}

TEST(RawMatrixTranspose, InPlaceLosesWhatTheRowByRowCopyLoses) {
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

TEST(RawMatrixTranspose, DoesNothingForNoRows) {
  double a = 1, b = 2;
  for (const int n : {0, -1, INT_MIN}) {
    ZEPH_MatrixTranspose(n, &a, &b);
    ZEPH_MatrixTranspose(n, static_cast<double**>(nullptr), nullptr);
  }
  EXPECT_EQ(b, 2);
}

TEST(RawMatrixSetIdentity, LeavesExactlyTheIdentity) {
  for (int n = 0; n <= 9; ++n) {
    auto cells = Awkward(81, 3);
    ZEPH_MatrixSetIdentity(n, RowsOf(cells, n).data());
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        EXPECT_SAME_BITS(cells[static_cast<std::size_t>(i * n + j)], i == j ? 1.0 : 0.0);
  }
}

TEST(RawMatrixSetIdentity, LeavesEveryOneInASharedRow) {
  double row[3] = {7, 7, 7}, own[3] = {7, 7, 7};
  double* m[] = {row, own, row};
  ZEPH_MatrixSetIdentity(3, m);
  const double want[] = {1, 0, 1};
  EXPECT_TRUE(SameBits(row, want, 3));
}

TEST(RawMatrixSetIdentity, DoesNothingForNoRows) {
  for (const int n : {0, -1, INT_MIN}) ZEPH_MatrixSetIdentity(n, nullptr);
}
