// SPDX-License-Identifier: MIT
#ifndef _WIN32

#include <signal.h>

#include <initializer_list>

#include "platform/threads.h"

namespace zeph::platform {

void Mutex::Lock() {
  pthread_mutex_lock(&lock_);
}
void Mutex::Unlock() {
  pthread_mutex_unlock(&lock_);
}

void Condition::Wait(Mutex& mutex) {
  pthread_cond_wait(&condition_, &mutex.lock_);
}
bool Condition::WaitForWork(Mutex& mutex) {
  Wait(mutex);
  return true;
}
void Condition::WakeOne() {
  pthread_cond_signal(&condition_);
}
void Condition::WakeAll() {
  pthread_cond_broadcast(&condition_);
}
void Condition::Forget() {
  condition_ = PTHREAD_COND_INITIALIZER;
}

// Without threads there is nothing to start, no signal to block, and no fork.
#if defined(__EMSCRIPTEN__) && !defined(__EMSCRIPTEN_PTHREADS__)
bool Thread::Start(void (*)()) {
  return false;
}
void Thread::AwaitEnd() {}
Uncancelled::Uncancelled() = default;
Uncancelled::~Uncancelled() = default;
bool AtFork(void (*)(), void (*)(), void (*)()) {
  return false;
}
#else

namespace {

/// During its lifetime the calling thread, and any thread that it starts, gets no signals except
/// those raised by its own instructions.
class WithoutSignals {
 public:
  WithoutSignals() {
    sigset_t blocked;
    sigfillset(&blocked);
    for (int raised : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP}) sigdelset(&blocked, raised);
    pthread_sigmask(SIG_SETMASK, &blocked, &before_);
  }
  ~WithoutSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  WithoutSignals(const WithoutSignals&) = delete;
  WithoutSignals& operator=(const WithoutSignals&) = delete;

 private:
  sigset_t before_;
};

}  // namespace

bool Thread::Start(void (*run)()) {
  const WithoutSignals quiet;
  return pthread_create(
             &thread_, nullptr,
             [](void* argument) -> void* {
               reinterpret_cast<void (*)()>(argument)();
               return nullptr;
             },
             reinterpret_cast<void*>(run)) == 0;
}

void Thread::AwaitEnd() {
  pthread_join(thread_, nullptr);
}

Uncancelled::Uncancelled() {
  pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_);
}
Uncancelled::~Uncancelled() {
  pthread_setcancelstate(before_, nullptr);
}

bool AtFork(void (*before)(), void (*parent)(), void (*child)()) {
  return pthread_atfork(before, parent, child) == 0;
}

#endif

}  // namespace zeph::platform

#endif  // _WIN32
