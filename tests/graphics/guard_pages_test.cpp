// Floats and records that end or begin at a page boundary, beside inaccessible pages.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "graphics/values.h"

namespace zeph::test {
namespace {

TEST(GraphicsGuardPages, ConstructorsStayInBounds) {
  const Guarded pages;
  for (const bool atEnd : {true, false}) {
    const auto floats = [&](std::size_t n) { return pages.Copy(Moderate<float>(n, n), atEnd); };
    const auto want = [](std::size_t n) { return Moderate<float>(n, n); };
    EXPECT_EQ(CZEPHVector2D(floats(1)).x, want(1)[0]);  // reads one element only
    EXPECT_TRUE(Same(CZEPHVector3D(floats(3)), want(3)));
    EXPECT_TRUE(Same(CZEPHVector4D(floats(4)), want(4)));
    EXPECT_TRUE(SameBits(CZEPHMatrix4x4(floats(16)).entries, want(16).data(), 16));
  }
}

TEST(GraphicsGuardPages, RecordFunctionsStayInBounds) {
  const Guarded first, second, third;
  for (const bool atEnd : {true, false}) {
    auto* const a = new (first.Room<CZEPHVector3S>(1, atEnd)) CZEPHVector3S;
    auto* const b = new (second.Room<CZEPHVector3S>(1, atEnd)) CZEPHVector3S;
    auto* const out = new (third.Room<CZEPHVector3S>(1, atEnd)) CZEPHVector3S;
    a->x = 1, a->y = 2, a->z = 3;
    *b = *a;
    ZEPH_AddVectors(a, b, out);
    EXPECT_EQ(out->z, 6);
    ZEPH_CopyVector(out, a);
    EXPECT_EQ(out->z, 3);
    ZEPH_CrossVectors(a, b, out);
    EXPECT_EQ(out->z, 0);
    EXPECT_EQ(ZEPH_DotVectors(a, b), 14);
    ZEPH_ScaleVector(a, 2);
    EXPECT_EQ(a->z, 6);
  }
}

TEST(GraphicsGuardPages, ObjectsAtAPageBoundaryStayInBounds) {
  const Guarded first, second, third;
  for (const bool atEnd : {true, false}) {
    // The last object is as long as its members, so that a wider access would reach the next page.
    auto* const m = new (first.Room<CZEPHMatrix4x4>(1, atEnd)) CZEPHMatrix4x4;
    auto* const n = new (second.Room<CZEPHMatrix4x4>(1, atEnd)) CZEPHMatrix4x4;
    m->SetRotationX(30), n->SetPerspective(60, 1, 1, 10);
    *m *= *n, *m += *n, *m -= *n, *m *= 2.0f, *m /= 3.0f;
    *m = *m * *n;
    m->Invert(), m->InvertTranspose(), m->AffineInvert(), m->AffineInvertTranspose();
    m->Transpose(), m->LoadIdentity();
    EXPECT_EQ(*m, CZEPHMatrix4x4());
    auto* const v = new (third.Room<CZEPHVector4D>(1, atEnd)) CZEPHVector4D(1, 2, 3, 4);
    *v = *m * *v;
    *v += *v, *v *= 2.0f, *v /= 4.0f;
    v->RotateX(0);
    EXPECT_TRUE(Same(*v, {1, 2, 3, 4}));
    v->~CZEPHVector4D(), n->~CZEPHMatrix4x4(), m->~CZEPHMatrix4x4();
  }
}

}  // namespace
}  // namespace zeph::test
#endif
