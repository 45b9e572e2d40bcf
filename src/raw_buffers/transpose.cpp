// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>

#include "raw_buffers.h"
#include "raw_buffers/overlap.h"
#include "raw_buffers/rows.h"

namespace zeph::raw_buffers {
namespace {

/// to[i][j] = from[j][i] for the tile with the corner (row, col), row by row of `to`.
template <class Rows>
void CopyTile(Rows from, Rows to, int row, int rowEnd, int col, int colEnd) {
  for (int i = row; i < rowEnd; ++i) {
    double* out = to[i];
    for (int j = col; j < colEnd; ++j) out[j] = from[j][i];
  }
}

/// Tiles of `tile` by `tile` cells: the lines of memory that a tile reads stay at hand until all of
/// each is used. With nothing shared the order of the copies does not show; one tile as large as
/// the matrix is the documented row-by-row order.
template <class Rows>
void TransposeByTiles(int n, Rows from, Rows to, int tile) {
  for (int row = 0; row < n; row += std::min(tile, n - row))
    for (int col = 0; col < n; col += std::min(tile, n - col))
      CopyTile(from, to, row, row + std::min(tile, n - row), col, col + std::min(tile, n - col));
}

constexpr int kTile = 16;

/// In place, or with a row that takes its own place: not allowed, yet harmless to get right.
bool SharesRows(int n, double* const* a, double* const* b) {
  for (int i = 0; i < n; ++i)
    if (a[i] == b[i]) return true;
  return false;
}

}  // namespace
}  // namespace zeph::raw_buffers

namespace rb = zeph::raw_buffers;

void ZEPH_MatrixTranspose(int n, double* a, double* b) {
  if (n < 1) return;
  const std::size_t cells = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
  const int tile = rb::Overlap(a, cells, b, cells) ? n : rb::kTile;
  rb::TransposeByTiles(n, rb::FlatRows{a, n}, rb::FlatRows{b, n}, tile);
}

void ZEPH_MatrixTranspose(int n, double** a, double** b) {
  const int tile = rb::SharesRows(n, a, b) ? n : rb::kTile;
  rb::TransposeByTiles(n, rb::TableRows{a}, rb::TableRows{b}, tile);
}

void ZEPH_MatrixSetIdentity(int n, double** m) {
  // Two passes, not one: rows may be shared, and then keep every one of their ones.
  for (int i = 0; i < n; ++i) std::fill_n(m[i], n, 0.0);
  for (int i = 0; i < n; ++i) m[i][i] = 1.0;
}
