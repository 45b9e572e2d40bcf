// SPDX-License-Identifier: MIT
#include "kernels/largest_magnitude.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <algorithm>
#include <cmath>
#include <limits>

#include "kernels/intrinsics_x64.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX2 ZEPH_TARGET("avx2")
constexpr std::size_t kLanes = 4;

/// |x| > m ? |x| : m in each lane: of a NaN and a number, max takes the second operand.
ZEPH_AVX2 ZEPH_ALWAYS_INLINE __m256d Larger(__m256d x, __m256d m) {
  return _mm256_max_pd(_mm256_andnot_pd(_mm256_set1_pd(-0.0), x), m);
}

/// The maximum of a vector's lanes. Where it equals 0.0 all elements do, and may be denormals that
/// the maximum instruction has flushed: then the result is `stands`, the element that the
/// documented scan ends with.
double Most(const double* lanes, double stands) {
  const double most = *std::max_element(lanes, lanes + kLanes);
  return most == 0.0 ? stands : most;
}

ZEPH_AVX2 double Largest(const double* x, std::size_t n) {
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
  return Most(largest, first);
}

/// NaNs are searched two vectors at a time: one comparison finds a NaN in either.
ZEPH_AVX2 double LargestOrNaN(const double* x, std::size_t n) {
  __m256d m0 = _mm256_setzero_pd(), m1 = m0, m2 = m0, m3 = m0, found0 = m0, found1 = m0;
  std::size_t i = 0;
  for (; i + 4 * kLanes <= n; i += 4 * kLanes) {
    const __m256d x0 = _mm256_loadu_pd(x + i), x1 = _mm256_loadu_pd(x + i + kLanes);
    const __m256d x2 = _mm256_loadu_pd(x + i + 2 * kLanes);
    const __m256d x3 = _mm256_loadu_pd(x + i + 3 * kLanes);
    found0 = _mm256_or_pd(found0, _mm256_cmp_pd(x0, x1, _CMP_UNORD_Q));
    found1 = _mm256_or_pd(found1, _mm256_cmp_pd(x2, x3, _CMP_UNORD_Q));
    m0 = Larger(x0, m0);
    m1 = Larger(x1, m1);
    m2 = Larger(x2, m2);
    m3 = Larger(x3, m3);
  }
  for (; i < n; i += kLanes) {
    const __m256i left = _mm256_set1_epi64x(static_cast<long long>(n - i));
    const __m256i mask = _mm256_cmpgt_epi64(left, _mm256_set_epi64x(3, 2, 1, 0));
    const __m256d few = _mm256_maskload_pd(x + i, mask);  // the lanes beyond the end are 0.0
    found0 = _mm256_or_pd(found0, _mm256_cmp_pd(few, few, _CMP_UNORD_Q));
    m0 = Larger(few, m0);
  }
  if (_mm256_movemask_pd(_mm256_or_pd(found0, found1)))
    return std::numeric_limits<double>::quiet_NaN();
  double largest[kLanes];
  _mm256_storeu_pd(largest, _mm256_max_pd(_mm256_max_pd(m0, m1), _mm256_max_pd(m2, m3)));
  return Most(largest, std::fabs(x[n - 1]));
}

}  // namespace

const Magnitudes avx2::kMagnitudes = {Largest, LargestOrNaN};

}  // namespace zeph::kernels
#endif
