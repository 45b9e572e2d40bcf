// SPDX-License-Identifier: MIT
//
// Scans for a value or for the least one.
#ifndef ZEPH_SRC_KERNELS_SEARCH_H
#define ZEPH_SRC_KERNELS_SEARCH_H

#include <cstddef>

#include "kernels/table.h"

namespace zeph::kernels {

/// One form of what follows.
struct Searching {
  std::size_t (*find_first)(const double* v, std::size_t n, double x);
  std::size_t (*find_last)(const int* v, std::size_t n, int x);
  std::size_t (*first_least)(const double* v, std::size_t n);
  bool (*none_descends)(const double* v, std::size_t n);
};

/// The least i with v[i] == x, or n. 0.0 finds -0.0; a NaN finds nothing.
inline std::size_t FindFirst(const double* v, std::size_t n, double x) {
  return Active().searching->find_first(v, n, x);
}

/// The greatest i with v[i] == x, or n.
inline std::size_t FindLast(const int* v, std::size_t n, int x) {
  constexpr std::size_t kShort = 12;  // the plain loop is faster than the call of a wide form
  if (n <= kShort) {
    for (std::size_t i = n; i > 0; --i)
      if (v[i - 1] == x) return i - 1;
    return n;
  }
  return Active().searching->find_last(v, n, x);
}

/// The result of a scan of `v` (n >= 1) that moves on only to strictly smaller elements: the first
/// of the least elements, ignoring NaNs; 0 when v[0] is a NaN.
inline std::size_t FirstLeast(const double* v, std::size_t n) {
  return Active().searching->first_least(v, n);
}

/// True when no element is greater than the next; a NaN is not greater than anything.
inline bool NoneDescends(const double* v, std::size_t n) {
  return Active().searching->none_descends(v, n);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_SEARCH_H
