// SPDX-License-Identifier: MIT
//
// Suspending the calling thread.
#ifndef ZEPH_SRC_PLATFORM_SLEEP_H
#define ZEPH_SRC_PLATFORM_SLEEP_H

#include <cstdint>

namespace zeph::platform {

/// Suspends the calling thread for at least so many milliseconds; signals do not cut it short.
/// 0 lets another thread run. 2^32 - 1 is for ever on Windows, 49 days elsewhere.
void SleepMilliseconds(std::uint32_t milliseconds);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_SLEEP_H
