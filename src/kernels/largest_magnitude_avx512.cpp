// SPDX-License-Identifier: MIT
#include "kernels/largest_magnitude.h"

#if ZEPH_X64
#include <immintrin.h>

#include <algorithm>
#include <cmath>

#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX512 ZEPH_TARGET("avx512f,avx512dq,avx512bw,avx512vl")
constexpr std::size_t kLanes = 8;

/// |x| > m ? |x| : m in each lane: of a NaN and a number, max takes the second operand. (All lanes
/// are named in a mask because g++ 12 takes the unmasked intrinsic's own source for uninitialised.)
ZEPH_AVX512 inline __attribute__((always_inline)) __m512d Larger(__m512d x, __m512d m) {
  return _mm512_maskz_max_pd(0xFF, _mm512_abs_pd(x), m);
}

}  // namespace

ZEPH_AVX512 double avx512::LargestMagnitude(const double* x, std::size_t n) {
  const double first = std::fabs(x[0]);
  if (first != first) return first;
  __m512d m0 = _mm512_set1_pd(first), m1 = m0, m2 = m0, m3 = m0;
  std::size_t i = 0;
  for (; i + 4 * kLanes <= n; i += 4 * kLanes) {
    m0 = Larger(_mm512_loadu_pd(x + i), m0);
    m1 = Larger(_mm512_loadu_pd(x + i + kLanes), m1);
    m2 = Larger(_mm512_loadu_pd(x + i + 2 * kLanes), m2);
    m3 = Larger(_mm512_loadu_pd(x + i + 3 * kLanes), m3);
  }
  for (; i < n; i += kLanes) {
    const unsigned lanes = static_cast<unsigned>(std::min(kLanes, n - i));
    const __mmask8 mask = static_cast<__mmask8>((1u << lanes) - 1u);
    m0 = Larger(_mm512_maskz_loadu_pd(mask, x + i), m0);  // the lanes beyond the end are 0.0
  }
  double largest[kLanes];
  _mm512_storeu_pd(largest, Larger(Larger(m0, m1), Larger(m2, m3)));
  return *std::max_element(largest, largest + kLanes);
}

}  // namespace zeph::kernels
#endif
