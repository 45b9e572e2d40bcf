// SPDX-License-Identifier: MIT
//
// The limits of the rows on small objects: the least that the documented behaviour demands of a
// library. Objects made, read and destroyed by calls, each element written once, blocks
// from the allocation operators (a row each and a table for a matrix), a copy returned where one is
// documented, counters where objects are counted, bottom rows read where they choose the path, sizes compared where that is documented, sums that
// begin with their first term. No other check, no choice of a form, no virtual call.
#ifndef ZEPH_BENCH_PEERS_SMALL_LIMITS_H
#define ZEPH_BENCH_PEERS_SMALL_LIMITS_H

#include <cstring>

#ifdef _WIN32
#define ZEPH_LIMIT __declspec(dllexport)
#else
#define ZEPH_LIMIT __attribute__((visibility("default")))
#endif

namespace zeph::bench::limit {

/// Array and vector.
struct ZEPH_LIMIT Array {
  Array(int n, double value);
  Array(int n, const double* from);
  Array(const Array& other);
  ~Array();
  Array operator+(const Array& other) const;
  Array& operator+=(const Array& other);
  Array operator=(const Array& other);
  double MaxNorm() const;
  double OneNorm() const;
  double Dot(const Array& other) const;
  int size;
  double* data;

 private:
  explicit Array(int n);
};

/// A square matrix.
struct ZEPH_LIMIT Matrix {
  Matrix(int n, const double* from);
  Matrix(const Matrix& other);
  ~Matrix();
  Matrix operator*(const Matrix& other) const;
  Matrix operator=(const Matrix& other);
  int size;
  double** rows;

 private:
  explicit Matrix(int n);
};

struct ZEPH_LIMIT Matrix4 {
  Matrix4();
  explicit Matrix4(const double* from);
  Matrix4(const Matrix4& other);
  ~Matrix4();
  double e[16];
  static int live;
};
ZEPH_LIMIT Matrix4 operator*(const Matrix4& a, const Matrix4& b);

struct ZEPH_LIMIT Vector3 {
  Vector3(double x, double y, double z);
  Vector3(const Vector3& other);
  ~Vector3();
  double x, y, z;
  static int live;
};
ZEPH_LIMIT Vector3 operator+(const Vector3& a, const Vector3& b);
ZEPH_LIMIT Vector3 operator*(const Vector3& v, const double& s);

/// Vectors and matrices of floats, which programs may derive from.
struct ZEPH_LIMIT Float3 {
  Float3(float newX, float newY, float newZ) : x(newX), y(newY), z(newZ) {}
  Float3(const Float3& other) : x(other.x), y(other.y), z(other.z) {}
  virtual ~Float3() {}
  float DotProduct(const Float3& other) const;
  Float3 CrossProduct(const Float3& other) const;
  Float3 GetNormalized() const;
  float x, y, z;
};
struct ZEPH_LIMIT Float4 {
  Float4(float newX, float newY, float newZ, float newW) : x(newX), y(newY), z(newZ), w(newW) {}
  Float4(const Float4& other) : x(other.x), y(other.y), z(other.z), w(other.w) {}
  virtual ~Float4() {}
  float x, y, z, w;
};
struct ZEPH_LIMIT Float4x4 {
  Float4x4() {}  // NOLINT: whoever makes one fills it
  explicit Float4x4(const float* from) { std::memcpy(e, from, sizeof e); }
  Float4x4(const Float4x4& other) : Float4x4(other.e) {}
  virtual ~Float4x4() {}
  Float4x4 operator*(const Float4x4& other) const;
  Float4 operator*(Float4 v) const;
  float e[16];
};

struct Node;
struct ZEPH_LIMIT Stack {
  void Push(void* p);
  void* Pop();
  Node* top = nullptr;
};

}  // namespace zeph::bench::limit

#endif  // ZEPH_BENCH_PEERS_SMALL_LIMITS_H
