// Runs an operation with each of its allocations failing, in every way.
#ifndef ZEPH_TESTS_FAILURE_OPERATIONS_H
#define ZEPH_TESTS_FAILURE_OPERATIONS_H

#include <gtest/gtest.h>

#include <vector>

#include "platform.h"
#include "support/allocation.h"

namespace zeph::test {

/// The effect of exhausted memory on an operation, however the allocation operator reports it.
enum class Ending {
  kPasses,  // the exception reaches the caller
  kSilent   // the operation ends as documented
};

/// Blocks allocated and not released while recording.
inline std::vector<void*> StillHeld(const std::vector<AllocationEvent>& events) {
  std::vector<void*> held;
  for (const auto& event : events) {
    if (event.kind == AllocationEvent::kNew || event.kind == AllocationEvent::kNewArray) {
      if (event.block) held.push_back(event.block);
      continue;
    }
    for (auto block = held.begin(); block != held.end(); ++block)
      if (*block == event.block) {
        held.erase(block);
        break;
      }
  }
  return held;
}

inline long LosesNothing(long) {
  return 0;
}
/// The blocks allocated before the failed request.
inline long LosesTheEarlierBlocks(long k) {
  return k - 1;
}

/// One or more requests: the growth of a standard string is not under the library's control.
constexpr long kSome = -1;

/// Where a null block has another effect than an exception.
inline const std::vector<Failure> kExceptions = {Failure::kBadAlloc, Failure::kMemoryException};

struct Expectation {
  const char* name;
  long requests;  // that the operation makes when none fails, or kSome
  Ending ending;
  long (*lost)(long k) = LosesNothing;  // blocks lost for good when the k-th fails
  std::vector<Failure> ways = {Failure::kBadAlloc, Failure::kMemoryException, Failure::kNull};
};

/// One run with the `k`-th request failing; false when there was no such request.
template <class Make, class Call, class Check>
bool RunWithFailure(const Expectation& want, long k, bool andAllAfter, Failure how, Make make,
                    Call call, Check check) {
  const long before = LiveBlocks();
  bool fired = false;
  std::vector<void*> kept;
  {
    auto state = make();
    bool threw = false;
    {
      RecordAllocations record;
      {
        FailAllocation failing(k, andAllAfter, how);
        threw = Throws([&] { call(state); });
        fired = failing.Fired();
      }
      kept = StillHeld(record.Events());
    }
    EXPECT_EQ(threw, fired && want.ending == Ending::kPasses) << want.name << ", request " << k;
    if (fired) {
      EXPECT_TRUE(check(state)) << want.name << ", request " << k;
    }
  }
  const long ours = kept.capacity() > 0 ? 1 : 0;  // the list's own block
  const long lost = LiveBlocks() - before - ours;
  EXPECT_EQ(lost, fired ? want.lost(k) : 0) << want.name << ", request " << k;
  if (fired && lost == want.lost(k) &&
      lost == static_cast<long>(kept.size()))  // lost by contract: nothing points there
    for (void* block : kept) ::operator delete[](block);
  return fired;
}

/// `make()` creates the operation's objects, `call(state)` runs it, `check(state)` returns whether
/// their state is the documented one afterwards.
template <class Make, class Call, class Check>
void ExpectOnFailure(const Expectation& want, Make make, Call call, Check check) {
  { [[maybe_unused]] auto first = make(); }  // makes the allocations that the first use keeps
  for (const Failure how : want.ways)
    for (const bool andAllAfter : {false, true}) {
      long k = 1;
      while (k < 100 && RunWithFailure(want, k, andAllAfter, how, make, call, check)) ++k;
      if (want.requests == kSome) {
        EXPECT_GE(k - 1, 1) << want.name;
      } else {
        EXPECT_EQ(k - 1, want.requests) << want.name;
      }
    }
}

/// None of these allocates.
template <class Make, class Call>
void ExpectNoRequest(const char* name, Make make, Call call) {
  ExpectOnFailure({name, 0, Ending::kSilent}, make, call, [](const auto&) { return true; });
}

/// Skips where a Windows DLL allocates for itself.
class AllocationFailure : public ::testing::Test {
 protected:
  void SetUp() override { ZEPH_NEEDS_LIBRARY_ALLOCATIONS(); }
};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_FAILURE_OPERATIONS_H
