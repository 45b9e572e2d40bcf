// SPDX-License-Identifier: MIT
#include "peers/graphics_plain.h"

#include <cmath>

// ZEPH_PLAIN names the namespace to define.
namespace ZEPH_PLAIN {

Vector3::Vector3(float a, float b, float c) : x(a), y(b), z(c) {}
Vector3::Vector3(const Vector3& o) : x(o.x), y(o.y), z(o.z) {}
Vector3& Vector3::operator=(const Vector3& o) {
  x = o.x;
  y = o.y;
  z = o.z;
  return *this;
}
Vector3::~Vector3() {}
Vector3 Vector3::Normalized() const {
  const float length = std::sqrt(x * x + y * y + z * z);
  if (length == 1 || length == 0) return *this;
  const float scale = 1 / length;
  return Vector3(x * scale, y * scale, z * scale);
}
Vector3 Vector3::Cross(const Vector3& o) const {
  return Vector3(y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x);
}
float Vector3::Dot(const Vector3& o) const {
  return x * o.x + y * o.y + z * o.z;
}

Vector4::Vector4(float a, float b, float c, float d) : x(a), y(b), z(c), w(d) {}
Vector4::Vector4(const Vector4& o) : x(o.x), y(o.y), z(o.z), w(o.w) {}
Vector4& Vector4::operator=(const Vector4& o) {
  x = o.x;
  y = o.y;
  z = o.z;
  w = o.w;
  return *this;
}
Vector4::~Vector4() {}

Matrix::Matrix() {
  for (int i = 0; i < 16; ++i) e[i] = i % 5 == 0;
}
Matrix::Matrix(const float* p) {
  for (int i = 0; i < 16; ++i) e[i] = p[i];
}
Matrix::Matrix(const Matrix& o) {
  for (int i = 0; i < 16; ++i) e[i] = o.e[i];
}
Matrix& Matrix::operator=(const Matrix& o) {
  for (int i = 0; i < 16; ++i) e[i] = o.e[i];
  return *this;
}
Matrix::~Matrix() {}

static bool IsAffine(const float* e) {
  return e[3] == 0 && e[7] == 0 && e[11] == 0 && e[15] == 1;
}

Matrix Matrix::operator*(const Matrix& other) const {
  const bool first = IsAffine(e), second = IsAffine(other.e);
  const float* a = e;
  const float* b = other.e;
  const int rows = first ? 3 : 4;
  Matrix r;
  for (int j = 0; j < 4; ++j)
    for (int i = 0; i < rows; ++i) {
      float sum = a[i] * b[4 * j] + a[4 + i] * b[4 * j + 1] + a[8 + i] * b[4 * j + 2];
      if (!second) sum += a[12 + i] * b[4 * j + 3];
      if (second && j == 3) sum += a[12 + i];
      r.e[4 * j + i] = sum;
    }
  if (first && !second)
    for (int j = 0; j < 4; ++j) r.e[4 * j + 3] = b[4 * j + 3];
  return r;
}

Vector4 Matrix::operator*(Vector4 v) const {
  Vector4 r = v;
  r.x = e[0] * v.x + e[4] * v.y + e[8] * v.z + e[12] * v.w;
  r.y = e[1] * v.x + e[5] * v.y + e[9] * v.z + e[13] * v.w;
  r.z = e[2] * v.x + e[6] * v.y + e[10] * v.z + e[14] * v.w;
  if (!IsAffine(e)) r.w = e[3] * v.x + e[7] * v.y + e[11] * v.z + e[15] * v.w;
  return r;
}

Matrix Matrix::Inverse() const {
  Matrix r;
  float* o = r.e;
  const float t0 = e[10] * e[15], t1 = e[11] * e[14], t2 = e[9] * e[15], t3 = e[11] * e[13];
  const float t4 = e[9] * e[14], t5 = e[10] * e[13], t6 = e[8] * e[15], t7 = e[11] * e[12];
  const float t8 = e[8] * e[14], t9 = e[10] * e[12], t10 = e[8] * e[13], t11 = e[9] * e[12];
  o[0] = t0 * e[5] + t3 * e[6] + t4 * e[7] - t1 * e[5] - t2 * e[6] - t5 * e[7];
  o[1] = t1 * e[4] + t6 * e[6] + t9 * e[7] - t0 * e[4] - t7 * e[6] - t8 * e[7];
  o[2] = t2 * e[4] + t7 * e[5] + t10 * e[7] - t3 * e[4] - t6 * e[5] - t11 * e[7];
  o[3] = t5 * e[4] + t8 * e[5] + t11 * e[6] - t4 * e[4] - t9 * e[5] - t10 * e[6];
  o[4] = t1 * e[1] + t2 * e[2] + t5 * e[3] - t0 * e[1] - t3 * e[2] - t4 * e[3];
  o[5] = t0 * e[0] + t7 * e[2] + t8 * e[3] - t1 * e[0] - t6 * e[2] - t9 * e[3];
  o[6] = t3 * e[0] + t6 * e[1] + t11 * e[3] - t2 * e[0] - t7 * e[1] - t10 * e[3];
  o[7] = t4 * e[0] + t9 * e[1] + t10 * e[2] - t5 * e[0] - t8 * e[1] - t11 * e[2];
  const float u0 = e[2] * e[7], u1 = e[3] * e[6], u2 = e[1] * e[7], u3 = e[3] * e[5];
  const float u4 = e[1] * e[6], u5 = e[2] * e[5], u6 = e[0] * e[7], u7 = e[3] * e[4];
  const float u8 = e[0] * e[6], u9 = e[2] * e[4], u10 = e[0] * e[5], u11 = e[1] * e[4];
  o[8] = u0 * e[13] + u3 * e[14] + u4 * e[15] - u1 * e[13] - u2 * e[14] - u5 * e[15];
  o[9] = u1 * e[12] + u6 * e[14] + u9 * e[15] - u0 * e[12] - u7 * e[14] - u8 * e[15];
  o[10] = u2 * e[12] + u7 * e[13] + u10 * e[15] - u3 * e[12] - u6 * e[13] - u11 * e[15];
  o[11] = u5 * e[12] + u8 * e[13] + u11 * e[14] - u4 * e[12] - u9 * e[13] - u10 * e[14];
  o[12] = u2 * e[10] + u5 * e[11] + u1 * e[9] - u4 * e[11] - u0 * e[9] - u3 * e[10];
  o[13] = u8 * e[11] + u0 * e[8] + u7 * e[10] - u6 * e[10] - u9 * e[11] - u1 * e[8];
  o[14] = u6 * e[9] + u11 * e[11] + u3 * e[8] - u10 * e[11] - u2 * e[8] - u7 * e[9];
  o[15] = u10 * e[10] + u4 * e[8] + u9 * e[9] - u8 * e[9] - u11 * e[10] - u5 * e[8];
  const float determinant = o[0] * e[0] + o[1] * e[1] + o[2] * e[2] + o[3] * e[3];
  if (determinant == 0) return Matrix();
  const float scale = determinant == 1 ? 1 : 1 / determinant;
  Matrix inverse;
  for (int j = 0; j < 4; ++j)
    for (int i = 0; i < 4; ++i) inverse.e[4 * j + i] = o[4 * i + j] * scale;
  return inverse;
}

Matrix Matrix::RigidInverse() const {
  Matrix r;
  for (int j = 0; j < 3; ++j)
    for (int i = 0; i < 3; ++i) r.e[4 * j + i] = e[4 * i + j];
  for (int i = 0; i < 3; ++i)
    r.e[12 + i] = -(e[4 * i] * e[12] + e[4 * i + 1] * e[13] + e[4 * i + 2] * e[14]);
  return r;
}

}  // namespace ZEPH_PLAIN
