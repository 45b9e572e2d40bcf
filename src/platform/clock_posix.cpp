// SPDX-License-Identifier: MIT
#ifndef _WIN32

#include <time.h>

#include "platform/clock.h"

namespace zeph::platform {

// The time zone is left out: finding it would read the environment and a file, and nobody needs it.
ZEPH_TimeOfDay ReadClock() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  ZEPH_TimeOfDay record{};
  record.time = now.tv_sec;
  record.millitm = static_cast<unsigned short>(now.tv_nsec / 1000000);
  return record;
}

}  // namespace zeph::platform

#endif  // _WIN32
