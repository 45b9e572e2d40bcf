// Every operation on vectors whose storage was released, which leaves the count: compared with
// plain loops over the elements that exist, for each of two operands with storage and without.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "linalg/matrices.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

using Values = std::vector<double>;

CZEPHVector Made(const Values& values, bool released) {
  CZEPHVector v = ToVector(values);
  if (released) v.Free();
  return v;
}

/// Two vectors and the elements that exist.
struct Case {
  Case(int count, bool releasedX, bool releasedY)
      : n(count),
        hasX(releasedX ? Values() : Moderate(Count(n), 1)),
        hasY(releasedY ? Values() : Moderate(Count(n), 2)),
        x(Made(Moderate(Count(n), 1), releasedX)),
        y(Made(Moderate(Count(n), 2), releasedY)) {}

  const int n;
  const Values hasX, hasY;
  CZEPHVector x, y;
  Values Zeros() const { return Values(Count(n), 0.0); }
};

void ForEachCase(const std::function<void(Case&)>& body) {
  for (const int n : {1, 2, 4, 5, 16, 17, 40})
    for (const bool releasedX : {false, true})
      for (const bool releasedY : {false, true}) {
        SCOPED_TRACE(::testing::Message()
                     << n << " elements, released: " << releasedX << ' ' << releasedY);
        Case c(n, releasedX, releasedY);
        body(c);
        EXPECT_TRUE(SameBits(Elements(c.x), c.hasX));
        EXPECT_TRUE(SameBits(Elements(c.y), c.hasY));
        EXPECT_EQ(c.x.GetSize(), n);
        EXPECT_EQ(c.y.GetSize(), n);
      }
}

/// What Display() writes to std::cout.
std::string Shown(CZEPHVector& v) {
  std::ostringstream shown;
  std::ios format(nullptr);
  format.copyfmt(std::cout);
  std::streambuf* const before = std::cout.rdbuf(shown.rdbuf());
  v.Display();
  std::cout.rdbuf(before);
  std::cout.copyfmt(format);
  return shown.str();
}

/// A matrix of one column, and its column.
CZEPHMatrix ColumnOf(const Values& values) {
  return CZEPHMatrix(static_cast<int>(values.size()), 1, values.data());
}

}  // namespace

TEST(ReleasedVectors, AreZerosInResults) {
  ForEachCase([](Case& c) {
    Values sum = c.Zeros(), difference = c.Zeros(), scaled = c.Zeros(), divided = c.Zeros();
    for (std::size_t i = 0; !c.hasX.empty() && !c.hasY.empty() && i < sum.size(); ++i) {
      sum[i] = c.hasX[i] + c.hasY[i];
      difference[i] = c.hasX[i] - c.hasY[i];
    }
    for (std::size_t i = 0; i < c.hasX.size(); ++i) {
      scaled[i] = c.hasX[i] * 3.5;
      divided[i] = c.hasX[i] * 0.25;
    }
    Values copied = c.Zeros();
    std::copy(c.hasX.begin(), c.hasX.end(), copied.begin());
    EXPECT_TRUE(SameBits(Elements(c.x + c.y), sum));
    EXPECT_TRUE(SameBits(Elements(c.x - c.y), difference));
    EXPECT_TRUE(SameBits(Elements(c.x * 3.5), scaled));
    EXPECT_TRUE(SameBits(Elements(3.5 * c.x), scaled));
    EXPECT_TRUE(SameBits(Elements(c.x / 4.0), divided));
    EXPECT_TRUE(SameBits(Elements(CZEPHVector(c.x)), copied));
    EXPECT_TRUE(SameBits(Elements(CZEPHVector(static_cast<const CZEPHVector&>(c.x))), copied));
    CZEPHVector other(c.n + 1), empty;
    other = c.x;
    empty = c.x;
    EXPECT_TRUE(SameBits(Elements(other), copied));
    EXPECT_TRUE(SameBits(Elements(empty), copied));
  });
}

TEST(ReleasedVectors, KeepTheOtherElementsWhereTheSizeIsTheSame) {
  for (const bool releasedX : {false, true})
    for (const bool releasedY : {false, true}) {
      const Values first = Moderate(6, 1), second = Moderate(6, 2);
      CZEPHVector x = Made(first, releasedX);
      const CZEPHVector y = Made(second, releasedY);
      const CZEPHVector result = x = y;
      EXPECT_TRUE(SameBits(Elements(x), releasedX ? Values() : releasedY ? first : second));
      EXPECT_EQ(x.GetSize(), 6);
      EXPECT_EQ(result.GetSize(), 6);
    }
}

TEST(ReleasedVectors, HaveNoElementToMeasureOrToPrint) {
  ForEachCase([](Case& c) {
    double square = 0.0, largest = 0.0;
    for (const double x : c.hasX) {
      volatile double term = x * x;
      square += term;
      largest = std::max(largest, std::fabs(x));
    }
    const auto siteOf = [&](auto found) { return static_cast<int>(found - c.hasX.begin()); };
    EXPECT_EQ(ZEPH_GetVectorMaxSite(c.x), siteOf(std::max_element(c.hasX.begin(), c.hasX.end())));
    EXPECT_EQ(ZEPH_GetVectorMinSite(c.x), siteOf(std::min_element(c.hasX.begin(), c.hasX.end())));
    EXPECT_TRUE(SameBits(ZEPH_GetVectorSquareNorm(c.x), square));
    EXPECT_TRUE(SameBits(ZEPH_GetVectorInfititeNorm(c.x), largest));
    EXPECT_EQ(c.x.size(), c.hasX.size());
    EXPECT_EQ(c.x.end() - c.x.begin(), static_cast<std::ptrdiff_t>(c.hasX.size()));
    std::string written, shown;
    for (const double x : c.hasX) {
      char cell[64];
      std::snprintf(cell, sizeof cell, "%12.4lf%c ", x, '|');
      written += cell;
      std::snprintf(cell, sizeof cell, "%12.4lf", x);
      shown += cell;
    }
    EXPECT_EQ(Written([&](FILE* f) { c.x.Display(f, '|'); }), written + "\n");
    EXPECT_EQ(Shown(c.x), shown + "\n");
  });
}

TEST(ReleasedVectors, NeitherTakeNorGiveAColumn) {
  ForEachCase([](Case& c) {
    const Values values = Moderate(Count(c.n), 3);
    CZEPHMatrix m = ColumnOf(values);
    CZEPHVector picked = Made(values, c.hasX.empty()), summed = Made(values, c.hasX.empty());
    std::fill(picked.begin(), picked.end(), 7.0);
    std::fill(summed.begin(), summed.end(), 7.0);
    m.PickCol(0, picked);
    ZEPH_SumVector(m, summed);
    EXPECT_TRUE(SameBits(Elements(picked), c.hasX.empty() ? Values() : values));
    EXPECT_TRUE(SameBits(Elements(summed), c.hasX.empty() ? Values() : values));
    m.SetCol(0, c.x);
    EXPECT_TRUE(SameBits(Elements(m.PickCol(0)), c.hasX.empty() ? values : c.hasX));
  });
}
