// SPDX-License-Identifier: MIT
//
// The wall clock.
#ifndef ZEPH_SRC_PLATFORM_CLOCK_H
#define ZEPH_SRC_PLATFORM_CLOCK_H

#include "platform.h"

namespace zeph::platform {

/// The time of day to the millisecond. Steps when the system's clock is set.
ZEPH_TimeOfDay ReadClock();

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_CLOCK_H
