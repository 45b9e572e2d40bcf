// SPDX-License-Identifier: MIT
//
// Eight elements a round, in four vectors, all read before any is written.
#include "kernels/elementwise.h"

#include "kernels/forms.h"

#if ZEPH_NEON
#include <arm_neon.h>

#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kLanes = 2;
constexpr std::size_t kVectors = 4;
constexpr std::size_t kRound = kVectors * kLanes;

/// out[i] = op(a[i], b[i]), where `op` takes vectors and doubles.
template <class Op>
inline void ForEach(double* out, const double* a, const double* b, std::size_t n, Op op) {
  std::size_t i = 0;
  for (; i + kRound <= n; i += kRound) {
    float64x2_t results[kVectors];
    for (std::size_t k = 0; k < kVectors; ++k)
      results[k] = op(vld1q_f64(a + i + k * kLanes), vld1q_f64(b + i + k * kLanes));
    for (std::size_t k = 0; k < kVectors; ++k) vst1q_f64(out + i + k * kLanes, results[k]);
  }
  for (; i + kLanes <= n; i += kLanes) vst1q_f64(out + i, op(vld1q_f64(a + i), vld1q_f64(b + i)));
  if (i < n) out[i] = op(a[i], b[i]);
}

void Add(double* out, const double* a, const double* b, std::size_t n) {
  ForEach(out, a, b, n, [](auto x, auto y) { return x + y; });
}
void Subtract(double* out, const double* a, const double* b, std::size_t n) {
  ForEach(out, a, b, n, [](auto x, auto y) { return x - y; });
}
void Multiply(double* out, const double* a, const double* b, std::size_t n) {
  ForEach(out, a, b, n, [](auto x, auto y) { return x * y; });
}
void Scale(double* out, double s, const double* a, std::size_t n) {
  ForEach(out, a, a, n, [s](auto x, auto) { return s * x; });
}
void SubtractFrom(double* out, double s, const double* a, std::size_t n) {
  ForEach(out, a, a, n, [s](auto x, auto) { return s - x; });
}
void Fill(double* out, double s, std::size_t n) {
  const float64x2_t x = vdupq_n_f64(s);
  std::size_t i = 0;
  for (; i + kRound <= n; i += kRound)
    for (std::size_t k = 0; k < kVectors; ++k) vst1q_f64(out + i + k * kLanes, x);
  for (; i < n; ++i) out[i] = s;
}

}  // namespace

const Elementwise neon::kElementwise = {Add, Subtract, Multiply, Scale, SubtractFrom, Fill};

}  // namespace zeph::kernels
#endif
