// SPDX-License-Identifier: MIT
//
// Reduces a number to one near 1, for both forms of the logarithm: x = 2^e / c * (1 + r), with c
// from a table (P. T. P. Tang, "Table-driven implementation of the logarithm function in IEEE
// floating-point arithmetic", ACM TOMS 16, 1990). c has ten bits and r is exact.
#ifndef ZEPH_SRC_PORTABLE_MATH_MANTISSA_H
#define ZEPH_SRC_PORTABLE_MATH_MANTISSA_H

#include <cstdint>

#include "portable_math/bits.h"
#include "portable_math/tables.h"

namespace zeph::portable_math {

struct Mantissa {
  int exponent;       ///< e; 0 for all x between 0.71 and 1.41
  unsigned entry;     ///< of the tables; kEntryOfOne, where c is 1, for x next to 1
  std::int64_t rest;  ///< r in units of 2^-62, magnitude below 2^55
};

constexpr unsigned kEntryOfOne = 128 - tables::kFirstMantissa;

/// Of a finite positive number.
inline Mantissa MantissaOf(double x) {
  constexpr std::uint64_t kRootOfTwo = 0x16a09e667f3bcd;  // in units of 2^-52
  Parts parts = PartsOf(BitsOf(x));
  while (parts.significand < kImplicitBit) {
    parts.significand <<= 1;
    --parts.exponent;
  }
  const bool upper = parts.significand >= kRootOfTwo;
  // The significand in units of 2^-52 or, in the upper half, of 2^-53: between 0.71 and 1.41.
  const int unit = upper ? kFractionBits + 1 : kFractionBits;
  const auto near128 =
      static_cast<unsigned>((parts.significand + (kImplicitBit >> (upper ? 7 : 8))) >> (unit - 7));
  const unsigned entry = near128 - tables::kFirstMantissa;
  const std::uint64_t product = parts.significand * tables::kReciprocals[entry] << (upper ? 0 : 1);
  return {parts.exponent + unit, entry,
          static_cast<std::int64_t>(product - (std::uint64_t{1} << 62))};
}

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_MANTISSA_H
