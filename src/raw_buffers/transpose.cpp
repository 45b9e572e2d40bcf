// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "kernels/overlap.h"
#include "parallel/rows.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"
#include "raw_buffers/rows.h"

namespace zeph::raw_buffers {
namespace {

/// to[i][j] = from[j][i] for the cells of a tile, row by row of `to`.
template <class Rows>
void CopyCells(Rows from, Rows to, int row, int rowEnd, int col, int colEnd) {
  for (int i = row; i < rowEnd; ++i) {
    double* out = to[i];
    for (int j = col; j < colEnd; ++j) out[j] = from[j][i];
  }
}

/// As CopyCells, two rows and two columns at a time: memory is read and written in pairs.
template <class Rows>
void CopyTile(Rows from, Rows to, int row, int rowEnd, int col, int colEnd) {
  const int rowPairs = rowEnd - (rowEnd - row) % 2, colPairs = colEnd - (colEnd - col) % 2;
  for (int i = row; i < rowPairs; i += 2)
    for (int j = col; j < colPairs; j += 2) {
      const double *x = from[j] + i, *y = from[j + 1] + i;
      const double x0 = x[0], x1 = x[1], y0 = y[0], y1 = y[1];
      double *out0 = to[i] + j, *out1 = to[i + 1] + j;
      out0[0] = x0, out0[1] = y0;
      out1[0] = x1, out1[1] = y1;
    }
  CopyCells(from, to, row, rowPairs, colPairs, colEnd);
  CopyCells(from, to, rowPairs, rowEnd, col, colEnd);
}

/// The rows from `row` on, by tiles.
template <int kTile, class Rows>
void CopyRows(int n, Rows from, Rows to, int row, int end) {
  for (; row < end; row += std::min(kTile, end - row))
    for (int col = 0; col < n; col += std::min(kTile, n - col))
      CopyTile(from, to, row, row + std::min(kTile, end - row), col,
               col + std::min(kTile, n - col));
}

/// By tiles: the cache lines that a tile reads stay cached until all of each is used. Without
/// overlap the order of the copies does not matter; where `apart` is false it is row by row.
template <class Rows>
void Transpose(int n, Rows from, Rows to, bool apart) {
  constexpr int kTile = 16;
  if (!apart) return CopyCells(from, to, 0, n, 0, n);
  const std::size_t count = static_cast<std::size_t>(std::max(n, 0));
  const std::uint64_t cells = std::uint64_t{count} * count;
  const int threads = parallel::ThreadsFor(cells, parallel::kTranspositionPays);
  parallel::ShareParts(threads, count, kTile, kTile, [&](std::size_t first, std::size_t rows) {
    const int row = static_cast<int>(first), rowEnd = static_cast<int>(first + rows);
    CopyRows<kTile>(n, from, to, row, rowEnd);
  });
}

/// In place, or with a row that is its own destination: not allowed, but easy to handle as
/// documented. Other overlaps are not detected: the order of their copies is unspecified.
bool SharesRows(int n, double* const* a, double* const* b) {
  for (int i = 0; i < n; ++i)
    if (a[i] == b[i]) return true;
  return false;
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

void ZEPH_MatrixTranspose(int n, double* a, double* b) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  const std::size_t cells = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
  const bool apart = !zeph::kernels::Overlap(a, cells, b, cells);
  Transpose(n, FlatRows{a, n}, FlatRows{b, n}, apart);
}

void ZEPH_MatrixTranspose(int n, double** a, double** b) {
  RequireRows(__func__, "a", a, 0, n);
  RequireRows(__func__, "b", b, 0, n);
  Transpose(n, TableRows{a}, TableRows{b}, !SharesRows(n, a, b));
}

void ZEPH_MatrixSetIdentity(int n, double** m) {
  RequireRows(__func__, "m", m, 0, n);
  // Two passes, not one: rows may be shared, and then each must keep all its ones.
  for (int i = 0; i < n; ++i) std::fill_n(m[i], n, 0.0);
  for (int i = 0; i < n; ++i) m[i][i] = 1.0;
}
