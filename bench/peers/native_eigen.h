// SPDX-License-Identifier: MIT
//
// Eigen compiled for the processor at hand, its strongest form. Matrices are contiguous, by rows.
#ifndef ZEPH_BENCH_PEERS_NATIVE_EIGEN_H
#define ZEPH_BENCH_PEERS_NATIVE_EIGEN_H

namespace zeph::native_eigen {

void Add(double* out, const double* a, const double* b, int n);
void Multiply(double* out, const double* a, const double* b, int n);
void Scale(double* out, double s, const double* a, int n);
void Fill(double* out, double s, int n);
/// New vectors each time, as `VectorXd sum = a + b` makes them; its last element.
double NewSum(const double* a, const double* b, int n);
double NewSum(const double* a, const double* b, const double* c, const double* d, int n);
double MaxNorm(const double* a, int n);
void TimesVector(double* out, const double* m, const double* v, int rows, int cols);
void RowSums(double* out, const double* m, int rows, int cols);
void Product(double* out, const double* a, const double* b, int rows, int inner, int cols);

}  // namespace zeph::native_eigen

#endif  // ZEPH_BENCH_PEERS_NATIVE_EIGEN_H
