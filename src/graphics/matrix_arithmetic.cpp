// SPDX-License-Identifier: MIT
//
// The operators of the 4x4 matrix, and its transposes.
#include "graphics.h"
#include "graphics/matrix_of.h"
#include "graphics/product.h"

using namespace zeph::graphics;

// The matrix of f applied to each column.
template <class F, class... More>
static CZEPHMatrix4x4 EachColumn(F f, const Columns<Lanes>& a, const More&... more) {
  return MatrixOf(
      {f(a.c0, more.c0...), f(a.c1, more.c1...), f(a.c2, more.c2...), f(a.c3, more.c3...)});
}

static Columns<Lanes> Load(const CZEPHMatrix4x4& m) {
  return Columns<Lanes>::Load(m.entries);
}

CZEPHMatrix4x4 CZEPHMatrix4x4::operator+(const CZEPHMatrix4x4& other) const {
  return EachColumn([](Lanes p, Lanes q) { return p + q; }, Load(*this), Load(other));
}

CZEPHMatrix4x4 CZEPHMatrix4x4::operator-(const CZEPHMatrix4x4& other) const {
  return EachColumn([](Lanes p, Lanes q) { return p - q; }, Load(*this), Load(other));
}

CZEPHMatrix4x4 CZEPHMatrix4x4::operator-() const {
  return EachColumn([](Lanes p) { return -p; }, Load(*this));
}

CZEPHMatrix4x4 CZEPHMatrix4x4::operator+() const {
  return *this;
}

CZEPHMatrix4x4 CZEPHMatrix4x4::operator*(float s) const {
  const Lanes factor = Lanes::All(s);
  return EachColumn([factor](Lanes p) { return p * factor; }, Load(*this));
}

CZEPHMatrix4x4 CZEPHMatrix4x4::operator/(float s) const {
  if (s == 0.0f || s == 1.0f) return *this;
  return *this * (1.0f / s);
}

CZEPHMatrix4x4 CZEPHMatrix4x4::operator*(const CZEPHMatrix4x4& other) const {
  return MatrixOf(Product<Lanes>(entries, other.entries));
}

void CZEPHMatrix4x4::operator*=(const CZEPHMatrix4x4& other) {
  Product<Lanes>(entries, other.entries).Store(entries);
}

CZEPHVector4D CZEPHMatrix4x4::operator*(CZEPHVector4D v) const {
  float out[4];
  Product(entries, Lanes::Of(v.x, v.y, v.z, v.w)).Store(out);
  return CZEPHVector4D(out);
}

void CZEPHMatrix4x4::operator*=(float s) {
  *this = *this * s;
}

void CZEPHMatrix4x4::operator+=(const CZEPHMatrix4x4& other) {
  *this = *this + other;
}

void CZEPHMatrix4x4::operator-=(const CZEPHMatrix4x4& other) {
  *this = *this - other;
}

void CZEPHMatrix4x4::operator/=(float s) {
  *this = *this / s;
}

int CZEPHMatrix4x4::operator==(const CZEPHMatrix4x4& other) const {
  for (int i = 0; i < 16; ++i)
    if (!(entries[i] == other.entries[i])) return 0;
  return 1;
}

int CZEPHMatrix4x4::operator!=(const CZEPHMatrix4x4& other) const {
  return !(*this == other);
}

CZEPHMatrix4x4 CZEPHMatrix4x4::GetTranspose() const {
  return MatrixOf(Load(*this).Transposed());
}

void CZEPHMatrix4x4::Transpose() {
  Load(*this).Transposed().Store(entries);
}
