// SPDX-License-Identifier: MIT
#include "portable_math/logarithm.h"

#include "portable_math/double_double.h"
#include "portable_math/mantissa.h"

namespace zeph::portable_math {
namespace {

/// The cubic and higher terms, below 2^-15.8 of ln(1 + r), result from ten rounded operations:
/// 2^-66. The greatest error found is 2^-68.2, at the ends of the interval around 1.
constexpr double kError = 0x1p-65;

/// ln(1 + r) for |r| < 2^-7: r - r^2/2 as pairs, the further terms, below 2^-15 of it, as a double.
Sum2 LogarithmNear1(std::int64_t rest) {
  // In halves: a 64-bit integer may be converted to double through a wider register.
  constexpr int kLowBits = 30;
  const auto high = static_cast<std::int32_t>(rest >> kLowBits);
  const auto low = static_cast<std::int32_t>(rest & ((1 << kLowBits) - 1));
  const auto [head, tail] = FastTwoSum(high * 0x1p-32, low * 0x1p-62);
  const Sum2 square = TwoProduct(head, head);
  const double further =
      head * square.head *
      (1.0 / 3 +
       head *
           (-1.0 / 4 +
            head * (1.0 / 5 +
                    head * (-1.0 / 6 + head * (1.0 / 7 + head * (-1.0 / 8 + head * (1.0 / 9)))))));
  const Sum2 sum = FastTwoSum(head, -0.5 * square.head);
  return {sum.head, sum.tail + (tail - head * tail - 0.5 * square.tail + further)};
}

/// The sum of e log 2, log 1/c and log(1 + r). The heads of the first two are multiples of 2^-43
/// and their sum is exact.
Sum2 QuickLogarithm(double x) {
  const Mantissa m = MantissaOf(x);
  const tables::Pair& entry = tables::kMantissaLogs[m.entry];
  const Sum2 natural = LogarithmNear1(m.rest);
  const Sum2 decimal = TwoProduct(natural.head, tables::kInverseLn10Pair.head);
  const double decimalTail = decimal.tail + (natural.head * tables::kInverseLn10Pair.rest +
                                             natural.tail * tables::kInverseLn10Pair.head);
  const Sum2 sum = TwoSum(m.exponent * tables::kLog2Pair.head + entry.head, decimal.head);
  const double tail = m.exponent * tables::kLog2Pair.rest + entry.rest;
  return FastTwoSum(sum.head, sum.tail + (tail + decimalTail));
}

}  // namespace

double DecimalLogarithm(double x) {
  const std::uint64_t bits = BitsOf(x);
  if ((bits & ~kSignBit) == 0) return -1.0 / (x * x);
  if ((bits & ~kSignBit) > kInfinityBits) return x + x;
  if ((bits & kSignBit) != 0) return (x - x) / 0.0;
  if (bits == kInfinityBits) return x;
  if (bits == BitsOf(1.0)) return 0.0;
  if (!RoundsToNearest()) return DecimalLogarithmInWholeNumbers(x);
  double rounded;
  return RoundsSafely(QuickLogarithm(x), kError, rounded) ? rounded
                                                          : DecimalLogarithmInWholeNumbers(x);
}

}  // namespace zeph::portable_math
