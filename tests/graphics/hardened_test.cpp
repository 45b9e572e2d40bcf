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

TEST(HardenedGraphics, StopsAtEveryNullRecordOfEveryFunction) {
  ZEPH_SKIP_UNLESS_HARDENED();
  CZEPHVector3S a, b;
  CZEPHVector3S* const none = Null<CZEPHVector3S>();
  EXPECT_STOP_OF("ZEPH_AddVectors: a is null", [&] { ZEPH_AddVectors(none, &b, &a); });
  EXPECT_STOP_OF("ZEPH_AddVectors: out is null", [&] { ZEPH_AddVectors(&a, &b, none); });
  EXPECT_STOP_OF("ZEPH_CopyVector: destination is null", [&] { ZEPH_CopyVector(none, &b); });
  EXPECT_STOP_OF("ZEPH_CrossVectors: a is null", [&] { ZEPH_CrossVectors(none, &b, &a); });
  EXPECT_STOP_OF("ZEPH_CrossVectors: b is null", [&] { ZEPH_CrossVectors(&a, none, &b); });
  EXPECT_STOP_OF("ZEPH_DotVectors: b is null", [&] { ZEPH_DotVectors(&a, none); });
}

TEST(HardenedGraphics, AllowsEverythingDocumented) {
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

namespace {
CZEPHVector3S record;
}

TEST(HardenedGraphics, StopsAtEachNullRecord) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_AddVectors: a is null",
              ZEPH_AddVectors(Null<CZEPHVector3S>(), &record, &record));
  EXPECT_STOP("ZEPH_AddVectors: b is null",
              ZEPH_AddVectors(&record, Null<CZEPHVector3S>(), &record));
  EXPECT_STOP("ZEPH_AddVectors: out is null",
              ZEPH_AddVectors(&record, &record, Null<CZEPHVector3S>()));
  EXPECT_STOP("ZEPH_CopyVector: destination is null",
              ZEPH_CopyVector(Null<CZEPHVector3S>(), &record));
  EXPECT_STOP("ZEPH_CopyVector: source is null", ZEPH_CopyVector(&record, Null<CZEPHVector3S>()));
  EXPECT_STOP("ZEPH_CrossVectors: a is null",
              ZEPH_CrossVectors(Null<CZEPHVector3S>(), &record, &record));
  EXPECT_STOP("ZEPH_CrossVectors: b is null",
              ZEPH_CrossVectors(&record, Null<CZEPHVector3S>(), &record));
  EXPECT_STOP("ZEPH_CrossVectors: out is null",
              ZEPH_CrossVectors(&record, &record, Null<CZEPHVector3S>()));
  EXPECT_STOP("ZEPH_DotVectors: a is null", ZEPH_DotVectors(Null<CZEPHVector3S>(), &record));
  EXPECT_STOP("ZEPH_DotVectors: b is null", ZEPH_DotVectors(&record, Null<CZEPHVector3S>()));
  EXPECT_STOP("ZEPH_ScaleVector: v is null", ZEPH_ScaleVector(Null<CZEPHVector3S>(), 2.0f));
}
