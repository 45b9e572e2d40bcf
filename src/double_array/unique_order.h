// SPDX-License-Identifier: MIT
//
// The shared fast sort, for data whose ascending order is unique to the bit.
#ifndef ZEPH_SRC_DOUBLE_ARRAY_UNIQUE_ORDER_H
#define ZEPH_SRC_DOUBLE_ARRAY_UNIQUE_ORDER_H

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zeph::double_array {

/// True when `v` has no NaN and not zeros of both signs: then every correct ascending sort gives
/// the same bits.
inline bool OrderIsUnique(const double* v, std::size_t n) {
  bool nan = false;
  bool zeros[2] = {false, false};
  for (std::size_t i = 0; i < n; ++i) {
    nan |= v[i] != v[i];
    zeros[std::signbit(v[i])] |= v[i] == 0;
  }
  return !nan && !(zeros[0] && zeros[1]);
}

/// Sorts `v`; OrderIsUnique(v, n) must hold.
inline void SortAscending(double* v, std::size_t n) {
  std::sort(v, v + n);
}

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_UNIQUE_ORDER_H
