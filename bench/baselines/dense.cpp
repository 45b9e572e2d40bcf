// SPDX-License-Identifier: MIT
#include "baselines/dense.h"

#include <cmath>
#include <cstddef>

namespace zeph::baseline {

void Add(double* out, const double* a, const double* b, int n) {
  for (int i = 0; i < n; ++i) out[i] = a[i] + b[i];
}

void Multiply(double* out, const double* a, const double* b, int n) {
  for (int i = 0; i < n; ++i) out[i] = a[i] * b[i];
}

void Scale(double* out, double s, const double* a, int n) {
  for (int i = 0; i < n; ++i) out[i] = s * a[i];
}

void Fill(double* out, double s, int n) {
  for (int i = 0; i < n; ++i) out[i] = s;
}

static Array Plus(const Array& a, const Array& b) {
  Array sum(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) sum[i] = a[i];
  for (std::size_t i = 0; i < a.size(); ++i) sum[i] += b[i];
  const Array& result = sum;
  return Array(result);
}

void CopyAddCopy(Array& out, const Array& a, const Array& b) {
  const Array sum = Plus(a, b);
  out = sum;
}

void CopyAddCopy(Array& out, const Array& a, const Array& b, const Array& c, const Array& d) {
  const Array sum = Plus(Plus(Plus(a, b), c), d);
  out = sum;
}

double ChainOfSums(const double* a, int n) {
  double sum = 0.0;
  int i = 0;
  for (; i + 4 <= n; i += 4) {
    sum += a[i];
    sum += a[i + 1];
    sum += a[i + 2];
    sum += a[i + 3];
  }
  for (; i < n; ++i) sum += a[i];
  return sum;
}

double Dot(const double* a, const double* b, int n) {
  double sum = a[0] * b[0];
  for (int i = 1; i < n; ++i) sum += a[i] * b[i];
  return sum;
}

double OneNorm(const double* a, int n) {
  double sum = std::fabs(a[0]);
  for (int i = 1; i < n; ++i) sum += std::fabs(a[i]);
  return sum;
}

void RowSums(double* sums, double* const* m, int rows, int cols) {
  for (int i = 0; i < rows; ++i) {
    sums[i] = 0.0;
    for (int j = 0; j < cols; ++j) sums[i] += m[i][j];
  }
}

void TimesVector(double* out, double* const* m, const double* v, int rows, int cols) {
  for (int i = 0; i < rows; ++i) {
    out[i] = 0.0;
    for (int j = 0; j < cols; ++j) out[i] += m[i][j] * v[j];
  }
}

void Product(double* const* out, double* const* a, double* const* b, int rows, int inner,
             int cols) {
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < cols; ++j) {
      double sum = 0.0;
      for (int k = 0; k < inner; ++k) sum += b[k][j] * a[i][k];
      out[i][j] = sum;
    }
}

}  // namespace zeph::baseline
