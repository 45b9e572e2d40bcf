// SPDX-License-Identifier: MIT
#include "kernels/dense_product.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <array>
#include <utility>

#include "kernels/avx512.h"
#include "kernels/dense_product_tiles.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kLanes = 8;
constexpr std::size_t kMostRows = 8;
constexpr std::size_t kMostVectors = 3;

/// factors * (x, x, ...). In assembler, because the compilers would broadcast x once and use it for
/// several vectors: the broadcast then takes pipes that the arithmetic needs.
ZEPH_AVX512 inline __attribute__((always_inline)) __m512d Times(__m512d factors, const double* x) {
  __m512d product;
  __asm__("vmulpd %2%{1to8%}, %1, %0" : "=v"(product) : "v"(factors), "m"(*x));
  return product;
}

template <std::size_t Rows, std::size_t Vectors, bool Packed, bool Whole>
ZEPH_AVX512 void RunTile(const product::Tile& tile) {
  constexpr std::size_t kLast = Vectors - 1;
  const __mmask8 mask = static_cast<__mmask8>((1u << (tile.width - kLast * kLanes)) - 1u);
  const std::size_t column = tile.column;
  double* const* const out = tile.out;
  __m512d sum[Rows][Vectors];
  const double* row[Rows];
#pragma GCC unroll 8
  for (std::size_t r = 0; r < Rows; ++r) {
    row[r] = tile.a[r];
#pragma GCC unroll 4
    for (std::size_t v = 0; v < Vectors; ++v) sum[r][v] = _mm512_setzero_pd();
  }
  if (tile.resume) {
#pragma GCC unroll 8
    for (std::size_t r = 0; r < Rows; ++r) {
#pragma GCC unroll 4
      for (std::size_t v = 0; v < kLast; ++v)
        sum[r][v] = _mm512_loadu_pd(out[r] + column + v * kLanes);
      sum[r][kLast] = Whole ? _mm512_loadu_pd(out[r] + column + kLast * kLanes)
                            : _mm512_maskz_loadu_pd(mask, out[r] + column + kLast * kLanes);
    }
  }
  const double* packed = tile.packed;
  const double* const* b = tile.b;
  for (std::size_t k = 0, inner = tile.inner; k < inner; ++k) {
    const double* from = Packed ? packed : b[k] + column;
    if (Packed) packed += kMostVectors * kLanes;
    __m512d factors[Vectors];
#pragma GCC unroll 4
    for (std::size_t v = 0; v < kLast; ++v) factors[v] = _mm512_loadu_pd(from + v * kLanes);
    factors[kLast] = Packed || Whole ? _mm512_loadu_pd(from + kLast * kLanes)
                                     : _mm512_maskz_loadu_pd(mask, from + kLast * kLanes);
#pragma GCC unroll 8
    for (std::size_t r = 0; r < Rows; ++r) {
#pragma GCC unroll 4
      for (std::size_t v = 0; v < Vectors; ++v)
        sum[r][v] = _mm512_add_pd(sum[r][v], Times(factors[v], row[r] + k));
    }
  }
#pragma GCC unroll 8
  for (std::size_t r = 0; r < Rows; ++r) {
#pragma GCC unroll 4
    for (std::size_t v = 0; v < kLast; ++v)
      _mm512_storeu_pd(out[r] + column + v * kLanes, sum[r][v]);
    if (Whole)
      _mm512_storeu_pd(out[r] + column + kLast * kLanes, sum[r][kLast]);
    else
      _mm512_mask_storeu_pd(out[r] + column + kLast * kLanes, mask, sum[r][kLast]);
  }
}

using TileForm = void (*)(const product::Tile&);

/// By height: tiles of 1 .. kMostRows rows.
template <std::size_t Vectors, bool Packed, bool Whole, std::size_t... I>
constexpr std::array<TileForm, kMostRows> Heights(std::index_sequence<I...>) {
  return {RunTile<I + 1, Vectors, Packed, Whole>...};
}

struct Form {
  static constexpr std::size_t kRows = kMostRows;
  static constexpr std::size_t kCols = kMostVectors * kLanes;
  static constexpr std::size_t kVector = kLanes;
  static constexpr std::size_t kLoose = 2;
  static constexpr const RowSums& kRowSums = avx2::kRowSums;
  /// Once the right factor fills most of the second cache. A vector loaded from two lines does not
  /// slow the arithmetic down here.
  static bool Packs(std::size_t rows, std::size_t inner, std::size_t cols) {
    return rows >= 32 && inner * cols > 100 * 1024;
  }
  static void Run(const product::Tile& tile, std::size_t rows) {
    constexpr auto kEach = std::make_index_sequence<kMostRows>();
    static constexpr std::array<TileForm, kMostRows> kTiles[][4] = {
        {Heights<1, false, false>(kEach), Heights<1, false, true>(kEach),
         Heights<1, true, false>(kEach), Heights<1, true, true>(kEach)},
        {Heights<2, false, false>(kEach), Heights<2, false, true>(kEach),
         Heights<2, true, false>(kEach), Heights<2, true, true>(kEach)},
        {Heights<3, false, false>(kEach), Heights<3, false, true>(kEach),
         Heights<3, true, false>(kEach), Heights<3, true, true>(kEach)},
    };
    const unsigned kind = (tile.packed ? 2u : 0u) + (tile.width % kLanes ? 0u : 1u);
    kTiles[(tile.width - 1) / kLanes][kind][rows - 1](tile);
  }
};

}  // namespace

const Products avx512::kProducts = {product::Run<Form>};

}  // namespace zeph::kernels
#endif
