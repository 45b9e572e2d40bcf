// SPDX-License-Identifier: MIT
//
// Shared by the forms of the sort: the fallback for inputs that defeat the choice of pivots.
#ifndef ZEPH_SRC_KERNELS_SORT_LIMITS_H
#define ZEPH_SRC_KERNELS_SORT_LIMITS_H

#include <algorithm>
#include <cstddef>

#include "kernels/sort_steps.h"

namespace zeph::kernels::sorting {

/// The depth of partitions after which quicksort falls back to HeapSort.
inline int DepthLimit(std::size_t n) {
  int limit = 4;
  for (; n > 1; n /= 2) limit += 2;
  return limit;
}

/// n log n on any input.
template <class T>
void HeapSort(T* v, std::size_t n) {
  ZEPH_SORT_STEP(kHeapSorted, n);
  std::make_heap(v, v + n);
  std::sort_heap(v, v + n);
}

}  // namespace zeph::kernels::sorting

#endif  // ZEPH_SRC_KERNELS_SORT_LIMITS_H
