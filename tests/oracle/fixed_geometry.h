// 3x3 and 4x4 matrices and 3-vectors, one statement per step.
#ifndef ZEPH_TESTS_ORACLE_FIXED_GEOMETRY_H
#define ZEPH_TESTS_ORACLE_FIXED_GEOMETRY_H

#include <cmath>

#include "oracle/functions.h"

namespace oracle {

inline void Snap(double& s) {
  if (s >= -1.0e-8 && s <= 1.0e-8) s = 0.0;
}

inline void Multiply3(const double a[3][3], const double b[3][3], double out[3][3]) {
  double t[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) {
      double s = 0.0;
      for (int k = 0; k < 3; ++k) {
        s = s + a[i][k] * b[k][j];
        Snap(s);
      }
      t[i][j] = s;
    }
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) out[i][j] = t[i][j];
}

/// axis 0, 1, 2 for X, Y, Z.
inline void Rotate3(double m[3][3], int axis, double angle) {
  const double radians = angle * 3.141592653589793 / 180.0;
  const double co = Cos(radians), si = Sin(radians);
  const double x[3][3] = {{1, 0, 0}, {0, co, -si}, {0, si, co}};
  const double y[3][3] = {{co, 0, si}, {0, 1, 0}, {-si, 0, co}};
  const double z[3][3] = {{co, -si, 0}, {si, co, 0}, {0, 0, 1}};
  Multiply3(m, axis == 0 ? x : axis == 1 ? y : z, m);
}

inline void Mult4(const double* a, const double* b, double* out) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      out[4 * i + j] = a[4 * i] * b[j] + a[4 * i + 1] * b[4 + j] + a[4 * i + 2] * b[8 + j] +
                       a[4 * i + 3] * b[12 + j];
}

inline void Transform3(const double m[3][3], double* x, double* y, double* z) {
  const double v[3] = {*x, *y, *z};
  double r[3];
  for (int i = 0; i < 3; ++i) r[i] = m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2];
  *x = r[0];
  *y = r[1];
  *z = r[2];
}

inline void Cross3(const double* a, const double* b, double* out) {
  out[0] = a[1] * b[2] - a[2] * b[1];
  out[1] = a[2] * b[0] - a[0] * b[2];
  out[2] = a[0] * b[1] - a[1] * b[0];
}

inline double Dot3(const double* a, const double* b) {
  double sum = a[1] * b[1];
  sum += a[0] * b[0];
  sum += a[2] * b[2];
  return sum;
}

inline double Length3(const double* v) {
  double sum = v[0] * v[0];
  sum += v[1] * v[1];
  sum += v[2] * v[2];
  return std::sqrt(sum);
}

inline void Normalize3(double* v) {
  const double length = Length3(v);
  if (length > 0.0)
    for (int k = 0; k < 3; ++k) v[k] = v[k] / length;
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_FIXED_GEOMETRY_H
