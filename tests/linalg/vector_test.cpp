#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <type_traits>
#include <utility>

#include "linalg/matrices.h"
#include "support/allocation.h"
#include "support/not_finite.h"
#include "support/other_bytes.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

struct Bare : CZEPHVector {
  using CZEPHVector::Create;
};

CZEPHVector ALocal() {
  CZEPHVector v = ToVector({1, 2, 3});
  return v;
}

void ExpectEmpty(const CZEPHVector& v) {
  EXPECT_EQ(v.GetSize(), 0);
  EXPECT_EQ(v.m_pData, nullptr);
}

}  // namespace

TEST(VectorStorage, HasItsTwoFieldsAndNothingElse) {
  struct Fields {
    int size;
    double* data;
  };
  EXPECT_EQ(sizeof(CZEPHVector), sizeof(Fields));
  EXPECT_FALSE(std::is_polymorphic_v<CZEPHVector>);
  CZEPHVector v = ToVector({1, 2});
  EXPECT_EQ(static_cast<void*>(&v), &v.m_nSize);
  v[1] = 5.0;
  const CZEPHVector& fixed = v;
  EXPECT_EQ(fixed.Get(1), 5.0);
  EXPECT_EQ(&fixed[1], &v[1]);
  EXPECT_EQ(fixed.GetSize(), 2);
}

TEST(VectorStorage, ASizeBelowOneMakesItEmpty) {
  ExpectEmpty(CZEPHVector());
  ExpectEmpty(CZEPHVector(0));
  ExpectEmpty(CZEPHVector(-7));
  const double value = 1;
  ExpectEmpty(CZEPHVector(0, &value));
  CZEPHVector v(3);
  v.ReSize(-1);
  ExpectEmpty(v);
}

TEST(VectorStorage, StartsEmptyInDirtyMemory) {
  OverOtherBytes<CZEPHVector> v;
  ExpectEmpty(*v);
  OverOtherBytes<CZEPHVector> none(+[](void* place) { return new (place) CZEPHVector(-3); });
  ExpectEmpty(*none);
}

TEST(VectorStorage, ConstructsEverySizeFromEverySource) {
  for (int n = 1; n <= 40; ++n) {
    const std::vector<double> values = Awkward(Count(n), static_cast<std::uint64_t>(n));
    CZEPHVector v(n, values.data()), copy(v), assigned, same(n);
    CZEPHVector result = assigned = v;
    same = v;
    v[0] = 77.0;
    for (const CZEPHVector* each : {&copy, &assigned, &same, &result}) {
      EXPECT_EQ(each->GetSize(), n);
      EXPECT_TRUE(SameBits(Elements(*each), values)) << n;
    }
  }
}

// Memory that was just released is given out again, with what was left in it.
TEST(VectorStorage, IsZeroWithoutASourceInUsedMemory) {
  for (int n = 1; n <= 64; ++n) {
    const std::vector<double> zeros(Count(n), 0.0);
    const auto use = [n] { const CZEPHVector used(n, std::vector<double>(Count(n), 77.0).data()); };
    use();
    EXPECT_TRUE(SameBits(Elements(CZEPHVector(n, nullptr)), zeros)) << n;
    CZEPHVector released(n), other;
    released.Free();
    use();
    EXPECT_TRUE(SameBits(Elements(CZEPHVector(released)), zeros)) << n;
    use();
    other = released;
    EXPECT_TRUE(SameBits(Elements(other), zeros)) << n;
    use();
    EXPECT_TRUE(SameBits(Elements(released * 2.0), zeros)) << n;
    use();
    EXPECT_TRUE(SameBits(Elements(released + released), zeros)) << n;
    for (int rows = 1; rows <= 3; ++rows) {
      for (int row = 0; row < rows; ++row) use();
      EXPECT_TRUE(SameBits(Elements(CZEPHMatrix(rows, n, nullptr)), Rows(Count(rows), zeros))) << n;
      for (int row = 0; row < rows; ++row) use();
      EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(rows, n, nullptr)), Rows(Count(rows), zeros)))
          << n;
      for (int row = 0; row < rows; ++row) use();
      CZEPHDoubleMatrix made;
      made.Create(rows, n);
      EXPECT_TRUE(SameBits(Elements(made), Rows(Count(rows), zeros))) << n;
    }
  }
}

TEST(VectorStorage, AssignmentResizesBetweenAnyTwoSizes) {
  for (int n = 0; n <= 5; ++n)
    for (int size = 0; size <= 5; ++size) {
      CZEPHVector target = ToVector(Moderate(Count(n), 1));
      const std::vector<double> want = Moderate(Count(size), 2);
      const CZEPHVector source = ToVector(want);
      const CZEPHVector result = target = source;
      EXPECT_EQ(target.GetSize(), size);
      EXPECT_TRUE(SameBits(Elements(target), want));
      EXPECT_TRUE(SameBits(Elements(result), want));
    }
}

TEST(VectorStorage, ReleasesTheOldElementsAtEverySize) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const long before = LiveBlocks();
  {
    CZEPHVector v(4), other = ToVector({1, 2});
    v.ReSize(4);
    EXPECT_EQ(LiveBlocks() - before, 2);
    v = other;
    EXPECT_EQ(LiveBlocks() - before, 2);
    v.ReSize(0);
    EXPECT_EQ(LiveBlocks() - before, 1);
    v = other;
    v.Free();
    EXPECT_EQ(LiveBlocks() - before, 1);
    v.ReSize(3);
    EXPECT_EQ(v.GetSize(), 3);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(VectorStorage, ReSizeReplacesTheElementsEvenForTheSameSize) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (const int n : {1, 3, 40})
    for (const bool released : {false, true}) {
      CZEPHVector v(n);
      if (released) v.Free();
      const long before = AllocationCount();
      v.ReSize(n);
      EXPECT_EQ(AllocationCount(), before + 1) << n;
      ASSERT_NE(v.m_pData, nullptr);
      EXPECT_EQ(v.GetSize(), n);
    }
}

TEST(VectorStorage, AccessMovesEveryBit) {
  const std::vector<double>& values = SpecialValues<double>();
  CZEPHVector v = ToVector(values);
  const CZEPHVector& fixed = v;
  for (int i = 0; i < v.GetSize(); ++i) {
    EXPECT_SAME_BITS(v.Get(i), values[Count(i)]);
    EXPECT_SAME_BITS(fixed.Get(i), values[Count(i)]);
    EXPECT_SAME_BITS(v[i], values[Count(i)]);
    EXPECT_SAME_BITS(fixed[i], values[Count(i)]);
  }
}

TEST(VectorStorage, CopiesEveryBit) {
  const std::vector<double> values = Awkward(50, 1);
  CZEPHVector v(50, values.data()), copy(v);
  EXPECT_TRUE(SameBits(Elements(v), values));
  EXPECT_TRUE(SameBits(Elements(copy), values));
  EXPECT_NE(copy.m_pData, v.m_pData);
  const CZEPHVector ofConst(static_cast<const CZEPHVector&>(v));
  EXPECT_TRUE(SameBits(Elements(ofConst), values));
}

TEST(VectorStorage, FreeKeepsTheSizeAndOperationsFindNoElement) {
  CZEPHVector freed = ToVector({1, 2}), full = ToVector({3, 4});
  freed.Free();
  freed.Free();
  EXPECT_EQ(freed.GetSize(), 2);
  EXPECT_EQ(freed.m_pData, nullptr);
  EXPECT_EQ(freed.size(), 0u);
  EXPECT_EQ(freed.begin(), freed.end());
  const CZEPHVector& fixed = freed;
  EXPECT_EQ(fixed.size(), 0u);
  EXPECT_EQ(fixed.data(), nullptr);
  EXPECT_EQ(fixed.begin(), nullptr);
  EXPECT_EQ(fixed.end(), nullptr);
  EXPECT_TRUE(SameBits(Elements(CZEPHVector(freed)), {0, 0}));
  EXPECT_TRUE(SameBits(Elements(freed + full), {0, 0}));
  EXPECT_TRUE(SameBits(Elements(full - freed), {0, 0}));
  EXPECT_TRUE(SameBits(Elements(freed / 2.0), {0, 0}));
  EXPECT_TRUE(SameBits(Elements(CZEPHVector(2, nullptr)), {0, 0}));
  EXPECT_EQ(ZEPH_GetVectorMaxSite(freed), 0);
  EXPECT_EQ(ZEPH_GetVectorSquareNorm(freed), 0.0);
  EXPECT_EQ(ZEPH_GetVectorInfititeNorm(freed), 0.0);
  freed = full;
  EXPECT_EQ(freed.m_pData, nullptr);
  full = freed;
  EXPECT_TRUE(SameBits(Elements(full), {3, 4}));
  CZEPHVector other(5);
  other = freed;
  EXPECT_TRUE(SameBits(Elements(other), {0, 0}));
}

TEST(VectorStorage, ReturnsAndMovesWithoutCopying) {
  CZEPHVector v = ALocal();
  double* const data = v.m_pData;
  CZEPHVector moved(std::move(v));
  EXPECT_EQ(moved.m_pData, data);
  ExpectEmpty(v);
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<CZEPHVector>);
  Bare bare;
  bare.Create(2);
  EXPECT_EQ(bare.GetSize(), 2);
}

TEST(VectorStorage, AssignmentResizesAndReturnsACopy) {
  CZEPHVector target(3), source = ToVector({1, 2});
  CZEPHVector result = (target = source);
  EXPECT_TRUE(SameBits(Elements(target), {1, 2}));
  EXPECT_TRUE(SameBits(Elements(result), {1, 2}));
  EXPECT_NE(result.m_pData, target.m_pData);
  double* const data = target.m_pData;
  target = ToVector({5, 6});
  EXPECT_EQ(target.m_pData, data);
  const CZEPHVector& same = target;
  target = same;
  EXPECT_TRUE(SameBits(Elements(target), {5, 6}));
  target = CZEPHVector();
  ExpectEmpty(target);
}

TEST(VectorStorage, IsAnEmptyRangeWithACountBelowOne) {
  CZEPHVector v = ToVector({3, 1, 2});
  v.m_nSize = -1;
  EXPECT_EQ(v.size(), 0u);
  EXPECT_EQ(v.begin(), v.end());
  const CZEPHVector& fixed = v;
  EXPECT_EQ(fixed.begin(), v.m_pData);
  EXPECT_EQ(fixed.end(), v.m_pData);
  v.m_nSize = 3;
}

TEST(VectorStorage, HasNoElementInAnyOperationWithACountBelowOne) {
  for (const int count : {0, -1, -7}) {
    CZEPHVector v = ToVector({3, 1, 2}), w = ToVector({4, 5, 6});
    v.m_nSize = w.m_nSize = count;
    v = w;
    EXPECT_EQ((v + w).m_pData, nullptr);
    EXPECT_EQ((v - w).m_pData, nullptr);
    EXPECT_EQ((v * 2.0).m_pData, nullptr);
    EXPECT_EQ((v / 2.0).m_pData, nullptr);
    EXPECT_EQ(CZEPHVector(v).m_pData, nullptr);
    EXPECT_EQ(ZEPH_GetVectorMaxSite(v), 0);
    EXPECT_EQ(ZEPH_GetVectorMinSite(v), 0);
    EXPECT_SAME_BITS(ZEPH_GetVectorSquareNorm(v), 0.0);
    EXPECT_SAME_BITS(ZEPH_GetVectorInfititeNorm(v), 0.0);
    EXPECT_EQ(Written([&](FILE* f) { v.Display(f, ';'); }), "\n");
    EXPECT_EQ(v.m_nSize, count);
    v.m_nSize = 3;
    EXPECT_TRUE(SameBits(Elements(v), {3, 1, 2}));
  }
}

TEST(VectorStorage, IsARangeOfItsElements) {
  CZEPHVector v = ToVector({3, 1, 2});
  EXPECT_EQ(v.size(), 3u);
  EXPECT_EQ(v.data(), v.m_pData);
  std::sort(v.begin(), v.end());
  EXPECT_TRUE(SameBits(Elements(v), {1, 2, 3}));
  const CZEPHVector& fixed = v;
  EXPECT_EQ(fixed.data(), v.data());
  EXPECT_EQ(std::accumulate(fixed.begin(), fixed.end(), 0.0), 6.0);
  for (double x : CZEPHVector()) FAIL() << x;
}

TEST(VectorArithmetic, AddsSubtractsAndScalesElementByElement) {
  for (int n : {0, 1, 2, 3, 8, 33}) {
    const std::vector<double> x = Awkward(Count(n), 1), y = Awkward(Count(n), 2);
    CZEPHVector a = ToVector(x), b = ToVector(y);
    for (double s : {0.0, -0.0, 1.0, -3.5, 1e300, 0.1}) {
      SCOPED_TRACE(::testing::Message() << "n " << n << ", s " << s);
      std::vector<double> sum(x), difference(x), scaled(x);
      for (std::size_t i = 0; i < x.size(); ++i) {
        sum[i] = x[i] + y[i];
        difference[i] = x[i] - y[i];
        scaled[i] = x[i] * s;
      }
      EXPECT_TRUE(SameValues(Elements(a + b), sum));
      EXPECT_TRUE(SameValues(Elements(a - b), difference));
      EXPECT_TRUE(SameValues(Elements(s * a), scaled));
      EXPECT_TRUE(SameValues(Elements(a * s), scaled));
    }
    EXPECT_TRUE(SameBits(Elements(a), x)) << "n " << n;
  }
}

TEST(VectorArithmetic, MayBeBothOperandsOrScaledByItsOwnElement) {
  for (int n : {1, 2, 3, 5, 9, 17, 40}) {
    const std::vector<double> x = Moderate(Count(n), static_cast<std::uint64_t>(n));
    CZEPHVector v = ToVector(x);
    std::vector<double> twice(x), scaled(x), divided(x);
    for (std::size_t i = 0; i < x.size(); ++i) {
      twice[i] = x[i] + x[i];
      scaled[i] = x[i] * x[0];
      divided[i] = x[i] * (1.0 / x[0]);
    }
    EXPECT_TRUE(SameBits(Elements(v + v), twice));
    EXPECT_TRUE(SameBits(Elements(v - v), std::vector<double>(Count(n), 0.0)));
    EXPECT_TRUE(SameBits(Elements(v * v[0]), scaled));
    EXPECT_TRUE(SameBits(Elements(v[0] * v), scaled));
    EXPECT_TRUE(SameBits(Elements(v / v[0]), divided));
    v = v * v[0];
    EXPECT_TRUE(SameBits(Elements(v), scaled));
  }
}

TEST(VectorArithmetic, OfOneVectorTwiceMeetsEveryKindOfNumber) {
  for (int n = 1; n <= 40; ++n) {
    const std::vector<double> x = Awkward(Count(n), static_cast<std::uint64_t>(n) + 60);
    CZEPHVector v = ToVector(x);
    std::vector<double> twice(x), none(x);
    for (std::size_t i = 0; i < x.size(); ++i) twice[i] = x[i] + x[i], none[i] = x[i] - x[i];
    EXPECT_TRUE(SameValues(Elements(v + v), twice)) << n;
    EXPECT_TRUE(SameValues(Elements(v - v), none)) << n;  // of an infinity that is a NaN
    for (const double s : x) {
      std::vector<double> scaled(x);
      for (double& e : scaled) e = e * s;
      EXPECT_TRUE(SameValues(Elements(v * s), scaled)) << n;
    }
    v = v - v;
    EXPECT_TRUE(SameValues(Elements(v), none)) << n;
  }
}

TEST(VectorArithmetic, MultipliesByTheReciprocalOrKeepsTheVectorNearZero) {
  const std::vector<double> x = Moderate(40, 3);
  CZEPHVector v = ToVector(x);
  for (double d : {3.0, -7.0, 2.0, 1.0000001e-8, -1e-7, 1e300, kInfinity}) {
    volatile double reciprocal = 1.0 / d;
    std::vector<double> want(x);
    for (double& e : want) e = e * reciprocal;
    EXPECT_TRUE(SameBits(Elements(v / d), want)) << d;
  }
  for (double d : {0.0, -0.0, 1e-9, 1e-8, -1e-8, kNaN})
    EXPECT_TRUE(SameBits(Elements(v / d), x)) << "d " << d;
  EXPECT_SAME_BITS((ToVector({49.0}) / 49.0)[0], 49.0 * (1.0 / 49.0));  // not 1
}

TEST(VectorArithmetic, ResultsAllocateOnce) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHVector a(5, Moderate(5, 1).data()), b(a);
  const auto cost = [](auto body) {
    const long before = AllocationCount();
    body();
    return AllocationCount() - before;
  };
  EXPECT_EQ(cost([&] { CZEPHVector c = a + b; }), 1);
  EXPECT_EQ(cost([&] { CZEPHVector c = a - b; }), 1);
  EXPECT_EQ(cost([&] { CZEPHVector c = a / 3.0; }), 1);
  EXPECT_EQ(cost([&] { CZEPHVector c = 2.0 * a; }), 1);
  EXPECT_EQ(cost([&] { a = b; }), 1);  // the copy that the assignment returns
}

TEST(VectorMeasures, FindTheFirstExtremeAndIgnoreNaN) {
  const auto max = [](std::vector<double> v) {
    CZEPHVector x = ToVector(v);
    return ZEPH_GetVectorMaxSite(x);
  };
  const auto min = [](std::vector<double> v) {
    CZEPHVector x = ToVector(v);
    return ZEPH_GetVectorMinSite(x);
  };
  EXPECT_EQ(max({1, 5, 5}), 1);
  EXPECT_EQ(min({2, 1, 1}), 1);
  EXPECT_EQ(max({}), 0);
  EXPECT_EQ(min({}), 0);
  EXPECT_EQ(max({7}), 0);
  EXPECT_EQ(max({kNaN, 1, 2}), 0);
  EXPECT_EQ(min({kNaN, 1, 2}), 0);
  EXPECT_EQ(max({1, kNaN, 2}), 2);
  EXPECT_EQ(max({-0.0, 0.0}), 0);
  EXPECT_EQ(min({0.0, -0.0}), 0);
}

TEST(VectorMeasures, AgreeWithTheOracleOnEveryShortVector) {
  for (std::size_t n = 0; n <= 5; ++n)
    ForEachArray<double>({-kInfinity, -1.0, 0.0, 1.0, kNaN}, n, [](std::vector<double> v) {
      int most = 0, least = 0;
      double largest = v.empty() ? 0.0 : std::fabs(v[0]);
      for (std::size_t i = 1; i < v.size(); ++i) {
        if (v[i] > v[Count(most)]) most = static_cast<int>(i);
        if (v[Count(least)] > v[i]) least = static_cast<int>(i);
        if (std::fabs(v[i]) > largest) largest = std::fabs(v[i]);
      }
      CZEPHVector x = ToVector(v);
      EXPECT_EQ(ZEPH_GetVectorMaxSite(x), most) << ::testing::PrintToString(v);
      EXPECT_EQ(ZEPH_GetVectorMinSite(x), least) << ::testing::PrintToString(v);
      EXPECT_SAME_VALUE(ZEPH_GetVectorInfititeNorm(x), largest) << ::testing::PrintToString(v);
      ZEPH_GetVectorSquareNorm(x);
      EXPECT_TRUE(SameBits(Elements(x), v));  // measuring changes nothing
    });
}

TEST(VectorMeasures, AgreeWithTheOracleOnLongVectors) {
  for (std::size_t n : {7u, 16u, 33u, 100u, 1001u})
    for (const Order& order : Orders()) {
      const std::vector<double> v = order.make(n, n);
      CZEPHVector x = ToVector(v);
      std::size_t most = 0, least = 0;
      double largest = std::fabs(v[0]);
      volatile double sum = 0.0;
      for (std::size_t i = 0; i < n; ++i) {
        if (v[i] > v[most]) most = i;
        if (v[least] > v[i]) least = i;
        if (std::fabs(v[i]) > largest) largest = std::fabs(v[i]);
        volatile double square = v[i] * v[i];
        sum = sum + square;
      }
      const double norm = sum;
      EXPECT_EQ(ZEPH_GetVectorMaxSite(x), static_cast<int>(most)) << order.name;
      EXPECT_EQ(ZEPH_GetVectorMinSite(x), static_cast<int>(least)) << order.name;
      EXPECT_SAME_VALUE(ZEPH_GetVectorInfititeNorm(x), largest) << "n " << n << ", " << order.name;
      EXPECT_SAME_VALUE(ZEPH_GetVectorSquareNorm(x), norm) << "n " << n << ", " << order.name;
      EXPECT_TRUE(SameBits(Elements(x), v)) << "n " << n << ", " << order.name;
    }
}

TEST(VectorMeasures, SquareNormTakesNoRoot) {
  const auto square = [](std::vector<double> v) {
    CZEPHVector x = ToVector(v);
    return ZEPH_GetVectorSquareNorm(x);
  };
  const auto largest = [](std::vector<double> v) {
    CZEPHVector x = ToVector(v);
    return ZEPH_GetVectorInfititeNorm(x);
  };
  EXPECT_EQ(square({3, 4}), 25.0);
  EXPECT_EQ(largest({3, -4}), 4.0);
  EXPECT_SAME_BITS(largest({}), 0.0);
  EXPECT_SAME_BITS(largest({-0.0}), 0.0);
  EXPECT_SAME_BITS(square({}), 0.0);
}
