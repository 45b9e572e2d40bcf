// Text of the general matrix and vector. The streams of the process are restored after each test.
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "linalg/matrices.h"
#include "support/child.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

/// std::cout writes to a buffer that counts flushes, with fresh formatting.
class CapturedCout {
 public:
  CapturedCout() : format_(nullptr) {
    format_.copyfmt(std::cout);
    std::cout.copyfmt(std::ios(nullptr));
    before_ = std::cout.rdbuf(&buffer_);
  }
  ~CapturedCout() {
    std::cout.rdbuf(before_);
    std::cout.copyfmt(format_);
  }
  std::string Text() const { return buffer_.str(); }
  int Flushes() const { return buffer_.flushes; }

 private:
  struct Buffer : std::stringbuf {
    int flushes = 0;
    int sync() override { return ++flushes, 0; }
  } buffer_;
  std::ios format_;
  std::streambuf* before_;
};

constexpr std::ios_base::fmtflags kSet =
    std::ios_base::right | std::ios_base::fixed | std::ios_base::showpoint;

}  // namespace

TEST(MatrixText, PrintsColumnsWithSeparatorsAndAClosingBlankLine) {
  CZEPHMatrix m = ToMatrix({{1, 2.5}, {-3.00004, 1e10}});
  EXPECT_EQ(Written([&](FILE* f) { m.Display(f, ','); }),
            "      1.0000,       2.5000, \n     -3.0000, 10000000000.0000, \n\n");
  EXPECT_EQ(Written([](FILE* f) { CZEPHMatrix().Display(f, ','); }), "\n");
  m.Free();
  EXPECT_EQ(Written([&](FILE* f) { m.Display(f, ','); }), "\n");
  m.Display(nullptr, ',');
}

TEST(MatrixText, PrintsEveryNumberAsPrintfDoes) {
  const std::vector<double> values = Awkward(4000, 9);
  CZEPHMatrix m(40, 100, values.data());
  std::string want;
  for (std::size_t n = 0; n < values.size(); ++n) {
    char cell[400];
    std::snprintf(cell, sizeof cell, "%12.4lf%c ", values[n], '\0');
    want += cell;  // up to the separator, which is a null character here
    want += std::string("\0 ", 2) + (n % 100 == 99 ? "\n" : "");
  }
  EXPECT_EQ(Written([&](FILE* f) { m.Display(f, '\0'); }), want + "\n");
}

TEST(MatrixText, PrintsLinesOfAnyLength) {
  for (const int cols : {1, 100, 273, 274, 1000, 4095, 4096, 4097, 5000, 20'000}) {
    const std::vector<double> values = Moderate(Count(2 * cols), 3, -1e9, 1e9);
    std::string want[2];
    for (std::size_t n = 0; n < values.size(); ++n) {
      char cell[400];
      std::snprintf(cell, sizeof cell, "%12.4lf%c ", values[n], '|');
      want[n / Count(cols)] += cell;
    }
    CZEPHMatrix m(2, cols, values.data());
    CZEPHVector v(cols, values.data());
    EXPECT_TRUE(Written([&](FILE* f) { m.Display(f, '|'); }) == want[0] + "\n" + want[1] + "\n\n")
        << cols;
    EXPECT_TRUE(Written([&](FILE* f) { v.Display(f, '|'); }) == want[0] + "\n") << cols;
  }
}

TEST(VectorText, PrintsElementsWithSeparatorsOnOneLine) {
  CZEPHVector v = ToVector({1, 2.5});
  EXPECT_EQ(Written([&](FILE* f) { v.Display(f, ','); }), "      1.0000,       2.5000, \n");
  EXPECT_EQ(Written([&](FILE* f) { v.Display(f, '\t'); }), "      1.0000\t       2.5000\t \n");
  EXPECT_EQ(Written([](FILE* f) { CZEPHVector().Display(f, ','); }), "\n");
  v.Display(nullptr, ',');
}

TEST(VectorText, PrintsToTheStandardOutput) {
  CaptureStdout capture;
  ToVector({1, 2.5}).Display(stdout, ';');
  EXPECT_EQ(capture.Text(), "      1.0000;       2.5000; \n");
}

TEST(MatrixText, StreamPrintIsTenWideAndLeavesItsFlagsAndPrecisionSet) {
  CapturedCout cout;
  ToMatrix({{1, -2.5}, {123456789.125, 0}}).Display();
  EXPECT_EQ(cout.Text(), "    1.0000    -2.5000 \n123456789.1250     0.0000 \n");
  EXPECT_EQ(cout.Flushes(), 2);
  EXPECT_EQ(std::cout.flags() & kSet, kSet);
  EXPECT_EQ(std::cout.precision(), 4);
  EXPECT_EQ(std::cout.width(), 0);
}

TEST(MatrixText, StreamPrintsAreWholeAtAnyLength) {
  constexpr int kRows = 40, kColumns = 150, kElements = kRows * kColumns;
  const std::vector<double> values = Moderate(Count(kElements), 7);
  CZEPHMatrix m(kRows, kColumns, values.data());
  CZEPHVector v(kElements, values.data());
  std::string rows, line;
  for (int n = 0; n < kElements; ++n) {
    char cell[64];
    std::snprintf(cell, sizeof cell, "%10.4f ", values[Count(n)]);
    rows += cell + std::string(n % kColumns == kColumns - 1 ? "\n" : "");
    std::snprintf(cell, sizeof cell, "%12.4f", values[Count(n)]);
    line += cell;
  }
  CapturedCout cout;
  m.Display();
  EXPECT_TRUE(cout.Text() == rows);
  EXPECT_EQ(cout.Flushes(), kRows);
  v.Display();
  EXPECT_TRUE(cout.Text() == rows + line + "\n");
}

TEST(MatrixText, StreamPrintOfAnEmptyMatrixWritesNothingButSetsTheFlags) {
  CapturedCout cout;
  CZEPHMatrix().Display();
  EXPECT_EQ(cout.Text(), "");
  EXPECT_EQ(std::cout.flags() & kSet, kSet);
  EXPECT_EQ(std::cout.precision(), 4);
}

TEST(MatrixText, StreamPrintAddsItsFlagsToThoseAlreadySet) {
  CapturedCout cout;
  std::cout.setf(std::ios_base::showpos | std::ios_base::left);
  ToMatrix({{1.5}}).Display();
  EXPECT_NE(std::cout.flags() & std::ios_base::left, 0);
  EXPECT_NE(std::cout.flags() & std::ios_base::right, 0);
  EXPECT_NE(cout.Text().find("+1.5000"), std::string::npos);
}

TEST(VectorText, StreamPrintIsTwelveWideWithoutSeparators) {
  CapturedCout cout;
  ToVector({1, -2.5}).Display();
  EXPECT_EQ(cout.Text(), "      1.0000     -2.5000\n");
  EXPECT_EQ(cout.Flushes(), 1);
  EXPECT_EQ(std::cout.flags() & kSet, kSet);
  EXPECT_EQ(std::cout.precision(), 4);
}

TEST(VectorText, StreamPrintWritesLongNumbersWithoutSeparators) {
  CapturedCout cout;
  ToVector({1234567.5, -1234567.5, 2}).Display();
  EXPECT_EQ(cout.Text(), "1234567.5000-1234567.5000      2.0000\n");
}

TEST(VectorText, StreamPrintOfAnEmptyVectorWritesALineEndAndSetsNoFlag) {
  CapturedCout cout;
  CZEPHVector().Display();
  EXPECT_EQ(cout.Text(), "\n");
  EXPECT_EQ(cout.Flushes(), 1);
  EXPECT_EQ(std::cout.flags() & kSet, 0);
  EXPECT_EQ(std::cout.precision(), 6);
}
