// SPDX-License-Identifier: MIT
//
// A row per lane: four columns of four rows are turned over in registers, and the four columns are
// added one after another.
#include "kernels/row_sums.h"

#if ZEPH_X64
#include <immintrin.h>

#include <algorithm>

#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX2 ZEPH_TARGET("avx2")
#define ZEPH_AVX2_INLINE ZEPH_AVX2 inline __attribute__((always_inline))

constexpr std::size_t kLanes = 4;

// The term that an element of column j adds.
struct Itself {
  ZEPH_AVX2_INLINE __m256d operator()(__m256d x, std::size_t) const { return x; }
};
struct TimesElement {
  const double* v;
  ZEPH_AVX2_INLINE __m256d operator()(__m256d x, std::size_t j) const {
    return _mm256_mul_pd(x, _mm256_broadcast_sd(v + j));
  }
};

/// Columns j and j + 1 of rows a and b, as a's in the lower half and b's in the upper one.
ZEPH_AVX2_INLINE __m256d Halves(const double* a, const double* b, std::size_t j) {
  return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(a + j)), _mm_loadu_pd(b + j), 1);
}

/// The sums of 4 * Groups rows: so many sums hide one another's waiting.
template <std::size_t Groups, class Term>
ZEPH_AVX2 void Sums(double* sums, const double* const* m, std::size_t cols, Term term) {
  __m256d sum[Groups];
#pragma GCC unroll 4
  for (std::size_t g = 0; g < Groups; ++g) sum[g] = _mm256_setzero_pd();
  std::size_t j = 0;
  for (; j + kLanes <= cols; j += kLanes) {
#pragma GCC unroll 4
    for (std::size_t g = 0; g < Groups; ++g) {
      const double* const* row = m + g * kLanes;
#pragma GCC unroll 2
      for (std::size_t pair = 0; pair < kLanes; pair += 2) {
        const __m256d even = Halves(row[0], row[2], j + pair);
        const __m256d odd = Halves(row[1], row[3], j + pair);
        sum[g] = _mm256_add_pd(sum[g], term(_mm256_unpacklo_pd(even, odd), j + pair));
        sum[g] = _mm256_add_pd(sum[g], term(_mm256_unpackhi_pd(even, odd), j + pair + 1));
      }
    }
  }
  for (; j < cols; ++j)
#pragma GCC unroll 4
    for (std::size_t g = 0; g < Groups; ++g) {
      const double* const* row = m + g * kLanes;
      const __m256d column = _mm256_set_pd(row[3][j], row[2][j], row[1][j], row[0][j]);
      sum[g] = _mm256_add_pd(sum[g], term(column, j));
    }
#pragma GCC unroll 4
  for (std::size_t g = 0; g < Groups; ++g) _mm256_storeu_pd(sums + g * kLanes, sum[g]);
}

template <class Term>
void AllSums(double* sums, const double* const* m, std::size_t rows, std::size_t cols, Term term) {
  std::size_t i = 0;
  for (; i + 3 * kLanes <= rows; i += 3 * kLanes) Sums<3>(sums + i, m + i, cols, term);
  for (; i + 2 * kLanes <= rows; i += 2 * kLanes) Sums<2>(sums + i, m + i, cols, term);
  for (; i < rows; i += kLanes) {
    const std::size_t count = std::min(kLanes, rows - i);
    const double* row[kLanes];  // the last one again where there are fewer
    for (std::size_t r = 0; r < kLanes; ++r) row[r] = m[i + std::min(r, count - 1)];
    double sum[kLanes];
    Sums<1>(sum, row, cols, term);
    std::copy_n(sum, count, sums + i);
  }
}

void Sum(double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
  AllSums(sums, m, rows, cols, Itself());
}

void Dot(double* sums, const double* const* m, const double* v, std::size_t rows,
         std::size_t cols) {
  AllSums(sums, m, rows, cols, TimesElement{v});
}

}  // namespace

const RowSums avx2::kRowSums = {Sum, Dot};

}  // namespace zeph::kernels
#endif
