// SPDX-License-Identifier: MIT
#include "kernels/row_sums.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <algorithm>

#include "kernels/hypotenuse.h"
#include "kernels/intrinsics_x64.h"
#include "platform/exactness.h"

#define ZEPH_WIDE_CALL ZEPH_TARGET("avx2")
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels {
namespace {

using Vector = __m256d;
constexpr std::size_t kLanes = 4;
constexpr std::size_t kMostGroups = 3;

ZEPH_WIDE Vector Zero() {
  return _mm256_setzero_pd();
}
ZEPH_WIDE Vector Add(Vector x, Vector y) {
  return _mm256_add_pd(x, y);
}
ZEPH_WIDE Vector Multiply(Vector x, Vector y) {
  return _mm256_mul_pd(x, y);
}
ZEPH_WIDE Vector Magnitudes(Vector x) {
  return _mm256_andnot_pd(_mm256_set1_pd(-0.0), x);
}
ZEPH_WIDE void Store(double* p, Vector x) {
  _mm256_storeu_pd(p, x);
}

struct Whole {
  ZEPH_WIDE Vector operator()(const double* p) const { return _mm256_loadu_pd(p); }
};
class FirstColumns {
 public:
  ZEPH_WIDE explicit FirstColumns(std::size_t count)
      : mask_(_mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(count)),
                                 _mm256_set_epi64x(3, 2, 1, 0))) {}
  ZEPH_WIDE Vector operator()(const double* p) const { return _mm256_maskload_pd(p, mask_); }

 private:
  __m256i mask_;
};

/// columns[c][r] = rows[r][c].
ZEPH_WIDE void Transpose(Vector (&columns)[kLanes], const Vector (&rows)[kLanes]) {
  const Vector even01 = _mm256_unpacklo_pd(rows[0], rows[1]);
  const Vector even23 = _mm256_unpacklo_pd(rows[2], rows[3]);
  const Vector odd01 = _mm256_unpackhi_pd(rows[0], rows[1]);
  const Vector odd23 = _mm256_unpackhi_pd(rows[2], rows[3]);
  columns[0] = _mm256_permute2f128_pd(even01, even23, 0x20);
  columns[1] = _mm256_permute2f128_pd(odd01, odd23, 0x20);
  columns[2] = _mm256_permute2f128_pd(even01, even23, 0x31);
  columns[3] = _mm256_permute2f128_pd(odd01, odd23, 0x31);
}

ZEPH_WIDE Vector Direct(Vector r, Vector x) {
  return _mm256_sqrt_pd(_mm256_add_pd(_mm256_mul_pd(r, r), _mm256_mul_pd(x, x)));
}

/// Hypotenuse in each lane.
ZEPH_WIDE Vector Hypotenuses(Vector r, Vector x) {
  const Vector limit = _mm256_set1_pd(kScaledFrom), one = _mm256_set1_pd(1.0);
  const Vector small =
      _mm256_and_pd(_mm256_cmp_pd(r, limit, _CMP_LT_OQ), _mm256_cmp_pd(x, limit, _CMP_LT_OQ));
  if (_mm256_movemask_pd(small) == 0xF) return Direct(r, x);
  // Computes both branches for all lanes, each with operands 0.0 (and divisor 1.0) in the lanes
  // that take the other branch: those must raise no exception.
  const Vector direct = Direct(_mm256_and_pd(small, r), _mm256_and_pd(small, x));
  const Vector larger = _mm256_cmp_pd(r, x, _CMP_GT_OQ);
  const Vector leg = _mm256_blendv_pd(_mm256_blendv_pd(x, r, larger), one, small);
  const Vector other = _mm256_andnot_pd(small, _mm256_blendv_pd(r, x, larger));
  const Vector ratio = _mm256_div_pd(other, leg);
  const Vector scaled =
      _mm256_mul_pd(leg, _mm256_sqrt_pd(_mm256_add_pd(one, _mm256_mul_pd(ratio, ratio))));
  return _mm256_blendv_pd(scaled, direct, small);
}

#include "kernels/row_sums.inc"

}  // namespace

const RowSums avx2::kRowSums = {Sum, MagnitudeSum, Length, Dot};

}  // namespace zeph::kernels
#endif
