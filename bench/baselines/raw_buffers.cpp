// SPDX-License-Identifier: MIT
#include "baselines/raw_buffers.h"

#include <cmath>

namespace zeph::baseline {
namespace {

double Grow(double r, double x) {
  if (r < 100.0 && x < 100.0) return std::sqrt(r * r + x * x);
  if (r > x) return r * std::sqrt(1.0 + (x / r) * (x / r));
  return x * std::sqrt(1.0 + (r / x) * (r / x));
}

double ScaledNorm(const double* a, int n) {
  double r = std::fabs(a[0]);
  for (int i = 1; i < n; ++i) r = Grow(r, std::fabs(a[i]));
  return r;
}

}  // namespace

void ListDoubles(std::FILE* stream, const double* a, int n, const char* label) {
  for (int i = 0; i < n; ++i) {
    std::fprintf(stream, "%s[%-d]=%-5.4le   ", label, i, a[i]);
    if (i != 0 && i % 5 == 0) std::fprintf(stream, "\n");
  }
  std::fprintf(stream, "\n");
}

void ListInts(std::FILE* stream, const int* a, int n, const char* label) {
  for (int i = 0; i < n; ++i) {
    std::fprintf(stream, "%s[%-d]=%-5d  ", label, i, a[i]);
    if (i != 0 && i % 5 == 0) std::fprintf(stream, "\n");
  }
  std::fprintf(stream, "\n");
}

void PrintMatrix(std::FILE* stream, int rows, int cols, double** m, const char* label) {
  std::fprintf(stream, "%s = \n", label);
  for (int i = 0; i < rows; ++i) {
    for (int j = 0; j < cols; ++j) std::fprintf(stream, "\t%3.5f", m[i][j]);
    std::fprintf(stream, "\n");
  }
}

void AdditiveProduct(int rowsA, int colsA, double** a, int colsB, double** b, double** out) {
  for (int i = 0; i < rowsA; ++i)
    for (int j = 0; j < colsB; ++j)
      for (int k = 0; k < colsA; ++k) out[i][j] = b[k][j] + a[i][k];
}

void Transpose(int n, const double* a, double* b) {
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) b[i * n + j] = a[j * n + i];
}

void Multiply4(const double* a, const double* b, double* out) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      out[4 * i + j] = a[4 * i] * b[j] + a[4 * i + 1] * b[4 + j] + a[4 * i + 2] * b[8 + j] +
                       a[4 * i + 3] * b[12 + j];
}

double MaxNorm(const double* a, int n) {
  double largest = std::fabs(a[0]);
  for (int i = 1; i < n; ++i)
    if (!(largest > std::fabs(a[i]))) largest = std::fabs(a[i]);
  return largest;
}

double MatrixOneNorm(double** m, int n) {
  double largest = 0.0;
  for (int j = 0; j < n; ++j) {
    double sum = 0.0;
    for (int i = 0; i < n; ++i) sum += std::fabs(m[i][j]);
    if (!(largest > sum)) largest = sum;
  }
  return largest;
}

double MatrixMaxNorm(double** m, int n) {
  double largest = 0.0;
  for (int i = 0; i < n; ++i) {
    double sum = std::fabs(m[i][0]);
    for (int j = 1; j < n; ++j) sum += std::fabs(m[i][j]);
    if (!(largest > sum)) largest = sum;
  }
  return largest;
}

double ScaledFrobenius(double** m, int n) {
  double r = ScaledNorm(m[0], n);
  for (int i = 1; i < n; ++i) r = Grow(r, ScaledNorm(m[i], n));
  return r;
}

}  // namespace zeph::baseline
