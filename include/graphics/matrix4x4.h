// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHMatrix4x4: a column-major 4x4 transform; builders, products, inverses.
#ifndef ZEPH_GRAPHICS_MATRIX4X4_H
#define ZEPH_GRAPHICS_MATRIX4X4_H

#include <cstring>

#include "../platform.h"
#include "vector3d.h"
#include "vector4d.h"

/// A 4x4 matrix of floats that transforms column vectors.
///
/// Entry 4 * column + row, so entries 0..3 are the first column and 12, 13, 14 the translation. A
/// matrix whose bottom row (entries 3, 7, 11, 15) is exactly 0, 0, 0, 1 is called affine; the
/// products take shortcuts for it.
///
///     CZEPHMatrix4x4 turn, move;
///     turn.SetRotationZ(90), move.SetTranslation(CZEPHVector3D(5, 0, 0));
///     CZEPHVector3D p = (move * turn) * CZEPHVector4D(1, 0, 0, 1);  // turned, moved: (5, 1, 0)
class ZEPH_API CZEPHMatrix4x4 {
 public:
  /// The identity.
  ZEPH_EMIT CZEPHMatrix4x4() { LoadIdentity(); }
  /// A copy, bit for bit.
  ZEPH_EMIT CZEPHMatrix4x4(const CZEPHMatrix4x4& other) {
    std::memcpy(entries, other.entries, sizeof entries);
  }
  /// Entries 0 to 15 in argument order: the first four are the first column.
  ///
  ///     CZEPHMatrix4x4 m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
  ///     m.GetRow(0);  // (1, 5, 9, 13)
  ZEPH_EMIT CZEPHMatrix4x4(float e0, float e1, float e2, float e3, float e4, float e5, float e6,
                           float e7, float e8, float e9, float e10, float e11, float e12, float e13,
                           float e14, float e15)
      : entries{e0, e1, e2, e3, e4, e5, e6, e7, e8, e9, e10, e11, e12, e13, e14, e15} {}
  /// Sixteen floats copied in order.
  ZEPH_EMIT ZEPH_CHECKED CZEPHMatrix4x4(const float* p) {  // NOLINT: implicit, as documented
    ZEPH_REQUIRE_POINTER("CZEPHMatrix4x4::CZEPHMatrix4x4", p);
    std::memcpy(entries, p, sizeof entries);
  }
  /// Does nothing.
  ZEPH_EMIT virtual ~CZEPHMatrix4x4() {}
  /// Copies the entries.
  ///
  ///     CZEPHMatrix4x4 a, b;
  ///     b.SetUniformScale(2);
  ///     a = b;
  ///     a == b;  // 1
  ZEPH_EMIT CZEPHMatrix4x4& operator=(const CZEPHMatrix4x4& other) {
    if (this != &other) std::memcpy(entries, other.entries, sizeof entries);
    return *this;
  }

  /// Ones on the diagonal, zeros elsewhere.
  ZEPH_EMIT void LoadIdentity() {
    LoadZero();
    entries[0] = entries[5] = entries[10] = entries[15] = 1;
  }
  /// All entries 0.
  ZEPH_EMIT void LoadZero() {
    for (float& entry : entries) entry = 0;
  }

  /// Stores an entry; an index outside 0..15 is ignored.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetEntry(12, 5);
  ///     m.GetEntry(12);  // 5
  ///     m.GetEntry(16);  // 0
  ZEPH_EMIT void SetEntry(int index, float value) {
    if (index >= 0 && index < 16) entries[index] = value;
  }
  /// An entry; 0 for an index outside 0..15.
  ZEPH_EMIT float GetEntry(int index) const {
    return index >= 0 && index < 16 ? entries[index] : 0.0f;
  }
  /// Row or column 0..3; (0, 0, 0, 0) for any other index.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     m.GetRow(0);     // (1, 0, 0, 5)
  ///     m.GetColumn(3);  // (5, 6, 7, 1)
  ZEPH_EMIT CZEPHVector4D GetRow(int index) const {
    if (index < 0 || index > 3) return CZEPHVector4D();
    return CZEPHVector4D(entries[index], entries[index + 4], entries[index + 8],
                         entries[index + 12]);
  }
  ZEPH_EMIT CZEPHVector4D GetColumn(int index) const {
    if (index < 0 || index > 3) return CZEPHVector4D();
    return CZEPHVector4D(entries + 4 * index);
  }
  /// The address of the object itself, which is not where the entries lie. Use `m.entries` for
  /// those.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     static_cast<float*>(m) == reinterpret_cast<float*>(&m);  // 1
  ///     const float* p = static_cast<const float*>(m);           // the same
  ///     m.entries[5];                                            // 1
  operator float*() const;        // NOLINT: implicit, as documented
  operator const float*() const;  // NOLINT: implicit, as documented

  /// Entry by entry.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     (m + m).GetEntry(0);  // 2
  ///     (m - m).GetEntry(0);  // 0
  CZEPHMatrix4x4 operator+(const CZEPHMatrix4x4& other) const;
  CZEPHMatrix4x4 operator-(const CZEPHMatrix4x4& other) const;
  /// Each sign flipped: 0 becomes -0.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     (-m).GetEntry(0);  // -1
  ///     (+m).GetEntry(0);  // 1
  CZEPHMatrix4x4 operator-() const;
  /// A copy.
  CZEPHMatrix4x4 operator+() const;
  /// Every entry multiplied by `s`.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     (m * 3).GetEntry(0);  // 3
  CZEPHMatrix4x4 operator*(float s) const;
  /// Every entry multiplied by 1 / `s`; an unchanged copy where `s` is exactly 0 or 1.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     (m / 2).GetEntry(0);  // 0.5
  CZEPHMatrix4x4 operator/(float s) const;
  /// The product: applying it applies `other` first.
  ///
  /// Entry (i, j) is the sum over k = 0..3 of this(i, k) * other(k, j), in that order. Where a
  /// factor is affine, the terms that the zeros of its bottom row cancel are left out, so an
  /// infinity or NaN elsewhere is not multiplied by those zeros; two affine factors give an exactly
  /// affine product.
  CZEPHMatrix4x4 operator*(const CZEPHMatrix4x4& other) const;
  /// The transformed vector: e[i] * x + e[4 + i] * y + e[8 + i] * z + e[12 + i] * w for each row i.
  /// An affine matrix copies w.
  CZEPHVector4D operator*(CZEPHVector4D v) const;
  /// The matching operator's result, copied into this. `m *= n` is m = m * n.
  ///
  ///     CZEPHMatrix4x4 m, n;
  ///     m *= 8;
  ///     m += n;
  ///     m -= n;
  ///     m /= 2;
  ///     m *= m;
  ///     m.GetEntry(0);  // 16
  void operator*=(const CZEPHMatrix4x4& other);
  void operator*=(float s);
  void operator+=(const CZEPHMatrix4x4& other);
  void operator-=(const CZEPHMatrix4x4& other);
  void operator/=(float s);
  /// 1 when all entries compare equal, else 0. Exact: 0 equals -0, NaN equals nothing.
  int operator==(const CZEPHMatrix4x4& other) const;
  /// The negation of `==`.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m != m * 2;  // 1
  int operator!=(const CZEPHMatrix4x4& other) const;

  /// The upper-left 3x3 part times the vector, without translation.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationZ(180);
  ///     CZEPHVector3D w(0, 0, 2);
  ///     m.RotateVector3D(w);         // w is (0, 0, 2)
  ///     m.InverseRotateVector3D(w);  // w is (0, 0, 2)
  CZEPHVector3D GetRotatedVector3D(const CZEPHVector3D& v) const;
  void RotateVector3D(CZEPHVector3D& v) const;
  /// The transposed 3x3 part times the vector: the inverse rotation where that part is a rotation,
  /// which is not checked.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationX(30), m.GetInverseRotatedVector3D(m.GetRotatedVector3D(v));  // about v
  CZEPHVector3D GetInverseRotatedVector3D(const CZEPHVector3D& v) const;
  void InverseRotateVector3D(CZEPHVector3D& v) const;
  /// The vector plus, or minus, the translation; the 3x3 part is not used.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     CZEPHVector3D w(1, 2, 3);
  ///     m.GetTranslatedVector3D(w);         // (6, 8, 10)
  ///     m.GetInverseTranslatedVector3D(w);  // (-4, -4, -4)
  ///     m.TranslateVector3D(w);             // w is (6, 8, 10)
  ///     m.InverseTranslateVector3D(w);      // w is (1, 2, 3)
  CZEPHVector3D GetTranslatedVector3D(const CZEPHVector3D& v) const;
  void TranslateVector3D(CZEPHVector3D& v) const;
  CZEPHVector3D GetInverseTranslatedVector3D(const CZEPHVector3D& v) const;
  void InverseTranslateVector3D(CZEPHVector3D& v) const;

  /// Rows and columns exchanged.
  ///
  ///     CZEPHMatrix4x4 m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
  ///     m.GetTranspose().GetRow(0);  // (1, 2, 3, 4)
  ///     m.Transpose();
  ///     m.GetRow(0);                 // (1, 2, 3, 4)
  CZEPHMatrix4x4 GetTranspose() const;
  void Transpose();

  /// The identity with translation `v`.
  void SetTranslation(const CZEPHVector3D& v);
  /// Sets entries 12, 13, 14 and no other.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetUniformScale(2);
  ///     m.SetTranslationPart(CZEPHVector3D(5, 6, 7));
  ///     m.GetRow(0);  // (2, 0, 0, 5)
  void SetTranslationPart(const CZEPHVector3D& v);
  /// The identity with diagonal (v.x, v.y, v.z, 1), or (s, s, s, 1).
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetScale(CZEPHVector3D(2, 3, 4));
  ///     m.GetRow(1);  // (0, 3, 0, 0)
  void SetScale(const CZEPHVector3D& v);
  void SetUniformScale(float s);
  /// The rotation about a coordinate axis by `angle` degrees. The sine and cosine of 0 are computed
  /// too.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationZ(90);  // takes (1, 0, 0) to (6.1e-17, 1, 0)
  ///     m.SetRotationY(180);
  ///     m.GetRow(1);  // (0, 1, 0, 0)
  void SetRotationX(double angle);
  void SetRotationY(double angle);
  void SetRotationZ(double angle);
  /// The rotation about `axis`, normalised first, by `angle` degrees; rotates a vector to the same
  /// bits as CZEPHVector3D::GetRotatedAxis does. A zero axis gives a scale by the cosine.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationAxis(30, CZEPHVector3D(0, 0, 2));
  ///     m.GetRow(2);  // (0, 0, 1, 0)
  void SetRotationAxis(double angle, const CZEPHVector3D& axis);
  /// Sets the upper-left 3x3 part to the rotation about x by `angleX`, then about y, then about z
  /// (the matrix Rz * Ry * Rx), computed in double; the other entries keep their values.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     m.SetRotationPartEuler(0, 0, 30);
  ///     m.GetRow(2);  // (0, 0, 1, 7)
  void SetRotationPartEuler(double angleX, double angleY, double angleZ);
  /// The same, with the components of `angles` as degrees.
  void SetRotationPartEuler(const CZEPHVector3D& angles);
  /// The identity with that rotation.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationEuler(0, 0, 90);  // the quarter turn about z
  void SetRotationEuler(double angleX, double angleY, double angleZ);

  /// The perspective projection of a frustum whose near rectangle is left..right, bottom..top at
  /// distance `near`, looking along -z, onto -1..1 in x, y and z. Names and signs follow the
  /// classic frustum call of graphics libraries.
  ///
  /// `far` exactly -1 stands for infinity, with 0.999 in place of 1 in the depth entries. Where
  /// left equals right, top equals bottom or near equals far, the matrix is all zeros.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetPerspective(-1, 1, -1, 1, 1, 100);  // e0 = e5 = 1, e10 = -101/99, e14 = -200/99
  void SetPerspective(float left, float right, float bottom, float top, float near, float far);
  /// The same for a full vertical field of view of `fovy` degrees and `aspect` = width / height.
  /// Here alone degrees are converted in single precision and the float tangent is taken.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetPerspective(60, 16.0f / 9, 0.1f, 1000);
  void SetPerspective(float fovy, float aspect, float near, float far);
  /// The orthographic projection of the box onto -1..1. Nothing is checked: equal planes give
  /// infinities or NaN.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetOrtho(0, 640, 480, 0, -1, 1);  // pixels, y down
  void SetOrtho(float left, float right, float bottom, float top, float near, float far);

  /// The transposed inverse, which transforms surface normals. The identity for a singular matrix.
  ///
  /// Cramer's rule with shared 2x2 products; the cofactors are multiplied by the rounded reciprocal
  /// of the determinant (not scaled where it is exactly 1). Singular means a determinant of exactly
  /// 0, so a nearly singular matrix gives an inverse with whatever accuracy single precision
  /// leaves.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     m.GetInverseTranspose().GetRow(3);  // (-5, -6, -7, 1)
  CZEPHMatrix4x4 GetInverseTranspose() const;
  /// The inverse: GetInverseTranspose(), transposed. The identity for a singular matrix.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetUniformScale(2), m.GetInverse();  // 0.5 on the diagonal, then 1
  ///     m.Invert();
  ///     m.GetEntry(0);           // 0.5
  ///     m.InvertTranspose();
  ///     m.GetEntry(0);           // 2
  CZEPHMatrix4x4 GetInverse() const;
  void InvertTranspose();
  void Invert();
  /// The inverse of a rotation followed by a translation: the 3x3 part transposed, the translation
  /// -(transposed * translation), the bottom row 0, 0, 0, 1. Not checked: with scale or shear in
  /// the 3x3 part the result is not the inverse, and the bottom row is not read.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationZ(30), m.SetTranslationPart(CZEPHVector3D(1, 2, 3)), m.AffineInvert();
  ///     CZEPHMatrix4x4 n;
  ///     n.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     n.GetAffineInverse().GetRow(0);  // (1, 0, 0, -5)
  CZEPHMatrix4x4 GetAffineInverse() const;
  /// The transpose of GetAffineInverse().
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     m.GetAffineInverseTranspose().GetRow(3);  // (-5, -6, -7, 1)
  ///     m.AffineInvertTranspose();
  ///     m.GetRow(3);                              // (-5, -6, -7, 1)
  CZEPHMatrix4x4 GetAffineInverseTranspose() const;
  void AffineInvert();
  void AffineInvertTranspose();

  float entries[16];  ///< By columns: element (row, column) is entries[4 * column + row].
};

#endif  // ZEPH_GRAPHICS_MATRIX4X4_H
