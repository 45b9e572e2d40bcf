// SPDX-License-Identifier: MIT
//
// The forms of every family, under the name of their level. <family>_<level>.cpp defines them; a
// level may leave families out.
#ifndef ZEPH_SRC_KERNELS_FORMS_H
#define ZEPH_SRC_KERNELS_FORMS_H

#include "kernels/table.h"
#include "kernels/target.h"

#define ZEPH_DECLARE_FORMS(level)            \
  namespace level {                          \
  extern const Sorting kSorting;             \
  extern const Partitions kPartitions;       \
  extern const Chains kChains;               \
  extern const Searching kSearching;         \
  extern const Elementwise kElementwise;     \
  extern const Magnitudes kMagnitudes;       \
  extern const RowSums kRowSums;             \
  extern const Products kProducts;           \
  extern const Batch kBatch;                 \
  extern const BatchProducts kBatchProducts; \
  }

namespace zeph::kernels {

ZEPH_DECLARE_FORMS(portable)
ZEPH_DECLARE_FORMS(avx2)
ZEPH_DECLARE_FORMS(avx512)
ZEPH_DECLARE_FORMS(neon)

}  // namespace zeph::kernels

#undef ZEPH_DECLARE_FORMS

#endif  // ZEPH_SRC_KERNELS_FORMS_H
