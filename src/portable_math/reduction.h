// SPDX-License-Identifier: MIT
//
// Argument reduction for every finite double.
#ifndef ZEPH_SRC_PORTABLE_MATH_REDUCTION_H
#define ZEPH_SRC_PORTABLE_MATH_REDUCTION_H

#include <cstdint>

#include "portable_math/double_double.h"
#include "portable_math/fixed_point.h"
#include "portable_math/tables.h"

namespace zeph::portable_math {

/// magnitude * 2/pi modulo 2^32, off by less than 2^-252.
Fixed QuarterTurns(Parts magnitude);

/// An angle as whole steps of the sine table and a remainder of about half a step at most.
struct Reduced {
  std::uint32_t steps;  ///< modulo 4 * kQuarterSteps
  Sum2 rest;            ///< relative error below 2^-66
};

/// Angles from here on take the slow path.
constexpr double kOrdinaryBelow = 0x1p15;

/// Adding it rounds to an integer, which is then in the low bits.
constexpr double kToWhole = 0x1.8p52;

/// For any magnitude, in integer arithmetic.
Reduced ReduceLarge(double magnitude);

/// For magnitudes below kOrdinaryBelow, after W. J. Cody and W. Waite, "Software Manual for the
/// Elementary Functions" (1980).
///
/// With at most 23 bits of steps the products with the first three parts of a step are exact, and
/// so is the first difference. With a remainder near 2^-54, the closest that such a double comes to
/// a multiple of pi/2, the first two differences are exact; the fourth part has an error of 2^-153
/// times the steps.
inline Reduced Reduce(double magnitude) {
  const double shifted = magnitude * tables::kStepsPerRadian + kToWhole;
  const double steps = shifted - kToWhole;
  const double first = magnitude - steps * tables::kStep[0];
  const Sum2 second = TwoSum(first, -(steps * tables::kStep[1]));
  const Sum2 third = TwoSum(second.head, -(steps * tables::kStep[2]));
  const double tail = (second.tail + third.tail) - steps * tables::kStep[3];
  return {static_cast<std::uint32_t>(BitsOf(shifted)), FastTwoSum(third.head, tail)};
}

/// The same for sine and cosine, where most angles do not need the fourth part.
///
/// With a first difference of 2^-13, above the second product, both differences are exact, and the
/// error of the later parts, 2^-99, is negligible.
inline Reduced ReduceShortly(double magnitude) {
  constexpr double kFurther = tables::kStep[2] + tables::kStep[3];
  const double shifted = magnitude * tables::kStepsPerRadian + kToWhole;
  const double steps = shifted - kToWhole;
  const double first = magnitude - steps * tables::kStep[0];
  const double product = steps * tables::kStep[1];
  const double head = first - product;
  if (!(head >= 0x1p-13 || head <= -0x1p-13)) return Reduce(magnitude);
  const double tail = ((first - head) - product) - steps * kFurther;
  return {static_cast<std::uint32_t>(BitsOf(shifted)), FastTwoSum(head, tail)};
}

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_REDUCTION_H
