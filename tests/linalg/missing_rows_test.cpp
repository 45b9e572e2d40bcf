// Every operation on matrices that lack rows: a table may end early where memory ran out, at any
// row, and release leaves the counts. Both are compared with plain loops over the rows that exist.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <utility>

#include "linalg/matrices.h"
#include "support/allocation.h"
#include "support/child.h"
#include "support/random_source.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

constexpr int kReleased = -1;  // no table at all

void Release(CZEPHDoubleMatrix& m) {
  m.Clear();
}
void Release(CZEPHMatrix& m) {
  m.Free();
}

/// A matrix of these elements without the rows from `stored` on, or without a table.
template <class Matrix>
struct Lacking : Matrix {
  Lacking(const Rows& rows, int stored)
      : Matrix(static_cast<int>(rows.size()), static_cast<int>(rows[0].size()), nullptr) {
    for (std::size_t i = 0; i < rows.size(); ++i)
      std::copy(rows[i].begin(), rows[i].end(), this->m_ppData[i]);
    if (stored == kReleased) Release(*this);
    for (int i = std::max(stored, 0); this->m_ppData && i < this->m_nRows; ++i) {
      delete[] this->m_ppData[i];
      this->m_ppData[i] = nullptr;
    }
  }
  using Matrix::operator=;
};

/// The elements up to the first row that is missing.
template <class Matrix>
Rows Present(const Matrix& m) {
  Rows out;
  for (int i = 0; m.m_ppData && i < m.m_nRows && m.m_ppData[i]; ++i)
    out.emplace_back(m.m_ppData[i], m.m_ppData[i] + m.m_nColumns);
  return out;
}

/// One pair of operands and what their plain loops give.
struct Case {
  int rows, cols, storedX, storedY;
  Rows x, y;

  std::size_t BothStored() const { return Count(std::min(storedX, storedY)); }
  Rows First(const Rows& from, int stored) const {
    return Rows(from.begin(), from.begin() + std::max(stored, 0));
  }
  /// op(x, y) where both have a row, else the row of `other`.
  template <class Op>
  Rows Combined(Op op, Rows other) const {
    for (std::size_t i = 0; i < std::min(BothStored(), other.size()); ++i)
      for (std::size_t j = 0; j < x[i].size(); ++j) {
        volatile double value = op(x[i][j], y[i][j]);
        other[i][j] = value;
      }
    return other;
  }
  Rows Zeros() const { return Rows(Count(rows), std::vector<double>(Count(cols), 0.0)); }
};

constexpr auto kAdd = [](double a, double b) { return a + b; };
constexpr auto kSubtract = [](double a, double b) { return a - b; };
constexpr auto kSecond = [](double, double b) { return b; };

template <class Body>
void ForEachCase(Body body) {
  for (const auto& [rows, cols] : {std::pair(1, 1), {1, 5}, {3, 2}, {4, 4}, {4, 7}, {6, 3}})
    for (int storedX = kReleased; storedX <= rows; ++storedX)
      for (int storedY = kReleased; storedY <= rows; ++storedY) {
        SCOPED_TRACE(::testing::Message() << rows << " x " << cols << ", rows " << storedX
                                          << " and " << storedY << " are missing");
        const auto seed = static_cast<std::uint64_t>(rows * 10 + cols);
        body(Case{rows, cols, storedX, storedY, ModerateRows(rows, cols, seed),
                  ModerateRows(rows, cols, seed + 100)});
      }
}

/// Sums over the columns, each times its element of `v`.
std::vector<double> SumsOfRows(const Rows& rows, const std::vector<double>& v, int count) {
  std::vector<double> sums(Count(count), 0.0);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    volatile double sum = 0.0;
    for (std::size_t j = 0; j < rows[i].size(); ++j) {
      volatile double term = rows[i][j] * v[j];
      sum = sum + term;
    }
    sums[i] = sum;
  }
  return sums;
}

}  // namespace

TEST(MissingRows, OfDoubleMatricesAreZerosInResultsAndStayMissingInPlace) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachCase([](const Case& c) {
    Lacking<CZEPHDoubleMatrix> a(c.x, c.storedX);
    Lacking<CZEPHDoubleMatrix> b(c.y, c.storedY);
    const CZEPHDoubleMatrix &fixed = a, &fixedB = b;
    const Rows sum = c.Combined(kAdd, c.Zeros()), difference = c.Combined(kSubtract, c.Zeros());
    EXPECT_TRUE(SameBits(Present(a + fixedB), sum));
    EXPECT_TRUE(SameBits(Present(fixed + fixedB), sum));
    EXPECT_TRUE(SameBits(Present(a - fixedB), difference));
    EXPECT_TRUE(SameBits(Present(fixed - fixedB), difference));
    Rows negated = c.Zeros(), copied = c.Zeros();
    for (std::size_t i = 0; i < Count(c.storedX); ++i)
      for (std::size_t j = 0; j < c.x[i].size(); ++j) {
        negated[i][j] = 0.0 - c.x[i][j];
        copied[i][j] = c.x[i][j];
      }
    EXPECT_TRUE(SameBits(Present(-a), negated));
    EXPECT_TRUE(SameBits(Present(-fixed), negated));
    EXPECT_TRUE(SameBits(Present(+fixed), copied));
    EXPECT_TRUE(SameBits(Present(CZEPHDoubleMatrix(fixed)), copied));
    CZEPHDoubleMatrix set(c.rows, 1, 5.0), taken;
    EXPECT_EQ(set.SetData(fixed), 1);
    taken = fixed;
    EXPECT_TRUE(SameBits(Present(set), copied));
    EXPECT_TRUE(SameBits(Present(taken), copied));
    const auto expectX = [&](const Rows& whole) {  // in place: what is missing stays so
      EXPECT_TRUE(SameBits(Present(a), c.First(whole, c.storedX)));
      EXPECT_EQ(a.m_nRows, c.rows);
      EXPECT_EQ(a.m_nColumns, c.cols);
      EXPECT_EQ(a.m_ppData == nullptr, c.storedX == kReleased);
    };
    expectX(c.x);
    a += fixedB;
    expectX(c.Combined(kAdd, c.x));
    a.SetEntry(2.5);
    Rows all = c.Zeros();
    for (auto& row : all) std::fill(row.begin(), row.end(), 2.5);
    expectX(all);
    EXPECT_TRUE(SameBits(Present(b), c.First(c.y, c.storedY)));
  });
}

TEST(MissingRows, OfDoubleMatricesAreLeftOutByAssignmentAndDifference) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachCase([](const Case& c) {
    Lacking<CZEPHDoubleMatrix> a(c.x, c.storedX), e(c.x, c.storedX);
    const Lacking<CZEPHDoubleMatrix> b(c.y, c.storedY);
    e -= b;
    EXPECT_TRUE(SameBits(Present(e), c.First(c.Combined(kSubtract, c.x), c.storedX)));
    a = b;
    if (c.storedX == kReleased) {  // takes storage of its own, and zeros for what is missing
      Rows want = c.Zeros();
      std::copy_n(c.y.begin(), Count(c.storedY), want.begin());
      EXPECT_TRUE(SameBits(Present(a), want));
    } else {
      EXPECT_TRUE(SameBits(Present(a), c.First(c.Combined(kSecond, c.x), c.storedX)));
    }
  });
}

TEST(MissingRows, OfDoubleMatricesMakeProductsZero) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachCase([](const Case& c) {
    const Rows square = ModerateRows(c.cols, c.cols, 7);
    for (int storedB : {kReleased, 0, c.cols - 1, c.cols}) {
      Lacking<CZEPHDoubleMatrix> a(c.x, c.storedX);
      const Lacking<CZEPHDoubleMatrix> b(square, storedB);
      const bool whole = c.storedX == c.rows && storedB == c.cols;
      const Rows want =
          whole ? oracle::DenseProduct(c.x, square, Count(c.rows), Count(c.cols), Count(c.cols))
                : c.Zeros();
      a.operator*=(b);
      EXPECT_TRUE(SameBits(Present(a), c.storedX == kReleased ? want : c.First(want, c.storedX)));
    }
    const Lacking<CZEPHDoubleMatrix> a(c.x, c.storedX);
    const std::vector<double> v = Moderate(Count(c.cols), 9);
    EXPECT_TRUE(SameBits(Elements(a * CZEPHDoubleArray(c.cols, v.data())),
                         SumsOfRows(c.First(c.x, c.storedX), v, c.rows)));
  });
}

TEST(MissingRows, EndTheTextOfADoubleMatrix) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachCase([](const Case& c) {
    Lacking<CZEPHDoubleMatrix> a(c.x, c.storedX);
    std::ostringstream got, want, labelled, wantLabelled;
    got << a;
    a.Display(labelled);
    for (int i = 0; i < c.storedX; ++i) {
      for (int j = 0; j < c.cols; ++j) {
        const double x = c.x[Count(i)][Count(j)];
        want << x;
        wantLabelled << "Mat[" << i << "][" << j << "]=" << x << "\n";
      }
      want << "\n";
    }
    EXPECT_EQ(got.str(), want.str());
    EXPECT_EQ(labelled.str(), wantLabelled.str());
    // Reading stops there too, with both counts 0; what was read before stays.
    std::stringstream text;
    text << c.rows << ' ' << c.cols;
    for (int n = 0; n < c.rows * c.cols; ++n) text << ' ' << n;
    const bool good = c.storedX == c.rows;
    text >> a;
    EXPECT_EQ(a.m_nRows, good ? c.rows : 0);
    EXPECT_EQ(a.m_nColumns, good ? c.cols : 0);
    for (int i = 0; i < c.storedX; ++i)
      for (int j = 0; j < c.cols; ++j) EXPECT_EQ(a.m_ppData[i][j], i * c.cols + j);
    a.m_nRows = c.rows;  // which the destructor releases
  });
}

TEST(MissingRows, OfMatricesAreZerosInResultsAndStayMissingInPlace) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachCase([](const Case& c) {
    Lacking<CZEPHMatrix> a(c.x, c.storedX), b(c.y, c.storedY);
    EXPECT_TRUE(SameBits(Present(a + b), c.Combined(kAdd, c.Zeros())));
    Rows copied = c.Zeros();
    for (std::size_t i = 0; i < Count(c.storedX); ++i) copied[i] = c.x[i];
    EXPECT_TRUE(SameBits(Present(CZEPHMatrix(a)), copied));
    CZEPHMatrix other(c.rows + 1, c.cols);
    const CZEPHMatrix result = other = a;  // a copy of its own
    EXPECT_TRUE(SameBits(Present(other), copied));
    EXPECT_TRUE(SameBits(Present(result), copied));
    for (int storedB : {kReleased, 0, c.cols - 1, c.cols}) {
      const Rows square = ModerateRows(c.cols, c.cols, 7);
      Lacking<CZEPHMatrix> right(square, storedB);
      const bool whole = c.storedX == c.rows && storedB == c.cols;
      EXPECT_TRUE(SameBits(
          Present(a * right),
          whole ? oracle::DenseProduct(c.x, square, Count(c.rows), Count(c.cols), Count(c.cols))
                : c.Zeros()));
    }
    // An assignment of the same size writes the rows that both have.
    a = b;
    EXPECT_TRUE(SameBits(Present(a), c.First(c.Combined(kSecond, c.x), c.storedX)));
    EXPECT_EQ(a.m_ppData == nullptr, c.storedX == kReleased);
    EXPECT_EQ(a.m_nRows, c.rows);
    EXPECT_EQ(a.m_nColumns, c.cols);
    EXPECT_TRUE(SameBits(Present(b), c.First(c.y, c.storedY)));
  });
}

TEST(MissingRows, OfMatricesAreSkippedByColumnsSumsAndRandomFill) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachCase([](const Case& c) {
    if (c.storedY != c.rows) return;  // one operand
    Lacking<CZEPHMatrix> a(c.x, c.storedX);
    const Rows stored = c.First(c.x, c.storedX);
    const std::vector<double> sums =
        SumsOfRows(stored, std::vector<double>(Count(c.cols), 1.0), c.rows);
    EXPECT_TRUE(SameBits(Elements(ZEPH_SumVector(a)), sums));
    CZEPHVector into = ToVector(std::vector<double>(Count(c.rows), 8.0));
    ZEPH_SumVector(a, into);
    for (int i = 0; i < c.rows; ++i) EXPECT_EQ(into[i], i < c.storedX ? sums[Count(i)] : 8.0);
    for (int j = 0; j < c.cols; ++j) {
      CZEPHVector column = a.PickCol(j), picked = ToVector(std::vector<double>(Count(c.rows), 8.0));
      a.PickCol(j, picked);
      ASSERT_EQ(column.GetSize(), c.rows);
      for (int i = 0; i < c.rows; ++i) {
        EXPECT_SAME_BITS(column[i], i < c.storedX ? c.x[Count(i)][Count(j)] : 0.0);
        EXPECT_SAME_BITS(picked[i], i < c.storedX ? c.x[Count(i)][Count(j)] : 8.0);
      }
    }
    CZEPHVector column = ToVector(Moderate(Count(c.rows), 3));
    a.SetCol(c.cols - 1, column);
    Rows want = stored;
    for (std::size_t i = 0; i < want.size(); ++i) want[i].back() = column.m_pData[i];
    EXPECT_TRUE(SameBits(Present(a), want));
    std::string text;
    for (const auto& row : want) {
      for (const double x : row) {
        char cell[400];
        std::snprintf(cell, sizeof cell, "%12.4lf; ", x);
        text += cell;
      }
      text += "\n";
    }
    EXPECT_EQ(Written([&](FILE* f) { a.Display(f, ';'); }), text + "\n");
    const std::vector<int> draws = DrawsAfterSeed(5, Count(c.rows * c.cols) + 1);
    Seed(5);
    ZEPH_RandomizeMatrix(a, 3.0);
    std::size_t drawn = 0;
    for (const auto& row : Present(a))
      for (const double x : row) {
        volatile double scaled = draws[drawn++] * 3.0;
        EXPECT_SAME_BITS(x, scaled / 32767.0);
      }
    const int next = ZEPH_MathRandom(0);
    EXPECT_EQ(next, draws[drawn]);  // nothing is drawn for what is missing
  });
}
