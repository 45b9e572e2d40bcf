// SPDX-License-Identifier: MIT
//
/// @file
/// Our additions: every core for large work, on request, with the same bits.
//
//   for the process   ZEPH_SetThreads, ZEPH_GetThreads
//   for one thread    ZEPH_ThreadScope
//
// The library starts no thread unless it is asked to. Where it is, large operations are shared out,
// and the results stay the same to the last bit, whatever the number of threads: what is shared is
// never one sum, but sums, elements or pieces that each have one outcome.
//
//     ZEPH_SetThreads(0);              // as many as the process may use
//     CZEPHMatrix product = a * b;     // by all of them; the bits are those of one
//     ZEPH_SetThreads(1);              // and none is left
//
// Which operations are shared and from which size on is listed in docs/threads.md; everything else,
// and everything smaller, runs on the caller's thread as ever.
//
// How it behaves, the same for every call:
//
//   - The caller's thread takes part and returns when all is done. Where the system gives no
//     thread, it does all of the work.
//   - Threads are started when work is first shared, and are kept for the next; they sleep
//     meanwhile. They end with ZEPH_SetThreads(1), when the library is unloaded (on Windows, where
//     an unloaded library cannot wait, a fifth of a second after their last work, and the library
//     stays until then) and when the process ends.
//   - The child of a fork begins with one thread, whatever the parent has. The parent keeps its own.
//   - Any number of threads may call at once; their calls share the same threads evenly and never
//     wait for one another.
//   - The modes of floating-point arithmetic are the caller's on all threads, and exceptions that
//     are raised on any of them are raised for the caller. While exceptions trap (which only x86 and
//     64-bit ARM tell), calls stay on the caller's thread.
//   - No signal that is sent to the process is delivered to a thread of the library. They run on the
//     processors that the thread may use whose call first needed them.
//   - No callback of the caller's is ever called on another thread than his own.
//   - WebAssembly without threads has one, whatever is asked for.
//
// On Windows none of these functions, and no call that is to be shared, belongs into DllMain.
#ifndef ZEPH_PARALLEL_H
#define ZEPH_PARALLEL_H

#include "platform.h"

/// Lets every call use up to `n` threads, its own among them, and gives the number that now holds.
///
/// 1, which is what every process starts with: no thread but the caller's; those that the library
/// has started have ended when this returns. 0: as many as the calling thread may use processors,
/// by affinity and, on Linux, by the limits of its control groups (cpu.max, or cpu.cfs_quota_us;
/// rounded up). More than 256 counts as 256. Below 0 nothing changes.
///
/// Calls that are under way on other threads are not disturbed. Nothing is started here, and
/// nothing allocated; 0 reads a few small files on Linux.
///
///     if (ZEPH_SetThreads(0) == 1) std::puts("one core is all there is");
ZEPH_API int ZEPH_SetThreads(int n);

/// The number of threads that calls of the calling thread may use: that of its innermost
/// ZEPH_ThreadScope, else that of ZEPH_SetThreads.
///
///     ZEPH_SetThreads(2);
///     ZEPH_GetThreads();      // 2
///     ZEPH_SetThreads(1);
ZEPH_API int ZEPH_GetThreads();

/// What ZEPH_ThreadScope calls at its beginning: `n` as for ZEPH_SetThreads, for calls of the
/// calling thread only (below 0 nothing changes). Gives what ZEPH_EndThreadScope takes.
///
///     const int before = ZEPH_BeginThreadScope(2);
///     ZEPH_GetThreads();      // 2
///     ZEPH_EndThreadScope(before);
///     ZEPH_GetThreads();      // 1
ZEPH_API int ZEPH_BeginThreadScope(int n);
/// What it calls at its end, on the same thread, in the opposite order of the beginnings.
ZEPH_API void ZEPH_EndThreadScope(int before);

/// A number of threads for the calls that its thread makes during its life; other threads have
/// theirs. Scopes nest. A plug-in that wants all cores for its own work disturbs no one:
///
///     {
///       const ZEPH_ThreadScope all(0);
///       values.QuickSort(10);
///     }
///
/// Its end does not end threads, so that the next scope finds them: ZEPH_SetThreads(1) does.
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
