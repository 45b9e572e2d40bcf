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

TEST(FatalReport, ComesBehindWhatTheCallerHadBuffered) {
  const std::string end = kLineEnd;
  ExpectEnd("array", 1, "printed, streamed, @@@@( Error: bad vector sizes" + end, "");
  ExpectEnd("matrix", 1,
            "printed, streamed, @@@@( Error: Bad matrix sizes in "
            "CZEPHDoubleMatrix::operator+=()" +
                end,
            "");
}

TEST(FatalCheck, WritesWhatTheCallerHadBuffered) {
  ExpectEnd("check", 1, "printed, streamed, ",
            std::string("Addition error (Not of the same size)") + kLineEnd);
}

TEST(FatalChild, EndsNormallyElsewhere) {
  ExpectEnd("nowhere", 0, "printed, streamed, after", "");
}
