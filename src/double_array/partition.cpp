// SPDX-License-Identifier: MIT
#include <utility>

#include "double_array.h"
#include "double_array/elements.h"

int CZEPHDoubleArray::Partition(int left, int right, double pivot) {
  if (left > right) return left - 1;  // neither cursor would ever move
  zeph::double_array::RequireRange(*this, "CZEPHDoubleArray::Partition", left, right);
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
  ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::Swap", data);
  ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::Swap", i, 0, size - 1);
  ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::Swap", j, 0, size - 1);
  std::swap(data[i], data[j]);
}
