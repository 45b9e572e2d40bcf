// SPDX-License-Identifier: MIT
#include "platform/stream_number.h"

#include <algorithm>
#include <cfenv>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <locale>
#include <string_view>

#include "platform/decimal_digits.h"
#include "platform/format_number.h"
#include "platform/to_chars.h"

namespace zeph::platform {
namespace {

using Flags = std::ios_base;

enum class Notation { kFixed, kScientific, kGeneral, kHexadecimal };

Notation NotationOf(Flags::fmtflags flags) {
  if ((flags & Flags::fixed) && (flags & Flags::scientific)) return Notation::kHexadecimal;
  if (flags & Flags::fixed) return Notation::kFixed;
  return flags & Flags::scientific ? Notation::kScientific : Notation::kGeneral;
}

/// A decimal point without decimals precedes the exponent.
char* PutPointAtTheEnd(char* text, char* end, char exponentMark) {
  char* const exponent = std::find(text, end, exponentMark);
  std::copy_backward(exponent, end, end + 1);
  *exponent = '.';
  return end + 1;
}

/// The exponent after the last 'e' of a text in scientific notation.
int ExponentOf(const char* text, const char* end) {
  const char* digits = std::find(text, end, 'e') + 1;
  const bool negative = *digits++ == '-';
  int exponent = 0;
  std::from_chars(digits, end, exponent);
  return negative ? -exponent : exponent;
}

/// "%#.{precision}g", by the rule of the C standard: that many digits, with trailing zeros.
char* WriteAllDigits(char* out, char* end, double x, int precision) {
  const int digits = std::max(precision, 1);
  char* stop = ToChars(out, end, x, Digits::kScientific, digits - 1);
  const int exponent = ExponentOf(out, stop);
  if (exponent >= -4 && exponent < digits)
    stop = ToChars(out, end, x, Digits::kFixed, digits - 1 - exponent);
  return std::find(out, stop, '.') == stop ? PutPointAtTheEnd(out, stop, 'e') : stop;
}

/// "%a": 1, or 0 for zeros and denormals, before the point, and as many digits as needed after it.
char* WriteHexadecimal(char* out, char* end, double x, bool point) {
  constexpr int kFractionBits = 52, kBias = 1023, kMostDigits = 13;
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  if (bits >> 63 != 0) *out++ = '-';
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << kFractionBits) - 1);
  const auto biased = static_cast<int>(bits >> kFractionBits & 0x7ff);
  *out++ = '0';
  *out++ = 'x';
  *out++ = biased == 0 ? '0' : '1';
  if (fraction != 0 || point) *out++ = '.';
  char* const firstDigit = out;
  for (int digit = 1; digit <= kMostDigits; ++digit)
    *out++ = "0123456789abcdef"[fraction >> (kFractionBits - 4 * digit) & 0xf];
  while (out > firstDigit && out[-1] == '0') --out;
  const int exponent = biased != 0 ? biased - kBias : fraction != 0 ? 1 - kBias : 0;
  *out++ = 'p';
  if (exponent >= 0) *out++ = '+';
  return std::to_chars(out, end, exponent).ptr;
}

/// The digits, of which the last is not 0, with the point, zeros and exponent of "%g".
char* ArrangeDigits(char* out, const char* digits, int count, int exponent, int precision) {
  if (exponent < -4 || exponent >= precision) {
    *out++ = *digits;
    if (count > 1) *out++ = '.';
    out = std::copy(digits + 1, digits + count, out);
    *out++ = 'e';
    *out++ = exponent < 0 ? '-' : '+';
    const int size = exponent < 0 ? -exponent : exponent;
    *out++ = static_cast<char>('0' + size / 10);  // RoundToDecimal gives exponents of two digits
    *out++ = static_cast<char>('0' + size % 10);
    return out;
  }
  if (exponent < 0) {
    *out++ = '0';
    *out++ = '.';
    out = std::fill_n(out, -exponent - 1, '0');
    return std::copy(digits, digits + count, out);
  }
  const int whole = std::min(exponent + 1, count);
  out = std::copy(digits, digits + whole, out);
  if (count == whole) return std::fill_n(out, exponent + 1 - whole, '0');
  *out++ = '.';
  return std::copy(digits + whole, digits + count, out);
}

/// "%.{precision}g", with a fast path for most numbers.
char* WriteGeneral(char* out, char* end, double x, int precision) {
  const int count = std::max(precision, 1);
  Decimal decimal;
  if (count > kMostDecimalDigits || !RoundToDecimal(x, count, decimal))
    return ToChars(out, end, x, Digits::kGeneral, precision);
  char digits[kMostDecimalDigits] = {};  // or g++ for Windows warns that they may be unset
  const char* last = WriteDigits(digits, decimal.digits);
  while (last[-1] == '0') --last;
  if (std::signbit(x)) *out++ = '-';
  return ArrangeDigits(out, digits, static_cast<int>(last - digits), decimal.exponent, count);
}

char* WriteFinite(char* out, char* end, double x, Notation notation, int precision, bool point) {
  if (notation == Notation::kHexadecimal) return WriteHexadecimal(out, end, x, point);
  if (notation == Notation::kGeneral)
    return point ? WriteAllDigits(out, end, x, precision) : WriteGeneral(out, end, x, precision);
  const Digits digits = notation == Notation::kFixed ? Digits::kFixed : Digits::kScientific;
  char* const stop = ToChars(out, end, x, digits, precision);
  return point && precision == 0 ? PutPointAtTheEnd(out, stop, 'e') : stop;
}

/// Writes `x` by the stream's flags and precision, without width and fill. Returns the end.
char* WriteReal(char* begin, char* end, double x, Flags::fmtflags flags, int precision) {
  const Notation notation = NotationOf(flags);
  const bool point = (flags & Flags::showpoint) != 0;
  char* out = begin;
  if ((flags & Flags::showpos) && !std::signbit(x)) *out++ = '+';
  char* const stop = std::isfinite(x) ? WriteFinite(out, end, x, notation, precision, point)
                                      : WriteNonFinite(out, x);
  // Fixed notation has no upper-case form, not even for "nan".
  if ((flags & Flags::uppercase) && notation != Notation::kFixed)
    for (char* c = begin; c < stop; ++c)
      if (*c >= 'a' && *c <= 'z') *c = static_cast<char>(*c - 'a' + 'A');
  return stop;
}

int PrecisionOf(const std::ostream& os) {
  return static_cast<int>(os.precision() < 0 ? 6 : os.precision());
}

/// The part after which `internal` puts the fill characters: a sign, or else "0x".
std::size_t HeadOf(std::string_view text) {
  if (text[0] == '-' || text[0] == '+') return 1;
  return text[0] == '0' && text.size() > 1 && (text[1] == 'x' || text[1] == 'X') ? 2 : 0;
}

/// `text` with fill characters where `internal` puts them; other adjustments work as for strings.
std::ostream& Insert(std::ostream& os, std::string_view text) {
  const auto size = static_cast<std::streamsize>(text.size());
  const auto head = static_cast<std::streamsize>(HeadOf(text));
  if ((os.flags() & Flags::adjustfield) != Flags::internal || head == 0 || os.width() <= size)
    return os << text;
  const std::streamsize rest = os.width() - head;
  os.width(0);
  os << text.substr(0, HeadOf(text));
  os.width(rest);
  return os << text.substr(HeadOf(text));
}

}  // namespace

std::ostream& WritePortably(std::ostream& os, double x) {
  if (os.precision() > kMostStreamDecimals || os.getloc() != std::locale::classic()) return os << x;
  char text[kMostStreamDecimals + 320];  // a sign, 309 digits, a point; or 1, a point, an exponent
  char* const end = WriteReal(text, text + sizeof text, x, os.flags(), PrecisionOf(os));
  return Insert(os, {text, static_cast<std::size_t>(end - text)});
}

namespace {

/// Whether this system's inserter writes the same texts as WriteReal.
#if defined(ZEPH_PORTABLE_MATH) || \
    (defined(__GLIBC__) && defined(__GLIBCXX__) && defined(__cpp_lib_to_chars))
constexpr bool kKnown = true;
#else
constexpr bool kKnown = false;
#endif

/// The runtime uses the process's rounding direction, WriteReal rounds to nearest.
bool RoundsToNearest() {
  return kPortableMath || std::fegetround() == FE_TONEAREST;
}

constexpr int kMostPrecision = 64;

/// Whether the runtime writes all digits of "%#g". glibc loses zeros where a number is rounded up to a power of
/// ten that has an exponent: 99.6 with two digits is "1.e+02" there, not "1.0e+02".
bool KeepsZeros(Flags::fmtflags flags) {
  return kPortableMath || !(flags & Flags::showpoint) || NotationOf(flags) != Notation::kGeneral;
}

/// Streams that flush after every insertion get each one separately.
bool TextsAreKnown(const std::ostream& os) {
  return kKnown && (os.flags() & Flags::unitbuf) == 0 && KeepsZeros(os.flags()) &&
         os.precision() <= kMostPrecision && os.getloc() == std::locale::classic() &&
         RoundsToNearest();
}

}  // namespace

StreamWriter::StreamWriter(std::ostream& os) : os_(os), known_(TextsAreKnown(os)) {
  static_assert(kLongestReal >= RealFormat::kRoom + kMostPrecision && kLongestReal < sizeof block_);
}

/// Whether the next item, of at most `room` bytes, goes into the block, which then has space for
/// it. A width applies to the first item only and is left to the stream.
bool StreamWriter::Gathers(std::size_t room) {
  if (!known_ || room > sizeof block_ || os_.width() != 0) return false;
  if (room > sizeof block_ - size_) {
    os_.write(block_, static_cast<std::streamsize>(size_));
    size_ = 0;
  }
  last_ = size_;
  return true;
}

void StreamWriter::Text(std::string_view text) {
  if (!Gathers(text.size())) {
    Flush();
    os_ << text;
    return;
  }
  std::copy(text.begin(), text.end(), block_ + size_);
  size_ += text.size();
}

void StreamWriter::Real(double x) {
  if (!Gathers(kLongestReal)) {
    Flush();
    os_ << Number{x};
    return;
  }
  const char* const end =
      WriteReal(block_ + size_, block_ + sizeof block_, x, os_.flags(), PrecisionOf(os_));
  size_ = static_cast<std::size_t>(end - block_);
}

void StreamWriter::EndLine() {
  Flush();
  os_ << std::endl;
}

/// The last item is written separately: if the stream fails at an earlier one, its state must show
/// that one more was tried.
void StreamWriter::Flush() {
  if (size_ == 0) return;
  const std::size_t size = size_;
  size_ = 0;
  if (last_ > 0) os_.write(block_, static_cast<std::streamsize>(last_));
  os_.write(block_ + last_, static_cast<std::streamsize>(size - last_));
}

}  // namespace zeph::platform
