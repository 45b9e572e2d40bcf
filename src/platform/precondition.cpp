// SPDX-License-Identifier: MIT
#include "platform.h"

#ifdef ZEPH_HARDENED

#include <cstdio>
#include <cstdlib>

void ZEPH_StopOutside(const char* operation, const char* argument, long long value, long long low,
                      long long high) {
  std::fprintf(stderr, "%s: %s is %lld, outside %lld..%lld\n", operation, argument, value, low,
               high);
  std::fflush(stderr);
  std::abort();  // here a debugger stops, with the caller on the stack
}

void ZEPH_StopAtNull(const char* operation, const char* argument) {
  std::fprintf(stderr, "%s: %s is null\n", operation, argument);
  std::fflush(stderr);
  std::abort();
}

#endif  // ZEPH_HARDENED
