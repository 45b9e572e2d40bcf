// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_SHELL_STRIPS_H
#define ZEPH_SRC_DOUBLE_ARRAY_SHELL_STRIPS_H

#include <cstddef>

namespace zeph::double_array {

/// The result of the passes of Shell's sort with gaps `gap`, gap / 2, ..., 1, for gaps less than
/// kernels::ChainsAbreast(), which must not be 1. The array is cut into that many strips, which are copied
/// side by side, so that every lane of a vector has part of a chain. After each pass the elements that are
/// out of order between a strip and the next are inserted one by one.
///
/// Returns 0 when done, or the gap of a pass that would move elements far; that pass may have been begun.
/// `room` has space for n + ChainsAbreast() elements; n is at least gap * ChainsAbreast().
std::size_t ShellSortInStrips(double* v, std::size_t n, std::size_t gap, double* room);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_SHELL_STRIPS_H
