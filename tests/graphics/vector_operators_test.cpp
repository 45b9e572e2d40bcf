#include <iterator>
#include <type_traits>

#include "graphics/values.h"
#include "support/not_finite.h"
#include "support/other_bytes.h"

using namespace zeph::test;

template <class V>
class FloatVector : public ::testing::Test {};
using VectorClasses = ::testing::Types<CZEPHVector2D, CZEPHVector3D, CZEPHVector4D>;
TYPED_TEST_SUITE(FloatVector, VectorClasses, );

const std::size_t kCases = Scaled(100'000);

// Calls `check(a, b, s)` for generated vectors and scalars.
template <class V, class Check>
static void ForEachPair(std::uint64_t seed, Check check) {
  Random random(seed);
  for (std::size_t k = 0; k < kCases && !::testing::Test::HasFailure(); ++k) {
    const V a = AnyVector<V>(random), b = AnyVector<V>(random);
    check(a, b, AnyFloat(random, random.Below(2) == 0));
  }
}

TYPED_TEST(FloatVector, IsPolymorphicWithItsComponentsRightAfterTheVtablePointer) {
  using V = TypeParam;
  EXPECT_TRUE(std::is_polymorphic_v<V>);
  EXPECT_TRUE(std::has_virtual_destructor_v<V>);
  const V v;
  EXPECT_EQ(reinterpret_cast<const char*>(&v.x) - reinterpret_cast<const char*>(&v),
            static_cast<std::ptrdiff_t>(sizeof(void*)));
  EXPECT_EQ(&v.y, &v.x + 1);
  const std::size_t bytes = sizeof(void*) + Array(v).size() * sizeof(float);
  EXPECT_EQ(sizeof(V), (bytes + alignof(void*) - 1) / alignof(void*) * alignof(void*));
}

TYPED_TEST(FloatVector, StartsAtZeroAndCopiesEveryBit) {
  using V = TypeParam;
  EXPECT_TRUE(Same(V(), oracle::Vector(Array(V()).size(), 0.0f)));
  ForEachPair<V>(1, [](const V& a, const V& b, float) {
    const V copy(a);
    EXPECT_TRUE(Moved(copy, a));
    V assigned = b;
    EXPECT_EQ(&(assigned = a), &assigned);
    EXPECT_TRUE(Moved(assigned, a));
    V& self = assigned;
    assigned = self;
    EXPECT_TRUE(Moved(assigned, a));
    EXPECT_TRUE(Moved(+a, a));
  });
}

TYPED_TEST(FloatVector, InitialisesEveryComponentInDirtyMemory) {
  using V = TypeParam;
  OverOtherBytes<V> zero;
  EXPECT_TRUE(SameBits(Array(*zero), oracle::Vector(Array(V()).size(), 0.0f)));
  static const V from = [] {
    V v;
    for (std::size_t i = 0; i < Array(v).size(); ++i) (&v.x)[i] = static_cast<float>(i + 1);
    return v;
  }();
  OverOtherBytes<V> copy(+[](void* place) { return new (place) V(from); });
  EXPECT_TRUE(Moved(*copy, from));
}

TYPED_TEST(FloatVector, MayBeItsOwnOperandOrScaledByItsOwnComponent) {
  using V = TypeParam;
  ForEachCase(Scaled(2'000), 6, [](Random& random) {
    const V a = AnyVector<V>(random), same(a);
    for (std::size_t at = 0; at < Array(a).size(); ++at) {
      V sum(a), difference(a), scaled(a), divided(a);
      sum += sum;
      difference -= *&difference;
      scaled *= (&scaled.x)[at];
      divided /= (&divided.x)[at];
      const float s = Array(a)[at];
      EXPECT_TRUE(Same(sum, Array(same + a)));
      EXPECT_TRUE(Same(difference, Array(same - a)));
      EXPECT_TRUE(Same(scaled, Array(same * s)));
      EXPECT_TRUE(Same(divided, s == 0.0f ? Array(a) : oracle::Divided(Array(a), s)));
    }
  });
}

TYPED_TEST(FloatVector, DiffersIfAnySingleComponentDiffers) {
  using V = TypeParam;
  for (std::size_t at = 0; at < Array(V()).size(); ++at) {
    V a, b;
    for (std::size_t i = 0; i < Array(a).size(); ++i) (&a.x)[i] = (&b.x)[i] = 1.5f;
    EXPECT_EQ(a == b, 1);
    EXPECT_EQ(a != b, 0);
    for (const float other :
         {std::nextafter(1.5f, 2.0f), std::nextafter(1.5f, 1.0f), -1.5f, kNaNF}) {
      (&b.x)[at] = other;
      EXPECT_EQ(a == b, 0) << at;
      EXPECT_EQ(a != b, 1) << at;
    }
    (&a.x)[at] = kNaNF;
    EXPECT_EQ(a == a, 0) << at;
    EXPECT_EQ(a != a, 1) << at;
    (&a.x)[at] = 0.0f, (&b.x)[at] = -0.0f;
    EXPECT_EQ(a == b, 1) << at;
  }
}

TYPED_TEST(FloatVector, AssignmentWritesItsComponentsOnly) {
  using V = TypeParam;
  for (std::size_t at = 0; at < Array(V()).size(); ++at) {
    V from, to;
    for (std::size_t i = 0; i < Array(from).size(); ++i)
      (&from.x)[i] = FromBits<float>(0x7FC00100u + static_cast<unsigned>(i));
    (&from.x)[at] = -0.0f;
    to = from;
    EXPECT_TRUE(Moved(to, from));
  }
}

TYPED_TEST(FloatVector, AddsSubtractsAndScalesComponentByComponent) {
  using V = TypeParam;
  ForEachPair<V>(2, [](const V& a, const V& b, float s) {
    const auto [sum, difference, scaled] = ByComponents(Array(a), Array(b), s);
    EXPECT_TRUE(Same(a + b, sum));
    EXPECT_TRUE(Same(a - b, difference));
    EXPECT_TRUE(Same(a * s, scaled));
    EXPECT_TRUE(Same(s * a, scaled));
    V inPlace = a;
    inPlace += b;
    EXPECT_TRUE(Same(inPlace, sum));
    inPlace = a;
    inPlace -= b;
    EXPECT_TRUE(Same(inPlace, difference));
    inPlace = a;
    inPlace *= s;
    EXPECT_TRUE(Same(inPlace, scaled));
  });
}

TYPED_TEST(FloatVector, DividesEachComponentWithoutAReciprocal) {
  using V = TypeParam;
  ForEachPair<V>(3, [](const V& a, const V&, float s) {
    EXPECT_TRUE(Same(a / s, oracle::Divided(Array(a), s)));
    V inPlace = a;
    inPlace /= s;
    EXPECT_TRUE(Same(inPlace, s == 0.0f ? Array(a) : oracle::Divided(Array(a), s)));
  });
}

TYPED_TEST(FloatVector, DividedByZeroIsTheZeroVectorButUnchangedInPlace) {
  using V = TypeParam;
  for (const float zero : {0.0f, -0.0f}) {
    V v;
    v.x = -1, v.y = kNaNF;
    EXPECT_TRUE(Moved(v / zero, V())) << "zero " << zero;
    V kept = v;
    kept /= zero;
    EXPECT_TRUE(Moved(kept, v)) << "zero " << zero;
  }
  V v;
  v.x = 1;
  EXPECT_TRUE(std::isnan((v / kNaNF).x));
}

TYPED_TEST(FloatVector, NegationFlipsEverySignBit) {
  using V = TypeParam;
  EXPECT_TRUE(std::signbit((-V()).x));
  ForEachPair<V>(4, [](const V& a, const V&, float) {
    oracle::Vector flipped = Array(a);
    for (float& x : flipped) x = FromBits<float>(Bits(x) ^ 0x80000000u);
    EXPECT_TRUE(SameBits(Array(-a), flipped));
  });
}

TYPED_TEST(FloatVector, ComparesExactly) {
  using V = TypeParam;
  ForEachPair<V>(5, [](const V& a, V b, float s) {
    if (Bits(s) & 1) b = a;
    if (Bits(s) & 2) b.y = s;
    const bool equal = Array(a) == Array(b);
    EXPECT_EQ(a == b, equal ? 1 : 0);
    EXPECT_EQ(a != b, equal ? 0 : 1);
  });
  V zero, minusZero;
  minusZero.x = -0.0f;
  EXPECT_EQ(zero == minusZero, 1);
  V nan;
  nan.y = kNaNF;
  EXPECT_EQ(nan == nan, 0);
  EXPECT_EQ(nan != nan, 1);
}

TYPED_TEST(FloatVector, ConvertsToItsOwnAddressNotToItsFirstComponent) {
  using V = TypeParam;
  V v;
  const V& constant = v;
  EXPECT_EQ(static_cast<void*>(v.operator float*()), static_cast<void*>(&v));
  EXPECT_EQ(static_cast<const void*>(constant.operator const float*()),
            static_cast<const void*>(&v));
  EXPECT_NE(constant.operator const float*(), &v.x);
}

TYPED_TEST(FloatVector, EachAccessorReachesItsComponent) {
  using V = TypeParam;
  V v;
  v.SetX(1), v.SetY(2);
  EXPECT_EQ(v.x, 1);
  EXPECT_EQ(v.y, 2);
  EXPECT_EQ(v.GetX(), 1);
  EXPECT_EQ(v.GetY(), 2);
  if constexpr (!std::is_same_v<V, CZEPHVector2D>) {
    v.SetZ(3);
    EXPECT_EQ(v.z, 3);
    EXPECT_EQ(v.GetZ(), 3);
    v.LoadOne();
    EXPECT_TRUE(Same(v, oracle::Vector(Array(v).size(), 1.0f)));
    v.LoadZero();
    EXPECT_TRUE(Moved(v, V()));
  }
  if constexpr (std::is_same_v<V, CZEPHVector4D>) {
    v.SetW(4);
    EXPECT_EQ(v.w, 4);
    EXPECT_EQ(v.GetW(), 4);
  }
}

TEST(FloatVectors, AreBuiltFromComponentsInOrder) {
  const float p[] = {3, 7, 9, 11};
  EXPECT_TRUE(Same(CZEPHVector2D(1, 2), {1, 2}));
  EXPECT_TRUE(Same(CZEPHVector3D(1, 2, 3), {1, 2, 3}));
  EXPECT_TRUE(Same(CZEPHVector4D(1, 2, 3, 4), {1, 2, 3, 4}));
  EXPECT_TRUE(Same(CZEPHVector3D(p), {3, 7, 9}));
  EXPECT_TRUE(Same(CZEPHVector4D(p), {3, 7, 9, 11}));
  EXPECT_TRUE(Same(CZEPHVector4D(CZEPHVector3D(1, 2, 3)), {1, 2, 3, 1}));
  CZEPHVector2D two;
  two.Set(1, 2);
  CZEPHVector3D three;
  three.Set(1, 2, 3);
  CZEPHVector4D four;
  four.Set(1, 2, 3, 4);
  EXPECT_TRUE(Same(two, {1, 2}));
  EXPECT_TRUE(Same(three, {1, 2, 3}));
  EXPECT_TRUE(Same(four, {1, 2, 3, 4}));
}

TEST(FloatVectors, SettersLeaveTheOtherComponentsAlone) {
  CZEPHVector2D two(1, 2);
  two.SetX(7);
  EXPECT_TRUE(Same(two, {7, 2}));
  two.SetY(8);
  EXPECT_TRUE(Same(two, {7, 8}));
  CZEPHVector3D three(1, 2, 3);
  three.SetX(7);
  EXPECT_TRUE(Same(three, {7, 2, 3}));
  three.SetY(8);
  EXPECT_TRUE(Same(three, {7, 8, 3}));
  three.SetZ(9);
  EXPECT_TRUE(Same(three, {7, 8, 9}));
  CZEPHVector4D four(1, 2, 3, 4);
  four.SetX(7);
  EXPECT_TRUE(Same(four, {7, 2, 3, 4}));
  four.SetY(8);
  EXPECT_TRUE(Same(four, {7, 8, 3, 4}));
  four.SetZ(9);
  EXPECT_TRUE(Same(four, {7, 8, 9, 4}));
  four.SetW(6);
  EXPECT_TRUE(Same(four, {7, 8, 9, 6}));
  EXPECT_TRUE(
      Same(CZEPHVector4D(four.GetW(), four.GetZ(), four.GetY(), four.GetX()), {6, 9, 8, 7}));
}

TEST(FloatVectors, TheVector2DArrayConstructorReadsOneElementAndAddsOneForTheSecond) {
  const float p[] = {3, 7};
  EXPECT_TRUE(Same(CZEPHVector2D(p), {3, 4}));
  const float only = 0.1f;
  EXPECT_TRUE(Same(CZEPHVector2D(&only), {0.1f, oracle::Add(0.1f, 1.0f)}));
}

namespace {

/// Sets component `at` alone.
void SetAlone(CZEPHVector2D& v, std::size_t at, float x) {
  at == 0 ? v.SetX(x) : v.SetY(x);
}
void SetAlone(CZEPHVector3D& v, std::size_t at, float x) {
  at == 0 ? v.SetX(x) : at == 1 ? v.SetY(x) : v.SetZ(x);
}
void SetAlone(CZEPHVector4D& v, std::size_t at, float x) {
  at == 0 ? v.SetX(x) : at == 1 ? v.SetY(x) : at == 2 ? v.SetZ(x) : v.SetW(x);
}
void SetAll(CZEPHVector2D& v, const float* x) {
  v.Set(x[0], x[1]);
}
void SetAll(CZEPHVector3D& v, const float* x) {
  v.Set(x[0], x[1], x[2]);
}
void SetAll(CZEPHVector4D& v, const float* x) {
  v.Set(x[0], x[1], x[2], x[3]);
}
oracle::Vector Got(const CZEPHVector2D& v) {
  return {v.GetX(), v.GetY()};
}
oracle::Vector Got(const CZEPHVector3D& v) {
  return {v.GetX(), v.GetY(), v.GetZ()};
}
oracle::Vector Got(const CZEPHVector4D& v) {
  return {v.GetX(), v.GetY(), v.GetZ(), v.GetW()};
}

}  // namespace

TYPED_TEST(FloatVector, GettersAndSettersMoveEveryBit) {
  using V = TypeParam;
  const std::size_t n = Array(V()).size();
  const std::vector<float> special = {
      0.0f, -0.0f, kInfinityF, -kInfinityF, FromBits<float>(0xFFC01234u), FromBits<float>(1u),
      1.5f};
  for (std::size_t at = 0; at < n; ++at)
    for (const float kept : special)
      for (const float set : special) {
        V v;
        oracle::Vector want(n, kept);
        SetAll(v, want.data());
        EXPECT_TRUE(SameBits(Array(v), want));
        SetAlone(v, at, set);
        want[at] = set;
        EXPECT_TRUE(SameBits(Array(v), want));
        EXPECT_TRUE(SameBits(Got(v), want));
      }
}

// Of whatever class the object is that takes the numbers.
TEST(FloatVectors, ConstructorsAndConversionsMoveEveryBit) {
  const float special[] = {
      0.0f, -0.0f, kInfinityF, -kInfinityF, FromBits<float>(0xFFC01234u), FromBits<float>(1u),
      -1.5f};
  constexpr std::size_t kKinds = std::size(special);
  for (std::size_t k = 0; k < kKinds * kKinds; ++k) {
    float p[16];
    for (std::size_t i = 0; i < 16; ++i) p[i] = special[(k + i * (1 + k / kKinds)) % kKinds];
    const oracle::Vector three(p, p + 3), four(p, p + 4), sixteen(p, p + 16);
    const CZEPHVector3D v(p[0], p[1], p[2]);
    EXPECT_TRUE(SameBits(Array(v), three));
    EXPECT_TRUE(SameBits(Array(CZEPHVector3D(p)), three));
    EXPECT_TRUE(SameBits(Array(CZEPHVector4D(p[0], p[1], p[2], p[3])), four));
    EXPECT_TRUE(SameBits(Array(CZEPHVector4D(p)), four));
    for (const float w : {1.0f, 0.0f, -0.0f}) {
      CZEPHVector4D point(v);
      EXPECT_TRUE(SameBits(Array(point), {p[0], p[1], p[2], 1.0f}));
      point.w = w;
      EXPECT_TRUE(SameBits(Array(CZEPHVector3D(point)), three));
    }
    CZEPHVector3S record;
    record.x = p[0], record.y = p[1], record.z = p[2];
    CZEPHVector3S copy(record), assigned, filled;
    assigned = record;
    ZEPH_CopyVector(&filled, &record);
    for (const CZEPHVector3S* each : {&copy, &assigned, &filled})
      EXPECT_TRUE(SameBits(oracle::Vector{each->x, each->y, each->z}, three));
    const CZEPHMatrix4x4 m(p), same(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9],
                                    p[10], p[11], p[12], p[13], p[14], p[15]);
    const CZEPHMatrix4x4 twice(m);
    CZEPHMatrix4x4 other;
    other = m;
    for (const CZEPHMatrix4x4* each :
         {&m, &same, &twice, static_cast<const CZEPHMatrix4x4*>(&other)})
      EXPECT_TRUE(SameBits(oracle::Vector(each->entries, each->entries + 16), sixteen));
    EXPECT_TRUE(SameBits(Array(m.GetColumn(2)), oracle::Vector(p + 8, p + 12)));
    EXPECT_TRUE(SameBits(Array(m.GetRow(1)), {p[1], p[5], p[9], p[13]}));
    EXPECT_TRUE(SameBits(Array(m.GetTranspose().GetColumn(3)), {p[3], p[7], p[11], p[15]}));
    other.SetTranslation(v);
    EXPECT_TRUE(SameBits(Array(other.GetColumn(3)), {p[0], p[1], p[2], 1.0f}));
  }
}
