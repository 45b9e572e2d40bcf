// SPDX-License-Identifier: MIT
//
// Tiles small enough for the sums to stay in sixteen registers of two elements.
#include "kernels/dense_product.h"
#include "kernels/dense_product_tiles.h"
#include "kernels/forms.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kTileCols = 4;

/// `Rows` x `Cols` entries of a tile, from its `row` and `column` on: each sum continues from the
/// value in `out`, or starts at 0.0, and adds its products in increasing k.
template <std::size_t Rows, std::size_t Cols>
void RunTile(const product::Tile& tile, std::size_t row, std::size_t column) {
  double* const* const out = tile.out + row;
  const std::size_t j = tile.column + column;
  double sum[Rows][Cols];
  const double* left[Rows];
  for (std::size_t r = 0; r < Rows; ++r) {
    left[r] = tile.a[row + r];
    for (std::size_t c = 0; c < Cols; ++c) sum[r][c] = tile.resume ? out[r][j + c] : 0.0;
  }
  for (std::size_t k = 0; k < tile.inner; ++k) {
    const double* right = tile.packed ? tile.packed + k * kTileCols + column : tile.b[k] + j;
    for (std::size_t r = 0; r < Rows; ++r) {
      const double x = left[r][k];
      for (std::size_t c = 0; c < Cols; ++c) sum[r][c] += x * right[c];
    }
  }
  for (std::size_t r = 0; r < Rows; ++r)
    for (std::size_t c = 0; c < Cols; ++c) out[r][j + c] = sum[r][c];
}

struct Form {
  static constexpr std::size_t kRows = 4;
  static constexpr std::size_t kCols = kTileCols;
  static constexpr std::size_t kVector = 1;
  static constexpr std::size_t kLoose = 0;
  static constexpr const RowSums& kRowSums = portable::kRowSums;
  static bool Packs(std::size_t rows, std::size_t inner, std::size_t cols) {
    return rows >= 16 && rows * inner * cols >= std::size_t{96} * 96 * 96;
  }
  static void Run(const product::Tile& tile, std::size_t rows) {
    if (rows == kRows && tile.width == kCols) return RunTile<kRows, kCols>(tile, 0, 0);
    for (std::size_t r = 0; r < rows; ++r) {
      if (tile.width == kCols) {
        RunTile<1, kCols>(tile, r, 0);
      } else {
        for (std::size_t c = 0; c < tile.width; ++c) RunTile<1, 1>(tile, r, c);
      }
    }
  }
};

}  // namespace

const Products portable::kProducts = {product::Run<Form>};

}  // namespace zeph::kernels
