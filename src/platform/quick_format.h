// SPDX-License-Identifier: MIT
//
// printf for the formats that programs have most, at a fraction of its cost.
#ifndef ZEPH_SRC_PLATFORM_QUICK_FORMAT_H
#define ZEPH_SRC_PLATFORM_QUICK_FORMAT_H

#include <cstdarg>

namespace zeph::platform {

/// A list of arguments that functions can hand on, whatever a va_list is.
struct Arguments {
  va_list list;
  explicit Arguments(va_list from) { va_copy(list, from); }
  ~Arguments() { va_end(list); }
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;
};

/// Writes to [out, last) what the runtime's vsnprintf writes, without the closing zero, and returns the end.
///
/// Known are %d, %i and %u (of int, long and long long), %c, %s, %f, %e and %lf, %le, with a width, a minus and
/// a precision of 1 to 32 decimals, and %%. Null where the format holds anything else, the room might not do, or
/// the runtime has its own way with a number; the arguments are used up then too.
char* WriteQuickly(char* out, const char* last, const char* format, Arguments& arguments);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_QUICK_FORMAT_H
