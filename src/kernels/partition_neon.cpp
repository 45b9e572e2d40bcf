// SPDX-License-Identifier: MIT
//
// Two comparisons at a time; the masks of 64 elements are narrowed to their bits together.
#include "kernels/bits.h"
#include "kernels/forms.h"
#include "kernels/partition.h"

#if ZEPH_NEON

#include <arm_neon.h>

#include <limits>

#define ZEPH_INNER_CALL
#define ZEPH_INNER __attribute__((always_inline)) inline

namespace zeph::kernels::neon {
namespace {

constexpr std::size_t kLanes = 2;

ZEPH_INNER float64x2_t Broadcast(double x) {
  return vdupq_n_f64(x);
}

struct Less {
  ZEPH_INNER uint64x2_t operator()(float64x2_t a, float64x2_t b) const { return vcltq_f64(a, b); }
  ZEPH_INNER bool operator()(double a, double b) const { return a < b; }
};
struct Greater {
  ZEPH_INNER uint64x2_t operator()(float64x2_t a, float64x2_t b) const { return vcgtq_f64(a, b); }
  ZEPH_INNER bool operator()(double a, double b) const { return a > b; }
};

/// A byte of ones or zeros for each of sixteen elements.
template <class Test>
ZEPH_INNER uint8x16_t Bytes16(const double* v, float64x2_t pivot) {
  uint16x8_t eights[2];
  for (std::size_t i = 0; i < 2; ++i) {
    uint32x4_t fours[2];
    for (std::size_t k = 0; k < 2; ++k) {
      const double* at = v + 8 * i + 4 * k;
      const uint64x2_t low = Test()(vld1q_f64(at), pivot),
                       high = Test()(vld1q_f64(at + kLanes), pivot);
      fours[k] = vuzp1q_u32(vreinterpretq_u32_u64(low), vreinterpretq_u32_u64(high));
    }
    eights[i] = vuzp1q_u16(vreinterpretq_u16_u32(fours[0]), vreinterpretq_u16_u32(fours[1]));
  }
  return vuzp1q_u8(vreinterpretq_u8_u16(eights[0]), vreinterpretq_u8_u16(eights[1]));
}

/// A bit for each of 64 elements.
template <class Test>
ZEPH_INNER std::uint64_t Bits64(const double* v, float64x2_t pivot) {
  const uint8x16_t bit = vreinterpretq_u8_u64(vdupq_n_u64(0x8040201008040201));
  uint8x16_t part[4];
  for (std::size_t i = 0; i < 4; ++i) part[i] = vandq_u8(Bytes16<Test>(v + 16 * i, pivot), bit);
  const uint8x16_t sums = vpaddq_u8(vpaddq_u8(part[0], part[1]), vpaddq_u8(part[2], part[3]));
  return vgetq_lane_u64(vreinterpretq_u64_u8(vpaddq_u8(sums, sums)), 0);
}

template <class Test>
ZEPH_INNER std::uint64_t Bits(const double* v, std::size_t n, double value) {
  const float64x2_t pivot = Broadcast(value);
  std::uint64_t mask = 0;
  std::size_t k = 0;
  for (; k + kLanes <= n; k += kLanes) {
    const uint64x2_t set = Test()(vld1q_f64(v + k), pivot);
    mask |= ((vgetq_lane_u64(set, 0) & 1) | (vgetq_lane_u64(set, 1) & 2)) << k;
  }
  if (k < n) mask |= std::uint64_t{Test()(v[k], value)} << k;
  return mask;
}
/// The bits of `n` elements, n <= 64.
ZEPH_INNER std::uint64_t First(std::size_t n) {
  return n < 64 ? (std::uint64_t{1} << n) - 1 : ~std::uint64_t{0};
}

ZEPH_INNER std::uint64_t MaskNotLess64(const double* v, float64x2_t pivot) {
  return ~Bits64<Less>(v, pivot);
}
ZEPH_INNER std::uint64_t MaskNotGreater64(const double* v, float64x2_t pivot) {
  return ~Bits64<Greater>(v, pivot);
}
std::uint64_t MaskNotLess(const double* v, std::size_t n, double pivot) {
  if (n == 64) return MaskNotLess64(v, Broadcast(pivot));
  return ~Bits<Less>(v, n, pivot) & First(n);
}
std::uint64_t MaskNotGreater(const double* v, std::size_t n, double pivot) {
  if (n == 64) return MaskNotGreater64(v, Broadcast(pivot));
  return ~Bits<Greater>(v, n, pivot) & First(n);
}
ZEPH_INNER float64x2_t Reversed(float64x2_t x) {
  return vextq_f64(x, x, 1);
}
ZEPH_INNER void ExchangeReversed64(double* left, double* right) {
  for (std::size_t k = 0; k < 64; k += kLanes) {
    const float64x2_t a = vld1q_f64(left + k), b = vld1q_f64(right + 62 - k);
    vst1q_f64(left + k, Reversed(b));
    vst1q_f64(right + 62 - k, Reversed(a));
  }
}

#include "kernels/partition.inc"

/// Most blocks have no zero, so its sign need not be examined.
Census TakeCensus(const double* v, std::size_t n) {
  constexpr std::size_t kAtOnce = 64;
  Census census;
  for (std::size_t i = 0; i < n; i += kAtOnce) {
    const std::size_t end = n - i < kAtOnce ? n : i + kAtOnce;
    uint64x2_t numbers[2] = {vdupq_n_u64(0), vdupq_n_u64(0)}, zeros[2] = {numbers[0], numbers[0]};
    std::size_t k = i;
    for (; k + 2 * kLanes <= end; k += 2 * kLanes)
      for (std::size_t j = 0; j < 2; ++j) {
        const float64x2_t x = vld1q_f64(v + k + j * kLanes);
        numbers[j] = vsubq_u64(numbers[j], vceqq_f64(x, x));
        zeros[j] = vsubq_u64(zeros[j], vceqzq_f64(x));
      }
    for (; k < end; ++k) {
      const float64x2_t x = vcombine_f64(vld1_f64(v + k), vdup_n_f64(1));
      numbers[0] = vsubq_u64(numbers[0], vceqq_f64(x, x));
      zeros[0] = vsubq_u64(zeros[0], vceqzq_f64(x));
    }
    const std::size_t ones = (end - i) % (2 * kLanes);  // filled in beside the last elements
    census.nans += end - i + ones - vaddvq_u64(vaddq_u64(numbers[0], numbers[1]));
    const std::size_t found = vaddvq_u64(vaddq_u64(zeros[0], zeros[1]));
    if (found == 0) continue;
    census.zeros += found;
    for (k = i; k < end; ++k) {
      const std::uint64_t bits = vget_lane_u64(vreinterpret_u64_f64(vld1_f64(v + k)), 0);
      census.plus += bits == 0;
      census.minus += bits == std::uint64_t{1} << 63;
    }
  }
  return census;
}

/// Minimum and maximum by compare and select, which keeps their bits in every mode; a NaN replaces
/// nothing.
Bounds FindBounds(const double* v, std::size_t n) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  float64x2_t least[2] = {Broadcast(kInf), Broadcast(kInf)},
              greatest[2] = {Broadcast(-kInf), Broadcast(-kInf)};
  uint64x2_t numbers = vdupq_n_u64(~std::uint64_t{0});
  const auto look = [&](float64x2_t x, std::size_t j) {
    least[j] = vbslq_f64(vcltq_f64(x, least[j]), x, least[j]);
    greatest[j] = vbslq_f64(vcgtq_f64(x, greatest[j]), x, greatest[j]);
    numbers = vandq_u64(numbers, vceqq_f64(x, x));
  };
  std::size_t k = 0;
  for (; k + 2 * kLanes <= n; k += 2 * kLanes)
    look(vld1q_f64(v + k), 0), look(vld1q_f64(v + k + kLanes), 1);
  for (; k < n; ++k) look(Broadcast(v[k]), 0);
  if ((vgetq_lane_u64(numbers, 0) & vgetq_lane_u64(numbers, 1)) == 0) return {-kInf, kInf};
  Bounds bounds = {kInf, -kInf};
  for (const float64x2_t x : least)
    for (const double lane : {vgetq_lane_f64(x, 0), vgetq_lane_f64(x, 1)})
      if (lane < bounds.least) bounds.least = lane;
  for (const float64x2_t x : greatest)
    for (const double lane : {vgetq_lane_f64(x, 0), vgetq_lane_f64(x, 1)})
      if (lane > bounds.greatest) bounds.greatest = lane;
  return bounds;
}

}  // namespace

const Partitions kPartitions = {TakeCensus, PartByBlocks, MaskNotLess, MaskNotGreater, FindBounds};

}  // namespace zeph::kernels::neon

#endif  // ZEPH_NEON
