// SPDX-License-Identifier: MIT
//
/// @file
/// Preconditions of operations, checked where ZEPH_HARDENED is defined.
//
// ZEPH_REQUIRE, ZEPH_REQUIRE_POINTER, ZEPH_REQUIRE_INSIDE  the checks
// ZEPH_CHECKED                                             marks inline members that check
#ifndef ZEPH_PLATFORM_PRECONDITIONS_H
#define ZEPH_PLATFORM_PRECONDITIONS_H

#include <cstdio>

#include "macros.h"

// ZEPH_REQUIRE_... state what an operation relies on. Normal builds do not check it and contain no
// code for it; with ZEPH_HARDENED a breach stops the program with one line on standard error that
// names the operation, the argument and its bounds: "CZEPHSortableObArray::Sort: count is 7,
// outside 0..5". docs/hardened.md lists what is checked.
//
// ZEPH_CHECKED marks inline members that check. It makes every caller inline them, so each part of
// a program gets the checks that it was compiled with, even where hardened and plain parts are
// linked together: there is no function of that name for the linker to choose.
#ifdef ZEPH_HARDENED
#include <cstdlib>
#if defined(__GNUC__) || defined(__clang__)
#define ZEPH_CHECKED __attribute__((always_inline))
#define ZEPH_OUT_OF_LINE __attribute__((cold, noinline))
#else
#define ZEPH_CHECKED __forceinline
#define ZEPH_OUT_OF_LINE __declspec(noinline)
#endif
[[noreturn]] ZEPH_ADDED ZEPH_OUT_OF_LINE inline void ZEPH_Stop(const char* operation,
                                                               const char* breach) {
  std::fprintf(stderr, "%s: %s\n", operation, breach);
  std::fflush(stderr);
  std::abort();  // here a debugger stops, with the caller on the stack
}
[[noreturn]] ZEPH_ADDED ZEPH_OUT_OF_LINE inline void ZEPH_StopAtNull(const char* operation,
                                                                     const char* argument) {
  std::fprintf(stderr, "%s: %s is null\n", operation, argument);
  std::fflush(stderr);
  std::abort();
}
[[noreturn]] ZEPH_ADDED ZEPH_OUT_OF_LINE inline void ZEPH_StopOutside(
    const char* operation, const char* argument, long long value, long long low, long long high) {
  if (low == 0 && high == -1)
    std::fprintf(stderr, "%s: %s is %lld, but the array is empty\n", operation, argument, value);
  else
    std::fprintf(stderr, "%s: %s is %lld, outside %lld..%lld\n", operation, argument, value, low,
                 high);
  std::fflush(stderr);
  std::abort();
}
#undef ZEPH_OUT_OF_LINE
#define ZEPH_REQUIRE(operation, condition, breach) \
  ((condition) ? static_cast<void>(0) : ZEPH_Stop(operation, breach))
#define ZEPH_REQUIRE_POINTER(operation, argument) \
  ((argument) != nullptr ? static_cast<void>(0) : ZEPH_StopAtNull(operation, #argument))
#define ZEPH_REQUIRE_INSIDE(operation, argument, low, high)                          \
  ((argument) < (low) || (argument) > (high)                                         \
       ? ZEPH_StopOutside(operation, #argument, static_cast<long long>(argument),    \
                          static_cast<long long>(low), static_cast<long long>(high)) \
       : static_cast<void>(0))
#else
/// Marks inline members that check; nothing in normal builds.
#define ZEPH_CHECKED
/// In hardened builds stops at a breach: unless `condition` holds.
#define ZEPH_REQUIRE(operation, condition, breach) static_cast<void>(0)
/// In hardened builds stops at a null pointer.
#define ZEPH_REQUIRE_POINTER(operation, argument) static_cast<void>(0)
/// In hardened builds stops at an `argument` outside `low`..`high`.
#define ZEPH_REQUIRE_INSIDE(operation, argument, low, high) static_cast<void>(0)
#endif

#endif  // ZEPH_PLATFORM_PRECONDITIONS_H
