// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_ELEMENTS_H
#define ZEPH_SRC_DOUBLE_ARRAY_ELEMENTS_H

#include <climits>
#include <cstddef>

#include "double_array.h"

namespace zeph::double_array {

/// The elements that whole-array operations work on: none without storage or with a count below 1.
inline std::size_t Count(const CZEPHDoubleArray& a) {
  return a.data && a.size > 0 ? static_cast<std::size_t>(a.size) : 0;
}

/// Hardened builds require that the elements `left` to `right` exist, at least one of them.
inline void RequireRange([[maybe_unused]] const CZEPHDoubleArray& array,
                         [[maybe_unused]] const char* operation, [[maybe_unused]] int left,
                         [[maybe_unused]] int right) {
  ZEPH_REQUIRE_POINTER(operation, array.data);
  ZEPH_REQUIRE_INSIDE(operation, left, 0, array.size - 1);
  ZEPH_REQUIRE_INSIDE(operation, right, left, array.size - 1);
}

/// Hardened builds require that `b` has at least as many elements as `a`, unless one of them is
/// empty.
inline void RequireAsManyAs([[maybe_unused]] const CZEPHDoubleArray& a,
                            [[maybe_unused]] const CZEPHDoubleArray& b,
                            [[maybe_unused]] const char* operation) {
  if (a.data && b.data) ZEPH_REQUIRE_INSIDE(operation, b.size, a.size, INT_MAX);
}

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_ELEMENTS_H
