// SPDX-License-Identifier: MIT
//
// Uses the system's own calls: the compiler's standard library need not have threads.
#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0601
#endif
#include <windows.h>

#include "platform/threads.h"

namespace zeph::platform {
namespace {

SRWLOCK* Lock(void** lock) {
  static_assert(sizeof(SRWLOCK) == sizeof(void*), "stands for one");
  return reinterpret_cast<SRWLOCK*>(lock);
}
CONDITION_VARIABLE* Variable(void** condition) {
  static_assert(sizeof(CONDITION_VARIABLE) == sizeof(void*), "stands for one");
  return reinterpret_cast<CONDITION_VARIABLE*>(condition);
}

/// The module that contains this function; with `keep` its reference count is increased. Null on
/// failure.
HMODULE ThisModule(bool keep) {
  const auto here = reinterpret_cast<LPCWSTR>(reinterpret_cast<void*>(&ThisModule));
  const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                      (keep ? 0 : GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT);
  HMODULE module = nullptr;
  return GetModuleHandleExW(flags, here, &module) ? module : nullptr;
}

/// The module may be unloaded with its last thread, which the system then ends.
DWORD WINAPI RunAndLeave(void* run) {
  reinterpret_cast<void (*)()>(run)();
  FreeLibraryAndExitThread(ThisModule(false), 0);
  return 0;
}

}  // namespace

void Mutex::Lock() {
  AcquireSRWLockExclusive(platform::Lock(&lock_));
}
void Mutex::Unlock() {
  ReleaseSRWLockExclusive(platform::Lock(&lock_));
}

void Condition::Wait(Mutex& mutex) {
  SleepConditionVariableSRW(Variable(&condition_), platform::Lock(&mutex.lock_), INFINITE, 0);
}
bool Condition::WaitForWork(Mutex& mutex) {
  constexpr DWORD kMilliseconds = 200;
  return SleepConditionVariableSRW(Variable(&condition_), platform::Lock(&mutex.lock_),
                                   kMilliseconds, 0);
}
void Condition::WakeOne() {
  WakeConditionVariable(Variable(&condition_));
}
void Condition::WakeAll() {
  WakeAllConditionVariable(Variable(&condition_));
}
void Condition::Forget() {}

bool Thread::Start(void (*run)()) {
  const HMODULE module = ThisModule(true);
  if (!module) return false;
  const HANDLE thread =
      CreateThread(nullptr, 0, RunAndLeave, reinterpret_cast<void*>(run), 0, nullptr);
  if (!thread) {
    FreeLibrary(module);
    return false;
  }
  CloseHandle(thread);
  return true;
}
void Thread::AwaitEnd() {}

Uncancelled::Uncancelled() = default;
Uncancelled::~Uncancelled() = default;

bool AtFork(void (*)(), void (*)(), void (*)()) {
  return true;
}

}  // namespace zeph::platform

#endif  // _WIN32
