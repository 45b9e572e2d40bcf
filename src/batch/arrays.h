// SPDX-License-Identifier: MIT
//
// The preconditions of the operations on arrays, and how they pass arrays to the kernels.
#ifndef ZEPH_SRC_BATCH_ARRAYS_H
#define ZEPH_SRC_BATCH_ARRAYS_H

#include <cstddef>
#include <cstdint>
#include <functional>

#include "graphics.h"
#include "kernels/batch.h"
#include "linalg/vector3.h"
#include "platform.h"

namespace zeph::batch {

// The wide kernels rely on this layout.
static_assert(sizeof(void*) != 8 || (sizeof(CZEPHVector3D) == 24 && sizeof(CZEPHVector4D) == 24 &&
                                     sizeof(CZEPHVector3) == 24));

inline std::size_t Count(int n) {
  return static_cast<std::size_t>(n);
}

/// Whether two arrays of `n` objects share a byte.
template <class A, class B>
bool Overlap(const A* a, const B* b, int n) {
  const auto first = reinterpret_cast<std::uintptr_t>(a);
  const auto second = reinterpret_cast<std::uintptr_t>(b);
  return first < second + Count(n) * sizeof(B) && second < first + Count(n) * sizeof(A);
}

/// Hardened builds require that `out` is not null and is either `in` itself or does not overlap it.
template <class A, class B>
void RequireOut([[maybe_unused]] const char* operation, [[maybe_unused]] const A* in,
                [[maybe_unused]] const B* out, [[maybe_unused]] int n) {
  ZEPH_REQUIRE_POINTER(operation, out);
  [[maybe_unused]] const bool itself =
      static_cast<const void*>(in) == static_cast<const void*>(out);
  ZEPH_REQUIRE(operation, itself || !Overlap(in, out, n), "out overlaps an input");
}

}  // namespace zeph::batch

#endif  // ZEPH_SRC_BATCH_ARRAYS_H
