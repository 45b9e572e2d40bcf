// Breaks one precondition, or keeps it, as the argument names.
#include "algorithms.h"

#include <climits>

#include "support/breach.h"

namespace {

const zeph::test::Breach kBreaches[] = {
    {"by zero",
     [] {
       int q, r;
       ZEPH_MathIntegerDivision(1, 0, q, r);
     }},
    {"no int",
     [] {
       int q, r;
       ZEPH_MathIntegerDivision(INT_MIN, -1, q, r);
     }},
    {"division",
     [] {
       int q, r;
       ZEPH_MathIntegerDivision(INT_MIN, 1, q, r);
       ZEPH_MathIntegerDivision(INT_MAX, -1, q, r);
     }},
    {"nulls",
     [] {
       CZEPHIntegralSearch::BinarySearch(nullptr, 0, 9, 1);
       CZEPHSelectionSort::Run(static_cast<int*>(nullptr), 3);
       CZEPHPermutation::Run(static_cast<int*>(nullptr), 0, 3, stdout);
       CZEPHSortTester::Randomize(static_cast<int*>(nullptr), 3, 0);
     }},
};

}  // namespace

int main(int argc, char** argv) {
  return zeph::test::MakeBreach(argc, argv, kBreaches);
}
