// The norms over raw buffers, one statement per step.
#ifndef ZEPH_TESTS_ORACLE_RAW_NORMS_H
#define ZEPH_TESTS_ORACLE_RAW_NORMS_H

#include <cmath>

namespace oracle {

inline double Grow(double r, double x) {
  if (r < 100.0 && x < 100.0) return std::sqrt(r * r + x * x);
  if (r > x) return r * std::sqrt(1.0 + (x / r) * (x / r));
  return x * std::sqrt(1.0 + (r / x) * (r / x));
}

inline double ArrayOneNorm(const double* a, int n, int start) {
  double sum = std::fabs(a[start]);
  for (int i = start + 1; i < start + n; ++i) sum += std::fabs(a[i]);
  return sum;
}
inline double ArrayTwoNorm(const double* a, int n, int start) {
  double sum = a[start] * a[start];
  for (int i = start + 1; i < start + n; ++i) sum += a[i] * a[i];
  return std::sqrt(sum);
}
inline double ArrayTwoNorm2(const double* a, int n, int start) {
  double r = std::fabs(a[start]);
  for (int i = start + 1; i < start + n; ++i) r = Grow(r, std::fabs(a[i]));
  return r;
}
inline double ArrayMaxNorm(const double* a, int n, int start) {
  volatile double largest = std::fabs(a[start]);  // so that no maximum instruction is used
  for (int i = start + 1; i < start + n; ++i)
    if (!(largest > std::fabs(a[i]))) largest = std::fabs(a[i]);
  return largest;
}

inline double MatrixOneNorm(double* const* m, int n, int start) {
  double largest = 0.0;
  for (int j = start; j < start + n; ++j) {
    double sum = 0.0;
    for (int i = start; i < start + n; ++i) sum += std::fabs(m[i][j]);
    if (!(largest > sum)) largest = sum;
  }
  return largest;
}
inline double MatrixMaxNorm(double* const* m, int n, int start) {
  double largest = ArrayOneNorm(m[start], n, 0);
  for (int i = start + 1; i < start + n; ++i)
    if (!(largest > ArrayOneNorm(m[i], n, 0))) largest = ArrayOneNorm(m[i], n, 0);
  return largest;
}
inline double MatrixFrobNorm(double* const* m, int n, int start) {
  double r = ArrayTwoNorm2(m[start], n, 0);
  for (int i = start + 1; i < start + n; ++i) r = Grow(r, ArrayTwoNorm2(m[i], n, 0));
  return r;
}
inline double MatrixFrobNorm2(double* const* m, int n, int start) {
  double r = 0.0;
  for (int i = start; i < start + n; ++i)
    for (int j = start; j < start + n; ++j) r = Grow(r, std::fabs(m[i][j]));
  return r;
}
inline double MatrixFrobNorm3(double* const* m, int n, int start) {
  double sum = 0.0;
  for (int i = start; i < start + n; ++i)
    for (int j = start; j < start + n; ++j) sum += m[i][j] * m[i][j];
  return std::sqrt(sum);
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_RAW_NORMS_H
