// Every text that goes through a stream is compared with plain insertions and extractions, under
// the same settings of the stream and on streams that end or fail after any number of characters.
#include <gtest/gtest.h>

#include <functional>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

#include "algorithms.h"
#include "containers.h"
#include "linalg/matrices.h"
#include "support/scale.h"

using namespace zeph::test;

namespace {

/// Takes so many characters and no more.
struct Limited : std::streambuf {
  explicit Limited(std::size_t most) : room(most) {}
  int_type overflow(int_type c) override {
    if (text.size() == room) return traits_type::eof();
    text += traits_type::to_char_type(c);
    return c;
  }
  std::streamsize xsputn(const char* s, std::streamsize n) override {
    const std::size_t taken = std::min(room - text.size(), static_cast<std::size_t>(n));
    text.append(s, taken);
    return static_cast<std::streamsize>(taken);
  }
  int sync() override { return ++flushes, 0; }

  const std::size_t room;
  std::string text;
  int flushes = 0;
};

using Write = std::function<void(std::ostream&)>;
struct Text {
  const char* name;
  Write ours, plain;
  bool direct = true;  // written to the stream itself, not to std::cout
};

CZEPHDoubleMatrix& TheMatrix() {
  static CZEPHDoubleMatrix m =
      ToDoubleMatrix({{0.0, -2.25e-7, 1e300}, {-0.0, 123456.789, -7}}, 2, 3);
  return m;
}

CZEPHDoubleArray& TheArray() {
  static CZEPHDoubleArray a = [] {
    CZEPHDoubleArray values(13, 0.0);
    for (int i = 0; i < 13; ++i) values[i] = (i - 3) * 0.3e-4;
    return values;
  }();
  return a;
}

/// The listing that goes to the standard output, written to `os` with its settings.
template <class List>
void DisplayTo(std::ostream& os, List list) {
  std::ios kept(nullptr);
  kept.copyfmt(std::cout);
  std::streambuf* const before = std::cout.rdbuf(os.rdbuf());
  std::cout.copyfmt(os);
  std::cout.clear(os.rdstate());
  list();
  os.copyfmt(std::cout);
  os.clear(std::cout.rdstate());
  std::cout.rdbuf(before);
  std::cout.copyfmt(kept);
}

/// In ascending order.
std::vector<CZEPHLinkData>& Keys() {
  static std::vector<CZEPHLinkData> keys = {CZEPHLinkData(-77), CZEPHLinkData(29),
                                            CZEPHLinkData(1'000'000)};
  return keys;
}

/// Decimal whatever the stream's base, which stays as it is.
void WriteKey(std::ostream& os, const CZEPHLinkData& key) {
  const auto base = os.setf(std::ios_base::dec, std::ios_base::basefield);
  os << key.m_nKey << " ";
  os.setf(base, std::ios_base::basefield);
}

constexpr auto kListed = std::ios_base::right | std::ios_base::fixed | std::ios_base::showpoint;

std::vector<Text> Texts() {
  static CZEPHMatrix general = ToMatrix(Elements(TheMatrix()));
  static CZEPHVector vector = ToVector({0.5, -1e10, 3e-9});
  const double sixteen[] = {1, -2, 3e-5, 4e20, 0.1, -0.0, 7, 8, 9, 10, 11.5, 12, 13, 14, 15, -16};
  // Captured: tests count the live objects of these classes.
  const CZEPHMatrix4 matrix4(sixteen, CZEPHMatrix4::ColumnMajor);
  const CZEPHVector3 vector3(-0.0, 1.0 / 3, -2e100);
  return {{"double matrix", [](std::ostream& os) { os << TheMatrix(); },
           [](std::ostream& os) {
             for (const auto& row : Elements(TheMatrix())) {
               for (const double x : row) os << x;
               os << std::endl;
             }
           }},
          {"array", [](std::ostream& os) { os << TheArray(); },
           [](std::ostream& os) {
             os << "Elements of the vector are: \n";
             for (const double x : TheArray()) os << x << "\n";
           }},
          {"short array", [](std::ostream& os) { os << CZEPHDoubleArray(2, 0.1); },
           [](std::ostream& os) {
             os << "Elements of the vector are: \n"
                << 0.1 << "  " << 0.1 << "  "
                << "\n";
           }},
          {"array's display", [](std::ostream& os) { TheArray().Display(os); },
           [](std::ostream& os) {
             for (int i = 0; i < TheArray().size; ++i) {
               os << TheArray()[i] << " ";
               if (i == 10) os << std::endl;
             }
           }},
          {"labels", [](std::ostream& os) { TheMatrix().Display(os); },
           [](std::ostream& os) {
             for (int i = 0; i < 2; ++i)
               for (int j = 0; j < 3; ++j)
                 os << "Mat[" << i << "][" << j << "]=" << TheMatrix().m_ppData[i][j] << std::endl;
           }},
          {"matrix4", [matrix4](std::ostream& os) { os << matrix4; },
           [matrix4](std::ostream& os) {
             for (int i = 0; i < 4; ++i) {
               os << "[ ";
               for (int j = 0; j < 4; ++j)
                 os << matrix4.m_data[i + 4 * j] << (j < 3 ? " " : " ]\n");
             }
           }},
          {"vector3", [vector3](std::ostream& os) { os << vector3; },
           [vector3](std::ostream& os) {
             os << "[ " << vector3.m_x << " ; " << vector3.m_y << " ; " << vector3.m_z << " ]";
           }},
          {"matrix", [](std::ostream& os) { DisplayTo(os, [] { general.Display(); }); },
           [](std::ostream& os) {
             os.setf(kListed);
             os.precision(4);
             for (const auto& row : Elements(general)) {
               for (const double x : row) os << std::setw(10) << x << " ";
               os << std::endl;
             }
           },
           false},
          {"vector", [](std::ostream& os) { DisplayTo(os, [] { vector.Display(); }); },
           [](std::ostream& os) {
             for (const double x : Elements(vector)) {
               os.setf(kListed);
               os << std::setprecision(4) << std::setw(12) << x;
             }
             os << std::endl;
           },
           false},
          {"key", [](std::ostream& os) { DisplayTo(os, [] { Keys()[1].DisplayLink(); }); },
           [](std::ostream& os) { WriteKey(os, Keys()[1]); }, false},
          {"keys",
           [](std::ostream& os) {
             DisplayTo(os, [] {
               CZEPHSortedLinkList list;
               for (CZEPHLinkData& key : Keys()) list.Insert(&key);
               list.DisplayList();
             });
           },
           [](std::ostream& os) {
             os << "List (first-->last): ";
             for (const CZEPHLinkData& key : Keys()) WriteKey(os, key);
             os << std::endl;
           },
           false}};
}

/// Settings of a stream, one after the other.
std::vector<std::function<void(std::ostream&)>> Settings() {
  std::vector<std::function<void(std::ostream&)>> all;
  const std::ios_base::fmtflags notations[] = {{},
                                               std::ios_base::fixed,
                                               std::ios_base::scientific,
                                               std::ios_base::fixed | std::ios_base::scientific};
  const std::ios_base::fmtflags others[] = {{},
                                            std::ios_base::showpos | std::ios_base::uppercase,
                                            std::ios_base::showpoint | std::ios_base::left,
                                            std::ios_base::internal | std::ios_base::showpos,
                                            std::ios_base::hex | std::ios_base::showbase};
  for (const auto notation : notations)
    for (const auto other : others)
      for (const int precision : {0, 1, 6, 17})
        for (const int width : {0, 25})
          all.emplace_back([=](std::ostream& os) {
            os.setf(notation, std::ios_base::floatfield);
            os.setf(other);
            if (other & std::ios_base::hex) os.unsetf(std::ios_base::dec);
            os.precision(precision);
            os.width(width);
            os.fill('*');
          });
  return all;
}

/// What a stream's user sees after it was written to.
struct Outcome {
  std::string bytes;
  bool bad;
  std::ios_base::fmtflags flags;
  std::streamsize precision, width;
  char fill;
  int flushes;

  bool operator==(const Outcome& o) const {
    return bytes == o.bytes && bad == o.bad && flags == o.flags && precision == o.precision &&
           width == o.width && fill == o.fill && flushes == o.flushes;
  }
  friend void PrintTo(const Outcome& o, std::ostream* os) {
    *os << '"' << o.bytes << "\" bad " << o.bad << " flags " << o.flags << " precision "
        << o.precision << " width " << o.width << " fill " << o.fill << " flushes " << o.flushes;
  }
};

template <class Set>
Outcome After(const Write& write, Set set, std::size_t room) {
  Limited buffer(room);
  std::ostream os(&buffer);
  set(os);
  write(os);
  return {buffer.text, os.bad(), os.flags(), os.precision(), os.width(), os.fill(), buffer.flushes};
}

/// Whether numbers are written and read as this system's plain insertions and extractions do it.
bool WritesAsTheSystemDoes() {
#ifdef __GLIBC__
  return true;
#else
  return !ZEPH_MathIsPortable();
#endif
}

}  // namespace

TEST(StreamTexts, AreThoseOfPlainInsertionsUnderAllSettings) {
  if (!WritesAsTheSystemDoes()) GTEST_SKIP() << "numbers are written in glibc's form here";
  for (const Text& text : Texts())
    for (const auto& set : Settings())
      ASSERT_EQ(After(text.ours, set, 10'000), After(text.plain, set, 10'000)) << text.name;
}

TEST(StreamTexts, EndWhereTheStreamTakesNoMore) {
  if (!WritesAsTheSystemDoes()) GTEST_SKIP() << "numbers are written in glibc's form here";
  const auto plain = [](std::ostream&) {};
  const auto wide = [](std::ostream& os) { os << std::setfill('.') << std::setw(9) << std::fixed; };
  for (const Text& text : Texts()) {
    const std::size_t length = After(text.plain, wide, 10'000).bytes.size();
    for (std::size_t room = 0; room <= length; ++room) {
      Outcome got = After(text.ours, wide, room), want = After(text.plain, wide, room);
      got.flushes = want.flushes = 0;  // a library may flush a stream that has failed, or not
      ASSERT_EQ(got, want) << text.name << ", " << room;
    }
    EXPECT_TRUE(After(text.ours, plain, 0).bad) << text.name;
  }
}

TEST(StreamTexts, ThrowWhereTheStreamTakesNoMoreAndIsToldToThrow) {
  if (!WritesAsTheSystemDoes()) GTEST_SKIP() << "numbers are written in glibc's form here";
  const auto thrown = [](const Write& write, std::ios_base::iostate mask, std::size_t room) {
    Limited buffer(room);
    std::ostream os(&buffer);
    os.exceptions(mask);
    std::string outcome;
    try {
      write(os);
    } catch (const std::exception&) {
      outcome = "thrown after ";
    }
    return outcome + buffer.text + (os.bad() ? ", bad" : "");
  };
  for (const Text& text : Texts()) {
    if (!text.direct) continue;
    const std::size_t length = After(
                                   text.plain, [](std::ostream&) {}, 10'000)
                                   .bytes.size();
    for (const auto mask : {std::ios_base::badbit, std::ios_base::badbit | std::ios_base::failbit})
      for (std::size_t room = 0; room <= length; ++room)
        ASSERT_EQ(thrown(text.ours, mask, room), thrown(text.plain, mask, room))
            << text.name << ", " << room;
  }
}

TEST(StreamTexts, AreNotWrittenToAStreamThatHasFailedBefore) {
  for (const Text& text : Texts())
    for (const auto state :
         {std::ios_base::failbit, std::ios_base::badbit, std::ios_base::eofbit}) {
      Limited buffer(10'000);
      std::ostream os(&buffer);
      os.clear(state);
      text.ours(os);
      EXPECT_EQ(buffer.text, "") << text.name;
      EXPECT_TRUE(os.rdstate() & state) << text.name;
    }
}

namespace {

/// A stream's state, what is left of it, and the object.
struct Read {
  std::ios_base::iostate state;
  std::string rest;
  std::vector<double> object;
  bool operator==(const Read& o) const {
    return state == o.state && rest == o.rest && object == o.object;
  }
  friend void PrintTo(const Read& o, std::ostream* os) {
    *os << "state " << o.state << ", left \"" << o.rest << "\", "
        << ::testing::PrintToString(o.object);
  }
};

template <class Body>
Read AfterReading(const std::string& text, Body body,
                  std::ios_base::fmtflags flags = std::ios_base::skipws | std::ios_base::dec) {
  std::istringstream is(text);
  is.flags(flags);
  const std::vector<double> object = body(is);
  const auto state = is.rdstate();
  is.clear();
  std::string rest;
  std::getline(is, rest, '\0');
  return {state, rest, object};
}

std::vector<double> ReadMatrix(std::istream& is) {
  CZEPHDoubleMatrix m(3, 3, 77.0);  // a changed text announces up to three rows
  is >> m;
  std::vector<double> got = {static_cast<double>(m.m_nRows), static_cast<double>(m.m_nColumns)};
  for (int i = 0; i < 3; ++i) got.insert(got.end(), m.m_ppData[i], m.m_ppData[i] + 3);
  m.m_nRows = 3;
  return got;
}
std::vector<double> ReadMatrixPlainly(std::istream& is) {
  int rows = 0, cols = 0;
  double elements[3][3];
  for (auto& row : elements) std::fill_n(row, 3, 77.0);
  is >> rows;
  is >> cols;
  for (int i = 0; is && i < rows; ++i)
    for (int j = 0; is && j < cols; ++j) is >> elements[i][j];
  std::vector<double> got = {is ? static_cast<double>(rows) : 0,
                             is ? static_cast<double>(cols) : 0};
  for (const auto& row : elements) got.insert(got.end(), row, row + 3);
  return got;
}

template <class Object>
std::vector<double> ReadObject(std::istream& is);
template <>
std::vector<double> ReadObject<CZEPHVector3>(std::istream& is) {
  CZEPHVector3 v(7, 8, 9);
  is >> v;
  return {v.m_x, v.m_y, v.m_z};
}
template <>
std::vector<double> ReadObject<CZEPHMatrix4>(std::istream& is) {
  CZEPHMatrix4 m(7.0);
  is >> m;
  return {m.m_data, m.m_data + 16};
}

/// Brackets and numbers one by one: `pattern` has # for a number.
std::vector<double> ReadPlainly(std::istream& is, const char* pattern, std::vector<double> kept) {
  std::vector<double> read;
  for (; *pattern; ++pattern) {
    char sign = 0;
    double x = 0;
    if (*pattern == '#') {
      is >> x;
      read.push_back(x);
    } else if (is >> sign && sign != *pattern) {
      is.setstate(std::ios_base::failbit);
    }
  }
  return is ? read : kept;
}

std::vector<double> ReadVectorPlainly(std::istream& is) {
  return ReadPlainly(is, "[#;#;#]", {7, 8, 9});
}
std::vector<double> ReadMatrix4Plainly(std::istream& is) {
  const std::vector<double> rows =
      ReadPlainly(is, "[####][####][####][####]", std::vector<double>(16, 7.0));
  std::vector<double> columns = rows;
  for (std::size_t i = 0; i < 16; ++i) columns[i / 4 + i % 4 * 4] = rows[i];
  return columns;
}

}  // namespace

TEST(StreamTexts, AreReadAsPlainExtractionsReadThemUpToAnyCharacter) {
  if (!WritesAsTheSystemDoes()) GTEST_SKIP() << "numbers are read in glibc's form here";
  const auto compare = [](const std::string& whole, auto ours, auto plain) {
    for (std::size_t n = 0; n <= whole.size(); ++n) {
      const std::string text = whole.substr(0, n);
      EXPECT_EQ(AfterReading(text, ours), AfterReading(text, plain)) << '"' << text << '"';
      for (int wrong = 0; wrong < 256; wrong += kFullScale ? 1 : 3) {
        if (wrong >= '0' && wrong <= '9') continue;  // more rows than there is room for
        std::string changed = whole;
        if (n < whole.size()) changed[n] = static_cast<char>(wrong);
        EXPECT_EQ(AfterReading(changed, ours), AfterReading(changed, plain))
            << '"' << changed << '"';
      }
    }
  };
  for (const char* text : {"2 3 1 -2.5e3 3 4 5 6e-2", " 1 2\n1.5\t+2.25  ", "2 1 .5 7. rest",
                           "0 3 1", "2 0 1 2", "-1 2 5"})
    compare(text, ReadMatrix, ReadMatrixPlainly);
  for (const char* text : {"[ 1 ; -2.5 ; 3e2 ] rest", "[1;2;3]", "  [ .5;+6 ;7.]["})
    compare(text, ReadObject<CZEPHVector3>, ReadVectorPlainly);
  compare("[ 1 2 3 4 ]\n[ 5 6 7 8 ]\n[ 9 -1 .5 1e2 ]\n[ 0 0 0 1 ]\nrest", ReadObject<CZEPHMatrix4>,
          ReadMatrix4Plainly);
}

/// Of which one is that white space is not passed over.
TEST(StreamTexts, AreReadAsPlainExtractionsReadThemUnderAllSettings) {
  if (!WritesAsTheSystemDoes()) GTEST_SKIP() << "numbers are read in glibc's form here";
  using Base = std::ios_base;
  const Base::fmtflags skip = Base::skipws;
  for (const Base::fmtflags flags :
       {Base::dec, Base::fmtflags(), skip, skip | Base::hex, skip | Base::oct,
        Base::hex | Base::boolalpha,
        skip | Base::dec | Base::boolalpha | Base::showpos | Base::scientific | Base::unitbuf}) {
    const auto compare = [flags](const std::string& text, auto ours, auto plain) {
      EXPECT_EQ(AfterReading(text, ours, flags), AfterReading(text, plain, flags))
          << '"' << text << "\" with " << flags;
    };
    for (const char* text :
         {"2 1 .5 -7. rest", "2 1 10 011", "1 2+1.5-2.5", "2-1", "2+1+3.5-4", "2\t1\n5 6",
          "0x2 1 3 4", "03 +1 3 4 5", " 1 1 6", "1+1 6", "+1+0 rest", ""})
      compare(text, ReadMatrix, ReadMatrixPlainly);
    for (const char* text :
         {"[1;2;3]rest", "[ 1 ; 2 ; 3 ]", " [1;2;3]", "[1;-2;+3 ]", "[1 ;2;3]", "[010;0x2;3]"})
      compare(text, ReadObject<CZEPHVector3>, ReadVectorPlainly);
    for (const char* text :
         {"[1 2 3 4][5 6 7 8][9 1 2 3][4 5 6 7]", "[1+2-3+4][5+6+7+8][9+1-2+3][-4+5+6+7]r",
          "[1+2-3+4]\n[5+6+7+8]\n[9+1-2+3]\n[-4+5+6+7]\n"})
      compare(text, ReadObject<CZEPHMatrix4>, ReadMatrix4Plainly);
  }
}
