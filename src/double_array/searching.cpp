// SPDX-License-Identifier: MIT
#include <algorithm>

#include "double_array.h"
#include "double_array/elements.h"
#include "kernels/halving.h"
#include "kernels/search.h"

using namespace zeph::double_array;

int CZEPHDoubleArray::Find(double x) {
  const std::size_t n = Count(*this);
  const std::size_t i = zeph::kernels::FindFirst(data, n, x);
  return i < n ? static_cast<int>(i) : -1;
}

int CZEPHDoubleArray::BinarySearch(double x, int& index) {
  if (!sorted) {
    index = Find(x);
    return index != -1;
  }
  // The documented steps probe once more after the last halving: an element that they have probed
  // before.
  const std::size_t n = Count(*this);
  const std::size_t i = zeph::kernels::FindByHalving(data, n, x);
  if (i == n) return 0;
  index = static_cast<int>(i);
  return 1;
}

int CZEPHDoubleArray::Remove(double x) {
  const int i = Find(x);
  if (i == -1) return 0;
  std::copy(data + i + 1, data + size, data + i);
  --size;
  return 1;
}
