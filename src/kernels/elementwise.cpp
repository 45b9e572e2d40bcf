// SPDX-License-Identifier: MIT
#include "kernels/elementwise.h"

namespace zeph::kernels {

const Elementwise& ElementwiseAt(Level level) {
#if ZEPH_X64
  static constexpr const Elementwise* kForms[kLevels] = {
      &portable::kElementwise, &avx2::kElementwise, &avx512::kElementwise};
#else
  static constexpr const Elementwise* kForms[kLevels] = {
      &portable::kElementwise, &portable::kElementwise, &portable::kElementwise};
#endif
  return *kForms[static_cast<int>(level)];
}

}  // namespace zeph::kernels
