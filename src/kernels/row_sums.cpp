// SPDX-License-Identifier: MIT
#include "kernels/row_sums.h"

namespace zeph::kernels {

const RowSums& RowSumsAt([[maybe_unused]] Level level) {
#if ZEPH_X64
  if (level >= Level::kAvx2) return avx2::kRowSums;
#endif
  return portable::kRowSums;
}

}  // namespace zeph::kernels
