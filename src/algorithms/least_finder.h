// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_ALGORITHMS_LEAST_FINDER_H
#define ZEPH_SRC_ALGORITHMS_LEAST_FINDER_H

#include <algorithm>
#include <cstddef>
#include <limits>

#include "kernels/search.h"

namespace zeph::algorithms {

/// Finds the least element from a[i] to the end, for i = 0, 1, 2 ..., while elements change in between.
/// It keeps the least element of each of at most 256 blocks, which have 128 elements or more. A
/// search compares these and the rest of the block that `i` is in, then scans the block with the
/// least one up to that element; a change scans its own block. Up to 32,768 elements a search reads
/// at most 512 elements and a change 128; beyond that, 256 + n / 128 and n / 256.
class LeastFinder {
 public:
  LeastFinder(const double* a, std::size_t n)
      : a_(a), n_(n), block_(std::max<std::size_t>(128, (n + kBlocks - 1) / kBlocks)) {
    for (std::size_t begin = 0; begin < n; begin += block_) Changed(begin);
  }

  /// The index of the first of the least elements from `i` on, ignoring NaNs; `i` itself where a[i]
  /// is a NaN. This is the result of a scan that moves on only to strictly smaller elements.
  std::size_t From(std::size_t i) {
    own_ = i / block_;
    const std::size_t end = End(own_);
    const std::size_t here = i + kernels::FirstLeast(a_ + i, end - i);
    if (end == n_ || a_[here] != a_[here]) return here;
    const std::size_t blocks = (n_ + block_ - 1) / block_;
    const std::size_t best = own_ + 1 + kernels::FirstLeast(least_ + own_ + 1, blocks - own_ - 1);
    if (!(least_[best] < a_[here])) return here;
    const std::size_t begin = best * block_;
    return begin + kernels::FindFirst(a_ + begin, End(best) - begin, least_[best]);
  }

  /// Must be called after a[at] has changed.
  void Changed(std::size_t at) {
    const std::size_t block = at / block_, end = End(block);
    if (block == own_) return;  // searches scan it directly
    std::size_t begin = block * block_;
    while (begin < end && a_[begin] != a_[begin]) ++begin;
    // A block that holds only NaNs is never less than anything.
    least_[block] = begin == end ? std::numeric_limits<double>::infinity()
                                 : a_[begin + kernels::FirstLeast(a_ + begin, end - begin)];
  }

 private:
  static constexpr std::size_t kBlocks = 256;
  std::size_t End(std::size_t block) const { return std::min(n_, (block + 1) * block_); }

  const double* a_;
  std::size_t n_, block_;
  std::size_t own_ = std::numeric_limits<std::size_t>::max();  // the block that `i` is in
  double least_[kBlocks];
};

}  // namespace zeph::algorithms

#endif  // ZEPH_SRC_ALGORITHMS_LEAST_FINDER_H
