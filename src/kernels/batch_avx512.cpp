// SPDX-License-Identifier: MIT
//
// A whole matrix of floats, or two columns of doubles, in one register; the operations on vectors
// stay in the AVX2 form.
#include "kernels/avx512.h"
#include "kernels/batch.h"
#include "kernels/forms.h"

#if ZEPH_X64
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX512_INLINE ZEPH_AVX512 static inline __attribute__((always_inline))

template <int k>
ZEPH_AVX512_INLINE __m512 Spread(__m512 columns) {
  return _mm512_permute_ps(columns, k * 0x55);
}

/// Lanes of an affine left factor's bottom row are masked out, so that their sums raise nothing.
template <bool kFirstAffine, bool kSecondAffine>
ZEPH_AVX512 void ProductsOf(float* out, const float* m, std::size_t stride, const float* e,
                            std::size_t n) {
  constexpr __mmask16 kRows = kFirstAffine ? 0x7777 : 0xFFFF, kLastColumn = kRows & 0xF000;
  const __m512 c0 = _mm512_broadcast_f32x4(_mm_loadu_ps(e));
  const __m512 c1 = _mm512_broadcast_f32x4(_mm_loadu_ps(e + 4));
  const __m512 c2 = _mm512_broadcast_f32x4(_mm_loadu_ps(e + 8));
  const __m512 c3 = _mm512_broadcast_f32x4(_mm_loadu_ps(e + 12));
  const __m512 one = _mm512_mask_blend_ps(0x8000, _mm512_setzero_ps(), _mm512_set1_ps(1));
  const auto* from = reinterpret_cast<const char*>(m);
  auto* to = reinterpret_cast<char*>(out);
  for (std::size_t i = 0; i < n; ++i, from += stride, to += stride) {
    const __m512 b = _mm512_loadu_ps(from);
    __m512 sum = _mm512_add_ps(_mm512_maskz_mul_ps(kRows, c0, Spread<0>(b)),
                               _mm512_maskz_mul_ps(kRows, c1, Spread<1>(b)));
    sum = _mm512_add_ps(sum, _mm512_maskz_mul_ps(kRows, c2, Spread<2>(b)));
    if constexpr (kSecondAffine)  // the last column moves on
      sum = _mm512_mask_add_ps(sum, kLastColumn, sum, c3);
    else
      sum = _mm512_add_ps(sum, _mm512_maskz_mul_ps(kRows, c3, Spread<3>(b)));
    if constexpr (kFirstAffine) sum = _mm512_mask_blend_ps(kRows, kSecondAffine ? one : b, sum);
    _mm512_storeu_ps(to, sum);
  }
}

ZEPH_AVX512 void FloatProducts(float* out, const float* m, std::size_t stride, const float* e,
                               bool firstAffine, bool secondAffine, std::size_t n) {
  const auto run = firstAffine
                       ? (secondAffine ? ProductsOf<true, true> : ProductsOf<true, false>)
                       : (secondAffine ? ProductsOf<false, true> : ProductsOf<false, false>);
  run(out, m, stride, e, n);
}

/// The same column in both halves.
ZEPH_AVX512_INLINE __m512d Twice(const double* column) {
  return _mm512_broadcast_f64x4(_mm256_loadu_pd(column));
}

template <int k>
ZEPH_AVX512_INLINE __m512d Spread(__m512d columns) {
  return _mm512_permutex_pd(columns, k * 0x55);
}

ZEPH_AVX512 void DoubleProducts(double* out, const double* m, std::size_t stride, const double* e,
                                std::size_t n) {
  const __m512d c0 = Twice(e), c1 = Twice(e + 4), c2 = Twice(e + 8), c3 = Twice(e + 12);
  const auto* from = reinterpret_cast<const char*>(m);
  auto* to = reinterpret_cast<char*>(out);
  for (std::size_t i = 0; i < n; ++i, from += stride, to += stride)
    for (std::size_t half = 0; half < 128; half += 64) {
      const __m512d b = _mm512_loadu_pd(from + half);
      __m512d sum = _mm512_add_pd(_mm512_mul_pd(c0, Spread<0>(b)), _mm512_mul_pd(c1, Spread<1>(b)));
      sum = _mm512_add_pd(sum, _mm512_mul_pd(c2, Spread<2>(b)));
      sum = _mm512_add_pd(sum, _mm512_mul_pd(c3, Spread<3>(b)));
      _mm512_storeu_pd(to + half, sum);
    }
}

}  // namespace

const BatchProducts avx512::kBatchProducts = {FloatProducts, DoubleProducts};

}  // namespace zeph::kernels
#endif
