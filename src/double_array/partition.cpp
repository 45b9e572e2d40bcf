// SPDX-License-Identifier: MIT
#include <utility>

#include "double_array.h"

int CZEPHDoubleArray::Partition(int left, int right, double pivot) {
  if (left > right) return left - 1;  // both cursors would stand still for ever
  int i = left - 1;
  int j = right + 1;
  for (;;) {
    while (i < right && data[++i] < pivot) {
    }
    while (j > left && data[--j] > pivot) {
    }
    if (i >= j) return i;
    std::swap(data[i], data[j]);
  }
}

void CZEPHDoubleArray::Swap(int i, int j) {
  std::swap(data[i], data[j]);
}
