// Loading, using and unloading the library leaves nothing behind in a process.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/child.h"
#include "support/scale.h"

#ifdef ZEPH_TEST_SHARED

using zeph::test::ChildResult;
using zeph::test::RunChild;

namespace {

ChildResult Load(const char* what) {
#ifdef __GLIBC__
  // Blocks that glibc keeps for a thread to use again would count as in use.
  setenv("GLIBC_TUNABLES", "glibc.malloc.tcache_count=0", 1);
#endif
  return RunChild("zeph_manners_loader", {ZEPH_TEST_PLUGIN, ZEPH_TEST_LIBRARY, what});
}

/// The text with plain line ends.
std::string Lines(std::string text) {
  for (std::size_t at; (at = text.find('\r')) != std::string::npos;) text.erase(at, 1);
  return text;
}

void ExpectNothingLeft(const char* what) {
  const ChildResult child = Load(what);
  EXPECT_EQ(child.status, 0) << child.err;
  EXPECT_EQ(Lines(child.out), "stayed 0, wrong 0, grew 0\n") << child.err;
}

}  // namespace

TEST(Unloading, TwoHundredTimesUnusedLeaksNothing) {
  ExpectNothingLeft("unused");
}

TEST(Unloading, TwoHundredTimesUsedInEveryPartLeaksNothing) {
  ExpectNothingLeft("used");
}

TEST(Unloading, TwoHundredTimesWithResultsKeptForTheThreadLeaksNothing) {
  ExpectNothingLeft("thread data");
}

TEST(Unloading, FortyTimesWithSleepingWorkersLeaksNothing) {
  ExpectNothingLeft("threads");
}

TEST(Unloading, AThreadThatUsedTheLibraryMayOutliveIt) {
  const ChildResult child = Load("outlived");
  EXPECT_EQ(child.status, 0) << child.err;
  EXPECT_EQ(Lines(child.out), "stayed 0\nthe thread has ended\n") << child.err;
}

TEST(Unloading, LeavesRoundingControlWordsAndLocaleAlone) {
  for (const char* rounding : {"nearest", "upward"}) {
    const ChildResult child = Load(rounding);
    EXPECT_EQ(child.status, 0) << child.err;
    EXPECT_EQ(Lines(child.out), "loading 0, using 0, unloading 0\n") << rounding << child.err;
  }
}

#else

TEST(Unloading, IsTestedWithTheSharedLibraryOnly) {
  GTEST_SKIP() << "the static library is part of its program";
}

#endif
