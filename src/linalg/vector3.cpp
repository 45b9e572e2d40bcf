// SPDX-License-Identifier: MIT
//
// The vector of three doubles.
#include <cmath>

#include "algorithms.h"
#include "linalg.h"
#include "platform/exactness.h"
#include "platform/stream_number.h"

using zeph::platform::Number;

int CZEPHVector3::m_nObject = 0;

CZEPHVector3::CZEPHVector3() : CZEPHVector3(0.0, 0.0, 0.0) {}

CZEPHVector3::CZEPHVector3(const double& x, const double& y, const double& z)
    : m_x(x), m_y(y), m_z(z) {
  ++m_nObject;
}

CZEPHVector3::CZEPHVector3(CZEPHVector3& from, CZEPHVector3& to)
    : CZEPHVector3(to.m_x - from.m_x, to.m_y - from.m_y, to.m_z - from.m_z) {}

CZEPHVector3::CZEPHVector3(const CZEPHVector3& other)
    : CZEPHVector3(other.m_x, other.m_y, other.m_z) {}

CZEPHVector3::~CZEPHVector3() {
  --m_nObject;
}

int CZEPHVector3::HowMany() {
  return m_nObject;
}

double CZEPHVector3::GetLength2() const {
  return *this * *this;
}

double CZEPHVector3::GetLength() const {
  return std::sqrt(GetLength2());
}

double CZEPHVector3::Normalize() {
  const double length = GetLength();
  *this /= length;
  return length;
}

CZEPHVector3 CZEPHVector3::Normalized() const {
  return *this / GetLength();
}

void CZEPHVector3::EpsilonCorrect(const CZEPHVector3& fallback) {
  constexpr double kEpsilon = 1e-8;
  if (std::fabs(m_x) < kEpsilon && std::fabs(m_y) < kEpsilon && std::fabs(m_z) < kEpsilon)
    *this = fallback;
}

CZEPHVector3& CZEPHVector3::operator+=(const CZEPHVector3& other) {
  m_x += other.m_x;
  m_y += other.m_y;
  m_z += other.m_z;
  return *this;
}

CZEPHVector3& CZEPHVector3::operator-=(const CZEPHVector3& other) {
  m_x -= other.m_x;
  m_y -= other.m_y;
  m_z -= other.m_z;
  return *this;
}

CZEPHVector3& CZEPHVector3::operator*=(const double& s) {
  const double factor = s;  // `s` may be one of the components
  m_x *= factor;
  m_y *= factor;
  m_z *= factor;
  return *this;
}

CZEPHVector3& CZEPHVector3::operator/=(const double& s) {
  const double divisor = s;
  m_x /= divisor;
  m_y /= divisor;
  m_z /= divisor;
  return *this;
}

CZEPHVector3 operator+(const CZEPHVector3& a, const CZEPHVector3& b) {
  return CZEPHVector3(a.m_x + b.m_x, a.m_y + b.m_y, a.m_z + b.m_z);
}

CZEPHVector3 operator-(const CZEPHVector3& a, const CZEPHVector3& b) {
  return CZEPHVector3(a.m_x - b.m_x, a.m_y - b.m_y, a.m_z - b.m_z);
}

CZEPHVector3 operator-(const CZEPHVector3& a) {
  return CZEPHVector3(-a.m_x, -a.m_y, -a.m_z);
}

CZEPHVector3 operator*(const double& s, const CZEPHVector3& v) {
  return v * s;
}

CZEPHVector3 operator*(const CZEPHVector3& v, const double& s) {
  return CZEPHVector3(v.m_x * s, v.m_y * s, v.m_z * s);
}

CZEPHVector3 operator/(const CZEPHVector3& v, const double& s) {
  return CZEPHVector3(v.m_x / s, v.m_y / s, v.m_z / s);
}

double operator*(const CZEPHVector3& a, const CZEPHVector3& b) {
  return a.m_y * b.m_y + a.m_x * b.m_x + a.m_z * b.m_z;
}

CZEPHVector3 operator^(const CZEPHVector3& a, const CZEPHVector3& b) {
  const double x = a.m_y * b.m_z - a.m_z * b.m_y;
  const double y = a.m_z * b.m_x - a.m_x * b.m_z;
  const double z = a.m_x * b.m_y - a.m_y * b.m_x;
  return CZEPHVector3(x, y, z);
}

int operator==(const CZEPHVector3& a, const CZEPHVector3& b) {
  return a.m_x == b.m_x && a.m_y == b.m_y && a.m_z == b.m_z;
}

int operator!=(const CZEPHVector3& a, const CZEPHVector3& b) {
  return a.m_x != b.m_x || a.m_y != b.m_y || a.m_z != b.m_z;
}

std::ostream& operator<<(std::ostream& os, const CZEPHVector3& v) {
  return os << "[ " << Number{v.m_x} << " ; " << Number{v.m_y} << " ; " << Number{v.m_z} << " ]";
}

CZEPHVector3 Bisect(CZEPHVector3 a, CZEPHVector3 b) {
  const CZEPHVector3 sum = a + b;
  const double square = sum * sum;
  if (square < 1e-5) return CZEPHVector3(0.0, 0.0, 1.0);
  return sum * (1.0 / std::sqrt(square));
}

void ZEPH_MathClamp(CZEPHVector3& v, const double& lo, const double& hi) {
  ZEPH_MathClamp(v.m_x, lo, hi);
  ZEPH_MathClamp(v.m_y, lo, hi);
  ZEPH_MathClamp(v.m_z, lo, hi);
}
