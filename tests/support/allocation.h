// The test programs' own global allocation operators: they count, record and fail on request.
//
// They serve the library too where symbols of the program come first (shared library on ELF, static
// library anywhere); across a Windows DLL they do not, and InterceptsLibraryAllocations() is false:
// tests that need them begin with ZEPH_NEEDS_LIBRARY_ALLOCATIONS().
#ifndef ZEPH_TESTS_SUPPORT_ALLOCATION_H
#define ZEPH_TESTS_SUPPORT_ALLOCATION_H

#include <cstddef>
#include <exception>
#include <new>
#include <ostream>
#include <vector>

#include "platform.h"

namespace zeph::test {

/// What a failing allocation throws; kNull: nothing, it returns null as some old operators do.
/// kOther and kOwn: it throws a number or an OwnException, which do not mean exhausted memory.
enum class Failure { kBadAlloc, kMemoryException, kNull, kOther, kOwn };

/// A standard exception of the program's own.
struct OwnException : std::exception {};

/// For messages of failed tests.
inline std::ostream& operator<<(std::ostream& os, Failure how) {
  constexpr const char* kTexts[] = {"throwing bad_alloc", "throwing CMemoryException",
                                    "returning null", "throwing a number",
                                    "throwing an exception of the program's own"};
  return os << "with allocations " << kTexts[static_cast<int>(how)];
}

/// True when the library's allocations use the operators of this program.
bool InterceptsLibraryAllocations();

/// Blocks allocated and not yet released, by any of the operators, in this program.
long LiveBlocks();

/// Allocations requested so far, failed ones included.
long AllocationCount();

/// During its lifetime the `k`-th allocation from now (1 = the next) fails; with `andAllAfter`,
/// every later one too. k = 0 fails none.
class FailAllocation {
 public:
  explicit FailAllocation(long k, bool andAllAfter = false, Failure how = Failure::kBadAlloc);
  ~FailAllocation();
  FailAllocation(const FailAllocation&) = delete;
  FailAllocation& operator=(const FailAllocation&) = delete;
  /// Whether an allocation has been failed.
  bool Fired() const;
};

/// During its lifetime every request of this thread above a megabyte gets `block`, whose release is left to the caller.
class LendBlock {
 public:
  explicit LendBlock(void* block);
  ~LendBlock();
  LendBlock(const LendBlock&) = delete;
  LendBlock& operator=(const LendBlock&) = delete;
};

/// One call of an allocation operator.
struct AllocationEvent {
  enum Kind { kNew, kNewArray, kDelete, kDeleteArray } kind;
  void* block;        // null where the request failed
  std::size_t bytes;  // asked for; 0 for releases
};

/// During its lifetime records the calls of this thread in order (up to 4096; without releases of
/// null). One thread at a time may record.
class RecordAllocations {
 public:
  RecordAllocations();
  ~RecordAllocations();
  RecordAllocations(const RecordAllocations&) = delete;
  RecordAllocations& operator=(const RecordAllocations&) = delete;
  std::vector<AllocationEvent> Events() const;
};

/// Whether `body` throws the exception of exhausted memory.
template <class Body>
bool Throws(Body body) {
  try {
    body();
  } catch (const std::bad_alloc&) {
    return true;
  } catch (CMemoryException* exception) {
    exception->Delete();
    return true;
  }
  return false;
}

/// Calls `body()` with the 1st, 2nd, ... allocation failing until it runs without a failure;
/// `check` is called after each failed run, with k. Returns the number of failed runs.
template <class Body, class Check>
long FailEachAllocation(Failure how, bool andAllAfter, Body body, Check check) {
  for (long k = 1;; ++k) {
    bool fired = false;
    {
      FailAllocation failing(k, andAllAfter, how);
      body();
      fired = failing.Fired();
    }
    if (!fired) return k - 1;
    check(k);
  }
}

inline constexpr char kAllocatesForItself[] = "the DLL has its own allocator";

}  // namespace zeph::test

/// Skips a test that observes or fails the library's own allocations where that is impossible.
#define ZEPH_NEEDS_LIBRARY_ALLOCATIONS()             \
  if (!::zeph::test::InterceptsLibraryAllocations()) \
  GTEST_SKIP() << ::zeph::test::kAllocatesForItself

#endif  // ZEPH_TESTS_SUPPORT_ALLOCATION_H
