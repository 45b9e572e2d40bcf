// SPDX-License-Identifier: MIT
#include "platform/thread_data.h"

#include <atomic>

#include "platform/thread_key.h"
#include "platform/threads.h"

namespace zeph::platform {
namespace {

// Constant-initialised and never destroyed, so that they can be used before and after other
// statics.
std::atomic<bool> busy{false};  // held for a few instructions while `all` is read or changed
ThreadData* all = nullptr;
std::atomic<bool> closed{false};

void Enter() {
  while (busy.exchange(true, std::memory_order_acquire)) {
  }
}
void Exit() {
  busy.store(false, std::memory_order_release);
}

/// Runs `body` while no other thread is in such a section.
template <class Body>
auto Alone(Body body) {
  struct Section {
    Section() { Enter(); }
    ~Section() { Exit(); }
  } section;
  return body();
}

/// Takes `data` off the list; returns null if it is not there (the library was closed first).
ThreadData* Unlink(const void* data) {
  return Alone([data] {
    ThreadData** link = &all;
    while (*link && *link != data) link = &(*link)->next;
    ThreadData* const found = *link;
    if (found) *link = found->next;
    return found;
  });
}

void AtThreadEnd(void* data) {
  delete Unlink(data);
}

/// Whether the library is unloaded from a process that continues. When a process ends, the
/// functions that static objects have registered with exit() run before those in the linker's list;
/// when a library is unloaded, all of them are called from that list, this one first. (On Windows
/// the other threads are gone by then in both cases.)
#ifdef __ELF__
std::atomic<bool> unloading{false};
__attribute__((destructor)) void Unload() {
  unloading = true;
}
#else
constexpr bool unloading = true;
#endif

/// The key, from the first use until the library is unloaded.
std::atomic<bool> open{false};
struct Key {
  Key() { open = OpenThreadKey(AtThreadEnd); }
  ~Key() { unloading ? Close() : Leave(); }

 private:
  /// No thread executes the library's code any more.
  static void Close() {
    closed = true;
    while (ThreadData* const first = Alone([] { return all; })) delete Unlink(first);
    if (open) CloseThreadKey();
  }
  /// The process ends, and other threads may run until it has: their data must stay.
  static void Leave() {
    if (!open) return;
    void* const mine = ThreadValue();
    SetThreadValue(nullptr);
    delete Unlink(mine);
  }
};

/// A fork waits until nobody is in a section: its child has no thread that would leave it.
/// Registered when the library is loaded, before any thread can call.
struct Forks {
  Forks() { static_cast<void>(AtFork(Enter, Exit, Exit)); }
} forks;

/// Opens the key at the first call: in a section, since a fork meanwhile would leave the child a
/// key that is opened for ever.
void OpenOnce() {
  Alone([] { static const Key key; });
}

}  // namespace

ThreadData* MyThreadData(ThreadData* (*make)()) {
  if (closed) return nullptr;
  if (!open) OpenOnce();
  if (!open) return nullptr;
  if (void* const mine = ThreadValue()) return static_cast<ThreadData*>(mine);
  ThreadData* const made = make();
  if (!made || !SetThreadValue(made)) {
    delete made;
    return nullptr;
  }
  Alone([made] { made->next = all, all = made; });
  return made;
}

}  // namespace zeph::platform
