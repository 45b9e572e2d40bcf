// The state after memory runs out, at each allocation in turn.
#include <gtest/gtest.h>

#include <optional>

#include "linalg/matrices.h"
#include "support/allocation.h"
#include "support/child.h"

using namespace zeph::test;

namespace {

constexpr Failure kBoth[] = {Failure::kBadAlloc, Failure::kMemoryException};

/// `body` runs with each allocation failing and propagates the failure each time; it makes `count`
/// allocations and leaves no block behind.
template <class Body>
void ExpectEachFailurePasses(long count, Body body) {
  for (const Failure how : kBoth) {
    const long before = LiveBlocks();
    bool threw = false;
    const long runs = FailEachAllocation(
        how, false, [&] { threw = Throws(body); },
        [&](long k) {
          EXPECT_TRUE(threw) << k;
          EXPECT_EQ(LiveBlocks(), before) << k;
        });
    EXPECT_EQ(runs, count) << how;
    EXPECT_FALSE(threw) << how;
  }
}

}  // namespace

class LinalgAllocationFailure : public ::testing::Test {
 protected:
  void SetUp() override { ZEPH_NEEDS_LIBRARY_ALLOCATIONS(); }
};

TEST_F(LinalgAllocationFailure, DoubleMatrixCreationReturnsZeroSilentlyAndKeepsEarlierRows) {
  for (const Failure how : kBoth) {
    SCOPED_TRACE(::testing::Message() << how);
    CaptureStdout capture;
    const long before = LiveBlocks();
    std::optional<CZEPHDoubleMatrix> m;
    int answer = -1;
    const long runs = FailEachAllocation(
        how, false,
        [&] {
          m.reset();
          m.emplace();
          answer = m->SetData(4, 2, 1.0);
        },
        [&](long k) {
          EXPECT_EQ(answer, 0);
          EXPECT_EQ(m->m_nRows, 4);
          EXPECT_EQ(m->m_nColumns, 2);
          EXPECT_EQ(m->m_ppData == nullptr, k == 1);
          for (int i = 0; k > 1 && i < 4; ++i)
            EXPECT_EQ(m->m_ppData[i] != nullptr, i < k - 2) << "row " << i << " at " << k;
          m->SetEntry(2.0);  // the rows that exist
        });
    EXPECT_EQ(runs, 5);
    EXPECT_EQ(answer, 1);
    m.reset();
    EXPECT_EQ(LiveBlocks(), before);
    EXPECT_EQ(capture.Text(), "");
  }
}

TEST_F(LinalgAllocationFailure, DoubleMatrixOperatorsCarryOnWithoutStorage) {
  for (const Failure how : kBoth)
    for (const bool andAllAfter : {false, true}) {
      const Rows x = ModerateRows(3, 3, 1);
      CZEPHDoubleMatrix a = ToDoubleMatrix(x, 3, 3), b(3, 3, 2.0);
      const CZEPHDoubleMatrix& fixed = a;
      double* table[] = {b[0], b[1], b[2]};
      -a;  // allocates this thread's storage for results
      const auto all = [&](long k) {
        EXPECT_TRUE(SameBits(Elements(a), x)) << k;
        EXPECT_EQ(b.m_nRows, 3) << how << ", andAllAfter " << andAllAfter;
      };
      FailEachAllocation(
          how, andAllAfter, [&] { CZEPHDoubleMatrix c(fixed); }, all);
      FailEachAllocation(
          how, andAllAfter, [&] { CZEPHDoubleMatrix c(3, 3, table); }, all);
      FailEachAllocation(
          how, andAllAfter, [&] { a + b; }, all);
      FailEachAllocation(
          how, andAllAfter, [&] { fixed - b; }, all);
      FailEachAllocation(
          how, andAllAfter, [&] { -fixed; }, all);
      FailEachAllocation(
          how, andAllAfter, [&] { -a; }, all);
      FailEachAllocation(
          how, andAllAfter, [&] { a* CZEPHDoubleArray(3, 1.0); }, all);
      FailEachAllocation(
          how, andAllAfter, [&] { CZEPHDoubleMatrix c, d(c = a); }, all);
    }
}

TEST_F(LinalgAllocationFailure, AProductWithoutMemoryLeavesTheMatrixUnchanged) {
  for (const Failure how : kBoth) {
    const Rows x = ModerateRows(3, 3, 1);
    CZEPHDoubleMatrix a = ToDoubleMatrix(x, 3, 3), b(3, 3, 2.0);
    const long runs = FailEachAllocation(
        how, true, [&] { a *= b; }, [&](long k) { EXPECT_TRUE(SameBits(Elements(a), x)) << k; });
    EXPECT_GE(runs, 4) << how;
    EXPECT_FALSE(SameBits(Elements(a), x)) << how;
  }
}

TEST_F(LinalgAllocationFailure, SetDataThatFailsHasReleasedTheOldStorage) {
  const long before = LiveBlocks();
  {
    CZEPHDoubleMatrix m(3, 3, 1.0), source(5, 5, 2.0);
    FailAllocation failing(3);
    EXPECT_EQ(m.SetData(5, 5, source.m_ppData), 0);
    EXPECT_EQ(m.m_nRows, 5);
    EXPECT_NE(m.m_ppData[0], nullptr);
    EXPECT_EQ(m.m_ppData[1], nullptr);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST_F(LinalgAllocationFailure, GeneralConstructorsAndOperatorsPropagateItAndLeakNothing) {
  CZEPHMatrix a = ToMatrix(ModerateRows(3, 2, 1)), b = ToMatrix(ModerateRows(2, 4, 2));
  CZEPHVector v = ToVector({1, 2, 3});
  const std::vector<double> values = Moderate(6, 3);
  ExpectEachFailurePasses(4, [&] { CZEPHMatrix m(3, 2); });
  ExpectEachFailurePasses(4, [&] { CZEPHMatrix m(3, 2, values.data()); });
  ExpectEachFailurePasses(4, [&] { CZEPHMatrix m(a); });
  ExpectEachFailurePasses(4, [&] { a + a; });
  ExpectEachFailurePasses(4, [&] { a* b; });
  const CZEPHMatrix& same = a;
  ExpectEachFailurePasses(4, [&] { a = same; });  // the copy that is returned
  ExpectEachFailurePasses(1, [&] { a.PickCol(1); });
  ExpectEachFailurePasses(1, [&] { ZEPH_SumVector(a); });
  ExpectEachFailurePasses(1, [&] { CZEPHVector w(3); });
  ExpectEachFailurePasses(1, [&] { CZEPHVector w(v); });
  ExpectEachFailurePasses(1, [&] { v + v; });
  ExpectEachFailurePasses(1, [&] { v - v; });
  ExpectEachFailurePasses(1, [&] { v / 2.0; });
  ExpectEachFailurePasses(1, [&] { 2.0 * v; });
}

TEST_F(LinalgAllocationFailure, AResizeThatFailsLeavesAUsableObject) {
  for (const Failure how : kBoth)
    for (long k = 1; k <= 4; ++k) {
      SCOPED_TRACE(::testing::Message() << how << ", k " << k);
      const long before = LiveBlocks();
      {
        CZEPHMatrix m(2, 2), other(3, 2);
        {
          FailAllocation failing(k, false, how);
          EXPECT_TRUE(Throws([&] { m.ReSize(3, 2); }));
        }
        EXPECT_EQ(m.GetNoRow(), 3);
        EXPECT_EQ(m.GetNoColumn(), 2);
        for (int i = 0; i < 3; ++i)
          for (int j = 0; j < 2; ++j) other[i][j] = 7.0;
        const CZEPHMatrix sum = m + other, copy(m);
        EXPECT_EQ(sum[2][1], 0.0);
        EXPECT_EQ(copy[2][1], 0.0);
        EXPECT_EQ((m * ToMatrix({{1}, {1}}))[2][0], 0.0);
        m = other;
        m.ReSize(1, 1);
        m[0][0] = 1.0;

        CZEPHVector v(2);
        {
          FailAllocation failing(1, false, how);
          EXPECT_TRUE(Throws([&] { v.ReSize(3); }));
        }
        EXPECT_EQ(v.m_pData, nullptr);
        v.ReSize(1);
        v[0] = 1.0;
      }
      EXPECT_EQ(LiveBlocks(), before);
    }
}
