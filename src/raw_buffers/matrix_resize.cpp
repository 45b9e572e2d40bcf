// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>

#include "raw_buffers.h"
#include "raw_buffers/matrix_alloc.h"

namespace zeph::raw_buffers {
namespace {

/// Nothing is copied for a negative bound, from a null matrix, or from a null row.
template <class T>
void CopyCells(T** from, T** to, int rowHi, int colHi) {
  if (!from || colHi < 0) return;
  for (int i = 0; i <= rowHi; ++i)
    if (from[i]) std::copy_n(from[i], static_cast<std::size_t>(colHi) + 1, to[i]);
}

template <class T>
T** ResizeMatrix(T** old, int oldRowHi, int oldColHi, int newRowHi, int newColHi) {
  if (newRowHi < oldRowHi || newColHi < oldColHi) return nullptr;
  RequireOldBounds("ZEPH_MatrixResize", old, oldRowHi, oldColHi);
  T** fresh = AllocMatrix<T>(RangeCount(0, newRowHi), RangeCount(0, newColHi), 0, 0, nullptr);
  if (!fresh) return nullptr;
  CopyCells(old, fresh, oldRowHi, oldColHi);
  FreeMatrix(old, 0, oldRowHi, 0);
  return fresh;
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

#define ZEPH_DEFINE(T)                                                                     \
  T** ZEPH_MatrixResize(T** old, int oldRowHi, int oldColHi, int newRowHi, int newColHi) { \
    return ResizeMatrix(old, oldRowHi, oldColHi, newRowHi, newColHi);                      \
  }
ZEPH_DEFINE(int)
ZEPH_DEFINE(ZEPH_Long)
ZEPH_DEFINE(float)
ZEPH_DEFINE(double)
#undef ZEPH_DEFINE
