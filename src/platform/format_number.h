// SPDX-License-Identifier: MIT
//
// Numbers as printf writes them, to the byte, at a fraction of its cost.
#ifndef ZEPH_SRC_PLATFORM_FORMAT_NUMBER_H
#define ZEPH_SRC_PLATFORM_FORMAT_NUMBER_H

#include <cstddef>

namespace zeph::platform {

/// What the C runtime and the caller's locale decide about the texts of numbers.
struct NumberConventions {
  bool exact;             // printf rounds as the exact conversion does: to nearest, ties to even
  int exponentDigits;     // fewest digits of an exponent, 2 or 3; only if `exact`
  const char* point;      // the decimal point of the thread's locale, one character of any bytes
  bool ownNames = false;  // whether infinities and NaN are written here, not by printf

  /// The conventions in force now: the runtime is examined once per process, while it rounds to
  /// nearest; the locale and the rounding direction every time. With ZEPH_PORTABLE_MATH always
  /// those of glibc in the C locale.
  static NumberConventions Current();
  /// Those of the runtime's printf, even with ZEPH_PORTABLE_MATH.
  static NumberConventions OfRuntime();
};

/// One conversion of a double, such as "%-5.4le", prepared for many values of one call.
///
/// The bytes are those of printf. Digits come from the standard library's exact conversion; where
/// the runtime rounds otherwise, and for infinities and NaN, printf itself is used. Allocates
/// nothing.
class RealFormat {
 public:
  enum class Notation { kFixed, kScientific };

  /// Characters that the longest text needs, its terminating zero included.
  static constexpr std::size_t kRoom = 384;
  static constexpr int kMostDecimals = 32;

  /// `conversion` is the printf conversion, kept by pointer; `notation` and `decimals` (1 ..
  /// kMostDecimals) repeat its meaning. It may have a width that every finite text fills.
  RealFormat(const char* conversion, Notation notation, int decimals,
             const NumberConventions& conventions = NumberConventions::Current());

  /// Writes the text of `x` to `out` (kRoom characters) and returns its end; no terminating zero.
  char* Write(char* out, double x) const;

  /// The width of x's text of `size` bytes as printf counts it: a decimal point is one character.
  std::size_t Columns(double x, std::size_t size) const;

 private:
  char* WriteExactly(char* out, double x) const;
  char* WritePadded(char* out, double x) const;
  char* InsertPoint(char* text, char* end) const;

  const char* conversion_;
  Notation notation_;
  int decimals_;
  NumberConventions conventions_;
  std::size_t pointSize_;
  bool fullStop_;
};

/// "inf", "-inf", "nan" or "-nan", the last for a NaN with its sign set, as glibc writes them.
char* WriteNonFinite(char* out, double x);

/// Characters that WriteInt needs.
constexpr std::size_t kIntRoom = 16;

/// Writes `value` in decimal, left-aligned in at least `width` (0 .. kIntRoom) characters, as "%-d"
/// and "%-5d" do; returns the end.
char* WriteInt(char* out, int value, int width = 0);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_FORMAT_NUMBER_H
