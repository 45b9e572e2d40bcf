// SPDX-License-Identifier: MIT
//
// The decimal point of the calling thread's locale.
#ifndef ZEPH_SRC_PLATFORM_DECIMAL_POINT_H
#define ZEPH_SRC_PLATFORM_DECIMAL_POINT_H

namespace zeph::platform {

/// The decimal point that printf writes in this thread, one byte or more. Valid until the locale
/// changes.
const char* DecimalPoint();

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_DECIMAL_POINT_H
