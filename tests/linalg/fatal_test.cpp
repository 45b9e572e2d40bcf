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

TEST(DoubleMatrixFatal, BoundChecksEndTheirReportWithAnEmptyLine) {
  for (const char* site :
       {"check row -1", "check row 3", "check column -1", "check column 4", "check without storage",
        "entry row -1", "entry row 3", "entry column -1", "entry column 4", "entry cleared",
        "index -1", "index 3", "index without storage", "index with negative columns",
        "index with negative rows", "check with negative rows", "check with negative columns",
        "entry with negative rows", "entry with negative columns"})
    ExpectReport(site, "Matrix check bound error!\n");
}

TEST(DoubleMatrixFatal, AssignmentToASizedMatrixOfAnotherSizeEndsTheProcess) {
  for (const char* site :
       {"assign rows", "assign columns", "assign empty", "assign to negative rows",
        "assign to negative columns", "assign negative rows"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator=()");
}

TEST(DoubleMatrixFatal, SumsAndDifferencesOfDifferentSizesEndTheProcess) {
  for (const char* site : {"add to rows", "add to columns", "sum with cleared", "member sum"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()");
  for (const char* site : {"subtract from", "member difference"})
    ExpectReport(site, "bad matrix sizes");
  for (const char* site : {"free sum", "free difference"})
    ExpectReport(site, "Bad matrix sizes : operator-()");
}

TEST(DoubleMatrixFatal, ProductsThatDoNotConformEndTheProcess) {
  ExpectReport("member product", "Matrices are not conformable : CZEPHDoubleMatrix::operator*=()");
  ExpectReport("free product", "Matrices are not conformable : operator*=()");
  ExpectReport("times array", "matrix and vector sizes do not match");
}

TEST(DoubleMatrixFatal, AProductOfAnotherSizeThanItsTargetFailsInTheAssignment) {
  for (const char* site :
       {"product of another size", "free product of another size", "product of negative counts"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator=()");
}

TEST(DoubleMatrixFatal, TheReportGoesToTheGivenStream) {
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

TEST(DoubleMatrixFatal, DifferentSizesEndTheProcessWhicheverIsGreater) {
  for (const char* site :
       {"check far row", "check least row", "check far column", "check least column"})
    ExpectReport(site, "Matrix check bound error!\n");
  for (const char* site : {"assign fewer rows", "assign fewer columns"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator=()");
  for (const char* site : {"add fewer rows", "add fewer columns", "member sum of fewer rows"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()");
  for (const char* site : {"subtract more rows", "subtract fewer rows",
                           "member difference of fewer rows", "member difference of fewer columns"})
    ExpectReport(site, "bad matrix sizes");
  for (const char* site : {"free sum of more columns", "free sum of fewer rows",
                           "free difference of fewer rows", "free difference of more columns"})
    ExpectReport(site, "Bad matrix sizes : operator-()");
  ExpectReport("member product of more rows",
               "Matrices are not conformable : CZEPHDoubleMatrix::operator*=()");
  ExpectReport("free product of more rows", "Matrices are not conformable : operator*=()");
  ExpectReport("times longer array", "matrix and vector sizes do not match");
}

TEST(DoubleMatrixFatal, AnotherShapeOfAsManyElementsEndsTheProcess) {
  ExpectReport("assign another shape", "Bad matrix sizes in CZEPHDoubleMatrix::operator=()");
  for (const char* site : {"add another shape", "member sum of another shape"})
    ExpectReport(site, "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()");
  for (const char* site : {"subtract another shape", "member difference of another shape"})
    ExpectReport(site, "bad matrix sizes");
  for (const char* site : {"free sum of another shape", "free difference of another shape"})
    ExpectReport(site, "Bad matrix sizes : operator-()");
  ExpectReport("long product of negative counts",
               "Bad matrix sizes in CZEPHDoubleMatrix::operator=()");
}

TEST(MatrixFatal, DifferentSizesEndTheProcessWhicheverIsGreater) {
  ExpectCheck("matrix sum of another shape", "Addition error (Not of the same size)");
  for (const char* site :
       {"matrix sum of fewer rows", "matrix sum of fewer columns", "vector sum of fewer"})
    ExpectCheck(site, "Addition error (Not of the same size)");
  ExpectCheck("vector difference of more", "Subtraction error (Not of the same size)");
  ExpectCheck("matrix product of more rows", "Multiplication error!(size)");
}

TEST(DoubleMatrixFatal, AReportFromAStaticConstructorIsWritten) {
  const auto result = RunChild("zeph_linalg_early_child", {});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "List (first-->last): \n@@@@( Error: Matrix check bound error!\n\n");
}

TEST(EarlyListings, FromAStaticConstructorAreWritten) {
  const auto expect = [](const char* child, const char* text) {
    const auto result = RunChild(child, {});
    EXPECT_EQ(result.status, 0) << child;
    EXPECT_EQ(result.out, text) << child;
  };
  expect("zeph_linalg_early_link_child", "5 ");
  expect("zeph_linalg_early_vector_child", "      1.0000      2.0000\n");
  expect("zeph_linalg_early_matrix_child", "    1.0000     2.0000 \n");
}
