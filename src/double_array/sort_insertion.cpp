// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "double_array/elements.h"
#include "double_array/sorting.h"

namespace zeph::double_array {

// Large arrays: a NaN is neither moved nor passed, so it parts the array into runs that settle
// among themselves. Within a run a key ends in front of all that are greater or equal: ascending
// order, the later of two equals first.
void InsertionSort(double* v, std::size_t n) {
  if (n > kSmall) {
    if (!SortIfOrderIsUnique(v, n)) SortRuns(v, n, Equals::kReversed);
    return;
  }
  for (std::size_t i = 1; i < n; ++i) {
    const double key = v[i];
    std::size_t j = i;
    for (; j > 0 && v[j - 1] >= key; --j) v[j] = v[j - 1];
    v[j] = key;
  }
}

}  // namespace zeph::double_array

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
