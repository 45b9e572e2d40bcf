// SPDX-License-Identifier: MIT
#include "kernels/merge.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"

using namespace zeph::raw_buffers;

void ZEPH_ArrayMergeSorted(int* const a, int na, int* const b, int nb, int* const out) {
  RequireBlock(__func__, "a", a, na > 0);
  RequireBlock(__func__, "b", b, nb > 0);
  RequireBlock(__func__, "out", out, na > 0 || nb > 0);
  zeph::kernels::MergeAscending(a, na, b, nb, out);
}

void ZEPH_ArrayMergeSorted(double* const a, int na, double* const b, int nb, double* const out) {
  RequireBlock(__func__, "a", a, na > 0);
  RequireBlock(__func__, "b", b, nb > 0);
  RequireBlock(__func__, "out", out, na > 0 || nb > 0);
  zeph::kernels::MergeAscending(a, na, b, nb, out);
}
