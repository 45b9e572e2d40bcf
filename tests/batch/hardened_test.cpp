#include <vector>

#include "batch.h"
#include "support/hardened.h"

namespace {

using zeph::test::Null;

std::vector<CZEPHVector3D> Points() {
  return std::vector<CZEPHVector3D>(20, CZEPHVector3D(1, 2, 3));
}

}  // namespace

TEST(HardenedBatch, StopsAtNullArrays) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_BatchTransformPoints: points is null", {
    auto out = Points();
    ZEPH_BatchTransformPoints(CZEPHMatrix4x4(), Null<CZEPHVector3D>(), out.data(), 20);
  });
  EXPECT_STOP("ZEPH_BatchNormalize: out is null", {
    auto in = Points();
    ZEPH_BatchNormalize(in.data(), Null<CZEPHVector3D>(), 20);
  });
  EXPECT_STOP("ZEPH_BatchBounds: points is null", {
    CZEPHVector3D low, high;
    ZEPH_BatchBounds(Null<CZEPHVector3D>(), 1, low, high);
  });
}

TEST(HardenedBatch, StopsWhereTheResultsOverlapWhatIsRead) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_BatchTransformDirections: out overlaps an array that is read", {
    auto in = Points();
    ZEPH_BatchTransformDirections(CZEPHMatrix4x4(), in.data(), in.data() + 1, 19);
  });
  EXPECT_STOP("ZEPH_BatchRotateAxis: out overlaps an array that is read", {
    auto in = Points();
    ZEPH_BatchRotateAxis(0.0, in[0], in.data() + 19, in.data(), 20);
  });
  EXPECT_STOP("ZEPH_BatchCross: out overlaps an array that is read", {
    auto a = Points(), b = Points();
    ZEPH_BatchCross(a.data(), b.data() + 2, b.data(), 18);
  });
  EXPECT_STOP("ZEPH_BatchDot: out overlaps an array that is read", {
    auto a = Points(), b = Points();
    ZEPH_BatchDot(a.data(), b.data(), &b[3].x, 20);
  });
}

TEST(HardenedBatch, LetsArraysInPlaceAndSideBySidePass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  {  // beside
    auto in = Points();
    ZEPH_BatchNormalize(in.data(), in.data() + 10, 10);
    ZEPH_BatchNormalize(in.data() + 10, in.data(), 10);
  }
  {  // in place
    auto in = Points();
    ZEPH_BatchNormalize(in.data(), in.data(), 20);
    ZEPH_BatchCross(in.data(), in.data() + 1, in.data() + 1, 1);
    ZEPH_BatchNormalize(Null<CZEPHVector3D>(), Null<CZEPHVector3D>(), 0);
  }
}
