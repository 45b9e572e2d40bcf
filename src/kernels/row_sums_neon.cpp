// SPDX-License-Identifier: MIT
#include "kernels/row_sums.h"

#include "kernels/forms.h"

#if ZEPH_NEON
#include <arm_neon.h>

#include <algorithm>

#include "kernels/hypotenuse.h"
#include "platform/exactness.h"

#define ZEPH_WIDE_CALL
#define ZEPH_WIDE inline __attribute__((always_inline))

namespace zeph::kernels {
namespace {

using Vector = float64x2_t;
constexpr std::size_t kLanes = 2;
constexpr std::size_t kMostGroups = 5;

ZEPH_WIDE Vector Zero() {
  return vdupq_n_f64(0.0);
}
ZEPH_WIDE Vector Add(Vector x, Vector y) {
  return vaddq_f64(x, y);
}
ZEPH_WIDE Vector Multiply(Vector x, Vector y) {
  return vmulq_f64(x, y);
}
ZEPH_WIDE Vector Magnitudes(Vector x) {
  return vabsq_f64(x);
}
ZEPH_WIDE void Store(double* p, Vector x) {
  vst1q_f64(p, x);
}

struct Whole {
  ZEPH_WIDE Vector operator()(const double* p) const { return vld1q_f64(p); }
};
/// The single column that may remain.
struct FirstColumns {
  ZEPH_WIDE explicit FirstColumns(std::size_t) {}
  ZEPH_WIDE Vector operator()(const double* p) const {
    return vcombine_f64(vld1_f64(p), vdup_n_f64(0.0));
  }
};

/// columns[c][r] = rows[r][c].
ZEPH_WIDE void Transpose(Vector (&columns)[kLanes], const Vector (&rows)[kLanes]) {
  columns[0] = vzip1q_f64(rows[0], rows[1]);
  columns[1] = vzip2q_f64(rows[0], rows[1]);
}

/// `x` in the lanes that are set, 0.0 in the others.
ZEPH_WIDE Vector Where(uint64x2_t set, Vector x) {
  return vreinterpretq_f64_u64(vandq_u64(set, vreinterpretq_u64_f64(x)));
}

/// Hypotenuse in each lane. Where lanes take different branches, each computes the other branch
/// with operands that raise no exception.
ZEPH_WIDE Vector Hypotenuses(Vector r, Vector x) {
  const Vector limit = vdupq_n_f64(kScaledFrom), one = vdupq_n_f64(1.0);
  const uint64x2_t small = vandq_u64(vcltq_f64(r, limit), vcltq_f64(x, limit));
  const Vector r0 = Where(small, r), x0 = Where(small, x);
  const Vector direct = vsqrtq_f64(vaddq_f64(vmulq_f64(r0, r0), vmulq_f64(x0, x0)));
  if ((vgetq_lane_u64(small, 0) & vgetq_lane_u64(small, 1)) != 0) return direct;
  const uint64x2_t larger = vcgtq_f64(r, x);
  const Vector leg = vbslq_f64(small, one, vbslq_f64(larger, r, x));
  const Vector ratio = vdivq_f64(vbslq_f64(small, Zero(), vbslq_f64(larger, x, r)), leg);
  const Vector scaled = vmulq_f64(leg, vsqrtq_f64(vaddq_f64(one, vmulq_f64(ratio, ratio))));
  return vbslq_f64(small, direct, scaled);
}

#include "kernels/row_sums.inc"

}  // namespace

const RowSums neon::kRowSums = {Sum, MagnitudeSum, Length, Dot};

}  // namespace zeph::kernels
#endif
