// The digits of doubles where the standard library cannot write them: by printf, in any locale.
#include "platform/to_chars.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <clocale>
#include <string>

namespace zeph::platform {
namespace {

constexpr double kSome[] = {0.0,  -0.0,  1.0,    -2.5,    0.1,    123456.789,
                            1e22, -1e-7, 5e-324, DBL_MAX, DBL_MIN};

template <class Write>
std::string TextOf(Write write, double x, Digits digits, int precision) {
  char text[512];
  return std::string(text, write(text, text + sizeof text, x, digits, precision));
}

/// Runs `body` in each of these locales that the system has; the C locale always.
template <class Body>
void InLocales(Body body) {
  for (const char* name : {"C", "de_DE.UTF-8", "fr_FR.UTF-8", "ps_AF.UTF-8"})
    if (std::setlocale(LC_NUMERIC, name)) {
      SCOPED_TRACE(name);
      body();
    }
  std::setlocale(LC_NUMERIC, "C");
}

TEST(ToChars, MatchesPrintfInTheCLocale) {
  EXPECT_EQ(TextOf(PrintDigits, 1234.5, Digits::kFixed, 2), "1234.50");
  EXPECT_EQ(TextOf(PrintDigits, -0.00012345, Digits::kScientific, 3), "-1.234e-04");
  EXPECT_EQ(TextOf(PrintDigits, 0.1, Digits::kGeneral, 6), "0.1");
  EXPECT_EQ(TextOf(PrintDigits, 1e100, Digits::kGeneral, 6), "1e+100");
  EXPECT_EQ(TextOf(PrintDigits, 7.0, Digits::kFixed, 0), "7");
}

TEST(ToChars, BothImplementationsAgreeInEveryLocale) {
  InLocales([] {
    for (double x : kSome)
      for (Digits digits : {Digits::kFixed, Digits::kScientific, Digits::kGeneral})
        for (int precision : {0, 1, 6, 17})
          EXPECT_EQ(TextOf(PrintDigits, x, digits, precision),
                    TextOf(ToChars, x, digits, precision))
              << x << " precision " << precision;
  });
}

}  // namespace
}  // namespace zeph::platform
