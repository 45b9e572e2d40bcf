// No operation on vectors and matrices of floats allocates.
#include <gtest/gtest.h>

#include "graphics/values.h"
#include "support/allocation.h"

using namespace zeph::test;

namespace {

/// Where results go that nobody looks at.
volatile float sink;

void Use(const CZEPHVector2D& v) {
  sink = v.x;
}
void Use(const CZEPHVector3D& v) {
  sink = v.x;
}
void Use(const CZEPHVector4D& v) {
  sink = v.x;
}
void Use(const CZEPHMatrix4x4& m) {
  sink = m.entries[5];
}

template <class V>
void UseVectors() {
  V a, b;
  a.x = 1, a.y = 2, b.x = 3, b.y = -4;
  for (const V& v : {V(a), a + b, a - b, a * 2.0f, 2.0f * a, a / 2.0f, a / 0.0f, -a, +a,
                     a.LinearInterpolate(b, 0.5f), a.QuadraticInterpolate(b, a, 0.5f)})
    Use(v);
  a += b, a -= b, a *= 2.0f, a /= 2.0f, a = b;
  sink = static_cast<float>((a == b) + (a != b));
}

template <class V>
void UseLengths() {
  V v;
  v.x = 3, v.y = 4;
  sink = v.GetLength() + v.GetSquaredLength();
  Use(v.GetNormalized());
  v.Normalize();
}

template <class V>
void UseTurns(V v) {
  const CZEPHVector3D axis(1, 2, 3);
  for (const double angle : {0.0, 30.0, -725.0}) {
    for (const V& turned : {v.GetRotatedX(angle), v.GetRotatedY(angle), v.GetRotatedZ(angle),
                            v.GetRotatedAxis(angle, axis)})
      Use(turned);
    v.RotateX(angle), v.RotateY(angle), v.RotateZ(angle), v.RotateAxis(angle, axis);
  }
}

void UseRecords() {
  CZEPHVector3S a, b, out;
  ZEPH_AddVectors(&a, &b, &out);
  ZEPH_CopyVector(&a, &out);
  ZEPH_CrossVectors(&a, &b, &out);
  ZEPH_ScaleVector(&a, ZEPH_DotVectors(&a, &b));
}

void UseBuilders() {
  CZEPHMatrix4x4 m;
  const CZEPHVector3D v(1, 2, 3);
  m.SetTranslation(v), m.SetTranslationPart(v), m.SetScale(v), m.SetUniformScale(2);
  m.SetRotationX(30), m.SetRotationY(30), m.SetRotationZ(30), m.SetRotationAxis(30, v);
  m.SetRotationPartEuler(1, 2, 3), m.SetRotationPartEuler(v), m.SetRotationEuler(1, 2, 3);
  m.SetPerspective(-1, 1, -1, 1, 1, 10), m.SetPerspective(-1, 1, -1, 1, 1, -1);
  m.SetPerspective(60, 1, 1, 10), m.SetOrtho(-1, 1, -1, 1, 1, 10);
  m.LoadZero(), m.LoadIdentity(), m.SetEntry(3, 4);
  Use(m.GetRow(1));
  Use(m.GetColumn(1));
}

void UseMatrices() {
  CZEPHMatrix4x4 a, projective;
  a.SetRotationX(30);
  projective.SetPerspective(-1, 1, -1, 1, 1, 10);
  for (const CZEPHMatrix4x4& b : {a, projective}) {
    for (const CZEPHMatrix4x4& m :
         {CZEPHMatrix4x4(b), a + b, a - b, -b, +b, b * 2.0f, b / 2.0f, b / 0.0f, a * b, b * a,
          b.GetTranspose(), b.GetInverse(), b.GetInverseTranspose(), b.GetAffineInverse(),
          b.GetAffineInverseTranspose()})
      Use(m);
    Use(b * CZEPHVector4D(1, 2, 3, 4));
    CZEPHMatrix4x4 m = b;
    m += b, m -= b, m *= b, m *= 2.0f, m /= 2.0f, m.Transpose(), m.Invert(), m.InvertTranspose();
    m.AffineInvert(), m.AffineInvertTranspose();
    sink = static_cast<float>((m == b) + (m != b));
    CZEPHVector3D v(1, 2, 3);
    for (const CZEPHVector3D& each :
         {b.GetRotatedVector3D(v), b.GetInverseRotatedVector3D(v), b.GetTranslatedVector3D(v),
          b.GetInverseTranslatedVector3D(v)})
      Use(each);
    b.RotateVector3D(v), b.InverseRotateVector3D(v);
    b.TranslateVector3D(v), b.InverseTranslateVector3D(v);
  }
}

void UseOthers() {
  CZEPHVector3D a(1, 2, 3), b(4, 5, 6);
  CZEPHVector4D four(1, 2, 3, 4);
  sink = a.DotProduct(b) + four.DotProduct(four);
  a.Add(b, b), a.Subtract(b, b), a.PackTo01();
  for (const CZEPHVector3D& v : {a.CrossProduct(b), a.GetPackedTo01(), CZEPHVector3D(four)}) Use(v);
}

}  // namespace

TEST(Graphics, AllocatesNothing) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const auto all = [] {
    UseVectors<CZEPHVector2D>();
    UseVectors<CZEPHVector3D>();
    UseVectors<CZEPHVector4D>();
    UseLengths<CZEPHVector2D>();
    UseLengths<CZEPHVector3D>();
    UseTurns(CZEPHVector3D(1, 2, 3));
    UseTurns(CZEPHVector4D(1, 2, 3, 4));
    UseRecords();
    UseBuilders();
    UseMatrices();
    UseOthers();
  };
  all();  // what a runtime may allocate at first
  const long before = AllocationCount();
  all();
  EXPECT_EQ(AllocationCount(), before);
}
