#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "raw_buffers.h"
#include "raw_buffers/families.h"
#include "support/allocation.h"
#include "support/scale.h"

using namespace zeph::test;

namespace {

template <class T>
std::uintptr_t Moved(T* p, int elements) {
  return reinterpret_cast<std::uintptr_t>(p) +
         static_cast<std::uintptr_t>(std::intptr_t{elements}) * sizeof(T);
}
template <class T>
T* At(T* p, int i) {
  return reinterpret_cast<T*>(Moved(p, i));
}

struct Bounds {
  int nrl, nrh, ncl, nch;
  std::int64_t Rows() const { return std::int64_t{nrh} - nrl + 1; }
  std::int64_t Cols() const { return std::int64_t{nch} - ncl + 1; }
};
const Bounds kValid[] = {{0, 2, 0, 3},
                         {1, 3, 1, 3},
                         {1, 2, 0, 0},
                         {-2, 2, -1, 1},
                         {5, 5, 7, 7},
                         {INT_MAX - 1, INT_MAX, INT_MIN, INT_MIN + 2},
                         {INT_MIN, INT_MIN + 1, INT_MAX - 2, INT_MAX}};
const Bounds kRefused[] = {{2, 1, 0, 0},
                           {0, 0, 2, 1},
                           {0, -1, 0, -1},
                           {INT_MAX, INT_MIN, 0, 0},
                           {0, 0, INT_MAX, INT_MIN},
                           {INT_MIN, INT_MAX, 0, 0},
                           {0, 0, INT_MIN, INT_MAX},
                           {-1, INT_MAX, 0, 0},
                           {0, 0, 0, INT_MAX}};
struct Counts {
  int rows, cols;
};
const Counts kRefusedCounts[] = {{0, 5}, {5, 0}, {-1, 5}, {5, -1}, {0, 0}, {INT_MIN, INT_MIN}};

std::string Show(const char* family, Bounds b) {
  return std::string(family) + " " + std::to_string(b.nrl) + ".." + std::to_string(b.nrh) + " by " +
         std::to_string(b.ncl) + ".." + std::to_string(b.nch);
}

template <class T>
void ExpectZeroed(T** m, Bounds b) {
  for (std::int64_t i = b.nrl; i <= b.nrh; ++i)
    for (std::int64_t j = b.ncl; j <= b.nch; ++j)
      EXPECT_TRUE(*At(*At(m, static_cast<int>(i)), static_cast<int>(j)) == T(0)) << i << " " << j;
}

/// Rows last to first, then the pointer block: what a release of `blocks` (pointer block first)
/// leaves in the record.
void ExpectReleasedBackwards(const std::vector<AllocationEvent>& events,
                             const std::vector<void*>& blocks) {
  ASSERT_EQ(events.size(), blocks.size());
  for (std::size_t k = 0; k < blocks.size(); ++k) {
    EXPECT_EQ(events[k].kind, AllocationEvent::kDeleteArray) << "k " << k;
    EXPECT_EQ(events[k].block, k + 1 < blocks.size() ? blocks[blocks.size() - 1 - k] : blocks[0])
        << "k " << k;
  }
}

std::vector<void*> Blocks(const std::vector<AllocationEvent>& events) {
  std::vector<void*> blocks;
  for (const auto& event : events) blocks.push_back(event.block);
  return blocks;
}

}  // namespace

// 4 element types x 2 forms x 16 shapes: 128 cells, and as many again in the tests below.
TEST(RawMatrixAlloc, ReturnsZeroedCellsAndTheByteCountForEveryValidShape) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const Bounds b : kValid) {
      SCOPED_TRACE(Show(Family<T>::kName, b));
      T** m = Family<T>::Matrix(b.nrl, b.nrh, b.ncl, b.nch);
      ExpectZeroed(m, b);
      ZEPH_MatrixFree(m, b.nrl, b.nrh, b.ncl, b.nch);
      long bytes = -77;
      m = Family<T>::Matrix(b.nrl, b.nrh, b.ncl, b.nch, bytes);
      ExpectZeroed(m, b);
      EXPECT_EQ(bytes, b.Rows() * b.Cols() * static_cast<int>(sizeof(T)));
      ZEPH_MatrixFree(m, b.nrl, b.nrh, b.ncl, b.nch);
    }
  });
}

TEST(RawMatrixAlloc, CountFormHasRowsFromZero) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    long bytes = -77;
    T** m = Family<T>::Matrix(3, 4, bytes);
    ExpectZeroed(m, {0, 2, 0, 3});
    EXPECT_EQ(bytes, 12 * static_cast<int>(sizeof(T)));
    ZEPH_MatrixFree(m, 3, 4);
    m = Family<T>::Matrix(1, 1);
    ExpectZeroed(m, {0, 0, 0, 0});
    ZEPH_MatrixFree(m, 1, 1);
  });
}

TEST(RawMatrixAlloc, RefusesEmptyInvertedAndTooLargeShapesWithoutAllocating) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    const long before = AllocationCount();
    long bytes = -77;
    for (const Bounds b : kRefused) {
      EXPECT_EQ(Family<T>::Matrix(b.nrl, b.nrh, b.ncl, b.nch), nullptr);
      EXPECT_EQ(Family<T>::Matrix(b.nrl, b.nrh, b.ncl, b.nch, bytes), nullptr);
    }
    for (const Counts c : kRefusedCounts) {
      EXPECT_EQ(Family<T>::Matrix(c.rows, c.cols), nullptr);
      EXPECT_EQ(Family<T>::Matrix(c.rows, c.cols, bytes), nullptr);
    }
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(bytes, -77);
  });
}

TEST(RawMatrixAlloc, AllocatesThePointerBlockThenEachRowAndReleasesInReverse) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const Bounds b : kValid) {
      SCOPED_TRACE(Show(Family<T>::kName, b));
      std::vector<AllocationEvent> taken;
      T** m;
      {
        RecordAllocations record;
        m = Family<T>::Matrix(b.nrl, b.nrh, b.ncl, b.nch);
        taken = record.Events();
      }
      ASSERT_EQ(taken.size(), static_cast<std::size_t>(b.Rows()) + 1);
      EXPECT_EQ(taken[0].bytes, static_cast<std::size_t>(b.Rows()) * sizeof(T*));
      EXPECT_EQ(Moved(m, b.nrl), reinterpret_cast<std::uintptr_t>(taken[0].block));
      for (std::size_t i = 1; i < taken.size(); ++i) {
        EXPECT_EQ(taken[i].bytes, static_cast<std::size_t>(b.Cols()) * sizeof(T));
        EXPECT_EQ(Moved(static_cast<T**>(taken[0].block)[i - 1], b.ncl),
                  reinterpret_cast<std::uintptr_t>(taken[i].block));
      }
      const std::vector<void*> blocks = Blocks(taken);
      RecordAllocations record;
      ZEPH_MatrixFree(m, b.nrl, b.nrh, b.ncl, -12345);  // the last bound is not used
      ExpectReleasedBackwards(record.Events(), blocks);
    }
  });
}

TEST(RawMatrixFree, ReleasesTheCountFormInReverseAndSkipsNullRows) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T** m = Family<T>::Matrix(4, 2);
    std::vector<void*> blocks = {m, m[0], m[1], m[3]};
    delete[] m[2];
    m[2] = nullptr;
    RecordAllocations record;
    ZEPH_MatrixFree(m, 4, -12345);  // the columns are not used
    ExpectReleasedBackwards(record.Events(), blocks);
  });
}

TEST(RawMatrixFree, SkipsNullRowsAndNullBlocksOfTheRangeForm) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T** m = Family<T>::Matrix(1, 4, 1, 2);
    std::vector<void*> blocks = {m + 1, m[1] + 1, m[3] + 1};
    ZEPH_ArrayFree(m[2], 1, 2);
    m[2] = nullptr;
    ZEPH_ArrayFree(m[4], 1, 2);
    m[4] = At(static_cast<T*>(nullptr), -1);  // its block is null
    RecordAllocations record;
    ZEPH_MatrixFree(m, 1, 4, 1, 2);
    ExpectReleasedBackwards(record.Events(), blocks);
  });
}

TEST(RawMatrixFree, ReleasesOnlyThePointerBlockForAnEmptyRange) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const int rows : {0, -1, INT_MIN}) {
      T** m = Family<T>::Matrix(1, 3);
      ZEPH_ArrayFree(m[0], 0, 2);
      m[0] = nullptr;
      RecordAllocations record;
      ZEPH_MatrixFree(m, rows, 3);
      EXPECT_EQ(record.Events().size(), 1u) << "rows " << rows;
    }
    for (const int nrh : {0, -1, -5, INT_MIN}) {
      T** m = Family<T>::Matrix(1, 1, 1, 1);
      ZEPH_ArrayFree(m[1], 1, 1);
      RecordAllocations record;
      ZEPH_MatrixFree(m, 1, nrh, 1, 1);
      EXPECT_EQ(record.Events().size(), 1u) << "up to " << nrh;
    }
  });
}

TEST(RawMatrixFree, DoesNothingForNull) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T** null = nullptr;
    RecordAllocations record;
    ZEPH_MatrixFree(null, 0, 0);
    ZEPH_MatrixFree(null, 3, 3);
    ZEPH_MatrixFree(null, 0, -1, 0, -1);
    ZEPH_MatrixFree(null, 1, 3, 1, 3);
    ZEPH_MatrixFree(At(null, -1), 1, 0, 1, 3);  // the pointer block is null
    EXPECT_TRUE(record.Events().empty());
  });
}

TEST(RawMatrixAlloc, LeaksWhatItAllocatedWhenARowCannotBeAllocated) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  constexpr int kRows = 5;
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException})
    ForEachElementType([how](auto zero) {
      using T = decltype(zero);
      for (const bool range : {true, false})
        for (long k = 1; k <= kRows + 1; ++k) {
          SCOPED_TRACE(::testing::Message() << how << ", range " << range << ", k " << k);
          long bytes = -77;
          T** m = nullptr;
          const long live = LiveBlocks();
          long lost = 0;
          std::vector<AllocationEvent> events;
          {
            RecordAllocations record;
            FailAllocation failing(k, false, how);
            m = range ? Family<T>::Matrix(1, kRows, 1, 3, bytes)
                      : Family<T>::Matrix(kRows, 3, bytes);
            lost = LiveBlocks() - live;
            events = record.Events();
          }
          EXPECT_EQ(m, nullptr);
          EXPECT_EQ(bytes, -77);
          EXPECT_EQ(lost, k - 1);  // the pointer block and k - 2 rows
          EXPECT_TRUE(OfKind(events, AllocationEvent::kDeleteArray).empty());
          ASSERT_EQ(OfKind(events, AllocationEvent::kNewArray).size(), static_cast<std::size_t>(k));
          ReleaseLost(events);
        }
    });
}

#ifndef ZEPH_HARDENED  // which knows a block by its address
/// All rows are one block here.
TEST(RawMatrixAlloc, TheSizeOfTwoGigabytesWrapsToTheLeastInt) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  std::vector<double> row((1 << 20) + 1);
  const LendBlock lending(row.data());
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    if (!kFullScale && !std::is_same_v<T, double>) return;
    const int cols = 1 << 20, rows = (1 << 11) / static_cast<int>(sizeof(T));
    long bytes = -77;
    T** const m = Family<T>::Matrix(rows, cols, bytes);
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(bytes, INT_MIN);
    ZEPH_MatrixFree(m, rows, cols);
  });
}
#endif

TEST(RawMatrixAlloc, RequestsTheFullSizeOfLongRowsAndTables) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  if (sizeof(void*) < 8) GTEST_SKIP() << "needs a 64-bit address space";
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    RecordAllocations record;
    EXPECT_EQ(Family<T>::Matrix(1, 1, 1, INT_MAX), nullptr);  // 2^31 - 1 columns
    EXPECT_EQ(Family<T>::Matrix(INT_MAX, 1), nullptr);
    const auto events = record.Events();
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[1].bytes, std::size_t{INT_MAX} * sizeof(T));
    EXPECT_EQ(events[2].bytes, std::size_t{INT_MAX} * sizeof(T*));
    ::operator delete[](events[0].block);
  });
}
