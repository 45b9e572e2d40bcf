// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SHELL_H
#define ZEPH_SRC_DOUBLE_ARRAY_SHELL_H

#include <cstddef>

namespace zeph::double_array {

/// The result of CZEPHDoubleArray::ShellSort, bit for bit. Data whose sorted order is unique to the
/// bit goes to the shared fast sort; with zeros of both signs only the zeros are followed through
/// the passes; only with NaN the passes are made, over gathered chains. Where the memory that the
/// last two allocate is not to be had, the documented steps are taken.
void ShellSort(double* v, std::size_t n);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SHELL_H
