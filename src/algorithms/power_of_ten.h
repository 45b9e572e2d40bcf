// SPDX-License-Identifier: MIT
//
// 10 to a whole power, with the roundings of one fixed multiplication order.
#ifndef ZEPH_SRC_ALGORITHMS_POWER_OF_TEN_H
#define ZEPH_SRC_ALGORITHMS_POWER_OF_TEN_H

#include "platform/exactness.h"

namespace zeph::algorithms {

/// 10^|n| by binary exponentiation, lowest bit first; infinity from 10^309 on.
inline double PowerOfTen(int n) {
  double product = 1.0;
  double square = 10.0;
  unsigned bits = n < 0 ? 0u - static_cast<unsigned>(n) : static_cast<unsigned>(n);
  for (;;) {
    if (bits & 1u) product *= square;
    bits >>= 1;
    if (bits == 0) return product;
    square *= square;
  }
}

}  // namespace zeph::algorithms

#endif  // ZEPH_SRC_ALGORITHMS_POWER_OF_TEN_H
