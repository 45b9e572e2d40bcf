// SPDX-License-Identifier: MIT
#ifdef _WIN32

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "platform/sleep.h"

namespace zeph::platform {

void SleepMilliseconds(std::uint32_t milliseconds) {
  ::Sleep(milliseconds);
}

}  // namespace zeph::platform

#endif  // _WIN32
