// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>

#include "double_array.h"
#include "double_array/elements.h"
#include "double_array/partition.h"
#include "double_array/quick_walk.h"
#include "double_array/sorting.h"

// Without NaN every cut-off from 2 on sorts the piece: partitioning puts the pieces in order, and
// both finishing sorts sort theirs (ManualSort gets at most three elements).
void CZEPHDoubleArray::recQuickSort(int left, int right, int cutoff) {
  namespace impl = zeph::double_array;
  if (left >= right) return;
  impl::RequireRange(*this, "CZEPHDoubleArray::recQuickSort", left, right);
  const auto count = static_cast<std::size_t>(std::int64_t{right} - left + 1);
  if (count > impl::kSmall && impl::SortIfOrderIsUnique(data + left, count)) return;
  // A piece of one element cannot be partitioned: the median of three needs at least two.
  impl::SortAsWalked(data + left, count, static_cast<std::size_t>(std::max(cutoff, 2)));
}

void CZEPHDoubleArray::QuickSort(int cutoff) {
  recQuickSort(0, static_cast<int>(zeph::double_array::Count(*this)) - 1, cutoff);
  sorted = 1;
}

double CZEPHDoubleArray::MedianOf3(int left, int right) {
  ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::MedianOf3", data);
  ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::MedianOf3", left, 0, size - 1);
  ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::MedianOf3", right, 1, size - 1);
  return zeph::double_array::MedianOf3(data, left, right);
}

int CZEPHDoubleArray::QuickPartition(int left, int right, double pivot) {
  zeph::double_array::RequireRange(*this, "CZEPHDoubleArray::QuickPartition", left, right);
  ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::QuickPartition", right, left + 2, size - 1);
  ZEPH_REQUIRE("CZEPHDoubleArray::QuickPartition", !(data[left] > pivot),
               "element left is above pivot, so nothing ends the scan");
  ZEPH_REQUIRE("CZEPHDoubleArray::QuickPartition", !(data[right - 1] < pivot),
               "element right - 1 is below pivot, so nothing ends the scan");
  return zeph::double_array::QuickPartition(data, left, right, pivot);
}

void CZEPHDoubleArray::ManualSort(int left, int right) {
  if (left >= right) return;
  zeph::double_array::RequireRange(*this, "CZEPHDoubleArray::ManualSort", left, right);
  zeph::double_array::ManualSort(data, left, right);
}
