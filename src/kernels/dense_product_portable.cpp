// SPDX-License-Identifier: MIT
//
// Tiles of rows and columns whose sums stay in registers while k runs. Between blocks of k the sums
// rest in `out`, where a double keeps its bits, so every entry still adds in increasing k.
#include <algorithm>

#include "kernels/dense_product.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kTileRows = 4;
constexpr std::size_t kTileCols = 4;
constexpr std::size_t kInnerBlock = 256;  // rows of b that stay in the cache while a's rows pass

/// Entries (i.., j..) of a tile: adds the products of k0 <= k < k1 to what the tile holds, or to
/// 0.0 when k0 is 0.
template <std::size_t Rows, std::size_t Cols>
void Tile(double* const* out, const double* const* a, const double* const* b, std::size_t j,
          std::size_t k0, std::size_t k1) {
  double sum[Rows][Cols];
  for (std::size_t r = 0; r < Rows; ++r)
    for (std::size_t c = 0; c < Cols; ++c) sum[r][c] = k0 ? out[r][j + c] : 0.0;
  const double* row[Rows];
  for (std::size_t r = 0; r < Rows; ++r) row[r] = a[r];
  for (std::size_t k = k0; k < k1; ++k) {
    const double* factors = b[k] + j;
    for (std::size_t r = 0; r < Rows; ++r) {
      const double x = row[r][k];
      for (std::size_t c = 0; c < Cols; ++c) sum[r][c] += x * factors[c];
    }
  }
  for (std::size_t r = 0; r < Rows; ++r)
    for (std::size_t c = 0; c < Cols; ++c) out[r][j + c] = sum[r][c];
}

template <std::size_t Rows>
void RowTiles(double* const* out, const double* const* a, const double* const* b, std::size_t cols,
              std::size_t k0, std::size_t k1) {
  std::size_t j = 0;
  for (; j + kTileCols <= cols; j += kTileCols) Tile<Rows, kTileCols>(out, a, b, j, k0, k1);
  for (; j < cols; ++j) Tile<Rows, 1>(out, a, b, j, k0, k1);
}

}  // namespace

void portable::DenseProduct(double* const* out, const double* const* a, const double* const* b,
                            std::size_t rows, std::size_t inner, std::size_t cols) {
  std::size_t k0 = 0;
  do {  // once even for inner = 0, which sets the zeros
    const std::size_t k1 = std::min(inner, k0 + kInnerBlock);
    std::size_t i = 0;
    for (; i + kTileRows <= rows; i += kTileRows)
      RowTiles<kTileRows>(out + i, a + i, b, cols, k0, k1);
    for (; i < rows; ++i) RowTiles<1>(out + i, a + i, b, cols, k0, k1);
    k0 = k1;
  } while (k0 < inner);
}

}  // namespace zeph::kernels
