// SPDX-License-Identifier: MIT
#include "platform/stream_number.h"

#include <algorithm>
#include <cmath>
#include <locale>
#include <string_view>

#include "platform/format_number.h"
#include "platform/to_chars.h"

namespace zeph::platform {
namespace {

using Flags = std::ios_base;

bool IsHexadecimal(Flags::fmtflags flags) {
  return (flags & Flags::floatfield) == (Flags::fixed | Flags::scientific);
}

Digits NotationOf(Flags::fmtflags flags) {
  if (flags & Flags::fixed) return Digits::kFixed;
  return flags & Flags::scientific ? Digits::kScientific : Digits::kGeneral;
}

char* WriteFinite(char* out, char* end, double x, Digits notation, int precision, bool point) {
  char* const stop = ToChars(out, end, x, notation, precision);
  if (!point || precision > 0) return stop;
  // A point that no decimals follow stands before the exponent.
  char* const exponent = std::find(out, stop, 'e');
  std::copy_backward(exponent, stop, stop + 1);
  *exponent = '.';
  return stop + 1;
}

/// `text` with the fill characters that `internal` puts behind its sign; the other adjustments are
/// those of strings.
std::ostream& Insert(std::ostream& os, std::string_view text) {
  const auto size = static_cast<std::streamsize>(text.size());
  const bool sign = text[0] == '-' || text[0] == '+';
  if ((os.flags() & Flags::adjustfield) != Flags::internal || !sign || os.width() <= size)
    return os << text;
  const std::streamsize rest = os.width() - 1;
  os.width(0);
  os << text[0];
  os.width(rest);
  return os << text.substr(1);
}

}  // namespace

std::ostream& WritePortably(std::ostream& os, double x) {
  const Flags::fmtflags flags = os.flags();
  const Digits notation = NotationOf(flags);
  const bool general = notation == Digits::kGeneral;
  const bool point = (flags & Flags::showpoint) != 0;
  const auto precision = static_cast<int>(os.precision() < 0 ? 6 : os.precision());
  if (IsHexadecimal(flags) || (general && point) || precision > kMostStreamDecimals ||
      os.getloc() != std::locale::classic())
    return os << x;

  char text[RealFormat::kRoom];
  char* out = text;
  if ((flags & Flags::showpos) && !std::signbit(x)) *out++ = '+';
  char* const end = std::isfinite(x)
                        ? WriteFinite(out, text + sizeof text, x, notation, precision, point)
                        : WriteNonFinite(out, x);
  // Fixed notation has no capital form: not for "nan" either.
  if ((flags & Flags::uppercase) && notation != Digits::kFixed)
    for (char* c = text; c < end; ++c)
      if (*c >= 'a' && *c <= 'z') *c = static_cast<char>(*c - 'a' + 'A');
  return Insert(os, {text, static_cast<std::size_t>(end - text)});
}

}  // namespace zeph::platform
