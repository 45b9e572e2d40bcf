// SPDX-License-Identifier: MIT
#include "double_array/sorting.h"

#include <algorithm>
#include <cstdint>

#include "double_array/zeros.h"
#include "kernels/partition.h"
#include "parallel/sort.h"

namespace zeph::double_array {
namespace {

constexpr std::size_t kSigns = 4096;  // one bit each in half a KiB of stack

/// Sorts a run without NaN and with at most kSigns zeros: their signs are removed, which makes the
/// sorted order unique, and restored afterwards.
void SortWithoutSigns(double* v, std::size_t n, std::size_t zeros, Equals equals) {
  std::uint64_t signs[kSigns / 64] = {};
  std::size_t k = 0;
  const std::size_t negatives = TakeZeros(v, n, [&](std::size_t, std::uint64_t sign) {
    const std::size_t at = equals == Equals::kKept ? k : zeros - 1 - k;
    signs[at / 64] |= sign << at % 64;
    ++k;
  });
  parallel::SortAscending(v, n);
  for (k = 0; k < zeros; ++k)
    if (signs[k / 64] >> k % 64 & 1) v[negatives + k] = -0.0;
}

/// Sorts any run without NaN. Only zeros are equal without being identical, so they are taken out
/// in their order and put back after the sorted negatives.
void SortAroundZeros(double* v, std::size_t n, Equals equals) {
  double* const end = v + n;
  double* zeros = end;
  for (double* p = end; p != v;) {
    --p;  // no zeros remain between p and those found
    const double x = *p, other = zeros[-1];
    const bool zero = x == 0;
    *p = zero ? other : x;
    zeros[-1] = zero ? x : other;
    zeros -= zero;
  }
  if (equals == Equals::kReversed) std::reverse(zeros, end);
  parallel::SortAscending(v, static_cast<std::size_t>(zeros - v));
  std::rotate(std::lower_bound(v, zeros, 0.0), zeros, end);
}

void SortRun(double* v, std::size_t n, Equals equals) {
  if (SortIfOrderIsUnique(v, n)) return;
  const kernels::Census census = kernels::TakeCensus(v, n);
  const bool plain = census.zeros == census.plus + census.minus && census.zeros <= kSigns;
  plain ? SortWithoutSigns(v, n, census.zeros, equals) : SortAroundZeros(v, n, equals);
}

}  // namespace

bool SortIfOrderIsUnique(double* v, std::size_t n) {
  if (!parallel::OrderIsUnique(v, n)) return false;
  parallel::SortAscending(v, n);
  return true;
}

void SortRuns(double* v, std::size_t n, Equals equals) {
  double* const end = v + n;
  for (double* run = v; run < end; ++run) {
    double* const nan = std::find_if(run, end, [](double x) { return x != x; });
    const auto length = static_cast<std::size_t>(nan - run);
    SortRun(run, length, equals);
    run = nan;
  }
}

// Large arrays: a NaN is neither moved nor passed, so it divides the array into runs that are
// sorted separately. Within a run a key ends up in front of all that are greater or equal:
// ascending order, with the later of two equals first.
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

// The documented steps go down to the start of the chain; this loop stops at the first pair that is
// in order. All pairs below were left in order by the elements before, with NaN too, so going on
// would exchange nothing.
std::size_t ShellWalk(double* v, std::size_t n, std::size_t gap, std::size_t patience) {
  for (; gap > 0; gap /= 2) {
    std::uint64_t left = std::uint64_t{patience} * n * gap;  // counted in elements passed
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
