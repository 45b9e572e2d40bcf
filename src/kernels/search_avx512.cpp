// SPDX-License-Identifier: MIT
#include "kernels/search.h"

#include "kernels/bits.h"
#include "kernels/forms.h"

#if ZEPH_X64

#include "kernels/avx512.h"

#define ZEPH_WIDE_CALL ZEPH_AVX512
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels::avx512 {
namespace {

ZEPH_WIDE __m512d Load(const double* v) {
  return _mm512_loadu_pd(v);
}
ZEPH_WIDE __m512i Load(const int* v) {
  return _mm512_loadu_si512(v);
}
ZEPH_WIDE __m512d Broadcast(double x) {
  return _mm512_set1_pd(x);
}
ZEPH_WIDE __m512i Broadcast(int x) {
  return _mm512_set1_epi32(x);
}
ZEPH_WIDE unsigned EqualLanes(__m512d a, __m512d b) {
  return _mm512_cmp_pd_mask(a, b, _CMP_EQ_OQ);
}
ZEPH_WIDE unsigned EqualLanes(__m512i a, __m512i b) {
  return _mm512_cmpeq_epi32_mask(a, b);
}
/// Each comparison passes on the lanes in which nothing was found yet.
ZEPH_WIDE bool AnyEqual(const double* v, __m512d x) {
  __mmask8 differ = _mm512_cmp_pd_mask(Load(v), x, _CMP_NEQ_UQ);
  differ = _mm512_mask_cmp_pd_mask(differ, Load(v + 8), x, _CMP_NEQ_UQ);
  differ = _mm512_mask_cmp_pd_mask(differ, Load(v + 16), x, _CMP_NEQ_UQ);
  differ = _mm512_mask_cmp_pd_mask(differ, Load(v + 24), x, _CMP_NEQ_UQ);
  return differ != 0xFF;
}
ZEPH_WIDE bool AnyEqual(const int* v, __m512i x) {
  __mmask16 differ = _mm512_cmpneq_epi32_mask(Load(v), x);
  differ = _mm512_mask_cmpneq_epi32_mask(differ, Load(v + 16), x);
  differ = _mm512_mask_cmpneq_epi32_mask(differ, Load(v + 32), x);
  differ = _mm512_mask_cmpneq_epi32_mask(differ, Load(v + 48), x);
  return differ != 0xFFFF;
}
ZEPH_WIDE unsigned GreaterLanes(__m512d a, __m512d b) {
  return _mm512_cmp_pd_mask(a, b, _CMP_GT_OQ);
}
/// Whether one of four vectors at `a` is greater in some lane than its partner at `b`.
ZEPH_WIDE bool AnyGreater(const double* a, const double* b) {
  __mmask8 none = _mm512_cmp_pd_mask(Load(a), Load(b), _CMP_NGT_UQ);
  none = _mm512_mask_cmp_pd_mask(none, Load(a + 8), Load(b + 8), _CMP_NGT_UQ);
  none = _mm512_mask_cmp_pd_mask(none, Load(a + 16), Load(b + 16), _CMP_NGT_UQ);
  none = _mm512_mask_cmp_pd_mask(none, Load(a + 24), Load(b + 24), _CMP_NGT_UQ);
  return none != 0xFF;
}
ZEPH_WIDE __m512d Least(__m512d a, __m512d b) {
  return _mm512_min_pd(a, b);
}
ZEPH_WIDE double LeastLane(__m512d x) {
  return _mm512_reduce_min_pd(x);
}

#include "kernels/search_scan.inc"

}  // namespace

const Searching kSearching = {FindFirst<double>, FindLast<int>, FirstLeast, NoneDescends};

}  // namespace zeph::kernels::avx512

#endif  // ZEPH_X64
