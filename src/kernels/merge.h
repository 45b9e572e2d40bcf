// SPDX-License-Identifier: MIT
//
// The merge of two ascending blocks.
#ifndef ZEPH_SRC_KERNELS_MERGE_H
#define ZEPH_SRC_KERNELS_MERGE_H

#include <cstddef>

namespace zeph::kernels {

/// Takes from `a` only where its element is strictly less: equal ones, and a pair with a NaN, take
/// from `b`. Written front to back, so blocks that overlap give what the steps give. The merging
/// loop has no branch on the outcome, which no processor could predict.
template <class T>
void MergeAscending(const T* a, std::ptrdiff_t na, const T* b, std::ptrdiff_t nb, T* out) {
  std::ptrdiff_t i = 0, j = 0;
  while (i < na && j < nb) {
    const T fromA = a[i], fromB = b[j];
    const bool takeA = fromA < fromB;
    out[i + j] = takeA ? fromA : fromB;
    i += takeA;
    j += !takeA;
  }
  for (; i < na; ++i) out[i + j] = a[i];
  for (; j < nb; ++j) out[i + j] = b[j];
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_MERGE_H
