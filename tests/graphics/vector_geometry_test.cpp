#include <gtest/gtest.h>

#include <cstring>

#include "graphics/values.h"

using namespace zeph::test;

template <class V>
static void CheckLengths(Random& random) {
  V v = AnyVector<V>(random);
  EXPECT_SAME_VALUE(v.GetSquaredLength(), oracle::Dot(Array(v), Array(v)));
  EXPECT_SAME_VALUE(v.GetLength(), oracle::Length(Array(v)));
  EXPECT_TRUE(Same(v.GetNormalized(), oracle::Normalized(Array(v))));
  const oracle::Vector want = oracle::Normalized(Array(v));
  v.Normalize();
  EXPECT_TRUE(Same(v, want));
  // A vector that is already normalised has a length near 1, where the rounded length decides.
  EXPECT_TRUE(Same(v.GetNormalized(), oracle::Normalized(want)));
}

TEST(VectorGeometry, LengthsAndNormalisationKeepTheirOrderOfRounding) {
  ForEachCase(11, [](Random& random) {
    CheckLengths<CZEPHVector2D>(random);
    CheckLengths<CZEPHVector3D>(random);
  });
}

TEST(VectorGeometry, NormalisationLeavesZeroAndUnitVectorsUnchanged) {
  CZEPHVector3D zero(-0.0f, 0, 0), unit(1, 0, 0);
  const CZEPHVector3D wasZero = zero, wasUnit = unit;
  zero.Normalize(), unit.Normalize();
  EXPECT_TRUE(Moved(zero, wasZero));
  EXPECT_TRUE(Moved(unit, wasUnit));
  const float fifth = 1.0f / 5.0f;
  EXPECT_TRUE(Same(CZEPHVector2D(3, 4).GetNormalized(), {3.0f * fifth, 4.0f * fifth}));
}

template <class V>
static void CheckInterpolation(Random& random) {
  const V a = AnyVector<V>(random), b = AnyVector<V>(random), c = AnyVector<V>(random);
  const float t =
      random.Below(4) ? static_cast<float>(random.Real(-0.5, 1.5)) : AwkwardValue<float>(random);
  EXPECT_TRUE(Same(a.LinearInterpolate(b, t), oracle::Linear(Array(a), Array(b), t)));
  EXPECT_TRUE(
      Same(a.QuadraticInterpolate(b, c, t), oracle::Quadratic(Array(a), Array(b), Array(c), t)));
}

TEST(VectorGeometry, InterpolationsKeepTheirOrderOfRounding) {
  ForEachCase(12, [](Random& random) {
    CheckInterpolation<CZEPHVector2D>(random);
    CheckInterpolation<CZEPHVector3D>(random);
    CheckInterpolation<CZEPHVector4D>(random);
  });
}

TEST(VectorGeometry, InterpolationsReachTheirEndPoints) {
  const CZEPHVector3D a(1, 2, 3), b(5, -7, 9), c(4, 4, 4);
  EXPECT_EQ(a.LinearInterpolate(b, 0), a);
  EXPECT_EQ(a.LinearInterpolate(b, 1), b);
  EXPECT_TRUE(Same(a.LinearInterpolate(b, 0.5f), {3, -2.5f, 6}));
  EXPECT_EQ(a.QuadraticInterpolate(b, c, 0), a);
  EXPECT_EQ(a.QuadraticInterpolate(b, c, 1), c);
  EXPECT_TRUE(Same(CZEPHVector2D(0, 0).QuadraticInterpolate({1, 2}, {2, 0}, 0.5f), {1, 1}));
}

TEST(VectorGeometry, OperationsThatAreNotConstLeaveTheirOperandsAlone) {
  ForEachCase(Scaled(2'000), 15, [](Random& random) {
    auto a = AnyVector<CZEPHVector3D>(random), b = AnyVector<CZEPHVector3D>(random);
    auto v = AnyVector<CZEPHVector4D>(random), w = AnyVector<CZEPHVector4D>(random);
    const CZEPHVector3D keptA(a), keptB(b);
    const CZEPHVector4D keptV(v), keptW(w);
    CZEPHVector3D result;
    a.Add(b, result), a.Subtract(b, result), v.DotProduct(w);
    result = CZEPHVector3D(v);
    EXPECT_TRUE(Moved(a, keptA));
    EXPECT_TRUE(Moved(b, keptB));
    EXPECT_TRUE(Moved(v, keptV));
    EXPECT_TRUE(Moved(w, keptW));
  });
}

TEST(VectorGeometry, ProductsAddTheirTermsInComponentOrder) {
  ForEachCase(13, [](Random& random) {
    const auto a = AnyVector<CZEPHVector3D>(random), b = AnyVector<CZEPHVector3D>(random);
    EXPECT_SAME_VALUE(a.DotProduct(b), oracle::Dot(Array(a), Array(b)));
    EXPECT_TRUE(Same(a.CrossProduct(b), oracle::Cross(Array(a), Array(b))));
    auto c = AnyVector<CZEPHVector4D>(random);
    const auto d = AnyVector<CZEPHVector4D>(random);
    EXPECT_SAME_VALUE(c.DotProduct(d), oracle::Dot(Array(c), Array(d)));
  });
}

TEST(VectorGeometry, ADotProductRoundsLeftToRight) {
  // (2^24 + 1) + 1 stays 2^24; any other order gives 2^24 + 2.
  const CZEPHVector3D big(16777216.0f, 1, 1), ones(1, 1, 1);
  EXPECT_EQ(big.DotProduct(ones), 16777216.0f);
  CZEPHVector4D four(16777216.0f, 1, 1, 1);
  EXPECT_EQ(four.DotProduct(CZEPHVector4D(1, 1, 1, 1)), 16777216.0f);
}

TEST(VectorGeometry, AddAndSubtractMayStoreIntoAnOperand) {
  CZEPHVector3D a(1, 2, 3), b(10, 20, 30), result;
  a.Add(b, result);
  EXPECT_TRUE(Same(result, {11, 22, 33}));
  a.Subtract(b, result);
  EXPECT_TRUE(Same(result, {-9, -18, -27}));
  EXPECT_TRUE(Same(a, {1, 2, 3}));
  a.Add(b, b);
  EXPECT_TRUE(Same(b, {11, 22, 33}));
  a.Subtract(b, a);
  EXPECT_TRUE(Same(a, {-10, -20, -30}));
}

TEST(VectorGeometry, OperandsMayBeTheSameVector) {
  ForEachCase(Scaled(2'000), 16, [](Random& random) {
    const auto v = AnyVector<CZEPHVector3D>(random), other = AnyVector<CZEPHVector3D>(random);
    const CZEPHVector3D same(v);
    CZEPHVector3D a(v), b(v), c(v), d(v);
    a.Add(a, a), b.Subtract(b, b), c.Add(other, c), d.Subtract(other, d);
    EXPECT_TRUE(Same(a, Array(same + v)));
    EXPECT_TRUE(Same(b, Array(same - v)));
    EXPECT_TRUE(Same(c, Array(v + other)));
    EXPECT_TRUE(Same(d, Array(v - other)));
    CZEPHVector3D e(other), f(other);
    CZEPHVector3D(v).Add(e, e), CZEPHVector3D(v).Subtract(f, f);
    EXPECT_TRUE(Same(e, Array(v + other)));
    EXPECT_TRUE(Same(f, Array(v - other)));
    EXPECT_TRUE(Same(v.CrossProduct(v), oracle::Cross(Array(v), Array(v))));
    EXPECT_SAME_VALUE(v.DotProduct(v), oracle::Dot(Array(v), Array(v)));
    EXPECT_TRUE(Same(v.LinearInterpolate(v, v.x), oracle::Linear(Array(v), Array(v), v.x)));
  });
}

TEST(VectorGeometry, PackingMapsDirectionsIntoTheUnitCube) {
  EXPECT_TRUE(Same(CZEPHVector3D(0, 0, -2).GetPackedTo01(), {0.5f, 0.5f, 0}));
  EXPECT_TRUE(Same(CZEPHVector3D().GetPackedTo01(), {0.5f, 0.5f, 0.5f}));
  ForEachCase(14, [](Random& random) {
    auto v = AnyVector<CZEPHVector3D>(random);
    const oracle::Vector want = oracle::Packed(Array(v));
    EXPECT_TRUE(Same(v.GetPackedTo01(), want));
    v.PackTo01();
    EXPECT_TRUE(Same(v, want));
  });
}

TEST(VectorGeometry, ProjectionDividesUnlessWIsZeroOrOne) {
  CZEPHVector4D half(2, 4, 6, 2), direction(2, 4, 6, -0.0f), point(2, 4, 6, 1);
  EXPECT_TRUE(Same(half.operator CZEPHVector3D(), {1, 2, 3}));
  EXPECT_TRUE(Same(direction.operator CZEPHVector3D(), {2, 4, 6}));
  EXPECT_TRUE(Same(point.operator CZEPHVector3D(), {2, 4, 6}));
  ForEachCase(15, [](Random& random) {
    auto v = AnyVector<CZEPHVector4D>(random);
    if (random.Below(8) == 0) v.w = 1;
    EXPECT_TRUE(Same(v.operator CZEPHVector3D(), oracle::Projected(Array(v))));
  });
}

TEST(VectorGeometry, EveryKindOfInitialisationProjects) {
  CZEPHVector4D v(2, 4, 6, 2);
  const CZEPHVector4D constant = v;
  const CZEPHVector3D copied = v;
  const CZEPHVector3D direct(v), fromConst(+constant);
  for (const CZEPHVector3D& p :
       {copied, direct, fromConst, static_cast<CZEPHVector3D>(v), CZEPHVector3D(+v)})
    EXPECT_TRUE(Same(p, {1, 2, 3}));
  CZEPHVector3D assigned;
  assigned = v;
  EXPECT_TRUE(Same(assigned, {1, 2, 3}));
}

TEST(VectorGeometry, AConstVector4DIsReadAsAnArrayFromItsFirstByte) {
  const CZEPHVector4D constant(2, 4, 6, 2);
  const CZEPHVector3D p(constant);
  EXPECT_EQ(std::memcmp(&p.x, static_cast<const void*>(&constant), sizeof(float[3])), 0);
}
