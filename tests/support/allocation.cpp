#include "support/allocation.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include "platform.h"

namespace zeph::test {
namespace {

constexpr std::size_t kLargestRequest = std::size_t{1} << 30;  // larger requests are refused
constexpr std::size_t kLentFrom = std::size_t{1} << 20;
constexpr int kMostEvents = 4096;

std::atomic<long> live{0};
std::atomic<long> asked{0};
thread_local long failIn = 0;  // 0: none; 1: the next one
thread_local bool failAllAfter = false;
thread_local bool fired = false;
thread_local Failure failure = Failure::kBadAlloc;
thread_local void* lent = nullptr;
thread_local bool recording = false;
thread_local int eventCount = 0;
AllocationEvent events[kMostEvents];  // of one thread at a time; too many for a thread's own data

void Record(AllocationEvent::Kind kind, void* block, std::size_t bytes) {
  if (recording && eventCount < kMostEvents) events[eventCount++] = {kind, block, bytes};
}

[[noreturn]] void Throw() {
  if (failure == Failure::kBadAlloc || !fired) throw std::bad_alloc();
  if (failure == Failure::kOther) throw 42;
  if (failure == Failure::kOwn) throw OwnException();
  const long inner = failIn;
  failIn = 0;  // the exception object itself must be allocated
  auto* exception = new CMemoryException;
  failIn = inner;
  throw exception;
}

bool ShouldFail() {
  if (failIn == 0) return false;
  if (failIn > 1) {
    --failIn;
    return false;
  }
  if (!failAllAfter) failIn = 0;
  fired = true;
  return true;
}

void* Allocate(AllocationEvent::Kind kind, std::size_t bytes) {
  ++asked;
  const bool fail = ShouldFail();
  void* block = nullptr;
  if (!fail && lent && bytes > kLentFrom)
    block = lent;
  else if (!fail && bytes <= kLargestRequest)
    block = std::malloc(bytes ? bytes : 1);
  Record(kind, block, bytes);
  if (!block && fail && failure == Failure::kNull) return nullptr;
  if (!block) Throw();
  ++live;
  return block;
}

void Release(AllocationEvent::Kind kind, void* block) noexcept {
  if (!block) return;
  Record(kind, block, 0);
  --live;
  if (block != lent) std::free(block);
}

}  // namespace

bool InterceptsLibraryAllocations() {
  const long before = AllocationCount();
  CString text;
  for (int i = 0; i < 64; ++i) text += "0123456789abcdef";  // grows inside the library
  return AllocationCount() != before;
}

long LiveBlocks() {
  return live;
}
long AllocationCount() {
  return asked;
}

FailAllocation::FailAllocation(long k, bool andAllAfter, Failure how) {
  failIn = k;
  failAllAfter = andAllAfter;
  failure = how;
  fired = false;
}
FailAllocation::~FailAllocation() {
  failIn = 0;
  fired = false;
}
bool FailAllocation::Fired() const {
  return fired;
}

LendBlock::LendBlock(void* block) {
  lent = block;
}
LendBlock::~LendBlock() {
  lent = nullptr;
}

RecordAllocations::RecordAllocations() {
  eventCount = 0;
  recording = true;
}
RecordAllocations::~RecordAllocations() {
  recording = false;
}
std::vector<AllocationEvent> RecordAllocations::Events() const {
  recording = false;
  std::vector<AllocationEvent> copy(events, events + eventCount);
  recording = true;
  return copy;
}

}  // namespace zeph::test

using zeph::test::AllocationEvent;

// An operator that returns null violates the standard, which Failure::kNull does on purpose.
#ifdef __clang__
#define ZEPH_MAY_RETURN_NULL __attribute__((no_sanitize("returns-nonnull-attribute")))
#else
#define ZEPH_MAY_RETURN_NULL
#endif

ZEPH_MAY_RETURN_NULL void* operator new(std::size_t bytes) {
  return zeph::test::Allocate(AllocationEvent::kNew, bytes);
}
ZEPH_MAY_RETURN_NULL void* operator new[](std::size_t bytes) {
  return zeph::test::Allocate(AllocationEvent::kNewArray, bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  try {
    return zeph::test::Allocate(AllocationEvent::kNew, bytes);
  } catch (CMemoryException* exception) {
    exception->Delete();
  } catch (...) {
  }
  return nullptr;
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
  try {
    return zeph::test::Allocate(AllocationEvent::kNewArray, bytes);
  } catch (CMemoryException* exception) {
    exception->Delete();
  } catch (...) {
  }
  return nullptr;
}
void operator delete(void* block) noexcept {
  zeph::test::Release(AllocationEvent::kDelete, block);
}
void operator delete[](void* block) noexcept {
  zeph::test::Release(AllocationEvent::kDeleteArray, block);
}
void operator delete(void* block, std::size_t) noexcept {
  zeph::test::Release(AllocationEvent::kDelete, block);
}
void operator delete[](void* block, std::size_t) noexcept {
  zeph::test::Release(AllocationEvent::kDeleteArray, block);
}
