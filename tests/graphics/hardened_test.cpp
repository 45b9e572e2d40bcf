#include "support/hardened.h"

using zeph::test::ExpectPasses;
using zeph::test::ExpectStops;

namespace {

const char kChild[] = "zeph_graphics_hardened_child";

}  // namespace

TEST(HardenedGraphics, StopsAtNullFloats) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"two", "CZEPHVector2D::CZEPHVector2D: p is null"},
                          {"three", "CZEPHVector3D::CZEPHVector3D: p is null"},
                          {"four", "CZEPHVector4D::CZEPHVector4D: p is null"},
                          {"matrix", "CZEPHMatrix4x4::CZEPHMatrix4x4: p is null"},
                      });
}

TEST(HardenedGraphics, StopsAtNullRecords) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"add", "ZEPH_AddVectors: b is null"},
                          {"copy", "ZEPH_CopyVector: source is null"},
                          {"cross", "ZEPH_CrossVectors: out is null"},
                          {"dot", "ZEPH_DotVectors: a is null"},
                          {"scale", "ZEPH_ScaleVector: v is null"},
                      });
}

TEST(HardenedGraphics, LetsEverythingDocumentedPass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectPasses(kChild, {"indices", "floats"});
}
