// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "double_array/elements.h"
#include "double_array/sorting.h"

namespace zeph::double_array {
namespace {

/// The passes with gaps n/2, n/4, ..., 1. The documented walk goes down to the start of its chain;
/// this one stops at the first pair that is in order. All pairs below were left in order by the
/// walks before, with NaN too, so going on would exchange nothing.
void ShellWalk(double* v, std::size_t n) {
  for (std::size_t gap = n / 2; gap > 0; gap /= 2) {
    for (std::size_t i = gap; i < n; ++i) {
      const double key = v[i];
      std::size_t j = i;
      for (; j >= gap && v[j - gap] > key; j -= gap) v[j] = v[j - gap];
      v[j] = key;
    }
  }
}

}  // namespace
}  // namespace zeph::double_array

void CZEPHDoubleArray::ShellSort() {
  namespace impl = zeph::double_array;
  const std::size_t n = impl::Count(*this);
  // The last pass, with gap 1, is an insertion sort: without NaN the array ends in ascending order.
  const bool done = n > impl::kSmall && impl::SortIfOrderIsUnique(data, n);
  if (!done) impl::ShellWalk(data, n);
  sorted = 1;
}
