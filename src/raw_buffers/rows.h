// SPDX-License-Identifier: MIT
//
// The two shapes of a matrix, read alike as rows[i][j].
#ifndef ZEPH_SRC_RAW_BUFFERS_ROWS_H
#define ZEPH_SRC_RAW_BUFFERS_ROWS_H

#include <cstddef>

namespace zeph::raw_buffers {

/// Contiguous rows of `cols` doubles.
struct FlatRows {
  double* first;
  std::ptrdiff_t cols;
  double* operator[](std::ptrdiff_t i) const { return first + i * cols; }
};

/// A table of row pointers.
struct TableRows {
  double* const* rows;
  double* operator[](std::ptrdiff_t i) const { return rows[i]; }
};

}  // namespace zeph::raw_buffers

#endif  // ZEPH_SRC_RAW_BUFFERS_ROWS_H
