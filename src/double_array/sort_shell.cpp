// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "double_array/elements.h"
#include "double_array/shell.h"

void CZEPHDoubleArray::ShellSort() {
  zeph::double_array::ShellSort(data, zeph::double_array::Count(*this));
  sorted = 1;
}
