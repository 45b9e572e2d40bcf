// SPDX-License-Identifier: MIT
#include "kernels/largest_magnitude.h"

#if ZEPH_X64
#include <immintrin.h>

#include <algorithm>
#include <cmath>

#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX2 ZEPH_TARGET("avx2")
constexpr std::size_t kLanes = 4;

/// |x| > m ? |x| : m in each lane: of a NaN and a number, max takes the second operand.
ZEPH_AVX2 inline __attribute__((always_inline)) __m256d Larger(__m256d x, __m256d m) {
  return _mm256_max_pd(_mm256_andnot_pd(_mm256_set1_pd(-0.0), x), m);
}

}  // namespace

ZEPH_AVX2 double avx2::LargestMagnitude(const double* x, std::size_t n) {
  const double first = std::fabs(x[0]);
  if (first != first) return first;
  __m256d m0 = _mm256_set1_pd(first), m1 = m0, m2 = m0, m3 = m0;
  std::size_t i = 0;
  for (; i + 4 * kLanes <= n; i += 4 * kLanes) {
    m0 = Larger(_mm256_loadu_pd(x + i), m0);
    m1 = Larger(_mm256_loadu_pd(x + i + kLanes), m1);
    m2 = Larger(_mm256_loadu_pd(x + i + 2 * kLanes), m2);
    m3 = Larger(_mm256_loadu_pd(x + i + 3 * kLanes), m3);
  }
  double largest[kLanes];
  _mm256_storeu_pd(largest, _mm256_max_pd(_mm256_max_pd(m0, m1), _mm256_max_pd(m2, m3)));
  for (; i < n; ++i)
    if (std::fabs(x[i]) > largest[0]) largest[0] = std::fabs(x[i]);
  return *std::max_element(largest, largest + kLanes);
}

}  // namespace zeph::kernels
#endif
