// SPDX-License-Identifier: MIT
#include "kernels/search.h"

#include "kernels/bits.h"
#include "kernels/forms.h"

#if ZEPH_X64
#include "kernels/intrinsics_x64.h"

#define ZEPH_WIDE_CALL ZEPH_TARGET("avx2")
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels::avx2 {
namespace {

ZEPH_WIDE __m256d Load(const double* v) {
  return _mm256_loadu_pd(v);
}
ZEPH_WIDE __m256i Load(const int* v) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(v));
}
ZEPH_WIDE __m256d Broadcast(double x) {
  return _mm256_set1_pd(x);
}
ZEPH_WIDE __m256i Broadcast(int x) {
  return _mm256_set1_epi32(x);
}
ZEPH_WIDE __m256d Equal(__m256d a, __m256d b) {
  return _mm256_cmp_pd(a, b, _CMP_EQ_OQ);
}
ZEPH_WIDE __m256i Equal(__m256i a, __m256i b) {
  return _mm256_cmpeq_epi32(a, b);
}
ZEPH_WIDE __m256d Or(__m256d a, __m256d b) {
  return _mm256_or_pd(a, b);
}
ZEPH_WIDE __m256i Or(__m256i a, __m256i b) {
  return _mm256_or_si256(a, b);
}
ZEPH_WIDE unsigned Signs(__m256d x) {
  return static_cast<unsigned>(_mm256_movemask_pd(x));
}
ZEPH_WIDE unsigned Signs(__m256i x) {
  return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(x)));
}
template <class V>
ZEPH_WIDE unsigned EqualLanes(V a, V b) {
  return Signs(Equal(a, b));
}
template <class T, class V>
ZEPH_WIDE bool AnyEqual(const T* v, V x) {
  constexpr std::size_t kLanes = sizeof(V) / sizeof(T);
  const V low = Or(Equal(Load(v), x), Equal(Load(v + kLanes), x));
  const V high = Or(Equal(Load(v + 2 * kLanes), x), Equal(Load(v + 3 * kLanes), x));
  return Signs(Or(low, high)) != 0;
}
ZEPH_WIDE __m256d Greater(__m256d a, __m256d b) {
  return _mm256_cmp_pd(a, b, _CMP_GT_OQ);
}
ZEPH_WIDE unsigned GreaterLanes(__m256d a, __m256d b) {
  return Signs(Greater(a, b));
}
/// Whether one of four vectors at `a` is greater in some lane than its partner at `b`.
ZEPH_WIDE bool AnyGreater(const double* a, const double* b) {
  const __m256d low = Or(Greater(Load(a), Load(b)), Greater(Load(a + 4), Load(b + 4)));
  const __m256d high = Or(Greater(Load(a + 8), Load(b + 8)), Greater(Load(a + 12), Load(b + 12)));
  return Signs(Or(low, high)) != 0;
}
ZEPH_WIDE __m256d Least(__m256d a, __m256d b) {
  return _mm256_min_pd(a, b);
}
ZEPH_WIDE double LeastLane(__m256d x) {
  const __m128d half = _mm_min_pd(_mm256_castpd256_pd128(x), _mm256_extractf128_pd(x, 1));
  return _mm_cvtsd_f64(_mm_min_sd(half, _mm_unpackhi_pd(half, half)));
}

#include "kernels/search_scan.inc"

}  // namespace

const Searching kSearching = {FindFirst<double>, FindLast<int>, FirstLeast, NoneDescends};

}  // namespace zeph::kernels::avx2

#endif  // ZEPH_X64
