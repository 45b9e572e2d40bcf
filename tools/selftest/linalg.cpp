// SPDX-License-Identifier: MIT
//
// The workload over dense matrices and vectors.
#include "linalg.h"

#include <sstream>

#include "inputs.h"
#include "report.h"

namespace zeph::selftest {
namespace {

template <class Matrix>
Matrix Draw(Inputs& in, int rows, int cols, Kind kind) {
  Matrix m;
  if constexpr (std::is_same_v<Matrix, CZEPHDoubleMatrix>)
    m.Create(rows, cols);
  else
    m.ReSize(rows, cols);
  for (int i = 0; i < rows; ++i) in.Fill(m.m_ppData[i], cols, kind);
  return m;
}
template <class Matrix>
void Computed(Digest& digest, const Matrix& m) {
  for (int i = 0; i < m.m_nRows; ++i) digest.Computed(m.m_ppData[i], m.m_nColumns);
}
CZEPHVector DrawVector(Inputs& in, int n, Kind kind) {
  return CZEPHVector(n, in.Values<double>(n, kind).data());
}
void ComputedVector(Digest& digest, const CZEPHVector& v) {
  digest.Computed(v.m_pData, v.m_nSize);
}

void DoubleMatrices(Report& report, Inputs& in, int n, Kind kind) {
  using Matrix = CZEPHDoubleMatrix;
  const Matrix a = Draw<Matrix>(in, n, n + 2, kind), b = Draw<Matrix>(in, n, n + 2, kind);
  const Matrix square = Draw<Matrix>(in, n + 2, n + 2, kind);
  Computed(report("double matrix: a + b"), a + b);
  Computed(report("double matrix: a - b"), a - b);
  Computed(report("double matrix: -a"), -a);
  Matrix c = a;
  Computed(report("double matrix: +="), c += b);
  Computed(report("double matrix: -="), c -= a);
  c.SetData(a);
  Computed(report("double matrix: *="), c.operator*=(square));
  const CZEPHDoubleArray v(n + 2, in.Values<double>(n + 2, kind).data());
  const CZEPHDoubleArray product = a * v;
  report("double matrix: * array").Computed(product.data, product.size);
}

void GeneralMatrices(Report& report, Inputs& in, int n, Kind kind) {
  auto a = Draw<CZEPHMatrix>(in, n, n + 1, kind), b = Draw<CZEPHMatrix>(in, n + 1, n, kind);
  auto c = Draw<CZEPHMatrix>(in, n, n + 1, kind);
  Computed(report("matrix: a + b"), a + c);
  Computed(report("matrix: a * b"), a * b);
  ComputedVector(report("ZEPH_SumVector"), ZEPH_SumVector(a));
  CZEPHVector column = a.PickCol(n / 2);
  if (a.m_nRows != b.m_nRows) column = DrawVector(in, b.m_nRows, kind);
  b.SetCol(n / 2, column);
  Computed(report("PickCol, SetCol"), b);
}

void Vectors(Report& report, Inputs& in, int n, Kind kind) {
  CZEPHVector a = DrawVector(in, n, kind), b = DrawVector(in, n, kind);
  const double s = in.Value<double>(kind);
  ComputedVector(report("vector: a + b"), a + b);
  ComputedVector(report("vector: a - b"), a - b);
  ComputedVector(report("vector: / d"), a / s);
  ComputedVector(report("vector: s * v"), s * a);
  ComputedVector(report("vector: v * s"), a * s);
  Digest& digest = report("vector measures");
  digest.Integer(ZEPH_GetVectorMaxSite(a));
  digest.Integer(ZEPH_GetVectorMinSite(a));
  digest.Computed(ZEPH_GetVectorSquareNorm(a));
  digest.Computed(ZEPH_GetVectorInfititeNorm(a));
}

void Matrix4s(Report& report, Inputs& in, Kind kind) {
  const CZEPHMatrix4 a(in.Values<double>(16, kind).data(), CZEPHMatrix4::ColumnMajor);
  const CZEPHMatrix4 b(in.Values<double>(16, kind).data(), CZEPHMatrix4::RowMajor);
  const double s = in.Value<double>(kind);
  Digest& digest = report("4x4 matrix");
  const CZEPHMatrix4 results[] = {a + b, a - b, a * b, s * a, a * s, a / s};
  for (const CZEPHMatrix4& result : results) digest.Computed(result.m_data, 16);
  CZEPHMatrix4 c = a;
  digest.Computed((c += b).m_data, 16);
  digest.Computed((c -= a).m_data, 16);
  digest.Computed((c *= b).m_data, 16);
  digest.Computed((c *= s).m_data, 16);
  digest.Computed((c /= s).m_data, 16);
  digest.Computed((-c).m_data, 16);
}

CZEPHVector3 DrawVector3(Inputs& in, Kind kind) {
  const double x = in.Value<double>(kind), y = in.Value<double>(kind);
  return CZEPHVector3(x, y, in.Value<double>(kind));
}
void Computed3(Digest& digest, const CZEPHVector3& v) {
  digest.Computed(v.x());
  digest.Computed(v.y());
  digest.Computed(v.z());
}

void Vector3s(Report& report, Inputs& in, Kind kind) {
  CZEPHVector3 a = DrawVector3(in, kind), b = DrawVector3(in, kind);
  const double s = in.Value<double>(kind), t = in.Value<double>(kind);
  Digest& digest = report("3-vector");
  for (const CZEPHVector3& result : {a + b, a - b, -a, s * a, a * s, a / s, a ^ b, Bisect(a, b),
                                     a.Normalized(), CZEPHVector3(a, b)})
    Computed3(digest, result);
  digest.Computed(a * b);
  digest.Integer(a == b);
  digest.Integer(a != b);
  digest.Computed(a.GetLength2());
  digest.Computed(a.GetLength());
  CZEPHVector3 c = a;
  c += b;
  c *= s;
  c -= a;
  c /= t;
  Computed3(digest, c);
  c.EpsilonCorrect(b);
  Computed3(digest, c);
  digest.Computed(c.Normalize());
  Computed3(digest, c);
  ZEPH_MathClamp(a, -2.5, 1e3);
  Computed3(digest, a);
}

void Texts(Report& report, Inputs& in, Kind kind) {
  std::ostringstream stream;
  auto m = Draw<CZEPHDoubleMatrix>(in, 5, 7, kind);
  stream << m << DrawVector3(in, kind);
  stream << CZEPHMatrix4(in.Values<double>(16, kind).data(), CZEPHMatrix4::RowMajor);
  m.Display(stream);
  const std::string text = stream.str();
  report("operator<<", Rests::kTexts).Text(text.data(), text.size());
}

}  // namespace

void RunLinalg(Report& report) {
  Inputs in(3);
  for (Kind kind : kKinds) {
    for (int n : Sizes()) {
      for (int round = 0; round < 3; ++round) Vectors(report, in, n, kind);
      if (n > 129) continue;
      for (int round = 0; round < (n < 40 ? 3 : 1); ++round) {
        DoubleMatrices(report, in, n, kind);
        GeneralMatrices(report, in, n, kind);
      }
    }
    for (int k = 0; k < 1000; ++k) {
      Matrix4s(report, in, kind);
      Vector3s(report, in, kind);
      if (k < 20) Texts(report, in, kind);
    }
  }
}

}  // namespace zeph::selftest
