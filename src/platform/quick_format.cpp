// SPDX-License-Identifier: MIT
#include "platform/quick_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>

#include "platform/format_number.h"

namespace zeph::platform {
namespace {

enum class Size { kInt, kLong, kLongLong };

struct Conversion {
  bool left = false;
  int width = 0;
  int precision = -1;
  Size size = Size::kInt;
  char kind = 0;
};

/// A number of at most two digits.
const char* ParseNumber(const char* at, int& number) {
  number = 0;
  for (int digits = 0; digits < 2 && *at >= '0' && *at <= '9'; ++digits)
    number = number * 10 + (*at++ - '0');
  return at;
}

/// Parses what follows a '%'; an unknown flag is taken for the conversion's letter, which is
/// unknown then too.
const char* Parse(const char* at, Conversion& conversion) {
  if (*at == '-') {
    conversion.left = true;
    ++at;
  }
  if (*at != '0') at = ParseNumber(at, conversion.width);
  if (*at == '.') at = ParseNumber(at + 1, conversion.precision);
  if (*at == 'l') {
    conversion.size = *++at == 'l' ? Size::kLongLong : Size::kLong;
    if (*at == 'l') ++at;
  }
  conversion.kind = *at;
  return at + (*at != '\0');
}

/// Whether it is an integer, character or text conversion without a precision.
bool IsPlain(const Conversion& conversion) {
  return conversion.precision < 0 && (conversion.size == Size::kInt || conversion.kind == 'd' ||
                                      conversion.kind == 'i' || conversion.kind == 'u');
}

/// The runtime's conventions for numbers, looked up at the first number.
class Reals {
 public:
  bool AreKnown() {
    if (!asked_) conventions_ = NumberConventions::OfRuntime();
    asked_ = true;
    return conventions_.exact && std::strcmp(conventions_.point, ".") == 0;
  }
  char* Write(char* out, double x, RealFormat::Notation notation, int decimals) const {
    return RealFormat("", notation, decimals, conventions_).Write(out, x);
  }

 private:
  NumberConventions conventions_{};
  bool asked_ = false;
};

class Writer {
 public:
  Writer(char* out, const char* last, Arguments& arguments)
      : out_(out), last_(last), arguments_(arguments) {}

  bool Literal(const char* text, std::size_t size) {
    if (size > Room()) return false;
    out_ = std::copy_n(text, size, out_);
    return true;
  }

  /// Reads no more of a text that is too long than would have fitted.
  bool Text(const char* text) {
    const void* const end = std::memchr(text, '\0', Room() + 1);
    return end && Literal(text, static_cast<std::size_t>(static_cast<const char*>(end) - text));
  }

  bool Item(const Conversion& conversion) {
    char* const begin = out_;
    return Convert(conversion) && Pad(begin, conversion);
  }

  char* End() const { return out_; }

 private:
  std::size_t Room() const { return static_cast<std::size_t>(last_ - out_); }

  bool Convert(const Conversion& conversion) {
    switch (conversion.kind) {
      case 'd':
      case 'i':
        return IsPlain(conversion) && Whole(Signed(conversion.size));
      case 'u':
        return IsPlain(conversion) && Whole(Unsigned(conversion.size));
      case 'c': {
        const char c = static_cast<char>(va_arg(arguments_.list, int));
        return IsPlain(conversion) && Literal(&c, 1);
      }
      case 's': {
        const char* const text = va_arg(arguments_.list, const char*);
        return IsPlain(conversion) && text && Text(text);
      }
      case 'f':
        return Real(conversion, RealFormat::Notation::kFixed);
      case 'e':
        return Real(conversion, RealFormat::Notation::kScientific);
      default:
        return false;
    }
  }

  long long Signed(Size size) {
    if (size == Size::kInt) return va_arg(arguments_.list, int);
    return size == Size::kLong ? va_arg(arguments_.list, long) : va_arg(arguments_.list, long long);
  }
  unsigned long long Unsigned(Size size) {
    if (size == Size::kInt) return va_arg(arguments_.list, unsigned);
    return size == Size::kLong ? va_arg(arguments_.list, unsigned long)
                               : va_arg(arguments_.list, unsigned long long);
  }

  template <class T>
  bool Whole(T value) {
    constexpr std::size_t kLongest = 20;
    if (Room() < kLongest) return false;
    out_ = std::to_chars(out_, out_ + kLongest, value).ptr;
    return true;
  }

  bool Real(const Conversion& conversion, RealFormat::Notation notation) {
    const double x = va_arg(arguments_.list, double);
    const int decimals = conversion.precision < 0 ? 6 : conversion.precision;
    if (conversion.size == Size::kLongLong || decimals < 1 || decimals > RealFormat::kMostDecimals)
      return false;
    if (!std::isfinite(x) || !reals_.AreKnown() || Room() < RealFormat::kRoom) return false;
    out_ = reals_.Write(out_, x, notation, decimals);
    return true;
  }

  bool Pad(char* begin, const Conversion& conversion) {
    const auto size = static_cast<std::size_t>(out_ - begin);
    const auto width = static_cast<std::size_t>(conversion.width);
    if (width <= size) return true;
    if (width - size > Room()) return false;
    const std::size_t blanks = width - size;
    if (!conversion.left) std::memmove(begin + blanks, begin, size);
    std::memset(conversion.left ? out_ : begin, ' ', blanks);
    out_ += blanks;
    return true;
  }

  char* out_;
  const char* last_;
  Arguments& arguments_;
  Reals reals_;
};

}  // namespace

char* WriteQuickly(char* out, const char* last, const char* format, Arguments& arguments) {
  Writer writer(out, last, arguments);
  for (;;) {
    const char* percent = format;
    while (*percent != '%' && *percent != '\0') ++percent;
    if (!writer.Literal(format, static_cast<std::size_t>(percent - format))) return nullptr;
    if (*percent == '\0') return writer.End();
    format = percent + 1;
    if (*format == '%') {
      if (!writer.Literal(format++, 1)) return nullptr;
      continue;
    }
    Conversion conversion;
    format = Parse(format, conversion);
    if (!writer.Item(conversion)) return nullptr;
  }
}

}  // namespace zeph::platform
