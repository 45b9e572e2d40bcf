// SPDX-License-Identifier: MIT
#include <algorithm>

#include "double_array.h"
#include "double_array/elements.h"
#include "double_array/sorting.h"
#include "platform/choose.h"

namespace zeph::double_array {
namespace {

/// The n - 2 passes. Each carries the greatest value so far in a register instead of exchanging it
/// forward; where either side of a comparison is a NaN, the carried value is stored and the other
/// carried on, as with exchanges.
void BubbleWalk(double* v, std::size_t n) {
  for (std::size_t last = n - 1; last >= 2; --last) {
    double carried = v[0];
    for (std::size_t j = 0; j < last; ++j) {
      const double next = v[j + 1];
      const bool exchange = carried > next;
      v[j] = platform::Choose(exchange, next, carried);
      carried = platform::Choose(exchange, carried, next);
    }
    v[last] = carried;
  }
}

/// The result of the n - 2 passes without making them. A pass never moves a NaN and never exchanges
/// equals, and moves every value that has a greater one before it (after the last NaN) down by one
/// place. So a value needs as many passes as there are greater ones before it: at most n - 2,
/// except a last value below all others, which needs n - 1 and is left at index 1. (The passes get
/// shorter by the elements already in place at the end; with a NaN no run has more than n - 1
/// values.)
void BubbleShortcut(double* v, std::size_t n) {
  const double last = v[n - 1];
  const bool onePassShort = std::all_of(v, v + n - 1, [last](double x) { return x > last; });
  if (!SortIfOrderIsUnique(v, n)) SortRuns(v, n, Equals::kKept);
  if (onePassShort) std::swap(v[0], v[1]);
}

}  // namespace
}  // namespace zeph::double_array

void CZEPHDoubleArray::BubbleSort() {
  namespace impl = zeph::double_array;
  const std::size_t n = impl::Count(*this);
  if (n > impl::kSmall) {
    impl::BubbleShortcut(data, n);
  } else if (n > 2) {
    impl::BubbleWalk(data, n);
  }
  sorted = 1;
}
