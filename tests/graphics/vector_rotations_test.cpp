#include <gtest/gtest.h>

#include "graphics/values.h"
#include "support/not_finite.h"

using namespace zeph::test;

// Calls `body(vector, angle, axis, random)`.
template <class Body>
static void ForEachTurn(std::uint64_t seed, Body body) {
  ForEachCase(seed, [&body](Random& random) {
    const auto v = AnyVector<CZEPHVector3D>(random);
    const double angle = AnyAngle(random);
    body(v, angle, AnyVector<CZEPHVector3D>(random), random);
  });
}

TEST(VectorRotations, AboutTheCoordinateAxesKeepTheirOrderOfRounding) {
  ForEachTurn(21, [](const CZEPHVector3D& v, double angle, const CZEPHVector3D&, Random&) {
    EXPECT_TRUE(Same(v.GetRotatedX(angle), oracle::RotatedX(Array(v), angle))) << angle;
    EXPECT_TRUE(Same(v.GetRotatedY(angle), oracle::RotatedY(Array(v), angle))) << angle;
    EXPECT_TRUE(Same(v.GetRotatedZ(angle), oracle::RotatedZ(Array(v), angle))) << angle;
  });
}

TEST(VectorRotations, AboutAnAxisKeepTheirOrderOfRounding) {
  ForEachTurn(22, [](const CZEPHVector3D& v, double angle, const CZEPHVector3D& axis, Random&) {
    EXPECT_TRUE(
        Same(v.GetRotatedAxis(angle, axis), oracle::RotatedAxis(Array(v), angle, Array(axis))))
        << angle;
  });
}

TEST(VectorRotations, TheMatrixAboutAnAxisRotatesAVectorToTheSameBits) {
  ForEachTurn(23, [](const CZEPHVector3D& v, double angle, const CZEPHVector3D& axis, Random&) {
    CZEPHMatrix4x4 m;
    m.SetRotationAxis(angle, axis);
    if (angle == 0.0) return;  // an exact copy there, without sine and cosine
    EXPECT_TRUE(Same(v.GetRotatedAxis(angle, axis), Array(m.GetRotatedVector3D(v)))) << angle;
  });
}

TEST(VectorRotations, InPlaceFormsStoreWhatTheOthersReturn) {
  ForEachTurn(24, [](const CZEPHVector3D& v, double angle, const CZEPHVector3D& axis, Random&) {
    CZEPHVector3D x = v, y = v, z = v, a = v;
    x.RotateX(angle), y.RotateY(angle), z.RotateZ(angle), a.RotateAxis(angle, axis);
    EXPECT_TRUE(Same(x, Array(v.GetRotatedX(angle))));
    EXPECT_TRUE(Same(y, Array(v.GetRotatedY(angle))));
    EXPECT_TRUE(Same(z, Array(v.GetRotatedZ(angle))));
    EXPECT_TRUE(Same(a, Array(v.GetRotatedAxis(angle, axis))));
    CZEPHVector3D itself = axis;
    itself.RotateAxis(angle, itself);
    EXPECT_TRUE(Same(itself, Array(axis.GetRotatedAxis(angle, axis))));
  });
}

TEST(VectorRotations, AVector4DRotatesItsFirstThreeComponentsAndKeepsW) {
  ForEachTurn(
      25, [](const CZEPHVector3D& v, double angle, const CZEPHVector3D& axis, Random& random) {
        const float w = AwkwardValue<float>(random);
        const CZEPHVector4D four(v.x, v.y, v.z, w);
        CZEPHVector4D x = four, y = four, z = four, a = four;
        x.RotateX(angle), y.RotateY(angle), z.RotateZ(angle), a.RotateAxis(angle, axis);
        const auto check = [w](const CZEPHVector4D& got, const CZEPHVector3D& want) {
          EXPECT_TRUE(Same(CZEPHVector3D(&got.x), Array(want)));
          EXPECT_SAME_BITS(got.w, w);
        };
        check(x, v.GetRotatedX(angle)), check(four.GetRotatedX(angle), v.GetRotatedX(angle));
        check(y, v.GetRotatedY(angle)), check(four.GetRotatedY(angle), v.GetRotatedY(angle));
        check(z, v.GetRotatedZ(angle)), check(four.GetRotatedZ(angle), v.GetRotatedZ(angle));
        check(a, v.GetRotatedAxis(angle, axis));
        check(four.GetRotatedAxis(angle, axis), v.GetRotatedAxis(angle, axis));
      });
}

TEST(VectorRotations, AnAngleOfZeroGivesAnExactCopy) {
  const float signalling = FromBits<float>(0x7FC01234u);
  for (const double zero : {0.0, -0.0}) {
    SCOPED_TRACE(::testing::Message() << "zero " << zero);
    const CZEPHVector3D v(signalling, -0.0f, kInfinityF);
    EXPECT_TRUE(Moved(v.GetRotatedX(zero), v));
    EXPECT_TRUE(Moved(v.GetRotatedY(zero), v));
    EXPECT_TRUE(Moved(v.GetRotatedZ(zero), v));
    EXPECT_TRUE(Moved(v.GetRotatedAxis(zero, CZEPHVector3D(kNaNF, 0, 0)), v));
  }
}

TEST(VectorRotations, AQuarterTurnLeavesTheTinyCosineOfARoundedHalfPi) {
  const CZEPHVector3D v = CZEPHVector3D(1, 0, 0).GetRotatedZ(90);
  EXPECT_EQ(v.x, oracle::Cosine(90));
  EXPECT_GT(v.x, 0.0f);
  EXPECT_LT(v.x, 1e-15f);
  EXPECT_EQ(v.y, 1.0f);
}

TEST(VectorRotations, AZeroAxisScalesByTheCosine) {
  const CZEPHVector3D v(1, -2, 3);
  EXPECT_EQ(v.GetRotatedAxis(60, CZEPHVector3D()), v * oracle::Cosine(60));
}

TEST(VectorRotations, AreRightHanded) {
  const auto isNear = [](const CZEPHVector3D& a, float x, float y, float z) {
    return (a - CZEPHVector3D(x, y, z)).GetLength() < 1e-6f;
  };
  EXPECT_TRUE(isNear(CZEPHVector3D(0, 1, 0).GetRotatedX(90), 0, 0, 1));
  EXPECT_TRUE(isNear(CZEPHVector3D(0, 0, 1).GetRotatedY(90), 1, 0, 0));
  EXPECT_TRUE(isNear(CZEPHVector3D(1, 0, 0).GetRotatedZ(90), 0, 1, 0));
  EXPECT_TRUE(isNear(CZEPHVector3D(1, 2, 3).GetRotatedAxis(120, {1, 1, 1}), 3, 1, 2));
}

TEST(VectorRotations, TinyAndSignedZeroAnglesMatchTheOracles) {
  const CZEPHVector3D vectors[] = {
      CZEPHVector3D(1, -2, 3),         CZEPHVector3D(0, -0.0f, 0),
      CZEPHVector3D(-0.0f, 0, -0.0f),  CZEPHVector3D(kInfinityF, 1, -2),
      CZEPHVector3D(1, kInfinityF, 0), CZEPHVector3D(-1, 0, kInfinityF)};
  const CZEPHVector3D axis(1, -2, 3);
  for (const double angle : {5e-324, -5e-324, 1e-310, 2.3e-308, -1e-200, 1e-40, -1e-30, 1e-9})
    for (const CZEPHVector3D& v : vectors) {
      EXPECT_TRUE(Same(v.GetRotatedX(angle), oracle::RotatedX(Array(v), angle))) << angle;
      EXPECT_TRUE(Same(v.GetRotatedY(angle), oracle::RotatedY(Array(v), angle))) << angle;
      EXPECT_TRUE(Same(v.GetRotatedZ(angle), oracle::RotatedZ(Array(v), angle))) << angle;
      EXPECT_TRUE(
          Same(v.GetRotatedAxis(angle, axis), oracle::RotatedAxis(Array(v), angle, Array(axis))))
          << angle;
    }
  for (const double angle : {0.0, -0.0, 5e-324, -5e-324, 360.0, -360.0}) {
    CZEPHMatrix4x4 m;
    m.SetRotationAxis(angle, axis);
    EXPECT_TRUE(Same(m, oracle::RotationAxis(angle, Array(axis)))) << angle;
    m.SetRotationEuler(angle, -angle, angle);
    EXPECT_TRUE(Same(m, oracle::WithEuler(oracle::Identity(), angle, -angle, angle))) << angle;
  }
}

// Where a sine or a cosine is nearly 0 or 1, only components of 0 show what was multiplied.
TEST(VectorRotations, ByPartsOfACircleKeepEveryBit) {
  std::vector<double> angles = {1e-300, 1e-9, 0.5, 1, 30, 45, 60};
  for (int quarter = 1; quarter <= 8; ++quarter) angles.push_back(90.0 * quarter);
  for (const double angle : {3600.0, 36000.0, 1e6, 5e-324}) angles.push_back(angle);
  oracle::Vector parts = {0.0f, -0.0f, 1.0f, -1.0f, 1e20f};
  parts.resize(Scaled<std::size_t>(5, 3));
  for (const double size : angles)
    for (const double angle : {size, -size})
      for (const float x : parts)
        for (const float y : parts)
          for (const float z : parts) {
            SCOPED_TRACE(::testing::Message() << angle << ": " << x << ", " << y << ", " << z);
            const CZEPHVector3D v(x, y, z);
            ASSERT_TRUE(Same(v.GetRotatedX(angle), oracle::RotatedX(Array(v), angle)));
            ASSERT_TRUE(Same(v.GetRotatedY(angle), oracle::RotatedY(Array(v), angle)));
            ASSERT_TRUE(Same(v.GetRotatedZ(angle), oracle::RotatedZ(Array(v), angle)));
            for (const CZEPHVector3D& axis :
                 {CZEPHVector3D(1, 0, 0), CZEPHVector3D(0, -2, 0), CZEPHVector3D(0, 0, 1e-30f)}) {
              ASSERT_TRUE(Same(v.GetRotatedAxis(angle, axis),
                               oracle::RotatedAxis(Array(v), angle, Array(axis))));
              CZEPHMatrix4x4 m;
              m.SetRotationAxis(angle, axis);
              ASSERT_TRUE(Same(m, oracle::RotationAxis(angle, Array(axis))));
            }
          }
}
