// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "double_array/elements.h"

// A descent counts where it is not the last pair, so the scan ends before that.
int CZEPHDoubleArray::CheckSorted() {
  const std::size_t n = zeph::double_array::Count(*this);
  sorted = 1;
  for (std::size_t i = 0; sorted && i + 2 < n; ++i) sorted = !(data[i] > data[i + 1]);
  return sorted;
}
