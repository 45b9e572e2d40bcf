// Single-precision vectors and 4x4 matrices against the arithmetic of plain arrays, bit by bit.
#include "graphics.h"

#include "oracle/graphics.h"
#include "support/bytes.h"
#include "support/require.h"

namespace {

using oracle::Matrix;
using oracle::Vector;
using zeph::fuzz::Bytes;
using zeph::fuzz::RequireValue;
using zeph::fuzz::RequireValues;

Vector ReadVector(Bytes& in, std::size_t n) {
  Vector v(n);
  for (float& x : v) x = in.Float();
  return v;
}
Matrix ReadMatrix(Bytes& in) {
  Matrix m{};
  const int kind = in.Int(0, 3);
  for (float& x : m) x = kind == 1 ? static_cast<float>(in.Int(-2, 2)) : in.Float();
  if (kind < 2) return m;
  m[3] = m[7] = m[11] = 0.0f;
  m[15] = 1.0f;
  if (kind == 3) m[in.Below(4) * 4 + 3] = in.Float();
  return m;
}

CZEPHVector3D Three(const Vector& v) {
  return CZEPHVector3D(v.data());
}
CZEPHVector4D Four(const Vector& v) {
  return CZEPHVector4D(v.data());
}

/// Component by component: the flat vector's constructor from an array does not read the second.
template <class V>
V Make(const Vector& values) {
  V v;
  for (std::size_t i = 0; i < values.size(); ++i) (&v.x)[i] = values[i];
  return v;
}

void Same(const CZEPHVector2D& got, const Vector& want, const char* promise) {
  const float values[] = {got.x, got.y};
  RequireValues(values, want.data(), 2, promise);
}
void Same(const CZEPHVector3D& got, const Vector& want, const char* promise) {
  const float values[] = {got.x, got.y, got.z};
  RequireValues(values, want.data(), 3, promise);
}
void Same(const CZEPHVector4D& got, const Vector& want, const char* promise) {
  const float values[] = {got.x, got.y, got.z, got.w};
  RequireValues(values, want.data(), 4, promise);
}
void Same(const CZEPHMatrix4x4& got, const Matrix& want, const char* promise) {
  RequireValues(got.entries, want.data(), 16, promise);
}

template <class V, std::size_t kSize>
void Vectors(Bytes& in) {
  const Vector a = ReadVector(in, kSize), b = ReadVector(in, kSize), c = ReadVector(in, kSize);
  const float s = in.Float();
  const V va = Make<V>(a), vb = Make<V>(b), vc = Make<V>(c);
  Vector sum, difference, times;
  for (std::size_t i = 0; i < kSize; ++i) {
    sum.push_back(oracle::Add(a[i], b[i]));
    difference.push_back(oracle::Sub(a[i], b[i]));
    times.push_back(oracle::Mul(a[i], s));
  }
  Same(va + vb, sum, "a + b");
  Same(va - vb, difference, "a - b");
  Same(va * s, times, "a * s");
  Same(s * va, times, "s * a");
  Same(va / s, oracle::Divided(a, s), "a / s");
  Same(va.LinearInterpolate(vb, s), oracle::Linear(a, b, s), "LinearInterpolate");
  Same(va.QuadraticInterpolate(vb, vc, s), oracle::Quadratic(a, b, c, s), "QuadraticInterpolate");
  V twice = va;
  twice += twice;
  Vector doubled;
  for (const float x : a) doubled.push_back(oracle::Add(x, x));
  Same(twice, doubled, "a += a");
  if constexpr (kSize < 4) {
    RequireValue(va.GetLength(), oracle::Length(a), "GetLength");
    Same(va.GetNormalized(), oracle::Normalized(a), "GetNormalized");
  }
}

void Rotations(Bytes& in) {
  const Vector a = ReadVector(in, 3), axis = ReadVector(in, 3);
  const double angle = in.Double();
  const CZEPHVector3D v = Three(a);
  Same(v.GetRotatedX(angle), oracle::RotatedX(a, angle), "GetRotatedX");
  Same(v.GetRotatedY(angle), oracle::RotatedY(a, angle), "GetRotatedY");
  Same(v.GetRotatedZ(angle), oracle::RotatedZ(a, angle), "GetRotatedZ");
  Same(v.GetRotatedAxis(angle, Three(axis)), oracle::RotatedAxis(a, angle, axis), "GetRotatedAxis");
  Same(v.CrossProduct(Three(axis)), oracle::Cross(a, axis), "CrossProduct");
  RequireValue(v.DotProduct(Three(axis)), oracle::Dot(a, axis), "DotProduct");
  Same(v.GetPackedTo01(), oracle::Packed(a), "GetPackedTo01");
}

void Matrices(Bytes& in) {
  const Matrix a = ReadMatrix(in), b = ReadMatrix(in);
  const CZEPHMatrix4x4 m(a.data()), n(b.data());
  const Vector four = ReadVector(in, 4), three = {four[0], four[1], four[2]};
  Same(m * n, oracle::Product(a, b), "a * b");
  Same(m * Four(four), oracle::Product(a, four), "m * v");
  CZEPHMatrix4x4 square = m;
  square *= square;
  Same(square, oracle::Product(a, a), "m *= m");
  Same(m.GetTranspose(), oracle::Transposed(a), "GetTranspose");
  Same(m.GetInverseTranspose(), oracle::InverseTranspose(a), "GetInverseTranspose");
  Same(m.GetInverse(), oracle::Transposed(oracle::InverseTranspose(a)), "GetInverse");
  Same(m.GetAffineInverse(), oracle::AffineInverse(a), "GetAffineInverse");
  Same(m.GetRotatedVector3D(Three(three)), oracle::Rotated(a, three), "GetRotatedVector3D");
  Same(m.GetInverseRotatedVector3D(Three(three)), oracle::InverseRotated(a, three),
       "GetInverseRotatedVector3D");
  Same(m / four[3], oracle::Over(a, four[3]), "m / s");
}

void Builders(Bytes& in) {
  const double x = in.Double(), y = in.Double(), z = in.Double();
  const Matrix start = ReadMatrix(in);
  CZEPHMatrix4x4 m(start.data());
  m.SetRotationPartEuler(x, y, z);
  Same(m, oracle::WithEuler(start, x, y, z), "SetRotationPartEuler");
  const Vector axis = ReadVector(in, 3);
  m.SetRotationAxis(x, Three(axis));
  Same(m, oracle::RotationAxis(x, axis), "SetRotationAxis");
  const Vector p = ReadVector(in, 6);
  m.SetPerspective(p[0], p[1], p[2], p[3], p[4], p[5]);
  Same(m, oracle::Frustum(p[0], p[1], p[2], p[3], p[4], p[5]), "SetPerspective(planes)");
  m.SetPerspective(p[0], p[1], p[2], p[3]);
  Same(m, oracle::Perspective(p[0], p[1], p[2], p[3]), "SetPerspective(angle)");
  m.SetOrtho(p[0], p[1], p[2], p[3], p[4], p[5]);
  Same(m, oracle::Ortho(p[0], p[1], p[2], p[3], p[4], p[5]), "SetOrtho");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Bytes in(data, size);
  for (int steps = 0; steps < 4 && !in.Empty(); ++steps) switch (in.Int(0, 5)) {
      case 0:
        Vectors<CZEPHVector2D, 2>(in);
        break;
      case 1:
        Vectors<CZEPHVector3D, 3>(in);
        break;
      case 2:
        Vectors<CZEPHVector4D, 4>(in);
        break;
      case 3:
        Rotations(in);
        break;
      case 4:
        Matrices(in);
        break;
      default:
        Builders(in);
    }
  return 0;
}
