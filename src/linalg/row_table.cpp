// SPDX-License-Identifier: MIT
#include "linalg/row_table.h"

#include <functional>

#include "kernels/few.h"
#include "kernels/overlap.h"
#include "kernels/target.h"
#include "parallel/rows.h"
#include "platform/allocation.h"
#include "platform/exactness.h"
#include "platform/live_blocks.h"

namespace zeph::linalg {
namespace {

std::size_t Elements(int cols) {
  return cols > 0 ? static_cast<std::size_t>(cols) : 0;
}

/// The matrix product with `kCols` columns: each entry from 0.0 and in increasing k.
template <int kCols>
void NarrowProduct(double* const* out, const double* const* a, const double* const* b, int rows,
                   int inner) {
  for (int i = 0; i < rows; ++i) {
    double sums[kCols] = {};
    for (int k = 0; k < inner; ++k)
      for (int j = 0; j < kCols; ++j) sums[j] += b[k][j] * a[i][k];
    for (int j = 0; j < kCols; ++j) out[i][j] = sums[j];
  }
}

/// Matrices of up to so many columns have loops of their own, since the set-up of the others takes longer.
constexpr int kNarrow = 4;
/// The products, of up to 4 x 4.
using Product = void (*)(double* const*, const double* const*, const double* const*, int, int);
constexpr Product kNarrowProducts[] = {nullptr, NarrowProduct<1>, NarrowProduct<2>,
                                       NarrowProduct<3>, NarrowProduct<4>};

/// copy(row, source) for the rows that both sides have; returns their number.
template <class RowCopy>
int CopyRows(double* const* to, const double* const* from, int rows, RowCopy copy) {
  int i = 0;
  for (; i < rows && to[i] && from[i]; ++i) copy(to[i], from[i]);
  return i;
}
template <std::size_t kCols>
int NarrowCopy(double* const* to, const double* const* from, int rows) {
  return CopyRows(to, from, rows,
                  [](double* row, const double* source) { kernels::Copy(row, source, kCols); });
}
ZEPH_NOINLINE int WideCopy(double* const* to, const double* const* from, int rows,
                           std::size_t cols) {
  return CopyRows(to, from, rows,
                  [cols](double* row, const double* source) { kernels::Copy(row, source, cols); });
}
using RowsCopy = int (*)(double* const*, const double* const*, int);
constexpr RowsCopy kNarrowCopies[] = {nullptr, NarrowCopy<1>, NarrowCopy<2>, NarrowCopy<3>,
                                      NarrowCopy<4>};

}  // namespace

void NewRows(double** table, int rows, int cols) {
  int i = 0;
  try {
    for (; i < rows; ++i) {
      table[i] = platform::NewArray<double>(cols);
      platform::RememberBlock({table[i], table[i], 0, cols});
    }
  } catch (...) {
    std::fill(table + i, table + rows, nullptr);
    throw;
  }
}

bool ReadsFrom(double* const* source, int count, int read, double** table, int rows, int released,
               int cols) {
  if (!source || !table || count <= 0 || rows <= 0) return false;
  if (kernels::Overlap<double*>(source, Elements(count), table, Elements(rows))) return true;
  double** const end = table + StoredRows(table, released);
  const std::less<const double*> before;
  if (!std::is_sorted(table, end, before)) std::sort(table, end, before);
  // Only the last row that begins before the end of the range can overlap it.
  return std::any_of(source, source + StoredRows(source, count), [&](const double* row) {
    double* const* const above = std::lower_bound(table, end, row + Elements(read), before);
    return above != table && kernels::Overlap(row, Elements(read), above[-1], Elements(cols));
  });
}

int StoredRows(const double* const* table, int rows) {
  int stored = 0;
  if (table)
    while (stored < rows && table[stored]) ++stored;
  return stored;
}

void Fill(double* const* table, int first, int rows, int cols, double value) {
  for (int i = first; i < rows; ++i) kernels::Fill(table[i], value, Elements(cols));
}

int Copy(double* const* to, const double* const* from, int rows, int cols) {
  if (!to || !from) return 0;
  if (0 < cols && cols <= kNarrow) return kNarrowCopies[cols](to, from, rows);
  return WideCopy(to, from, rows, Elements(cols));
}

/// Sets the existing rows from `first` on to 0.0. Not inlined: copies seldom need it.
ZEPH_NOINLINE static void ZeroFrom(double* const* to, int first, int rows, int cols) {
  Fill(to, first, StoredRows(to, rows), cols, 0.0);
}

void CopyOrZero(double* const* to, const double* const* from, int rows, int cols) {
  const int copied = Copy(to, from, rows, cols);
  if (copied < rows) ZeroFrom(to, copied, rows, cols);
}

void Multiply(double* const* out, const double* const* a, const double* const* b, int rows,
              int inner, int cols) {
  if (rows < 1 || cols < 1) return;
  if (inner < 1 || StoredRows(a, rows) < rows || StoredRows(b, inner) < inner)
    Fill(out, 0, rows, cols, 0.0);
  else if (rows <= kNarrow && inner <= kNarrow && cols <= kNarrow)
    kNarrowProducts[cols](out, a, b, rows, inner);
  else
    parallel::DenseProduct(out, a, b, static_cast<std::size_t>(rows),
                           static_cast<std::size_t>(inner), static_cast<std::size_t>(cols));
}

}  // namespace zeph::linalg
