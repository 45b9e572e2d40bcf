#include <gtest/gtest.h>

#include "graphics/values.h"
#include "support/not_finite.h"

using namespace zeph::test;

// Every builder starts from the documented state, whatever the matrix held before.
static CZEPHMatrix4x4 Dirty() {
  CZEPHMatrix4x4 m;
  for (float& entry : m.entries) entry = kNaNF;
  return m;
}

template <class Build>
static CZEPHMatrix4x4 Built(Build build) {
  CZEPHMatrix4x4 m = Dirty();
  build(m);
  return m;
}

static oracle::Matrix With(oracle::Matrix m,
                           std::initializer_list<std::pair<std::size_t, float>> set) {
  for (const auto& [index, value] : set) m[index] = value;
  return m;
}

TEST(MatrixBuilders, TranslationAndScaleStoreTheirComponents) {
  ForEachCase(71, [](Random& random) {
    const auto v = AnyVector<CZEPHVector3D>(random);
    const oracle::Matrix one = oracle::Identity();
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetTranslation(v); }),
                     With(one, {{12, v.x}, {13, v.y}, {14, v.z}})));
    EXPECT_TRUE(
        Same(Built([&](auto& m) { m.SetScale(v); }), With(one, {{0, v.x}, {5, v.y}, {10, v.z}})));
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetUniformScale(v.x); }),
                     With(one, {{0, v.x}, {5, v.x}, {10, v.x}})));
    CZEPHMatrix4x4 m = AnyMatrix(random);
    const oracle::Matrix want = With(Array(m), {{12, v.x}, {13, v.y}, {14, v.z}});
    m.SetTranslationPart(v);
    EXPECT_TRUE(SameBits(m.entries, want.data(), 16));
  });
}

TEST(MatrixBuilders, RotationsHoldSineAndCosineRoundedToFloat) {
  ForEachCase(72, [](Random& random) {
    const double angle = AnyAngle(random);
    const float s = oracle::Sine(angle), c = oracle::Cosine(angle);
    const oracle::Matrix one = oracle::Identity();
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetRotationX(angle); }),
                     With(one, {{5, c}, {6, s}, {9, -s}, {10, c}})));
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetRotationY(angle); }),
                     With(one, {{0, c}, {2, -s}, {8, s}, {10, c}})));
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetRotationZ(angle); }),
                     With(one, {{0, c}, {1, s}, {4, -s}, {5, c}})));
    const auto axis = AnyVector<CZEPHVector3D>(random);
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetRotationAxis(angle, axis); }),
                     oracle::RotationAxis(angle, Array(axis))));
  });
}

TEST(MatrixBuilders, RotationsComputeSineAndCosineOfZeroToo) {
  const CZEPHMatrix4x4 m = Built([](auto& r) { r.SetRotationX(0); });
  EXPECT_EQ(m, CZEPHMatrix4x4());
  EXPECT_SAME_BITS(m.entries[9], -0.0f);
}

TEST(MatrixBuilders, EulerAnglesAreComputedInDoubleAndRoundedOnce) {
  ForEachCase(73, [](Random& random) {
    const double x = AnyAngle(random), y = AnyAngle(random), z = AnyAngle(random);
    CZEPHMatrix4x4 m = AnyMatrix(random);
    const oracle::Matrix want = oracle::WithEuler(Array(m), x, y, z);
    m.SetRotationPartEuler(x, y, z);
    EXPECT_TRUE(Same(m, want));
    EXPECT_TRUE(Same(Built([&](auto& r) { r.SetRotationEuler(x, y, z); }),
                     oracle::WithEuler(oracle::Identity(), x, y, z)));
    const CZEPHVector3D angles = AnyVector<CZEPHVector3D>(random);
    m.SetRotationPartEuler(angles);
    EXPECT_TRUE(Same(m, oracle::WithEuler(want, angles.x, angles.y, angles.z)));
  });
}

TEST(MatrixBuilders, EulerEntriesThatCancelKeepTheirOrderOfRounding) {
  // Where the two terms of an entry nearly cancel, the result is the rounding error of the double
  // products, and a float shows every bit of it.
  ForEachCase(Scaled(20'000), 76, [](Random& random) {
    const double x = random.Real(-180, 180), y = random.Real(-180, 180);
    const double sx = oracle::SineInDouble(x), cx = oracle::CosineInDouble(x);
    const double sy = oracle::SineInDouble(y);
    for (const double radians : {std::atan2(sy * sx, cx), std::atan2(-cx, sy * sx),
                                 std::atan2(-sy * cx, sx), std::atan2(sx, sy * cx)}) {
      const double z = radians * 180.0 / 3.141592653589793;
      CZEPHMatrix4x4 m;
      m.SetRotationEuler(x, y, z);
      EXPECT_TRUE(Same(m, oracle::WithEuler(oracle::Identity(), x, y, z)));
    }
  });
}

TEST(MatrixBuilders, EulerAnglesTurnAboutXThenYThenZ) {
  EXPECT_EQ(Built([](auto& m) { m.SetRotationEuler(0, 0, 0); }), CZEPHMatrix4x4());
  CZEPHMatrix4x4 euler, x, y, z;
  euler.SetRotationEuler(20, -35, 110);
  x.SetRotationX(20), y.SetRotationY(-35), z.SetRotationZ(110);
  const CZEPHMatrix4x4 product = z * y * x;
  for (int i = 0; i < 16; ++i)
    EXPECT_NEAR(euler.entries[i], product.entries[i], 2e-7f) << "i " << i;
}

TEST(MatrixBuilders, TheInverseRotationUndoesAQuarterTurn) {
  CZEPHMatrix4x4 m;
  m.SetRotationZ(90);
  const CZEPHVector3D turned = m.GetRotatedVector3D(CZEPHVector3D(1, 0, 0));
  EXPECT_TRUE(Same(turned, {oracle::Cosine(90), 1, 0}));
  const CZEPHVector3D back = m.GetInverseRotatedVector3D(turned);
  EXPECT_NEAR(back.x, 1, 1e-6f);
  EXPECT_NEAR(back.y, 0, 1e-6f);
}

// Six planes; often two of them equal, or the far one at infinity.
static std::array<float, 6> AnyPlanes(Random& random) {
  std::array<float, 6> p;
  const bool awkward = random.Below(4) == 0;
  for (float& x : p) x = awkward && random.Below(2) ? EdgeFloat(random) : AnyFloat(random, awkward);
  for (const std::size_t i : {0u, 2u, 4u})
    if (random.Below(8) == 0) p[i + 1] = p[i];
  if (random.Below(4) == 0) p[5] = -1.0f;
  return p;
}

TEST(MatrixBuilders, FrustumsKeepTheirOrderOfRounding) {
  ForEachCase(74, [](Random& random) {
    const auto p = AnyPlanes(random);
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetPerspective(p[0], p[1], p[2], p[3], p[4], p[5]); }),
                     oracle::Frustum(p[0], p[1], p[2], p[3], p[4], p[5])));
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetPerspective(10 * p[0], p[1], p[4], p[5]); }),
                     oracle::Perspective(10 * p[0], p[1], p[4], p[5])));
  });
}

TEST(MatrixBuilders, AnOrthographicProjectionDividesByZeroUnchecked) {
  ForEachCase(75, [](Random& random) {
    const auto p = AnyPlanes(random);
    EXPECT_TRUE(Same(Built([&](auto& m) { m.SetOrtho(p[0], p[1], p[2], p[3], p[4], p[5]); }),
                     oracle::Ortho(p[0], p[1], p[2], p[3], p[4], p[5])));
  });
  const CZEPHMatrix4x4 flat = Built([](auto& m) { m.SetOrtho(1, 1, 0, 2, 0, 1); });
  EXPECT_EQ(flat.entries[0], kInfinityF);
}

TEST(MatrixBuilders, ADegenerateFrustumIsAllZeros) {
  const oracle::Matrix zero{};
  EXPECT_TRUE(Same(Built([](auto& m) { m.SetPerspective(2, 2, -1, 1, 1, 10); }), zero));
  EXPECT_TRUE(Same(Built([](auto& m) { m.SetPerspective(-1, 1, 3, 3, 1, 10); }), zero));
  EXPECT_TRUE(Same(Built([](auto& m) { m.SetPerspective(-1, 1, -1, 1, 5, 5); }), zero));
  EXPECT_TRUE(Same(Built([](auto& m) { m.SetPerspective(0, 1, 1, 10); }), zero));
}

TEST(MatrixBuilders, AFarPlaneOfMinusOneMeansInfinity) {
  const CZEPHMatrix4x4 m = Built([](auto& r) { r.SetPerspective(-1, 1, -1, 1, 3, -1); });
  EXPECT_EQ(m.entries[10], -0.999f);
  EXPECT_EQ(m.entries[11], -1.0f);
  EXPECT_EQ(m.entries[14], oracle::Mul(-6.0f, 0.999f));
  EXPECT_EQ(m.entries[15], 0.0f);
}

TEST(MatrixBuilders, AFieldOfViewOfNinetyDegreesIsTheClassicFrustum) {
  const CZEPHMatrix4x4 m = Built([](auto& r) { r.SetPerspective(90, 1, 1, 100); });
  EXPECT_NEAR(m.entries[0], 1, 1e-6f);
  EXPECT_NEAR(m.entries[5], 1, 1e-6f);
  EXPECT_EQ(m.entries[10], -(101.0f / 99.0f));
  EXPECT_EQ(m.entries[11], -1.0f);
  EXPECT_EQ(m.entries[14], -(200.0f / 99.0f));
  EXPECT_EQ(m.entries[15], 0.0f);
}

TEST(MatrixBuilders, TheUnitBoxProjectsToTheIdentityWithDepthReversed) {
  const CZEPHMatrix4x4 m = Built([](auto& r) { r.SetOrtho(-1, 1, -1, 1, -1, 1); });
  EXPECT_TRUE(Same(m, With(oracle::Identity(), {{10, -1}, {12, -0.0f}, {13, -0.0f}, {14, -0.0f}})));
}
