// SPDX-License-Identifier: MIT
#include <algorithm>

#include "kernels/merge.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"

namespace {

/// The number of elements of both inputs; a negative count is none.
[[maybe_unused]] long long All(int na, int nb) {
  return std::max(na, 0) + static_cast<long long>(std::max(nb, 0));
}

}  // namespace

using namespace zeph::raw_buffers;

void ZEPH_ArrayMergeSorted(int* const a, int na, int* const b, int nb, int* const out) {
  RequireBlock(__func__, "a", a, na > 0);
  RequireBlock(__func__, "b", b, nb > 0);
  RequireBlock(__func__, "out", out, na > 0 || nb > 0);
  RequireApart(__func__, out, All(na, nb), a, na, "out overlaps a");
  RequireApart(__func__, out, All(na, nb), b, nb, "out overlaps b");
  zeph::kernels::MergeAscending(a, na, b, nb, out);
}

void ZEPH_ArrayMergeSorted(double* const a, int na, double* const b, int nb, double* const out) {
  RequireBlock(__func__, "a", a, na > 0);
  RequireBlock(__func__, "b", b, nb > 0);
  RequireBlock(__func__, "out", out, na > 0 || nb > 0);
  RequireApart(__func__, out, All(na, nb), a, na, "out overlaps a");
  RequireApart(__func__, out, All(na, nb), b, nb, "out overlaps b");
  zeph::kernels::MergeAscending(a, na, b, nb, out);
}
