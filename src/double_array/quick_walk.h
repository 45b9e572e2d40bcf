// SPDX-License-Identifier: MIT
//
// The quicksort where its outcome depends on its exchanges: with NaN, or zeros of both signs.
#ifndef ZEPH_SRC_DOUBLE_ARRAY_QUICK_WALK_H
#define ZEPH_SRC_DOUBLE_ARRAY_QUICK_WALK_H

#include <cstddef>

namespace zeph::double_array {

/// What CZEPHDoubleArray::recQuickSort leaves, to the bit; cutoff >= 2.
///
/// The documented partitions are made as they stand, by blocks (kernels/partition.h). A piece whose
/// order is unique to the bit is left to the shared fast sort; a census that is kept up to date
/// tells which are. A piece that does not halve while its partitions look at six times its length
/// is partitioned with a StopTree until it has. Time: n log n in looks and in exchanges, on any
/// input. Depth: log2(n). Stack: some 5 KiB, and 200 bytes a level. Heap: none, but for a StopTree
/// of more than 16,384 elements.
void SortAsWalked(double* v, std::size_t n, std::size_t cutoff);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_QUICK_WALK_H
