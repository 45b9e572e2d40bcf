// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "double_array/elements.h"
#include "double_array/sorting.h"

void CZEPHDoubleArray::InsertionSort() {
  zeph::double_array::InsertionSort(data, zeph::double_array::Count(*this));
  sorted = 1;
}

void CZEPHDoubleArray::InsertionSort(int left, int right) {
  if (left >= right) return;
  zeph::double_array::RequireRange(*this, "CZEPHDoubleArray::InsertionSort", left, right);
  const auto count = static_cast<std::size_t>(static_cast<long long>(right) - left + 1);
  zeph::double_array::InsertionSort(data + left, count);
}
