#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

#include "linalg/matrices.h"
#include "support/allocation.h"
#include "support/child.h"
#include "support/integers.h"
#include "support/other_bytes.h"

using namespace zeph::test;

namespace {

/// Reaches the protected storage operations.
struct Bare : CZEPHDoubleMatrix {
  using CZEPHDoubleMatrix::AllocMemory;
  using CZEPHDoubleMatrix::FreeMemory;
};

/// A 2 x 3 matrix of 1..6.
CZEPHDoubleMatrix OneToSix() {
  return ToDoubleMatrix({{1, 2, 3}, {4, 5, 6}}, 2, 3);
}

}  // namespace

TEST(DoubleMatrixStorage, HasItsThreeFieldsAndNothingElse) {
  EXPECT_EQ(sizeof(CZEPHDoubleMatrix), 2 * sizeof(int) + sizeof(double**));
  EXPECT_FALSE(std::is_polymorphic_v<CZEPHDoubleMatrix>);
  CZEPHDoubleMatrix m;
  EXPECT_EQ(static_cast<void*>(&m), &m.m_nRows);
  EXPECT_EQ(m.m_nRows, 0);
  EXPECT_EQ(m.m_nColumns, 0);
  EXPECT_EQ(m.m_ppData, nullptr);
}

TEST(DoubleMatrixStorage, StartsEmptyInDirtyMemory) {
  OverOtherBytes<CZEPHDoubleMatrix> m;
  EXPECT_EQ(m->m_nRows, 0);
  EXPECT_EQ(m->m_nColumns, 0);
  EXPECT_EQ(m->m_ppData, nullptr);
}

TEST(DoubleMatrixStorage, ConstructsEveryShapeFromEverySource) {
  for (int rows = 0; rows <= 6; ++rows)
    for (int cols = 0; cols <= 18; ++cols) {
      const Rows want = AwkwardRows(rows, cols, static_cast<std::uint64_t>(100 * rows + cols));
      std::vector<double*> table;
      Rows copies = want;
      for (auto& row : copies) table.push_back(row.data());
      CZEPHDoubleMatrix fromRows(rows, cols, table.data()), copy(fromRows), assigned;
      CZEPHDoubleMatrix set(std::min(rows, 1), 1, 7.0);  // a row past the new count would leak
      assigned = fromRows;
      EXPECT_EQ(set.SetData(fromRows), 1);
      CZEPHDoubleMatrix same(rows, cols, 3.0);
      same = fromRows;
      for (const CZEPHDoubleMatrix* m : {&fromRows, &copy, &assigned, &set, &same}) {
        EXPECT_EQ(m->m_nRows, rows);
        EXPECT_EQ(m->m_nColumns, cols);
        EXPECT_TRUE(SameBits(Elements(*m), want)) << rows << " x " << cols;
      }
      EXPECT_EQ(set.Create(rows, cols), 1);
      EXPECT_TRUE(
          SameBits(Elements(set), Rows(Count(rows), std::vector<double>(Count(cols), 0.0))));
      set.SetEntry(-0.0);
      EXPECT_TRUE(
          SameBits(Elements(set), Rows(Count(rows), std::vector<double>(Count(cols), -0.0))));
    }
}

TEST(DoubleMatrixStorage, GetNoRowsAndGetNoColumnsAreSwapped) {
  CZEPHDoubleMatrix m(2, 3, 0.0);
  EXPECT_EQ(m.GetNoRows(), 3);
  EXPECT_EQ(m.GetNoColumns(), 2);
  m.Clear();  // which keeps them
  EXPECT_EQ(m.GetNoRows(), 3);
  EXPECT_EQ(m.GetNoColumns(), 2);
  m.m_nRows = -7, m.m_nColumns = -9;
  EXPECT_EQ(m.GetNoRows(), -9);
  EXPECT_EQ(m.GetNoColumns(), -7);
}

TEST(DoubleMatrixStorage, ConstructorsFillOrCopyWithEveryBit) {
  EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(2, 2, -0.0)), {{-0.0, -0.0}, {-0.0, -0.0}}));
  Rows want = AwkwardRows(7, 5, 1);
  std::vector<double*> table;
  for (auto& row : want) table.push_back(row.data());
  CZEPHDoubleMatrix m(7, 5, table.data());
  EXPECT_TRUE(SameBits(Elements(m), want));
  CZEPHDoubleMatrix copy(m);
  EXPECT_TRUE(SameBits(Elements(copy), want));
  for (int i = 0; i < 7; ++i) EXPECT_NE(copy.m_ppData[i], m.m_ppData[i]) << "i " << i;
}

TEST(DoubleMatrixStorage, AcceptsIntegersAsValues) {
  EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(1, 2, 0)), {{0.0, 0.0}}));
  CZEPHDoubleMatrix m(1, 2, 7L);
  EXPECT_TRUE(SameBits(Elements(m), {{7.0, 7.0}}));
  EXPECT_EQ(m.SetData(1, 1, 0), 1);
  EXPECT_TRUE(SameBits(Elements(m), {{0.0}}));
}

TEST(DoubleMatrixStorage, AcceptsIntegersOfEveryType) {
  zeph::test::ForEachInteger([](auto value) {
    const double want = static_cast<double>(value);
    EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(1, 2, value)), {{want, want}}));
    CZEPHDoubleMatrix m;
    EXPECT_EQ(m.SetData(2, 1, value), 1);
    EXPECT_TRUE(SameBits(Elements(m), {{want}, {want}})) << want;
  });
}

TEST(DoubleMatrixStorage, CreateAndSetDataResizeAndReturnOne) {
  CZEPHDoubleMatrix m(1, 1, 9.0);
  EXPECT_EQ(m.Create(2, 2), 1);
  EXPECT_TRUE(SameBits(Elements(m), {{0.0, 0.0}, {0.0, 0.0}}));
  EXPECT_EQ(m.SetData(2, 1, 4.5), 1);
  EXPECT_TRUE(SameBits(Elements(m), {{4.5}, {4.5}}));
  EXPECT_EQ(m.SetData(OneToSix()), 1);
  EXPECT_TRUE(SameBits(Elements(m), {{1, 2, 3}, {4, 5, 6}}));
  m.SetEntry(-1.5);
  EXPECT_TRUE(SameBits(Elements(m), {{-1.5, -1.5, -1.5}, {-1.5, -1.5, -1.5}}));
}

TEST(DoubleMatrixStorage, SelfAssignmentOfAnEmptyMatrixAllocatesNothing) {
  CZEPHDoubleMatrix m;
  const CZEPHDoubleMatrix& same = m;
  m = same;
  EXPECT_EQ(m.m_ppData, nullptr);
}

TEST(DoubleMatrixStorage, SetDataFromItselfKeepsTheElements) {
  CZEPHDoubleMatrix m = OneToSix();
  EXPECT_EQ(m.SetData(m), 1);
  EXPECT_TRUE(SameBits(Elements(m), {{1, 2, 3}, {4, 5, 6}}));
  EXPECT_EQ(m.SetData(2, 2, m.m_ppData), 1);
  EXPECT_TRUE(SameBits(Elements(m), {{1, 2}, {4, 5}}));
}

TEST(DoubleMatrixStorage, SetDataFromItselfAllocatesForAClearedMatrix) {
  CZEPHDoubleMatrix m = OneToSix();
  m.Clear();
  EXPECT_EQ(m.SetData(m), 1);  // the elements are undefined
  ASSERT_NE(m.m_ppData, nullptr);
  m.SetEntry(2.5);
  EXPECT_TRUE(SameBits(Elements(m), {{2.5, 2.5, 2.5}, {2.5, 2.5, 2.5}}));
}

TEST(DoubleMatrixStorage, SetDataMayReadRowsOfTheMatrixItself) {
  CZEPHDoubleMatrix m = OneToSix();
  double* swapped[] = {m[1], m[0]};
  EXPECT_EQ(m.SetData(2, 3, swapped), 1);
  EXPECT_TRUE(SameBits(Elements(m), {{4, 5, 6}, {1, 2, 3}}));
}

/// Whether the first block that `body` asks for comes before the first one that it releases.
template <class Body>
bool AsksBeforeItReleases(Body body) {
  const RecordAllocations record;
  body();
  return record.Events().at(0).kind == AllocationEvent::kNewArray;
}

TEST(DoubleMatrixStorage, SetDataKeepsTheOldStorageOnlyWhileTheSourceReadsIt) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHDoubleMatrix other = OneToSix();
  CZEPHDoubleMatrix m = OneToSix();
  EXPECT_FALSE(AsksBeforeItReleases([&] { m.SetData(2, 3, other.m_ppData); }));
  EXPECT_TRUE(AsksBeforeItReleases([&] { m.SetData(2, 3, m.m_ppData); }));
  double* mixed[] = {other[1], m[0]};
  EXPECT_TRUE(AsksBeforeItReleases([&] { m.SetData(2, 3, mixed); }));
  EXPECT_TRUE(SameBits(Elements(m), {{4, 5, 6}, {1, 2, 3}}));
  double* inside[] = {other[1], m[0] + 1};
  EXPECT_TRUE(AsksBeforeItReleases([&] { m.SetData(2, 2, inside); }));
  EXPECT_TRUE(SameBits(Elements(m), {{4, 5}, {5, 6}}));
  double* const second = m[1];  // not released where one row remains
  double* past[] = {second};
  EXPECT_FALSE(AsksBeforeItReleases([&] { m.SetData(1, 2, past); }));
  EXPECT_TRUE(SameBits(Elements(m), {{5, 6}}));
  delete[] second;
}

TEST(DoubleMatrixStorage, SetDataMayReadItsOwnTableFromAnyRow) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (int first = 0; first < 4; ++first)
    for (int rows = 1; first + rows <= 4; ++rows) {
      CZEPHDoubleMatrix m = ToDoubleMatrix({{1, 2}, {3, 4}, {5, 6}, {7, 8}}, 4, 2);
      Rows want = Elements(m);
      want = Rows(want.begin() + first, want.begin() + first + rows);
      std::vector<double*> kept(m.m_ppData + rows, m.m_ppData + 4);  // past the new count
      EXPECT_TRUE(AsksBeforeItReleases([&] { m.SetData(rows, 2, m.m_ppData + first); }));
      EXPECT_TRUE(SameBits(Elements(m), want)) << first << ", " << rows;
      for (double* row : kept) delete[] row;
    }
}

TEST(DoubleMatrixStorage, SetDataMayReadAnyPartOfItsOwnRows) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (int held = 1; held <= 12; ++held)
    for (int cols = 1; cols <= held; ++cols)
      for (int from = 0; from + cols <= held; ++from)
        for (const int which : {0, 1, 2}) {
          const Rows rows = ModerateRows(3, held, 8);
          CZEPHDoubleMatrix m = ToDoubleMatrix(rows, 3, held);
          double other[12] = {};
          double* source[] = {other, other, other};
          source[which] = m[which] + from;
          EXPECT_TRUE(AsksBeforeItReleases([&] { m.SetData(3, cols, source); }));
          Rows want(3, std::vector<double>(Count(cols), 0.0));
          std::copy_n(rows[Count(which)].begin() + from, cols, want[Count(which)].begin());
          EXPECT_TRUE(SameBits(Elements(m), want)) << held << ", " << cols << " from " << from;
        }
}

TEST(DoubleMatrixStorage, SetDataReleasesTheOldStorageAfterReadingFromIt) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHDoubleMatrix m = OneToSix();
  const long before = LiveBlocks();
  double* swapped[] = {m[1], m[0]};
  EXPECT_EQ(m.SetData(2, 3, swapped), 1);
  EXPECT_EQ(m.SetData(2, 3, m.m_ppData), 1);
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(DoubleMatrixStorage, SetDataMayReadRowsOfTheMatrixItselfInAnyOrder) {
  constexpr int kRows = 40;
  for (int stride : {1, 3, 7, 39}) {
    CZEPHDoubleMatrix m(kRows, 2, 0.0);
    double* source[kRows];
    std::vector<std::vector<double>> want;
    for (int i = 0; i < kRows; ++i) std::swap(m.m_ppData[i], m.m_ppData[i * 11 % kRows]);
    for (int i = 0; i < kRows; ++i) m[i][0] = m[i][1] = i;
    for (int i = 0; i < kRows; ++i) {
      source[i] = m[i * stride % kRows];
      want.push_back({source[i][0], source[i][0]});
    }
    EXPECT_EQ(m.SetData(kRows, 2, source), 1) << "stride " << stride;
    EXPECT_TRUE(SameBits(Elements(m), want)) << stride;
  }
}

TEST(DoubleMatrixStorage, ReleaseKeepsTheCounts) {
  CZEPHDoubleMatrix m = OneToSix();
  m.Clear();
  EXPECT_EQ(m.m_nRows, 2);
  EXPECT_EQ(m.m_nColumns, 3);
  EXPECT_EQ(m.m_ppData, nullptr);
  m.Clear();
  Bare bare;
  EXPECT_EQ(bare.AllocMemory(2, 2), 1);
  bare.FreeMemory();
  EXPECT_EQ(bare.m_nRows, 2);
  EXPECT_EQ(bare.m_ppData, nullptr);
}

TEST(DoubleMatrixStorage, OperationsOnAClearedMatrixFindNoElement) {
  CZEPHDoubleMatrix m = OneToSix();
  m.Clear();
  m.SetEntry(1.0);
  m += CZEPHDoubleMatrix(2, 3, 1.0);
  EXPECT_EQ(m.m_ppData, nullptr);
  CZEPHDoubleMatrix other = OneToSix();
  other -= m;
  other = m;
  EXPECT_TRUE(SameBits(Elements(other), {{1, 2, 3}, {4, 5, 6}}));
  const Rows zeros = {{0, 0, 0}, {0, 0, 0}};
  EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(m)), zeros));
  EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(std::move(m))), zeros));
  EXPECT_TRUE(SameBits(Elements(m + other), zeros));
  EXPECT_TRUE(SameBits(Elements(-m), zeros));
  EXPECT_TRUE(SameBits(Elements(m * CZEPHDoubleArray(3, 1.0)), {0.0, 0.0}));
  CZEPHDoubleMatrix square(2, 2, 1.0);
  EXPECT_TRUE(SameBits(Elements(CZEPHDoubleMatrix(2, 3, nullptr)), zeros));
  m = other;
  EXPECT_TRUE(SameBits(Elements(m), {{1, 2, 3}, {4, 5, 6}}));
}

TEST(DoubleMatrixStorage, SetDataReadsNoRowAfterANullOne) {
  const double first[] = {1, 2}, third[] = {5, 6};
  double* source[] = {const_cast<double*>(first), nullptr, const_cast<double*>(third)};
  CZEPHDoubleMatrix m(3, 2, source);
  EXPECT_TRUE(SameBits(Elements(m), {{1, 2}, {0, 0}, {0, 0}}));
  CZEPHDoubleMatrix other(1, 1, 9.0);
  EXPECT_EQ(other.SetData(3, 2, source), 1);
  EXPECT_TRUE(SameBits(Elements(other), {{1, 2}, {0, 0}, {0, 0}}));
}

TEST(DoubleMatrixStorage, CopiesNeverShareARow) {
  CZEPHDoubleMatrix m = OneToSix(), assigned, set;
  CZEPHDoubleMatrix copy(m), same(2, 3, 0.0);
  assigned = m, same = m, set.SetData(m);
  m.SetEntry(9.0);
  for (const CZEPHDoubleMatrix* c : {&copy, &assigned, &set, &same})
    EXPECT_TRUE(SameBits(Elements(*c), {{1, 2, 3}, {4, 5, 6}}));
}

TEST(DoubleMatrixStorage, ACopyOfAnEmptyMatrixHasATableWithoutRows) {
  CZEPHDoubleMatrix empty, copy(empty);
  EXPECT_EQ(copy.m_nRows, 0);
  EXPECT_NE(copy.m_ppData, nullptr);
  EXPECT_EQ(copy.CheckBound(0, 0), 1);
}

TEST(DoubleMatrixStorage, MoveConstructionTakesTheRows) {
  CZEPHDoubleMatrix m = OneToSix();
  double* const row = m[0];
  const long before = AllocationCount();
  CZEPHDoubleMatrix moved(std::move(m));
  EXPECT_EQ(AllocationCount(), before);
  EXPECT_EQ(moved[0], row);
  EXPECT_EQ(m.m_nRows, 0);
  EXPECT_EQ(m.m_nColumns, 0);
  EXPECT_EQ(m.m_ppData, nullptr);
  EXPECT_EQ(moved.m_nRows, 2);
  EXPECT_EQ(moved.m_nColumns, 3);
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<CZEPHDoubleMatrix>);
}

TEST(DoubleMatrixStorage, BoundChecksAcceptAnIndexEqualToTheCount) {
  CZEPHDoubleMatrix m = OneToSix();
  EXPECT_EQ(m.CheckBound(0, 0), 1);
  EXPECT_EQ(m.CheckBound(2, 3), 1);
  EXPECT_EQ(m.GetEntry(1, 2), 6.0);
  // Elements past the counts exist here: two rows and three columns of a 3 x 4 block.
  CZEPHDoubleMatrix wide(3, 4, 8.0);
  wide.m_nRows = 2;
  wide.m_nColumns = 3;
  EXPECT_EQ(wide.GetEntry(2, 3), 8.0);
  EXPECT_EQ(wide[2], wide.m_ppData[2]);
  wide.m_nRows = 3;
}

TEST(DoubleMatrixStorage, AccessMovesEveryBit) {
  const std::vector<double>& special = SpecialValues<double>();
  const int count = static_cast<int>(special.size());
  const Rows rows(3, special);
  CZEPHDoubleMatrix m = ToDoubleMatrix(rows, 3, count);
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < count; ++j) {
      const double x = special[Count(j)];
      EXPECT_SAME_BITS(m.GetEntry(i, j), x);
      CZEPHDoubleMatrix filled(2, 3, x);
      EXPECT_TRUE(SameBits(Elements(filled), {{x, x, x}, {x, x, x}}));
      filled.SetEntry(0.0);
      filled.SetEntry(x);
      EXPECT_TRUE(SameBits(Elements(filled), {{x, x, x}, {x, x, x}}));
      EXPECT_EQ(filled.SetData(2, 1, x), 1);
      EXPECT_TRUE(SameBits(Elements(filled), {{x}, {x}}));
    }
}

TEST(DoubleMatrixStorage, ConstIndexingChecksNothingAndGivesWritableRows) {
  CZEPHDoubleMatrix m = OneToSix();
  m.m_nColumns = -1;
  const CZEPHDoubleMatrix& fixed = m;
  fixed[1][2] = 60.0;
  EXPECT_EQ(fixed[1][2], 60.0);
  m.m_nColumns = 3;
}

TEST(DoubleMatrixAssignment, SizesAnEmptyTargetAndKeepsTheRowsOfASizedOne) {
  CZEPHDoubleMatrix source(3, 3, 2.5), target;
  EXPECT_EQ(&(target = source), &target);
  EXPECT_TRUE(SameBits(Elements(target), Elements(source)));
  double* const row = target[1];
  target = CZEPHDoubleMatrix(3, 3, 7.5);
  EXPECT_EQ(target[1], row);
  EXPECT_EQ(target[2][2], 7.5);
  target = static_cast<const CZEPHDoubleMatrix&>(target);
  EXPECT_EQ(target[2][2], 7.5);
}

TEST(DoubleMatrixAssignment, ResizesATargetWithAZeroCount) {
  CZEPHDoubleMatrix none(0, 4, 1.0), flat(2, 0, 1.0);
  none = OneToSix();
  flat = OneToSix();
  EXPECT_TRUE(SameBits(Elements(none), {{1, 2, 3}, {4, 5, 6}}));
  EXPECT_TRUE(SameBits(Elements(flat), {{1, 2, 3}, {4, 5, 6}}));
}

TEST(DoubleMatrixAssignment, FromATemporaryCopiesIntoTheExistingRows) {
  // A move assignment would take over a temporary's rows.
  CZEPHDoubleMatrix target(1, 1, 0.0);
  double* const row = target[0];
  CZEPHDoubleMatrix source(1, 1, 3.0);
  target = std::move(source);
  EXPECT_EQ(target[0], row);
  EXPECT_EQ(source[0][0], 3.0);
}

TEST(DoubleMatrixAllocMemory, ReleasesTheFirstRowsOnlyAndNoneBeyondTheOldTable) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  double* left[2];
  {
    Bare m;
    ASSERT_EQ(m.AllocMemory(4, 2), 1);
    left[0] = m.m_ppData[2];
    left[1] = m.m_ppData[3];
    const long before = LiveBlocks();
    ASSERT_EQ(m.AllocMemory(2, 2), 1);  // rows 2 and 3 of the old table are not released
    EXPECT_EQ(LiveBlocks(), before);    // 1 + 2 released, 1 + 2 new
    left[0][0] = left[1][1] = 1.0;      // and they are still live
    ASSERT_EQ(m.AllocMemory(6, 2), 1);  // two old rows, not six
    EXPECT_EQ(LiveBlocks(), before + 4);
  }
  delete[] left[0];
  delete[] left[1];
}

TEST(DoubleMatrixAllocMemory, AllocatesTheTableFirstAndThenEachRow) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  RecordAllocations record;
  CZEPHDoubleMatrix m(3, 5, 1.0);
  const auto events = record.Events();
  ASSERT_EQ(events.size(), 4u);
  EXPECT_EQ(events[0].bytes, 3 * sizeof(double*));
  for (std::size_t i = 1; i < 4; ++i) {
    EXPECT_EQ(events[i].kind, AllocationEvent::kNewArray) << "i " << i;
    EXPECT_EQ(events[i].bytes, 5 * sizeof(double)) << "i " << i;
    EXPECT_EQ(events[i].block, m.m_ppData[i - 1]) << "i " << i;
  }
}

TEST(DoubleMatrixAllocMemory, RefusesNegativeCountsSilentlyAndKeepsThem) {
  CaptureStdout capture;
  CZEPHDoubleMatrix m;
  EXPECT_EQ(m.Create(-1, 2), 0);
  EXPECT_EQ(m.m_nRows, -1);
  EXPECT_EQ(m.m_nColumns, 2);
  EXPECT_EQ(m.m_ppData, nullptr);
  EXPECT_EQ(m.Create(2, -1), 0);
  EXPECT_EQ(m.m_nColumns, -1);
  ASSERT_NE(m.m_ppData, nullptr);
  EXPECT_EQ(m.m_ppData[0], nullptr);
  CZEPHDoubleMatrix lowest(std::numeric_limits<int>::min(), 1, 1.0);
  EXPECT_EQ(lowest.m_ppData, nullptr);
  EXPECT_EQ(capture.Text(), "");
}

TEST(DoubleMatrixAllocMemory, ANegativeCountReleasesWhatWasHeld) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  double value = 5.0;
  double* source[] = {&value, &value};
  const std::function<int(Bare&, int, int)> calls[] = {
      [](Bare& m, int rows, int cols) { return m.Create(rows, cols); },
      [](Bare& m, int rows, int cols) { return m.SetData(rows, cols, 1.0); },
      [&](Bare& m, int rows, int cols) { return m.SetData(rows, cols, source); },
      [](Bare& m, int rows, int cols) { return m.AllocMemory(rows, cols); }};
  for (const auto& call : calls) {
    Bare rows, columns;
    ASSERT_EQ(rows.AllocMemory(2, 1), 1);
    ASSERT_EQ(columns.AllocMemory(2, 1), 1);
    double* const kept[] = {rows.m_ppData[0], rows.m_ppData[1]};
    EXPECT_EQ(call(rows, -1, 1), 0);
    EXPECT_EQ(rows.m_ppData, nullptr);
    EXPECT_EQ(rows.m_nRows, -1);
    for (double* row : kept) delete[] row;  // past the new count
    const long live = LiveBlocks();
    EXPECT_EQ(call(columns, 2, -1), 0);
    EXPECT_EQ(LiveBlocks(), live - 2);  // the new table, for the old one with its rows
    ASSERT_NE(columns.m_ppData, nullptr);
    EXPECT_EQ(columns.m_ppData[0], nullptr);
    EXPECT_EQ(columns.m_ppData[1], nullptr);
    EXPECT_EQ(columns.m_nColumns, -1);
  }
}

TEST(DoubleMatrixAllocMemory, AllocatesAnewForTheSameSizeToo) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHDoubleMatrix m = OneToSix(), other = OneToSix();
  const auto asked = [](auto call) {
    const long before = AllocationCount();
    EXPECT_EQ(call(), 1);
    return AllocationCount() - before;
  };
  EXPECT_EQ(asked([&] { return m.Create(2, 3); }), 3);
  EXPECT_EQ(asked([&] { return m.SetData(2, 3, 5.0); }), 3);
  EXPECT_EQ(asked([&] { return m.SetData(2, 3, other.m_ppData); }), 3);
  EXPECT_EQ(asked([&] { return m.SetData(other); }), 3);
  EXPECT_TRUE(SameBits(Elements(m), Elements(other)));
}
