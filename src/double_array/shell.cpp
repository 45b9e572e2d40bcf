// SPDX-License-Identifier: MIT
#include "double_array/shell.h"

#include "double_array/shell_runs.h"
#include "double_array/shell_zeros.h"
#include "double_array/sorting.h"
#include "kernels/partition.h"
#include "kernels/sort.h"

namespace zeph::double_array {
void ShellSort(double* v, std::size_t n) {
  constexpr std::size_t kPatience = 16;  // random order moves an element about five times a pass
  std::size_t gap = n / 2;
  if (n > kSmall) {
    // The last pass, with gap 1, is an insertion sort: without NaN the array ends in ascending order.
    if (SortIfOrderIsUnique(v, n)) return;
    const kernels::Census census = kernels::TakeCensus(v, n);
    const bool zeros_only = census.nans == 0 && census.zeros == census.plus + census.minus;
    if (zeros_only && ShellSortAroundZeros(v, n, census.zeros)) return;
    if (n < kernels::SortingPaysFrom()) gap = ShellWalk(v, n, gap, kPatience);
    if (gap == 0 || ShellSortByRuns(v, n, gap, census.nans)) return;
  }
  ShellWalk(v, n, gap, n);
}

}  // namespace zeph::double_array
