// SPDX-License-Identifier: MIT
//
// The forms of the sort, and what they share: the ends that need no partition, and the way out of
// inputs that defeat the choice of pivots.
#ifndef ZEPH_SRC_KERNELS_SORT_FORMS_H
#define ZEPH_SRC_KERNELS_SORT_FORMS_H

#include <algorithm>
#include <cstddef>

#include "kernels/sort.h"

namespace zeph::kernels {

namespace portable {
extern const SortForms kSort;
}
namespace avx2 {
extern const SortForms kSort;
}
namespace avx512 {
extern const SortForms kSort;
}

namespace sorting {

/// Partitions after which a quicksort that still is not done gives way to HeapSort.
inline int DepthLimit(std::size_t n) {
  int limit = 4;
  for (; n > 1; n /= 2) limit += 2;
  return limit;
}

/// n log n on any input.
template <class T>
void HeapSort(T* v, std::size_t n) {
  std::make_heap(v, v + n);
  std::sort_heap(v, v + n);
}

}  // namespace sorting
}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_SORT_FORMS_H
