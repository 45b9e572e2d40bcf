// SPDX-License-Identifier: MIT
#include "linalg/row_table.h"

#include "kernels/dense_product.h"
#include "platform/allocation.h"
#include "platform/exactness.h"

namespace zeph::linalg {

double** NewTable(int rows) {
  auto* const table = platform::NewArray<double*>(rows);
  std::fill_n(table, rows, nullptr);
  return table;
}

void NewRows(double** table, int rows, int cols) {
  for (int i = 0; i < rows; ++i) table[i] = platform::NewArray<double>(cols);
}

void ReleaseRows(double* const* table, int rows) {
  for (int i = 0; i < rows; ++i) delete[] table[i];
}

int StoredRows(const double* const* table, int rows) {
  int stored = 0;
  if (table)
    while (stored < rows && table[stored]) ++stored;
  return stored;
}

void Fill(double* const* table, int first, int rows, int cols, double value) {
  for (int i = first; i < rows; ++i) std::fill_n(table[i], cols, value);
}

void Copy(double* const* to, const double* const* from, int rows, int cols) {
  const int stored = std::min(StoredRows(to, rows), StoredRows(from, rows));
  for (int i = 0; i < stored; ++i)
    if (to[i] != from[i]) std::copy_n(from[i], cols, to[i]);
}

void CopyOrZero(double* const* to, const double* const* from, int rows, int cols) {
  Copy(to, from, rows, cols);
  Fill(to, StoredRows(from, rows), StoredRows(to, rows), cols, 0.0);
}

int Combine(double* const* out, const double* const* a, const double* const* b, int rows, int cols,
            kernels::Elementwise::Binary op) {
  const int stored = std::min(StoredRows(a, rows), StoredRows(b, rows));
  const std::size_t count = cols > 0 ? static_cast<std::size_t>(cols) : 0;
  for (int i = 0; i < stored; ++i) op(out[i], a[i], b[i], count);
  return stored;
}

void Multiply(double* const* out, const double* const* a, const double* const* b, int rows,
              int inner, int cols) {
  if (rows < 1 || cols < 1) return;
  if (inner < 1 || StoredRows(a, rows) < rows || StoredRows(b, inner) < inner)
    Fill(out, 0, rows, cols, 0.0);
  else
    kernels::DenseProduct(out, a, b, static_cast<std::size_t>(rows),
                          static_cast<std::size_t>(inner), static_cast<std::size_t>(cols));
}

}  // namespace zeph::linalg
