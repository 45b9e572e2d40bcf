#include <climits>
#include <cstdint>

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
    for (const int a : {INT_MIN, INT_MIN + 1, -1, 0, 1, INT_MAX})
      for (const int b : {INT_MIN, -2, -1, 1, 2, INT_MAX}) {
        if (a == INT_MIN && b == -1) continue;  // the one quotient that is not an int
        int q = 0, r = 0;
        ZEPH_MathIntegerDivision(a, b, q, r);
        EXPECT_EQ(std::int64_t{q} * b + r, a) << a << " / " << b;
      }
  }
  {  // nulls
    CZEPHIntegralSearch::BinarySearch(nullptr, 0, 9, 1);
    CZEPHSelectionSort::Run(static_cast<int*>(nullptr), 3);
    CZEPHPermutation::Run(static_cast<int*>(nullptr), 0, 3, stdout);
    CZEPHSortTester::Randomize(static_cast<int*>(nullptr), 3, 0);
  }
}
