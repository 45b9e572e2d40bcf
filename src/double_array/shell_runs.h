// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H
#define ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H

#include <cstddef>

namespace zeph::double_array {

/// The result of the passes of Shell's sort with gaps `gap`, gap / 2, ..., 1, for any data. The
/// first pass may have been begun already.
///
/// A pass never moves a NaN and sorts the runs of a chain between its NaNs, stably. While gaps
/// halve evenly, chains nest: a chain without NaN (and without zeros of both signs) then needs to
/// be sorted only once, by the last of these passes. Every chain is gathered, sorted and put back.
///
/// Takes n log^2 n time. Allocates n doubles; returns false, with nothing done, if that fails.
bool ShellSortByRuns(double* v, std::size_t n, std::size_t gap);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SHELL_RUNS_H
