// GLM as an independent reference: another author's formulas, rounded in another order, agree
// within a few ulps. An ulp is taken of the largest number that the result was summed from.
#ifdef ZEPH_TEST_GLM
#define GLM_ENABLE_EXPERIMENTAL
#include <gtest/gtest.h>

#include <glm/glm.hpp>
#include <glm/gtc/matrix_inverse.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtx/euler_angles.hpp>

#include "graphics/values.h"

using namespace zeph::test;

const std::size_t kCases = Scaled(50'000);
constexpr float kEpsilon = std::numeric_limits<float>::epsilon();

static float Real(Random& random, double lo, double hi) {
  return static_cast<float>(random.Real(lo, hi));
}

static CZEPHMatrix4x4 Moderate(Random& random, float diagonal) {
  CZEPHMatrix4x4 m;
  for (float& entry : m.entries) entry = Real(random, -1, 1);
  for (int i = 0; i < 16; i += 5) m.entries[i] += diagonal;
  return m;
}

static glm::mat4 ToGlm(const CZEPHMatrix4x4& m) {
  glm::mat4 r(1.0f);
  for (int i = 0; i < 16; ++i) r[i / 4][i % 4] = m.entries[i];
  return r;
}

static float Largest(const glm::mat4& m) {
  float largest = 0;
  for (int i = 0; i < 16; ++i) largest = std::max(largest, std::fabs(m[i / 4][i % 4]));
  return largest;
}

/// Every entry within `ulps` of the other, an ulp being that of `scale`.
static ::testing::AssertionResult Within(const CZEPHMatrix4x4& got, const glm::mat4& want,
                                         float ulps, float scale) {
  for (int i = 0; i < 16; ++i) {
    const float apart = std::fabs(got.entries[i] - want[i / 4][i % 4]);
    if (!(apart <= ulps * kEpsilon * scale))
      return ::testing::AssertionFailure()
             << "entry " << i << ": " << got.entries[i] << " and " << want[i / 4][i % 4] << ", "
             << apart / (kEpsilon * scale) << " ulps apart";
  }
  return ::testing::AssertionSuccess();
}

TEST(GlmAgrees, OnProductsWithinTwoUlps) {
  ForEachCase(kCases, 101, [](Random& random) {
    const CZEPHMatrix4x4 a = Moderate(random, 0), b = Moderate(random, 0);
    EXPECT_TRUE(Within(a * b, ToGlm(a) * ToGlm(b), 2, 2));
    const CZEPHVector4D v(Real(random, -1, 1), Real(random, -1, 1), Real(random, -1, 1), 1);
    const CZEPHVector4D got = a * v;
    const glm::vec4 want = ToGlm(a) * glm::vec4(v.x, v.y, v.z, v.w);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR((&got.x)[i], want[i], 2 * kEpsilon * 2);
  });
}

TEST(GlmAgrees, OnInversesWithinSixteenUlps) {
  ForEachCase(kCases, 102, [](Random& random) {
    const CZEPHMatrix4x4 m = Moderate(random, 4);
    const glm::mat4 want = glm::inverse(ToGlm(m));
    EXPECT_TRUE(Within(m.GetInverse(), want, 16, Largest(want)));
    const glm::mat4 transposed = glm::inverseTranspose(ToGlm(m));
    EXPECT_TRUE(Within(m.GetInverseTranspose(), transposed, 16, Largest(transposed)));
    CZEPHMatrix4x4 rigid;
    rigid.SetRotationEuler(random.Real(-180, 180), random.Real(-180, 180), 30);
    rigid.SetTranslationPart(CZEPHVector3D(1, -2, Real(random, -3, 3)));
    EXPECT_TRUE(Within(rigid.GetAffineInverse(), glm::affineInverse(ToGlm(rigid)), 16, 4));
  });
}

TEST(GlmAgrees, OnRotationsWithinFourUlps) {
  ForEachCase(kCases, 103, [](Random& random) {
    const double angle = random.Real(-180, 180);
    const float radians = static_cast<float>(angle * 3.141592653589793 / 180.0);
    // A float angle is off by up to half an ulp of pi itself, two of the entries' ulps.
    const glm::mat4 one(1.0f);
    CZEPHMatrix4x4 m;
    m.SetRotationX(angle);
    EXPECT_TRUE(Within(m, glm::rotate(one, radians, glm::vec3(1, 0, 0)), 4, 1));
    m.SetRotationY(angle);
    EXPECT_TRUE(Within(m, glm::rotate(one, radians, glm::vec3(0, 1, 0)), 4, 1));
    m.SetRotationZ(angle);
    EXPECT_TRUE(Within(m, glm::rotate(one, radians, glm::vec3(0, 0, 1)), 4, 1));
    const CZEPHVector3D axis(Real(random, -1, 1), Real(random, -1, 1), Real(random, 0.1, 1));
    m.SetRotationAxis(angle, axis);
    EXPECT_TRUE(Within(m, glm::rotate(one, radians, glm::vec3(axis.x, axis.y, axis.z)), 4, 1));
  });
}

TEST(GlmAgrees, OnEulerAnglesAboutXThenYThenZWithinSixUlps) {
  ForEachCase(kCases, 104, [](Random& random) {
    const double x = random.Real(-180, 180), y = random.Real(-180, 180), z = random.Real(-180, 180);
    const auto radians = [](double degrees) {
      return static_cast<float>(degrees * 3.141592653589793 / 180.0);
    };
    CZEPHMatrix4x4 m;
    m.SetRotationEuler(x, y, z);
    // GLM names the matrices of the product from the left, and takes the angles in that order.
    EXPECT_TRUE(Within(m, glm::eulerAngleZYX(radians(z), radians(y), radians(x)), 6, 1));
  });
}

TEST(GlmAgrees, OnProjectionsWithinFourUlps) {
  ForEachCase(kCases, 105, [](Random& random) {
    const float left = Real(random, -2, -0.5), right = Real(random, 0.5, 2);
    const float bottom = Real(random, -2, -0.5), top = Real(random, 0.5, 2);
    const float nearPlane = Real(random, 0.1, 1), farPlane = Real(random, 2, 100);
    CZEPHMatrix4x4 m;
    m.SetPerspective(left, right, bottom, top, nearPlane, farPlane);
    glm::mat4 want = glm::frustumRH_NO(left, right, bottom, top, nearPlane, farPlane);
    EXPECT_TRUE(Within(m, want, 4, Largest(want)));
    const float fovy = Real(random, 20, 120), aspect = Real(random, 0.5, 2);
    m.SetPerspective(fovy, aspect, nearPlane, farPlane);
    want = glm::perspectiveRH_NO(glm::radians(fovy), aspect, nearPlane, farPlane);
    EXPECT_TRUE(Within(m, want, 4, Largest(want)));
    m.SetOrtho(left, right, bottom, top, nearPlane, farPlane);
    want = glm::orthoRH_NO(left, right, bottom, top, nearPlane, farPlane);
    EXPECT_TRUE(Within(m, want, 4, Largest(want)));
  });
}

TEST(GlmAgrees, OnVectorsWithinTwoUlps) {
  ForEachCase(kCases, 106, [](Random& random) {
    const CZEPHVector3D a(Real(random, -1, 1), Real(random, -1, 1), Real(random, 0.1, 1));
    const CZEPHVector3D b(Real(random, -1, 1), Real(random, -1, 1), Real(random, -1, 1));
    const glm::vec3 p(a.x, a.y, a.z), q(b.x, b.y, b.z);
    const CZEPHVector3D unit = a.GetNormalized(), cross = a.CrossProduct(b);
    const glm::vec3 wantUnit = glm::normalize(p), wantCross = glm::cross(p, q);
    for (int i = 0; i < 3; ++i) {
      EXPECT_NEAR((&unit.x)[i], wantUnit[i], 2 * kEpsilon);
      EXPECT_NEAR((&cross.x)[i], wantCross[i], 2 * kEpsilon);
    }
    EXPECT_NEAR(a.DotProduct(b), glm::dot(p, q), 2 * kEpsilon);
  });
}
#endif  // ZEPH_TEST_GLM
