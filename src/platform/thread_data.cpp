// SPDX-License-Identifier: MIT
#include "platform/thread_data.h"

#include <atomic>

#include "platform/thread_key.h"

namespace zeph::platform {
namespace {

// Constant from the start and never destroyed, so that they serve before and after other statics.
std::atomic_flag busy = ATOMIC_FLAG_INIT;  // held for a few instructions, to read or change `all`
ThreadData* all = nullptr;
std::atomic<bool> closed{false};

/// Runs `body` while no other thread is in such a section.
template <class Body>
auto Alone(Body body) {
  struct Section {
    Section() {
      // GCOVR_EXCL_BR_START: whether two threads meet here is chance
      while (busy.test_and_set(std::memory_order_acquire)) {
      }
      // GCOVR_EXCL_BR_STOP
    }
    ~Section() { busy.clear(std::memory_order_release); }
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

/// The key, from the first use until the library closes down.
struct Key {
  const bool open = OpenThreadKey(AtThreadEnd);
  ~Key() {
    closed = true;
    while (ThreadData* const first = Alone([] { return all; })) delete Unlink(first);
    if (open) CloseThreadKey();
  }
};

}  // namespace

ThreadData* MyThreadData(ThreadData* (*make)()) {
  if (closed) return nullptr;
  static const Key key;
  if (!key.open) return nullptr;
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
