// SPDX-License-Identifier: MIT
#include "portable_math/logarithm.h"
#include "portable_math/mantissa.h"

namespace zeph::portable_math {
namespace {

/// ln(1 + r), by its series.
Fixed LogarithmNear1(std::int64_t rest) {
  const bool negative = rest < 0;
  const std::uint64_t magnitude = (negative ? std::uint64_t{0} - static_cast<std::uint64_t>(rest)
                                            : static_cast<std::uint64_t>(rest))
                                  << 2;
  const Fixed r{
      {0, static_cast<std::uint32_t>(magnitude >> 32), static_cast<std::uint32_t>(magnitude)}};
  Fixed sum{}, power = r;
  for (std::uint32_t n = 1; !IsZero(power); ++n, power = Product(power, r)) {
    const Fixed term = Quotient(power, n);
    sum = negative || n % 2 == 0 ? Difference(sum, term) : Sum(sum, term);
  }
  return sum;
}

Fixed WithSign(const Fixed& magnitude, bool negative) {
  return negative ? Negative(magnitude) : magnitude;
}

}  // namespace

/// The error is below 2^-240; the smallest logarithm other than 0 is 2^-55, which leaves 185
/// correct bits. Where the logarithm is an integer, it is the nearest double in spite of the error.
double DecimalLogarithmInWholeNumbers(double x) {
  const Mantissa m = MantissaOf(x);
  const Fixed natural = LogarithmNear1(m.rest);
  const Fixed decimal =
      WithSign(Product(Magnitude(natural), tables::kInverseLn10), IsNegative(natural));
  const Fixed entry = WithSign(tables::kMantissaLogsFixed[m.entry], m.entry < kEntryOfOne);
  const auto power = static_cast<std::uint32_t>(m.exponent < 0 ? -m.exponent : m.exponent);
  const Fixed ofPower = WithSign(Multiple(tables::kLog2, power), m.exponent < 0);
  const Fixed sum = Sum(ofPower, Sum(entry, decimal));
  if (IsZero(sum)) return 0.0;
  const double rounded = RoundedToDouble(Magnitude(sum));
  return IsNegative(sum) ? -rounded : rounded;
}

}  // namespace zeph::portable_math
