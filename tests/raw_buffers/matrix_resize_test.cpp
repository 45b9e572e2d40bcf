#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "raw_buffers.h"
#include "raw_buffers/families.h"
#include "support/allocation.h"

using namespace zeph::test;

namespace {

template <class T>
T Cell(int i, int j) {
  return static_cast<T>(100 * (i + 1) + j);
}

/// 0..rowHi by 0..colHi, every cell encoding its position.
template <class T>
T** Numbered(int rowHi, int colHi) {
  T** m = Family<T>::Matrix(0, rowHi, 0, colHi);
  for (int i = 0; i <= rowHi; ++i)
    for (int j = 0; j <= colHi; ++j) m[i][j] = Cell<T>(i, j);
  return m;
}

template <class T>
void ExpectKept(T** m, int keptRowHi, int keptColHi, int rowHi, int colHi) {
  for (int i = 0; i <= rowHi; ++i)
    for (int j = 0; j <= colHi; ++j) {
      const bool kept = i <= keptRowHi && j <= keptColHi;
      EXPECT_TRUE(m[i][j] == (kept ? Cell<T>(i, j) : T(0))) << i << " " << j;
    }
}

}  // namespace

TEST(RawMatrixResize, KeepsTheOldCellsAndZeroesTheOthers) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    SCOPED_TRACE(Family<T>::kName);
    for (const int newRowHi : {2, 3, 5, 9, 40})
      for (const int newColHi : {2, 3, 4, 5, 6, 7, 8, 20, 70}) {
        T** m = ZEPH_MatrixResize(Numbered<T>(2, 2), 2, 2, newRowHi, newColHi);
        ASSERT_NE(m, nullptr);
        ExpectKept(m, 2, 2, newRowHi, newColHi);
        ZEPH_MatrixFree(m, 0, newRowHi, 0, newColHi);
      }
  });
}

/// Neither bound stands for the other: as many rows as columns, more, and fewer.
TEST(RawMatrixResize, KeepsTheCellsOfOblongMatrices) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    for (const int rowHi : {0, 1, 4, 9})
      for (const int colHi : {0, 1, 3, 12})
        for (const int more : {0, 1, 5}) {
          T** m = ZEPH_MatrixResize(Numbered<T>(rowHi, colHi), rowHi, colHi, rowHi + more, colHi);
          ASSERT_NE(m, nullptr);
          ExpectKept(m, rowHi, colHi, rowHi + more, colHi);
          m = ZEPH_MatrixResize(m, rowHi + more, colHi, rowHi + more, colHi + 2);
          ASSERT_NE(m, nullptr);
          ExpectKept(m, rowHi, colHi, rowHi + more, colHi + 2);
          ZEPH_MatrixFree(m, rowHi + more + 1, colHi + 3);
        }
  });
}

TEST(RawMatrixResize, RefusesToShrinkOrBeEmptyAndLeavesTheOldMatrixAlone) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T** m = Numbered<T>(2, 2);
    {
      RecordAllocations record;
      EXPECT_EQ(ZEPH_MatrixResize(m, 2, 2, 1, 5), nullptr);
      EXPECT_EQ(ZEPH_MatrixResize(m, 2, 2, 5, 1), nullptr);
      EXPECT_EQ(ZEPH_MatrixResize(m, -2, -2, -1, -1), nullptr);
      EXPECT_EQ(ZEPH_MatrixResize(m, 2, 2, INT_MAX, 2), nullptr);  // 2^31 rows
      EXPECT_EQ(ZEPH_MatrixResize(m, 2, INT_MIN, 2, INT_MIN), nullptr);
      EXPECT_TRUE(record.Events().empty());
    }
    ExpectKept(m, 2, 2, 2, 2);
    ZEPH_MatrixFree(m, 0, 2, 0, 2);
  });
}

TEST(RawMatrixResize, BuildsTheNewMatrixThenReleasesTheOldOneInReverse) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T** old = Numbered<T>(1, 1);
    const std::vector<void*> released = {old[1], old[0], old};
    RecordAllocations record;
    T** m = ZEPH_MatrixResize(old, 1, 1, 2, 3);
    const auto events = record.Events();
    ASSERT_EQ(events.size(), 7u);
    EXPECT_EQ(events[0].bytes, 3 * sizeof(T*));
    for (std::size_t k = 0; k < 4; ++k)
      EXPECT_EQ(events[k].kind, AllocationEvent::kNewArray) << "k " << k;
    for (std::size_t k = 1; k < 4; ++k) EXPECT_EQ(events[k].bytes, 4 * sizeof(T)) << "k " << k;
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_EQ(events[4 + k].kind, AllocationEvent::kDeleteArray) << "k " << k;
      EXPECT_EQ(events[4 + k].block, released[k]) << "k " << k;
    }
    ZEPH_MatrixFree(m, 0, 2, 0, 3);
  });
}

TEST(RawMatrixResize, CopiesNothingForNegativeBoundsNullMatricesAndNullRows) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    T** m = ZEPH_MatrixResize(static_cast<T**>(nullptr), -1, -1, 1, 1);
    ExpectKept(m, -1, -1, 1, 1);
    m = ZEPH_MatrixResize(m, 1, INT_MIN, 2, 1);  // rows are released, cells are not copied
    ExpectKept(m, -1, -1, 2, 1);
    ZEPH_MatrixFree(m, 0, 2, 0, 1);
    m = ZEPH_MatrixResize(static_cast<T**>(nullptr), 1, 1, 2, 2);
    ExpectKept(m, -1, -1, 2, 2);
    ZEPH_MatrixFree(m, 0, 2, 0, 2);
    m = Numbered<T>(2, 2);
    ZEPH_ArrayFree(m[0], 0, 2);
    m[0] = nullptr;
    m = ZEPH_MatrixResize(m, 2, 2, 2, 2);
    for (int j = 0; j <= 2; ++j) {
      EXPECT_TRUE(m[0][j] == T(0)) << "j " << j;
      EXPECT_TRUE(m[1][j] == Cell<T>(1, j)) << "j " << j;
    }
    ZEPH_MatrixFree(m, 0, 2, 0, 2);
  });
}

TEST(RawMatrixResize, KeepsTheOldMatrixWhenAnyAllocationFails) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException})
    ForEachElementType([how](auto zero) {
      using T = decltype(zero);
      T** m = Numbered<T>(1, 1);
      for (long k = 1; k <= 4; ++k) {  // the pointer block and three rows
        const long live = LiveBlocks();
        long lost = 0;
        std::vector<AllocationEvent> events;
        {
          RecordAllocations record;
          FailAllocation failing(k, false, how);
          EXPECT_EQ(ZEPH_MatrixResize(m, 1, 1, 2, 2), nullptr) << how << ", k " << k;
          lost = LiveBlocks() - live;
          events = record.Events();
        }
        EXPECT_EQ(lost, k - 1) << how << ", k " << k;
        EXPECT_TRUE(OfKind(events, AllocationEvent::kDeleteArray).empty()) << how << ", k " << k;
        ReleaseLost(events);
        ExpectKept(m, 1, 1, 1, 1);
      }
      ZEPH_MatrixFree(m, 0, 1, 0, 1);
    });
}
