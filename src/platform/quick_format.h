// SPDX-License-Identifier: MIT
//
// printf for the most common formats, at a fraction of its cost.
#ifndef ZEPH_SRC_PLATFORM_QUICK_FORMAT_H
#define ZEPH_SRC_PLATFORM_QUICK_FORMAT_H

#include <cstdarg>

namespace zeph::platform {

/// An argument list that functions can pass on, whatever type va_list is.
struct Arguments {
  va_list list;
  explicit Arguments(va_list from) { va_copy(list, from); }
  ~Arguments() { va_end(list); }
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;
};

/// Writes what the runtime's vsnprintf writes to [out, last), without the terminating zero, and
/// returns the end.
///
/// Supports %d, %i and %u (of int, long and long long), %c, %s, %f, %e and %lf, %le, with a width,
/// a minus and a precision of 1 to 32 decimals, and %%. Returns null where the format contains
/// anything else, the space might not suffice, or the runtime's conventions for a number are
/// unusual; the arguments are consumed then too.
char* WriteQuickly(char* out, const char* last, const char* format, Arguments& arguments);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_QUICK_FORMAT_H
