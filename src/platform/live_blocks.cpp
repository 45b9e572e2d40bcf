// SPDX-License-Identifier: MIT
#include "platform/live_blocks.h"

#ifdef ZEPH_HARDENED

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "platform/threads.h"

namespace zeph::platform {
namespace {

/// A hash table with linear probing. Released blocks stay in it until it grows, so that probe
/// sequences stay intact.
struct Slot {
  LiveBlock block;  // empty: block.block is null
  bool live;
};

class Table {
 public:
  void Remember(const LiveBlock& block) {
    if (closed_) return;
    if (2 * (used_ + 1) > capacity_ && !Grow()) {
      complete_ = false;
      return;
    }
    Put(block);
  }

  void Forget(const void* block) {
    Slot* const slot = Find(block);
    if (!slot || !slot->live) return;
    slot->live = false;
    --live_;
  }

  /// The slot of a block, live or released, or null.
  Slot* Find(const void* block) {
    if (capacity_ == 0 || !block) return nullptr;
    Slot& slot = SlotOf(block);
    return slot.block.block ? &slot : nullptr;
  }

  const Slot* FindHandle(const void* handle) const {
    for (std::size_t i = 0; i < capacity_; ++i)
      if (slots_[i].live && slots_[i].block.handle == handle) return &slots_[i];
    return nullptr;
  }

  bool IsComplete() const { return complete_; }

  /// From now on no block is known.
  void Close() {
    std::free(slots_);
    slots_ = nullptr;
    capacity_ = used_ = live_ = 0;
    complete_ = false;
    closed_ = true;
  }

 private:
  static constexpr std::size_t kLeast = 1024;

  /// The slot that holds `block`, or the empty one where it would go. One always exists.
  Slot& SlotOf(const void* block) {
    const std::uint64_t hash =
        std::uint64_t{reinterpret_cast<std::uintptr_t>(block)} * 0x9E3779B97F4A7C15u;
    for (std::size_t i = static_cast<std::size_t>(hash >> 20);; ++i) {
      Slot& slot = slots_[i & (capacity_ - 1)];
      if (!slot.block.block || slot.block.block == block) return slot;
    }
  }

  void Put(const LiveBlock& block) {
    Slot& slot = SlotOf(block.block);
    if (!slot.block.block) ++used_;
    if (!slot.live) ++live_;
    slot = {block, true};
  }

  /// A new table with room for four times the live blocks, without the released ones.
  bool Grow() {
    std::size_t capacity = kLeast;
    while (capacity < 4 * (live_ + 1)) capacity *= 2;
    auto* const fresh = static_cast<Slot*>(std::calloc(capacity, sizeof(Slot)));
    if (!fresh) return false;
    Slot* const old = slots_;
    const std::size_t oldCapacity = capacity_;
    slots_ = fresh;
    capacity_ = capacity;
    used_ = live_ = 0;
    for (std::size_t i = 0; i < oldCapacity; ++i)
      if (old[i].live) Put(old[i].block);
    std::free(old);
    return true;
  }

  Slot* slots_ = nullptr;
  std::size_t capacity_ = 0, used_ = 0, live_ = 0;  // used: live or released
  bool complete_ = true, closed_ = false;
};

/// Locks the one table during its lifetime. The table is never destroyed: blocks may be released
/// after static objects.
class Held {
 public:
  Held() { Take(); }
  ~Held() { Leave(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  Table* operator->() const { return &table_; }

  static void Take() {
    while (busy_.test_and_set(std::memory_order_acquire)) {
    }
  }
  static void Leave() { busy_.clear(std::memory_order_release); }

 private:
  static std::atomic_flag busy_;
  static Table table_;
};
std::atomic_flag Held::busy_ = ATOMIC_FLAG_INIT;
Table Held::table_;

/// While the library is loaded, a fork waits until nobody holds the table, so that the child has it
/// in a consistent state; at unloading its memory is released.
const struct Keeper {
  Keeper() { static_cast<void>(AtFork(Held::Take, Held::Leave, Held::Leave)); }
  ~Keeper() { Held()->Close(); }
} keeper;

bool Take(const Slot* slot, LiveBlock& found) {
  if (!slot || !slot->live) return false;
  found = slot->block;
  return true;
}

}  // namespace

void RememberBlock(const LiveBlock& block) {
  if (block.block) Held()->Remember(block);
}

void ForgetBlock(const void* block) {
  Held()->Forget(block);
}

bool FindBlock(const void* block, LiveBlock& found) {
  const Held table;
  return Take(table->Find(block), found);
}

bool FindHandle(const void* handle, LiveBlock& found) {
  const Held table;
  return Take(table->FindHandle(handle), found);
}

bool IsReleased(const void* block, LiveBlock::Kind kind) {
  const Held table;
  const Slot* const slot = table->Find(block);
  return slot && !slot->live && slot->block.kind == kind;
}

bool AllBlocksAreKnown() {
  return Held()->IsComplete();
}

}  // namespace zeph::platform

#endif  // ZEPH_HARDENED
