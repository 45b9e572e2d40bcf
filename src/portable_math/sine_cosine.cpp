// SPDX-License-Identifier: MIT
#include "portable_math/sine_cosine.h"

#include "portable_math/quadrant.h"
#include "portable_math/turn.h"

namespace zeph::portable_math {
namespace {

/// The error bound of TurnBy, 2^-66.5. One angle in 4000 takes the long path.
constexpr double kError = 0x1.6ap-67;

/// Below it the sine is the angle and the cosine 1: the next terms are less than half a unit.
constexpr double kTinyBelow = 0x1p-27;

}  // namespace

SineAndCosine SineCosine(double radians) {
  const std::uint64_t sign = BitsOf(radians) & kSignBit;
  // On the bits, since some processors treat denormals as zero.
  const std::uint64_t bits = BitsOf(radians) ^ sign;
  if (bits < BitsOf(kTinyBelow)) return {radians, 1.0};
  if (bits >= kInfinityBits) return {radians - radians, radians - radians};
  if (!RoundsToNearest()) return SineCosineInWholeNumbers(radians);

  const double magnitude = DoubleOf(bits);
  const Turn turn =
      TurnBy(magnitude < kOrdinaryBelow ? ReduceShortly(magnitude) : ReduceLarge(magnitude));
  double sine, cosine;
  const bool sineSafe = RoundsSafely(turn.sine, kError, sine);
  const bool cosineSafe = RoundsSafely(turn.cosine, kError, cosine);
  if (!(sineSafe && cosineSafe)) return SineCosineInWholeNumbers(radians);
  return InQuadrant(turn.quarters, sign, {sine, cosine});
}

}  // namespace zeph::portable_math
