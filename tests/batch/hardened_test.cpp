#include "support/hardened.h"

using zeph::test::ExpectPasses;
using zeph::test::ExpectStops;

namespace {

const char kChild[] = "zeph_batch_hardened_child";

}  // namespace

TEST(HardenedBatch, StopsAtNullArrays) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"null in", "ZEPH_BatchTransformPoints: points is null"},
                          {"null out", "ZEPH_BatchNormalize: out is null"},
                          {"null points", "ZEPH_BatchBounds: points is null"},
                      });
}

TEST(HardenedBatch, StopsWhereTheResultsOverlapWhatIsRead) {
  ZEPH_SKIP_UNLESS_HARDENED();
  const std::string breach = ": out overlaps an array that is read";
  ExpectStops(kChild, {
                          {"shifted up", "ZEPH_BatchTransformDirections" + breach},
                          {"shifted down", "ZEPH_BatchRotateAxis" + breach},
                          {"second operand", "ZEPH_BatchCross" + breach},
                          {"dot", "ZEPH_BatchDot" + breach},
                      });
}

TEST(HardenedBatch, LetsArraysInPlaceAndSideBySidePass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectPasses(kChild, {"beside", "in place"});
}
