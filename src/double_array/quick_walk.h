// SPDX-License-Identifier: MIT
//
// The quicksort where its result depends on its exchanges: with NaN, or zeros of both signs.
#ifndef ZEPH_SRC_DOUBLE_ARRAY_QUICK_WALK_H
#define ZEPH_SRC_DOUBLE_ARRAY_QUICK_WALK_H

#include <cstddef>

namespace zeph::double_array {

/// The result of CZEPHDoubleArray::recQuickSort, bit for bit; cutoff >= 2.
///
/// The documented partitions are made exactly, but in blocks (kernels/partition.h). A piece whose
/// sorted order is unique to the bit is left to the shared fast sort; a census of NaNs and zeros,
/// updated with every partition, tells which pieces are. A piece that does not halve while its
/// partitions look at six times its length is partitioned with a StopTree until it does. Time: n
/// log n reads and exchanges on any input. Depth: log2(n). Stack: some 5 KiB, and 200 bytes a
/// level. Heap: none, but for a StopTree of more than 16,384 elements.
void SortAsWalked(double* v, std::size_t n, std::size_t cutoff);

}  // namespace zeph::double_array

#endif  // ZEPH_SRC_DOUBLE_ARRAY_QUICK_WALK_H
