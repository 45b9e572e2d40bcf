// SPDX-License-Identifier: MIT
//
/// @file
/// ZEPH_Long, the 32-bit signed integer behind every `long` overload.
#ifndef ZEPH_PLATFORM_LONG_H
#define ZEPH_PLATFORM_LONG_H

#include <climits>
#include <cstdint>
#include <istream>
#include <limits>
#include <ostream>
#include <type_traits>

#if LONG_MAX == INT_MAX
using ZEPH_Long = long;
#else
/// The 32-bit signed integer of the `long` overloads, where the system's own `long` is wider.
///
/// Converts from and to `int` implicitly, yet `int*` and `ZEPH_Long*` remain different types, so
/// both overloads of a function can exist. Trivially copyable, 4 bytes, uninitialised by default
/// like any integer. Mixed arithmetic and comparison are the built-in ones on its `int` value:
///
///     ZEPH_Long x = 7;
///     x * 2;              // int 14
///     x < v.size();       // as with an int on the left
///     x += 3000000000u;   // wraps as a 32-bit long does
///
/// Compound assignment takes any integer, computes as a 32-bit `long` would and wraps on overflow;
/// only division by zero is undefined. With a floating-point right side write the conversion out:
/// `x = static_cast<int>(x * 1.5)`. Do so too in `condition ? x : 0`, where either side could be
/// converted to the other, and for `printf`, which takes `%d` with `int{x}`.
class ZEPH_Long {
  template <class T>
  using IfInteger = std::enable_if_t<std::is_integral_v<T>, int>;
  // The type that quotients are computed in: 64 bits where both sides are at most int, because of
  // INT_MIN / -1.
  template <class T>
  using Quotient = std::conditional_t<std::is_same_v<std::common_type_t<int, T>, int>, long long,
                                      std::common_type_t<int, T> >;

  // Stands before its uses: clang++ 13 warns otherwise.
  template <class T>
  static constexpr std::uint32_t Low(T value) {
    return static_cast<std::uint32_t>(value);
  }

 public:
  ZEPH_Long() = default;
  /// Conversion from and to `int`; the value is the same.
  constexpr ZEPH_Long(int value) : m_nValue(value) {}  // NOLINT: implicit on purpose
  /// The value.
  constexpr operator int() const { return m_nValue; }  // NOLINT: implicit on purpose

  /// Compound assignment with any integer, as a 32-bit `long` computes it; wraps on overflow.
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator+=(T other) {
    return Set(Low(m_nValue) + Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator-=(T other) {
    return Set(Low(m_nValue) - Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator*=(T other) {
    return Set(Low(m_nValue) * Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator/=(T other) {
    return Set(Low(static_cast<Quotient<T> >(m_nValue) / static_cast<Quotient<T> >(other)));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator%=(T other) {
    return Set(Low(static_cast<Quotient<T> >(m_nValue) % static_cast<Quotient<T> >(other)));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator&=(T other) {
    return Set(Low(m_nValue) & Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator|=(T other) {
    return Set(Low(m_nValue) | Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator^=(T other) {
    return Set(Low(m_nValue) ^ Low(other));
  }
  constexpr ZEPH_Long& operator<<=(int bits) { return Set(Low(m_nValue) << bits); }
  constexpr ZEPH_Long& operator>>=(int bits) { return m_nValue >>= bits, *this; }
  constexpr ZEPH_Long& operator++() { return *this += 1; }
  constexpr ZEPH_Long& operator--() { return *this -= 1; }
  constexpr ZEPH_Long operator++(int) {
    const ZEPH_Long old = *this;
    ++*this;
    return old;
  }
  constexpr ZEPH_Long operator--(int) {
    const ZEPH_Long old = *this;
    --*this;
    return old;
  }

  /// Text as of an `int`.
  friend std::ostream& operator<<(std::ostream& os, ZEPH_Long x) { return os << x.m_nValue; }
  friend std::istream& operator>>(std::istream& is, ZEPH_Long& x) { return is >> x.m_nValue; }

 private:
  constexpr ZEPH_Long& Set(std::uint32_t bits) {
    m_nValue = static_cast<int>(bits);
    return *this;
  }

  int m_nValue;
};

/// Limits of the 32-bit `long`: those of `int`.
template <>
class std::numeric_limits<ZEPH_Long> : public std::numeric_limits<int> {};
#endif

#endif  // ZEPH_PLATFORM_LONG_H
