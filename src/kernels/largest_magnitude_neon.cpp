// SPDX-License-Identifier: MIT
//
// Maxima are taken by compare and select, not by the maximum instructions, so elements keep their
// bits in every mode.
#include "kernels/largest_magnitude.h"

#include "kernels/forms.h"

#if ZEPH_NEON
#include <arm_neon.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kLanes = 2;

/// |x| > |m| ? x : m in each lane.
inline __attribute__((always_inline)) float64x2_t Larger(float64x2_t x, float64x2_t m) {
  return vbslq_f64(vcagtq_f64(x, m), x, m);
}

/// The largest of |start| and the elements; `start` is no NaN.
double LargestFrom(double start, const double* x, std::size_t n) {
  float64x2_t m0 = vdupq_n_f64(start), m1 = m0, m2 = m0, m3 = m0;
  std::size_t i = 0;
  for (; i + 4 * kLanes <= n; i += 4 * kLanes) {
    m0 = Larger(vld1q_f64(x + i), m0);
    m1 = Larger(vld1q_f64(x + i + kLanes), m1);
    m2 = Larger(vld1q_f64(x + i + 2 * kLanes), m2);
    m3 = Larger(vld1q_f64(x + i + 3 * kLanes), m3);
  }
  for (; i + kLanes <= n; i += kLanes) m0 = Larger(vld1q_f64(x + i), m0);
  if (i < n) m1 = Larger(vdupq_n_f64(x[i]), m1);
  const float64x2_t m = Larger(Larger(m3, m2), Larger(m1, m0));
  const double a = std::fabs(vgetq_lane_f64(m, 0)), b = std::fabs(vgetq_lane_f64(m, 1));
  return b > a ? b : a;
}

double Largest(const double* x, std::size_t n) {
  return x[0] != x[0] ? std::fabs(x[0]) : LargestFrom(x[0], x, n);
}

/// Raises no exception except for a signalling NaN.
bool HasNaN(const double* x, std::size_t n) {
  uint64x2_t n0 = vdupq_n_u64(~std::uint64_t{0}), n1 = n0;
  std::size_t i = 0;
  for (; i + 2 * kLanes <= n; i += 2 * kLanes) {
    const float64x2_t a = vld1q_f64(x + i), b = vld1q_f64(x + i + kLanes);
    n0 = vandq_u64(n0, vceqq_f64(a, a));
    n1 = vandq_u64(n1, vceqq_f64(b, b));
  }
  bool found = false;
  for (; i < n; ++i) found |= x[i] != x[i];
  n0 = vandq_u64(n0, n1);
  return found || (vgetq_lane_u64(n0, 0) & vgetq_lane_u64(n0, 1)) == 0;
}

/// Block by block, so that the second pass finds the elements in the first-level cache.
double LargestOrNaN(const double* x, std::size_t n) {
  constexpr std::size_t kBlock = 512;
  double largest = x[0];
  for (std::size_t i = 0; i < n; i += kBlock) {
    const std::size_t count = std::min(kBlock, n - i);
    if (HasNaN(x + i, count))
      return *std::find_if(x + i, x + i + count, [](double y) { return y != y; });
    largest = LargestFrom(largest, x + i, count);
  }
  return std::fabs(largest == 0.0 ? x[n - 1] : largest);
}

}  // namespace

const Magnitudes neon::kMagnitudes = {Largest, LargestOrNaN};

}  // namespace zeph::kernels
#endif
