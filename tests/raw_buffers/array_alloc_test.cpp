#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <type_traits>

#include "raw_buffers.h"
#include "raw_buffers/families.h"
#include "support/allocation.h"
#include "support/repeated_pages.h"
#include "support/scale.h"

using namespace zeph::test;

namespace {

/// An address as a number: a pointer moved back by `lo` is not valid.
template <class T>
std::uintptr_t Address(T* p) {
  return reinterpret_cast<std::uintptr_t>(p);
}
template <class T>
std::uintptr_t Moved(T* p, int elements) {
  return Address(p) + static_cast<std::uintptr_t>(std::intptr_t{elements}) * sizeof(T);
}
template <class T>
T* At(T* p, int i) {
  return reinterpret_cast<T*>(Moved(p, i));
}

struct Range {
  int lo, hi;
};
const Range kValid[] = {{0, 0},
                        {0, 9},
                        {1, 1},
                        {1, 10},
                        {-3, 3},
                        {-5, -5},
                        {5, 12},
                        {INT_MAX, INT_MAX},
                        {INT_MIN, INT_MIN},
                        {INT_MAX - 3, INT_MAX},
                        {INT_MIN, INT_MIN + 3}};
const Range kRefused[] = {{0, -1},
                          {1, 0},
                          {5, 4},
                          {3, -3},
                          {INT_MAX, INT_MIN},
                          {INT_MAX, 0},
                          {1, INT_MIN},
                          {2, INT_MIN},
                          {INT_MIN, INT_MAX},
                          {INT_MIN, -1},
                          {INT_MIN, 0},
                          {-1, INT_MAX},
                          {0, INT_MAX}};
// Valid, but more than the test's allocator gives (2^30 bytes): the request is made and fails.
const Range kTooLong[] = {{1, INT_MAX}, {INT_MIN, -2}, {-1000000000, 1000000000}};

std::string Show(const char* family, Range r) {
  return std::string(family) + " " + std::to_string(r.lo) + ".." + std::to_string(r.hi);
}

template <class T>
void ExpectZeroed(T* p, Range r) {
  for (std::int64_t i = r.lo; i <= r.hi; ++i)
    EXPECT_TRUE(*At(p, static_cast<int>(i)) == T(0)) << "index " << i;
}

}  // namespace

// 4 element types x 2 forms x 27 ranges: 216 cells.
TEST(RawArrayAlloc, ReturnsAZeroedBlockForEveryValidRange) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const Range r : kValid) {
      SCOPED_TRACE(Show(Family<T>::kName, r));
      T* p = Family<T>::Alloc(r.lo, r.hi);
      ASSERT_NE(Moved(p, r.lo), 0u);
      ExpectZeroed(p, r);
      ZEPH_ArrayFree(p, r.lo, r.hi);
      long bytes = -77;
      T* q = Family<T>::Alloc(r.lo, r.hi, bytes);
      ASSERT_NE(Moved(q, r.lo), 0u);
      ExpectZeroed(q, r);
      EXPECT_EQ(bytes, (std::int64_t{r.hi} - r.lo + 1) * static_cast<int>(sizeof(T)));
      ZEPH_ArrayFree(q, r.lo, r.hi);
    }
  });
}

TEST(RawArrayAlloc, RefusesEmptyInvertedAndTooLongRangesWithoutAllocating) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const Range r : kRefused) {
      SCOPED_TRACE(Show(Family<T>::kName, r));
      long bytes = -77;
      const long before = AllocationCount();
      EXPECT_EQ(Family<T>::Alloc(r.lo, r.hi), nullptr);
      EXPECT_EQ(Family<T>::Alloc(r.lo, r.hi, bytes), nullptr);
      EXPECT_EQ(AllocationCount(), before);
      EXPECT_EQ(bytes, -77);
    }
  });
}

#if defined(ZEPH_TEST_REPEATED_PAGES) && !defined(ZEPH_TEST_SANITIZED)
TEST(RawArrayAlloc, TheSizeOfTwoGigabytesWrapsToTheLeastInt) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  if (const char* preloaded = std::getenv("LD_PRELOAD"); preloaded && *preloaded)
    GTEST_SKIP() << "under valgrind so many bytes take long";
  const RepeatedPages pages((std::size_t{1} << 31) + 8);
  if (!pages.Begin()) GTEST_SKIP() << "the system grants no such address space";
  const LendBlock lending(pages.Begin());
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    if (!kFullScale && !std::is_same_v<T, double>) return;
    const int count = (1 << 30) / static_cast<int>(sizeof(T)) * 2;
    long bytes = -77;
    T* const p = Family<T>::Alloc(1, count, bytes);
    EXPECT_EQ(bytes, INT_MIN);
    ZEPH_ArrayFree(p, 1, count);
  });
}
#endif

TEST(RawArrayAlloc, RequestsTheFullSizeOfALongRangeAndKeepsTheByteCountOnFailure) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const Range r : kTooLong) {
      SCOPED_TRACE(Show(Family<T>::kName, r));
      long bytes = -77;
      RecordAllocations record;
      EXPECT_EQ(Family<T>::Alloc(r.lo, r.hi), nullptr);
      EXPECT_EQ(Family<T>::Alloc(r.lo, r.hi, bytes), nullptr);
      EXPECT_EQ(bytes, -77);
      const auto events = record.Events();
      ASSERT_EQ(events.size(), 2u);
      const auto count = static_cast<std::uint64_t>(std::int64_t{r.hi} - r.lo + 1);
      const std::uint64_t want =
          count > SIZE_MAX / sizeof(T) ? std::uint64_t{SIZE_MAX} : count * sizeof(T);
      EXPECT_EQ(events[0].bytes, want);
      EXPECT_EQ(events[1].bytes, want);
    }
  });
}

TEST(RawArrayAlloc, AcceptsAnyLabel) {
  char text[] = "%s%n";
  char empty[] = "";
  for (char* name : {text, empty, static_cast<char*>(nullptr)}) {
    double* p = ZEPH_ArrayAllocDouble(name, 1, 10);
    ASSERT_NE(p, nullptr) << "name " << name;
    p[1] = 1.0;
    p[10] = 10.0;
    ZEPH_ArrayFree(p, 1, 10);
  }
  EXPECT_STREQ(text, "%s%n");
}

TEST(RawArrayAlloc, ReturnsTheBlockOffsetByTheLowerBoundAndReleasesIt) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const Range r : kValid) {
      SCOPED_TRACE(Show(Family<T>::kName, r));
      RecordAllocations record;
      T* p = Family<T>::Alloc(r.lo, r.hi);
      ZEPH_ArrayFree(p, r.lo, -12345);  // the upper bound is not used
      const auto events = record.Events();
      ASSERT_EQ(events.size(), 2u);
      EXPECT_EQ(events[0].kind, AllocationEvent::kNewArray);
      EXPECT_EQ(events[0].bytes,
                static_cast<std::size_t>(std::int64_t{r.hi} - r.lo + 1) * sizeof(T));
      EXPECT_EQ(Moved(p, r.lo), Address(events[0].block));
      EXPECT_EQ(events[1].kind, AllocationEvent::kDeleteArray);
      EXPECT_EQ(events[1].block, events[0].block);
    }
  });
}

TEST(RawArrayFree, DoesNothingForANullBlockOrANullPointer) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T* null = nullptr;
    RecordAllocations record;
    ZEPH_ArrayFree(null, 0, 5);
    ZEPH_ArrayFree(null, 1, 5);
    ZEPH_ArrayFree(At(null, -3), 3, 5);  // p + lo is null
    EXPECT_TRUE(record.Events().empty());
  });
}

TEST(RawArrayAlloc, ReturnsNullWhenMemoryRunsOut) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException})
    ForEachElementType([how](auto zero) {
      using T = decltype(zero);
      const long live = LiveBlocks();
      long bytes = -77;
      T* p = nullptr;
      const long failures = FailEachAllocation(
          how, true, [&] { p = Family<T>::Alloc(1, 10, bytes); },
          [&](long) {
            EXPECT_EQ(p, nullptr) << how;
            EXPECT_EQ(bytes, -77) << how;
            EXPECT_EQ(LiveBlocks(), live) << how;  // the exception object is gone too
          });
      EXPECT_EQ(failures, 1) << how;
      ZEPH_ArrayFree(p, 1, 10);
      EXPECT_EQ(LiveBlocks(), live) << how;
    });
}
