// SPDX-License-Identifier: MIT
#include <algorithm>
#include <limits>

#include "kernels/chains.h"
#include "kernels/forms.h"

#if ZEPH_X64

#include "kernels/intrinsics_x64.h"

#define ZEPH_WIDE_CALL ZEPH_TARGET("avx2")
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels::avx2 {
namespace {

using Vector = __m256d;
constexpr std::size_t kLanes = 4;

ZEPH_WIDE Vector Infinite() {
  return _mm256_set1_pd(std::numeric_limits<double>::infinity());
}
ZEPH_WIDE Vector Load(const double* v) {
  return _mm256_loadu_pd(v);
}
ZEPH_WIDE void Store(double* v, Vector x) {
  _mm256_storeu_pd(v, x);
}
/// All bits of the first `count` lanes, of all lanes from 4 on.
ZEPH_WIDE __m256i FirstLanes(std::size_t count) {
  return _mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(count)),
                            _mm256_setr_epi64x(0, 1, 2, 3));
}
ZEPH_WIDE Vector LoadFirst(const double* v, std::size_t count) {
  const __m256i first = FirstLanes(count);
  return _mm256_blendv_pd(Infinite(), _mm256_maskload_pd(v, first), _mm256_castsi256_pd(first));
}
/// Single stores: storing under a mask is microcode on some processors.
ZEPH_WIDE void StoreFirst(double* v, Vector x, std::size_t count) {
  if (count >= kLanes) return Store(v, x);
  double lanes[kLanes];
  Store(lanes, x);
  std::copy_n(lanes, count, v);
}
/// Whether any lane of `a` is greater than that of `b`.
ZEPH_WIDE bool AnyAbove(Vector a, Vector b) {
  return _mm256_movemask_pd(_mm256_cmp_pd(a, b, _CMP_GT_OQ)) != 0;
}
/// Exchanges the lanes in which `a` is greater. Selecting by a mask takes three instructions' time on some
/// processors.
ZEPH_WIDE void Order(Vector& a, Vector& b) {
  const Vector above = _mm256_cmp_pd(a, b, _CMP_GT_OQ);
  const Vector differ = _mm256_and_pd(above, _mm256_xor_pd(a, b));
  a = _mm256_xor_pd(a, differ);
  b = _mm256_xor_pd(b, differ);
}

#include "kernels/chains.inc"

}  // namespace

const Chains kChains = {SortChains, kLanes};

}  // namespace zeph::kernels::avx2

#endif  // ZEPH_X64
