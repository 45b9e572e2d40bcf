// SPDX-License-Identifier: MIT
#include "double_array.h"

void CZEPHDoubleArray::MergeSortedArray(double* const a, int na, double* const b, int nb,
                                        double* const out) {
  int i = 0;
  int j = 0;
  double* next = out;
  while (i < na && j < nb) *next++ = b[j] > a[i] ? a[i++] : b[j++];
  while (i < na) *next++ = a[i++];
  while (j < nb) *next++ = b[j++];
}
