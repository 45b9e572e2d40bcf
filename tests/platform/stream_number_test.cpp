#include "platform/stream_number.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "support/not_finite.h"
#include "support/numbers.h"
#include "support/scale.h"

using zeph::platform::WritePortably;

namespace {

using zeph::test::kInfinity;
using zeph::test::kNaN;

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
  // A seventh is a fair sample: 7 divides none of the loops' lengths.
  const int each = zeph::test::Scaled(1, 7);
  int number = 0;
  for (const auto notation :
       {Flags::fmtflags{}, Flags::fixed, Flags::scientific, Flags::fixed | Flags::scientific})
    for (const auto adjustment : {Flags::fmtflags{}, Flags::left, Flags::right, Flags::internal})
      for (const auto signs :
           {Flags::fmtflags{}, Flags::showpos, Flags::uppercase, Flags::showpoint,
            Flags::showpos | Flags::showpoint | Flags::uppercase})
        for (const int precision : {-1, 0, 1, 6, 17, 18, 20, 27, 65, 1100, 1101})
          for (const int width : {0, 3, 30})
            if (number++ % each == 0)
              visit(Settings{notation | adjustment | signs, precision, width,
                             width == 3 ? ' ' : '*'});
}

/// Powers of ten and numbers that rounding to that many digits may make one.
std::vector<double> AroundPowersOfTen(int precision) {
  std::vector<double> numbers;
  for (int power = -8; power <= 18; ++power) {
    const double ten = std::pow(10.0, power), unit = ten * std::pow(10.0, -precision);
    for (const double x : {ten, std::nextafter(ten, 0.0), std::nextafter(ten, kInfinity),
                           ten - 0.4 * unit, ten - 0.5 * unit, ten - 0.06 * unit})
      numbers.push_back(x);
  }
  return numbers;
}

}  // namespace

TEST(StreamNumber, WritesKnownNumbersInTheStreamsFormat) {
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
  EXPECT_EQ(Written(kNaN, {Flags::uppercase, 6, 5, ' '}), "  NAN");
}

#if defined(__GLIBC__) && defined(__GLIBCXX__)
TEST(StreamNumber, MatchesTheStreamsInserter) {
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

namespace {

std::string Inserted(double x, const Settings& settings) {
  std::ostringstream os;
  Apply(os, settings);
  os << x;
  return os.str();
}

/// The stream's text, but that of "%#g" by the C standard: the rounded number's exponent decides its notation.
std::string Expected(double x, const Settings& settings) {
  using Flags = std::ios_base;
  if (settings.flags != Flags::showpoint) return Inserted(x, settings);
  const int digits = std::max(settings.precision, 1);
  const Settings scientific{Flags::showpoint | Flags::scientific, digits - 1, 0, ' '};
  const std::string text = Inserted(x, scientific);
  const int exponent = std::stoi(text.substr(text.find('e') + 1));
  if (exponent < -4 || exponent >= digits) return text;
  return Inserted(x, {Flags::showpoint | Flags::fixed, digits - 1 - exponent, 0, ' '});
}

}  // namespace

/// Where rounding may lead to one digit more before the point, or to another notation.
TEST(StreamNumber, MatchesTheStreamsInserterAroundPowersOfTen) {
  using Flags = std::ios_base;
  for (int precision = 0; precision <= 17; ++precision)
    for (const double x : AroundPowersOfTen(precision))
      for (const auto flags : {Flags::fmtflags{}, Flags::showpoint, Flags::fixed,
                               Flags::scientific | Flags::showpoint}) {
        const Settings settings{flags, precision, 0, ' '};
        ASSERT_EQ(Written(x, settings), Expected(x, settings)) << flags << " " << precision;
      }
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

TEST(StreamNumber, ReportsAStreamThatCannotBeWrittenTo) {
  std::ostream nowhere(nullptr);
  WritePortably(nowhere, 2.5);
  EXPECT_TRUE(nowhere.fail());
}

namespace {

/// Accepts a number of bytes, then none; counts flushes.
class Narrow : public std::streambuf {
 public:
  explicit Narrow(std::size_t room) : room_(room) {}
  std::string taken;
  int flushes = 0;

 protected:
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    const std::size_t size = std::min(room_ - taken.size(), static_cast<std::size_t>(count));
    taken.append(text, size);
    return static_cast<std::streamsize>(size);
  }
  int overflow(int c) override {
    if (taken.size() >= room_) return traits_type::eof();
    taken += static_cast<char>(c);
    return c;
  }
  int sync() override {
    ++flushes;
    return 0;
  }

 private:
  std::size_t room_;
};

/// The content and states of a stream of `room` bytes after some insertions.
struct Left {
  std::string taken;
  int flushes;
  std::ios_base::iostate state;
  std::streamsize width;
  bool thrown;
  bool operator==(const Left& other) const {
    return taken == other.taken && flushes == other.flushes && state == other.state &&
           width == other.width && thrown == other.thrown;
  }
};
template <class Insert>
Left Insertions(const Settings& settings, std::size_t room, std::ios_base::iostate thrown,
                Insert insert) {
  Narrow narrow(room);
  std::ostream os(&narrow);
  Apply(os, settings);
  os.exceptions(thrown);
  bool threw = false;
  try {
    insert(os);
  } catch (const std::ios_base::failure&) {
    threw = true;
  }
  return {narrow.taken, narrow.flushes, os.rdstate(), os.width(), threw};
}

void OneByOne(std::ostream& os, const std::vector<double>& numbers) {
  os << "numbers: ";
  for (const double x : numbers) {
    os << zeph::platform::Number{x} << ";";
    if (x == 7.0) os << std::endl;
  }
}

void InBlocks(std::ostream& os, const std::vector<double>& numbers) {
  zeph::platform::StreamWriter out(os);
  out.Text("numbers: ");
  for (const double x : numbers) {
    out.Real(x);
    out.Text(";");
    if (x == 7.0) out.EndLine();
  }
  out.Flush();
}

void ExpectTheSame(const Settings& settings, std::size_t room, std::ios_base::iostate thrown,
                   const std::vector<double>& numbers) {
  const Left blocks =
      Insertions(settings, room, thrown, [&](std::ostream& os) { InBlocks(os, numbers); });
  const Left single =
      Insertions(settings, room, thrown, [&](std::ostream& os) { OneByOne(os, numbers); });
  ASSERT_TRUE(blocks == single) << "flags " << settings.flags << " precision " << settings.precision
                                << " width " << settings.width << " room " << room << " exceptions "
                                << thrown << "\n"
                                << blocks.taken << " state " << blocks.state << "\n"
                                << single.taken << " state " << single.state;
}

constexpr std::size_t kEnough = 1000000;

}  // namespace

TEST(StreamWriter, WritesTheBytesOfSingleInsertions) {
  std::vector<double> numbers = zeph::test::SpecialValues<double>();
  numbers.push_back(7.0);
  for (const double x : zeph::test::Awkward(60, 5)) numbers.push_back(x);
  ForEachSettings([&](const Settings& settings) { ExpectTheSame(settings, kEnough, {}, numbers); });
  ExpectTheSame({std::ios_base::unitbuf, 6, 0, ' '}, kEnough, {}, numbers);
}

TEST(StreamWriter, WritesNumbersRoundedToPowersOfTenAsSingleInsertions) {
  using Flags = std::ios_base;
  for (int precision = 0; precision <= 17; ++precision)
    for (const auto notation : {Flags::fmtflags{}, Flags::fixed, Flags::scientific})
      for (const auto point : {Flags::fmtflags{}, Flags::showpoint})
        ExpectTheSame({notation | point, precision, 0, ' '}, kEnough, {},
                      AroundPowersOfTen(precision));
}

namespace {

/// A writer, and memory behind it that it has no business in.
struct Guarded {
  explicit Guarded(std::ostream& os) : out(os), behind(2000, 'Z') {
    std::fill(std::begin(next), std::end(next), 'Z');
  }
  bool IsWhole() const { return std::string(next, sizeof next) == behind; }
  zeph::platform::StreamWriter out;
  char next[2000];
  std::string behind;
};

}  // namespace

TEST(StreamWriter, KeepsItemsOfAnyLengthsWithinItsBlock) {
  zeph::test::Random random(3);
  for (std::size_t round = 0; round < zeph::test::Scaled<std::size_t>(400, 100); ++round) {
    std::ostringstream blocks, single;
    for (std::ostream* os : {&blocks, &single}) Apply(*os, {std::ios_base::fixed, 60, 0, ' '});
    Guarded guarded(blocks);
    for (int item = 0; item < 60; ++item)
      if (random.Below(3) != 0) {
        const std::string text(random.Below(700), static_cast<char>('a' + item % 26));
        guarded.out.Text(text), single << text;
      } else {
        const double x = std::ldexp(1.0, static_cast<int>(random.Below(1000)));
        guarded.out.Real(x), single << zeph::platform::Number{x};
      }
    guarded.out.Flush();
    ASSERT_TRUE(guarded.IsWhole()) << round;
    ASSERT_EQ(blocks.str(), single.str()) << round;
  }
}

TEST(StreamWriter, LeavesTheStreamStateOfSingleInsertionsWhereverItFails) {
  const std::vector<double> numbers = {1, -2.5, 7, 1e100, 0.1};
  for (std::size_t room = 0; room < 40; ++room)
    for (const std::ios_base::iostate thrown : {std::ios_base::goodbit, std::ios_base::badbit})
      ExpectTheSame({{}, 6, 0, ' '}, room, thrown, numbers);
  std::vector<double> many(3000, 1.5);  // several blocks
  for (const std::size_t room : {4095u, 4096u, 4097u, 8191u, 11000u, 12009u})
    ExpectTheSame({{}, 6, 0, ' '}, room, {}, many);
}

TEST(StreamWriter, LeavesOtherLocalesToTheStream) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  std::ostringstream os;
  os.imbue(std::locale(std::locale::classic(), new Comma));
  InBlocks(os, {2.5, 0.5});
  EXPECT_EQ(os.str(), "numbers: 2,5;0,5;");
}

namespace {

/// Counts the pieces that it is given.
struct Counting : std::streambuf {
  int pieces = 0;
  std::streamsize xsputn(const char*, std::streamsize count) override {
    ++pieces;
    return count;
  }
  int overflow(int c) override {
    ++pieces;
    return c;
  }
};

}  // namespace

TEST(StreamWriter, WritesLargeBlocks) {
  Counting counting;
  std::ostream os(&counting);
  InBlocks(os, std::vector<double>(3000, 0.25));  // 15 KB
  EXPECT_GT(counting.pieces, 2);
#if defined(__GLIBC__) && defined(__GLIBCXX__)  // where the texts are known
  EXPECT_LT(counting.pieces, 10);
#endif
}

#ifdef FE_UPWARD
TEST(StreamWriter, RoundsInTheRuntimesDirection) {
  const std::vector<double> numbers = {0.1, -0.1, 2.0 / 3, 1e22};
  for (const int direction : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    std::fesetround(direction);
    ExpectTheSame({std::ios_base::fixed, 3, 0, ' '}, kEnough, {}, numbers);
    std::fesetround(FE_TONEAREST);
  }
}
#endif
