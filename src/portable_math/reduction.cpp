// SPDX-License-Identifier: MIT
#include "portable_math/reduction.h"

namespace zeph::portable_math {
namespace {

std::uint32_t TwoOverPiWord(int i) {
  return i < 0 ? 0 : tables::kTwoOverPi[i];
}

/// A number below 1 as a pair of doubles with 106 significant bits.
Sum2 Leading(const Fixed& a) {
  int first = 0;
  while (a.word[first] == 0) ++first;
  // Four words hold at least 97 bits of what begins in the first of them.
  double scale = PowerOfTwo(-32 * first);
  Sum2 sum{0.0, 0.0};
  for (int i = first; i < first + 4; ++i, scale *= 0x1p-32) {
    const double word = i <= Fixed::kWords ? a.word[i] * scale : 0.0;
    const Sum2 next = TwoSum(sum.head, word);
    sum = {next.head, sum.tail + next.tail};
  }
  return sum;
}

}  // namespace

/// M. H. Payne and R. N. Hanek, "Radian reduction for trigonometric functions", SIGNUM Newsletter
/// 18 (1983): only those words of 2/pi are used that affect the result below the whole quarter
/// turns modulo 2^32.
Fixed QuarterTurns(Parts magnitude) {
  // significand * 2^shift, three words, times 2^(32 * words).
  const int words =
      magnitude.exponent >= 0 ? magnitude.exponent / 32 : -((31 - magnitude.exponent) / 32);
  const int shift = magnitude.exponent - 32 * words;
  const std::uint64_t low = magnitude.significand << shift;
  const std::uint32_t digits[3] = {
      static_cast<std::uint32_t>(low), static_cast<std::uint32_t>(low >> 32),
      shift == 0 ? 0 : static_cast<std::uint32_t>(magnitude.significand >> (64 - shift))};

  Fixed turns;
  std::uint64_t carry = 0;
  for (int column = Fixed::kWords + 1; column >= 0; --column) {
    std::uint64_t sum = carry, high = 0;
    for (int j = 0; j < 3; ++j) {
      const std::uint64_t one = std::uint64_t{digits[j]} * TwoOverPiWord(words - 1 + j + column);
      sum += static_cast<std::uint32_t>(one);
      high += one >> 32;
    }
    if (column <= Fixed::kWords) turns.word[column] = static_cast<std::uint32_t>(sum);
    carry = high + (sum >> 32);
  }
  return turns;
}

Reduced ReduceLarge(double magnitude) {
  constexpr std::uint32_t kStepBits = 24;  // bits of a word below those that count steps
  constexpr std::uint32_t kRestMask = (1u << kStepBits) - 1, kHalf = 1u << (kStepBits - 1);
  static_assert(tables::kQuarterSteps == 1 << (32 - kStepBits));

  Fixed rest = QuarterTurns(PartsOf(BitsOf(magnitude)));
  std::uint32_t steps = rest.word[0] << (32 - kStepBits) | rest.word[1] >> kStepBits;
  rest.word[0] = 0;
  rest.word[1] &= kRestMask;
  const bool up = rest.word[1] >= kHalf;
  if (up) {
    ++steps;
    rest = Difference({{0, 1u << kStepBits}}, rest);
  }
  const Sum2 turns = Leading(rest);
  const Sum2 product = TwoProduct(turns.head, tables::kQuarterTurnPair.head);
  const double tail = product.tail + (turns.head * tables::kQuarterTurnPair.rest +
                                      turns.tail * tables::kQuarterTurnPair.head);
  const Sum2 radians = FastTwoSum(product.head, tail);
  return {steps, up ? Sum2{-radians.head, -radians.tail} : radians};
}

}  // namespace zeph::portable_math
