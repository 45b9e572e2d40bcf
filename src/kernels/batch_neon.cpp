// SPDX-License-Identifier: MIT
//
// Four floats or two doubles of a component side by side. Objects are loaded whole and transposed
// in registers; the bytes between their components never take part in arithmetic.
#include "kernels/batch.h"
#include "kernels/forms.h"

#if ZEPH_NEON
#include <arm_neon.h>

#include <cmath>
#include <cstring>
#include <type_traits>

#include "platform/choose.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_FORM
#define ZEPH_LANES static inline __attribute__((always_inline))

template <class T>
struct Wide;

template <>
struct Wide<float> {
  using Element = float;
  using V = float32x4_t;
  static constexpr std::size_t kWidth = 4;
  ZEPH_LANES V All(float x) { return vdupq_n_f32(x); }

  ZEPH_LANES V Low(V a, V b) {
    return vreinterpretq_f32_f64(vzip1q_f64(vreinterpretq_f64_f32(a), vreinterpretq_f64_f32(b)));
  }
  ZEPH_LANES V High(V a, V b) {
    return vreinterpretq_f32_f64(vzip2q_f64(vreinterpretq_f64_f32(a), vreinterpretq_f64_f32(b)));
  }
  ZEPH_LANES void Load(const float* p, std::size_t stride, V& x, V& y, V& z, V& w) {
    const V o0 = vld1q_f32(p), o1 = vld1q_f32(At(p, stride, 1)), o2 = vld1q_f32(At(p, stride, 2)),
            o3 = vld1q_f32(At(p, stride, 3));
    const V xy01 = vzip1q_f32(o0, o1), xy23 = vzip1q_f32(o2, o3);
    const V zw01 = vzip2q_f32(o0, o1), zw23 = vzip2q_f32(o2, o3);
    x = Low(xy01, xy23), y = High(xy01, xy23), z = Low(zw01, zw23), w = High(zw01, zw23);
  }
  ZEPH_LANES void Load(const float* p, std::size_t stride, V& x, V& y, V& z) {
    V between;
    Load(p, stride, x, y, z, between);
  }
  ZEPH_LANES void Store(float* p, std::size_t stride, V x, V y, V z) {
    const V xy01 = vzip1q_f32(x, y), xy23 = vzip2q_f32(x, y);
    vst1_f32(p, vget_low_f32(xy01));
    vst1_f32(At(p, stride, 1), vget_high_f32(xy01));
    vst1_f32(At(p, stride, 2), vget_low_f32(xy23));
    vst1_f32(At(p, stride, 3), vget_high_f32(xy23));
    vst1q_lane_f32(p + 2, z, 0);
    vst1q_lane_f32(At(p, stride, 1) + 2, z, 1);
    vst1q_lane_f32(At(p, stride, 2) + 2, z, 2);
    vst1q_lane_f32(At(p, stride, 3) + 2, z, 3);
  }
  ZEPH_LANES void Store(float* p, std::size_t stride, V x, V y, V z, V w) {
    const V xy01 = vzip1q_f32(x, y), xy23 = vzip2q_f32(x, y);
    const V zw01 = vzip1q_f32(z, w), zw23 = vzip2q_f32(z, w);
    vst1q_f32(p, Low(xy01, zw01));
    vst1q_f32(At(p, stride, 1), High(xy01, zw01));
    vst1q_f32(At(p, stride, 2), Low(xy23, zw23));
    vst1q_f32(At(p, stride, 3), High(xy23, zw23));
  }
  /// Component by component.
  ZEPH_LANES void Products(const float* a, const float* b, std::size_t stride, V& x, V& y, V& z) {
    V bx, by, bz;
    Load(a, stride, x, y, z);
    Load(b, stride, bx, by, bz);
    x = x * bx, y = y * by, z = z * bz;
  }
  ZEPH_LANES void StoreRow(float* p, V x) { vst1q_f32(p, x); }

  ZEPH_LANES V Sqrt(V x) { return vsqrtq_f32(x); }
  ZEPH_LANES uint32x4_t IsOneOrZero(V x) { return vorrq_u32(vceqq_f32(x, All(1)), vceqzq_f32(x)); }
  ZEPH_LANES V Select(uint32x4_t yes, V a, V b) { return vbslq_f32(yes, a, b); }
  // Not by minimum and maximum instructions, which do not keep the bits of denormals in every mode.
  ZEPH_LANES V Least(V x, V m) { return Select(vcltq_f32(x, m), x, m); }
  ZEPH_LANES V Greatest(V x, V m) { return Select(vcgtq_f32(x, m), x, m); }
};

template <>
struct Wide<double> {
  using Element = double;
  using V = float64x2_t;
  static constexpr std::size_t kWidth = 2;
  ZEPH_LANES V All(double x) { return vdupq_n_f64(x); }

  ZEPH_LANES const double* Second(const double* p, std::size_t stride) {
    return reinterpret_cast<const double*>(reinterpret_cast<const char*>(p) + stride);
  }
  ZEPH_LANES void Load(const double* p, std::size_t stride, V& x, V& y, V& z) {
    const double* q = Second(p, stride);
    const V xy0 = vld1q_f64(p), xy1 = vld1q_f64(q);
    x = vzip1q_f64(xy0, xy1), y = vzip2q_f64(xy0, xy1);
    z = vcombine_f64(vld1_f64(p + 2), vld1_f64(q + 2));
  }
  ZEPH_LANES void Store(double* p, std::size_t stride, V x, V y, V z) {
    double* q = reinterpret_cast<double*>(reinterpret_cast<char*>(p) + stride);
    vst1q_f64(p, vzip1q_f64(x, y));
    vst1q_f64(q, vzip2q_f64(x, y));
    vst1q_lane_f64(p + 2, z, 0);
    vst1q_lane_f64(q + 2, z, 1);
  }
  /// Component by component.
  ZEPH_LANES void Products(const double* a, const double* b, std::size_t stride, V& x, V& y, V& z) {
    const double *a1 = Second(a, stride), *b1 = Second(b, stride);
    const V xy0 = vld1q_f64(a) * vld1q_f64(b), xy1 = vld1q_f64(a1) * vld1q_f64(b1);
    x = vzip1q_f64(xy0, xy1), y = vzip2q_f64(xy0, xy1);
    z = vcombine_f64(vld1_f64(a + 2), vld1_f64(a1 + 2)) *
        vcombine_f64(vld1_f64(b + 2), vld1_f64(b1 + 2));
  }
  ZEPH_LANES void StoreRow(double* p, V x) { vst1q_f64(p, x); }
  ZEPH_LANES V Sqrt(V x) { return vsqrtq_f64(x); }
  ZEPH_LANES V Least(V x, V m) { return vbslq_f64(vcltq_f64(x, m), x, m); }
  ZEPH_LANES V Greatest(V x, V m) { return vbslq_f64(vcgtq_f64(x, m), x, m); }
};

#include "kernels/batch.inc"

// --- products: a column of floats, or half of one of doubles, side by side ---

/// Element `k` in every lane; in three, with 0 in the last one, under an affine left factor: its
/// sums are not computed there, where they could raise spurious exceptions.
template <int k, bool kThree>
ZEPH_LANES float32x4_t Spread(float32x4_t column) {
  if constexpr (!kThree) return vdupq_laneq_f32(column, k);
  constexpr std::uint64_t kBytes = 0x03020100 + k * 0x04040404,
                          kNone = 0xFFFFFFFF;  // which gives 0
  constexpr std::uint64_t kTwo = kBytes << 32 | kBytes, kLast = kNone << 32 | kBytes;
  const uint8x16_t places =
      vreinterpretq_u8_u64(vcombine_u64(vcreate_u64(kTwo), vcreate_u64(kLast)));
  return vreinterpretq_f32_u8(vqtbl1q_u8(vreinterpretq_u8_f32(column), places));
}

template <bool kFirstAffine, bool kSecondAffine>
ZEPH_FORM void ProductsOf(float* out, const float* m, std::size_t stride, const float* e,
                          std::size_t n) {
  float32x4_t left[4];
  for (int k = 0; k < 4; ++k) {
    left[k] = vld1q_f32(e + 4 * k);
    if (kFirstAffine) left[k] = vsetq_lane_f32(0, left[k], 3);
  }
  for (std::size_t i = 0; i < n; ++i) {
    const float* p = At(m, stride, i);
    float32x4_t r[4];
    for (int j = 0; j < 4; ++j) {
      const float32x4_t b = vld1q_f32(p + 4 * j);
      r[j] = left[0] * Spread<0, kFirstAffine>(b) + left[1] * Spread<1, kFirstAffine>(b) +
             left[2] * Spread<2, kFirstAffine>(b);
      if (!kSecondAffine)
        r[j] = r[j] + left[3] * Spread<3, kFirstAffine>(b);
      else if (j == 3)
        r[j] = r[j] + left[3];
      if (kFirstAffine)
        r[j] = kSecondAffine ? vsetq_lane_f32(j == 3, r[j], 3) : vcopyq_laneq_f32(r[j], 3, b, 3);
    }
    float* to = At(out, stride, i);
    for (int j = 0; j < 4; ++j) vst1q_f32(to + 4 * j, r[j]);
  }
}

ZEPH_FORM void FloatProducts(float* out, const float* m, std::size_t stride, const float* e,
                             bool firstAffine, bool secondAffine, std::size_t n) {
  const auto run = firstAffine
                       ? (secondAffine ? ProductsOf<true, true> : ProductsOf<true, false>)
                       : (secondAffine ? ProductsOf<false, true> : ProductsOf<false, false>);
  run(out, m, stride, e, n);
}

ZEPH_FORM void DoubleProducts(double* out, const double* m, std::size_t stride, const double* e,
                              std::size_t n) {
  float64x2_t left[4][2];
  for (int k = 0; k < 4; ++k)
    left[k][0] = vld1q_f64(e + 4 * k), left[k][1] = vld1q_f64(e + 4 * k + 2);
  for (std::size_t i = 0; i < n; ++i) {
    const double* p = At(m, stride, i);
    float64x2_t r[4][2];
    for (int j = 0; j < 4; ++j) {
      const double* b = p + 4 * j;
      for (int half = 0; half < 2; ++half)
        r[j][half] = left[0][half] * b[0] + left[1][half] * b[1] + left[2][half] * b[2] +
                     left[3][half] * b[3];
    }
    double* to = At(out, stride, i);
    for (int j = 0; j < 4; ++j) vst1q_f64(to + 4 * j, r[j][0]), vst1q_f64(to + 4 * j + 2, r[j][1]);
  }
}

}  // namespace

const Batch neon::kBatch = {kVectors<float>, kVectors<double>, Directions, Points, VectorsOfFour};
const BatchProducts neon::kBatchProducts = {FloatProducts, DoubleProducts};

}  // namespace zeph::kernels
#endif
