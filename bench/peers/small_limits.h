// SPDX-License-Identifier: MIT
//
// The limits of the rows on small objects: the least that the documented behaviour demands of a
// library. Objects made, read and destroyed by calls, each element written once, blocks
// from the allocation operators (a row each and a table for a matrix), a copy returned where one is
// documented, counters where objects are counted. No check, no choice of a form, no virtual call.
#ifndef ZEPH_BENCH_PEERS_SMALL_LIMITS_H
#define ZEPH_BENCH_PEERS_SMALL_LIMITS_H

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
  void operator+=(const Array& other);
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

struct Node;
struct ZEPH_LIMIT Stack {
  void Push(void* p);
  void* Pop();
  Node* top = nullptr;
};

}  // namespace zeph::bench::limit

#endif  // ZEPH_BENCH_PEERS_SMALL_LIMITS_H
