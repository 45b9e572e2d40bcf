// SPDX-License-Identifier: MIT
//
// The text of a split number, "12.346xE3".
#ifndef ZEPH_SRC_ALGORITHMS_SCIENTIFIC_TEXT_H
#define ZEPH_SRC_ALGORITHMS_SCIENTIFIC_TEXT_H

#include "platform.h"

namespace zeph::algorithms {

/// As the runtime's printf writes "%.{decimals}lfxE%d". `decimals` is -128 .. 127.
CString RuntimesScientificText(double mantissa, int exponent, int decimals);

/// The same text on every system: what glibc writes, also for a negative number of decimals.
CString PortableScientificText(double mantissa, int exponent, int decimals);

}  // namespace zeph::algorithms

#endif  // ZEPH_SRC_ALGORITHMS_SCIENTIFIC_TEXT_H
