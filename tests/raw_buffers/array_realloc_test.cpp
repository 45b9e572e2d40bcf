#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <type_traits>
#include <vector>

#include "raw_buffers.h"
#include "raw_buffers/families.h"
#include "support/allocation.h"

using namespace zeph::test;

namespace {

char kLabel[] = "label";

/// A 0-based block 1, 2, .., count.
template <class T>
T* Counting(int count) {
  T* block = Family<T>::Alloc(0, count - 1);
  for (int i = 0; i < count; ++i) block[i] = static_cast<T>(i + 1);
  return block;
}

/// 1, 2, .., kept, then zeros.
template <class T>
void ExpectKept(const T* block, int kept, int count) {
  for (int i = 0; i < count; ++i)
    EXPECT_TRUE(block[i] == static_cast<T>(i < kept ? i + 1 : 0)) << "index " << i;
}

}  // namespace

TEST(RawArrayRealloc, ReadsSizesAsCountsForIntsAndAsHighestIndicesOtherwise) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    SCOPED_TRACE(Family<T>::kName);
    T* p = ZEPH_ArrayRealloc(Counting<T>(6), 5, 8, kLabel);
    ExpectKept(p, std::is_same_v<T, int> ? 5 : 6, 9);
    ZEPH_ArrayFree(p, 0, 8);
  });
}

TEST(RawArrayRealloc, CopiesExactlyTheDocumentedNumberForEveryPairOfSizes) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    SCOPED_TRACE(Family<T>::kName);
    constexpr bool counts = std::is_same_v<T, int>;
    for (int oldN = -3; oldN <= 9; ++oldN)
      for (int newN = -1; newN <= 9; ++newN) {
        T* p = ZEPH_ArrayRealloc(Counting<T>(10), oldN, newN, kLabel);
        ASSERT_NE(p, nullptr);
        const int kept = std::max(0, std::min(oldN, newN) + (counts ? 0 : 1));
        ExpectKept(p, kept, newN + 1);
        ZEPH_ArrayFree(p, 0, newN);
      }
  });
}

TEST(RawArrayRealloc, CopiesLongBlocksWhole) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    SCOPED_TRACE(Family<T>::kName);
    for (const int last : {63, 64, 127, 128, 255, 256, 511, 1000, 4096, 70'001})
      for (const int newLast : {last / 2, last - 1, last, last + 1, last + 300}) {
        T* p = ZEPH_ArrayRealloc(Counting<T>(last + 1), last, newLast, kLabel);
        const int kept = std::min(last, newLast) + (std::is_same_v<T, int> ? 0 : 1);
        bool same = true;
        for (int i = 0; i <= newLast; ++i) same &= p[i] == static_cast<T>(i < kept ? i + 1 : 0);
        EXPECT_TRUE(same) << last << " to " << newLast;
        ZEPH_ArrayFree(p, 0, newLast);
        if (newLast < last) continue;
        p = ZEPH_ArrayResize(Counting<T>(last), last, newLast);
        same = true;
        for (int i = 0; i < newLast; ++i) same &= p[i] == static_cast<T>(i < last ? i + 1 : 0);
        EXPECT_TRUE(same) << "resized from " << last << " to " << newLast;
        ZEPH_ArrayFree(p, 0, newLast - 1);
      }
  });
}

TEST(RawArrayRealloc, AllocatesOneElementMoreThanTheNewIndexThenReleasesTheOldBlock) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T* old = Counting<T>(4);
    RecordAllocations record;
    T* p = ZEPH_ArrayRealloc(old, 3, 5, nullptr);
    const auto events = record.Events();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[0].bytes, 6 * sizeof(T));
    EXPECT_EQ(events[0].block, p);
    EXPECT_EQ(events[1].kind, AllocationEvent::kDeleteArray);
    EXPECT_EQ(events[1].block, old);
    ZEPH_ArrayFree(p, 0, 5);
  });
}

TEST(RawArrayRealloc, ReturnsAZeroedBlockForANullOne) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T* p = ZEPH_ArrayRealloc(static_cast<T*>(nullptr), 5, 3, kLabel);
    ASSERT_NE(p, nullptr);
    ExpectKept(p, 0, 4);
    ZEPH_ArrayFree(p, 0, 3);
  });
}

// A block that cannot be allocated: too many elements, or a negative size.
TEST(RawArrayRealloc, ReturnsNullAndKeepsTheOldBlockForSizesThatWrap) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T* old = Counting<T>(3);
    for (const int newN : {INT_MAX, -2, -100, INT_MIN}) {
      EXPECT_EQ(ZEPH_ArrayRealloc(old, 2, newN, kLabel), nullptr) << newN;
      EXPECT_EQ(ZEPH_ArrayRealloc(old, INT_MAX, newN, kLabel), nullptr) << newN;
      EXPECT_EQ(ZEPH_ArrayRealloc(old, INT_MIN, newN, kLabel), nullptr) << newN;
    }
    ExpectKept(old, 3, 3);
    ZEPH_ArrayFree(old, 0, 2);
  });
}

TEST(RawArrayResize, CopiesTheOldElementsAndZeroesTheRest) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    SCOPED_TRACE(Family<T>::kName);
    for (int oldCount = 1; oldCount <= 9; ++oldCount)
      for (int newCount = oldCount; newCount <= 12; ++newCount) {
        T* p = ZEPH_ArrayResize(Counting<T>(oldCount), oldCount, newCount);
        ASSERT_NE(p, nullptr);
        ExpectKept(p, oldCount, newCount);
        ZEPH_ArrayFree(p, 0, newCount - 1);
      }
  });
}

TEST(RawArrayResize, ReturnsANewBlockForTheSameSizeAndReleasesTheOldOne) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T* old = Counting<T>(5);
    RecordAllocations record;
    T* p = ZEPH_ArrayResize(old, 5, 5);
    const auto events = record.Events();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[0].bytes, 5 * sizeof(T));
    EXPECT_EQ(events[0].block, p);
    EXPECT_EQ(events[1].block, old);
    ExpectKept(p, 5, 5);
    ZEPH_ArrayFree(p, 0, 4);
  });
}

TEST(RawArrayResize, RefusesToShrinkAndLeavesTheOldBlockAlone) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T* old = Counting<T>(5);
    {
      RecordAllocations record;
      for (const int newCount : {4, 0, -1, INT_MIN})
        EXPECT_EQ(ZEPH_ArrayResize(old, 5, newCount), nullptr) << newCount;
      EXPECT_TRUE(record.Events().empty());
    }
    ExpectKept(old, 5, 5);
    ZEPH_ArrayFree(old, 0, 4);
  });
}

TEST(RawArrayResize, CopiesNothingForNegativeCountsAndNull) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const int oldCount : {0, -1, INT_MIN}) {
      T* p = ZEPH_ArrayResize(Counting<T>(2), oldCount, 3);
      ASSERT_NE(p, nullptr) << "oldCount " << oldCount;
      ExpectKept(p, 0, 3);
      p = ZEPH_ArrayResize(p, oldCount, 0);
      EXPECT_NE(p, nullptr) << "oldCount " << oldCount;
      ZEPH_ArrayFree(p, 0, -1);
    }
    T* fresh = ZEPH_ArrayResize(static_cast<T*>(nullptr), 2, 3);
    ASSERT_NE(fresh, nullptr);
    ExpectKept(fresh, 0, 3);
    EXPECT_EQ(ZEPH_ArrayResize(fresh, -5, -4), nullptr);
    ZEPH_ArrayFree(fresh, 0, 2);
  });
}

TEST(RawArrayResize, KeepsTheOldBlockWhenMemoryRunsOutAsReallocDoes) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException})
    ForEachElementType([how](auto zero) {
      using T = decltype(zero);
      T* old = Counting<T>(5);
      for (const bool resize : {true, false}) {
        SCOPED_TRACE(::testing::Message() << how << ", resize " << resize);
        const long live = LiveBlocks();
        T* fresh = nullptr;
        const long failures = FailEachAllocation(
            how, true,
            [&] {
              fresh = resize ? ZEPH_ArrayResize(old, 5, 9) : ZEPH_ArrayRealloc(old, 4, 8, kLabel);
            },
            [&](long) {
              EXPECT_EQ(fresh, nullptr);
              EXPECT_EQ(LiveBlocks(), live);
              ExpectKept(old, 5, 5);
            });
        EXPECT_EQ(failures, 1);
        EXPECT_EQ(LiveBlocks(), live);
        old = fresh;
      }
      ZEPH_ArrayFree(old, 0, 8);
    });
}
