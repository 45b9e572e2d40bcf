// SPDX-License-Identifier: MIT
//
// How many threads a call may use.
#ifndef ZEPH_SRC_PARALLEL_SETTINGS_H
#define ZEPH_SRC_PARALLEL_SETTINGS_H

#include <atomic>

namespace zeph::parallel {

/// The greatest number of threads, whatever a caller asks for.
constexpr int kMostThreads = 256;

namespace detail {
extern std::atomic<bool> asked;
}

/// Whether the program has ever asked for threads: the only cost of a call where it has not.
inline bool Asked() {
  return detail::asked.load(std::memory_order_relaxed);
}

/// The number of threads that a call of the calling thread may use now, its own included. 1 while
/// floating-point exceptions trap: they must trap on the thread that has the handler.
int Threads();

/// The number that the calling thread has set for itself, else the process's.
int ThreadsAsked();

/// The number of threads that `n` stands for: 1 to kMostThreads itself, for 0 as many as the
/// process may use. Returns 0 for a negative `n`, and 1 where there are no threads.
int Resolve(int n);

/// The number in force where a thread has not set its own.
int Everybodys();

/// Sets the number for the process, 1 to kMostThreads. 1 ends all workers.
void SetEverybodys(int n);

/// Sets the number for the calling thread; 0 stands for the process's. Returns the former one.
int SetOwn(int n);

/// From now on calls may use threads.
void Ask();

/// In the child of a fork: as if the program had never asked for threads.
void Unask();

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_SETTINGS_H
