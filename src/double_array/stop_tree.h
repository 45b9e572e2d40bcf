// SPDX-License-Identifier: MIT
//
// The quicksort's partition for orders that split off a few elements at a time.
#ifndef ZEPH_SRC_DOUBLE_ARRAY_STOP_TREE_H
#define ZEPH_SRC_DOUBLE_ARRAY_STOP_TREE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "kernels/memory.h"
#include "kernels/partition.h"

namespace zeph::double_array {

/// The least and greatest value of every leaf of 64 elements, of every eight leaves, of every eight
/// of those, and so on. A scan skips what cannot stop it, so a partition reads a few leaves for
/// each element that it exchanges, and it exchanges no more than its smaller side has: n log n in
/// all, for any order.
///
/// Bounds may be wider than necessary: an exchange only widens them, and a leaf that was entered in
/// vain is tightened again. So the pieces of one array can share a tree: what another piece does to
/// a shared leaf, or to the nodes above, cannot make the bounds wrong.
class StopTree {
 public:
  /// Up to 256 leaves are stored in the object. More are allocated, 1/28 of the bytes of the array;
  /// if that fails, the leaves are larger instead, and a scan reads 1/256 of the array.
  StopTree(double* v, std::size_t n);

  /// Makes the bounds of the elements `first` to `last` tight.
  void Cover(std::size_t first, std::size_t last);

  /// MedianOf3 and QuickPartition of a piece that Cover was called for and that only this function
  /// has changed since.
  std::size_t Part(std::size_t first, std::size_t last);

 private:
  static constexpr std::size_t kBlock = 64;  // elements to a mask
  static constexpr std::size_t kFan = 8;
  static constexpr std::size_t kOwnLeaves = 256;
  static constexpr int kMostLevels = 16;

  template <bool kUp>
  struct Scanner;

  std::size_t LeafOf(std::size_t at) const { return at >> leaf_shift_; }
  std::size_t Begin(std::size_t leaf) const { return leaf << leaf_shift_; }
  std::size_t End(std::size_t leaf) const { return std::min(Begin(leaf + 1), n_); }

  void Measure(std::size_t leaf);
  double MedianOf3(std::size_t left, std::size_t right);
  void SwapIfGreater(std::size_t a, std::size_t b);
  void Exchange(std::size_t a, std::size_t b);
  void Widen(std::size_t at);
  void Tighten(std::size_t leaf);
  bool Combine(int level, std::size_t node);

  double* const v_;
  const std::size_t n_;
  int leaf_shift_ = 6;
  int levels_ = 0;
  kernels::Bounds* level_[kMostLevels];
  std::size_t nodes_[kMostLevels];
  kernels::Bounds own_[kOwnLeaves + kOwnLeaves / 8 + kOwnLeaves / 64 + 1];
  kernels::Borrowed<kernels::Bounds> borrowed_;
};

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_STOP_TREE_H
