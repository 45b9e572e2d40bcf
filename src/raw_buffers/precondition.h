// SPDX-License-Identifier: MIT
//
// Checks of hardened builds: a table of row pointers that has all the rows of a range. In other
// builds the calls compile to nothing.
#ifndef ZEPH_SRC_RAW_BUFFERS_PRECONDITION_H
#define ZEPH_SRC_RAW_BUFFERS_PRECONDITION_H

#include <cstddef>
#include <cstdio>
#include <functional>

#include "platform.h"
#include "platform/live_blocks.h"
#include "raw_buffers/offset.h"

namespace zeph::raw_buffers {

/// Requires that the table and its rows first .. first + count - 1 are not null; without rows
/// requires nothing.
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

/// Requires that a contiguous block is not null; without elements requires nothing.
inline void RequireBlock([[maybe_unused]] const char* operation,
                         [[maybe_unused]] const char* argument, [[maybe_unused]] const void* block,
                         [[maybe_unused]] bool hasElements) {
#ifdef ZEPH_HARDENED
  if (hasElements && !block) ZEPH_StopAtNull(operation, argument);
#endif
}

/// Records the array of `count` elements from `lo` in `block`.
template <class T>
void RememberArray([[maybe_unused]] T* block, [[maybe_unused]] int lo, [[maybe_unused]] int count) {
#ifdef ZEPH_HARDENED
  platform::RememberBlock({block, Offset(block, lo), lo, count});
#endif
}

/// Records a matrix and its rows, each an array.
template <class T>
void RememberMatrix([[maybe_unused]] T** table, [[maybe_unused]] int rows,
                    [[maybe_unused]] int cols, [[maybe_unused]] int nrl, [[maybe_unused]] int ncl) {
#ifdef ZEPH_HARDENED
  for (int i = 0; i < rows; ++i) RememberArray(Moved(table[i], ncl), ncl, cols);
  platform::RememberBlock({table, Offset(table, nrl), nrl, rows, ncl, cols});
#endif
}

#ifdef ZEPH_HARDENED
/// Stops unless `block` is live, and says why: it was released, its lower bound differs, or it is
/// unknown. Returns false where it may be a block that could not be recorded for lack of memory.
inline bool RequireLive(const char* operation, const char* lower, const void* block,
                        const void* handle, int lo, platform::LiveBlock& found) {
  if (platform::FindBlock(block, found)) {
    // The same block with another handle is a row or array of another range.
    if (found.lo != lo) ZEPH_StopOutside(operation, lower, lo, found.lo, found.lo);
    return true;
  }
  if (platform::FindHandle(handle, found))
    ZEPH_StopOutside(operation, lower, lo, found.lo, found.lo);
  if (platform::IsReleased(block)) ZEPH_Stop(operation, "the block was released before");
  if (platform::AllBlocksAreKnown())
    ZEPH_Stop(operation, "the block was not allocated by this library");
  return false;
}
#endif

/// Requires that a released array was allocated with that lower bound and not released before.
template <class T>
void RequireArray([[maybe_unused]] const char* operation, [[maybe_unused]] T* p,
                  [[maybe_unused]] int lo) {
#ifdef ZEPH_HARDENED
  platform::LiveBlock found;
  if (p && Block(p, lo)) RequireLive(operation, "lo", Block(p, lo), p, lo, found);
#endif
}

/// Requires that a released matrix was allocated with these lower bounds, has these rows, and was
/// not released before.
template <class T>
void RequireMatrix([[maybe_unused]] const char* operation, [[maybe_unused]] T** m,
                   [[maybe_unused]] int nrl, [[maybe_unused]] int nrh, [[maybe_unused]] int ncl) {
#ifdef ZEPH_HARDENED
  platform::LiveBlock found;
  if (!m || !Block(m, nrl) || !RequireLive(operation, "nrl", Block(m, nrl), m, nrl, found)) return;
  const long long last = static_cast<long long>(nrl) + found.count - 1;
  if (nrh > last) ZEPH_StopOutside(operation, "nrh", nrh, nrl - 1LL, last);
  ZEPH_REQUIRE_INSIDE(operation, ncl, found.columnLo, found.columnLo);
#endif
}

/// Requires that a 0-based block has the `copied` elements that are read because of its old size, which
/// may be a highest index. The program's own blocks are unknown and pass.
template <class T>
void RequireOldSize([[maybe_unused]] const char* operation, [[maybe_unused]] const char* argument,
                    [[maybe_unused]] const T* old, [[maybe_unused]] int oldSize,
                    [[maybe_unused]] bool isIndex, [[maybe_unused]] int copied) {
#ifdef ZEPH_HARDENED
  platform::LiveBlock found;
  if (!old) return;
  if (platform::IsReleased(old)) ZEPH_Stop(operation, "the old block was released before");
  if (platform::FindBlock(old, found) && copied > found.count)
    ZEPH_StopOutside(operation, argument, oldSize, 0, found.count - isIndex);
#endif
}

/// Requires that a matrix that is copied and released has rows and columns up to these. The
/// program's own tables are unknown and pass.
template <class T>
void RequireOldBounds([[maybe_unused]] const char* operation, [[maybe_unused]] T** old,
                      [[maybe_unused]] int oldRowHi, [[maybe_unused]] int oldColHi) {
#ifdef ZEPH_HARDENED
  platform::LiveBlock found;
  if (!old) return;
  if (platform::IsReleased(old)) ZEPH_Stop(operation, "the old matrix was released before");
  if (!platform::FindBlock(old, found)) return;
  if (oldRowHi >= found.count)
    ZEPH_StopOutside(operation, "oldRowHi", oldRowHi, -1, found.count - 1);
  if (oldColHi >= found.columns)
    ZEPH_StopOutside(operation, "oldColHi", oldColHi, -1, found.columns - 1);
#endif
}

/// Requires that two blocks do not overlap.
template <class T>
void RequireApart([[maybe_unused]] const char* operation, [[maybe_unused]] const T* out,
                  [[maybe_unused]] long long outCount, [[maybe_unused]] const T* in,
                  [[maybe_unused]] long long inCount, [[maybe_unused]] const char* breach) {
#ifdef ZEPH_HARDENED
  const std::less<const T*> before;
  if (inCount > 0 && before(out, in + inCount) && before(in, out + outCount))
    ZEPH_Stop(operation, breach);
#endif
}

}  // namespace zeph::raw_buffers

#endif  // ZEPH_SRC_RAW_BUFFERS_PRECONDITION_H
