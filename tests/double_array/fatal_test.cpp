#include <gtest/gtest.h>

#include "support/child.h"

using zeph::test::RunChild;

namespace {

/// The site ends its process by the fatal report with `message` on the standard output.
void ExpectFatal(const char* site, const std::string& message) {
  const auto child = RunChild("zeph_double_array_fatal_child", {site});
  EXPECT_EQ(child.status, 1) << site;
  EXPECT_EQ(child.out, "before\n@@@@( Error: " + message + "\n") << site;
  EXPECT_EQ(child.err, "") << site;
}

}  // namespace

TEST(DoubleArrayFatal, BoundChecksEndTheProcess) {
  for (const char* site : {"GetEntry above", "GetEntry below", "GetEntry without storage",
                           "CheckBound above", "CheckBound below", "CheckBound without storage",
                           "GetEntry of a negative count", "CheckBound of a negative count"})
    ExpectFatal(site, "Vector check bound error!\n");
}

TEST(DoubleArrayFatal, AssignmentOfAnotherSizeEndsTheProcess) {
  for (const char* site : {"assignment", "assignment of an empty array",
                           "assignment of a negative size", "assignment to a negative size"})
    ExpectFatal(site, "Bad vector sizes:CZEPHDoubleArray::operator=()");
}

TEST(DoubleArrayFatal, ArithmeticOnDifferentSizesEndsTheProcess) {
  ExpectFatal("+=", "bad vector sizes");
  ExpectFatal("+", "bad vector sizes");
  ExpectFatal("-=", "bad vtor sizes");
  ExpectFatal("-", "bad vtor sizes");
}

/// Whichever operand has no storage, or dies.
TEST(DoubleArrayFatal, ArithmeticOnDifferentSizesEndsTheProcessWithoutStorageToo) {
  for (const char* site : {"+= of none", "+= to none", "+ of none", "none +", "temporary +",
                           "+ temporary", "temporaries +", "temporary + none", "none + temporary"})
    ExpectFatal(site, "bad vector sizes");
  for (const char* site :
       {"-= of none", "-= to none", "- of none", "none -", "temporary -", "temporary - none"})
    ExpectFatal(site, "bad vtor sizes");
}

TEST(DoubleArrayFatal, TheReportPrintsItsMessageAsGiven) {
  ExpectFatal("ErrorMessage", "x");
  const auto child = RunChild("zeph_double_array_fatal_child", {"ErrorMessage elsewhere"});
  EXPECT_EQ(child.status, 1);
  EXPECT_EQ(child.out, "before\n");
  EXPECT_EQ(child.err, "@@@@( Error: a %d\n\n");
}

TEST(DoubleArrayFatal, TheChildExitsNormallyWithoutAnError) {
  const auto child = RunChild("zeph_double_array_fatal_child", {"nowhere"});
  EXPECT_EQ(child.status, 0);
  EXPECT_EQ(child.out, "before\nafter\n");
}
