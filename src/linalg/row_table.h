// SPDX-License-Identifier: MIT
//
// Tables of row pointers, each row a block of its own: the storage of both dense matrix classes.
//
// A table may end early: from the first null pointer on rows were never allocated (memory ran out
// while the table was filled). Operations on whole objects call StoredRows once and use those rows
// only.
#ifndef ZEPH_SRC_LINALG_ROW_TABLE_H
#define ZEPH_SRC_LINALG_ROW_TABLE_H

#include <algorithm>
#include <cstddef>

#include "kernels/elementwise.h"
#include "platform/allocation.h"
#include "platform/live_blocks.h"

namespace zeph::linalg {

/// A table of `rows` pointers with undefined values. The exception passes to the caller where
/// memory runs out or the count is negative.
inline double** NewTable(int rows) {
  double** const table = platform::NewArray<double*>(rows);
  platform::RememberBlock({table, table, 0, rows});
  return table;
}

/// Gives each row of a fresh table a block of `cols` elements with undefined values. Exhaustion
/// passes to the caller and makes the remaining rows null.
void NewRows(double** table, int rows, int cols);

/// Releases the first `rows` rows, if `rows` is positive. The table itself stays.
inline void ReleaseRows(double* const* table, int rows) {
  for (int i = 0; i < rows; ++i) {
    platform::ForgetBlock(table[i]);
    delete[] table[i];
  }
}

/// Releases the table itself.
inline void ReleaseTable(double** table) {
  platform::ForgetBlock(table);
  delete[] table;
}

/// The number of rows that exist: those before the first null one, at most `rows`; 0 without a
/// table.
int StoredRows(const double* const* table, int rows);

/// Sets rows `first` to `rows` - 1.
void Fill(double* const* table, int first, int rows, int cols, double value);

/// Whether the first `count` rows of `source`, read for `read` elements each, overlap the table of
/// `rows` pointers, or the first `released` of its rows, of `cols` elements each. Where they do
/// not, the table's rows may be reordered.
bool ReadsFrom(double* const* source, int count, int read, double** table, int rows, int released,
               int cols);

/// Copies the elements of the rows that both sides have; the two may be the same table. Returns the
/// number of those rows.
int Copy(double* const* to, const double* const* from, int rows, int cols);

/// The same into fresh storage: rows that `from` lacks become 0.0.
void CopyOrZero(double* const* to, const double* const* from, int rows, int cols);

/// op(out row, a row, b row, cols) for the rows that both operands have; returns their number.
/// `out` has those rows and may be one of the operands.
template <kernels::Elementwise::Binary op>
int Combine(double* const* out, const double* const* a, const double* const* b, int rows,
            int cols) {
  if (!a || !b) return 0;
  const std::size_t count = cols > 0 ? static_cast<std::size_t>(cols) : 0;
  int i = 0;
  for (; i < rows && a[i] && b[i]; ++i) op(out[i], a[i], b[i], count);
  return i;
}

/// The matrix product, by the dense kernel; operands that lack rows count as empty, so that every
/// entry of `out` is 0.0. `out` has all its rows and shares none with the operands.
void Multiply(double* const* out, const double* const* a, const double* const* b, int rows,
              int inner, int cols);

}  // namespace zeph::linalg

#endif  // ZEPH_SRC_LINALG_ROW_TABLE_H
