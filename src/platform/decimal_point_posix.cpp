// SPDX-License-Identifier: MIT
#ifndef _WIN32

#include <langinfo.h>

#include "platform/decimal_point.h"

namespace zeph::platform {

/// `localeconv` fills one record for all threads: between its return and a look at it, another
/// thread with a locale of its own (`uselocale`) may have filled it anew.
const char* DecimalPoint() {
  return nl_langinfo(RADIXCHAR);
}

}  // namespace zeph::platform

#endif  // _WIN32
