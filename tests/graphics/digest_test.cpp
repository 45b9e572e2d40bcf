// One digest of all bits that do not depend on the runtime's sine, cosine or tangent: the same with
// every compiler, optimisation level and processor.
#include <gtest/gtest.h>

#include "graphics/values.h"

using namespace zeph::test;

namespace {

// FNV-1a over bits; every NaN counts as the same.
class Digest {
 public:
  void Take(float x) {
    const std::uint32_t bits = x != x ? 0x7FC00000u : Bits(x);
    for (int shift = 0; shift < 32; shift += 8) {
      value_ ^= (bits >> shift) & 0xFF;
      value_ *= 0x100000001B3u;
    }
  }
  void Take(int x) { Take(static_cast<float>(x)); }
  void Take(const oracle::Vector& v) {
    for (const float x : v) Take(x);
  }
  void Take(const CZEPHMatrix4x4& m) {
    for (const float x : m.entries) Take(x);
  }
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325u;
};

// AnyMatrix() without the rotations, whose sines are the runtime's.
CZEPHMatrix4x4 AnyMatrixWithoutSines(Random& random) {
  CZEPHMatrix4x4 m;
  const bool awkward = random.Below(4) == 0, whole = random.Below(4) == 0;
  for (float& entry : m.entries)
    entry = whole ? static_cast<float>(random.Int(-2, 2)) : AnyFloat(random, awkward);
  if (random.Below(2) == 0) m.entries[3] = m.entries[7] = m.entries[11] = 0, m.entries[15] = 1;
  return m;
}

template <class V>
void TakeShared(Digest& digest, Random& random) {
  const V a = AnyVector<V>(random), b = AnyVector<V>(random), c = AnyVector<V>(random);
  const float s = AnyFloat(random, random.Below(4) == 0);
  for (const V& v : {a + b, a - b, a * s, s * b, a / s, -a, a.LinearInterpolate(b, s),
                     a.QuadraticInterpolate(b, c, s)})
    digest.Take(Array(v));
  digest.Take(a == b);
}

void TakeVectors(Digest& digest, Random& random) {
  TakeShared<CZEPHVector2D>(digest, random);
  TakeShared<CZEPHVector3D>(digest, random);
  TakeShared<CZEPHVector4D>(digest, random);
  const auto a = AnyVector<CZEPHVector2D>(random);
  digest.Take(a.GetLength());
  digest.Take(Array(a.GetNormalized()));
  const auto b = AnyVector<CZEPHVector3D>(random), c = AnyVector<CZEPHVector3D>(random);
  digest.Take(b.DotProduct(c));
  for (const CZEPHVector3D& v : {b.GetNormalized(), b.GetPackedTo01(), b.CrossProduct(c)})
    digest.Take(Array(v));
  auto d = AnyVector<CZEPHVector4D>(random);
  digest.Take(d.DotProduct(d));
  digest.Take(Array(d.operator CZEPHVector3D()));
}

void TakeMatrices(Digest& digest, Random& random) {
  const CZEPHMatrix4x4 a = AnyMatrixWithoutSines(random), b = AnyMatrixWithoutSines(random);
  const auto v = AnyVector<CZEPHVector4D>(random);
  const CZEPHVector3D u(v.x, v.y, v.z);
  for (const CZEPHMatrix4x4& m :
       {a + b, a - b, -a, a * v.x, a / v.y, a * b, a.GetTranspose(), a.GetInverse(),
        b.GetInverseTranspose(), a.GetAffineInverse(), b.GetAffineInverseTranspose()})
    digest.Take(m);
  digest.Take(Array(a * v));
  digest.Take(Array(a.GetRotatedVector3D(u)));
  digest.Take(Array(a.GetInverseRotatedVector3D(u)));
  digest.Take(Array(a.GetTranslatedVector3D(u)));
  CZEPHMatrix4x4 m;
  m.SetPerspective(v.x, v.y, v.z, v.w, a.entries[0], random.Below(4) ? a.entries[1] : -1.0f);
  digest.Take(m);
  m.SetOrtho(v.x, v.y, v.z, v.w, a.entries[0], a.entries[1]);
  digest.Take(m);
}

}  // namespace

TEST(GraphicsDigest, IsTheSameEverywhere) {
  Random random(20);
  Digest digest;
  for (int k = 0; k < 20'000; ++k) {
    TakeVectors(digest, random);
    TakeMatrices(digest, random);
  }
  EXPECT_EQ(digest.value(), 0x20C460DD9BF378FAu) << std::hex << "0x" << digest.value();
}
