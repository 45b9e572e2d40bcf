// SPDX-License-Identifier: MIT
#include <algorithm>

#include "kernels/merge.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"

namespace zeph::raw_buffers {
namespace {

/// The number of elements of both inputs; a negative count is none.
[[maybe_unused]] long long All(int na, int nb) {
  return std::max(na, 0) + static_cast<long long>(std::max(nb, 0));
}

template <class T>
void MergeSorted([[maybe_unused]] const char* function, T* a, int na, T* b, int nb, T* out) {
  RequireBlock(function, "a", a, na > 0);
  RequireBlock(function, "b", b, nb > 0);
  RequireBlock(function, "out", out, na > 0 || nb > 0);
  RequireApart(function, out, All(na, nb), a, na, "out overlaps a");
  RequireApart(function, out, All(na, nb), b, nb, "out overlaps b");
  kernels::MergeAscending(a, na, b, nb, out);
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

void ZEPH_ArrayMergeSorted(int* const a, int na, int* const b, int nb, int* const out) {
  MergeSorted(__func__, a, na, b, nb, out);
}

void ZEPH_ArrayMergeSorted(double* const a, int na, double* const b, int nb, double* const out) {
  MergeSorted(__func__, a, na, b, nb, out);
}
