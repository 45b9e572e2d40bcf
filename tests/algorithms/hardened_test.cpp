#include <climits>

#include "algorithms.h"
#include "support/hardened.h"

TEST(HardenedAlgorithms, StopAtDivisionByZeroAndOverflow) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_MathIntegerDivision: b is 0", {
    int q, r;
    ZEPH_MathIntegerDivision(1, 0, q, r);
  });
  EXPECT_STOP("ZEPH_MathIntegerDivision: a is INT_MIN and b is -1: the quotient overflows", {
    int q, r;
    ZEPH_MathIntegerDivision(INT_MIN, -1, q, r);
  });
}

TEST(HardenedAlgorithms, AllowEverythingDocumented) {
  ZEPH_SKIP_UNLESS_HARDENED();
  {  // division
    int q, r;
    ZEPH_MathIntegerDivision(INT_MIN, 1, q, r);
    ZEPH_MathIntegerDivision(INT_MAX, -1, q, r);
  }
  {  // nulls
    CZEPHIntegralSearch::BinarySearch(nullptr, 0, 9, 1);
    CZEPHSelectionSort::Run(static_cast<int*>(nullptr), 3);
    CZEPHPermutation::Run(static_cast<int*>(nullptr), 0, 3, stdout);
    CZEPHSortTester::Randomize(static_cast<int*>(nullptr), 3, 0);
  }
}
