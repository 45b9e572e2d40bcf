// SPDX-License-Identifier: MIT
#include "double_array/sorting.h"

#include <algorithm>
#include <cstdint>

#include "kernels/sort.h"

namespace zeph::double_array {
namespace {

/// Sorts a run with zeros of both signs and no NaN. Only zeros are equal without being the same, so
/// they are taken aside in their order and put back behind the sorted negatives.
void SortAroundZeros(double* v, std::size_t n, Equals equals) {
  double* const end = v + n;
  double* zeros = end;
  for (double* p = end; p != v;) {
    --p;
    if (*p == 0) std::swap(*p, *--zeros);  // all between p and the zeros found is non-zero
  }
  if (equals == Equals::kReversed) std::reverse(zeros, end);
  kernels::SortAscending(v, static_cast<std::size_t>(zeros - v));
  std::rotate(std::lower_bound(v, zeros, 0.0), zeros, end);
}

}  // namespace

bool SortIfOrderIsUnique(double* v, std::size_t n) {
  if (!kernels::OrderIsUnique(v, n)) return false;
  kernels::SortAscending(v, n);
  return true;
}

void SortRuns(double* v, std::size_t n, Equals equals) {
  double* const end = v + n;
  for (double* run = v; run < end; ++run) {
    double* const nan = std::find_if(run, end, [](double x) { return x != x; });
    const auto length = static_cast<std::size_t>(nan - run);
    if (!SortIfOrderIsUnique(run, length)) SortAroundZeros(run, length, equals);
    run = nan;
  }
}

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

// The documented walk goes down to the start of its chain; this one stops at the first pair that is
// in order. All pairs below were left in order by the walks before, with NaN too, so going on would
// exchange nothing.
std::size_t ShellWalk(double* v, std::size_t n, std::size_t gap, std::size_t patience) {
  for (; gap > 0; gap /= 2) {
    std::uint64_t left = std::uint64_t{patience} * n * gap;  // counted in places passed
    for (std::size_t i = gap; i < n; ++i) {
      const double key = v[i];
      std::size_t j = i;
      for (; j >= gap && v[j - gap] > key; j -= gap) v[j] = v[j - gap];
      v[j] = key;
      if (i - j > left) return gap;
      left -= i - j;
    }
  }
  return 0;
}

}  // namespace zeph::double_array
