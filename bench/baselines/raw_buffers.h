// SPDX-License-Identifier: MIT
//
// The functions of raw_buffers.h as a user would write them.
#ifndef ZEPH_BENCH_BASELINES_RAW_BUFFERS_H
#define ZEPH_BENCH_BASELINES_RAW_BUFFERS_H

#include <cstdio>

namespace zeph::baseline {

void ListDoubles(std::FILE* stream, const double* a, int n, const char* label);
void ListInts(std::FILE* stream, const int* a, int n, const char* label);
void PrintMatrix(std::FILE* stream, int rows, int cols, double** m, const char* label);

void AdditiveProduct(int rowsA, int colsA, double** a, int colsB, double** b, double** out);
void Transpose(int n, const double* a, double* b);
void Multiply4(const double* a, const double* b, double* out);

double MaxNorm(const double* a, int n);
double MatrixOneNorm(double** m, int n);
double MatrixMaxNorm(double** m, int n);
double ScaledFrobenius(double** m, int n);

}  // namespace zeph::baseline

#endif  // ZEPH_BENCH_BASELINES_RAW_BUFFERS_H
