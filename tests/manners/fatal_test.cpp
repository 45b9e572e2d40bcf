// The operations that end the process lose nothing that the caller has written before.
#include <gtest/gtest.h>

#include "support/child.h"

using zeph::test::ReadFile;
using zeph::test::RunChild;
using zeph::test::TemporaryFile;

namespace {

void ExpectEnd(const char* site, int status, const std::string& out, const std::string& err) {
  const TemporaryFile file;
  const auto child = RunChild("zeph_manners_fatal_child", {site, file.Path()});
  EXPECT_EQ(child.status, status) << site;
  EXPECT_EQ(child.out, out) << site;
  EXPECT_EQ(child.err, err) << site;
  EXPECT_EQ(ReadFile(file.Path()), "in a file") << site;
}

constexpr char kLineEnd[] = "\n";

}  // namespace

TEST(FatalReport, FollowsTheCallersBufferedOutput) {
  const std::string end = kLineEnd;
  ExpectEnd("array", 1, "printed, streamed, @@@@( Error: bad vector sizes" + end, "");
  ExpectEnd("matrix", 1,
            "printed, streamed, @@@@( Error: Bad matrix sizes in "
            "CZEPHDoubleMatrix::operator+=()" +
                end,
            "");
}

TEST(FatalCheck, FlushesTheCallersBufferedOutput) {
  ExpectEnd("check", 1, "printed, streamed, ",
            std::string("Addition error (Not of the same size)") + kLineEnd);
}

/// A program may have its standard streams write anywhere.
TEST(FatalReport, GoesWhereTheProgramsStandardOutputGoes) {
  ExpectEnd("report elsewhere", 1, "printed, streamed, ",
            std::string("@@@@( Error: bad vector sizes") + kLineEnd);
}

TEST(FatalCheck, GoesWhereTheProgramsErrorStreamGoes) {
  ExpectEnd("check elsewhere", 1,
            std::string("printed, streamed, Addition error (Not of the same size)") + kLineEnd, "");
}

TEST(FatalChild, ExitsNormallyWithoutAnError) {
  ExpectEnd("nowhere", 0, "printed, streamed, after", "");
}

#ifdef __GLIBC__  // whose constructors are given the program's arguments
TEST(FatalReport, WorksBeforeTheStandardStreamsAreConstructed) {
  const auto report = RunChild("zeph_manners_early_child", {"report"});
  EXPECT_EQ(report.status, 1);
  EXPECT_EQ(report.out, "@@@@( Error: Vector check bound error!\n\n");
  const auto check = RunChild("zeph_manners_early_child", {"check"});
  EXPECT_EQ(check.status, 1);
  EXPECT_EQ(check.err, "Addition error (Not of the same size)\n");
  EXPECT_EQ(RunChild("zeph_manners_early_child", {"nothing"}).status, 7);
}

TEST(EarlyCalls, ComputeBeforeTheLibrarysInitialisersHaveRun) {
  EXPECT_EQ(RunChild("zeph_manners_early_child", {"compute"}).status, 8);
}
#endif
