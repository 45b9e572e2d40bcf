// Sources, tables, rows and elements that end or begin at a page boundary, beside inaccessible pages.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <vector>

#include "linalg/matrices.h"
#include "support/stream.h"

namespace zeph::test {
namespace {

constexpr int kMostRows = 6;

/// The rows of a matrix, each on pages of its own while this lives, and its table on others.
template <class Matrix>
class RowsOnPages {
 public:
  RowsOnPages(Matrix& m, bool atEnd) : m_(m), own_(m.m_ppData, m.m_ppData + m.m_nRows) {
    std::vector<double*> table;
    for (int i = 0; i < m.m_nRows; ++i) {
      pages_[i] = std::make_unique<Guarded>(4096);
      table.push_back(
          pages_[i]->Copy(std::vector<double>(m.m_ppData[i], m.m_ppData[i] + m.m_nColumns), atEnd));
    }
    ownTable_ = m.m_ppData;
    m.m_ppData = table_.Copy(table, atEnd);
  }
  ~RowsOnPages() { m_.m_ppData = ownTable_; }

 private:
  Matrix& m_;
  std::vector<double*> own_;
  double** ownTable_;
  const Guarded table_{4096};
  std::unique_ptr<Guarded> pages_[kMostRows];
};

template <class Body>
void ForEachShape(Body body) {
  for (const bool atEnd : {true, false})
    for (const int rows : {1, 2, 3, kMostRows})
      for (const int cols : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 33})
        body(rows, cols, atEnd, ModerateRows(rows, cols, static_cast<std::uint64_t>(cols)));
}

TEST(LinalgGuardPages, DoubleMatricesStayInBounds) {
  ForEachShape([](int rows, int cols, bool atEnd, const Rows& x) {
    CZEPHDoubleMatrix a = ToDoubleMatrix(x, rows, cols), b(a), square(cols, cols, 1.0);
    {
      const RowsOnPages<CZEPHDoubleMatrix> ofA(a, atEnd), ofB(b, atEnd);
      const CZEPHDoubleMatrix& fixed = a;
      const auto add = [](double p, double q) { return p + q; };
      EXPECT_TRUE(SameBits(Elements(a + b), Zip(x, x, add)));
      EXPECT_TRUE(SameBits(Elements(fixed - b), Rows(x.size(), std::vector<double>(Count(cols)))));
      EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(fixed)), x));
      EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(rows, cols, a.m_ppData)), x));
      EXPECT_EQ((-a).m_nRows, rows);
      a += b;
      a -= b;
      a = b;
      EXPECT_EQ((a * CZEPHDoubleArray(cols, 1.0)).size, rows);
      a *= square;
      a.SetEntry(2.0);
      std::ostringstream text;
      text << rows << ' ' << cols;
      for (int i = 0; i < rows * cols; ++i) text << ' ' << i;
      std::istringstream(text.str()) >> a;
      EXPECT_EQ(a.m_ppData[rows - 1][cols - 1], rows * cols - 1);
      text << a;
      a.Display(text);
    }
  });
}

TEST(LinalgGuardPages, MatricesAndVectorsStayInBounds) {
  const Guarded pages;
  ForEachShape([&pages](int rows, int cols, bool atEnd, const Rows& x) {
    std::vector<double> values;
    for (const auto& row : x) values.insert(values.end(), row.begin(), row.end());
    CZEPHMatrix a(rows, cols, pages.Copy(values, atEnd)), b(a);
    EXPECT_TRUE(SameBits(Elements(a), x));
    {
      const RowsOnPages<CZEPHMatrix> ofA(a, atEnd), ofB(b, atEnd);
      EXPECT_EQ((a + b).GetNoRow(), rows);
      EXPECT_EQ((a * ToMatrix(ModerateRows(cols, 3, 1))).GetNoColumn(), 3);
      CZEPHVector sums = ZEPH_SumVector(a), column = a.PickCol(cols - 1);
      a.SetCol(0, column);
      b = a;
      EXPECT_TRUE(SameBits(Elements(CZEPHMatrix(a)), Elements(b)));
      EXPECT_FALSE(Written([&](FILE* f) { a.Display(f, ';'); }).empty());
    }
    CZEPHVector v(cols, pages.Copy(x[0], atEnd)), w(v);
    EXPECT_TRUE(SameBits(Elements(v), x[0]));
    double* const own = v.m_pData;
    v.m_pData = pages.Copy(x[0], atEnd);
    EXPECT_EQ((v + w).GetSize(), cols);
    EXPECT_EQ((w - v).GetSize(), cols);
    EXPECT_EQ((2.0 * v).GetSize(), cols);
    EXPECT_EQ((v / 2.0).GetSize(), cols);
    EXPECT_GE(ZEPH_GetVectorSquareNorm(v), 0.0);
    EXPECT_GE(ZEPH_GetVectorInfititeNorm(v), 0.0);
    EXPECT_LT(ZEPH_GetVectorMaxSite(v), cols);
    EXPECT_LT(ZEPH_GetVectorMinSite(v), cols);
    EXPECT_FALSE(Written([&](FILE* f) { v.Display(f, ';'); }).empty());
    v = w;
    v.m_pData = own;
  });
}

TEST(LinalgGuardPages, SmallObjectsStayInBounds) {
  const Guarded pages;
  for (const bool atEnd : {true, false}) {
    const std::vector<double> values = Moderate(16, 3);
    for (const auto mode : {CZEPHMatrix4::RowMajor, CZEPHMatrix4::ColumnMajor})
      EXPECT_EQ(CZEPHMatrix4(pages.Copy(values, atEnd), mode).m_data[15], values[15]);
  }
}

}  // namespace
}  // namespace zeph::test
#endif
