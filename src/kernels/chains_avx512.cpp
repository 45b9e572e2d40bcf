// SPDX-License-Identifier: MIT
#include <algorithm>
#include <limits>

#include "kernels/chains.h"
#include "kernels/forms.h"

#if ZEPH_X64

#include "kernels/avx512.h"

#define ZEPH_WIDE_CALL ZEPH_AVX512
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels::avx512 {
namespace {

using Vector = __m512d;
constexpr std::size_t kLanes = 8;

ZEPH_WIDE Vector Infinite() {
  return _mm512_set1_pd(std::numeric_limits<double>::infinity());
}
ZEPH_WIDE Vector Load(const double* v) {
  return _mm512_loadu_pd(v);
}
ZEPH_WIDE void Store(double* v, Vector x) {
  _mm512_storeu_pd(v, x);
}
/// A mask of the first `count` lanes, of all from 8 on.
ZEPH_WIDE __mmask8 FirstLanes(std::size_t count) {
  return static_cast<__mmask8>(count >= kLanes ? 0xFF : (1u << count) - 1);
}
ZEPH_WIDE Vector LoadFirst(const double* v, std::size_t count) {
  return _mm512_mask_loadu_pd(Infinite(), FirstLanes(count), v);
}
ZEPH_WIDE void StoreFirst(double* v, Vector x, std::size_t count) {
  _mm512_mask_storeu_pd(v, FirstLanes(count), x);
}
/// Whether any lane of `a` is greater than that of `b`.
ZEPH_WIDE bool AnyAbove(Vector a, Vector b) {
  return _mm512_cmp_pd_mask(a, b, _CMP_GT_OQ) != 0;
}
/// Exchanges the lanes in which `a` is greater.
ZEPH_WIDE void Order(Vector& a, Vector& b) {
  const __mmask8 above = _mm512_cmp_pd_mask(a, b, _CMP_GT_OQ);
  const Vector lower = _mm512_mask_blend_pd(above, a, b);
  b = _mm512_mask_blend_pd(above, b, a);
  a = lower;
}

#include "kernels/chains.inc"

}  // namespace

const Chains kChains = {SortChains, kLanes};

}  // namespace zeph::kernels::avx512

#endif  // ZEPH_X64
