// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_GRAPHICS_MATRIX_OF_H
#define ZEPH_SRC_GRAPHICS_MATRIX_OF_H

#include "graphics.h"
#include "graphics/lanes.h"

namespace zeph::graphics {

/// The matrix with these columns. They are taken by value: they cannot overlap the result, so the
/// compiler can omit the identity that a new matrix starts with.
inline CZEPHMatrix4x4 MatrixOf(Columns<Lanes> columns) {
  CZEPHMatrix4x4 result;
  columns.Store(result.entries);
  return result;
}

}  // namespace zeph::graphics

#endif  // ZEPH_SRC_GRAPHICS_MATRIX_OF_H
