#include "support/hardened.h"
#include "graphics.h"

namespace {

using zeph::test::Null;
using zeph::test::Use;

}  // namespace

TEST(HardenedGraphics, StopsAtNullFloats) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHVector2D::CZEPHVector2D: p is null", {
    CZEPHVector2D v(Null<const float>());
    Use(v);
  });
  EXPECT_STOP("CZEPHVector3D::CZEPHVector3D: p is null", {
    CZEPHVector3D v(Null<const float>());
    Use(v);
  });
  EXPECT_STOP("CZEPHVector4D::CZEPHVector4D: p is null", {
    CZEPHVector4D v(Null<const float>());
    Use(v);
  });
  EXPECT_STOP("CZEPHMatrix4x4::CZEPHMatrix4x4: p is null", {
    CZEPHMatrix4x4 m(Null<const float>());
    Use(m);
  });
}

TEST(HardenedGraphics, StopsAtNullRecords) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_AddVectors: b is null", {
    CZEPHVector3S a;
    ZEPH_AddVectors(&a, Null<CZEPHVector3S>(), &a);
  });
  EXPECT_STOP("ZEPH_CopyVector: source is null", {
    CZEPHVector3S a;
    ZEPH_CopyVector(&a, Null<CZEPHVector3S>());
  });
  EXPECT_STOP("ZEPH_CrossVectors: out is null", {
    CZEPHVector3S a;
    ZEPH_CrossVectors(&a, &a, Null<CZEPHVector3S>());
  });
  EXPECT_STOP("ZEPH_DotVectors: a is null", {
    CZEPHVector3S a;
    ZEPH_DotVectors(Null<CZEPHVector3S>(), &a);
  });
  EXPECT_STOP("ZEPH_ScaleVector: v is null", ZEPH_ScaleVector(Null<CZEPHVector3S>(), 2.0f));
}

TEST(HardenedGraphics, LetsEverythingDocumentedPass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  {  // indices
    CZEPHMatrix4x4 m;
    m.SetEntry(16, 1.0f);
    m.GetEntry(-1);
    m.GetRow(4);
    m.GetColumn(-1);
  }
  {  // floats
    const float p[16] = {};
    Use(CZEPHVector3D(p));
    Use(CZEPHMatrix4x4(p));
  }
}
