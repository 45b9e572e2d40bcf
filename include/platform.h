// SPDX-License-Identifier: MIT
//
/// @file
/// The framework classes and macros that the interface uses, where the framework itself is absent.
//
//   platform/macros.h         export macros: ZEPH_API, ZEPH_EMIT, ZEPH_ADDED
//   platform/preconditions.h  ZEPH_REQUIRE, ..._POINTER, ..._INSIDE, ZEPH_CHECKED
//   platform/long.h           ZEPH_Long, the 32-bit signed integer behind every `long` overload
//   platform/time_of_day.h    ZEPH_TimeOfDay, the millisecond time record of the stopwatch
//   platform/object.h         CObject, CMemoryException, CWinApp
//   platform/cstring.h        CString, the narrow text string that listings are appended to
//   platform/arrays.h         CObArray, CUIntArray, CWordArray
//   platform/list.h           CObList, with POSITION as handle of an element
//
// With ZEPH_USE_MFC defined the framework's own classes are used and none of ours is declared.
//
// Our stand-ins follow the framework's conventions. Where the framework refuses an argument (an
// index outside the array, a negative size, the head of an empty list) they throw std::out_of_range
// with a text that names the operation and the bounds, and change nothing. When memory runs out,
// the allocation operator's exception passes to the caller, and nothing changes either. Nothing is
// locked: callers serialise access to any one object.
#ifndef ZEPH_PLATFORM_H
#define ZEPH_PLATFORM_H

#include "platform/arrays.h"
#include "platform/cstring.h"
#include "platform/list.h"
#include "platform/long.h"
#include "platform/macros.h"
#include "platform/object.h"
#include "platform/preconditions.h"
#include "platform/time_of_day.h"

#endif  // ZEPH_PLATFORM_H
