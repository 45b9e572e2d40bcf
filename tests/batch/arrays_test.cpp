// What the operations on arrays must not change, and where the matrix and the axis may be.
#include <gtest/gtest.h>

#include <cstring>

#include "batch/inputs.h"
#include "support/modes.h"

namespace zeph::test {
namespace {

TEST(BatchArrays, OfNoObjectsMayBeNull) {
  for (const int n : {0, -1, -2147483647 - 1}) {
    const CZEPHMatrix4x4 m;
    ZEPH_BatchTransformPoints(m, nullptr, nullptr, n);
    ZEPH_BatchTransformDirections(m, nullptr, nullptr, n);
    ZEPH_BatchTransformVectors(m, nullptr, nullptr, n);
    ZEPH_BatchMultiply(m, nullptr, nullptr, n);
    ZEPH_BatchMultiply(CZEPHMatrix4(1.0), nullptr, nullptr, n);
    ZEPH_BatchRotateAxis(30, CZEPHVector3D(), nullptr, nullptr, n);
    ZEPH_BatchNormalize(static_cast<CZEPHVector3D*>(nullptr), nullptr, n);
    ZEPH_BatchNormalize(static_cast<CZEPHVector3*>(nullptr), nullptr, n);
    ZEPH_BatchDot(static_cast<CZEPHVector3D*>(nullptr), nullptr, nullptr, n);
    ZEPH_BatchDot(static_cast<CZEPHVector3*>(nullptr), nullptr, nullptr, n);
    ZEPH_BatchCross(static_cast<CZEPHVector3D*>(nullptr), nullptr, nullptr, n);
    ZEPH_BatchCross(static_cast<CZEPHVector3*>(nullptr), nullptr, nullptr, n);
  }
}

/// A derived class may have data in the padding of a vector.
struct Coloured : CZEPHVector3D {
  unsigned colour = 0xC01042u;
};
static_assert(sizeof(Coloured) >= sizeof(CZEPHVector3D));

TEST(BatchArrays, NothingButComponentsIsWritten) {
  ForEachForm([](const std::string& form) {
    constexpr std::size_t kSize = sizeof(CZEPHVector3D);
    std::vector<CZEPHVector3D> in = Objects<CZEPHVector3D>(Moderate<float>(3 * 40, 1)), out(40);
    const std::size_t first = static_cast<std::size_t>(reinterpret_cast<char*>(&out[0].x) -
                                                       reinterpret_cast<char*>(&out[0]));
    const std::size_t behind = first + 3 * sizeof(float);
    std::vector<unsigned char> before(40 * kSize), after(40 * kSize);
    for (CZEPHVector3D& v : out)  // the bytes after z
      std::memset(reinterpret_cast<unsigned char*>(&v) + behind, 0x5A, kSize - behind);
    std::memcpy(before.data(), static_cast<void*>(out.data()), before.size());
    CZEPHMatrix4x4 m;
    m.SetRotationX(30);
    ZEPH_BatchTransformPoints(m, in.data(), out.data(), 37);
    ZEPH_BatchNormalize(out.data(), out.data(), 37);
    ZEPH_BatchCross(in.data(), out.data(), out.data(), 37);
    std::memcpy(after.data(), static_cast<void*>(out.data()), after.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
      const std::size_t at = i % kSize;
      if (i / kSize < 37 && at >= first && at < behind) continue;
      ASSERT_EQ(after[i], before[i]) << form << " byte " << at << " of object " << i / kSize;
    }
  });
}

TEST(BatchArrays, TheMatrixMayBeAmongTheResults) {
  auto matrices = Generated<CZEPHMatrix4x4>(Kind::kModerate, 9, 3);
  std::vector<CZEPHMatrix4x4> want;
  for (const CZEPHMatrix4x4& m : matrices) want.push_back(matrices[4] * m);
  ZEPH_BatchMultiply(matrices[4], matrices.data(), matrices.data(), 9);
  EXPECT_TRUE(SameValues(Values(matrices), Values(want)));

  auto doubles = Generated<CZEPHMatrix4>(Kind::kModerate, 9, 4);
  std::vector<CZEPHMatrix4> wanted;
  for (const CZEPHMatrix4& m : doubles) wanted.push_back(doubles[0] * m);
  ZEPH_BatchMultiply(doubles[0], doubles.data(), doubles.data(), 9);
  EXPECT_TRUE(SameValues(Values(doubles), Values(wanted)));
}

TEST(BatchArrays, TheAxisMayBeAmongTheResults) {
  auto vectors = Generated<CZEPHVector3D>(Kind::kModerate, 20, 5);
  std::vector<CZEPHVector3D> want;
  for (const CZEPHVector3D& v : vectors) want.push_back(v.GetRotatedAxis(20, vectors[2]));
  ZEPH_BatchRotateAxis(20, vectors[2], vectors.data(), vectors.data(), 20);
  EXPECT_TRUE(SameValues(Values(vectors), Values(want)));
}

TEST(BatchArrays, LiveObjectsAreNotCounted) {
  auto vectors = Generated<CZEPHVector3>(Kind::kModerate, 20, 6);
  auto matrices = Generated<CZEPHMatrix4>(Kind::kModerate, 20, 7);
  const int liveVectors = CZEPHVector3::HowMany(), liveMatrices = CZEPHMatrix4::howMany();
  ZEPH_BatchNormalize(vectors.data(), vectors.data(), 20);
  ZEPH_BatchCross(vectors.data(), vectors.data(), vectors.data(), 20);
  ZEPH_BatchMultiply(matrices[0], matrices.data(), matrices.data(), 20);
  EXPECT_EQ(CZEPHVector3::HowMany(), liveVectors);
  EXPECT_EQ(CZEPHMatrix4::howMany(), liveMatrices);
}

}  // namespace
}  // namespace zeph::test
