// SPDX-License-Identifier: MIT
//
// The shared fast sort, for data whose ascending order is unique to the bit.
#ifndef ZEPH_SRC_KERNELS_SORT_H
#define ZEPH_SRC_KERNELS_SORT_H

#include <cstddef>

#include "kernels/merge_steps.h"
#include "kernels/table.h"

namespace zeph::kernels {

constexpr std::size_t kSplitFrom = 128;

/// One form of what follows.
struct Sorting {
  bool (*order_is_unique)(const double* v, std::size_t n);
  void (*sort_doubles)(double* v, std::size_t n);
  void (*sort_ints)(int* v, std::size_t n);
  /// Moves the elements less than `pivot` to the front, in any order, and returns their number; n
  /// is at least kSplitFrom.
  std::size_t (*split_doubles)(double* v, std::size_t n, double pivot);
  std::size_t (*split_ints)(int* v, std::size_t n, int pivot);
  /// Whether every element is at least the one before it; a NaN is not.
  bool (*ascends_doubles)(const double* v, std::size_t n);
  bool (*ascends_ints)(const int* v, std::size_t n);
  /// Merges ascending blocks that do not overlap the result and in which equal elements have equal
  /// bits; no double is a NaN or equals 0.0.
  void (*merge_doubles)(const merge::Pair<double>& blocks);
  void (*merge_ints)(const merge::Pair<int>& blocks);
  /// The steps of a merge while they take many elements of one block in a row. The blocks need not
  /// ascend; they do not overlap the result.
  void (*take_front_doubles)(merge::Pair<double>& blocks);
  void (*take_front_ints)(merge::Pair<int>& blocks);
  /// SortingPaysFrom().
  std::size_t pays_from;
};

/// True when `v` has no NaN and all elements that equal 0.0 have the same bits: then every correct
/// ascending sort gives the same bits. One pass. "Equal" is what the processor's comparison says in
/// the caller's modes: where denormals are treated as zeros, they are among those elements.
inline bool OrderIsUnique(const double* v, std::size_t n) {
  return Active().sorting->order_is_unique(v, n);
}

/// Sorts `v` ascending in place; OrderIsUnique(v, n) must hold. Never changes the bits of an
/// element, in any mode. At worst n log n, at best (sorted, reversed, a few distinct values) one or
/// two passes. No heap, a few KiB of stack.
inline void SortAscending(double* v, std::size_t n) {
  Active().sorting->sort_doubles(v, n);
}
inline void SortAscending(int* v, std::size_t n) {
  Active().sorting->sort_ints(v, n);
}

/// The length from which sorting nearly ordered doubles afresh is faster than moving each past its
/// few greater neighbours.
inline std::size_t SortingPaysFrom() {
  return Active().sorting->pays_from;
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_SORT_H
