#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

#include "linalg/matrices.h"

using namespace zeph::test;

namespace {

/// Counts the flush requests that reach it.
struct CountingBuffer : std::stringbuf {
  int flushes = 0;
  int sync() override {
    ++flushes;
    return std::stringbuf::sync();
  }
};

/// The two counts after reading `text` into a 2 x 2 matrix of 9s.
std::pair<int, int> CountsAfter(const std::string& text) {
  CZEPHDoubleMatrix m(2, 2, 9.0);
  std::istringstream in(text);
  EXPECT_EQ(&(in >> m), &in);
  const std::pair<int, int> counts(m.m_nRows, m.m_nColumns);
  m.m_nRows = 2;  // the real count, so that all storage is released
  return counts;
}

}  // namespace

TEST(DoubleMatrixText, DisplayWritesALabelledLinePerElement) {
  CZEPHDoubleMatrix m = ToDoubleMatrix({{1.5, 2}}, 1, 2);
  CountingBuffer buffer;
  std::ostream os(&buffer);
  m.Display(os);
  EXPECT_EQ(buffer.str(), "Mat[0][0]=1.5\nMat[0][1]=2\n");
  EXPECT_EQ(buffer.flushes, 2);
  std::ostringstream none;
  CZEPHDoubleMatrix().Display(none);
  EXPECT_EQ(none.str(), "");
}

TEST(DoubleMatrixText, OutputHasNoSeparatorsAndUsesTheStreamsFormatting) {
  const CZEPHDoubleMatrix m = ToDoubleMatrix({{1.5, 2}, {3, 4}}, 2, 2);
  CountingBuffer buffer;
  std::ostream os(&buffer);
  EXPECT_EQ(&(os << m), &os);
  EXPECT_EQ(buffer.str(), "1.52\n34\n");
  EXPECT_EQ(buffer.flushes, 2);
  std::ostringstream fixed;
  fixed << std::fixed << std::setprecision(1) << std::showpos << m;
  EXPECT_EQ(fixed.str(), "+1.5+2.0\n+3.0+4.0\n");
}

TEST(DoubleMatrixText, AWidthAppliesToTheFirstElementOnly) {
  const CZEPHDoubleMatrix m = ToDoubleMatrix({{1, 2}, {3, 4}}, 2, 2);
  std::ostringstream os;
  os << std::setfill('.') << std::setw(4) << m;
  EXPECT_EQ(os.str(), "...12\n34\n");
  EXPECT_EQ(os.width(), 0);
  std::ostringstream listed;
  CZEPHDoubleMatrix(1, 2, 1.0).Display(listed << std::setfill('.') << std::setw(6));
  EXPECT_EQ(listed.str(), "..Mat[0][0]=1\nMat[0][1]=1\n");
}

TEST(DoubleMatrixText, DisplayWritesRowByRow) {
  CZEPHDoubleMatrix m = ToDoubleMatrix({{1, 2, 3}, {4, 5, 6}}, 2, 3);
  std::ostringstream os;
  m.Display(os);
  EXPECT_EQ(os.str(),
            "Mat[0][0]=1\nMat[0][1]=2\nMat[0][2]=3\nMat[1][0]=4\nMat[1][1]=5\nMat[1][2]=6\n");
  std::ostringstream flat;
  CZEPHDoubleMatrix(2, 0, 1.0).Display(flat);
  EXPECT_EQ(flat.str(), "");
  flat << CZEPHDoubleMatrix(2, 0, 1.0);
  EXPECT_EQ(flat.str(), "\n\n");  // a line for each row
}

TEST(DoubleMatrixText, NegativeCountsMeanNoElementToWrite) {
  CZEPHDoubleMatrix m(2, 3, 1.0);
  const auto texts = [&m] {
    std::ostringstream os, labelled;
    os << m;
    m.Display(labelled);
    return os.str() + "|" + labelled.str();
  };
  m.m_nColumns = -7;  // as `>>` leaves them
  EXPECT_EQ(texts(), "\n\n|");
  m.m_nColumns = 3, m.m_nRows = -7;
  EXPECT_EQ(texts(), "|");
  m.m_nRows = 2;
}

TEST(DoubleMatrixText, TextsOfAnyLengthAreWholeAndReadBack) {
  constexpr int kRows = 70, kColumns = 90;
  const Rows rows = ModerateRows(kRows, kColumns, 6);
  CZEPHDoubleMatrix m = ToDoubleMatrix(rows, kRows, kColumns), read(kRows, kColumns, 0.0);
  std::ostringstream written, plain, labelled, plainLabelled;
  std::stringstream text;
  written << m;
  m.Display(labelled);
  text << kRows << ' ' << kColumns << std::setprecision(17);
  for (int i = 0; i < kRows; ++i) {
    for (int j = 0; j < kColumns; ++j) {
      const double x = rows[Count(i)][Count(j)];
      plain << x;
      plainLabelled << "Mat[" << i << "][" << j << "]=" << x << "\n";
      text << ' ' << x;
    }
    plain << "\n";
  }
  EXPECT_TRUE(written.str() == plain.str());
  EXPECT_TRUE(labelled.str() == plainLabelled.str());
  EXPECT_TRUE(text >> read);
  EXPECT_TRUE(SameBits(Elements(read), rows));
}

TEST(DoubleMatrixText, InputReadsTheRowCountFirst) {
  CZEPHDoubleMatrix m(3, 3, 9.0);
  std::istringstream in("1 3  7 8 9");
  in >> m;
  EXPECT_EQ(m.m_nRows, 1);
  EXPECT_EQ(m.m_nColumns, 3);
  EXPECT_TRUE(SameBits(Elements(m), {{7, 8, 9}}));
  m.m_nRows = 3;
}

TEST(DoubleMatrixText, InputStopsWhereARowIsMissing) {
  CZEPHDoubleMatrix m(3, 2, 9.0);
  double* const second = m.m_ppData[1];
  m.m_ppData[1] = nullptr;  // as exhaustion leaves it
  std::istringstream in("3 2  1 2 3 4 5 6");
  in >> m;
  EXPECT_EQ(m.m_nRows, 0);
  EXPECT_EQ(m.m_nColumns, 0);
  EXPECT_EQ(m.m_ppData[0][1], 2.0);
  EXPECT_EQ(m.m_ppData[2][0], 9.0);
  EXPECT_TRUE(in.good());
  m.m_ppData[1] = second;
  m.m_nRows = 3, m.m_nColumns = 2;
}

TEST(DoubleMatrixText, AClearedMatrixPrintsNothing) {
  CZEPHDoubleMatrix m(2, 2, 1.0);
  m.Clear();
  std::ostringstream os;
  m.Display(os);
  os << m;
  EXPECT_EQ(os.str(), "");
}

TEST(DoubleMatrixText, InputReadsCountsThenElementsIntoTheExistingRows) {
  CZEPHDoubleMatrix m(3, 3, 9.0);
  double* const row = m[1];
  std::istringstream in("2 2\n1 -2.5e3\n  3 4 rest");
  in >> m;
  EXPECT_EQ(m.m_nRows, 2);
  EXPECT_EQ(m.m_nColumns, 2);
  EXPECT_TRUE(SameBits(Elements(m), {{1, -2500}, {3, 4}}));
  EXPECT_EQ(m[1], row);
  EXPECT_EQ(m.m_ppData[2][2], 9.0);
  m.m_nRows = 3;
}

TEST(DoubleMatrixText, AFailedReadAnywhereZeroesBothCounts) {
  const std::pair<int, int> zero(0, 0);
  for (const char* text : {"", "x", "2", "2 x", "2 2", "2 2 x", "2 2 1", "2 2 1 2 x", "2 2 1 2 3",
                           "2 2 1 2 3 x", "99999999999 2 1", "2 99999999999 1", "2 2 1 2 3 1e999"})
    EXPECT_EQ(CountsAfter(text), zero) << text;
  EXPECT_EQ(CountsAfter("2 2 1 2 3 4"), std::make_pair(2, 2));
  EXPECT_EQ(CountsAfter("2 1 1 2"), std::make_pair(2, 1));
  EXPECT_EQ(CountsAfter("-3 7"), std::make_pair(-3, 7));
  EXPECT_EQ(CountsAfter("2 -7"), std::make_pair(2, -7));
}

// Counts that were left would be those of the stream, beyond the storage perhaps.
TEST(DoubleMatrixText, InputThatThrowsZeroesBothCountsToo) {
  using Base = std::ios_base;
  for (const auto mask : {Base::failbit, Base::failbit | Base::badbit | Base::eofbit})
    for (const char* text : {"", "x", "2", "2 x", "9", "9 x", "2 2", "2 2 x", "2 2 1 2 3",
                             "2 2 1 2 3 x", "99999999999 2 1", "2 99999999999 1"}) {
      CZEPHDoubleMatrix m(2, 2, 9.0);
      double** const table = m.m_ppData;
      std::istringstream in(text);
      in.exceptions(mask);
      EXPECT_ANY_THROW(in >> m) << text;
      EXPECT_EQ(m.m_nRows, 0) << text;
      EXPECT_EQ(m.m_nColumns, 0) << text;
      EXPECT_EQ(m.m_ppData, table) << text;
      m.m_nRows = 2;
    }
}

TEST(DoubleMatrixText, AFailedReadKeepsTheStorageAndWhatItReadBefore) {
  CZEPHDoubleMatrix m(2, 2, 9.0);
  double** const table = m.m_ppData;
  std::istringstream bad("2 2 1 2 x"), good("2 2 5 6 7 8");
  bad >> m;
  EXPECT_TRUE(bad.fail());
  EXPECT_EQ(m.m_ppData, table);
  EXPECT_EQ(table[0][1], 2.0);
  EXPECT_EQ(table[1][1], 9.0);
  good >> m;  // size 0, but the rows exist
  EXPECT_TRUE(SameBits(Elements(m), {{5, 6}, {7, 8}}));
}

TEST(DoubleMatrixText, InputStoresAnyCountsThatNeedNoElementWithStorageAndWithout) {
  for (const int rows : {0, -3, 2})
    for (const int columns : {0, -7, 4}) {
      if (rows > 0 && columns > 0) continue;
      CZEPHDoubleMatrix none, cleared(2, 2, 9.0), full(2, 2, 9.0);
      cleared.Clear();
      for (CZEPHDoubleMatrix* m : {&none, &cleared, &full}) {
        SCOPED_TRACE(::testing::Message() << rows << " x " << columns << " into " << m->m_nRows
                                          << " rows, storage " << !!m->m_ppData);
        double** const table = m->m_ppData;
        std::istringstream in(std::to_string(rows) + " " + std::to_string(columns) + " 5");
        EXPECT_TRUE(in >> *m);
        EXPECT_EQ(m->m_nRows, rows);
        EXPECT_EQ(m->m_nColumns, columns);
        EXPECT_EQ(m->m_ppData, table);
        int next = 0;
        EXPECT_TRUE(in >> next);
        EXPECT_EQ(next, 5);
      }
      full.m_nRows = 2;
    }
}

TEST(DoubleMatrixText, InputWithoutStorageZeroesTheCountsAndReadsNoElement) {
  CZEPHDoubleMatrix m;
  std::istringstream in("2 3 1 2 3 4 5 6");
  in >> m;
  EXPECT_EQ(m.m_nRows, 0);
  EXPECT_EQ(m.m_nColumns, 0);
  EXPECT_TRUE(in.good());
  double next = 0;
  in >> next;
  EXPECT_EQ(next, 1.0);
  std::istringstream flat("0 3");
  flat >> m;
  EXPECT_EQ(m.m_nColumns, 3);
}

TEST(DoubleMatrixText, OneColumnRoundTripsButSeveralDoNot) {
  const CZEPHDoubleMatrix column = ToDoubleMatrix({{0.1}, {-2}, {1e300}}, 3, 1);
  std::stringstream text;
  text << "3 1\n" << std::setprecision(17) << column;
  CZEPHDoubleMatrix again(3, 1, 0.0);
  text >> again;
  EXPECT_TRUE(SameBits(Elements(again), Elements(column)));
  std::stringstream run;
  run << "1 2\n" << ToDoubleMatrix({{1, 2}}, 1, 2);  // "12": one number
  CZEPHDoubleMatrix lost(1, 2, 0.0);
  run >> lost;
  EXPECT_EQ(lost.m_nRows, 0);
  EXPECT_EQ(lost.m_ppData[0][0], 12.0);
  lost.m_nRows = 1;
}
