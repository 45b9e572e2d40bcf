// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_DOUBLE_ARRAY_ZEROS_H
#define ZEPH_SRC_DOUBLE_ARRAY_ZEROS_H

#include <cstddef>

namespace zeph::double_array {

/// The quicksort of a piece that is all 0.0 and -0.0. Equals stop both scans at every element, so a
/// partition turns the piece round whatever is in it: no comparison is needed, and up to 64
/// elements are turned as the bits of one word.
void SortZeros(double* v, std::size_t n, std::size_t cutoff);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_ZEROS_H
