// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "double_array/elements.h"
#include "kernels/search.h"

// The documented scan stops at the first descent, and a stop at the last pair still counts as
// sorted: so only the elements before the last one matter.
int CZEPHDoubleArray::CheckSorted() {
  const std::size_t n = zeph::double_array::Count(*this);
  sorted = n <= 2 || zeph::kernels::NoneDescends(data, n - 1);
  return sorted;
}
