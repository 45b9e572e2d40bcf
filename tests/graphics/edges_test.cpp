// Operands near the edges of single precision, where an intermediate result of another order overflows
// or is lost.
#include <gtest/gtest.h>

#include "graphics/values.h"

using namespace zeph::test;

namespace {

template <class V>
V EdgeVector(Random& random) {
  V v;
  for (std::size_t i = 0; i < Array(v).size(); ++i)
    (&v.x)[i] = random.Below(3) ? EdgeFloat(random) : AnyFloatUnnoted(random, random.Below(4) == 0);
  DrawnOperands::OfThisCase().Note("vector", &v.x, Array(v).size());
  return v;
}

CZEPHMatrix4x4 EdgeMatrix(Random& random) {
  CZEPHMatrix4x4 m;
  const std::size_t kind = random.Below(3);
  const int common = random.Int(-3, 3) * 40;  // entries of one size, whose products cancel
  for (float& entry : m.entries)
    entry = kind == 0 ? EdgeFloat(random)
                      : std::ldexp(static_cast<float>(random.Int(-3, 3)), kind == 1 ? common : 0);
  if (random.Below(2)) {
    m.entries[3] = m.entries[7] = m.entries[11] = 0.0f;
    m.entries[15] = 1.0f;
  }
  DrawnOperands::OfThisCase().Note("matrix, column by column:", m.entries, 16);
  return m;
}

template <class V>
void CheckVectors(Random& random) {
  const V a = EdgeVector<V>(random), b = EdgeVector<V>(random), c = EdgeVector<V>(random);
  const float s = EdgeFloat(random), t = static_cast<float>(random.Real(-2, 2));
  const auto [sum, difference, scaled] = ByComponents(Array(a), Array(b), s);
  EXPECT_TRUE(Same(a + b, sum));
  EXPECT_TRUE(Same(a - b, difference));
  EXPECT_TRUE(Same(a * s, scaled));
  EXPECT_TRUE(Same(s * a, scaled));
  EXPECT_TRUE(Same(a / s, oracle::Divided(Array(a), s)));
  EXPECT_TRUE(Same(a.LinearInterpolate(b, t), oracle::Linear(Array(a), Array(b), t)));
  EXPECT_TRUE(Same(a.LinearInterpolate(b, s), oracle::Linear(Array(a), Array(b), s)));
  EXPECT_TRUE(
      Same(a.QuadraticInterpolate(b, c, t), oracle::Quadratic(Array(a), Array(b), Array(c), t)));
  EXPECT_TRUE(
      Same(a.QuadraticInterpolate(b, c, s), oracle::Quadratic(Array(a), Array(b), Array(c), s)));
}

template <class V>
void CheckLengths(Random& random) {
  const V v = EdgeVector<V>(random);
  EXPECT_SAME_VALUE(v.GetSquaredLength(), oracle::Dot(Array(v), Array(v)));
  EXPECT_SAME_VALUE(v.GetLength(), oracle::Length(Array(v)));
  EXPECT_TRUE(Same(v.GetNormalized(), oracle::Normalized(Array(v))));
}

}  // namespace

TEST(GraphicsEdges, OfVectorsKeepTheirOrderOfRounding) {
  ForEachCase(Scaled(20'000), 91, [](Random& random) {
    CheckVectors<CZEPHVector2D>(random);
    CheckVectors<CZEPHVector3D>(random);
    CheckVectors<CZEPHVector4D>(random);
    CheckLengths<CZEPHVector2D>(random);
    CheckLengths<CZEPHVector3D>(random);
    const auto a = EdgeVector<CZEPHVector3D>(random), b = EdgeVector<CZEPHVector3D>(random);
    auto c = EdgeVector<CZEPHVector4D>(random);
    const auto d = EdgeVector<CZEPHVector4D>(random);
    EXPECT_SAME_VALUE(a.DotProduct(b), oracle::Dot(Array(a), Array(b)));
    EXPECT_SAME_VALUE(c.DotProduct(d), oracle::Dot(Array(c), Array(d)));
    EXPECT_TRUE(Same(a.CrossProduct(b), oracle::Cross(Array(a), Array(b))));
    EXPECT_TRUE(Same(a.GetPackedTo01(), oracle::Packed(Array(a))));
    EXPECT_TRUE(Same(c.operator CZEPHVector3D(), oracle::Projected(Array(c))));
    const double angle = AnyAngle(random);
    EXPECT_TRUE(Same(a.GetRotatedX(angle), oracle::RotatedX(Array(a), angle)));
    EXPECT_TRUE(Same(a.GetRotatedY(angle), oracle::RotatedY(Array(a), angle)));
    EXPECT_TRUE(Same(a.GetRotatedZ(angle), oracle::RotatedZ(Array(a), angle)));
    EXPECT_TRUE(Same(a.GetRotatedAxis(angle, b), oracle::RotatedAxis(Array(a), angle, Array(b))));
  });
}

TEST(GraphicsEdges, OfMatricesKeepTheirOrderOfRounding) {
  ForEachCase(Scaled(20'000), 92, [](Random& random) {
    const CZEPHMatrix4x4 a = EdgeMatrix(random), b = EdgeMatrix(random);
    const float s = EdgeFloat(random);
    const auto v = EdgeVector<CZEPHVector3D>(random);
    const auto w = EdgeVector<CZEPHVector4D>(random);
    EXPECT_TRUE(Same(a * b, oracle::Product(Array(a), Array(b))));
    EXPECT_TRUE(Same(a * w, oracle::Product(Array(a), Array(w))));
    EXPECT_TRUE(Same(a / s, oracle::Over(Array(a), s)));
    EXPECT_TRUE(Same(a.GetRotatedVector3D(v), oracle::Rotated(Array(a), Array(v))));
    EXPECT_TRUE(Same(a.GetInverseRotatedVector3D(v), oracle::InverseRotated(Array(a), Array(v))));
    EXPECT_TRUE(Same(a.GetInverseTranspose(), oracle::InverseTranspose(Array(a))));
    EXPECT_TRUE(Same(a.GetInverse(), oracle::Transposed(oracle::InverseTranspose(Array(a)))));
    const double angle = AnyAngle(random);
    CZEPHMatrix4x4 m;
    m.SetRotationAxis(angle, v);
    EXPECT_TRUE(Same(m, oracle::RotationAxis(angle, Array(v))));
    float p[6];
    for (float& x : p) x = random.Below(3) ? EdgeFloat(random) : AnyFloat(random, false);
    m.SetPerspective(p[0], p[1], p[2], p[3], p[4], p[5]);
    EXPECT_TRUE(Same(m, oracle::Frustum(p[0], p[1], p[2], p[3], p[4], p[5])));
    m.SetPerspective(p[0], p[1], p[2], p[3], p[4], -1.0f);
    EXPECT_TRUE(Same(m, oracle::Frustum(p[0], p[1], p[2], p[3], p[4], -1.0f)));
    m.SetPerspective(p[0], p[1], p[4], p[5]);
    EXPECT_TRUE(Same(m, oracle::Perspective(p[0], p[1], p[4], p[5])));
    m.SetOrtho(p[0], p[1], p[2], p[3], p[4], p[5]);
    EXPECT_TRUE(Same(m, oracle::Ortho(p[0], p[1], p[2], p[3], p[4], p[5])));
  });
}
