// SPDX-License-Identifier: MIT
//
/// @file
/// ZEPH_TimeOfDay, the millisecond time record that the stopwatch keeps.
#ifndef ZEPH_PLATFORM_TIME_OF_DAY_H
#define ZEPH_PLATFORM_TIME_OF_DAY_H

#include <cstdint>

#ifdef _WIN32
#include <sys/timeb.h>
#endif

#ifdef _WIN32
using ZEPH_TimeOfDay = struct __timeb64;
#else
/// A moment of the wall clock to the millisecond, as the runtime library of Windows records it.
struct ZEPH_TimeOfDay {
  std::int64_t time;       ///< seconds since 1970-01-01 00:00 UTC
  unsigned short millitm;  ///< milliseconds, 0..999
  short timezone;          ///< minutes west of UTC; 0 where the system's clock does not tell
  short dstflag;           ///< non-zero while daylight saving is in force; 0 where not told
};
#endif

#endif  // ZEPH_PLATFORM_TIME_OF_DAY_H
