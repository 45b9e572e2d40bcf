// CString::Format against the runtime's printf: the same bytes for every format, number, locale and
// rounding direction.
#include "platform/quick_format.h"

#include <cfenv>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "platform.h"
#include "support/locales.h"
#include "support/numbers.h"
#include "support/scale.h"

using namespace zeph::test;

namespace {

/// The runtime's text. The formats are made at run time, so the compiler cannot check them.
template <class... Args>
std::string Printed(const std::string& format, Args... args) {
  const auto print = &std::snprintf;
  std::string text(static_cast<std::size_t>(print(nullptr, 0, format.c_str(), args...)) + 1, '\0');
  print(text.data(), text.size(), format.c_str(), args...);
  text.pop_back();
  return text;
}

template <class... Args>
std::string Formatted(const std::string& format, Args... args) {
  CString text("before");
  const auto member = &CString::Format;
  (text.*member)(format.c_str(), args...);
  CString appended("before");
  const auto append = &CString::AppendFormat;
  (appended.*append)(format.c_str(), args...);
  const std::string made(text.GetString(), static_cast<std::size_t>(text.GetLength()));
  EXPECT_EQ(std::string(appended.GetString(), static_cast<std::size_t>(appended.GetLength())),
            "before" + made);
  return made;
}

/// Whether the fast path accepts the format.
bool IsQuick(const char* format, ...) {
  char text[512];
  va_list list;
  va_start(list, format);
  zeph::platform::Arguments arguments(list);
  va_end(list);
  return zeph::platform::WriteQuickly(text, text + sizeof text, format, arguments) != nullptr;
}

/// A block of 60 characters after the formatter was given its first `room` to write into.
std::string WrittenInto(std::size_t room, const char* format, ...) {
  std::string block(60, '#');
  va_list list;
  va_start(list, format);
  zeph::platform::Arguments arguments(list);
  va_end(list);
  zeph::platform::WriteQuickly(block.data(), block.data() + room, format, arguments);
  return block;
}

/// As many characters as the longest number has, and the room for one.
constexpr std::size_t kLongNumbers = 900;

/// What stands behind the first `room` characters of a block after a number was written into them, and the number.
std::pair<std::string, std::string> RealWrittenInto(std::size_t room, const char* format, ...) {
  std::string block(kLongNumbers, '#');
  va_list list;
  va_start(list, format);
  zeph::platform::Arguments arguments(list);
  va_end(list);
  const char* const end =
      zeph::platform::WriteQuickly(block.data(), block.data() + room, format, arguments);
  const std::size_t size = end ? static_cast<std::size_t>(end - block.data()) : 0;
  return {block.substr(room), block.substr(0, size)};
}

/// Every flag, width and precision that a format may have before its letter, and some that it may not.
std::vector<std::string> Conversions() {
  std::vector<std::string> all;
  for (const char* flags : {"", "-", "0", "+", " ", "#", "-0", "--", "'"})
    for (const char* width : {"", "1", "5", "12", "40", "99", "100", "600"})
      for (const char* precision :
           {"", ".", ".0", ".1", ".3", ".6", ".17", ".32", ".33", ".99", ".100", ".-2"})
        all.push_back(std::string("%") + flags + width + precision);
  return all;
}

template <class T>
void CompareAll(const std::vector<std::string>& letters, const std::vector<T>& values) {
  for (const std::string& conversion : Conversions())
    for (const std::string& letter : letters) {
      const std::string format = "<" + conversion + letter + ">%%";
      for (const T value : values)
        ASSERT_EQ(Formatted(format, value), Printed(format, value)) << format;
    }
}

std::vector<double> Reals() {
  std::vector<double> values = SpecialValues<double>();
  for (const double x : Moderate(zeph::test::Scaled(20u, 4u), 7)) values.push_back(x);
  for (const double x : {0.5, 1.5, 2.5, 0.125, 1e15, 9.9999995, 999999.5, 1e-7, 1e22, -1e-300})
    values.push_back(x);
  return values;
}

}  // namespace

TEST(QuickFormat, WritesWholeNumbersAsTheRuntimeDoes) {
  CompareAll<int>({"d", "i", "x", "o", "hd"}, {0, 1, -1, 42, -12345, INT_MAX, INT_MIN});
  CompareAll<unsigned>({"u", "X"}, {0u, 7u, UINT_MAX});
  CompareAll<long>({"ld", "li"}, {0, -5, LONG_MAX, LONG_MIN});
  CompareAll<long long>({"lld", "lli"}, {0, -5, LLONG_MAX, LLONG_MIN});
  CompareAll<unsigned long>({"lu", "lx"}, {0, 5, ULONG_MAX});
  CompareAll<unsigned long long>({"llu"}, {0, 5, ULLONG_MAX});
}

/// A number may be passed in a register or a place of the stack that is wider than it is, and whose other half holds
/// anything: here that of the number it was cut from.
TEST(QuickFormat, WritesTheLowerHalfOfALongNumber) {
  volatile unsigned long long wide = 0xfedcba9800000007;
  CString text;
  text.Format("%u %d", static_cast<unsigned>(wide), static_cast<int>(wide));
  EXPECT_STREQ(text.GetString(), "7 7");
  text.Format("%d%d%d%d%d%d%d%d %u %d", 1, 2, 3, 4, 5, 6, 7, 8, static_cast<unsigned>(wide),
              static_cast<int>(wide));
  EXPECT_STREQ(text.GetString(), "12345678 7 7");
}

TEST(QuickFormat, WritesTextsAndCharactersAsTheRuntimeDoes) {
  const std::string nearly(505, 'x'), longer(2000, 'y');
  CompareAll<const char*>({"s"},
                          {"", "a", "some text", "\xC3\xA4%d", nearly.c_str(), longer.c_str()});
  CompareAll<int>({"c"}, {'a', '%', ' ', 0, 0xE4});
}

TEST(QuickFormat, WritesRealNumbersAsTheRuntimeDoes) {
  CompareAll<double>({"f", "lf", "e", "le", "g", "a", "E", "F"}, Reals());
}

/// Every count of decimals with numbers of every magnitude that whole-number arithmetic might be thought to hold.
TEST(QuickFormat, WritesAnyDecimalsOfNumbersOfAnyMagnitudeAsTheRuntimeDoes) {
  const int each = zeph::test::Scaled(1, 5);  // coprime to the counts of decimals
  int number = 0;
  for (int exponent = -80; exponent <= 80; ++exponent)
    for (int decimals = 1; decimals <= 33; ++decimals)
      for (const double significand : {1.0, 0x1.9d2f3b6c4e8a7p0, 0x1.fffffffffffffp0}) {
        if (number++ % each != 0) continue;
        const double x = std::ldexp(significand, exponent);
        const std::string conversion = "%." + std::to_string(decimals);
        for (const char* letter : {"f", "e"})
          ASSERT_EQ(Formatted(conversion + letter, x), Printed(conversion + letter, x));
      }
}

TEST(QuickFormat, WritesRealNumbersAsTheRuntimeDoesInEveryRoundingDirection) {
  for (const int direction : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    std::fesetround(direction);
    for (const char* format : {"%f", "%.3lf", "%10.2e", "%.17f"})
      for (const double x : Reals()) EXPECT_EQ(Formatted(format, x), Printed(format, x)) << format;
    std::fesetround(FE_TONEAREST);
  }
}

namespace {

template <class Names>
void CompareInLocale(const Names& names) {
  const ProcessLocale locale(names);
  if (!locale.Found()) GTEST_SKIP() << "the system lacks the locale";
  for (const char* format : {"%f", "%.3lf", "%10.2e", "%-12.3f|"})
    EXPECT_EQ(Formatted(format, 1234.5), Printed(format, 1234.5)) << format;
}

}  // namespace

TEST(QuickFormat, WritesADecimalCommaAsTheRuntimeDoes) {
  CompareInLocale(kCommaLocales);
}

TEST(QuickFormat, WritesADecimalPointOfTwoBytesAsTheRuntimeDoes) {
  CompareInLocale(kWidePointLocales);
}

TEST(QuickFormat, TakesSeveralArgumentsInTheirOrder) {
  const char* const format = "%s[%5d] = %.3f, %-8lu%c%lld %% %e%s";
  EXPECT_EQ(Formatted(format, "row", -3, 2.5, 7ul, 'c', -1ll, 1e100, ""),
            Printed(format, "row", -3, 2.5, 7ul, 'c', -1ll, 1e100, ""));
  const char* const late = "%d %s %.3f %lf %08.3f %s";  // the fifth is not supported
  EXPECT_EQ(Formatted(late, 1, "two", 3.0, 4.0, 5.0, "six"),
            Printed(late, 1, "two", 3.0, 4.0, 5.0, "six"));
}

TEST(QuickFormat, FormatsTextsOfAboutTheBlocksLength) {
  for (std::size_t size = 440; size < 530; ++size) {
    const std::string text(size, 'x');
    for (const char* format : {"%s", "%s%d", "%s%20d", "%sabcdefgh", "%s%c", "%s%%"})
      EXPECT_EQ(Formatted(format, text.c_str(), 42), Printed(format, text.c_str(), 42)) << size;
    EXPECT_EQ(Formatted("%s%.3f", text.c_str(), 4.25), Printed("%s%.3f", text.c_str(), 4.25))
        << size;
  }
}

TEST(QuickFormat, WritesNothingBeyondItsBuffer) {
  for (std::size_t room = 0; room <= 50; ++room) {
    const std::string untouched(60 - room, '#');
    for (const char* format :
         {"%s", "%12s", "%-12s", "%40s", "%-40s", "before%30s%%", "a longer beginning%s"})
      EXPECT_EQ(WrittenInto(room, format, "a text").substr(room), untouched) << format;
    for (const char* format : {"%d", "%30d", "%-30d", "%d%%"})
      EXPECT_EQ(WrittenInto(room, format, -123456).substr(room), untouched) << format;
    for (const char* format : {"%c", "%20c", "%-20c%%"})
      EXPECT_EQ(WrittenInto(room, format, 'x').substr(room), untouched) << format;
  }
}

TEST(QuickFormat, WritesNoPartOfANumberBeyondItsBuffer) {
  for (std::size_t room = 0; room < kLongNumbers; room += room < 500 ? 1 : 37)
    for (const double x : {-1.7976931348623157e308, 1e300, 0.5, -2.5e-308})
      for (const char* format :
           {"%f", "%.32f", "%.17e", "%99.1f", "some text %-99.3f", "%.33f", "%.99f"}) {
        const auto [behind, text] = RealWrittenInto(room, format, x);
        ASSERT_EQ(behind, std::string(kLongNumbers - room, '#')) << format << " of " << x;
        ASSERT_TRUE(text.empty() || text == Printed(format, x)) << format << ": " << text;
      }
}

TEST(QuickFormat, HandlesTheUsualFormats) {
  EXPECT_TRUE(IsQuick("plain, 100%%"));
  EXPECT_TRUE(IsQuick("%s: %d of %u", "item", 3, 4u));
  EXPECT_TRUE(IsQuick("%-10s|%5d|%c|%ld|%llu", "item", 3, 'c', 4l, 5ull));
  EXPECT_FALSE(IsQuick("%05d", 3));
  EXPECT_FALSE(IsQuick("%x", 3));
  EXPECT_FALSE(IsQuick("%", 3));
#ifdef __GLIBC__
  EXPECT_TRUE(IsQuick("%lf %.3f %10.4le", 1.0, 2.0, 3.0));
#endif
}
