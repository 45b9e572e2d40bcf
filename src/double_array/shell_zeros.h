// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SHELL_ZEROS_H
#define ZEPH_SRC_DOUBLE_ARRAY_SHELL_ZEROS_H

#include <cstddef>

namespace zeph::double_array {

/// The outcome of Shell's sort for data without NaN, all of whose zeros are 0.0 or -0.0.
///
/// A pass sorts every chain, stably. So where it puts a zero depends only on how many negatives the
/// zero's chain has and how many zeros stand before it there; which values the others have does not
/// matter. Only the zeros are followed, pass by pass, and the negatives of all chains counted from
/// those of the pass before; then the fast sort, and the zeros' signs in the order that came out.
/// Few zeros are a list of places. Many are bytes, of which only those are gone through that lie between
/// the first element that is out of order and the last.
///
/// `zeros` is their number. From n = 256 on it borrows 3 n bytes and four for each zero, or 6 n where
/// more than one in 16 is a zero; false, and nothing done, if there are none.
bool ShellSortAroundZeros(double* v, std::size_t n, std::size_t zeros);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SHELL_ZEROS_H
