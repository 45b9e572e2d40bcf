// SPDX-License-Identifier: MIT
#include <algorithm>

#include "double_array.h"
#include "double_array/elements.h"
#include "double_array/sorting.h"

namespace zeph::double_array {
namespace {

/// List insertion sort with the list kept at the front of the array: each value is put before the
/// first one that it is not greater than.
void ListWalk(double* v, std::size_t n) {
  for (std::size_t i = 1; i < n; ++i) {
    const double key = v[i];
    std::size_t j = 0;
    while (j < i && key > v[j]) ++j;
    std::copy_backward(v + j, v + i, v + i + 1);
    v[j] = key;
  }
}

/// The result of the list insertion sort. A NaN goes to the head, and no later value passes it: the
/// values between two NaNs are ordered only among themselves, in front of the older ones. So the
/// list holds the NaNs and the runs between them in reverse order. Within a run values ascend, with
/// the later of two equals first: the order of a stable sort once the array is reversed.
void ListShortcut(double* v, std::size_t n) {
  if (SortIfOrderIsUnique(v, n)) return;
  std::reverse(v, v + n);
  SortRuns(v, n, Equals::kKept);
}

}  // namespace
}  // namespace zeph::double_array

void CZEPHDoubleArray::ListInsertSort() {
  namespace impl = zeph::double_array;
  const std::size_t n = impl::Count(*this);
  if (n > impl::kSmall) {
    impl::ListShortcut(data, n);
  } else {
    impl::ListWalk(data, n);
  }
  sorted = 1;
}
