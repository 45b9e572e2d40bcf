// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H
#define ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H

#include <cstddef>

namespace zeph::double_array {

/// The result of the passes of Shell's sort with gaps `gap`, gap / 2, ..., 1, for any data. The
/// first pass may have been begun already.
///
/// A pass never moves a NaN and sorts the runs of a chain between its NaNs, stably. Chains that are
/// nearly in order, as most are after the earlier passes, are sorted side by side where the kernels
/// can. The others are gathered, sorted and put back; while gaps halve evenly, chains nest, and one
/// without NaN (and without zeros of both signs) then needs to be sorted only once, by the last of
/// these passes. `nans`, the number of NaNs, decides which is faster; the result is the same.
///
/// Takes n log^2 n time. Allocates n doubles; returns false, with nothing done, if that fails.
bool ShellSortByRuns(double* v, std::size_t n, std::size_t gap, std::size_t nans);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H
