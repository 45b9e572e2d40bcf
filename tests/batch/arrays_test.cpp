// What the operations on arrays must not change, and where the matrix and the axis may be.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "batch/inputs.h"
#include "support/allocation.h"
#include "support/modes.h"

namespace zeph::test {
namespace {

TEST(BatchArrays, MayBeNullWhereTheCountIsZero) {
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

TEST(BatchArrays, OnlyComponentsAreWritten) {
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
    CZEPHMatrix4x4 m, projection;
    m.SetRotationX(30);
    projection.SetPerspective(-1, 1, -1, 1, 1, 10);
    ZEPH_BatchTransformPoints(m, in.data(), out.data(), 37);
    ZEPH_BatchTransformPoints(projection, in.data(), out.data(), 37);
    ZEPH_BatchTransformDirections(m, in.data(), out.data(), 37);
    ZEPH_BatchRotateAxis(30, in[0], in.data(), out.data(), 37);
    ZEPH_BatchRotateAxis(0, in[0], in.data(), out.data(), 37);
    ZEPH_BatchNormalize(out.data(), out.data(), 37);
    ZEPH_BatchCross(in.data(), out.data(), out.data(), 37);
    for (int n : {1, 2, 3, 5}) ZEPH_BatchBounds(in.data(), n, out[10], out[20]);
    std::memcpy(after.data(), static_cast<void*>(out.data()), after.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
      const std::size_t at = i % kSize;
      if (i / kSize < 37 && at >= first && at < behind) continue;
      ASSERT_EQ(after[i], before[i]) << form << " byte " << at << " of object " << i / kSize;
    }
  });
}

/// A matrix or an axis at each place of the results, in every form: of some it is read as it goes.
template <class Object, class Single, class Batch>
void CheckAmongTheResults(Single single, Batch batch) {
  constexpr std::size_t kCount = 9;
  const auto before = Generated<Object>(Kind::kModerate, kCount, 3);
  for (std::size_t at = 0; at < kCount; ++at) {
    std::vector<Object> want;
    for (const Object& object : before) want.push_back(single(before[at], object));
    ForEachForm([&](const std::string& form) {
      auto objects = before;
      batch(objects[at], objects.data(), static_cast<int>(kCount));
      ASSERT_TRUE(SameValues(Values(objects), Values(want))) << form << " at " << at;
    });
  }
}

TEST(BatchArrays, TheMatrixMayBeAmongTheResults) {
  CheckAmongTheResults<CZEPHMatrix4x4>(
      [](const CZEPHMatrix4x4& m, const CZEPHMatrix4x4& other) { return m * other; },
      [](const CZEPHMatrix4x4& m, CZEPHMatrix4x4* all, int n) {
        ZEPH_BatchMultiply(m, all, all, n);
      });
  CheckAmongTheResults<CZEPHMatrix4>(
      [](const CZEPHMatrix4& m, const CZEPHMatrix4& other) { return m * other; },
      [](const CZEPHMatrix4& m, CZEPHMatrix4* all, int n) { ZEPH_BatchMultiply(m, all, all, n); });
}

TEST(BatchArrays, TheAxisMayBeAmongTheResults) {
  for (const double angle : {0.0, 20.0})
    CheckAmongTheResults<CZEPHVector3D>(
        [angle](const CZEPHVector3D& axis, const CZEPHVector3D& v) {
          return v.GetRotatedAxis(angle, axis);
        },
        [angle](const CZEPHVector3D& axis, CZEPHVector3D* all, int n) {
          ZEPH_BatchRotateAxis(angle, axis, all, all, n);
        });
}

TEST(BatchArrays, AMatrixAmongManyResultsIsReadBeforeTheyAreWritten) {
  // Affine ones and others in turn, in more runs than one: the kind of `m` is decided once.
  for (const std::size_t at : {0u, 1u, 63u, 64u, 65u, 130u, 199u})
    for (const bool affine : {false, true}) {
      auto matrices = Generated<CZEPHMatrix4x4>(Kind::kModerate, 200, at);
      for (std::size_t i = 0; i < matrices.size(); ++i)
        if (i == at ? affine : i % 3 != 0) {
          for (const int bottom : {3, 7, 11}) matrices[i].entries[bottom] = 0.0f;
          matrices[i].entries[15] = 1.0f;
        }
      std::vector<CZEPHMatrix4x4> want;
      for (const CZEPHMatrix4x4& m : matrices) want.push_back(matrices[at] * m);
      ForEachForm([&](const std::string& form) {
        auto products = matrices;
        ZEPH_BatchMultiply(products[at], products.data(), products.data(), 200);
        ASSERT_TRUE(SameValues(Values(products), Values(want))) << form << " at " << at;
      });
    }
}

/// Every operation from `in` to `out` with `n` objects; `b` is the second operand.
struct OfFloats {
  std::vector<CZEPHVector3D> in = Objects<CZEPHVector3D>(Moderate<float>(3 * 40, 1)), b = in, out;
  std::vector<CZEPHVector4D> in4 = Objects<CZEPHVector4D>(Moderate<float>(4 * 40, 2)), out4;
  std::vector<CZEPHMatrix4x4> inM = Generated<CZEPHMatrix4x4>(Kind::kModerate, 40, 3), outM;
  std::vector<CZEPHVector3> inD = Objects<CZEPHVector3>(Moderate<double>(3 * 40, 4)), outD;
  std::vector<CZEPHMatrix4> inDM = Generated<CZEPHMatrix4>(Kind::kModerate, 40, 5), outDM;
  std::vector<float> dots;
  std::vector<double> dotsD;

  void Reset() {
    out.assign(40, CZEPHVector3D(-7, -7, -7));
    out4.assign(40, CZEPHVector4D(-7, -7, -7, -7));
    outM.assign(40, CZEPHMatrix4x4());
    outD.assign(40, CZEPHVector3(-7, -7, -7));
    outDM.assign(40, CZEPHMatrix4(-7.0));
    dots.assign(40, -7.0f);
    dotsD.assign(40, -7.0);
  }
  void All(int n) {
    const CZEPHMatrix4x4& m = inM[0];
    ZEPH_BatchTransformPoints(m, in.data(), out.data(), n);
    ZEPH_BatchTransformDirections(m, in.data(), out.data(), n);
    ZEPH_BatchRotateAxis(0.0, in[1], in.data(), out.data(), n);
    ZEPH_BatchRotateAxis(30, in[1], in.data(), out.data(), n);
    ZEPH_BatchCross(in.data(), b.data(), out.data(), n);
    ZEPH_BatchNormalize(in.data(), out.data(), n);
    ZEPH_BatchTransformVectors(m, in4.data(), out4.data(), n);
    ZEPH_BatchMultiply(m, inM.data(), outM.data(), n);
    ZEPH_BatchMultiply(inDM[0], inDM.data(), outDM.data(), n);
    ZEPH_BatchNormalize(inD.data(), outD.data(), n);
    ZEPH_BatchCross(inD.data(), inD.data() + 1, outD.data(), n);
    ZEPH_BatchDot(in.data(), b.data(), dots.data(), n);
    ZEPH_BatchDot(inD.data(), inD.data(), dotsD.data(), n);
    CZEPHVector3D low, high;
    CZEPHVector3 lowD, highD;
    ZEPH_BatchBounds(in.data(), n, low, high);
    ZEPH_BatchBounds(inD.data(), n, lowD, highD);
  }
};

TEST(BatchArrays, WriteNeitherOperandsNorObjectsAfterTheCount) {
  OfFloats arrays;
  const auto in = Values(arrays.in), in4 = Values(arrays.in4), inM = Values(arrays.inM);
  const auto inD = Values(arrays.inD), inDM = Values(arrays.inDM);
  ForEachForm([&](const std::string& form) {
    for (const int n : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 33}) {
      arrays.Reset();
      arrays.All(n);
      const auto at = static_cast<std::size_t>(n);
      for (std::size_t i = at; i < 40; ++i) {
        ASSERT_EQ(arrays.out[i], CZEPHVector3D(-7, -7, -7)) << form << n;
        ASSERT_EQ(arrays.out4[i], CZEPHVector4D(-7, -7, -7, -7)) << form << n;
        ASSERT_EQ(arrays.outM[i], CZEPHMatrix4x4()) << form << n;
        ASSERT_EQ(arrays.outD[i], CZEPHVector3(-7, -7, -7)) << form << n;
        for (const double x : arrays.outDM[i].m_data) ASSERT_EQ(x, -7.0) << form << n;
        ASSERT_EQ(arrays.dots[i], -7.0f) << form << n;
        ASSERT_EQ(arrays.dotsD[i], -7.0) << form << n;
      }
      ASSERT_TRUE(SameBits(Values(arrays.in), in) && SameBits(Values(arrays.in4), in4) &&
                  SameBits(Values(arrays.inM), inM) && SameBits(Values(arrays.inD), inD) &&
                  SameBits(Values(arrays.inDM), inDM))
          << form << n;
    }
  });
}

TEST(BatchArrays, AllocateNothing) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  OfFloats arrays;
  arrays.Reset();
  const long before = AllocationCount();
  arrays.All(39);
  EXPECT_EQ(AllocationCount(), before);
}

TEST(BatchArrays, DoNotChangeTheLiveObjectCount) {
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
