// SPDX-License-Identifier: MIT
//
// The steps of the quicksort, on a block of doubles.
#ifndef ZEPH_SRC_DOUBLE_ARRAY_PARTITION_H
#define ZEPH_SRC_DOUBLE_ARRAY_PARTITION_H

#include <cstdint>
#include <utility>

namespace zeph::double_array {

inline void SwapIfGreater(double& a, double& b) {
  if (a > b) std::swap(a, b);
}

inline double MedianOf3(double* v, int left, int right) {
  const auto center = static_cast<int>((std::int64_t{left} + right) / 2);
  SwapIfGreater(v[left], v[center]);
  SwapIfGreater(v[left], v[right]);
  SwapIfGreater(v[center], v[right]);
  std::swap(v[center], v[right - 1]);
  return v[right - 1];
}

inline int QuickPartition(double* v, int left, int right, double pivot) {
  int i = left;
  int j = right - 1;
  for (;;) {
    while (v[++i] < pivot) {
    }
    while (v[--j] > pivot) {
    }
    if (i >= j) break;
    std::swap(v[i], v[j]);
  }
  std::swap(v[i], v[right - 1]);
  return i;
}

inline void ManualSort(double* v, int left, int right) {
  if (left >= right) return;
  if (right - 1 == left) {
    SwapIfGreater(v[left], v[right]);
    return;
  }
  SwapIfGreater(v[left], v[right - 1]);
  SwapIfGreater(v[left], v[right]);
  SwapIfGreater(v[right - 1], v[right]);
}

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_PARTITION_H
