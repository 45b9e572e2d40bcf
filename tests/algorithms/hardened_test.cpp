#include "support/hardened.h"

using zeph::test::ExpectPasses;
using zeph::test::ExpectStops;

namespace {

const char kChild[] = "zeph_algorithms_hardened_child";

}  // namespace

TEST(HardenedAlgorithms, StopAtADivisionWithoutQuotient) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(
      kChild,
      {
          {"by zero", "ZEPH_MathIntegerDivision: b is 0"},
          {"no int", "ZEPH_MathIntegerDivision: a is INT_MIN and b is -1, the quotient no int"},
      });
}

TEST(HardenedAlgorithms, LetEverythingDocumentedPass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectPasses(kChild, {"division", "nulls"});
}
