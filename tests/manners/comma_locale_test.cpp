// In a locale with a decimal comma the runtime's texts have commas; C++ streams keep their own.
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstring>
#include <sstream>
#include <string>

#include "ZEPHDataStructureEngine.h"
#include "support/locales.h"
#include "support/not_finite.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

class CommaLocale : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!locale_.Found()) GTEST_SKIP() << "no locale with a decimal comma is installed";
  }

 private:
  const ProcessLocale locale_{kCommaLocales};
};

char kName[] = "x";

/// `text` with its decimal points replaced by the locale's; a library with its own texts knows no
/// locale.
std::string WithCommas(std::string text) {
  if (!ZEPH_PortableMath) std::replace(text.begin(), text.end(), '.', ',');
  return text;
}

/// Systems that know the locale may have another point for it, in another encoding.
bool PointIsWide() {
  return std::strlen(std::localeconv()->decimal_point) == 2;
}

}  // namespace

TEST_F(CommaLocale, AppliesToTextsOfArraysAndBuffers) {
  double values[] = {1.5, -0.25};
  CZEPHDoubleArray a(2, values);
  CString text;
  a.Display(text);
  EXPECT_EQ(text.GetString(), WithCommas("{ 1.500000  -0.250000  }\r\n"));
  CString listing;
  ZEPH_ArrayDisplay(listing, values, 1, kName);
  EXPECT_EQ(std::string(listing.GetString()).substr(0, 11), WithCommas("x[0]=1.5000"));
}

TEST_F(CommaLocale, AppliesToPrintsOfMatricesAndVectors) {
  double values[] = {1.5, -0.25, 2};
  double* rows[] = {values, values};
  EXPECT_EQ(Written([&](std::FILE* f) { ZEPH_MatrixPrint(f, 2, rows, kName); }),
            WithCommas("x = \n\t1.50000\t-0.25000\n\t1.50000\t-0.25000\n"));
  EXPECT_EQ(Written([&](std::FILE* f) { ZEPH_VectorPrint3(f, values, kName); }),
            WithCommas("x = (1.50000 -0.25000 2.00000)\n"));
  EXPECT_EQ(Written([&](std::FILE* f) { CZEPHVector(2, values).Display(f, ';'); }),
            WithCommas("      1.5000;      -0.2500; \n"));
}

TEST(WidePointLocale, CountsItsPointAsOneColumn) {
  const ProcessLocale locale(kWidePointLocales);
  if (!locale.Found() || !PointIsWide())
    GTEST_SKIP() << "no locale with a decimal point of two bytes is installed";
  double values[] = {1.5, -0.25, kInfinity};
  const std::string want = Written([&](std::FILE* f) {
    for (const double x : values) std::fprintf(f, "%12.4lf; ", x);
    std::fprintf(f, "\n");
  });
  ASSERT_NE(want.find("1\xD9\xAB"), std::string::npos);
  const std::string got = Written([&](std::FILE* f) { CZEPHVector(3, values).Display(f, ';'); });
  EXPECT_EQ(got, ZEPH_PortableMath ? "      1.5000;      -0.2500;          inf; \n" : want);
}

TEST(WidePointLocale, KeepsTheColumnsOfTheSortReportAligned) {
  const ProcessLocale locale(kWidePointLocales);
  if (!locale.Found() || !PointIsWide() || ZEPH_PortableMath)
    GTEST_SKIP() << "no text with a decimal point of two bytes can be made here";
  std::istringstream lines(Written([](std::FILE* f) { CZEPHSelectionSort::Test1(5, f); }));
  int reals = 0;
  for (std::string line; std::getline(lines, line);)
    if (line.find("\xD9\xAB") != std::string::npos) {
      ++reals;
      EXPECT_EQ(line.size(), std::string("Array[ 0]= ").size() + 12 + 1) << line;
    }
  EXPECT_EQ(reals, 10);
}

TEST_F(CommaLocale, AppliesToScientificNotation) {
  int exponent = 0;
  double mantissa = 0;
  const CString text = ZEPH_MathToScientificNotation(12345.678, exponent, mantissa, 2, 3);
  EXPECT_EQ(text.GetString(), WithCommas("12.346xE3"));
}

TEST_F(CommaLocale, DoesNotApplyToStreams) {
  double values[] = {1.5, -0.25};
  std::ostringstream out;
  out << CZEPHDoubleArray(2, values);
  EXPECT_EQ(out.str().find(','), std::string::npos);
  EXPECT_NE(out.str().find("1.5"), std::string::npos);
  out.str("");
  out << CZEPHVector3(1.5, 2, 3);
  EXPECT_EQ(out.str().find(','), std::string::npos);
  CZEPHDoubleArray read(2, 0.0);
  std::istringstream("2 1.5 -0.25") >> read;
  EXPECT_EQ(read.size, 2);
  EXPECT_EQ(read[0], 1.5);
}
