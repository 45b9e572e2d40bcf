// SPDX-License-Identifier: MIT
//
// The conversion to int, which C++ leaves undefined where the interface defines it.
#ifndef ZEPH_SRC_PLATFORM_NARROW_H
#define ZEPH_SRC_PLATFORM_NARROW_H

#include <climits>

namespace zeph::platform {

/// `x` truncated toward zero; the most negative int for NaN and for values outside int, as the x86
/// conversion instruction returns. A float may be passed as well: it widens exactly.
constexpr int TruncateToInt(double x) {
  return x > -2147483649.0 && x < 2147483648.0 ? static_cast<int>(x) : INT_MIN;
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_NARROW_H
