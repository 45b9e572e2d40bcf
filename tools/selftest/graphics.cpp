// SPDX-License-Identifier: MIT
//
// The workload over the single-precision vectors and the 4x4 transform.
#include "graphics.h"

#include "inputs.h"
#include "report.h"

namespace zeph::selftest {
namespace {

using Matrix = CZEPHMatrix4x4;

void Computed(Digest& digest, const CZEPHVector2D& v) {
  digest.Computed(v.x);
  digest.Computed(v.y);
}
void Computed(Digest& digest, const CZEPHVector3D& v) {
  digest.Computed(v.x);
  digest.Computed(v.y);
  digest.Computed(v.z);
}
void Computed(Digest& digest, const CZEPHVector4D& v) {
  digest.Computed(v.x);
  digest.Computed(v.y);
  digest.Computed(v.z);
  digest.Computed(v.w);
}
void Computed(Digest& digest, const Matrix& m) {
  digest.Computed(m.entries, 16);
}
template <class Vector>
Vector Draw(Inputs& in, Kind kind) {
  float values[16];
  in.Fill(values, 16, kind);
  return Vector(static_cast<const float*>(values));
}

/// What the three vector classes have in common.
template <class Vector>
void Operators(Digest& digest, Inputs& in, Kind kind) {
  const Vector a = Draw<Vector>(in, kind), b = Draw<Vector>(in, kind), c = Draw<Vector>(in, kind);
  const float s = in.Value<float>(kind);
  Computed(digest, a + b);
  Computed(digest, a - b);
  Computed(digest, a * s);
  Computed(digest, a / s);
  Computed(digest, s * a);
  Computed(digest, -a);
  digest.Integer(a == b);
  digest.Integer(a != b);
  Vector d = a;
  d += b;
  Computed(digest, d);
  d *= s;
  Computed(digest, d);
  d -= c;
  Computed(digest, d);
  d /= s;
  Computed(digest, d);
  Computed(digest, a.LinearInterpolate(b, s));
  Computed(digest, a.QuadraticInterpolate(b, c, s));
}

template <class Vector>
void Lengths(Digest& digest, Inputs& in, Kind kind) {
  Vector a = Draw<Vector>(in, kind);
  digest.Computed(a.GetLength());
  digest.Computed(a.GetSquaredLength());
  Computed(digest, a.GetNormalized());
  a.Normalize();
  Computed(digest, a);
}

void Products(Digest& digest, Inputs& in, Kind kind) {
  CZEPHVector3D a = Draw<CZEPHVector3D>(in, kind), b = Draw<CZEPHVector3D>(in, kind);
  digest.Computed(a.DotProduct(b));
  Computed(digest, a.CrossProduct(b));
  Computed(digest, a.GetPackedTo01());
  CZEPHVector4D c = Draw<CZEPHVector4D>(in, kind);
  digest.Computed(c.DotProduct(Draw<CZEPHVector4D>(in, kind)));
  Computed(digest, CZEPHVector3D(c));
}

void Records(Digest& digest, Inputs& in, Kind kind) {
  CZEPHVector3S a, b, out;
  for (float* component : {&a.x, &a.y, &a.z, &b.x, &b.y, &b.z}) *component = in.Value<float>(kind);
  const auto take = [&](const CZEPHVector3S& v) {
    for (float component : {v.x, v.y, v.z}) digest.Computed(component);
  };
  ZEPH_AddVectors(&a, &b, &out);
  take(out);
  ZEPH_CrossVectors(&a, &b, &out);
  take(out);
  ZEPH_CrossVectors(&out, &b, &out);
  take(out);
  digest.Computed(ZEPH_DotVectors(&a, &b));
  ZEPH_ScaleVector(&a, b.x);
  take(a);
}

void MatrixArithmetic(Report& report, Inputs& in, Kind kind) {
  const Matrix a = Draw<Matrix>(in, kind), b = Draw<Matrix>(in, kind);
  const float s = in.Value<float>(kind);
  Digest& arithmetic = report("matrix arithmetic");
  Computed(arithmetic, a + b);
  Computed(arithmetic, a - b);
  Computed(arithmetic, -a);
  Computed(arithmetic, a * s);
  Computed(arithmetic, a / s);
  arithmetic.Integer(a == b);
  Matrix c = a;
  c += b;
  c *= s;
  c -= a;
  c /= s;
  Computed(arithmetic, c);
  Digest& products = report("matrix product");
  Computed(products, a * b);
  c *= a;
  Computed(products, c);
  Computed(products, a * Draw<CZEPHVector4D>(in, kind));
}

void Transforms(Report& report, Inputs& in, Kind kind) {
  Matrix a = Draw<Matrix>(in, kind);
  const CZEPHVector3D v = Draw<CZEPHVector3D>(in, kind);
  Digest& transforms = report("vector transforms");
  Computed(transforms, a.GetRotatedVector3D(v));
  Computed(transforms, a.GetInverseRotatedVector3D(v));
  Computed(transforms, a.GetTranslatedVector3D(v));
  Computed(transforms, a.GetInverseTranslatedVector3D(v));
  Digest& inverses = report("inverses");
  Computed(inverses, a.GetInverse());
  Computed(inverses, a.GetInverseTranspose());
  Computed(inverses, a.GetAffineInverse());
  Computed(inverses, a.GetAffineInverseTranspose());
  report("transpose").Moved(a.GetTranspose().entries, 16);
}

void Builders(Report& report, Inputs& in, Kind kind) {
  const CZEPHVector3D v = Draw<CZEPHVector3D>(in, kind), u = Draw<CZEPHVector3D>(in, kind);
  Digest& digest = report("builders");
  Matrix m;
  m.SetTranslation(v);
  Computed(digest, m);
  m.SetScale(v);
  Computed(digest, m);
  m.SetUniformScale(v.x);
  m.SetTranslationPart(u);
  Computed(digest, m);
  m.SetPerspective(v.x, v.y, v.z, u.x, u.y, u.z);
  Computed(digest, m);
  m.SetOrtho(v.x, v.y, v.z, u.x, u.y, u.z);
  Computed(digest, m);
}

void Angles(Report& report, Inputs& in) {
  const double x = in.Value<double>(Kind::kPlain), y = in.Value<double>(Kind::kPlain);
  const CZEPHVector3D v = Draw<CZEPHVector3D>(in, Kind::kPlain);
  const CZEPHVector3D axis = Draw<CZEPHVector3D>(in, Kind::kPlain).GetNormalized();
  Digest& vectors = report("vector rotations", Rests::kFunctions);
  Computed(vectors, v.GetRotatedX(x));
  Computed(vectors, v.GetRotatedY(x));
  Computed(vectors, v.GetRotatedZ(x));
  Computed(vectors, v.GetRotatedAxis(x, axis));
  Computed(vectors, CZEPHVector4D(v).GetRotatedAxis(y, axis));
  Digest& builders = report("rotation builders", Rests::kFunctions);
  Matrix m;
  m.SetRotationX(x);
  Computed(builders, m);
  m.SetRotationY(x);
  Computed(builders, m);
  m.SetRotationZ(x);
  Computed(builders, m);
  m.SetRotationAxis(y, axis);
  Computed(builders, m);
  m.SetRotationEuler(x, y, x + y);
  Computed(builders, m);
  m.SetPerspective(v.x, v.y, 0.5f, 100.0f);
  Computed(builders, m);
}

}  // namespace

void RunGraphics(Report& report) {
  Inputs in(4);
  for (Kind kind : kKinds)
    for (int k = 0; k < 900; ++k) {
      Operators<CZEPHVector2D>(report("2D operators"), in, kind);
      Operators<CZEPHVector3D>(report("3D operators"), in, kind);
      Operators<CZEPHVector4D>(report("4D operators"), in, kind);
      Lengths<CZEPHVector2D>(report("2D lengths"), in, kind);
      Lengths<CZEPHVector3D>(report("3D lengths"), in, kind);
      Products(report("products"), in, kind);
      Records(report("records"), in, kind);
      MatrixArithmetic(report, in, kind);
      Transforms(report, in, kind);
      Builders(report, in, kind);
      if (k < 300) Angles(report, in);
    }
}

}  // namespace zeph::selftest
