// SPDX-License-Identifier: MIT
#ifdef _WIN32

#include "platform/clock.h"

namespace zeph::platform {

ZEPH_TimeOfDay ReadClock() {
  ZEPH_TimeOfDay record{};
  _ftime64(&record);
  return record;
}

}  // namespace zeph::platform

#endif  // _WIN32
