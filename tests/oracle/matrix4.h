// 4x4 matrices as rows of numbers, and 3-vectors, one operation per statement.
#ifndef ZEPH_TESTS_ORACLE_MATRIX4_H
#define ZEPH_TESTS_ORACLE_MATRIX4_H

#include <array>
#include <cmath>

namespace oracle {

using Matrix4 = std::array<std::array<double, 4>, 4>;  // [row][column]
using Vector3 = std::array<double, 3>;

inline Matrix4 Multiply(const Matrix4& a, const Matrix4& b) {
  Matrix4 r{};
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j) {
      volatile double sum = a[i][0] * b[0][j];
      for (std::size_t k = 1; k < 4; ++k) {
        volatile double term = a[i][k] * b[k][j];
        sum = sum + term;
      }
      r[i][j] = sum;
    }
  return r;
}

template <class Operation>
Matrix4 ForEach(Matrix4 a, Operation operation) {
  for (auto& row : a)
    for (double& x : row) x = operation(x);
  return a;
}

template <class Operation>
Matrix4 ForEach(Matrix4 a, const Matrix4& b, Operation operation) {
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j) a[i][j] = operation(a[i][j], b[i][j]);
  return a;
}

inline double Dot(const Vector3& a, const Vector3& b) {
  volatile double y = a[1] * b[1];
  volatile double x = a[0] * b[0];
  volatile double z = a[2] * b[2];
  volatile double yx = y + x;
  return yx + z;
}

inline double DifferenceOfProducts(double a, double b, double c, double d) {
  volatile double ab = a * b;
  volatile double cd = c * d;
  return ab - cd;
}

inline Vector3 Cross(const Vector3& a, const Vector3& b) {
  return {DifferenceOfProducts(a[1], b[2], a[2], b[1]),
          DifferenceOfProducts(a[2], b[0], a[0], b[2]),
          DifferenceOfProducts(a[0], b[1], a[1], b[0])};
}

inline Vector3 Bisect(const Vector3& a, const Vector3& b) {
  const Vector3 s = {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
  const double d = Dot(s, s);
  if (1e-5 > d) return {0, 0, 1};
  volatile double k = 1.0 / std::sqrt(d);
  return {s[0] * k, s[1] * k, s[2] * k};
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_MATRIX4_H
