// SPDX-License-Identifier: MIT
#include "portable_math/quadrant.h"
#include "portable_math/reduction.h"
#include "portable_math/sine_cosine.h"

namespace zeph::portable_math {
namespace {

/// Sine and cosine of an angle from 0 to pi/4, by their series: each term is the one before times
/// angle / n.
void SumSeries(const Fixed& angle, Fixed& sine, Fixed& cosine) {
  sine = angle;
  cosine = FixedOf(1);
  Fixed term = angle;
  for (std::uint32_t n = 2;; ++n) {
    term = Quotient(Product(term, angle), n);
    if (IsZero(term)) return;
    Fixed& sum = n % 2 == 0 ? cosine : sine;
    sum = n % 4 < 2 ? Sum(sum, term) : Difference(sum, term);
  }
}

}  // namespace

WholeNumberTurn TurnInWholeNumbers(double magnitude) {
  Fixed turns = QuarterTurns(PartsOf(BitsOf(magnitude)));
  WholeNumberTurn turn;
  turn.negative = turns.word[1] >> 31 != 0;
  turn.quarters = (turns.word[0] + turn.negative) & 3;
  turns.word[0] = 0;
  if (turn.negative) turns = Difference(FixedOf(1), turns);
  SumSeries(Product(turns, tables::kQuarterTurn), turn.sine, turn.cosine);
  return turn;
}

/// No double comes closer to a multiple of pi/2 than 2^-61, so the smallest sine still has 184
/// correct bits. A double takes 53 of them, and the hardest of 2^64 doubles can be expected to need
/// 64 more (V. Lefevre, J.-M. Muller, A. Tisserand, "Toward correctly rounded transcendentals",
/// IEEE Trans. Computers 47, 1998); the chance that one needs over 130 more is below 2^-60.
SineAndCosine SineCosineInWholeNumbers(double radians) {
  const std::uint64_t sign = BitsOf(radians) & kSignBit;
  const WholeNumberTurn turn = TurnInWholeNumbers(DoubleOf(BitsOf(radians) ^ sign));
  const double sine = RoundedToDouble(turn.sine);
  return InQuadrant(turn.quarters, sign,
                    {turn.negative ? -sine : sine, RoundedToDouble(turn.cosine)});
}

}  // namespace zeph::portable_math
