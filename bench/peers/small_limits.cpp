// SPDX-License-Identifier: MIT
#include "peers/small_limits.h"

#include <cmath>
#include <cstdlib>

namespace zeph::bench::limit {

/// Comparing the sizes is part of an operation's cost; what happens where they differ is not.
static void RequireSame(int a, int b) {
  if (a != b) std::abort();
}

Array::Array(int n) : size(n), data(new double[static_cast<unsigned>(n)]) {}
Array::Array(int n, double value) : Array(n) {
  for (int i = 0; i < n; ++i) data[i] = value;
}
Array::Array(int n, const double* from) : Array(n) {
  for (int i = 0; i < n; ++i) data[i] = from[i];
}
Array::Array(const Array& other) : Array(other.size, other.data) {}
Array::~Array() {
  delete[] data;
}
Array Array::operator+(const Array& other) const {
  RequireSame(size, other.size);
  Array sum(size);
  for (int i = 0; i < size; ++i) sum.data[i] = data[i] + other.data[i];
  return sum;
}
Array& Array::operator+=(const Array& other) {
  RequireSame(size, other.size);
  for (int i = 0; i < size; ++i) data[i] += other.data[i];
  return *this;
}
Array Array::operator=(const Array& other) {
  RequireSame(size, other.size);
  for (int i = 0; i < size; ++i) data[i] = other.data[i];
  return Array(size, data);
}
double Array::MaxNorm() const {
  double largest = std::fabs(data[0]);
  for (int i = 1; i < size; ++i)
    if (std::fabs(data[i]) > largest) largest = std::fabs(data[i]);
  return largest;
}
double Array::OneNorm() const {
  double sum = std::fabs(data[0]);
  for (int i = 1; i < size; ++i) sum += std::fabs(data[i]);
  return sum;
}
double Array::Dot(const Array& other) const {
  double sum = data[0] * other.data[0];
  for (int i = 1; i < size; ++i) sum += data[i] * other.data[i];
  return sum;
}

Matrix::Matrix(int n) : size(n), rows(new double*[static_cast<unsigned>(n)]) {
  for (int i = 0; i < n; ++i) rows[i] = new double[static_cast<unsigned>(n)];
}
Matrix::Matrix(int n, const double* from) : Matrix(n) {
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) rows[i][j] = from[i * n + j];
}
Matrix::Matrix(const Matrix& other) : Matrix(other.size) {
  for (int i = 0; i < size; ++i)
    for (int j = 0; j < size; ++j) rows[i][j] = other.rows[i][j];
}
Matrix::~Matrix() {
  for (int i = 0; i < size; ++i) delete[] rows[i];
  delete[] rows;
}
Matrix Matrix::operator*(const Matrix& other) const {
  RequireSame(size, other.size);
  Matrix product(size);
  for (int i = 0; i < size; ++i) {
    double* out = product.rows[i];
    for (int j = 0; j < size; ++j) out[j] = 0.0;
    for (int k = 0; k < size; ++k)
      for (int j = 0; j < size; ++j) out[j] += other.rows[k][j] * rows[i][k];
  }
  return product;
}
Matrix Matrix::operator=(const Matrix& other) {
  RequireSame(size, other.size);
  for (int i = 0; i < size; ++i)
    for (int j = 0; j < size; ++j) rows[i][j] = other.rows[i][j];
  return *this;
}

int Matrix4::live = 0;
Matrix4::Matrix4() {
  ++live;
}
Matrix4::Matrix4(const double* from) {
  for (int k = 0; k < 16; ++k) e[k] = from[k];
  ++live;
}
Matrix4::Matrix4(const Matrix4& other) {
  for (int k = 0; k < 16; ++k) e[k] = other.e[k];
  ++live;
}
Matrix4::~Matrix4() {
  --live;
}
Matrix4 operator*(const Matrix4& a, const Matrix4& b) {
  Matrix4 r;
  for (int j = 0; j < 4; ++j)
    for (int i = 0; i < 4; ++i)
      r.e[i + 4 * j] = a.e[i] * b.e[4 * j] + a.e[i + 4] * b.e[4 * j + 1] +
                       a.e[i + 8] * b.e[4 * j + 2] + a.e[i + 12] * b.e[4 * j + 3];
  return r;
}

int Vector3::live = 0;
Vector3::Vector3(double newX, double newY, double newZ) : x(newX), y(newY), z(newZ) {
  ++live;
}
Vector3::Vector3(const Vector3& other) : Vector3(other.x, other.y, other.z) {}
Vector3::~Vector3() {
  --live;
}
Vector3 operator+(const Vector3& a, const Vector3& b) {
  return Vector3(a.x + b.x, a.y + b.y, a.z + b.z);
}
Vector3 operator*(const Vector3& v, const double& s) {
  return Vector3(v.x * s, v.y * s, v.z * s);
}

float Float3::DotProduct(const Float3& other) const {
  return x * other.x + y * other.y + z * other.z;
}
Float3 Float3::CrossProduct(const Float3& other) const {
  return Float3(y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x);
}
Float3 Float3::GetNormalized() const {
  const float length = std::sqrt(x * x + y * y + z * z);
  if (length == 0 || length == 1) return *this;
  const float scale = 1 / length;
  return Float3(x * scale, y * scale, z * scale);
}

/// The rows measured take the general path, and pay for the test that selects it.
static void RequireGeneral(const float* e) {
  if (e[3] == 0 && e[7] == 0 && e[11] == 0 && e[15] == 1) std::abort();
}
Float4x4 Float4x4::operator*(const Float4x4& other) const {
  RequireGeneral(e);
  RequireGeneral(other.e);
  Float4x4 r;
  for (int j = 0; j < 4; ++j)
    for (int i = 0; i < 4; ++i)
      r.e[i + 4 * j] = e[i] * other.e[4 * j] + e[i + 4] * other.e[4 * j + 1] +
                       e[i + 8] * other.e[4 * j + 2] + e[i + 12] * other.e[4 * j + 3];
  return r;
}
Float4 Float4x4::operator*(Float4 v) const {
  RequireGeneral(e);
  float r[4];
  for (int i = 0; i < 4; ++i) r[i] = e[i] * v.x + e[i + 4] * v.y + e[i + 8] * v.z + e[i + 12] * v.w;
  return Float4(r[0], r[1], r[2], r[3]);
}

struct Node {
  void* data;
  Node* next;
};
void Stack::Push(void* p) {
  top = new Node{p, top};
}
void* Stack::Pop() {
  Node* const node = top;
  void* const p = node->data;
  top = node->next;
  delete node;
  return p;
}

}  // namespace zeph::bench::limit
