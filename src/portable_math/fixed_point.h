// SPDX-License-Identifier: MIT
//
// Fixed-point numbers in integer arithmetic: the last resort of every function, whose bits no
// rounding direction, flush-to-zero mode or compiler can change.
#ifndef ZEPH_SRC_PORTABLE_MATH_FIXED_POINT_H
#define ZEPH_SRC_PORTABLE_MATH_FIXED_POINT_H

#include <cstdint>

namespace zeph::portable_math {

/// An integer part and 256 fractional bits, most significant word first; adds and subtracts modulo
/// 2^32, so that a set top bit means a negative number.
struct Fixed {
  static constexpr int kWords = 8;
  std::uint32_t word[kWords + 1];
};

inline Fixed FixedOf(std::uint32_t whole) {
  return {{whole}};
}

inline bool IsZero(const Fixed& a) {
  for (const std::uint32_t word : a.word)
    if (word != 0) return false;
  return true;
}

inline bool IsNegative(const Fixed& a) {
  return a.word[0] >> 31 != 0;
}

inline Fixed Sum(const Fixed& a, const Fixed& b) {
  Fixed sum;
  std::uint64_t carry = 0;
  for (int i = Fixed::kWords; i >= 0; --i) {
    carry += std::uint64_t{a.word[i]} + b.word[i];
    sum.word[i] = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  return sum;
}

inline Fixed Negative(const Fixed& a) {
  Fixed negative;
  std::uint64_t carry = 1;
  for (int i = Fixed::kWords; i >= 0; --i) {
    carry += static_cast<std::uint32_t>(~a.word[i]);
    negative.word[i] = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  return negative;
}

inline Fixed Difference(const Fixed& a, const Fixed& b) {
  return Sum(a, Negative(b));
}

inline Fixed Magnitude(const Fixed& a) {
  return IsNegative(a) ? Negative(a) : a;
}

/// The product of two non-negative numbers, too small by less than 20 units of the last word.
Fixed Product(const Fixed& a, const Fixed& b);

/// a * n for a small n.
Fixed Multiple(const Fixed& a, std::uint32_t n);

/// a / n, truncated, for a non-negative number.
Fixed Quotient(const Fixed& a, std::uint32_t n);

/// The double or float with a significand of `digits` bits nearest to a positive number; above the
/// midpoint it is the greater one. The caller's numbers are never so close to a midpoint that their
/// error could decide the side.
double RoundedToDouble(const Fixed& a);

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_FIXED_POINT_H
