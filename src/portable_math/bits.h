// SPDX-License-Identifier: MIT
//
// The bits of doubles and floats.
#ifndef ZEPH_SRC_PORTABLE_MATH_BITS_H
#define ZEPH_SRC_PORTABLE_MATH_BITS_H

#include <cstdint>
#include <cstring>

namespace zeph::portable_math {

constexpr int kFractionBits = 52, kBias = 1023;
constexpr std::uint64_t kImplicitBit = std::uint64_t{1} << kFractionBits;
constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;
constexpr std::uint64_t kInfinityBits = 0x7ff0000000000000u;

inline std::uint64_t BitsOf(double x) {
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  return bits;
}

inline double DoubleOf(std::uint64_t bits) {
  double x;
  std::memcpy(&x, &bits, sizeof x);
  return x;
}

/// 2^exponent, for the exponents of normal doubles.
inline double PowerOfTwo(int exponent) {
  return DoubleOf(static_cast<std::uint64_t>(exponent + kBias) << kFractionBits);
}

/// A finite double that is not negative: significand * 2^exponent.
struct Parts {
  std::uint64_t significand;
  int exponent;
};

inline Parts PartsOf(std::uint64_t magnitude) {
  const int biased = static_cast<int>(magnitude >> kFractionBits);
  const std::uint64_t fraction = magnitude & (kImplicitBit - 1);
  if (biased == 0) return {fraction, 1 - kBias - kFractionBits};
  return {fraction | kImplicitBit, biased - kBias - kFractionBits};
}

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_BITS_H
