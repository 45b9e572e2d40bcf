// SPDX-License-Identifier: MIT
#include "platform/format_number.h"

#include <algorithm>
#include <cfenv>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/decimal_digits.h"
#include "platform/decimal_point.h"
#include "platform/exactness.h"
#include "platform/functions.h"
#include "platform/to_chars.h"

namespace zeph::platform {
namespace {

/// How the C runtime prints digits. Some runtimes print exponents of three digits, round ties away
/// from zero, or print zeros after 17 digits.
struct Runtime {
  bool exact;
  int exponentDigits;
};

bool Prints(const char* conversion, double x, const char* text) {
  char buffer[RealFormat::kRoom];
  std::snprintf(buffer, sizeof buffer, conversion, x);
  return std::strcmp(buffer, text) == 0;
}

/// Tested without decimals, so that the locale's decimal point does not matter, and while rounding
/// to nearest.
Runtime AskRuntime() {
  const bool two = Prints("%.0e", 1.0, "1e+00");
  const bool three = Prints("%.0e", 1.0, "1e+000");
  const bool exact = Prints("%.0f", 0.5, "0") && Prints("%.0f", 2.5, "2") &&
                     Prints("%.0f", 0x1p80, "1208925819614629174706176");
  return {exact && (two || three), three ? 3 : 2};
}

/// printf rounds in the current direction, the exact conversion to nearest.
bool RoundsToNearest() {
  return std::fegetround() == FE_TONEAREST;
}

/// Makes room for `count` characters before `at`.
char* Shift(char* at, char* end, std::size_t count) {
  std::memmove(at + count, at, static_cast<std::size_t>(end - at));
  return end + count;
}

/// "e+05" becomes "e+005" where the runtime writes three digits.
char* WidenExponent(char* end) {
  constexpr int kDigits = 2;
  char* digits = end - kDigits;
  if (digits[-1] != '+' && digits[-1] != '-') return end;  // three already
  end = Shift(digits, end, 1);
  *digits = '0';
  return end;
}

#ifdef __SIZEOF_INT128__
/// x * 10^decimals rounded to a whole number, ties to even, as printf rounds. Exact: x is m * 2^-s
/// with m below 2^53, so m * 10^decimals fits, and the bits shifted out decide the rounding. `x` is
/// not negative and below 2^40; at most kFastDecimals decimals.
constexpr double kFastBelow = 0x1p40;
constexpr int kFastDecimals = 6;
std::uint64_t ScaledAndRounded(double x, std::uint64_t scale) {
  int exponent;
  const auto m = static_cast<std::uint64_t>(std::frexp(x, &exponent) * 0x1p53);
  const int shift = 53 - exponent;  // at least 13
  const WideUnsigned scaled = WideUnsigned{m} * scale;
  if (shift > 100) return 0;  // scaled is below 2^73: far below a half
  const WideUnsigned half = WideUnsigned{1} << (shift - 1);
  return RoundedUp(static_cast<std::uint64_t>(scaled >> shift), scaled & ((half << 1) - 1), half);
}

/// The text of `x` with `decimals` decimals and a full stop.
char* WriteFastFixed(char* out, double x, int decimals) {
  const std::uint64_t scale = kPowers.ten[decimals];
  const std::uint64_t scaled = ScaledAndRounded(std::fabs(x), scale);
  if (std::signbit(x)) *out++ = '-';
  char* stop = std::to_chars(out, out + RealFormat::kRoom, scaled / scale).ptr;
  *stop = '.';
  std::uint64_t rest = scaled % scale;
  for (int k = decimals; k > 0; --k, rest /= 10) stop[k] = static_cast<char>('0' + rest % 10);
  return stop + 1 + decimals;
}
#endif

/// "%.{decimals}f", with a fast path for most numbers.
char* WriteFixed(char* out, double x, int decimals) {
#ifdef __SIZEOF_INT128__
  if (std::fabs(x) < kFastBelow && decimals <= kFastDecimals)
    return WriteFastFixed(out, x, decimals);
#endif
  return ToChars(out, out + RealFormat::kRoom, x, Digits::kFixed, decimals);
}

/// The exponent of a decimal, in at least `fewest` digits; at most 2 are needed.
char* WriteExponent(char* out, int exponent, int fewest) {
  *out++ = 'e';
  *out++ = exponent < 0 ? '-' : '+';
  if (fewest == 3) *out++ = '0';
  const int size = exponent < 0 ? -exponent : exponent;
  *out++ = static_cast<char>('0' + size / 10);
  *out++ = static_cast<char>('0' + size % 10);
  return out;
}

/// "%.{decimals}e", likewise.
char* WriteScientific(char* out, double x, int decimals, int exponentDigits) {
  Decimal decimal;
  if (decimals < kMostDecimalDigits && RoundToDecimal(x, decimals + 1, decimal)) {
    if (std::signbit(x)) *out++ = '-';
    char* const end = WriteDigits(out + 1, decimal.digits);
    out[0] = out[1];
    out[1] = '.';
    return WriteExponent(end, decimal.exponent, exponentDigits);
  }
  char* end = ToChars(out, out + RealFormat::kRoom, x, Digits::kScientific, decimals);
  return exponentDigits == 3 ? WidenExponent(end) : end;
}

}  // namespace

NumberConventions NumberConventions::Current() {
  return kPortableMath ? NumberConventions{true, 2, ".", true} : OfRuntime();
}

NumberConventions NumberConventions::OfRuntime() {
  if (!RoundsToNearest()) return {false, 2, DecimalPoint(), false};
  static const Runtime runtime = AskRuntime();
  return {runtime.exact, runtime.exponentDigits, DecimalPoint(), false};
}

RealFormat::RealFormat(const char* conversion, Notation notation, int decimals,
                       const NumberConventions& conventions)
    : conversion_(conversion),
      notation_(notation),
      decimals_(decimals),
      conventions_(conventions),
      pointSize_(std::strlen(conventions.point)),
      fullStop_(std::strcmp(conventions.point, ".") == 0) {}

char* RealFormat::Write(char* out, double x) const {
  if (conventions_.exact && std::isfinite(x)) return WriteExactly(out, x);
  if (conventions_.ownNames) return WritePadded(out, x);
  return out + std::snprintf(out, kRoom, conversion_, x);
}

std::size_t RealFormat::Columns(double x, std::size_t size) const {
  return std::isfinite(x) ? size - (pointSize_ - 1) : size;
}

char* RealFormat::WriteExactly(char* out, double x) const {
  char* end = notation_ == Notation::kScientific
                  ? WriteScientific(out, x, decimals_, conventions_.exponentDigits)
                  : WriteFixed(out, x, decimals_);
  return fullStop_ ? end : InsertPoint(out, end);
}

/// A name, padded to the width and on the side that the conversion gives.
char* RealFormat::WritePadded(char* out, double x) const {
  const char* flags = conversion_ + 1;
  const bool left = *flags == '-';
  const std::ptrdiff_t width = std::strtol(left ? flags + 1 : flags, nullptr, 10);
  char* end = WriteNonFinite(out, x);
  const std::ptrdiff_t blanks = std::max<std::ptrdiff_t>(width - (end - out), 0);
  if (!left) end = Shift(out, end, static_cast<std::size_t>(blanks));
  std::memset(left ? end : out, ' ', static_cast<std::size_t>(blanks));
  return left ? end + blanks : end;
}

/// The full stop follows the first digit, or precedes the decimals.
char* RealFormat::InsertPoint(char* text, char* end) const {
  char* stop = notation_ == Notation::kScientific ? text + 1 + (*text == '-') : end - decimals_ - 1;
  end = Shift(stop + 1, end, pointSize_ - 1);
  std::memcpy(stop, conventions_.point, pointSize_);
  return end;
}

char* WriteNonFinite(char* out, double x) {
  if (std::signbit(x)) *out++ = '-';
  return std::copy_n(std::isnan(x) ? "nan" : "inf", 3, out);
}

char* WriteInt(char* out, int value, int width) {
  char* end = std::to_chars(out, out + kIntRoom, value).ptr;
  while (end < out + width) *end++ = ' ';
  return end;
}

}  // namespace zeph::platform
