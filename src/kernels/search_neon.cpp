// SPDX-License-Identifier: MIT
#include "kernels/search.h"

#include "kernels/bits.h"
#include "kernels/forms.h"

#if ZEPH_NEON

#include <arm_neon.h>

#include <cstdint>

#include "kernels/quietly_neon.h"

#define ZEPH_WIDE_CALL
#define ZEPH_WIDE __attribute__((always_inline)) inline

namespace zeph::kernels::neon {
namespace {

ZEPH_WIDE float64x2_t Load(const double* v) {
  return vld1q_f64(v);
}
ZEPH_WIDE int32x4_t Load(const int* v) {
  return vld1q_s32(v);
}
ZEPH_WIDE float64x2_t Broadcast(double x) {
  return vdupq_n_f64(x);
}
ZEPH_WIDE int32x4_t Broadcast(int x) {
  return vdupq_n_s32(x);
}
ZEPH_WIDE uint32x4_t Equal(float64x2_t a, float64x2_t b) {
  return vreinterpretq_u32_u64(vceqq_f64(a, b));
}
ZEPH_WIDE uint32x4_t Equal(int32x4_t a, int32x4_t b) {
  return vceqq_s32(a, b);
}
ZEPH_WIDE uint32x4_t Greater(float64x2_t a, float64x2_t b) {
  return vreinterpretq_u32_u64(vcgtq_f64(a, b));
}
ZEPH_WIDE bool Any(uint32x4_t x) {
  return vgetq_lane_u64(vreinterpretq_u64_u32(vpmaxq_u32(x, x)), 0) != 0;
}
/// A bit for each lane that is set.
ZEPH_WIDE unsigned Lanes(float64x2_t, uint32x4_t set) {
  return (vgetq_lane_u32(set, 0) & 1) | (vgetq_lane_u32(set, 2) & 2);
}
ZEPH_WIDE unsigned Lanes(int32x4_t, uint32x4_t set) {
  static constexpr std::uint32_t kBits[] = {1, 2, 4, 8};
  return vaddvq_u32(vandq_u32(set, vld1q_u32(kBits)));
}
template <class V>
ZEPH_WIDE unsigned EqualLanes(V a, V b) {
  return Lanes(a, Equal(a, b));
}
template <class T, class V>
ZEPH_WIDE bool AnyEqual(const T* v, V x) {
  constexpr std::size_t kLanes = sizeof(V) / sizeof(T);
  const uint32x4_t low = vorrq_u32(Equal(Load(v), x), Equal(Load(v + kLanes), x));
  const uint32x4_t high = vorrq_u32(Equal(Load(v + 2 * kLanes), x), Equal(Load(v + 3 * kLanes), x));
  return Any(vorrq_u32(low, high));
}
ZEPH_WIDE unsigned GreaterLanes(float64x2_t a, float64x2_t b) {
  return Lanes(a, Greater(a, b));
}
/// Whether one of four vectors at `a` is greater in some lane than its partner at `b`.
ZEPH_WIDE bool AnyGreater(const double* a, const double* b) {
  const uint32x4_t low = vorrq_u32(Greater(Load(a), Load(b)), Greater(Load(a + 2), Load(b + 2)));
  const uint32x4_t high =
      vorrq_u32(Greater(Load(a + 4), Load(b + 4)), Greater(Load(a + 6), Load(b + 6)));
  return Any(vorrq_u32(low, high));
}
/// Selects `a` only where it is less, which keeps the bits of elements in every mode.
ZEPH_WIDE float64x2_t Least(float64x2_t a, float64x2_t b) {
  return vbslq_f64(vcltq_f64(a, b), a, b);
}
ZEPH_WIDE double LeastLane(float64x2_t x) {
  const double a = vgetq_lane_f64(x, 0), b = vgetq_lane_f64(x, 1);
  return b < a ? b : a;
}

#include "kernels/search_scan.inc"

/// The vector comparison, unlike the documented steps, reads past the first descent: exceptions
/// that a NaN there raises are undone.
bool NoneDescendsQuietly(const double* v, std::size_t n) {
  return Quietly([=] { return NoneDescends(v, n); });
}

}  // namespace

const Searching kSearching = {FindFirst<double>, FindLast<int>, FirstLeast, NoneDescendsQuietly};

}  // namespace zeph::kernels::neon

#endif  // ZEPH_NEON
