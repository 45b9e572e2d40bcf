// SPDX-License-Identifier: MIT
//
// Threads of the library's own, and what they wait with. Nothing here has an initialiser or a
// destructor that runs: all of it may be used before and after the program's own static objects.
#ifndef ZEPH_SRC_PLATFORM_THREADS_H
#define ZEPH_SRC_PLATFORM_THREADS_H

#ifndef _WIN32
#include <pthread.h>
#endif

namespace zeph::platform {

/// Whether a program of this target can have threads at all. WebAssembly has them only where the
/// whole program is compiled for them.
#if defined(__EMSCRIPTEN__) && !defined(__EMSCRIPTEN_PTHREADS__)
constexpr bool kThreadsExist = false;
#else
constexpr bool kThreadsExist = true;
#endif

class Mutex {
 public:
  constexpr Mutex() = default;
  Mutex(const Mutex&) = delete;
  Mutex& operator=(const Mutex&) = delete;
  void Lock();
  void Unlock();

 private:
  friend class Condition;
#ifdef _WIN32
  void* lock_ = nullptr;  // an SRWLOCK, which is a pointer that starts as null
#else
  pthread_mutex_t lock_ = PTHREAD_MUTEX_INITIALIZER;
#endif
};

/// Holds a mutex.
class Locked {
 public:
  explicit Locked(Mutex& mutex) : mutex_(mutex) { mutex_.Lock(); }
  ~Locked() { mutex_.Unlock(); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  Mutex& mutex_;
};

class Condition {
 public:
  constexpr Condition() = default;
  Condition(const Condition&) = delete;
  Condition& operator=(const Condition&) = delete;

  /// Gives `mutex` back, sleeps until somebody wakes this, and has it again. May wake by itself.
  void Wait(Mutex& mutex);
  /// The same for a worker with nothing to do: false if it should end, having waited long enough.
  bool WaitForWork(Mutex& mutex);
  void WakeOne();
  void WakeAll();
  /// Forgets the sleepers: for the child of a fork, in which there are none.
  void Forget();

 private:
#ifdef _WIN32
  void* condition_ = nullptr;  // a CONDITION_VARIABLE, likewise
#else
  pthread_cond_t condition_ = PTHREAD_COND_INITIALIZER;
#endif
};

/// A thread that the library has started.
///
/// No signal that is sent to the process is delivered to it. On Windows, where a library that is
/// being unloaded cannot wait for threads, it keeps the library loaded as long as it runs.
class Thread {
 public:
  /// Calls run() on a new thread; false if the system gives none.
  bool Start(void (*run)());
  /// Waits until a started thread, which is about to end, has left the library's code.
  void AwaitEnd();

 private:
#ifndef _WIN32
  [[maybe_unused]] pthread_t thread_{};  // WebAssembly without threads makes none
#endif
};

/// While alive, a request to cancel the calling thread waits: for sleeps in the middle of work.
class Uncancelled {
 public:
  Uncancelled();
  ~Uncancelled();
  Uncancelled(const Uncancelled&) = delete;
  Uncancelled& operator=(const Uncancelled&) = delete;

 private:
  [[maybe_unused]] int before_ = 0;
};

/// From now on the process calls `before` ahead of each fork, and then `parent` and `child` in the
/// two. False if it cannot; systems without fork have nothing to do.
bool AtFork(void (*before)(), void (*parent)(), void (*child)());

/// Tells the processor that a loop waits.
inline void Pause() {
#if defined(__x86_64__) || defined(__i386__)
  __builtin_ia32_pause();
#elif defined(__aarch64__)
  __asm__ volatile("yield");
#endif
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_THREADS_H
