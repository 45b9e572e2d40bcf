// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "kernels/merge.h"

void CZEPHDoubleArray::MergeSortedArray(double* const a, int na, double* const b, int nb,
                                        double* const out) {
  zeph::kernels::MergeAscending(a, na, b, nb, out);
}
