// SPDX-License-Identifier: MIT
//
/// @file
/// Our additions: large operations on all cores, on request, with the same bits.
//
//   for the process   ZEPH_SetThreads, ZEPH_GetThreads
//   for one thread    ZEPH_ThreadScope
//
// The library starts no thread unless it is asked to. When it is, large operations are divided
// among threads, and the results stay the same to the last bit for any number of threads: no sum is
// ever divided, only sums, elements or pieces that are independent of each other.
//
//     ZEPH_SetThreads(0);              // as many as the process may use
//     CZEPHMatrix product = a * b;     // by all of them; the bits are those of one
//     ZEPH_SetThreads(1);              // and none is left
//
// Which operations are shared and from which size on is listed in docs/threads.md; everything else,
// and everything smaller, runs on the caller's thread.
//
// How it behaves, the same for every call:
//
//   - The caller's thread takes part and returns when all is done. Where the system provides no
//     thread, it does all of the work.
//   - Threads are started when work is first shared and kept for later calls; they sleep in
//     between. They end with ZEPH_SetThreads(1), when the library is unloaded (on Windows, where
//     an unloaded library cannot wait, a fifth of a second after their last work, and the library
//     stays until then) and when the process ends.
//   - The child of a fork begins with one thread, whatever the parent has. The parent keeps its own.
//   - Any number of threads may call at once; their calls share the same threads evenly and never
//     wait for one another.
//   - The modes of floating-point arithmetic are the caller's on all threads, and exceptions that
//     are raised on any of them are raised for the caller. While exceptions trap (which only x86
//     and 64-bit ARM can tell), calls stay on the caller's thread.
//   - No signal sent to the process is delivered to a thread of the library. The library's threads
//     run on the processors allowed to the thread whose call first needed them.
//   - Callbacks are only ever called on the caller's own thread.
//   - WebAssembly without threads always uses one.
//
// On Windows, call neither these functions nor an operation that may be shared from DllMain.
#ifndef ZEPH_PARALLEL_H
#define ZEPH_PARALLEL_H

#include "platform.h"

/// Lets every call use up to `n` threads, its own among them, and returns the number now in force.
///
/// 1, the setting every process starts with: no thread but the caller's; those that the library has
/// started have ended when this returns. 0: as many as there are processors that the calling thread
/// may use, by affinity and, on Linux, by the limits of its control groups (cpu.max, or
/// cpu.cfs_quota_us; rounded up). More than 256 counts as 256. Below 0 nothing changes.
///
/// Calls that are under way on other threads are not disturbed. Nothing is started here, and
/// nothing allocated; 0 reads a few small files on Linux.
///
///     if (ZEPH_SetThreads(0) == 1) std::puts("one core is all there is");
ZEPH_API int ZEPH_SetThreads(int n);

/// The number of threads that the calling thread's calls may use: that of its innermost
/// ZEPH_ThreadScope, else that of ZEPH_SetThreads.
///
///     ZEPH_SetThreads(2);
///     ZEPH_GetThreads();      // 2
///     ZEPH_SetThreads(1);
ZEPH_API int ZEPH_GetThreads();

/// Called by the constructor of ZEPH_ThreadScope: `n` as for ZEPH_SetThreads, for calls of the
/// calling thread only (below 0 nothing changes). Returns what ZEPH_EndThreadScope takes.
///
///     const int before = ZEPH_BeginThreadScope(2);
///     ZEPH_GetThreads();      // 2
///     ZEPH_EndThreadScope(before);
///     ZEPH_GetThreads();      // 1
ZEPH_API int ZEPH_BeginThreadScope(int n);
/// Called by the destructor of ZEPH_ThreadScope, on the same thread, in reverse order of the
/// beginnings.
ZEPH_API void ZEPH_EndThreadScope(int before);

/// Sets the number of threads for the calls that its thread makes during its lifetime; other
/// threads are not affected. Scopes nest. A plug-in that wants all cores for its own work disturbs
/// no one:
///
///     {
///       const ZEPH_ThreadScope all(0);
///       values.QuickSort(10);
///     }
///
/// The end of a scope keeps the threads for the next one; ZEPH_SetThreads(1) ends them.
class ZEPH_ThreadScope {
 public:
  /// `n` as for ZEPH_SetThreads; below 0 the scope changes nothing.
  ZEPH_ADDED explicit ZEPH_ThreadScope(int n) : before_(ZEPH_BeginThreadScope(n)) {}
  ZEPH_ADDED ~ZEPH_ThreadScope() { ZEPH_EndThreadScope(before_); }
  ZEPH_ThreadScope(const ZEPH_ThreadScope&) = delete;
  ZEPH_ThreadScope& operator=(const ZEPH_ThreadScope&) = delete;

 private:
  int before_;
};

#endif  // ZEPH_PARALLEL_H
