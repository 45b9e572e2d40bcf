// SPDX-License-Identifier: MIT
#include "portable_math/tangent.h"

#include "portable_math/sine_cosine.h"
#include "portable_math/turn.h"

namespace zeph::portable_math {
namespace {

/// Two rounded pairs and a rounded quotient.
constexpr double kError = 0x1p-50;

/// Below it the next term, a third of the cube, is less than half a unit.
constexpr float kTinyBelow = 0x1p-12f;

float WithSignOf(float magnitude, bool negative) {
  return negative ? -magnitude : magnitude;
}

/// a / b rounded to the nearest float; a and b are positive, the quotient's exponent is a float's.
///
/// Long division, a bit at a time. Both numbers have over 190 correct bits, and 64 of them suffice
/// to tell even the tangent closest to the midpoint of two floats from that midpoint.
float RoundedQuotient(Fixed a, Fixed b) {
  constexpr int kDigits = 24;
  int exponent = 0;
  for (; !IsNegative(Difference(a, b)); ++exponent) b = Sum(b, b);
  for (; IsNegative(Difference(a, b)); --exponent) a = Sum(a, a);
  // a / b lies in [1, 2) now.
  std::uint32_t quotient = 0;
  for (int bit = 0; bit <= kDigits; ++bit) {  // one more than in the significand
    const Fixed rest = Difference(a, b);
    quotient = quotient << 1 | !IsNegative(rest);
    if (!IsNegative(rest)) a = rest;
    a = Sum(a, a);
  }
  const std::uint32_t significand = (quotient + 1) >> 1;
  return static_cast<float>(significand * PowerOfTwo(exponent - kDigits + 1));
}

}  // namespace

float TangentInWholeNumbers(float radians) {
  const std::uint64_t sign = BitsOf(radians) & kSignBit;
  const WholeNumberTurn turn = TurnInWholeNumbers(DoubleOf(BitsOf(radians) ^ sign));
  const bool odd = turn.quarters % 2 != 0;
  const float magnitude =
      odd ? RoundedQuotient(turn.cosine, turn.sine) : RoundedQuotient(turn.sine, turn.cosine);
  return WithSignOf(magnitude, (sign != 0) != (turn.negative != odd));
}

float Tangent(float radians) {
  std::uint32_t bits;
  std::memcpy(&bits, &radians, sizeof bits);
  const bool negative = bits >> 31 != 0;
  const float magnitude = WithSignOf(radians, negative);
  if ((bits & 0x7fffffff) >= 0x7f800000) return radians - radians;
  if (magnitude < kTinyBelow) return radians;
  if (!RoundsToNearest()) return TangentInWholeNumbers(radians);

  const Turn turn = TurnBy(magnitude < kOrdinaryBelow ? Reduce(magnitude) : ReduceLarge(magnitude));
  const double sine = turn.sine.head + turn.sine.tail;
  const double cosine = turn.cosine.head + turn.cosine.tail;
  const double tangent = turn.quarters % 2 == 0 ? sine / cosine : -cosine / sine;
  const auto rounded = static_cast<float>(tangent * (1.0 + kError));
  if (rounded != static_cast<float>(tangent * (1.0 - kError)))
    return TangentInWholeNumbers(radians);
  return WithSignOf(rounded, negative);
}

}  // namespace zeph::portable_math
