#include <gtest/gtest.h>

#include "graphics/values.h"
#include "support/not_finite.h"

using namespace zeph::test;

const std::size_t kCases = Scaled(300'000);

TEST(MatrixInverse, KeepsTheDocumentedOrderOfEverySum) {
  ForEachCase(kCases, 61, [](Random& random) {
    const CZEPHMatrix4x4 m = AnyMatrix(random);
    const oracle::Matrix want = oracle::InverseTranspose(Array(m));
    EXPECT_TRUE(Same(m.GetInverseTranspose(), want));
    EXPECT_TRUE(Same(m.GetInverse(), oracle::Transposed(want)));
    CZEPHMatrix4x4 inPlace = m;
    inPlace.InvertTranspose();
    EXPECT_TRUE(Same(inPlace, want));
    inPlace = m;
    inPlace.Invert();
    EXPECT_TRUE(Same(inPlace, oracle::Transposed(want)));
  });
}

TEST(MatrixInverse, OfARigidMotionKeepsTheDocumentedOrder) {
  ForEachCase(kCases, 62, [](Random& random) {
    const CZEPHMatrix4x4 m = AnyMatrix(random);
    const oracle::Matrix want = oracle::AffineInverse(Array(m));
    EXPECT_TRUE(Same(m.GetAffineInverse(), want));
    EXPECT_TRUE(Same(m.GetAffineInverseTranspose(), oracle::Transposed(want)));
    CZEPHMatrix4x4 inPlace = m;
    inPlace.AffineInvert();
    EXPECT_TRUE(Same(inPlace, want));
    inPlace = m;
    inPlace.AffineInvertTranspose();
    EXPECT_TRUE(Same(inPlace, oracle::Transposed(want)));
  });
}

TEST(MatrixInverse, TheGeneratedMatricesIncludeSingularAndRegularOnes) {
  std::size_t singular = 0;
  ForEachCase(kCases, 61, [&singular](Random& random) {
    singular += oracle::InverseTranspose(Array(AnyMatrix(random))) == oracle::Identity();
  });
  EXPECT_GT(singular, kCases / 100);
  EXPECT_LT(singular, kCases / 2);
}

TEST(MatrixInverse, OfASingularMatrixIsTheIdentity) {
  CZEPHMatrix4x4 zero;
  zero.LoadZero();
  CZEPHMatrix4x4 noLastColumn(1, 2, 3, 4, 5, 7, 9, 2, 8, 3, 6, 1, 0, -0.0f, 0, 0);
  for (CZEPHMatrix4x4 m : {zero, noLastColumn}) {
    EXPECT_TRUE(Same(m.GetInverse(), oracle::Identity()));
    EXPECT_TRUE(Same(m.GetInverseTranspose(), oracle::Identity()));
    CZEPHMatrix4x4 transposed = m;
    transposed.InvertTranspose();
    EXPECT_TRUE(Same(transposed, oracle::Identity()));
    m.Invert();
    EXPECT_TRUE(Same(m, oracle::Identity()));
  }
}

TEST(MatrixInverse, OfTheIdentityIsItsUnscaledCofactors) {
  // Negative zeros among the cofactors reveal scaling by a computed reciprocal or a division.
  EXPECT_TRUE(
      Same(CZEPHMatrix4x4().GetInverseTranspose(), oracle::InverseTranspose(oracle::Identity())));
  EXPECT_EQ(CZEPHMatrix4x4().GetInverse(), CZEPHMatrix4x4());
}

TEST(MatrixInverse, OfAUniformScaleIsExact) {
  CZEPHMatrix4x4 m;
  m.SetUniformScale(2);
  const CZEPHMatrix4x4 inverse = m.GetInverse();
  for (const int i : {0, 5, 10}) EXPECT_EQ(inverse.entries[i], 0.5f) << "i " << i;
  EXPECT_EQ(inverse.entries[15], 1.0f);
}

TEST(MatrixInverse, OfATranslationTranslatesBack) {
  CZEPHMatrix4x4 m;
  m.SetTranslation(CZEPHVector3D(1, 2, 3));
  const CZEPHMatrix4x4 inverse = m.GetInverse(), transposed = m.GetInverseTranspose();
  const float want[] = {-1, -2, -3};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(inverse.entries[12 + i], want[i]) << "i " << i;
    EXPECT_EQ(transposed.entries[4 * i + 3], want[i]) << "i " << i;
  }
}

TEST(MatrixInverse, ANaNDeterminantScalesEverythingToNaN) {
  CZEPHMatrix4x4 m;
  m.entries[0] = kNaNF;
  const CZEPHMatrix4x4 inverse = m.GetInverse();
  for (const float entry : inverse.entries) EXPECT_TRUE(std::isnan(entry)) << "entry " << entry;
}

TEST(MatrixInverse, OfARigidMotionForcesTheBottomRowAndIgnoresScale) {
  CZEPHMatrix4x4 m;
  m.entries[3] = 1, m.entries[7] = 2, m.entries[11] = 3, m.entries[15] = 4;
  EXPECT_TRUE(Same(m.GetAffineInverse().GetRow(3), {0, 0, 0, 1}));
  CZEPHMatrix4x4 scale;
  scale.SetScale(CZEPHVector3D(2, 2, 2));
  const CZEPHMatrix4x4 r = scale.GetAffineInverse();
  EXPECT_EQ(r, scale);
  for (const int i : {12, 13, 14}) EXPECT_SAME_BITS(r.entries[i], -0.0f) << "i " << i;
}

TEST(MatrixInverse, BothInversesAgreeOnRigidMotionsUpToRounding) {
  Random random(63);
  for (std::size_t k = 0; k < Scaled(20'000); ++k) {
    CZEPHMatrix4x4 m;
    m.SetRotationEuler(random.Real(-180, 180), random.Real(-180, 180), random.Real(-180, 180));
    m.SetTranslationPart(
        CZEPHVector3D(AnyFloat(random, false), AnyFloat(random, false), AnyFloat(random, false)));
    const CZEPHMatrix4x4 general = m.GetInverse(), rigid = m.GetAffineInverse();
    CZEPHMatrix4x4 twice = m;
    twice.AffineInvert(), twice.AffineInvert();
    const CZEPHMatrix4x4 one = m * general;
    for (int i = 0; i < 16; ++i) {
      EXPECT_NEAR(general.entries[i], rigid.entries[i], 2e-5f) << "k " << k << ", i " << i;
      EXPECT_NEAR(twice.entries[i], m.entries[i], 2e-5f) << "k " << k << ", i " << i;
      EXPECT_NEAR(one.entries[i], CZEPHMatrix4x4().entries[i], 2e-5f) << "k " << k << ", i " << i;
    }
  }
}
