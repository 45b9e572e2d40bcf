// SPDX-License-Identifier: MIT
#include "kernels/largest_magnitude.h"

namespace zeph::kernels {

LargestMagnitudeForm LargestMagnitudeAt(Level level) {
#if ZEPH_X64
  static constexpr LargestMagnitudeForm kForms[kLevels] = {
      portable::LargestMagnitude, avx2::LargestMagnitude, avx512::LargestMagnitude};
#else
  static constexpr LargestMagnitudeForm kForms[kLevels] = {
      portable::LargestMagnitude, portable::LargestMagnitude, portable::LargestMagnitude};
#endif
  return kForms[static_cast<int>(level)];
}

double LargestMagnitude(const double* x, std::size_t n) {
  return LargestMagnitudeAt(Active())(x, n);
}

}  // namespace zeph::kernels
