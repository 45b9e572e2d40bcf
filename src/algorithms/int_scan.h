// SPDX-License-Identifier: MIT
//
// The two scans that searching and selecting ints come down to, in blocks that a compiler can
// compare side by side.
#ifndef ZEPH_SRC_ALGORITHMS_INT_SCAN_H
#define ZEPH_SRC_ALGORITHMS_INT_SCAN_H

#include <algorithm>
#include <cstddef>

namespace zeph::algorithms {

/// The highest index of `key` in `a[0]`..`a[last]`, where it must stand somewhere.
inline std::ptrdiff_t LastIndexOf(const int* a, std::ptrdiff_t last, int key) {
  constexpr std::ptrdiff_t kBlock = 16;
  for (; last >= kBlock; last -= kBlock) {
    int equal = 0;
    for (std::ptrdiff_t i = 0; i < kBlock; ++i) equal |= a[last - i] == key;
    if (equal) break;
  }
  while (a[last] != key) --last;
  return last;
}

/// The lowest index of the least value in `a[0]`..`a[n-1]`; n >= 1.
///
/// Passes over blocks for their least value, and looks for the place only in the first block that
/// holds the least of all.
inline std::ptrdiff_t FirstIndexOfLeast(const int* a, std::ptrdiff_t n) {
  constexpr std::ptrdiff_t kBlock = 128;
  std::ptrdiff_t from = 0;
  int least = a[0];
  for (std::ptrdiff_t block = 0; block < n; block += kBlock) {
    const std::ptrdiff_t end = std::min(block + kBlock, n);
    int blockLeast = a[block];
    for (std::ptrdiff_t i = block + 1; i < end; ++i) blockLeast = std::min(blockLeast, a[i]);
    if (blockLeast < least) {
      least = blockLeast;
      from = block;
    }
  }
  while (a[from] != least) ++from;
  return from;
}

}  // namespace zeph::algorithms

#endif  // ZEPH_SRC_ALGORITHMS_INT_SCAN_H
