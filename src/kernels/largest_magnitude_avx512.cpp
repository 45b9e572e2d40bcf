// SPDX-License-Identifier: MIT
#include "kernels/largest_magnitude.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "kernels/avx512.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kLanes = 8;

/// The next elements, of which `left` exist; the lanes beyond the end are 0.0.
ZEPH_AVX512 ZEPH_ALWAYS_INLINE __m512d LoadPart(const double* x, std::size_t left) {
  const unsigned lanes = static_cast<unsigned>(std::min(kLanes, left));
  return _mm512_maskz_loadu_pd(static_cast<__mmask8>((1u << lanes) - 1u), x);
}

/// |x| > m ? |x| : m in each lane: of a NaN and a number, max takes the second operand. (A mask of
/// all lanes, because g++ 12 warns that the unmasked intrinsic's own operand is uninitialised.)
ZEPH_AVX512 ZEPH_ALWAYS_INLINE __m512d Larger(__m512d x, __m512d m) {
  return _mm512_maskz_max_pd(0xFF, _mm512_abs_pd(x), m);
}

/// The maximum of a vector's lanes. Where it equals 0.0 all elements do, and may be denormals that
/// the maximum instruction has flushed: then the result is `stands`, the element that the
/// documented scan ends with.
double Most(const double* lanes, double stands) {
  const double most = *std::max_element(lanes, lanes + kLanes);
  return most == 0.0 ? stands : most;
}

ZEPH_AVX512 double Largest(const double* x, std::size_t n) {
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
  for (; i < n; i += kLanes) m0 = Larger(LoadPart(x + i, n - i), m0);
  double largest[kLanes];
  _mm512_storeu_pd(largest, Larger(Larger(m0, m1), Larger(m2, m3)));
  return Most(largest, first);
}

/// Without their signs, doubles are ordered like their bits read as integers, with NaNs last.
ZEPH_AVX512 ZEPH_ALWAYS_INLINE __m512i LargerBits(__m512d x, __m512i m) {
  return _mm512_maskz_max_epu64(0xFF, _mm512_castpd_si512(_mm512_abs_pd(x)), m);
}

ZEPH_AVX512 double LargestOrNaN(const double* x, std::size_t n) {
  __m512i m0 = _mm512_setzero_si512(), m1 = m0, m2 = m0, m3 = m0;
  std::size_t i = 0;
  for (; i + 4 * kLanes <= n; i += 4 * kLanes) {
    m0 = LargerBits(_mm512_loadu_pd(x + i), m0);
    m1 = LargerBits(_mm512_loadu_pd(x + i + kLanes), m1);
    m2 = LargerBits(_mm512_loadu_pd(x + i + 2 * kLanes), m2);
    m3 = LargerBits(_mm512_loadu_pd(x + i + 3 * kLanes), m3);
  }
  for (; i < n; i += kLanes) m0 = LargerBits(LoadPart(x + i, n - i), m0);
  m0 = _mm512_maskz_max_epu64(0xFF, _mm512_maskz_max_epu64(0xFF, m0, m1),
                              _mm512_maskz_max_epu64(0xFF, m2, m3));
  std::uint64_t bits[kLanes];
  _mm512_storeu_si512(bits, m0);
  double largest;
  std::memcpy(&largest, std::max_element(bits, bits + kLanes), sizeof largest);
  return largest == 0.0 ? std::fabs(x[n - 1]) : largest;
}

}  // namespace

const Magnitudes avx512::kMagnitudes = {Largest, LargestOrNaN};

}  // namespace zeph::kernels
#endif
