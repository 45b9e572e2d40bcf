// SPDX-License-Identifier: MIT
//
// How many threads a call may use.
#ifndef ZEPH_SRC_PARALLEL_SETTINGS_H
#define ZEPH_SRC_PARALLEL_SETTINGS_H

#include <atomic>

namespace zeph::parallel {

/// More than that are not asked for, whatever a caller says.
constexpr int kMostThreads = 256;

namespace detail {
extern std::atomic<bool> asked;
}

/// Whether anybody has asked for threads. All that a call pays where nobody has.
inline bool Asked() {
  return detail::asked.load(std::memory_order_relaxed);
}

/// How many threads a call of the calling thread may use now, its own among them. 1 while floating-
/// point exceptions trap: they have to on the thread whose handler waits for them.
int Threads();

/// The number that the calling thread has set for itself, else everybody's.
int ThreadsAsked();

/// What `n` asks for: 1 to kMostThreads as it is, 0 for as many as the process may use. 0 for
/// something below 0; 1 where there are no threads.
int Resolve(int n);

/// What holds where a thread has not set a number for itself.
int Everybodys();

/// For everybody, 1 to kMostThreads. 1 ends the threads that there are.
void SetEverybodys(int n);

/// For the calling thread; 0: everybody's. Gives what it was.
int SetOwn(int n);

/// From now on calls may use threads, where the numbers say so.
void Ask();

/// In the child of a fork: nobody has asked.
void Unask();

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_SETTINGS_H
