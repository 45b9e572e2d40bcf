// SPDX-License-Identifier: MIT
//
// The leading decimal digits of a number, correctly rounded.
#ifndef ZEPH_SRC_PLATFORM_DECIMAL_DIGITS_H
#define ZEPH_SRC_PLATFORM_DECIMAL_DIGITS_H

#include <charconv>
#include <cstdint>
#include <cstring>

namespace zeph::platform {

/// About digits * 10^(exponent - count + 1), where `digits` has `count` digits, the first not 0.
struct Decimal {
  std::uint64_t digits;
  int exponent;
};

constexpr int kMostDecimalDigits = 17;

#ifdef __SIZEOF_INT128__
__extension__ typedef unsigned __int128 WideUnsigned;

inline constexpr int kMostPowerOfFive = 27;  // the last that fits 64 bits
struct Powers {
  std::uint64_t five[kMostPowerOfFive + 1] = {1};
  std::uint64_t ten[kMostDecimalDigits + 1] = {1};
  constexpr Powers() {
    for (int k = 1; k <= kMostPowerOfFive; ++k) five[k] = five[k - 1] * 5;
    for (int k = 1; k <= kMostDecimalDigits; ++k) ten[k] = ten[k - 1] * 10;
  }
};
inline constexpr Powers kPowers;

/// `whole` plus a fraction, of which `half` is one half, rounded to nearest, ties to even.
inline std::uint64_t RoundedUp(std::uint64_t whole, WideUnsigned rest, WideUnsigned half) {
  return whole + (rest > half || (rest == half && whole % 2 == 1));
}

/// m * 2^e * 10^power, which is below 10^18, rounded to a whole number. m < 2^53, -101 < e <= 0, 10^power from
/// 10^-15 to 10^27.
inline std::uint64_t Scaled(std::uint64_t m, int e, int power) {
  if (power >= 0) {
    const WideUnsigned product = WideUnsigned{m} * kPowers.five[power];  // below 2^116
    const int shift = -(e + power);
    if (shift <= 0) return static_cast<std::uint64_t>(product << -shift);
    const WideUnsigned half = WideUnsigned{1} << (shift - 1);
    return RoundedUp(static_cast<std::uint64_t>(product >> shift), product & ((half << 1) - 1),
                     half);
  }
  const std::uint64_t divisor = kPowers.five[-power];
  const int shift = -power - e;  // 1 .. 67, as |x| is at least 1 here
  const std::uint64_t upper = shift < 64 ? m >> shift : 0;
  const WideUnsigned lower = m - (shift < 64 ? upper << shift : 0);
  return RoundedUp(upper / divisor, (WideUnsigned{upper % divisor} << shift) | lower,
                   WideUnsigned{divisor} << (shift - 1));
}

/// Rounds |x| to `count` (1 .. kMostDecimalDigits) digits, to nearest, ties to even, in any mode of
/// the process. Exact, in integers: |x| is m * 2^e, and 10^k is 5^k * 2^k. False where that takes
/// more than 128 bits, as for 0, denormals, infinities and NaN; from 1e-10 to 2^53 it never does.
inline bool RoundToDecimal(double x, int count, Decimal& decimal) {
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  constexpr int kFractionBits = 52, kBias = 1023 + kFractionBits;
  const int e = static_cast<int>(bits >> kFractionBits & 0x7ff) - kBias;
  const std::uint64_t m = (bits & ((std::uint64_t{1} << kFractionBits) - 1)) | std::uint64_t{1}
                                                                                   << kFractionBits;
  constexpr int kLeast = -100;  // 2^52 * 2^-100 is 3.6e-15
  if (e > 0 || e < kLeast) return false;
  // |x| is between 2^(52 + e) and twice that: the decimal exponent is floor(log10(2^(52 + e))) or
  // one more.
  int exponent = (52 + e) * 315653 >> 20;
  for (;; ++exponent) {
    const int power = count - 1 - exponent;
    if (power > kMostPowerOfFive) return false;
    const std::uint64_t digits = Scaled(m, e, power);
    if (digits >= kPowers.ten[count]) continue;  // rounding made it a digit longer
    decimal = {digits, exponent};
    return true;
  }
}
#else
inline bool RoundToDecimal(double, int, Decimal&) {
  return false;
}
#endif

/// The `count` digits of a decimal, without the point. Returns the end.
inline char* WriteDigits(char* out, std::uint64_t digits) {
  return std::to_chars(out, out + kMostDecimalDigits, digits).ptr;
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_DECIMAL_DIGITS_H
