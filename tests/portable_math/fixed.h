// Doubles as numbers with 256 bits behind the point.
#ifndef ZEPH_TESTS_PORTABLE_MATH_FIXED_H
#define ZEPH_TESTS_PORTABLE_MATH_FIXED_H

#include <cmath>

#include "portable_math/bits.h"
#include "portable_math/fixed_point.h"

namespace zeph::portable_math {

/// x, without the bits below the last of a Fixed.
inline Fixed ToFixed(double x) {
  const Parts parts = PartsOf(BitsOf(std::fabs(x)));
  Fixed a{};
  for (int bit = 0; bit <= kFractionBits; ++bit) {
    if ((parts.significand >> bit & 1) == 0) continue;
    const int place = 31 - (parts.exponent + bit);  // 0 is the top of the integer part
    if (place >= 0 && place < 32 * (Fixed::kWords + 1))
      a.word[place / 32] |= 1u << (31 - place % 32);
  }
  return std::signbit(x) ? Negative(a) : a;
}

/// The place of the highest bit that is set; 0 is the top of the integer part.
inline int LeadingPlace(const Fixed& a) {
  int place = 0;
  while (place < 32 * (Fixed::kWords + 1) && (a.word[place / 32] >> (31 - place % 32) & 1) == 0)
    ++place;
  return place;
}

}  // namespace zeph::portable_math

#endif  // ZEPH_TESTS_PORTABLE_MATH_FIXED_H
