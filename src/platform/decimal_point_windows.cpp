// SPDX-License-Identifier: MIT
#ifdef _WIN32

#include <clocale>

#include "platform/decimal_point.h"

namespace zeph::platform {

/// The record belongs to the locale in force, the process's or the thread's.
const char* DecimalPoint() {
  return std::localeconv()->decimal_point;
}

}  // namespace zeph::platform

#endif  // _WIN32
