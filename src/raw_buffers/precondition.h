// SPDX-License-Identifier: MIT
//
// What hardened builds insist on: a table of row pointers that has all the rows of a range. In
// other builds a call is no code.
#ifndef ZEPH_SRC_RAW_BUFFERS_PRECONDITION_H
#define ZEPH_SRC_RAW_BUFFERS_PRECONDITION_H

#include <cstddef>
#include <cstdio>

#include "platform.h"

namespace zeph::raw_buffers {

/// The table and its rows first .. first + count - 1 are not null; without rows nothing is asked.
inline void RequireRows([[maybe_unused]] const char* operation,
                        [[maybe_unused]] const char* argument,
                        [[maybe_unused]] const double* const* table, [[maybe_unused]] int first,
                        [[maybe_unused]] int count) {
#ifdef ZEPH_HARDENED
  if (count < 1) return;
  if (!table) ZEPH_StopAtNull(operation, argument);
  for (std::ptrdiff_t i = first; i < std::ptrdiff_t{first} + count; ++i) {
    if (table[i]) continue;
    char row[40];
    std::snprintf(row, sizeof row, "%s[%lld]", argument, static_cast<long long>(i));
    ZEPH_StopAtNull(operation, row);
  }
#endif
}

/// A contiguous block is not null; without elements nothing is asked.
inline void RequireBlock([[maybe_unused]] const char* operation,
                         [[maybe_unused]] const char* argument, [[maybe_unused]] const void* block,
                         [[maybe_unused]] bool hasElements) {
#ifdef ZEPH_HARDENED
  if (hasElements && !block) ZEPH_StopAtNull(operation, argument);
#endif
}

}  // namespace zeph::raw_buffers

#endif  // ZEPH_SRC_RAW_BUFFERS_PRECONDITION_H
