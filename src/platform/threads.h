// SPDX-License-Identifier: MIT
//
// The library's own threads and their synchronisation. Nothing here has a dynamic initialiser or a
// destructor: all of it may be used before and after the program's own static objects.
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

  /// Releases `mutex`, sleeps until another thread wakes it, and locks `mutex` again. May wake
  /// spuriously.
  void Wait(Mutex& mutex);
  /// The same for an idle worker: returns false if it has waited long enough and should end.
  bool WaitForWork(Mutex& mutex);
  void WakeOne();
  void WakeAll();
  /// Forgets the waiting threads: for the child of a fork, which has none.
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
/// No signal sent to the process is delivered to it. On Windows, where a library that is being
/// unloaded cannot wait for threads, it keeps the library loaded while it runs.
class Thread {
 public:
  /// Calls run() on a new thread; false if the system refuses.
  bool Start(void (*run)());
  /// Waits until a started thread, which is about to end, has left the library's code.
  void AwaitEnd();

 private:
#ifndef _WIN32
  [[maybe_unused]] pthread_t thread_{};  // WebAssembly without threads makes none
#endif
};

/// Defers requests to cancel the calling thread during its lifetime: for waits in the middle of
/// work.
class Uncancelled {
 public:
  Uncancelled();
  ~Uncancelled();
  Uncancelled(const Uncancelled&) = delete;
  Uncancelled& operator=(const Uncancelled&) = delete;

 private:
  [[maybe_unused]] int before_ = 0;
};

/// From now on each fork calls `before` first, and then `parent` and `child` in the two processes.
/// Returns false on failure; does nothing on systems without fork.
bool AtFork(void (*before)(), void (*parent)(), void (*child)());

/// Tells the processor that this is a spin loop.
inline void Pause() {
#if defined(__x86_64__) || defined(__i386__)
  __builtin_ia32_pause();
#elif defined(__aarch64__)
  __asm__ volatile("yield");
#endif
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_THREADS_H
