// SPDX-License-Identifier: MIT
#include <algorithm>
#include <functional>

#include "double_array.h"
#include "double_array/elements.h"

// The documented scan stops at the first descent, and a stop at the last pair still counts as
// sorted: so the elements before the last one tell.
int CZEPHDoubleArray::CheckSorted() {
  const std::size_t n = zeph::double_array::Count(*this);
  sorted = n <= 2 || std::adjacent_find(data, data + n - 1, std::greater<>()) == data + n - 1;
  return sorted;
}
