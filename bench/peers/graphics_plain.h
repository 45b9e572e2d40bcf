// SPDX-License-Identifier: MIT
//
// The 4x4 matrix and vectors as one writes them at first: a class with a virtual destructor, scalar
// loops, everything behind a shared library's boundary. Built twice: as the optimiser likes
// (`fast`), and without its vectoriser (`scalar`).
#ifndef ZEPH_BENCH_PEERS_GRAPHICS_PLAIN_H
#define ZEPH_BENCH_PEERS_GRAPHICS_PLAIN_H

#ifdef _WIN32
#define ZEPH_PEER __declspec(dllexport)
#else
#define ZEPH_PEER __attribute__((visibility("default")))
#endif

#define ZEPH_PLAIN_CLASSES                       \
  struct ZEPH_PEER Vector3 {                     \
    Vector3(float x, float y, float z);          \
    Vector3(const Vector3& other);               \
    Vector3& operator=(const Vector3& other);    \
    virtual ~Vector3();                          \
    Vector3 Normalized() const;                  \
    Vector3 Cross(const Vector3& other) const;   \
    float Dot(const Vector3& other) const;       \
    float x, y, z;                               \
  };                                             \
  struct ZEPH_PEER Vector4 {                     \
    Vector4(float x, float y, float z, float w); \
    Vector4(const Vector4& other);               \
    Vector4& operator=(const Vector4& other);    \
    virtual ~Vector4();                          \
    float x, y, z, w;                            \
  };                                             \
  struct ZEPH_PEER Matrix {                      \
    Matrix();                                    \
    explicit Matrix(const float* p);             \
    Matrix(const Matrix& other);                 \
    Matrix& operator=(const Matrix& other);      \
    virtual ~Matrix();                           \
    Matrix operator*(const Matrix& other) const; \
    Vector4 operator*(Vector4 v) const;          \
    Matrix Inverse() const;                      \
    Matrix RigidInverse() const;                 \
    float e[16];                                 \
  };

namespace plain_fast {
ZEPH_PLAIN_CLASSES
}
namespace plain_scalar {
ZEPH_PLAIN_CLASSES
}

#endif  // ZEPH_BENCH_PEERS_GRAPHICS_PLAIN_H
