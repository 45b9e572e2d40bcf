#include <gtest/gtest.h>

#include "linalg/matrices.h"
#include "support/allocation.h"

using namespace zeph::test;

TEST(MatrixArithmetic, AddsElementByElement) {
  for (int rows : {0, 1, 2, 9})
    for (int cols : {1, 3, 16, 33}) {
      const Rows x = AwkwardRows(rows, cols, 1), y = AwkwardRows(rows, cols, 2);
      CZEPHMatrix a = ToMatrix(x), b = ToMatrix(y);
      const auto add = [](double p, double q) { return q + p; };
      EXPECT_TRUE(SameValues(Elements(a + b), Zip(x, y, add)))
          << "rows " << rows << ", cols " << cols;
      EXPECT_TRUE(SameValues(Elements(a + a), Zip(x, x, add)))
          << "rows " << rows << ", cols " << cols;
      EXPECT_TRUE(SameBits(Elements(a), x)) << "rows " << rows << ", cols " << cols;
    }
}

TEST(MatrixProduct, AgreesWithTheTextbookLoop) {
  Random random(5);
  const auto check = [&](int rows, int inner, int cols, bool awkward) {
    const auto make = awkward ? AwkwardRows : ModerateRows;
    const Rows x = make(rows, inner, random.Next()), y = make(inner, cols, random.Next());
    const Rows want = oracle::DenseProduct(x, y, Count(rows), Count(inner), Count(cols));
    EXPECT_TRUE(SameValues(Elements(ToMatrix(x) * ToMatrix(y)), want))
        << rows << " x " << inner << " x " << cols;
  };
  for (int n = 1; n <= 40; ++n) check(n, n, n, n % 2 == 0);
  for (int sample = 0; sample < 300; ++sample)
    check(random.Int(1, 40), random.Int(1, 40), random.Int(1, 40), sample % 2 == 0);
  for (int size : {63, 101, 257, 299})
    check(size, random.Int(1, 300), random.Int(1, 300), size == 101);
}

TEST(MatrixProduct, KeepsTheBitsOfCancellationAndInfinities) {
  // 1e16 + 1 - 1e16 is 0 in this order; pairing the outer terms would give 1.
  const double row[] = {1e16, 1.0, -1e16}, ones[] = {1.0, 1.0, 1.0};
  EXPECT_SAME_BITS((CZEPHMatrix(1, 3, row) * CZEPHMatrix(3, 1, ones))[0][0], 0.0);
  // Fused arithmetic would leave a remainder here.
  const double x = 1.0 + 0x1p-30, factors[] = {x, -1.0};
  const double others[] = {x, 1.0 + 0x1p-29};
  EXPECT_SAME_BITS((CZEPHMatrix(1, 2, factors) * CZEPHMatrix(2, 1, others))[0][0], 0.0);
  const double huge[] = {1e308, -1e308}, tens[] = {10.0, 10.0};
  const double difference = (CZEPHMatrix(1, 2, huge) * CZEPHMatrix(2, 1, tens))[0][0];
  EXPECT_TRUE(difference != difference);
  const double minus[] = {-0.0}, one[] = {1.0};
  EXPECT_SAME_BITS((CZEPHMatrix(1, 1, minus) * CZEPHMatrix(1, 1, one))[0][0], 0.0);
}

TEST(MatrixProduct, OfEmptyMatricesIsEmpty) {
  CZEPHMatrix empty;
  EXPECT_EQ((empty * CZEPHMatrix()).m_ppData, nullptr);
  EXPECT_EQ((empty + CZEPHMatrix()).m_ppData, nullptr);
}

TEST(MatrixArithmetic, ResultsAllocateTheirTableAndRowsOnly) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHMatrix a = ToMatrix(ModerateRows(5, 3, 1)), b = ToMatrix(ModerateRows(5, 3, 2));
  CZEPHMatrix c = ToMatrix(ModerateRows(3, 4, 3));
  long before = AllocationCount();
  const CZEPHMatrix sum = a + b;
  EXPECT_EQ(AllocationCount() - before, 6);
  before = AllocationCount();
  const CZEPHMatrix product = a * c;
  EXPECT_EQ(AllocationCount() - before, 6);
}

TEST(MatrixCheck, DoesNothingForFalse) {
  char unseen[] = "unseen";
  CZEPHMatrix().Check(false, unseen);
  CZEPHVector().Check(false, unseen);
  CZEPHMatrix().Check(false, nullptr);
}
