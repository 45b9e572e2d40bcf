// `>>` against the stream's own extractor, a number at a time: the same values, states, positions,
// exceptions and refills, for any text, buffer and settings.
#include <cerrno>
#include <cfenv>
#include <cstdio>
#include <istream>
#include <locale>
#include <ostream>
#include <sstream>

#include "double_array/arrays.h"
#include "oracle/extraction.h"
#include "support/locales.h"
#include "support/modes.h"
#include "support/scale.h"
#include "support/stream_sources.h"

using namespace zeph::test;

namespace {

constexpr int kStorage = 64;

struct Settings {
  std::ios_base::fmtflags flags = std::ios_base::skipws | std::ios_base::dec;
  std::ios_base::iostate exceptions = std::ios_base::goodbit;
  std::locale locale = std::locale::classic();
  bool tied = false;
};

/// How the buffer supplies the text.
struct Supply {
  std::size_t portion;
  std::size_t throwing = Source::kNever;
};

/// Everything observable of an extraction.
struct Outcome {
  int size = 0;
  std::vector<double> data = std::vector<double>(kStorage, -7.0);
  std::string thrown, rest;
  std::ios_base::iostate state = {};
  int refills = 0, flushes = 0, error = 0;
  std::streamsize width = 0, precision = 0;
  std::ios_base::fmtflags flags = {};
  char fill = 0;
};

template <class Read>
Outcome After(const std::string& text, const Supply& supply, const Settings& settings, Read read) {
  Outcome seen;
  Source source(text, supply.portion, supply.throwing);
  FlushCounter flushed;
  std::ostream tied(&flushed);
  std::istream is(&source);
  is.flags(settings.flags);
  is.imbue(settings.locale);
  is.width(5);
  if (settings.tied) is.tie(&tied);
  errno = 0;
  try {
    is.exceptions(settings.exceptions);
    read(is, seen.size, seen.data);
  } catch (const std::ios_base::failure&) {
    seen.thrown = "failure";
  } catch (const std::exception& e) {
    seen.thrown = e.what();
  }
  seen.error = errno;
  seen.state = is.rdstate();
  seen.width = is.width();
  seen.precision = is.precision();
  seen.flags = is.flags();
  seen.fill = is.fill();
  seen.flushes = flushed.flushes;
  seen.refills = source.refills;
  try {
    for (int c = source.sbumpc(); c != std::char_traits<char>::eof(); c = source.sbumpc())
      seen.rest += static_cast<char>(c);
  } catch (const std::exception&) {
    seen.rest += "(broken)";
  }
  return seen;
}

Outcome Ours(const std::string& text, const Supply& supply, const Settings& settings) {
  return After(text, supply, settings, [](std::istream& is, int& size, std::vector<double>& data) {
    CZEPHDoubleArray a = ArrayOf(data);
    const struct Ending {
      CZEPHDoubleArray& a;
      int& size;
      std::vector<double>& data;
      ~Ending() {
        size = a.size;
        data.assign(a.data, a.data + kStorage);
      }
    } ending{a, size, data};
    is >> a;
  });
}

::testing::AssertionResult SameOutcome(const std::string& text, const Supply& supply,
                                       const Settings& settings) {
  const Outcome want = After(text, supply, settings, oracle::ReadArray);
  const Outcome got = Ours(text, supply, settings);
  ::testing::AssertionResult same = ::testing::AssertionSuccess();
  const auto compare = [&](const char* what, const auto& ours, const auto& theirs) {
    if (same && !(ours == theirs))
      same = ::testing::AssertionFailure() << what << ": got " << ours << ", want " << theirs;
  };
  compare("size", got.size, want.size);
  compare("state", static_cast<int>(got.state), static_cast<int>(want.state));
  compare("thrown", got.thrown, want.thrown);
  compare("rest", got.rest, want.rest);
  compare("refills", got.refills, want.refills);
  compare("flushes", got.flushes, want.flushes);
  compare("width", got.width, want.width);
  compare("precision", got.precision, want.precision);
  compare("flags", got.flags, want.flags);
  compare("fill", got.fill, want.fill);
  compare("errno", got.error, want.error);
  if (same) same = SameBits(got.data, want.data);
  if (!same)
    same << "\ntext \"" << text << "\", portions of " << supply.portion << ", throwing at "
         << supply.throwing << ", flags " << settings.flags << ", exceptions "
         << settings.exceptions << ", tied " << settings.tied;
  return same;
}

/// Texts that the extractor may accept, accept in part, or reject.
const char* const kPieces[] = {
    "0",
    "-0",
    "+0",
    "1",
    "+1.5",
    "-2.25",
    ".5",
    "5.",
    "-.5",
    "+.5",
    ".",
    "-",
    "+",
    "+-1",
    "-+1",
    "--1",
    "1e",
    "1e+",
    "1e-",
    "1e5",
    "1E5",
    "1e+05",
    "1e-05",
    "1e5.5",
    "1.2.3",
    "1e5e5",
    "e5",
    ".e5",
    "0x",
    "0x1p3",
    "0X1.8P1",
    "0x.8",
    "1p3",
    "inf",
    "-inf",
    "INFINITY",
    "nan",
    "-nan",
    "nan(1)",
    "NAN",
    "i",
    "n",
    "000",
    "00012",
    "-00.50",
    "1,000",
    "1,234.5",
    "12,34",
    ",5",
    "1 000",
    "1'000",
    "1;2",
    "1]",
    "[1",
    "1e308",
    "1e309",
    "-1e309",
    "1e-320",
    "-1e-320",
    "1e-400",
    "-1e-400",
    "1e99999999999",
    "1e-99999999999",
    "1.7976931348623158e308",
    "1.7976931348623159e308",
    "2.2250738585072014e-308",
    "2.2250738585072011e-308",
    "4.9406564584124654e-324",
    "2.4703282292062327e-324",
    "0e999999",
    "0.0e-999999",
    "9007199254740993",
    "9007199254740992.999999999999999999999",
    "123456789012345678901234567890",
    "0.1000000000000000055511151231257827",
    "179769313486231580793728971405301e276",
    "0.000000000000000000000000000000000000000000000000000000000000000000000000001",
    "1\xA0",
    "\xFF",
    "1f",
    "1d",
    "1L",
    "1e5L",
    "1_000",
    "#1",
    "true",
    "\"1\""};

const char* const kSeparators[] = {" ",  " ",  " ",       "\n", "\t", "\r\n",
                                   "\v", "\f", "   \n  ", ",",  ""};

std::string NumberText(Random& random) {
  char text[512];
  const char* const formats[] = {"%.*g", "%.*e", "%.*f", "%+.*g", "%.*G"};
  const double x = AwkwardValue<double>(random);
  std::snprintf(text, sizeof text, formats[random.Below(5)], random.Int(0, 40), x);
  return text;
}

/// A count and about as many pieces, with later kinds ever less usual.
std::string Text(Random& random, int strangeness) {
  const int count = random.Int(0, 12);
  std::string text = std::to_string(random.Below(8) == 0 ? count + 1 : count);
  for (int i = 0; i < count; ++i) {
    // A blank after the count, or the digits would join.
    const bool strange = i > 0 && random.Int(0, 9) < strangeness;
    text += strange ? kSeparators[random.Below(std::size(kSeparators))] : " ";
    text += random.Int(0, 9) < strangeness ? kPieces[random.Below(std::size(kPieces))]
                                           : NumberText(random);
  }
  return random.Below(2) ? text + kSeparators[random.Below(std::size(kSeparators))] : text;
}

/// Points and groups as programs' locales have them.
struct Grouped : std::numpunct<char> {
  explicit Grouped(char point, char separator) : point_(point), separator_(separator) {}
  char do_decimal_point() const override { return point_; }
  char do_thousands_sep() const override { return separator_; }
  std::string do_grouping() const override { return "\3"; }
  char point_, separator_;
};

/// Commas are white space.
struct CommasAreSpace : std::ctype<char> {
  CommasAreSpace() : std::ctype<char>(Table()) {}
  static const mask* Table() {
    static const std::vector<mask> table = [] {
      std::vector<mask> t(classic_table(), classic_table() + table_size);
      t[','] = space;
      return t;
    }();
    return table.data();
  }
};

std::vector<Settings> AllSettings() {
  using Base = std::ios_base;
  const Base::fmtflags skip = Base::skipws;
  std::vector<Settings> all(1);
  for (const auto flags : {Base::dec, skip | Base::hex, skip | Base::oct, skip, Base::hex,
                           skip | Base::dec | Base::boolalpha | Base::uppercase | Base::fixed,
                           skip | Base::dec | Base::unitbuf | Base::scientific})
    all.push_back({flags});
  for (const auto mask : {Base::failbit, Base::eofbit, Base::badbit, Base::failbit | Base::badbit,
                          Base::failbit | Base::eofbit | Base::badbit})
    all.push_back({all[0].flags, mask});
  const std::locale& classic = std::locale::classic();
  std::vector<std::locale> locales = {std::locale(classic, new Grouped('.', ',')),
                                      std::locale(classic, new Grouped(',', '.')),
                                      std::locale(classic, new CommasAreSpace)};
#ifndef ZEPH_HARDENED  // which would stop at the count of "3 123" with a thousands separator
  locales.push_back(std::locale(classic, new Grouped('.', ' ')));
#endif
  for (const std::locale& locale : locales) all.push_back({all[0].flags, Base::goodbit, locale});
  all.push_back({all[0].flags, Base::goodbit, classic, true});
  return all;
}

const Supply kSupplies[] = {{0}, {1}, {2}, {3}, {7}, {31}, {100000}};

}  // namespace

TEST(DoubleArrayExtraction, AgreesWithTheStreamsExtractorForEveryToken) {
  const Settings settings;
  for (const char* piece : kPieces)
    for (const char* separator : kSeparators)
      for (const char* frame : {"1 ", "2 ", "3 1 ", "2 1"})
        for (const Supply& supply : kSupplies)
          ASSERT_TRUE(SameOutcome(frame + std::string(piece) + separator + "7 ", supply, settings))
              << "piece " << piece << ", separator " << separator << ", frame " << frame;
}

/// A count is then followed at once by the sign or the point of the only number that can be read.
TEST(DoubleArrayExtraction, AgreesWithTheStreamsExtractorWhereWhiteSpaceIsNotSkipped) {
  Settings settings;
  settings.flags = std::ios_base::dec;
  for (const char* piece : kPieces)
    for (const char* separator : kSeparators)
      for (const char* frame : {"1-", "1+", "1.", "2-"})
        for (const std::size_t portion : {std::size_t{3}, std::size_t{100000}})
          ASSERT_TRUE(
              SameOutcome(frame + std::string(piece) + separator + "7 ", {portion}, settings))
              << "piece " << piece << ", separator " << separator << ", frame " << frame;
}

TEST(DoubleArrayExtraction, AgreesWithTheStreamsExtractorInEverySetting) {
  const std::vector<Settings> all = AllSettings();
  Random random(11);
  for (int round = 0; round < Scaled(4000, 400); ++round) {
    const std::string text = Text(random, round % 5);
    const Supply& supply = kSupplies[random.Below(std::size(kSupplies))];
    for (const Settings& settings : all)
      ASSERT_TRUE(SameOutcome(text, supply, settings)) << "round " << round;
  }
}

TEST(DoubleArrayExtraction, AgreesWhereverTheBufferAndTheTextEnd) {
  Random random(12);
  for (int round = 0; round < 60; ++round) {
    const std::string text = Text(random, round % 4);
    for (std::size_t end = 0; end <= text.size(); ++end) {
      ASSERT_TRUE(SameOutcome(text.substr(0, end), {100000}, {})) << "round " << round;
      ASSERT_TRUE(SameOutcome(text, {end}, {})) << "round " << round;
    }
  }
}

TEST(DoubleArrayExtraction, AgreesWhereTheSourceThrows) {
  Random random(13);
  Settings strict;
  strict.exceptions = std::ios_base::badbit;
  for (int round = 0; round < Scaled(60, 10); ++round) {
    const std::string text = Text(random, 1);
    for (std::size_t end = 0; end <= text.size(); ++end)
      for (const std::size_t portion : {std::size_t{0}, std::size_t{5}, text.size()})
        for (const Settings& settings : {Settings{}, strict})
          ASSERT_TRUE(SameOutcome(text, {portion, end}, settings)) << "round " << round;
  }
}

TEST(DoubleArrayExtraction, AgreesForAnyNumber) {
  Random random(14);
  for (int round = 0; round < Scaled(6000, 600); ++round) {
    std::string text = "50";
    for (int i = 0; i < 50; ++i) text += "\n" + NumberText(random);
    ASSERT_TRUE(SameOutcome(text + "\n", {100000}, {})) << "round " << round;
  }
}

TEST(DoubleArrayExtraction, GivesTheSameValuesInEveryFloatingPointMode) {
  Random random(15);
  for (int round = 0; round < 40; ++round) {
    std::string text = "40";
    for (int i = 0; i < 40; ++i) text += " " + NumberText(random);
    for (const Mode& mode : Modes()) {
      Outcome want, got;
      RaisedBy(mode, [&] { want = After(text + " ", {100000}, {}, oracle::ReadArray); });
      RaisedBy(mode, [&] { got = Ours(text + " ", {100000}, {}); });
      ASSERT_TRUE(SameBits(got.data, want.data)) << mode.name << ": " << text;
      ASSERT_EQ(got.size, want.size) << mode.name << ": " << text;
      ASSERT_EQ(got.rest, want.rest) << mode.name << ": " << text;
    }
  }
}

TEST(DoubleArrayExtraction, IgnoresTheLocaleOfTheProcess) {
  const ProcessLocale comma(kCommaLocales);
  if (!comma.Found()) GTEST_SKIP() << "no locale with a decimal comma";
  Random random(16);
  for (int round = 0; round < 200; ++round)
    ASSERT_TRUE(SameOutcome(Text(random, 2), {100000}, {})) << "round " << round;
}

TEST(DoubleArrayExtraction, ReadsNothingFromAStreamThatHasFailedBefore) {
  for (const auto state : {std::ios_base::eofbit, std::ios_base::failbit, std::ios_base::badbit}) {
    CZEPHDoubleArray a = ArrayOf({1, 2});
    std::istringstream is("2 5 6 ");
    is.setstate(state);
    is >> a;
    EXPECT_EQ(a.size, 0);
    EXPECT_SAME_BITS(a.data[0], 1.0);
    EXPECT_EQ(is.rdbuf()->in_avail(), 6);
    a.size = 2;
  }
}
