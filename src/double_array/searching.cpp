// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>

#include "double_array.h"
#include "double_array/elements.h"
#include "kernels/search.h"

using zeph::double_array::Count;

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
  if (Count(*this) == 0) return 0;
  int lo = 0;
  int hi = size - 1;
  int mid = hi / 2;
  while (data[mid] != x) {
    if (lo > hi) return 0;
    if (x > data[mid]) {
      lo = mid + 1;
    } else {
      hi = mid - 1;
    }
    mid = static_cast<int>((std::int64_t{lo} + hi) / 2);
  }
  index = mid;
  return 1;
}

int CZEPHDoubleArray::Remove(double x) {
  const int i = Find(x);
  if (i == -1) return 0;
  std::copy(data + i + 1, data + size, data + i);
  --size;
  return 1;
}
