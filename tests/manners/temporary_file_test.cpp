// The tests' own files: where they are, and that none remain.
#include "support/temporary_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#ifndef _WIN32
#include <unistd.h>
#endif

using zeph::test::ReadFile;
using zeph::test::TemporaryFile;

TEST(TemporaryFile, HoldsWhatIsWrittenToItsPath) {
  const TemporaryFile one, two;
  std::ofstream(one.Path()) << "one";
  std::ofstream(two.Path()) << "two";
  EXPECT_EQ(ReadFile(one.Path()), "one");
  EXPECT_EQ(ReadFile(two.Path()), "two");
  std::ofstream(one.Path()) << "1";
  EXPECT_EQ(ReadFile(one.Path()), "1");
}

TEST(TemporaryFile, IsRemovedWithItsObject) {
  std::string path;
  {
    const TemporaryFile file;
    path = file.Path();
    EXPECT_TRUE(std::ifstream(path).good());
  }
  EXPECT_FALSE(std::ifstream(path).good());
}

#ifdef __linux__
bool IsThereProc() {
  return access("/proc/self/fd", X_OK) == 0;
}

TEST(TemporaryFileDeathTest, IsRemovedWhenATestDies) {
  if (!IsThereProc())
    GTEST_SKIP() << "there is no /proc, through which a file without a name is opened";
  std::string folder = zeph::test::TemporaryFolder() + "/dies_XXXXXX";
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  const auto die = [&] {
    setenv("TMPDIR", folder.c_str(), 1);
    const TemporaryFile file;
    std::ofstream(file.Path()) << "something";
    std::_Exit(ReadFile(file.Path()) == "something" ? 9 : 0);  // no destructor runs
  };
  EXPECT_EXIT(die(), ::testing::ExitedWithCode(9), "");
  EXPECT_EQ(rmdir(folder.c_str()), 0) << folder << " is not empty";
}

TEST(TemporaryFileDeathTest, NamesTheFolderThatCannotBeWritten) {
  if (!IsThereProc()) GTEST_SKIP() << "there is no /proc, in which nobody may write";
  const auto create = [] {
    setenv("TMPDIR", "/proc", 1);
    const TemporaryFile file;
  };
  EXPECT_EXIT(create(), ::testing::ExitedWithCode(1),
              "The tests cannot write files in /proc: .*\nSet TMPDIR to a folder");
}
#endif
