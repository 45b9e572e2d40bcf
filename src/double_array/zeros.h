// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_ZEROS_H
#define ZEPH_SRC_DOUBLE_ARRAY_ZEROS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "kernels/bits.h"
#include "kernels/partition.h"

namespace zeph::double_array {

/// The quicksort of a piece of only 0.0 and -0.0. Equal elements stop both scans everywhere, so a
/// partition reverses the piece regardless of the signs: no comparison is needed, and up to 64
/// elements are reversed as the bits of one word.
void SortZeros(double* v, std::size_t n, std::size_t cutoff);

/// Makes all zeros 0.0, so that the sorted order is unique, and counts the negatives. Calls
/// visit(place, sign) for every zero that was found.
template <class Visit>
std::size_t TakeZeros(double* v, std::size_t n, Visit visit) {
  std::size_t negatives = 0;
  for (std::size_t i = 0; i < n; i += 64) {
    const std::size_t length = std::min<std::size_t>(64, n - i);
    const std::uint64_t not_less = kernels::NotLess(v + i, length, 0.0);
    negatives += length - kernels::CountBits(not_less);
    std::uint64_t zeros = not_less & kernels::NotGreater(v + i, length, 0.0);
    for (; zeros; zeros &= zeros - 1) {
      const std::size_t at = i + static_cast<std::size_t>(kernels::LowestBit(zeros));
      std::uint64_t bits;
      std::memcpy(&bits, v + at, sizeof bits);
      v[at] = 0.0;
      visit(at, bits >> 63);
    }
  }
  return negatives;
}

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_ZEROS_H
