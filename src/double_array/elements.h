// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_ELEMENTS_H
#define ZEPH_SRC_DOUBLE_ARRAY_ELEMENTS_H

#include <cstddef>

#include "double_array.h"

namespace zeph::double_array {

/// The elements that whole-array operations work on: none without storage or with a count below 1.
inline std::size_t Count(const CZEPHDoubleArray& a) {
  return a.data && a.size > 0 ? static_cast<std::size_t>(a.size) : 0;
}

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_ELEMENTS_H
