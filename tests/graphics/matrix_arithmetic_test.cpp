#include <gtest/gtest.h>

#include <type_traits>

#include "graphics/values.h"
#include "support/not_finite.h"
#include "support/other_bytes.h"

using namespace zeph::test;

static CZEPHMatrix4x4 Counting() {
  return CZEPHMatrix4x4(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
}

TEST(FloatMatrix, IsPolymorphicWithItsEntriesRightAfterTheVtablePointer) {
  EXPECT_TRUE(std::is_polymorphic_v<CZEPHMatrix4x4>);
  EXPECT_TRUE(std::has_virtual_destructor_v<CZEPHMatrix4x4>);
  EXPECT_EQ(sizeof(CZEPHMatrix4x4), sizeof(void*) + 16 * sizeof(float));
  CZEPHMatrix4x4 m;
  EXPECT_EQ(reinterpret_cast<char*>(m.entries) - reinterpret_cast<char*>(&m),
            static_cast<std::ptrdiff_t>(sizeof(void*)));
  EXPECT_EQ(static_cast<void*>(m.operator float*()), static_cast<void*>(&m));
  EXPECT_EQ(static_cast<const void*>(m.operator const float*()), static_cast<void*>(&m));
}

TEST(FloatMatrix, StartsAsTheIdentityAndLoadsIt) {
  EXPECT_TRUE(Same(CZEPHMatrix4x4(), oracle::Identity()));
  CZEPHMatrix4x4 m = Counting();
  m.LoadZero();
  EXPECT_TRUE(Same(m, oracle::Matrix{}));
  m.LoadIdentity();
  EXPECT_TRUE(Same(m, oracle::Identity()));
}

TEST(FloatMatrix, TakesSixteenFloatsColumnByColumn) {
  float p[16];
  for (int i = 0; i < 16; ++i) p[i] = static_cast<float>(i + 1);
  EXPECT_EQ(Counting(), CZEPHMatrix4x4(p));
  EXPECT_TRUE(Same(Counting().GetRow(0), {1, 5, 9, 13}));
  EXPECT_TRUE(Same(Counting().GetRow(3), {4, 8, 12, 16}));
  EXPECT_TRUE(Same(Counting().GetColumn(0), {1, 2, 3, 4}));
  EXPECT_TRUE(Same(Counting().GetColumn(3), {13, 14, 15, 16}));
}

TEST(FloatMatrix, EveryRowAndColumnIsStoredWhereDocumented) {
  const CZEPHMatrix4x4 m = Counting();
  for (int k = 0; k < 4; ++k) {
    const auto row = static_cast<float>(k + 1), column = static_cast<float>(4 * k + 1);
    EXPECT_TRUE(Same(m.GetRow(k), {row, row + 4, row + 8, row + 12}));
    EXPECT_TRUE(Same(m.GetColumn(k), {column, column + 1, column + 2, column + 3}));
  }
}

TEST(FloatMatrix, InitialisesEveryEntryInDirtyMemory) {
  OverOtherBytes<CZEPHMatrix4x4> m;
  EXPECT_TRUE(SameBits(m->entries, oracle::Identity().data(), 16));
  OverOtherBytes<CZEPHMatrix4x4> zero;
  zero->LoadZero();
  EXPECT_TRUE(SameBits(zero->entries, oracle::Matrix{}.data(), 16));
  static const CZEPHMatrix4x4 from = Counting();
  OverOtherBytes<CZEPHMatrix4x4> copy(
      +[](void* place) { return new (place) CZEPHMatrix4x4(from); });
  OverOtherBytes<CZEPHMatrix4x4> read(
      +[](void* place) { return new (place) CZEPHMatrix4x4(from.entries); });
  OverOtherBytes<CZEPHMatrix4x4> listed(+[](void* place) {
    return new (place) CZEPHMatrix4x4(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
  });
  for (CZEPHMatrix4x4* each : {&*copy, &*read, &*listed})
    EXPECT_TRUE(SameBits(each->entries, from.entries, 16));
}

TEST(FloatMatrix, MayBeItsOwnOperandOrScaledByItsOwnEntry) {
  ForEachCase(Scaled(2'000), 47, [](Random& random) {
    const CZEPHMatrix4x4 a = AnyMatrix(random);
    CZEPHMatrix4x4 sum = a, difference = a, scaled = a, divided = a;
    sum += sum;
    difference -= *&difference;
    const std::size_t at = random.Below(16);
    scaled *= scaled.entries[at];
    divided /= divided.entries[at];
    const CZEPHMatrix4x4 same = a;
    EXPECT_TRUE(Same(sum, same + a));
    EXPECT_TRUE(Same(difference, same - a));
    EXPECT_TRUE(Same(scaled, same * a.entries[at]));
    EXPECT_TRUE(Same(divided, oracle::Over(Array(a), a.entries[at])));
  });
}

TEST(FloatMatrix, CopiesEveryBit) {
  ForEachCase(41, [](Random& random) {
    const CZEPHMatrix4x4 m = AnyMatrix(random), copy(m);
    EXPECT_TRUE(Moved(copy, m));
    EXPECT_TRUE(Moved(+m, m));
    CZEPHMatrix4x4 assigned;
    EXPECT_EQ(&(assigned = m), &assigned);
    EXPECT_TRUE(Moved(assigned, m));
    CZEPHMatrix4x4& self = assigned;
    assigned = self;
    EXPECT_TRUE(Moved(assigned, m));
  });
}

TEST(FloatMatrix, IgnoresIndicesOutOfRange) {
  CZEPHMatrix4x4 m = Counting();
  for (const int index : {-1, 16, 17, 2147483647, -2147483647 - 1}) {
    m.SetEntry(index, 5);
    EXPECT_EQ(m.GetEntry(index), 0.0f) << "index " << index;
  }
  EXPECT_EQ(m, Counting());
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(m.GetEntry(i), static_cast<float>(i + 1)) << "i " << i;
    m.SetEntry(i, static_cast<float>(-i));
    EXPECT_EQ(m.entries[i], static_cast<float>(-i)) << "i " << i;
  }
  for (const int index : {-1, 4, 5, 2147483647, -2147483647 - 1}) {
    EXPECT_TRUE(Same(m.GetRow(index), {0, 0, 0, 0})) << "index " << index;
    EXPECT_TRUE(Same(m.GetColumn(index), {0, 0, 0, 0})) << "index " << index;
  }
}

TEST(FloatMatrix, EntriesMoveEveryBit) {
  const float special[] = {0.0f, -0.0f, 0.1f, -kInfinityF, FromBits<float>(0x7FC01234u), 1e-40f};
  for (int at = 0; at < 16; ++at)
    for (const float x : special) {
      CZEPHMatrix4x4 m = Counting();
      m.SetEntry(at, x);
      EXPECT_SAME_BITS(m.GetEntry(at), x);
      EXPECT_SAME_BITS(m.entries[at], x);
      for (int other = 0; other < 16; ++other)
        if (other != at) {
          EXPECT_EQ(m.entries[other], static_cast<float>(other + 1));
        }
    }
}

TEST(FloatMatrix, WritesNothingButItsEntries) {
  struct Neighbours {
    CZEPHMatrix4x4 m;
    float behind[4];
  } place;
  static_assert(sizeof(Neighbours) == sizeof(CZEPHMatrix4x4) + 4 * sizeof(float));
  for (float& x : place.behind) x = 77.0f;
  volatile int index = 0;
  for (const int at : {16, 17, 18, 19}) {
    index = at;
    place.m.SetEntry(index, 5);
    EXPECT_EQ(place.m.GetEntry(index), 0.0f);
  }
  for (const float x : place.behind) EXPECT_EQ(x, 77.0f);
  EXPECT_EQ(place.m, CZEPHMatrix4x4());
}

TEST(FloatMatrix, AddsSubtractsScalesAndNegatesEntryByEntry) {
  ForEachCase(42, [](Random& random) {
    const CZEPHMatrix4x4 a = AnyMatrix(random), b = AnyMatrix(random);
    const float s = AnyFloat(random, random.Below(2) == 0);
    oracle::Matrix sum{}, difference{}, scaled{}, flipped{};
    for (std::size_t i = 0; i < 16; ++i) {
      sum[i] = oracle::Add(a.entries[i], b.entries[i]);
      difference[i] = oracle::Sub(a.entries[i], b.entries[i]);
      scaled[i] = oracle::Mul(a.entries[i], s);
      flipped[i] = FromBits<float>(Bits(a.entries[i]) ^ 0x80000000u);
    }
    EXPECT_TRUE(Same(a + b, sum));
    EXPECT_TRUE(Same(a - b, difference));
    EXPECT_TRUE(Same(a * s, scaled));
    EXPECT_TRUE(SameBits((-a).entries, flipped.data(), 16));
    CZEPHMatrix4x4 inPlace = a;
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

TEST(FloatMatrix, DividesByMultiplyingByTheReciprocal) {
  ForEachCase(43, [](Random& random) {
    CZEPHMatrix4x4 m = AnyMatrix(random);
    const float s = AnyFloat(random, random.Below(2) == 0);
    const oracle::Matrix want = oracle::Over(Array(m), s);
    EXPECT_TRUE(Same(m / s, want));
    m /= s;
    EXPECT_TRUE(Same(m, want));
  });
  // One third of 7 is not 7 times the rounded third.
  CZEPHMatrix4x4 m;
  m.entries[0] = 7;
  EXPECT_EQ((m / 3.0f).entries[0], oracle::Mul(7, oracle::Div(1, 3)));
}

TEST(FloatMatrix, DividedByZeroOrOneIsUnchanged) {
  CZEPHMatrix4x4 m = Counting();
  m.entries[5] = FromBits<float>(0xFFC12345u);
  for (const float s : {0.0f, -0.0f, 1.0f}) {
    EXPECT_TRUE(Moved(m / s, m)) << "s " << s;
    CZEPHMatrix4x4 inPlace = m;
    inPlace /= s;
    EXPECT_TRUE(Moved(inPlace, m)) << "s " << s;
  }
  EXPECT_EQ((Counting() / 2.0f).entries[2], 1.5f);
}

TEST(FloatMatrix, ComparesExactly) {
  const CZEPHMatrix4x4 m = Counting();
  EXPECT_EQ(m == m, 1);
  EXPECT_EQ(m != m, 0);
  for (int i = 0; i < 16; ++i) {
    SCOPED_TRACE(::testing::Message() << "i " << i);
    CZEPHMatrix4x4 other = m;
    other.entries[i] = std::nextafter(other.entries[i], 0.0f);
    EXPECT_EQ(m == other, 0);
    EXPECT_EQ(m != other, 1);
    other.entries[i] = kNaNF;
    EXPECT_EQ(other == other, 0);
    EXPECT_EQ(other != other, 1);
  }
  CZEPHMatrix4x4 zero, minusZero;
  minusZero.entries[1] = -0.0f;
  EXPECT_EQ(zero == minusZero, 1);
}

TEST(FloatMatrix, TransposesWithoutChangingABit) {
  ForEachCase(44, [](Random& random) {
    CZEPHMatrix4x4 m = AnyMatrix(random);
    const oracle::Matrix want = oracle::Transposed(Array(m));
    EXPECT_TRUE(SameBits(m.GetTranspose().entries, want.data(), 16));
    m.Transpose();
    EXPECT_TRUE(SameBits(m.entries, want.data(), 16));
  });
}
