// SPDX-License-Identifier: MIT
#include "kernels/dense_product.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <immintrin.h>

#include <array>
#include <utility>

#include "kernels/dense_product_tiles.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX2 ZEPH_TARGET("avx2")
constexpr std::size_t kLanes = 4;
constexpr std::size_t kMostRows = 6;
constexpr std::size_t kMostVectors = 2;

/// The first `count` lanes, 1 to 4 of them.
ZEPH_AVX2 inline __attribute__((always_inline)) __m256i FirstLanes(std::size_t count) {
  const __m256i lanes = _mm256_set_epi64x(3, 2, 1, 0);
  return _mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(count)), lanes);
}

template <std::size_t Rows, std::size_t Vectors, bool Packed, bool Whole>
ZEPH_AVX2 void RunTile(const product::Tile& tile) {
  constexpr std::size_t kLast = Vectors - 1;
  const __m256i mask = FirstLanes(tile.width - kLast * kLanes);
  const std::size_t column = tile.column;
  double* const* const out = tile.out;
  __m256d sum[Rows][Vectors];
  const double* row[Rows];
#pragma GCC unroll 8
  for (std::size_t r = 0; r < Rows; ++r) {
    row[r] = tile.a[r];
#pragma GCC unroll 4
    for (std::size_t v = 0; v < Vectors; ++v) sum[r][v] = _mm256_setzero_pd();
  }
  if (tile.resume) {
#pragma GCC unroll 8
    for (std::size_t r = 0; r < Rows; ++r) {
#pragma GCC unroll 4
      for (std::size_t v = 0; v < kLast; ++v)
        sum[r][v] = _mm256_loadu_pd(out[r] + column + v * kLanes);
      sum[r][kLast] = Whole ? _mm256_loadu_pd(out[r] + column + kLast * kLanes)
                            : _mm256_maskload_pd(out[r] + column + kLast * kLanes, mask);
    }
  }
  const double* packed = tile.packed;
  const double* const* b = tile.b;
#pragma GCC unroll 2
  for (std::size_t k = 0, inner = tile.inner; k < inner; ++k) {
    const double* from = Packed ? packed : b[k] + column;
    if (Packed) packed += kMostVectors * kLanes;
    __m256d factors[Vectors];
#pragma GCC unroll 4
    for (std::size_t v = 0; v < kLast; ++v) factors[v] = _mm256_loadu_pd(from + v * kLanes);
    factors[kLast] = Packed || Whole ? _mm256_loadu_pd(from + kLast * kLanes)
                                     : _mm256_maskload_pd(from + kLast * kLanes, mask);
#pragma GCC unroll 8
    for (std::size_t r = 0; r < Rows; ++r) {
      const __m256d x = _mm256_broadcast_sd(row[r] + k);
#pragma GCC unroll 4
      for (std::size_t v = 0; v < Vectors; ++v)
        sum[r][v] = _mm256_add_pd(sum[r][v], _mm256_mul_pd(factors[v], x));
    }
  }
#pragma GCC unroll 8
  for (std::size_t r = 0; r < Rows; ++r) {
#pragma GCC unroll 4
    for (std::size_t v = 0; v < kLast; ++v)
      _mm256_storeu_pd(out[r] + column + v * kLanes, sum[r][v]);
    if (Whole)
      _mm256_storeu_pd(out[r] + column + kLast * kLanes, sum[r][kLast]);
    else
      _mm256_maskstore_pd(out[r] + column + kLast * kLanes, mask, sum[r][kLast]);
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
  static constexpr std::size_t kLoose = 1;
  static constexpr const RowSums& kRowSums = avx2::kRowSums;
  static bool Packs(std::size_t rows, std::size_t inner, std::size_t cols) {
    return rows >= 48 && rows * inner * cols >= std::size_t{64} * 64 * 64;
  }
  static void Run(const product::Tile& tile, std::size_t rows) {
    constexpr auto kEach = std::make_index_sequence<kMostRows>();
    static constexpr std::array<TileForm, kMostRows> kTiles[][4] = {
        {Heights<1, false, false>(kEach), Heights<1, false, true>(kEach),
         Heights<1, true, false>(kEach), Heights<1, true, true>(kEach)},
        {Heights<2, false, false>(kEach), Heights<2, false, true>(kEach),
         Heights<2, true, false>(kEach), Heights<2, true, true>(kEach)},
    };
    const unsigned kind = (tile.packed ? 2u : 0u) + (tile.width % kLanes ? 0u : 1u);
    kTiles[(tile.width - 1) / kLanes][kind][rows - 1](tile);
  }
};

}  // namespace

const Products avx2::kProducts = {product::Run<Form>};

}  // namespace zeph::kernels
#endif
