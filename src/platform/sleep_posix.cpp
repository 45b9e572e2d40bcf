// SPDX-License-Identifier: MIT
#ifndef _WIN32

#include <errno.h>
#include <sched.h>
#include <time.h>

#include "platform/sleep.h"

namespace zeph::platform {

void SleepMilliseconds(std::uint32_t milliseconds) {
  if (milliseconds == 0) {
    sched_yield();
    return;
  }
  timespec left{};
  left.tv_sec = static_cast<time_t>(milliseconds / 1000);
  left.tv_nsec = static_cast<long>(milliseconds % 1000) * 1000000;
  while (nanosleep(&left, &left) != 0 && errno == EINTR) {
  }
}

}  // namespace zeph::platform

#endif  // _WIN32
