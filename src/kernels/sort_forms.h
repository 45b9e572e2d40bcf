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

/// True when `v` (n >= 2) is, or could at once be made, sorted.
template <class T>
bool SortedOrReversed(T* v, std::size_t n) {
  std::size_t i = 1;
  if (v[1] < v[0]) {
    while (i < n && !(v[i - 1] < v[i])) ++i;
    if (i == n) std::reverse(v, v + n);
  } else {
    while (i < n && !(v[i] < v[i - 1])) ++i;
  }
  return i == n;
}

template <class T>
void InsertionSort(T* v, std::size_t n) {
  for (std::size_t i = 1; i < n; ++i) {
    const T key = v[i];
    std::size_t j = i;
    for (; j > 0 && key < v[j - 1]; --j) v[j] = v[j - 1];
    v[j] = key;
  }
}

}  // namespace sorting
}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_SORT_FORMS_H
