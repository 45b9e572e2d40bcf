#include <gtest/gtest.h>

#include "graphics/product.h"
#include "graphics/values.h"
#include "support/not_finite.h"

using namespace zeph::test;

const std::size_t kCases = Scaled(300'000);

TEST(MatrixProduct, FollowsTheDocumentedPathInTheDocumentedOrder) {
  ForEachCase(kCases, 51, [](Random& random) {
    const CZEPHMatrix4x4 a = AnyMatrix(random), b = AnyMatrix(random);
    const oracle::Matrix want = oracle::Product(Array(a), Array(b));
    EXPECT_TRUE(Same(a * b, want));
    CZEPHMatrix4x4 inPlace = a;
    inPlace *= b;
    EXPECT_TRUE(Same(inPlace, want));
  });
}

TEST(MatrixProduct, TheGeneratedFactorsReachAllFourPathsManyTimes) {
  std::size_t met[4] = {};
  ForEachCase(kCases, 51, [&met](Random& random) {
    const oracle::Matrix a = Array(AnyMatrix(random)), b = Array(AnyMatrix(random));
    ++met[2 * oracle::IsAffine(a) + oracle::IsAffine(b)];
  });
  for (const std::size_t count : met) EXPECT_GT(count, kCases / 20);
}

TEST(MatrixProduct, AMatrixMayMultiplyItself) {
  ForEachCase(kCases, 52, [](Random& random) {
    CZEPHMatrix4x4 m = AnyMatrix(random);
    const oracle::Matrix want = oracle::Product(Array(m), Array(m));
    m *= m;
    EXPECT_TRUE(Same(m, want));
  });
}

TEST(MatrixProduct, OfTwoAffineFactorsIsAffineEvenAroundNaN) {
  CZEPHMatrix4x4 a, b;
  for (int i = 0; i < 15; ++i)
    if (i % 4 != 3) a.entries[i] = kNaNF;
  b.entries[3] = -0.0f;
  const CZEPHMatrix4x4 r = a * b;
  EXPECT_SAME_BITS(r.entries[3], 0.0f);
  EXPECT_SAME_BITS(r.entries[7], 0.0f);
  EXPECT_SAME_BITS(r.entries[11], 0.0f);
  EXPECT_SAME_BITS(r.entries[15], 1.0f);
}

TEST(MatrixProduct, SkipsTermsThatWouldMultiplyInfinityByZero) {
  CZEPHMatrix4x4 infinite, affine;
  infinite.entries[12] = kInfinityF;
  affine.entries[13] = 2;
  // The full sum would hold infinity * 0 in every column.
  EXPECT_SAME_BITS((infinite * affine).entries[0], 1.0f);
  EXPECT_SAME_BITS((infinite * affine).entries[12], kInfinityF);
  CZEPHMatrix4x4 projective;
  projective.entries[3] = 1;
  EXPECT_TRUE(std::isnan((infinite * projective).entries[4]));
}

TEST(MatrixProduct, AnAffineFirstFactorCopiesTheBottomRowOfTheSecond) {
  CZEPHMatrix4x4 affine, other;
  affine.SetTranslation(CZEPHVector3D(1, 2, 3));
  const float row[] = {FromBits<float>(0x7FC01234u), -0.0f, kInfinityF, 7};
  for (int j = 0; j < 4; ++j) other.entries[4 * j + 3] = row[j];
  const CZEPHMatrix4x4 r = affine * other;
  for (int j = 0; j < 4; ++j) EXPECT_SAME_BITS(r.entries[4 * j + 3], row[j]) << "j " << j;
}

TEST(MatrixProduct, IsAffineOnlyWithAnExactBottomRow) {
  const float denormal = std::numeric_limits<float>::denorm_min();
  CZEPHMatrix4x4 m;
  EXPECT_TRUE(zeph::graphics::IsAffine(m.entries));
  for (const int at : {3, 7, 11})
    for (const float x : {denormal, -denormal, kNaNF, kInfinityF, 1.0f}) {
      m.LoadIdentity();
      m.entries[at] = -0.0f;
      EXPECT_TRUE(zeph::graphics::IsAffine(m.entries)) << "at " << at << ", x " << x;
      m.entries[at] = x;
      EXPECT_FALSE(zeph::graphics::IsAffine(m.entries)) << "at " << at << ", x " << x;
    }
  m.LoadIdentity();
  for (const float x :
       {0.0f, -1.0f, std::nextafter(1.0f, 0.0f), std::nextafter(1.0f, 2.0f), kNaNF}) {
    m.entries[15] = x;
    EXPECT_FALSE(zeph::graphics::IsAffine(m.entries)) << "x " << x;
  }
}

TEST(MatrixProduct, AVectorIsTransformedInTheDocumentedOrder) {
  ForEachCase(kCases, 53, [](Random& random) {
    const CZEPHMatrix4x4 m = AnyMatrix(random);
    const auto v = AnyVector<CZEPHVector4D>(random);
    const CZEPHVector4D got = m * v;
    EXPECT_TRUE(Same(got, oracle::Product(Array(m), Array(v))));
    if (oracle::IsAffine(Array(m))) {
      EXPECT_SAME_BITS(got.w, v.w);
    }
  });
}

TEST(MatrixProduct, TranslationMovesPointsButNotDirections) {
  CZEPHMatrix4x4 m;
  m.SetTranslation(CZEPHVector3D(1, 2, 3));
  EXPECT_TRUE(Same(m * CZEPHVector4D(0, 0, 0, 1), {1, 2, 3, 1}));
  EXPECT_TRUE(Same(m * CZEPHVector4D(4, 5, 6, 0), {4, 5, 6, 0}));
  EXPECT_TRUE(Same(m * CZEPHVector3D(4, 5, 6), {5, 7, 9, 1}));
  EXPECT_TRUE(Same(m.GetColumn(3), {1, 2, 3, 1}));
}

// No factor is special: also the identity's products are added, in which a zero loses its sign and an infinity meets 0.
TEST(MatrixProduct, TheIdentityAndZeroMultiplyAsAnyOtherMatrix) {
  CZEPHMatrix4x4 identity, negated, zero;
  for (float& entry : negated.entries) entry = entry == 0 ? -0.0f : entry;
  zero.LoadZero();
  for (const CZEPHMatrix4x4& special : {identity, negated, zero})
    ForEachCase(Scaled(2'000), 55, [&special](Random& random) {
      const CZEPHMatrix4x4 m = AnyMatrix(random);
      const oracle::Matrix s = Array(special), e = Array(m);
      CZEPHMatrix4x4 left = special, right = m;
      left *= m, right *= special;
      EXPECT_TRUE(Same(special * m, oracle::Product(s, e)));
      EXPECT_TRUE(Same(m * special, oracle::Product(e, s)));
      EXPECT_TRUE(Same(left, oracle::Product(s, e)));
      EXPECT_TRUE(Same(right, oracle::Product(e, s)));
      const auto four = AnyVector<CZEPHVector4D>(random);
      EXPECT_TRUE(Same(special * four, oracle::Product(s, Array(four))));
      const auto v = AnyVector<CZEPHVector3D>(random);
      CZEPHVector3D rotated = v, back = v, moved = v, movedBack = v;
      special.RotateVector3D(rotated), special.InverseRotateVector3D(back);
      special.TranslateVector3D(moved), special.InverseTranslateVector3D(movedBack);
      const CZEPHVector3D t(special.entries + 12);
      EXPECT_TRUE(Same(rotated, oracle::Rotated(s, Array(v))));
      EXPECT_TRUE(Same(back, oracle::InverseRotated(s, Array(v))));
      EXPECT_TRUE(Same(moved, Array(v + t)));
      EXPECT_TRUE(Same(movedBack, Array(v - t)));
      EXPECT_TRUE(Same(special.GetRotatedVector3D(v), oracle::Rotated(s, Array(v))));
      EXPECT_TRUE(Same(special.GetInverseRotatedVector3D(v), oracle::InverseRotated(s, Array(v))));
      EXPECT_TRUE(Same(special.GetTranslatedVector3D(v), Array(v + t)));
    });
}

TEST(MatrixProduct, RotationAndTranslationPartsKeepTheDocumentedOrder) {
  ForEachCase(kCases, 54, [](Random& random) {
    const CZEPHMatrix4x4 m = AnyMatrix(random);
    const auto v = AnyVector<CZEPHVector3D>(random);
    const CZEPHVector3D t(m.entries + 12);
    CZEPHVector3D rotated = v, back = v, moved = v, movedBack = v;
    m.RotateVector3D(rotated), m.InverseRotateVector3D(back);
    m.TranslateVector3D(moved), m.InverseTranslateVector3D(movedBack);
    EXPECT_TRUE(Same(rotated, oracle::Rotated(Array(m), Array(v))));
    EXPECT_TRUE(Same(back, oracle::InverseRotated(Array(m), Array(v))));
    EXPECT_TRUE(Same(moved, Array(v + t)));
    EXPECT_TRUE(Same(movedBack, Array(v - t)));
    EXPECT_TRUE(Same(m.GetRotatedVector3D(v), Array(rotated)));
    EXPECT_TRUE(Same(m.GetInverseRotatedVector3D(v), Array(back)));
    EXPECT_TRUE(Same(m.GetTranslatedVector3D(v), Array(moved)));
    EXPECT_TRUE(Same(m.GetInverseTranslatedVector3D(v), Array(movedBack)));
  });
}
