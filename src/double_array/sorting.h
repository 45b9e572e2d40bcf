// SPDX-License-Identifier: MIT
//
// What the sorts share: ways to what their documented steps leave in an array that take fewer steps.
// Up to kSmall elements bubble sort and the insertion sorts run the documented ones. So do Shell's
// sort and quicksort where the order of equals or a NaN makes the outcome depend on them, as far as
// it does (shell.h, quick_walk.h); everything else goes through the functions here.
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SORTING_H
#define ZEPH_SRC_DOUBLE_ARRAY_SORTING_H

#include <cstddef>

namespace zeph::double_array {

/// Up to this count a walk beats the scan and the set-up of the shortcuts.
constexpr std::size_t kSmall = 8;

/// Sorts `v` and gives true if its ascending order is unique to the bit (no NaN, not zeros of both
/// signs); otherwise leaves it as it is.
bool SortIfOrderIsUnique(double* v, std::size_t n);

/// What becomes of the order of equal values, which differ in the sign of zero only.
enum class Equals { kKept, kReversed };

/// Leaves every NaN in its place and sorts the runs between them, each for itself.
void SortRuns(double* v, std::size_t n, Equals equals);

/// Insertion sort with the equal values reversed, as in CZEPHDoubleArray::InsertionSort.
void InsertionSort(double* v, std::size_t n);

/// The passes of Shell's sort with gaps `gap`, gap / 2, ..., 1. Gives up, within a pass, once that
/// pass has moved elements more than `patience` times n; returns its gap then, else 0.
std::size_t ShellWalk(double* v, std::size_t n, std::size_t gap, std::size_t patience);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SORTING_H
