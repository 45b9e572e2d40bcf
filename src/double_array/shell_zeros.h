// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SHELL_ZEROS_H
#define ZEPH_SRC_DOUBLE_ARRAY_SHELL_ZEROS_H

#include <cstddef>

namespace zeph::double_array {

/// The result of Shell's sort for data without NaN that has zeros of both signs.
///
/// A pass sorts every chain stably. So the new place of a zero depends only on the number of
/// negatives in its chain and of zeros before it there; the other values do not matter. Only the
/// zeros are followed, pass by pass, and the negatives of all chains are counted from those of the
/// pass before; then the fast sort sorts the values, and the zeros get their signs in the order
/// found. Few zeros are kept as a list of indices. Many are kept as bytes, of which only those
/// between the first and the last element that is out of order are processed.
///
/// `zeros` is their number. From n = 256 on it allocates 3 n bytes and four for each zero, or 6 n
/// where more than one in 16 is a zero; returns false, with nothing done, if that fails.
bool ShellSortAroundZeros(double* v, std::size_t n, std::size_t zeros);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SHELL_ZEROS_H
