// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "kernels/merge.h"

void CZEPHDoubleArray::MergeSortedArray(double* const a, int na, double* const b, int nb,
                                        double* const out) {
  if (na > 0) ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::MergeSortedArray", a);
  if (nb > 0) ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::MergeSortedArray", b);
  if (na > 0 || nb > 0) ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::MergeSortedArray", out);
  zeph::kernels::MergeAscending(a, na, b, nb, out);
}
