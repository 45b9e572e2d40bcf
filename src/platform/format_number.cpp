// SPDX-License-Identifier: MIT
#include "platform/format_number.h"

#include <algorithm>
#include <cfenv>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace zeph::platform {
namespace {

/// What the C runtime does with digits. Runtimes are known that print exponents of three digits,
/// round ties away from even, or fill up with zeros after 17 digits.
struct Runtime {
  bool exact;
  int exponentDigits;
};

bool Prints(const char* conversion, double x, const char* text) {
  char buffer[RealFormat::kRoom];
  std::snprintf(buffer, sizeof buffer, conversion, x);
  return std::strcmp(buffer, text) == 0;
}

/// Without decimals, so that no locale's decimal point gets in the way.
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
  if (digits[-1] != '+' && digits[-1] != '-') return end;  // has three already
  end = Shift(digits, end, 1);
  *digits = '0';
  return end;
}

}  // namespace

NumberConventions NumberConventions::Current() {
  static const Runtime runtime = AskRuntime();
  return {runtime.exact && RoundsToNearest(), runtime.exponentDigits,
          std::localeconv()->decimal_point};
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
  return out + std::snprintf(out, kRoom, conversion_, x);
}

char* RealFormat::WriteExactly(char* out, double x) const {
  const bool scientific = notation_ == Notation::kScientific;
  const auto form = scientific ? std::chars_format::scientific : std::chars_format::fixed;
  char* end = std::to_chars(out, out + kRoom, x, form, decimals_).ptr;
  if (scientific && conventions_.exponentDigits == 3) end = WidenExponent(end);
  return fullStop_ ? end : InsertPoint(out, end);
}

/// The full stop stands after the first digit, or before the decimals.
char* RealFormat::InsertPoint(char* text, char* end) const {
  char* stop = notation_ == Notation::kScientific ? text + 1 + (*text == '-') : end - decimals_ - 1;
  end = Shift(stop + 1, end, pointSize_ - 1);
  std::memcpy(stop, conventions_.point, pointSize_);
  return end;
}

char* WriteInt(char* out, int value, int width) {
  char* end = std::to_chars(out, out + kIntRoom, value).ptr;
  while (end < out + width) *end++ = ' ';
  return end;
}

}  // namespace zeph::platform
