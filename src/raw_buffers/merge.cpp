// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>

#include "raw_buffers.h"

namespace zeph::raw_buffers {
namespace {

/// Takes from `a` only where its element is strictly less: equal ones, and a pair with a NaN, take
/// from `b`. Written without a branch on the outcome, which no processor could predict.
template <class T>
void MergeSorted(const T* a, std::ptrdiff_t na, const T* b, std::ptrdiff_t nb, T* out) {
  std::ptrdiff_t i = 0, j = 0;
  while (i < na && j < nb) {
    const T fromA = a[i], fromB = b[j];
    const bool takeA = fromA < fromB;
    out[i + j] = takeA ? fromA : fromB;
    i += takeA;
    j += !takeA;
  }
  out += i + j;
  if (i < na) out = std::copy(a + i, a + na, out);
  if (j < nb) std::copy(b + j, b + nb, out);
}

}  // namespace
}  // namespace zeph::raw_buffers

void ZEPH_ArrayMergeSorted(int* const a, int na, int* const b, int nb, int* const out) {
  zeph::raw_buffers::MergeSorted(a, na, b, nb, out);
}

void ZEPH_ArrayMergeSorted(double* const a, int na, double* const b, int nb, double* const out) {
  zeph::raw_buffers::MergeSorted(a, na, b, nb, out);
}
