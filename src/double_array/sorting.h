// SPDX-License-Identifier: MIT
//
// What the sorts share: faster ways to the result of their documented steps. Up to kSmall elements
// bubble sort and the insertion sorts take the documented steps. So do Shell's sort and quicksort
// as far as the result depends on them, through the order of equals or a NaN (shell.h,
// quick_walk.h); everything else goes through the functions here.
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SORTING_H
#define ZEPH_SRC_DOUBLE_ARRAY_SORTING_H

#include <cstddef>

namespace zeph::double_array {

/// Up to this count the documented steps are faster than the scan and set-up of the shortcuts.
constexpr std::size_t kSmall = 8;

/// Sorts `v` and returns true if its ascending order is unique to the bit (no NaN, no zeros of both
/// signs); otherwise leaves it unchanged and returns false.
bool SortIfOrderIsUnique(double* v, std::size_t n);

/// What happens to the order of equal values, which differ only in the sign of zero.
enum class Equals { kKept, kReversed };

/// Leaves every NaN in its place and sorts each run between them separately.
void SortRuns(double* v, std::size_t n, Equals equals);

/// Insertion sort with the equal values reversed, as in CZEPHDoubleArray::InsertionSort.
void InsertionSort(double* v, std::size_t n);

/// The passes of Shell's sort with gaps `gap`, gap / 2, ..., 1. Stops within a pass once that pass
/// has made more than `patience` times n moves and returns its gap; otherwise returns 0.
std::size_t ShellWalk(double* v, std::size_t n, std::size_t gap, std::size_t patience);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SORTING_H
