// SPDX-License-Identifier: MIT
#include "parallel/pool.h"

#include <algorithm>
#include <atomic>

#include "parallel/modes.h"
#include "parallel/settings.h"
#include "platform/processors.h"
#include "platform/threads.h"

namespace zeph::parallel {
namespace {

using platform::Condition;
using platform::Locked;
using platform::Mutex;

/// The work of one call, on its caller's stack.
struct Job {
  void (*const run)(void*, std::size_t);
  void* const work;
  const std::size_t pieces;
  std::atomic<std::size_t> taken{0};  // pieces that some thread has begun
  const Modes modes{};
  platform::Spread spread{};

  // Under the pool's mutex.
  int wanted = 0;              // workers that may still join
  std::atomic<int> inside{0};  // workers that have joined and not left yet
  Modes::Flags raised = 0;
  Condition left{};  // signalled by the last worker to leave
  Job* next = nullptr;

  bool Open() const { return wanted > 0 && taken.load(std::memory_order_relaxed) < pieces; }
  void RunPieces() {
    for (;;) {
      const std::size_t k = taken.fetch_add(1, std::memory_order_relaxed);
      if (k >= pieces) return;
      run(work, k);
    }
  }
};

/// The whole state of the pool. It has no initialiser and no destructor: threads of the program may
/// use it until the process has ended.
struct Pool {
  Mutex mutex;
  Condition work;   // work is available, or the workers should end
  Condition ended;  // a worker has ended
  Job* jobs = nullptr;
  std::atomic<unsigned> changes{0};  // incremented on every event that idle workers poll for
  platform::Thread threads[kMostThreads];
  int workers = 0;
  int busy = 0;          // workers that have joined a job
  int asleep = 0;        // workers that must be woken
  bool ending = false;   // the workers should end
  bool closed = false;   // no worker is started any more
  bool refused = false;  // the system refused a thread
  bool atFork = false;   // the fork handlers are registered
};
Pool pool;

/// The open job with the fewest workers, so that callers share them evenly.
Job* NeediestJob() {
  Job* neediest = nullptr;
  for (Job* job = pool.jobs; job; job = job->next)
    if (job->Open() && (!neediest || job->inside < neediest->inside)) neediest = job;
  return neediest;
}

/// Spins for about as long as waking a thread takes: up to some 50 us.
template <class Done>
void LookOut(Done done) {
  for (int k = 0; k < 1000 && !done(); ++k) platform::Pause();
}

/// Works for `job`; the mutex is held before and after.
void Help(Job& job) {
  --job.wanted;
  ++job.inside;
  ++pool.busy;
  pool.mutex.Unlock();
  job.spread.Settle();
  job.modes.Apply();
  job.RunPieces();
  const Modes::Flags raised = Modes::Raised();
  pool.mutex.Lock();
  job.raised |= raised;
  --pool.busy;
  if (--job.inside == 0) job.left.WakeOne();
}

/// Waits for work; returns false if the worker should end. The mutex is held before and after.
/// Calls often follow each other closely, so a worker that has just finished spins for a while.
bool AwaitWork(bool hadWork) {
  const unsigned seen = pool.changes.load(std::memory_order_relaxed);
  if (hadWork) {
    pool.mutex.Unlock();
    LookOut([seen] { return pool.changes.load(std::memory_order_relaxed) != seen; });
    pool.mutex.Lock();
    if (pool.changes.load(std::memory_order_relaxed) != seen) return true;
  }
  ++pool.asleep;
  const bool stay = pool.work.WaitForWork(pool.mutex);
  --pool.asleep;
  return stay;
}

void WorkUntilTheEnd() {
  const Locked lock(pool.mutex);
  bool hadWork = false, stay = true;
  while (!pool.ending) {
    Job* const job = NeediestJob();
    if (job)
      Help(*job);
    else if (stay)
      stay = AwaitWork(hadWork);
    else
      break;
    hadWork = job != nullptr;
  }
  --pool.workers;
  pool.ended.WakeAll();
}

// The pool belongs to the parent. A fork waits until nobody changes it; the child then has none of
// its threads.
void BeforeFork() {
  pool.mutex.Lock();
}
void InParent() {
  pool.mutex.Unlock();
}
void InChild() {
  pool.jobs = nullptr;
  pool.workers = 0;
  pool.busy = 0;
  pool.asleep = 0;
  pool.ending = false;
  pool.work.Forget();
  pool.ended.Forget();
  Unask();
  pool.mutex.Unlock();
}

/// Once; static objects that are older than the library's own may ask first. The mutex is held.
void HandleForks() {
  if (!pool.atFork) pool.atFork = platform::AtFork(BeforeFork, InParent, InChild);
}

/// Starts workers until there are `wanted` or the system refuses one. The mutex is held.
void StartWorkers(int wanted) {
  while (pool.workers < wanted && !pool.refused) {
    pool.refused = !pool.threads[pool.workers].Start(WorkUntilTheEnd);
    if (!pool.refused) ++pool.workers;
  }
}

/// Returns whether workers were woken for it.
bool Add(Job& job) {
  const Locked lock(pool.mutex);
  if (pool.ending || pool.closed) return false;
  StartWorkers(job.wanted);
  if (pool.workers == 0) return false;
  Job** last = &pool.jobs;
  while (*last) last = &(*last)->next;
  *last = &job;
  pool.changes.fetch_add(1, std::memory_order_relaxed);
  const int lookingOut = pool.workers - pool.busy - pool.asleep;
  const int sleepers = std::min(job.wanted - lookingOut, pool.asleep);
  for (int k = 0; k < sleepers; ++k) pool.work.WakeOne();
  return sleepers > 0;
}

void Remove(Job& job) {
  const auto empty = [&job] { return job.inside.load(std::memory_order_relaxed) == 0; };
  const platform::Uncancelled whole;
  pool.mutex.Lock();
  Job** link = &pool.jobs;
  while (*link && *link != &job) link = &(*link)->next;
  if (*link) *link = job.next;
  if (!empty()) {
    pool.mutex.Unlock();
    LookOut(empty);
    pool.mutex.Lock();
    while (!empty()) job.left.Wait(pool.mutex);
  }
  pool.mutex.Unlock();
  Modes::Raise(job.raised);
}

/// Ends the workers; the mutex is held. A second caller waits for the first.
void End() {
  if (pool.ending) {
    while (pool.ending) pool.ended.Wait(pool.mutex);
    return;
  }
  pool.ending = true;
  pool.changes.fetch_add(1, std::memory_order_relaxed);
  const int started = pool.workers;
  pool.work.WakeAll();
  while (pool.workers > 0) pool.ended.Wait(pool.mutex);
  for (int k = 0; k < started; ++k) pool.threads[k].AwaitEnd();
  pool.ending = false;
  pool.ended.WakeAll();
}

// When the library is unloaded, no thread may still execute its code; at the end of a process none
// of its threads should be left either. Later calls, from static objects that live longer, use no
// threads. (On Windows the other threads of an ending process are gone by now and may have held the
// mutex; and a library is not unloaded before its threads have ended.)
#ifndef _WIN32
struct Lifetime {
  /// The fork handlers are there before any thread can call: a fork while one registers them would
  /// leave the child a mutex that nobody unlocks.
  Lifetime() {
    const Locked lock(pool.mutex);
    HandleForks();
  }
  ~Lifetime() {
    const Locked lock(pool.mutex);
    pool.closed = true;
    End();
  }
} lifetime;
#endif

}  // namespace

void detail::ShareByPointer(int threads, std::size_t pieces, void (*run)(void*, std::size_t),
                            void* work) {
  const auto most = static_cast<int>(std::min<std::size_t>(pieces, kMostThreads));
  Job job{run, work, pieces};
  job.wanted = std::min(threads, most) - 1;
  job.spread.Stay();
  if (Add(job)) platform::Spread::LetOthersRun();
  job.RunPieces();
  Remove(job);
}

void AllowWorkers() {
  const Locked lock(pool.mutex);
  HandleForks();
  pool.refused = !pool.atFork;
}

void EndWorkers() {
  const platform::Uncancelled whole;
  const Locked lock(pool.mutex);
  End();
}

int Workers() {
  const Locked lock(pool.mutex);
  return pool.workers;
}

}  // namespace zeph::parallel
