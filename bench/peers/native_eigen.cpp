// SPDX-License-Identifier: MIT
#include "peers/native_eigen.h"

// Other sources hold Eigen compiled for the default processor: the two may not share functions.
#define Eigen NativeEigen
#include <Eigen/Dense>

namespace zeph::native_eigen {
namespace {

using From = NativeEigen::Map<const NativeEigen::VectorXd>;
using To = NativeEigen::Map<NativeEigen::VectorXd>;
using Rows = NativeEigen::Matrix<double, -1, -1, NativeEigen::RowMajor>;
using FromRows = NativeEigen::Map<const Rows>;

}  // namespace

void Add(double* out, const double* a, const double* b, int n) {
  To(out, n).noalias() = From(a, n) + From(b, n);
}
void Multiply(double* out, const double* a, const double* b, int n) {
  To(out, n).noalias() = From(a, n).cwiseProduct(From(b, n));
}
void Scale(double* out, double s, const double* a, int n) {
  To(out, n).noalias() = s * From(a, n);
}
void Fill(double* out, double s, int n) {
  To(out, n).setConstant(s);
}
double NewSum(const double* a, const double* b, int n) {
  const NativeEigen::VectorXd sum = From(a, n) + From(b, n);
  return sum[n - 1];
}
double NewSum(const double* a, const double* b, const double* c, const double* d, int n) {
  const NativeEigen::VectorXd sum = From(a, n) + From(b, n) + From(c, n) + From(d, n);
  return sum[n - 1];
}
double MaxNorm(const double* a, int n) {
  return From(a, n).lpNorm<NativeEigen::Infinity>();
}
void TimesVector(double* out, const double* m, const double* v, int rows, int cols) {
  To(out, rows).noalias() = FromRows(m, rows, cols) * From(v, cols);
}
void RowSums(double* out, const double* m, int rows, int cols) {
  To(out, rows).noalias() = FromRows(m, rows, cols).rowwise().sum();
}
void Product(double* out, const double* a, const double* b, int rows, int inner, int cols) {
  NativeEigen::Map<Rows>(out, rows, cols).noalias() =
      FromRows(a, rows, inner) * FromRows(b, inner, cols);
}

}  // namespace zeph::native_eigen
