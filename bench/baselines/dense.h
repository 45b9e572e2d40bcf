// SPDX-License-Identifier: MIT
//
// Dense arithmetic as the textbook writes it.
#ifndef ZEPH_BENCH_BASELINES_DENSE_H
#define ZEPH_BENCH_BASELINES_DENSE_H

#include <vector>

namespace zeph::baseline {

using Array = std::vector<double>;

// Compiled at -O2, where the compiler leaves such loops scalar.
void Add(double* out, const double* a, const double* b, int n);
void Multiply(double* out, const double* a, const double* b, int n);
void Scale(double* out, double s, const double* a, int n);
void Fill(double* out, double s, int n);
/// A copy, then +=, then a copy out: what a value type without moves does.
void CopyAddCopy(Array& out, const Array& a, const Array& b);
void CopyAddCopy(Array& out, const Array& a, const Array& b, const Array& c, const Array& d);

/// a[0] + a[1] + ...: the additions alone, each depending on the one before: a lower bound for
/// any sum in this order.
double ChainOfSums(const double* a, int n);
double Dot(const double* a, const double* b, int n);
double OneNorm(const double* a, int n);
void RowSums(double* sums, double* const* m, int rows, int cols);
void TimesVector(double* out, double* const* m, const double* v, int rows, int cols);
void Product(double* const* out, double* const* a, double* const* b, int rows, int inner, int cols);

}  // namespace zeph::baseline

#endif  // ZEPH_BENCH_BASELINES_DENSE_H
