// Objects whose storage has room for more rows and elements than their counts say, as `>>` can leave them: what lies
// behind the counts is neither read nor written.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "linalg/matrices.h"
#include "support/random_source.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

constexpr double kElsewhere = 777.0;

/// The elements, in storage with a row and two columns more.
template <class Matrix>
struct Roomy : Matrix {
  explicit Roomy(const Rows& rows)
      : Matrix(static_cast<int>(rows.size()) + 1, static_cast<int>(rows[0].size()) + 2, nullptr),
        held(this->m_nRows) {
    for (int i = 0; i < held; ++i) std::fill_n(this->m_ppData[i], this->m_nColumns, kElsewhere);
    for (std::size_t i = 0; i < rows.size(); ++i)
      std::copy(rows[i].begin(), rows[i].end(), this->m_ppData[i]);
    this->m_nRows -= 1, this->m_nColumns -= 2;
  }
  ~Roomy() { this->m_nRows = held; }
  using Matrix::operator=;

  /// These elements, and the others as they were.
  ::testing::AssertionResult Holds(const Rows& rows) const {
    Rows want = rows, got;
    for (auto& row : want) row.insert(row.end(), 2, kElsewhere);
    want.emplace_back(want[0].size(), kElsewhere);
    for (std::size_t i = 0; i < want.size(); ++i)
      got.emplace_back(this->m_ppData[i], this->m_ppData[i] + want[0].size());
    return SameBits(got, want);
  }

  const int held;
};

template <class Body>
void ForEachShape(Body body) {
  for (const int rows : {1, 2, 4, 5, 13})
    for (const int cols : {1, 2, 3, 4, 5, 8, 17}) {
      SCOPED_TRACE(::testing::Message() << rows << " x " << cols);
      body(ModerateRows(rows, cols, 1), ModerateRows(rows, cols, 2), rows, cols);
    }
}

constexpr auto kAdd = [](double x, double y) { return x + y; };
constexpr auto kSubtract = [](double x, double y) { return x - y; };

}  // namespace

TEST(RoomBehindCounts, OfADoubleMatrixIsKept) {
  ForEachShape([](const Rows& x, const Rows& y, int rows, int cols) {
    const Roomy<CZEPHDoubleMatrix> other(y);
    Roomy<CZEPHDoubleMatrix> sum(x), difference(x), filled(x), assigned(x), product(x), read(x);
    sum += other;
    EXPECT_TRUE(sum.Holds(Zip(x, y, kAdd)));
    difference -= other;
    EXPECT_TRUE(difference.Holds(Zip(x, y, kSubtract)));
    filled.SetEntry(2.5);
    EXPECT_TRUE(filled.Holds(Rows(Count(rows), std::vector<double>(Count(cols), 2.5))));
    const CZEPHDoubleMatrix& source = other;
    assigned = source;
    EXPECT_TRUE(assigned.Holds(y));
    const Rows square = ModerateRows(cols, cols, 3);
    product.operator*=(Roomy<CZEPHDoubleMatrix>(square));
    EXPECT_TRUE(
        product.Holds(oracle::DenseProduct(x, square, Count(rows), Count(cols), Count(cols))));
    std::stringstream text;
    text << rows << ' ' << cols;
    Rows counted = x;
    int n = 0;
    for (auto& row : counted)
      for (double& element : row) text << ' ' << (element = ++n);
    text >> read;
    EXPECT_TRUE(read.Holds(counted));
    EXPECT_TRUE(other.Holds(y));
  });
}

TEST(RoomBehindCounts, OfADoubleMatrixIsNotRead) {
  ForEachShape([](const Rows& x, const Rows& y, int rows, int cols) {
    Roomy<CZEPHDoubleMatrix> a(x);
    const Roomy<CZEPHDoubleMatrix> b(y);
    CZEPHDoubleMatrix exact = ToDoubleMatrix(x, rows, cols), set;
    const CZEPHDoubleMatrix &fixed = a, &other = b;
    EXPECT_TRUE(SameBits(Elements(a + other), Zip(x, y, kAdd)));
    EXPECT_TRUE(SameBits(Elements(fixed - other), Zip(x, y, kSubtract)));
    EXPECT_TRUE(SameBits(Elements(-a), Elements(-exact)));
    EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(fixed)), x));
    EXPECT_EQ(set.SetData(fixed), 1);
    EXPECT_TRUE(SameBits(Elements(set), x));
    const CZEPHDoubleArray ones(cols, 1.0);
    EXPECT_TRUE(SameBits(Elements(fixed * ones), Elements(exact * ones)));
    std::ostringstream got, want;
    got << a, want << exact;
    a.Display(got), exact.Display(want);
    EXPECT_EQ(got.str(), want.str());
    EXPECT_TRUE(a.Holds(x));
  });
}

TEST(RoomBehindCounts, OfAMatrixIsNeitherReadNorWritten) {
  ForEachShape([](const Rows& x, const Rows& y, int rows, int cols) {
    Roomy<CZEPHMatrix> a(x), assigned(x), set(x), random(x);
    const Roomy<CZEPHMatrix> b(y);
    CZEPHMatrix exact = ToMatrix(x), exactRandom = ToMatrix(x);
    EXPECT_TRUE(SameBits(Elements(a + b), Zip(x, y, kAdd)));
    EXPECT_TRUE(SameBits(Elements(CZEPHMatrix(a)), x));
    EXPECT_TRUE(SameBits(Elements(ZEPH_SumVector(a)), Elements(ZEPH_SumVector(exact))));
    EXPECT_TRUE(SameBits(Elements(a.PickCol(cols - 1)), Elements(exact.PickCol(cols - 1))));
    EXPECT_EQ(Written([&](FILE* f) { a.Display(f, ';'); }),
              Written([&](FILE* f) { exact.Display(f, ';'); }));
    EXPECT_TRUE(a.Holds(x));
    const CZEPHMatrix& source = b;
    assigned = source;
    EXPECT_TRUE(assigned.Holds(y));
    CZEPHVector column = ToVector(Moderate(Count(rows) + 3, 4));  // longer than needed
    set.SetCol(0, column);
    exact.SetCol(0, column);
    EXPECT_TRUE(set.Holds(Elements(exact)));
    Seed(5);
    ZEPH_RandomizeMatrix(random, 3.0);
    Seed(5);
    ZEPH_RandomizeMatrix(exactRandom, 3.0);
    EXPECT_TRUE(random.Holds(Elements(exactRandom)));
  });
}

TEST(RoomBehindCounts, OfAVectorIsNeitherReadNorWritten) {
  for (const int n : {1, 2, 3, 4, 5, 8, 16, 17, 40})
    for (const double other : {kElsewhere, -1e300}) {
      SCOPED_TRACE(::testing::Message() << n << " elements before " << other);
      const std::vector<double> x = Moderate(Count(n), 1), y = Moderate(Count(n), 2);
      std::vector<double> longer = x;
      longer.insert(longer.end(), 3, other);
      CZEPHVector v = ToVector(longer), exact = ToVector(x);
      const CZEPHVector w = ToVector(y);
      v.m_nSize = n;
      EXPECT_TRUE(SameBits(Elements(v + w), Elements(exact + w)));
      EXPECT_TRUE(SameBits(Elements(v - w), Elements(exact - w)));
      EXPECT_TRUE(SameBits(Elements(v / 3.0), Elements(exact / 3.0)));
      EXPECT_TRUE(SameBits(Elements(CZEPHVector(v)), x));
      EXPECT_EQ(ZEPH_GetVectorMaxSite(v), ZEPH_GetVectorMaxSite(exact));
      EXPECT_EQ(ZEPH_GetVectorMinSite(v), ZEPH_GetVectorMinSite(exact));
      EXPECT_SAME_BITS(ZEPH_GetVectorSquareNorm(v), ZEPH_GetVectorSquareNorm(exact));
      EXPECT_SAME_BITS(ZEPH_GetVectorInfititeNorm(v), ZEPH_GetVectorInfititeNorm(exact));
      EXPECT_EQ(Written([&](FILE* f) { v.Display(f, ';'); }),
                Written([&](FILE* f) { exact.Display(f, ';'); }));
      v = w;
      std::vector<double> want = y;
      want.insert(want.end(), 3, other);
      EXPECT_TRUE(SameBits(v.m_pData, want.data(), want.size()));
    }
}
