#include "platform/stream_number.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "support/numbers.h"

using zeph::platform::WritePortably;

namespace {

struct Settings {
  std::ios_base::fmtflags flags;
  int precision, width;
  char fill;
};

void Apply(std::ostream& os, const Settings& settings) {
  os.flags(settings.flags);
  os.precision(settings.precision);
  os.width(settings.width);
  os.fill(settings.fill);
}

std::string Written(double x, const Settings& settings) {
  std::ostringstream os;
  Apply(os, settings);
  WritePortably(os, x);
  EXPECT_EQ(os.width(), 0);
  return os.str();
}

/// Every notation with every adjustment and flag.
template <class Visit>
void ForEachSettings(Visit visit) {
  using Flags = std::ios_base;
  for (const auto notation :
       {Flags::fmtflags{}, Flags::fixed, Flags::scientific, Flags::fixed | Flags::scientific})
    for (const auto adjustment : {Flags::fmtflags{}, Flags::left, Flags::right, Flags::internal})
      for (const auto signs :
           {Flags::fmtflags{}, Flags::showpos, Flags::uppercase, Flags::showpoint,
            Flags::showpos | Flags::showpoint | Flags::uppercase})
        for (const int precision : {-1, 0, 1, 6, 17, 65, 1100, 1101})
          for (const int width : {0, 3, 30})
            visit(
                Settings{notation | adjustment | signs, precision, width, width == 3 ? ' ' : '*'});
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace

TEST(StreamNumber, WritesKnownNumbersByTheStreamsSettings) {
  using Flags = std::ios_base;
  EXPECT_EQ(Written(0.1, {{}, 6, 0, ' '}), "0.1");
  EXPECT_EQ(Written(1e100, {{}, 6, 0, ' '}), "1e+100");
  EXPECT_EQ(Written(1e-5, {{}, 6, 0, ' '}), "1e-05");
  EXPECT_EQ(Written(-kInfinity, {{}, 6, 0, ' '}), "-inf");
  EXPECT_EQ(Written(-2.5, {Flags::internal, 6, 8, '*'}), "-****2.5");
  EXPECT_EQ(Written(2.5, {Flags::showpos | Flags::fixed, 2, 0, ' '}), "+2.50");
  EXPECT_EQ(Written(3e9, {Flags::scientific | Flags::showpoint | Flags::uppercase, 0, 0, ' '}),
            "3.E+09");
  EXPECT_EQ(Written(100.0, {Flags::showpoint, 6, 0, ' '}), "100.000");
  EXPECT_EQ(Written(1e-5, {Flags::showpoint, 3, 0, ' '}), "1.00e-05");
  constexpr auto kHexadecimal = Flags::fixed | Flags::scientific;
  EXPECT_EQ(Written(-6.5, {kHexadecimal, 6, 0, ' '}), "-0x1.ap+2");
  EXPECT_EQ(Written(5e-324, {kHexadecimal, 6, 0, ' '}), "0x0.0000000000001p-1022");
  EXPECT_EQ(Written(1.0, {kHexadecimal | Flags::internal, 6, 8, '*'}), "0x**1p+0");
  EXPECT_EQ(Written(std::numeric_limits<double>::quiet_NaN(), {Flags::uppercase, 6, 5, ' '}),
            "  NAN");
}

#if defined(__GLIBC__) && defined(__GLIBCXX__)
TEST(StreamNumber, WritesWhatTheStreamsOwnInserterWrites) {
  std::vector<double> numbers = zeph::test::SpecialValues<double>();
  for (const double x : zeph::test::Awkward(40, 5)) numbers.push_back(x);
  for (const double x : zeph::test::Moderate(20, 6)) numbers.push_back(x);
  ForEachSettings([&](const Settings& settings) {
    for (const double x : numbers) {
      std::ostringstream os;
      Apply(os, settings);
      os << x;
      ASSERT_EQ(Written(x, settings), os.str())
          << settings.flags << " " << settings.precision << " " << settings.width;
    }
  });
}
#endif

TEST(StreamNumber, LeavesOtherLocalesToTheStream) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  std::ostringstream os;
  os.imbue(std::locale(std::locale::classic(), new Comma));
  WritePortably(os, 2.5);
  EXPECT_EQ(os.str(), "2,5");
}

TEST(StreamNumber, ReportsAStreamThatCannotBeWritten) {
  std::ostream nowhere(nullptr);
  WritePortably(nowhere, 2.5);
  EXPECT_TRUE(nowhere.fail());
}
