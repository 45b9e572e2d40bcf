// SPDX-License-Identifier: MIT
//
// The scaled hypotenuse step.
#ifndef ZEPH_SRC_KERNELS_HYPOTENUSE_H
#define ZEPH_SRC_KERNELS_HYPOTENUSE_H

#include <cmath>

#include "platform/exactness.h"

namespace zeph::kernels {

/// From here on squares might overflow before their root is taken, so the ratio is used instead.
constexpr double kScaledFrom = 100.0;

/// The running norm `r` extended by one non-negative value `x`.
inline double Hypotenuse(double r, double x) {
  if (r < kScaledFrom && x < kScaledFrom) return std::sqrt(r * r + x * x);
  if (r > x) {
    const double ratio = x / r;
    return r * std::sqrt(1.0 + ratio * ratio);
  }
  const double ratio = r / x;
  return x * std::sqrt(1.0 + ratio * ratio);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_HYPOTENUSE_H
