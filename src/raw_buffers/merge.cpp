// SPDX-License-Identifier: MIT
#include "kernels/merge.h"
#include "raw_buffers.h"

void ZEPH_ArrayMergeSorted(int* const a, int na, int* const b, int nb, int* const out) {
  zeph::kernels::MergeAscending(a, na, b, nb, out);
}

void ZEPH_ArrayMergeSorted(double* const a, int na, double* const b, int nb, double* const out) {
  zeph::kernels::MergeAscending(a, na, b, nb, out);
}
