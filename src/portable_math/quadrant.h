// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_PORTABLE_MATH_QUADRANT_H
#define ZEPH_SRC_PORTABLE_MATH_QUADRANT_H

#include "portable_math/bits.h"
#include "portable_math/sine_cosine.h"

namespace zeph::portable_math {

/// Sine and cosine of an angle whose magnitude is `quarters` (modulo 4) quarter turns more than
/// that of `first`; `sign` is the angle's sign bit. Without branches, which would be unpredictable.
inline SineAndCosine InQuadrant(unsigned quarters, std::uint64_t sign, SineAndCosine first) {
  const std::uint64_t swap = std::uint64_t{0} - (quarters & 1);
  const std::uint64_t sine = BitsOf(first.sine), cosine = BitsOf(first.cosine);
  const std::uint64_t both = (sine ^ cosine) & swap;
  const std::uint64_t sineSign = std::uint64_t{quarters >> 1 & 1} << 63;
  const std::uint64_t cosineSign = std::uint64_t{((quarters + 1) >> 1) & 1} << 63;
  return {DoubleOf(sine ^ both ^ sineSign ^ sign), DoubleOf(cosine ^ both ^ cosineSign)};
}

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_QUADRANT_H
