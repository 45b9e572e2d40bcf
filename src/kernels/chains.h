// SPDX-License-Identifier: MIT
//
// Passes of Shell's sort on chains side by side.
#ifndef ZEPH_SRC_KERNELS_CHAINS_H
#define ZEPH_SRC_KERNELS_CHAINS_H

#include <cstddef>

#include "kernels/table.h"

namespace zeph::kernels {

/// One form of what follows.
struct Chains {
  bool (*sort)(double* v, std::size_t n, std::size_t gap);
  /// ChainsAbreast().
  std::size_t abreast;
};

/// The number of chains sorted side by side, one to a lane; 1 where that would gain nothing.
inline std::size_t ChainsAbreast() {
  return Active().chains->abreast;
}

/// Sorts every chain v[c], v[c + gap], v[c + 2 gap], ... as insertion by `>` does: a NaN neither moves nor
/// is passed, the runs between NaNs are sorted, equals keep their order. `gap` is at least ChainsAbreast(),
/// which must not be 1, and less than `n`.
///
/// Meant for chains that are nearly in order, as those of Shell's sort mostly are. Returns false
/// where elements would have to move far; the exchanges made by then are also made by the
/// insertion, so any other way to sort the chains gives the same result.
inline bool SortChains(double* v, std::size_t n, std::size_t gap) {
  return Active().chains->sort(v, n, gap);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_CHAINS_H
