// SPDX-License-Identifier: MIT
//
// The matrix allocator and release behind the exported overloads and the resize.
#ifndef ZEPH_SRC_RAW_BUFFERS_MATRIX_ALLOC_H
#define ZEPH_SRC_RAW_BUFFERS_MATRIX_ALLOC_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/allocation.h"
#include "platform/wrap.h"
#include "raw_buffers/offset.h"
#include "raw_buffers/precondition.h"

namespace zeph::raw_buffers {

/// The steps of the allocation; exhaustion passes to the caller. `rows` and `cols` are at least 1.
/// What was allocated before a failed request is leaked, as documented.
template <class T>
T** AllocRows(int rows, int cols, int nrl, int ncl, long int* bytes) {
  T** table = platform::NewArray<T*>(rows);
  for (int i = 0; i < rows; ++i) table[i] = Offset(platform::NewArray<T>(cols), ncl);
  if (bytes) *bytes = platform::WrapMul(platform::WrapMul(rows, cols), int{sizeof(T)});
  const std::size_t rowBytes = static_cast<std::size_t>(cols) * sizeof(T);
  for (int i = 0; i < rows; ++i) std::memset(static_cast<void*>(Moved(table[i], ncl)), 0, rowBytes);
  RememberMatrix(table, rows, cols, nrl, ncl);
  return Offset(table, nrl);
}

/// A zeroed matrix of `rows` by `cols` whose first cell is m[nrl][ncl]; null when a count is below
/// 1 or memory runs out. `bytes` may be null.
template <class T>
T** AllocMatrix(int rows, int cols, int nrl, int ncl, long int* bytes) {
  if (rows < 1 || cols < 1) return nullptr;
  return platform::OnExhaustion<T**>(nullptr,
                                     [&] { return AllocRows<T>(rows, cols, nrl, ncl, bytes); });
}

/// Releases the row blocks nrh..nrl, then the pointer block.
template <class T>
void FreeMatrix(T** m, int nrl, int nrh, int ncl) {
  T** table = Block(m, nrl);
  if (!table) return;
  for (std::int64_t i = std::int64_t{nrh} - nrl; i >= 0; --i) {
    T* const row = Block(table[i], ncl);
    platform::ForgetBlock(row);
    delete[] row;
  }
  platform::ForgetBlock(table);
  delete[] table;
}

}  // namespace zeph::raw_buffers

#endif  // ZEPH_SRC_RAW_BUFFERS_MATRIX_ALLOC_H
