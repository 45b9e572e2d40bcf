// SPDX-License-Identifier: MIT
//
// Numbers on a std::ostream: as the stream's own inserter writes them, or with ZEPH_PORTABLE_MATH in
// the same bytes on every system.
#ifndef ZEPH_SRC_PLATFORM_STREAM_NUMBER_H
#define ZEPH_SRC_PLATFORM_STREAM_NUMBER_H

#include <ostream>

#include "platform/functions.h"

namespace zeph::platform {

/// `os << Number{x}` in place of `os << x`.
struct Number {
  double value;
};

/// What glibc's and libstdc++'s inserter writes, by the stream's flags, precision, width and fill, on
/// every system. Left to the stream's own inserter: locales but the classic one, and more than
/// kMostStreamDecimals decimals, of which the last are zeros.
std::ostream& WritePortably(std::ostream& os, double x);
constexpr int kMostStreamDecimals = 1100;

inline std::ostream& operator<<(std::ostream& os, Number number) {
  return kPortableMath ? WritePortably(os, number.value) : os << number.value;
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_STREAM_NUMBER_H
