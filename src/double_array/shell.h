// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SHELL_H
#define ZEPH_SRC_DOUBLE_ARRAY_SHELL_H

#include <cstddef>

namespace zeph::double_array {

/// What CZEPHDoubleArray::ShellSort leaves, to the bit. Data whose order is unique to the bit goes
/// to the shared fast sort, zeros of both signs are followed through the passes by themselves, and
/// only with NaN the passes are made, over gathered chains. Without the memory that the last two
/// borrow, the documented walk.
void ShellSort(double* v, std::size_t n);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SHELL_H
