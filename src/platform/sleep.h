// SPDX-License-Identifier: MIT
//
// Suspending the calling thread.
#ifndef ZEPH_SRC_PLATFORM_SLEEP_H
#define ZEPH_SRC_PLATFORM_SLEEP_H

#include <cstdint>

namespace zeph::platform {

/// Suspends the calling thread for at least so many milliseconds; signals do not shorten it. 0
/// yields to another thread. 2^32 - 1 means forever on Windows, 49 days elsewhere.
void SleepMilliseconds(std::uint32_t milliseconds);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_SLEEP_H
