#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

#include "linalg/matrices.h"
#include "support/allocation.h"
#include "support/other_bytes.h"

using namespace zeph::test;

namespace {

const double kOneToSix[] = {1, 2, 3, 4, 5, 6};

/// Reaches the protected creation.
struct Bare : CZEPHMatrix {
  using CZEPHMatrix::Create;
};

CZEPHMatrix ALocal() {
  CZEPHMatrix m(1, 3, kOneToSix);
  return m;
}

void ExpectEmpty(const CZEPHMatrix& m) {
  EXPECT_EQ(m.GetNoRow(), 0);
  EXPECT_EQ(m.GetNoColumn(), 0);
  EXPECT_EQ(m.m_ppData, nullptr);
}

}  // namespace

TEST(MatrixStorage, HasTheLayoutOfTheDoubleMatrix) {
  EXPECT_EQ(sizeof(CZEPHMatrix), sizeof(CZEPHDoubleMatrix));
  EXPECT_FALSE(std::is_polymorphic_v<CZEPHMatrix>);
  CZEPHMatrix m(2, 3, kOneToSix);
  EXPECT_EQ(static_cast<void*>(&m), &m.m_nRows);
  EXPECT_EQ(&m.m_nRows + 1, &m.m_nColumns);
  EXPECT_EQ(m.GetNoRow(), 2);
  EXPECT_EQ(m.GetNoColumn(), 3);
  EXPECT_EQ(m[1], m.m_ppData[1]);
  EXPECT_EQ(m[1][2], 6.0);
}

TEST(MatrixStorage, AnyCountBelowOneMakesItEmpty) {
  ExpectEmpty(CZEPHMatrix());
  ExpectEmpty(CZEPHMatrix(0, 5));
  ExpectEmpty(CZEPHMatrix(-1, 3));
  ExpectEmpty(CZEPHMatrix(3, -1));
  ExpectEmpty(CZEPHMatrix(0, 2, kOneToSix));
  CZEPHMatrix m(2, 3, kOneToSix);
  m.ReSize(4, 0);
  ExpectEmpty(m);
}

TEST(MatrixStorage, CopiesARowMajorBlockWithEveryBit) {
  const std::vector<double> values = Awkward(35, 1);
  CZEPHMatrix m(5, 7, values.data());
  for (std::size_t i = 0; i < 5; ++i)
    EXPECT_TRUE(SameBits(m[static_cast<int>(i)], values.data() + 7 * i, 7)) << "i " << i;
  CZEPHMatrix copy(m);
  EXPECT_TRUE(SameBits(Elements(copy), Elements(m)));
  EXPECT_NE(copy[0], m[0]);
  const CZEPHMatrix& fixed = m;
  const CZEPHMatrix ofConst(fixed);
  EXPECT_TRUE(SameBits(Elements(ofConst), Elements(m)));
  EXPECT_EQ(ofConst[4], ofConst.m_ppData[4]);
}

TEST(MatrixStorage, StartsEmptyInDirtyMemory) {
  OverOtherBytes<CZEPHMatrix> m;
  ExpectEmpty(*m);
}

TEST(MatrixStorage, ConstructsEveryShapeFromEverySource) {
  for (int rows = 1; rows <= 6; ++rows)
    for (int cols = 1; cols <= 18; ++cols) {
      const auto n = static_cast<std::size_t>(rows * cols);
      const std::vector<double> values = Awkward(n, n);
      Rows want;
      for (auto at = values.begin(); at != values.end(); at += cols)
        want.emplace_back(at, at + cols);
      CZEPHMatrix m(rows, cols, values.data()), copy(m), assigned, same(rows, cols);
      const CZEPHMatrix& fixed = m;
      const CZEPHMatrix ofConst(fixed);
      assigned = fixed, same = fixed;
      for (const CZEPHMatrix* each :
           {&fixed, &ofConst, const_cast<const CZEPHMatrix*>(&copy),
            const_cast<const CZEPHMatrix*>(&assigned), const_cast<const CZEPHMatrix*>(&same)}) {
        EXPECT_EQ(each->GetNoRow(), rows);
        EXPECT_EQ(each->GetNoColumn(), cols);
        EXPECT_TRUE(SameBits(Elements(*each), want)) << rows << " x " << cols;
      }
      m[0][0] = 77.0;
      EXPECT_TRUE(SameBits(Elements(copy), want));
      EXPECT_TRUE(SameBits(Elements(assigned), want));
    }
}

TEST(MatrixStorage, ReleasesTheOldRowsAtEverySize) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const long before = LiveBlocks();
  {
    CZEPHMatrix m(4, 2), other(2, 5);
    for (int i = 0; i < 2; ++i)
      for (int j = 0; j < 5; ++j) other[i][j] = i - j;
    m.ReSize(2, 2);
    EXPECT_EQ(LiveBlocks() - before, 3 + 3);
    m = other;
    EXPECT_EQ(LiveBlocks() - before, 3 + 3);
    m.ReSize(0, 1);
    EXPECT_EQ(LiveBlocks() - before, 3);
    m.ReSize(6, 1);
    EXPECT_EQ(LiveBlocks() - before, 3 + 7);
    m.Free();
    EXPECT_EQ(LiveBlocks() - before, 3);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(MatrixStorage, ReSizeSetsTheNewCounts) {
  CZEPHMatrix m(2, 3, kOneToSix);
  m.ReSize(3, 2);
  EXPECT_EQ(m.GetNoRow(), 3);
  EXPECT_EQ(m.GetNoColumn(), 2);
  for (int i = 0; i < 3; ++i) m[i][1] = i;
  Bare bare;
  bare.Create(1, 1);
  EXPECT_EQ(bare.GetNoRow(), 1);
}

TEST(MatrixStorage, ReSizeReplacesTheRowsEvenForTheSameSize) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHMatrix m(2, 3, kOneToSix);
  m.ReSize(3, 2);
  const long before = AllocationCount();
  m.ReSize(3, 2);
  EXPECT_EQ(AllocationCount(), before + 4);
}

TEST(MatrixStorage, FreeKeepsTheCounts) {
  CZEPHMatrix m(2, 3, kOneToSix);
  m.Free();
  m.Free();
  EXPECT_EQ(m.GetNoRow(), 2);
  EXPECT_EQ(m.GetNoColumn(), 3);
  EXPECT_EQ(m.m_ppData, nullptr);
}

TEST(MatrixStorage, OperationsOnAFreedMatrixFindNoElement) {
  CZEPHMatrix freed(2, 3, kOneToSix), full(2, 3, kOneToSix);
  freed.Free();
  const Rows zeros = {{0, 0, 0}, {0, 0, 0}};
  EXPECT_TRUE(SameBits(Elements(CZEPHMatrix(freed)), zeros));
  EXPECT_TRUE(SameBits(Elements(freed + full), zeros));
  EXPECT_TRUE(SameBits(Elements(full + freed), zeros));
  EXPECT_TRUE(SameBits(Elements(freed * CZEPHMatrix(3, 1, kOneToSix)), {{0}, {0}}));
  EXPECT_TRUE(SameBits(Elements(freed.PickCol(1)), {0, 0}));
  EXPECT_TRUE(SameBits(Elements(ZEPH_SumVector(freed)), {0, 0}));
  EXPECT_TRUE(SameBits(Elements(CZEPHMatrix(2, 3, nullptr)), zeros));
  ZEPH_RandomizeMatrix(freed, 1.0);
  CZEPHVector column(2, kOneToSix);
  freed.SetCol(0, column);
  freed = full;
  EXPECT_EQ(freed.m_ppData, nullptr);  // same size: no storage is allocated
  full = freed;
  EXPECT_TRUE(SameBits(Elements(full), {{1, 2, 3}, {4, 5, 6}}));
  CZEPHMatrix other(1, 1, kOneToSix);
  other = freed;
  EXPECT_TRUE(SameBits(Elements(other), zeros));
}

TEST(MatrixStorage, ReturnsAndMovesWithoutCopying) {
  CZEPHMatrix m = ALocal();
  double* const row = m[0];
  const long before = AllocationCount();
  CZEPHMatrix moved(std::move(m));
  EXPECT_EQ(AllocationCount(), before);
  EXPECT_EQ(moved[0], row);
  ExpectEmpty(m);
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<CZEPHMatrix>);
  std::vector<CZEPHMatrix> many;
  for (int i = 0; i < 5; ++i) many.push_back(moved);
  EXPECT_EQ(many[4][0][2], 3.0);
}

TEST(MatrixAssignment, ResizesTheTargetAndReturnsACopy) {
  const double values[] = {1, 2, 3, 4};
  CZEPHMatrix target(3, 3), source(2, 2, values);
  CZEPHMatrix result = (target = source);
  for (const CZEPHMatrix* m : {&target, &result})
    EXPECT_TRUE(SameBits(Elements(*m), {{1, 2}, {3, 4}}));
  EXPECT_NE(result[0], target[0]);
  (target = source)[0][0] = 99;
  EXPECT_EQ(target[0][0], 1.0);
  target = CZEPHMatrix();
  ExpectEmpty(target);
}

TEST(MatrixAssignment, KeepsTheRowsWhereTheSizeIsTheSame) {
  CZEPHMatrix target(2, 3, kOneToSix), source(2, 3);
  for (int i = 0; i < 2; ++i)
    for (int j = 0; j < 3; ++j) source[i][j] = -i - j;
  double* const row = target[1];
  target = source;
  EXPECT_EQ(target[1], row);
  EXPECT_EQ(target[1][2], -3.0);
  const CZEPHMatrix& same = target;
  target = same;
  EXPECT_EQ(target[1], row);
  EXPECT_EQ(target[1][2], -3.0);
}

TEST(MatrixAssignment, ResizesWhereOnlyTheColumnsDiffer) {
  CZEPHMatrix target = ToMatrix({{1, 2, 3}, {4, 5, 6}});
  const CZEPHMatrix source = ToMatrix({{7, 8}, {9, 10}});
  target = source;
  EXPECT_EQ(target.m_nColumns, 2);
  EXPECT_EQ(Elements(target), (Rows{{7, 8}, {9, 10}}));
}

TEST(MatrixAssignment, ResizesBetweenAnyTwoShapes) {
  for (int rows = 0; rows <= 4; ++rows)
    for (int cols = 1; cols <= 4; ++cols)
      for (int newRows = 0; newRows <= 4; ++newRows)
        for (int newCols = 1; newCols <= 4; ++newCols) {
          CZEPHMatrix target = ToMatrix(ModerateRows(rows, cols, 1));
          const Rows want = ModerateRows(newRows, newCols, 2);
          const CZEPHMatrix source = ToMatrix(want);
          const CZEPHMatrix result = target = source;
          EXPECT_EQ(target.GetNoRow(), source.GetNoRow());
          EXPECT_EQ(target.GetNoColumn(), source.GetNoColumn());
          EXPECT_EQ(Elements(target), Elements(source));
          EXPECT_EQ(Elements(result), Elements(source));
        }
}

namespace {

enum class State { kEmpty, kStored, kOtherSize, kReleased };
constexpr State kStates[] = {State::kEmpty, State::kStored, State::kOtherSize, State::kReleased};

CZEPHMatrix MatrixIn(State state, double first) {
  CZEPHMatrix m;
  if (state != State::kEmpty) m = ToMatrix({{first, 2, 3}, {4, 5, 6}});
  if (state == State::kOtherSize) m = ToMatrix({{first}, {7}});
  if (state == State::kReleased) m.Free();
  return m;
}
CZEPHVector VectorIn(State state, double first) {
  CZEPHVector v;
  if (state != State::kEmpty) v = ToVector({first, 2, 3});
  if (state == State::kOtherSize) v = ToVector({first});
  if (state == State::kReleased) v.Free();
  return v;
}

}  // namespace

// The copy is one of the target, which a released target of the same size makes visible.
TEST(MatrixAssignment, ReturnsWhatACopyOfTheTargetHolds) {
  for (const State from : kStates)
    for (const State to : kStates) {
      SCOPED_TRACE(::testing::Message() << static_cast<int>(from) << static_cast<int>(to));
      CZEPHMatrix m = MatrixIn(to, 1);
      const CZEPHMatrix returned = m = MatrixIn(from, 10);
      const CZEPHMatrix copy(m);
      EXPECT_EQ(returned.m_nRows, copy.m_nRows);
      EXPECT_EQ(returned.m_nColumns, copy.m_nColumns);
      EXPECT_TRUE(SameBits(Elements(returned), Elements(copy)));
      CZEPHVector v = VectorIn(to, 1);
      const CZEPHVector result = v = VectorIn(from, 10);
      const CZEPHVector same(v);
      EXPECT_EQ(result.m_nSize, same.m_nSize);
      EXPECT_TRUE(SameBits(Elements(result), Elements(same)));
    }
}
