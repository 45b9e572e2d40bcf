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

/// Least and greatest value of every leaf of 64 elements, of every eight leaves, of every eight of
/// those, and so on. A scan skips what cannot stop it, so a partition looks at a few leaves for
/// each element that it exchanges, and it exchanges no more than its smaller side has: n log n in
/// all, whatever the order.
///
/// Bounds may be wider than need be: an exchange only widens them, and a leaf that was entered for
/// nothing gets its own again. So the pieces of one array share a tree: what another piece did to a
/// leaf that they share, or to nodes above, does not matter to this one.
class StopTree {
 public:
  /// Up to 256 leaves lie in the object. More are borrowed, 1/28 of the bytes of the array; if
  /// there is no memory, the leaves are larger instead, and a scan looks at 1/256 of the array.
  StopTree(double* v, std::size_t n);

  /// Makes the bounds of the elements `first` to `last` tight.
  void Cover(std::size_t first, std::size_t last);

  /// MedianOf3 and QuickPartition of a piece that Cover has met, and that has changed since by
  /// this function only.
  std::size_t Part(std::size_t first, std::size_t last);

 private:
  static constexpr std::size_t kBlock = 64;  // elements that one mask stands for
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
  kernels::Borrowed<kernels::Bounds> borrowed_{nullptr, std::free};
};

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_STOP_TREE_H
