// Every way in which the matrix and vector classes end the process.
#include <gtest/gtest.h>

#include "support/child.h"

using zeph::test::RunChild;

namespace {

/// Ends with status 1 and exactly these two outputs.
void ExpectEnd(const std::string& site, const std::string& out, const std::string& err) {
  const auto result = RunChild("zeph_linalg_fatal_child", {site});
  EXPECT_EQ(result.status, 1) << site;
  EXPECT_EQ(result.out, out) << site;
  EXPECT_EQ(result.err, err) << site;
}

void ExpectReport(const std::string& site, const std::string& message) {
  ExpectEnd(site, "@@@@( Error: " + message + "\n", "");
}

void ExpectCheck(const std::string& site, const std::string& message) {
  ExpectEnd(site, "", message + "\n");
}

}  // namespace

TEST(DoubleMatrixFatal, BoundChecksReportWithAnEmptyLine) {
  for (const char* site :
       {"check row -1", "check row 3", "check column -1", "check column 4", "check without storage",
        "entry row -1", "entry row 3", "entry column -1", "entry column 4", "entry cleared",
        "index -1", "index 3", "index without storage", "index with negative columns"})
    ExpectReport(site, "Matrix check bound error!\n");
}

TEST(DoubleMatrixFatal, AssignmentToASizedMatrixOfAnotherSize) {
  for (const char* site : {"assign rows", "assign columns", "assign empty"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator=()");
}

TEST(DoubleMatrixFatal, SumsAndDifferencesOfDifferentSizes) {
  for (const char* site : {"add to rows", "add to columns", "sum with cleared", "member sum"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()");
  for (const char* site : {"subtract from", "member difference"})
    ExpectReport(site, "bad matrix sizes");
  for (const char* site : {"free sum", "free difference"})
    ExpectReport(site, "Bad matrix sizes : operator-()");
}

TEST(DoubleMatrixFatal, ProductsThatDoNotConform) {
  ExpectReport("member product", "Matrices are not conformable : CZEPHDoubleMatrix::operator*=()");
  ExpectReport("free product", "Matrices are not conformable : operator*=()");
  ExpectReport("times array", "matrix and vector sizes do not match");
}

TEST(DoubleMatrixFatal, AProductOfAnotherSizeThanItsTargetEndsInTheAssignment) {
  for (const char* site :
       {"product of another size", "free product of another size", "product of negative counts"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator=()");
}

TEST(DoubleMatrixFatal, TheReportGoesToTheStreamThatIsNamed) {
  ExpectReport("report", "text");
  ExpectEnd("report to the error stream", "", "@@@@( Error: text\n");
}

TEST(MatrixFatal, ChecksWriteTheBareMessageToTheErrorStream) {
  for (const char* site : {"matrix sum rows", "matrix sum columns", "vector sum"})
    ExpectCheck(site, "Addition error (Not of the same size)");
  ExpectCheck("vector difference", "Subtraction error (Not of the same size)");
  ExpectCheck("matrix product", "Multiplication error!(size)");
  ExpectCheck("matrix check", "text");
  ExpectCheck("vector check", "text");
}

TEST(DoubleMatrixFatal, AReportFromAStaticObjectsConstructorIsWritten) {
  const auto result = RunChild("zeph_linalg_early_child", {});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "List (first-->last): \n@@@@( Error: Matrix check bound error!\n\n");
}
