#include <gtest/gtest.h>

#include <type_traits>

#include "graphics/values.h"
#include "support/other_bytes.h"

using namespace zeph::test;

static CZEPHVector3S Record(float x, float y, float z) {
  CZEPHVector3S r;
  r.x = x, r.y = y, r.z = z;
  return r;
}
static oracle::Vector Array(const CZEPHVector3S& v) {
  return {v.x, v.y, v.z};
}

TEST(VectorRecord, IsThreeContiguousFloatsAndNothingElse) {
  EXPECT_EQ(sizeof(CZEPHVector3S), 3 * sizeof(float));
  EXPECT_FALSE(std::is_polymorphic_v<CZEPHVector3S>);
  CZEPHVector3S r;
  EXPECT_EQ(static_cast<void*>(&r), static_cast<void*>(&r.x));
  EXPECT_EQ(&r.x + 2, &r.z);
  EXPECT_TRUE(SameBits(Array(r), {0, 0, 0}));
  CZEPHVector3S other = Record(1, 2, 3);
  EXPECT_EQ(&(r = other), &r);
  EXPECT_TRUE(SameBits(Array(r), {1, 2, 3}));
}

TEST(VectorRecord, FunctionsKeepTheirOrderOfRounding) {
  Random random(31);
  for (std::size_t k = 0; k < Scaled(100'000) && !HasFailure(); ++k) {
    SCOPED_TRACE(::testing::Message() << "k " << k);
    const auto v = AnyVector<CZEPHVector3D>(random), w = AnyVector<CZEPHVector3D>(random);
    CZEPHVector3S a = Record(v.x, v.y, v.z), b = Record(w.x, w.y, w.z), out;
    ZEPH_AddVectors(&a, &b, &out);
    EXPECT_TRUE(SameValues(Array(out), Array(v + w)));
    ZEPH_CrossVectors(&a, &b, &out);
    EXPECT_TRUE(SameValues(Array(out), oracle::Cross(Array(v), Array(w))));
    EXPECT_SAME_VALUE(ZEPH_DotVectors(&a, &b), oracle::Dot(Array(v), Array(w)));
    ZEPH_ScaleVector(&a, b.x);
    EXPECT_TRUE(SameValues(Array(a), Array(v * w.x)));
  }
}

TEST(VectorRecord, CopyTakesTheDestinationFirst) {
  CZEPHVector3S destination = Record(1, 2, 3), source = Record(4, 5, 6);
  ZEPH_CopyVector(&destination, &source);
  EXPECT_TRUE(SameBits(Array(destination), {4, 5, 6}));
  EXPECT_TRUE(SameBits(Array(source), {4, 5, 6}));
}

TEST(VectorRecord, ACrossProductStoredInItsOperandReadsTheNewComponents) {
  CZEPHVector3S a = Record(1, 2, 3), b = Record(4, 5, 7);
  ZEPH_CrossVectors(&a, &b, &a);
  const float x = 2.0f * 7 - 3.0f * 5;  // from the old y and z
  const float y = 3.0f * 4 - x * 7;     // with the new x
  const float z = x * 5 - y * 4;        // with the new x and y
  EXPECT_TRUE(SameBits(Array(a), {x, y, z}));
  CZEPHVector3S c = Record(1, 2, 3), d = Record(4, 5, 7);
  ZEPH_CrossVectors(&c, &d, &d);
  const float dx = 2.0f * 7 - 3.0f * 5, dy = 3.0f * dx - 1.0f * 7, dz = 1.0f * dy - 2.0f * dx;
  EXPECT_TRUE(SameBits(Array(d), {dx, dy, dz}));
}

TEST(VectorRecord, StartsAtZeroAndCopiesEveryBit) {
  OverOtherBytes<CZEPHVector3S> zero;
  EXPECT_TRUE(SameBits(Array(*zero), {0, 0, 0}));
  const float payload = FromBits<float>(0xFFC12345u);
  for (const CZEPHVector3S& from :
       {Record(payload, -0.0f, 3), Record(1, payload, -0.0f), Record(-0.0f, 2, payload)}) {
    CZEPHVector3S source = from, copied(from), assigned, taken;
    assigned = from;
    ZEPH_CopyVector(&taken, &source);
    ZEPH_CopyVector(&source, &source);
    for (const CZEPHVector3S& each : {source, copied, assigned, taken})
      EXPECT_TRUE(SameBits(Array(each), Array(from)));
  }
}

TEST(VectorRecord, FunctionsFollowTheirStepsOnOneRecordForAllArguments) {
  ForEachCase(Scaled(2'000), 33, [](Random& random) {
    const auto v = AnyVector<CZEPHVector3D>(random);
    CZEPHVector3S a = Record(v.x, v.y, v.z), scaled = a;
    EXPECT_SAME_VALUE(ZEPH_DotVectors(&a, &a), oracle::Dot(Array(v), Array(v)));
    ZEPH_ScaleVector(&scaled, scaled.y);
    EXPECT_TRUE(SameValues(Array(scaled), Array(v * v.y)));
    const float x = oracle::Sub(oracle::Mul(a.y, a.z), oracle::Mul(a.z, a.y));
    const float y = oracle::Sub(oracle::Mul(a.z, x), oracle::Mul(x, a.z));
    const float z = oracle::Sub(oracle::Mul(x, y), oracle::Mul(y, x));
    ZEPH_CrossVectors(&a, &a, &a);
    EXPECT_TRUE(SameValues(Array(a), {x, y, z}));
  });
}

TEST(VectorRecord, ASumMayBeStoredInEitherOperand) {
  CZEPHVector3S a = Record(1, 2, 3), b = Record(4, 5, 6);
  ZEPH_AddVectors(&a, &b, &b);
  EXPECT_TRUE(SameBits(Array(b), {5, 7, 9}));
  ZEPH_AddVectors(&a, &a, &a);
  EXPECT_TRUE(SameBits(Array(a), {2, 4, 6}));
}
