// A standard output that is closed or full: reports and listings neither crash nor hang, and the
// caller can see the error.
#if defined(__linux__)
#include <gtest/gtest.h>

#include "support/child.h"

namespace {

int StatusOf(const char* output, const char* writer) {
  return zeph::test::RunChild("zeph_manners_sink_child", {output, writer}).status;
}

TEST(FullSink, FatalReportsStillEndTheProcess) {
  for (const char* output : {"full", "closed"})
    for (const char* writer : {"array", "bound", "matrix", "check"})
      EXPECT_EQ(1, StatusOf(output, writer)) << output << ' ' << writer;
}

TEST(FullSink, ListingsSetTheStreamsErrorFlag) {
  for (const char* output : {"full", "closed"}) {
    for (const char* writer : {"listing", "orderings", "report"})
      EXPECT_EQ(3, StatusOf(output, writer)) << output << ' ' << writer;
    EXPECT_EQ(4, StatusOf(output, "stack")) << output;
  }
}

}  // namespace
#endif
