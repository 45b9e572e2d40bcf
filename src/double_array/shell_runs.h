// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H
#define ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H

#include <cstddef>

namespace zeph::double_array {

/// The outcome of the passes of Shell's sort with gaps `gap`, gap / 2, ..., 1, for any data. The first
/// of them may have been begun: it sorts what it has been through, and the rest with it.
///
/// A pass never moves a NaN, and sorts the runs of a chain between its NaNs, stably. Gaps that halve
/// evenly nest their chains: as long as they do, a chain without NaN (and without zeros of both
/// signs) is sorted once, for all passes that would have mixed it before. Every chain is gathered,
/// sorted and put back.
///
/// n log^2 n. Borrows n doubles; false, and nothing done, if there are none.
bool ShellSortByRuns(double* v, std::size_t n, std::size_t gap);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H
