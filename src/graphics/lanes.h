// SPDX-License-Identifier: MIT
//
// Four floats side by side, in the instruction set that every processor of the target has: SSE2,
// NEON, or plain C++. Each lane computes exactly what a scalar float would; nothing adds across
// lanes.
#ifndef ZEPH_SRC_GRAPHICS_LANES_H
#define ZEPH_SRC_GRAPHICS_LANES_H

#include <cstdint>
#include <cstring>

#include "platform/exactness.h"

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define ZEPH_LANES_SSE2 1
#elif defined(__aarch64__) && defined(__ARM_NEON)
#include <arm_neon.h>
#define ZEPH_LANES_NEON 1
#endif

namespace zeph::graphics {

/// The form without intrinsics, which defines each operation.
struct PlainLanes {
  float lane[4];

  static PlainLanes Load(const float* p) { return {{p[0], p[1], p[2], p[3]}}; }
  void Store(float* p) const { std::memcpy(p, lane, sizeof lane); }
  static PlainLanes All(float x) { return {{x, x, x, x}}; }
  static PlainLanes Of(float a, float b, float c, float d) { return {{a, b, c, d}}; }

  friend PlainLanes operator+(PlainLanes a, PlainLanes b) {
    return {{a.lane[0] + b.lane[0], a.lane[1] + b.lane[1], a.lane[2] + b.lane[2],
             a.lane[3] + b.lane[3]}};
  }
  friend PlainLanes operator-(PlainLanes a, PlainLanes b) {
    return {{a.lane[0] - b.lane[0], a.lane[1] - b.lane[1], a.lane[2] - b.lane[2],
             a.lane[3] - b.lane[3]}};
  }
  friend PlainLanes operator*(PlainLanes a, PlainLanes b) {
    return {{a.lane[0] * b.lane[0], a.lane[1] * b.lane[1], a.lane[2] * b.lane[2],
             a.lane[3] * b.lane[3]}};
  }
  /// Signs flipped.
  friend PlainLanes operator-(PlainLanes a) {
    return {{-a.lane[0], -a.lane[1], -a.lane[2], -a.lane[3]}};
  }

  /// Lanes i, j, k, l of this.
  template <int i, int j, int k, int l>
  PlainLanes Pick() const {
    return {{lane[i], lane[j], lane[k], lane[l]}};
  }
  /// Lanes i and j of `a`, then k and l of `b`.
  template <int i, int j, int k, int l>
  static PlainLanes Join(PlainLanes a, PlainLanes b) {
    return {{a.lane[i], a.lane[j], b.lane[k], b.lane[l]}};
  }
  /// Lanes 0 to 2 of `a` and lane 3 of `b`.
  static PlainLanes WithLast(PlainLanes a, PlainLanes b) {
    return {{a.lane[0], a.lane[1], a.lane[2], b.lane[3]}};
  }
  /// Lanes 0 and 2 of `even`, lanes 1 and 3 of `odd`.
  static PlainLanes Alternate(PlainLanes even, PlainLanes odd) {
    return {{even.lane[0], odd.lane[1], even.lane[2], odd.lane[3]}};
  }
  float First() const { return lane[0]; }
};

#if ZEPH_LANES_SSE2
struct Sse2Lanes {
  __m128 v;

  // One load, although an object's floats sometimes straddle a cache line: two halves were slower.
  static Sse2Lanes Load(const float* p) { return {_mm_loadu_ps(p)}; }
  void Store(float* p) const { _mm_storeu_ps(p, v); }
  static Sse2Lanes All(float x) { return {_mm_set1_ps(x)}; }
  static Sse2Lanes Of(float a, float b, float c, float d) { return {_mm_setr_ps(a, b, c, d)}; }

  friend Sse2Lanes operator+(Sse2Lanes a, Sse2Lanes b) { return {_mm_add_ps(a.v, b.v)}; }
  friend Sse2Lanes operator-(Sse2Lanes a, Sse2Lanes b) { return {_mm_sub_ps(a.v, b.v)}; }
  friend Sse2Lanes operator*(Sse2Lanes a, Sse2Lanes b) { return {_mm_mul_ps(a.v, b.v)}; }
  friend Sse2Lanes operator-(Sse2Lanes a) { return {_mm_xor_ps(a.v, _mm_set1_ps(-0.0f))}; }

  template <int i, int j, int k, int l>
  Sse2Lanes Pick() const {
    // One instruction where the float shuffle would need a copy first.
    return {_mm_castsi128_ps(_mm_shuffle_epi32(_mm_castps_si128(v), _MM_SHUFFLE(l, k, j, i)))};
  }
  template <int i, int j, int k, int l>
  static Sse2Lanes Join(Sse2Lanes a, Sse2Lanes b) {
    return {_mm_shuffle_ps(a.v, b.v, _MM_SHUFFLE(l, k, j, i))};
  }
  static Sse2Lanes WithLast(Sse2Lanes a, Sse2Lanes b) {
    return Choose(_mm_setr_epi32(-1, -1, -1, 0), a, _mm_setr_epi32(0, 0, 0, -1), b);
  }
  static Sse2Lanes Alternate(Sse2Lanes even, Sse2Lanes odd) {
    return Choose(_mm_setr_epi32(-1, 0, -1, 0), even, _mm_setr_epi32(0, -1, 0, -1), odd);
  }
  float First() const { return _mm_cvtss_f32(v); }

 private:
  // Lanes of `a` where the first mask is set, of `b` where the second is. Both masks are written
  // out so that the compiler folds what a constant operand makes known.
  static Sse2Lanes Choose(__m128i fromA, Sse2Lanes a, __m128i fromB, Sse2Lanes b) {
    return {_mm_castsi128_ps(_mm_or_si128(_mm_and_si128(fromA, _mm_castps_si128(a.v)),
                                          _mm_and_si128(fromB, _mm_castps_si128(b.v))))};
  }
};
using Lanes = Sse2Lanes;

#elif ZEPH_LANES_NEON
struct NeonLanes {
  float32x4_t v;

  static NeonLanes Load(const float* p) { return {vld1q_f32(p)}; }
  void Store(float* p) const { vst1q_f32(p, v); }
  static NeonLanes All(float x) { return {vdupq_n_f32(x)}; }
  static NeonLanes Of(float a, float b, float c, float d) { return {float32x4_t{a, b, c, d}}; }

  friend NeonLanes operator+(NeonLanes a, NeonLanes b) { return {vaddq_f32(a.v, b.v)}; }
  friend NeonLanes operator-(NeonLanes a, NeonLanes b) { return {vsubq_f32(a.v, b.v)}; }
  friend NeonLanes operator*(NeonLanes a, NeonLanes b) { return {vmulq_f32(a.v, b.v)}; }
  friend NeonLanes operator-(NeonLanes a) { return {vnegq_f32(a.v)}; }

  template <int i, int j, int k, int l>
  NeonLanes Pick() const {
    return Join<i, j, k, l>(*this, *this);
  }
  template <int i, int j, int k, int l>
  static NeonLanes Join(NeonLanes a, NeonLanes b) {
    return {float32x4_t{a.v[i], a.v[j], b.v[k], b.v[l]}};
  }
  static NeonLanes WithLast(NeonLanes a, NeonLanes b) { return {vcopyq_laneq_f32(a.v, 3, b.v, 3)}; }
  static NeonLanes Alternate(NeonLanes even, NeonLanes odd) {
    return {vtrn2q_f32(vrev64q_f32(even.v), odd.v)};
  }
  float First() const { return vgetq_lane_f32(v, 0); }
};
using Lanes = NeonLanes;

#else
using Lanes = PlainLanes;
#endif

/// Lane `i` of `v` in every lane.
template <int i, class L>
inline L Spread(L v) {
  return v.template Pick<i, i, i, i>();
}

/// Four columns.
template <class L>
struct Columns {
  L c0, c1, c2, c3;

  static Columns Load(const float* p) {
    return {L::Load(p), L::Load(p + 4), L::Load(p + 8), L::Load(p + 12)};
  }
  static Columns Identity() {
    return {L::Of(1, 0, 0, 0), L::Of(0, 1, 0, 0), L::Of(0, 0, 1, 0), L::Of(0, 0, 0, 1)};
  }
  void Store(float* p) const {
    c0.Store(p);
    c1.Store(p + 4);
    c2.Store(p + 8);
    c3.Store(p + 12);
  }
  Columns Transposed() const {
    const L top01 = L::template Join<0, 1, 0, 1>(c0, c1);
    const L top23 = L::template Join<0, 1, 0, 1>(c2, c3);
    const L bottom01 = L::template Join<2, 3, 2, 3>(c0, c1);
    const L bottom23 = L::template Join<2, 3, 2, 3>(c2, c3);
    return {L::template Join<0, 2, 0, 2>(top01, top23), L::template Join<1, 3, 1, 3>(top01, top23),
            L::template Join<0, 2, 0, 2>(bottom01, bottom23),
            L::template Join<1, 3, 1, 3>(bottom01, bottom23)};
  }
  /// With lane 0 copied to lane 3: its result is discarded and must raise no exception of its own.
  Columns WithoutBottom() const {
    return {c0.template Pick<0, 1, 2, 0>(), c1.template Pick<0, 1, 2, 0>(),
            c2.template Pick<0, 1, 2, 0>(), c3.template Pick<0, 1, 2, 0>()};
  }
  /// Column for column, lanes 0 to 2 of this and lane 3 of `bottom`.
  Columns WithBottom(const Columns& bottom) const {
    return {L::WithLast(c0, bottom.c0), L::WithLast(c1, bottom.c1), L::WithLast(c2, bottom.c2),
            L::WithLast(c3, bottom.c3)};
  }
};

/// Whether the bottom row of column-major `e` is exactly 0, 0, 0, 1.
///
/// Decided on the bits: a float equals 0.0 when its bits without the sign are zero, and equals 1.0
/// when they are those of 1.0. Denormals are compared as floats: some hosts treat them as zeros.
inline bool IsAffine(const float* e) {
  std::uint32_t e3, e7, e11, e15;
  std::memcpy(&e3, e + 3, sizeof e3);
  std::memcpy(&e7, e + 7, sizeof e7);
  std::memcpy(&e11, e + 11, sizeof e11);
  std::memcpy(&e15, e + 15, sizeof e15);
  constexpr std::uint32_t kBitsOfOne = 0x3F800000, kLeastNormal = 0x00800000;
  const std::uint32_t rest = ((e3 | e7 | e11) << 1) | (e15 ^ kBitsOfOne);
  if (rest - 1 < 2 * kLeastNormal - 1)
    return e[3] == 0.0f && e[7] == 0.0f && e[11] == 0.0f && e[15] == 1.0f;
  return rest == 0;
}

}  // namespace zeph::graphics

#endif  // ZEPH_SRC_GRAPHICS_LANES_H
