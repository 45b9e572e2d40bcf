// SPDX-License-Identifier: MIT
#include "platform/thread_data.h"

#include <atomic>

#include "platform/thread_key.h"

namespace zeph::platform {
namespace {

// Constant from the start and never destroyed, so that they serve before and after other statics.
std::atomic<bool> busy{false};  // held for a few instructions, to read or change `all`
ThreadData* all = nullptr;
std::atomic<bool> closed{false};

/// Runs `body` while no other thread is in such a section.
template <class Body>
auto Alone(Body body) {
  struct Section {
    Section() {
      // GCOVR_EXCL_BR_START: whether two threads meet here is chance
      while (busy.exchange(true, std::memory_order_acquire)) {
      }
      // GCOVR_EXCL_BR_STOP
    }
    ~Section() { busy.store(false, std::memory_order_release); }
  } section;
  return body();
}

/// Takes `data` off the list; null if it is not there (closing the library came first).
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

/// Whether the library is leaving a process that goes on. When a process ends, the functions that
/// static objects have left with exit() come before those that the linker lists; when a library is
/// unloaded, all of them are called from that list, and this one first. (On Windows the other threads
/// are gone by then in both cases.)
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
  /// No thread is inside the library any more.
  static void Close() {
    closed = true;
    while (ThreadData* const first = Alone([] { return all; })) delete Unlink(first);
    if (open) CloseThreadKey();
  }
  /// The process ends, and other threads may go on until it has: what is theirs stays.
  static void Leave() {
    if (!open) return;
    void* const mine = ThreadValue();
    SetThreadValue(nullptr);
    delete Unlink(mine);
  }
};

}  // namespace

ThreadData* MyThreadData(ThreadData* (*make)()) {
  if (closed) return nullptr;
  static const Key key;
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
