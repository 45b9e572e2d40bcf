// SPDX-License-Identifier: MIT
#include "parallel/settings.h"

#include <algorithm>

#include "parallel/modes.h"
#include "parallel/pool.h"
#include "platform/processors.h"
#include "platform/threads.h"

namespace zeph::parallel {

std::atomic<bool> detail::asked{false};

namespace {

std::atomic<int> everybodys{1};

// Used only once the program has asked for threads: in a library that was loaded late, the first
// use allocates memory. It has no destructor, which would keep the library from being unloaded.
thread_local int own = 0;

}  // namespace

int Everybodys() {
  return everybodys.load(std::memory_order_relaxed);
}

int ThreadsAsked() {
  if (!Asked()) return 1;
  return own ? own : Everybodys();
}

int Threads() {
  const int asked = ThreadsAsked();
  return asked > 1 && !Modes().Trap() ? asked : 1;
}

int Resolve(int n) {
  if (n < 0) return 0;
  if (!platform::kThreadsExist) return 1;
  return std::min(n > 0 ? n : platform::UsableProcessors(), kMostThreads);
}

void SetEverybodys(int n) {
  everybodys.store(n, std::memory_order_relaxed);
  if (n > 1) {
    Ask();
  } else {
    EndWorkers();
  }
}

int SetOwn(int n) {
  const int before = own;
  own = n;
  return before;
}

void Ask() {
  AllowWorkers();
  detail::asked.store(true, std::memory_order_relaxed);
}

void Unask() {
  everybodys.store(1, std::memory_order_relaxed);
  detail::asked.store(false, std::memory_order_relaxed);
}

}  // namespace zeph::parallel
