#include <climits>
#include <cstdio>
#include <iomanip>
#include <sstream>
#include <string>

#include "double_array/arrays.h"

using namespace zeph::test;

namespace {

using Values = std::vector<double>;

Values Counting(int n) {
  Values v;
  for (int i = 0; i < n; ++i) v.push_back(i);
  return v;
}

std::string Inserted(const CZEPHDoubleArray& a) {
  std::ostringstream os;
  os << a;
  return os.str();
}
std::string Displayed(CZEPHDoubleArray a) {
  std::ostringstream os;
  a.Display(os);
  return os.str();
}
std::string Listed(CZEPHDoubleArray a) {
  CString text("x");
  a.Display(text);
  return text.GetString();
}
std::string Listed(CZEPHDoubleArray a, int from, int to) {
  CString text("x");
  a.Display(text, from, to);
  return text.GetString();
}

/// Keeps what is written, and how much of it was at each flush.
struct NotesFlushes : std::stringbuf {
  std::string flushes;

 protected:
  int sync() override {
    flushes += std::to_string(str().size()) + ' ';
    return 0;
  }
};

/// Reads `text` into an array with storage for three.
struct Extracted {
  explicit Extracted(const std::string& text) : a(ArrayOf({-1, -2, -3})), is(text) {
    a.sorted = 1;
    is >> a;
  }
  CZEPHDoubleArray a;
  std::istringstream is;
};

}  // namespace

TEST(DoubleArrayText, InsertionWritesFourElementsPerLine) {
  EXPECT_EQ(Inserted(CZEPHDoubleArray()), "Elements of the vector are: \n");
  EXPECT_EQ(Inserted(ArrayOf({1.5})), "Elements of the vector are: \n1.5  \n");
  EXPECT_EQ(Inserted(ArrayOf({0, 1, 2, 3})), "Elements of the vector are: \n0  1  2  3  \n");
  EXPECT_EQ(Inserted(ArrayOf({0, 1, 2, 3, 4})), "Elements of the vector are: \n0\n1\n2\n3\n4\n");
  EXPECT_EQ(Inserted(WithoutStorage(4)), "Elements of the vector are: \n");
  EXPECT_EQ(Inserted(CZEPHDoubleArray(-4, 0.0)), "Elements of the vector are: \n");
}

TEST(DoubleArrayText, InsertionUsesTheFormatOfTheStream) {
  std::ostringstream os;
  os << std::fixed << std::setprecision(3) << ArrayOf({1.0 / 3, 2});
  EXPECT_EQ(os.str(), "Elements of the vector are: \n0.333  2.000  \n");
  EXPECT_EQ(&(os << CZEPHDoubleArray()), &os);
}

TEST(DoubleArrayText, StreamsGetWhatSingleInsertionsGiveThem) {
  const auto insert = [](std::ostream& os, const CZEPHDoubleArray& a) {
    os << "Elements of the vector are: \n";
    for (const double x : a) os << x << (a.size < 5 ? "  " : "\n");
    if (a.size > 0 && a.size < 5) os << "\n";
  };
  const auto display = [](std::ostream& os, const CZEPHDoubleArray& a) {
    for (int i = 0; i < a.size; ++i) {
      os << a[i] << " ";
      if (i > 0 && i % 10 == 0) os << std::endl;
    }
  };
  using Flags = std::ios_base;
  for (const auto flags : {Flags::dec, Flags::left, Flags::internal | Flags::showpos,
                           Flags::fixed | Flags::showpoint, Flags::unitbuf})
    for (const int width : {0, 1, 7, 29, 30, 50})
      for (const int n : {0, 1, 4, 5, 10, 11, 12, 21, 22, 500}) {
        SCOPED_TRACE(::testing::Message() << "flags " << flags << ", width " << width << ", " << n);
        CZEPHDoubleArray a(n, 0.0);
        for (int i = 0; i < n; ++i) a[i] = (i - 3) * 0.25;
        const auto written = [&](auto write) {
          NotesFlushes buffer;
          std::ostream os(&buffer);
          os.flags(flags);
          os.width(width);
          os.fill('*');
          write(os);
          return buffer.str() + " flushed at " + buffer.flushes + "width " +
                 std::to_string(os.width());
        };
        EXPECT_EQ(written([&](std::ostream& os) { os << a; }),
                  written([&](std::ostream& os) { insert(os, a); }));
        EXPECT_EQ(written([&](std::ostream& os) { a.Display(os); }),
                  written([&](std::ostream& os) { display(os, a); }));
      }
}

TEST(DoubleArrayText, DisplayBreaksTheLineAfterElementsTenTwentyAndSoOn) {
  EXPECT_EQ(Displayed(CZEPHDoubleArray()), "");
  EXPECT_EQ(Displayed(ArrayOf({0.5})), "0.5 ");
  EXPECT_EQ(Displayed(ArrayOf(Counting(10))), "0 1 2 3 4 5 6 7 8 9 ");
  EXPECT_EQ(Displayed(ArrayOf(Counting(22))),
            "0 1 2 3 4 5 6 7 8 9 10 \n11 12 13 14 15 16 17 18 19 20 \n21 ");
  EXPECT_EQ(Displayed(WithoutStorage(3)), "");
}

TEST(DoubleArrayText, DisplayAppendsToAString) {
  EXPECT_EQ(Listed(CZEPHDoubleArray()), "x{ }\r\n");
  EXPECT_EQ(Listed(WithoutStorage(3)), "x{ }\r\n");
  EXPECT_EQ(Listed(ArrayOf({-0.0, 1e10})), "x{ -0.000000  10000000000.000000  }\r\n");
  EXPECT_EQ(Listed(ArrayOf(Counting(12))),
            "x{ 0.000000  1.000000  2.000000  3.000000  4.000000  5.000000  6.000000  7.000000  "
            "8.000000  9.000000  10.000000  \r\n11.000000  }\r\n");
}

TEST(DoubleArrayText, DisplayHasRoomForTheLongestNumber) {
  const std::string longest = Listed(ArrayOf({-std::numeric_limits<double>::max()}));
  EXPECT_EQ(longest.size(), 1u + 2 + 317 + 2 + 3);
  EXPECT_EQ(longest.substr(0, 12), "x{ -17976931");
  EXPECT_EQ(longest.substr(longest.size() - 12), ".000000  }\r\n");
}

TEST(DoubleArrayText, DisplayOfARangeCountsWhatItPrints) {
  const CZEPHDoubleArray a = ArrayOf(Counting(30));
  EXPECT_EQ(Listed(a, 2, 3), "x{ 2.000000  3.000000  }\r\n");
  EXPECT_EQ(Listed(a, 5, 16),
            "x{ 5.000000  6.000000  7.000000  8.000000  9.000000  10.000000  11.000000  12.000000  "
            "13.000000  14.000000  15.000000  \r\n16.000000  }\r\n");
  EXPECT_EQ(Listed(a, 29, 29), "x{ 29.000000  }\r\n");
  for (const auto& inverted : {std::pair(4, 3), std::pair(30, -30), std::pair(INT_MAX, INT_MIN)})
    EXPECT_EQ(Listed(a, inverted.first, inverted.second), "x{ }\r\n");
  EXPECT_EQ(Listed(WithoutStorage(3), 0, 2), "x{ }\r\n");
}

TEST(DoubleArrayText, TextsOfAnyLengthAreWholeAndReadBack) {
  for (const int n : {500, 4095, 4096, 4097, 6000}) {
    const Values v = Moderate(static_cast<std::size_t>(n), 5, -1e9, 1e9);
    const CZEPHDoubleArray a = ArrayOf(v);
    std::ostringstream inserted, displayed;
    std::string listed = "x{ ";
    inserted << "Elements of the vector are: \n";
    for (int i = 0; i < n; ++i) {
      const bool ends = i > 0 && i % 10 == 0;
      char cell[64];
      std::snprintf(cell, sizeof cell, "%lf  ", a[i]);
      listed += cell;
      if (ends) listed += "\r\n";
      inserted << a[i] << "\n";
      displayed << a[i] << (ends ? " \n" : " ");
    }
    EXPECT_TRUE(Inserted(a) == inserted.str()) << n;
    EXPECT_TRUE(Displayed(a) == displayed.str()) << n;
    EXPECT_TRUE(Listed(a) == listed + "}\r\n") << n;
    EXPECT_TRUE(Listed(a, 0, n - 1) == listed + "}\r\n") << n;
    std::stringstream text;
    text << n << std::setprecision(17);
    for (const double x : v) text << ' ' << x;
    CZEPHDoubleArray read(n, 0.0);
    EXPECT_TRUE(text >> read) << n;
    EXPECT_TRUE(SameBits(ElementsOf(read), v)) << n;
  }
}

TEST(DoubleArrayText, TraceDoesNothing) {
  CZEPHDoubleArray a = ArrayOf({1});
  a.Trace("text");
  EXPECT_TRUE(SameBits(ElementsOf(a), {1}));
}

TEST(DoubleArrayText, ExtractionReadsACountAndThatManyNumbers) {
  Extracted three("3 1.5 -2e3\n7 9");
  EXPECT_TRUE(SameBits(ElementsOf(three.a), {1.5, -2000, 7}));
  EXPECT_EQ(three.a.sorted, 1);  // although the order is unknown
  double next = 0;
  three.is >> next;
  EXPECT_EQ(next, 9.0);
  Extracted two("2 4 5");  // the end of the text is no failure
  EXPECT_TRUE(SameBits(ElementsOf(two.a), {4, 5}));
  EXPECT_EQ(two.a.data[2], -3.0);
  EXPECT_EQ(Extracted("0").a.size, 0);
}

TEST(DoubleArrayText, ExtractionThatFailsSetsTheSizeToZero) {
  for (const char* text : {"", "x", "99999999999 1", "3", "3 1 2", "3 1 x 2"}) {
    const Extracted extracted(text);
    EXPECT_EQ(extracted.a.size, 0) << text;
    EXPECT_TRUE(extracted.is.fail()) << text;
    EXPECT_NE(extracted.a.data, nullptr) << text;
  }
  const Extracted partial("3 8 x");
  EXPECT_EQ(partial.a.data[0], 8.0);  // what was read before
}

TEST(DoubleArrayText, ExtractionStoresANegativeCountAndReadsNothing) {
  Extracted negative("-3 1");
  EXPECT_EQ(negative.a.size, -3);
  EXPECT_EQ(negative.a.data[0], -1.0);
}

TEST(DoubleArrayText, ExtractionTrustsTheStorageOfAnEmptyArray) {
  CZEPHDoubleArray a = ArrayOf({1, 2});
  a.size = 0;
  std::istringstream is("2 5 6");
  EXPECT_EQ(&(is >> a), &is);
  EXPECT_TRUE(SameBits(ElementsOf(a), {5, 6}));
}

TEST(DoubleArrayText, ExtractionIntoNoStorageSetsTheSizeToZero) {
  CZEPHDoubleArray none;
  std::istringstream is("2 5 6");
  is >> none;
  EXPECT_EQ(none.size, 0);
  EXPECT_EQ(none.data, nullptr);
  EXPECT_FALSE(is.fail());
}

TEST(DoubleArrayText, ExtractionOfACountOfZeroNeedsNoStorage) {
  std::istringstream is("0 7");
  CZEPHDoubleArray none;
  is >> none;
  EXPECT_EQ(none.size, 0);
  int next = 0;
  EXPECT_TRUE(is >> next);
  EXPECT_EQ(next, 7);
}

TEST(DoubleArrayText, ExtractionStoresAnyCountThatNeedsNoElementInAnyArray) {
  const auto emptied = [] {
    CZEPHDoubleArray a(2, 7.0);
    a.size = 0;
    return a;
  };
  for (const int count : {0, -1, -3, INT_MIN}) {
    CZEPHDoubleArray arrays[] = {CZEPHDoubleArray(), WithoutStorage(5), WithoutStorage(-2),
                                 ArrayOf({1, 2}), emptied()};
    for (CZEPHDoubleArray& a : arrays) {
      SCOPED_TRACE(::testing::Message()
                   << "count " << count << ", size " << a.size << ", storage " << !!a.data);
      double* const storage = a.data;
      std::istringstream is(std::to_string(count) + " 9");
      EXPECT_TRUE(is >> a);
      EXPECT_EQ(a.size, count);
      EXPECT_EQ(a.data, storage);
      int next = 0;
      EXPECT_TRUE(is >> next);
      EXPECT_EQ(next, 9);
    }
  }
}

TEST(DoubleArrayText, ExtractionThatThrowsSetsTheSizeToZeroToo) {
  for (const char* text : {"", "x", "3 1 2", "3 1 2 x", "2000000000000 1"}) {
    CZEPHDoubleArray a(3, 7.0);
    std::istringstream is(text);
    is.exceptions(std::ios_base::failbit | std::ios_base::badbit | std::ios_base::eofbit);
    EXPECT_ANY_THROW(is >> a) << text;
    EXPECT_EQ(a.size, 0) << text;
    a.size = 3;
  }
}
