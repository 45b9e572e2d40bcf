// SPDX-License-Identifier: MIT
#ifndef _WIN32

#include <langinfo.h>

#include "platform/decimal_point.h"

namespace zeph::platform {

/// `localeconv` fills one record for all threads: after its return, another thread with a locale of
/// its own (`uselocale`) may overwrite it.
const char* DecimalPoint() {
  return nl_langinfo(RADIXCHAR);
}

}  // namespace zeph::platform

#endif  // _WIN32
