// The number of usable processors, by affinity and by the control groups' files.
#include "platform/processors.h"

#include <gtest/gtest.h>

#ifdef __linux__

#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "parallel.h"

namespace zeph::platform {
namespace {

namespace fs = std::filesystem;

/// A folder that looks like /sys/fs/cgroup, and the file that names a process's groups.
class Groups : public ::testing::Test {
 protected:
  Groups() {
    char name[] = "/tmp/zeph-groups-XXXXXX";
    root_ = mkdtemp(name);
  }
  ~Groups() override { fs::remove_all(root_); }

  void Write(const std::string& file, const std::string& text) const {
    fs::create_directories((root_ / file).parent_path());
    std::ofstream(root_ / file) << text;
  }
  int Processors(const std::string& membership) const {
    Write("membership", membership);
    return ProcessorsPaidFor(root_.c_str(), (root_ / "membership").c_str());
  }

 private:
  fs::path root_;
};

TEST_F(Groups, VersionTwoGivesQuotaAndPeriod) {
  Write("cpu.max", "max 100000\n");
  Write("a/cpu.max", "400000 100000\n");
  Write("a/b/cpu.max", "250000 100000\n");
  EXPECT_EQ(Processors("0::/\n"), 0);
  EXPECT_EQ(Processors("0::/a\n"), 4);
  EXPECT_EQ(Processors("0::/a/b\n"), 3) << "two and a half are rounded up";
}

TEST_F(Groups, TheStrictestOfTheGroupsAboveHolds) {
  Write("a/cpu.max", "100000 100000\n");
  Write("a/b/cpu.max", "800000 100000\n");
  Write("a/b/c/cpu.max", "max 100000\n");
  EXPECT_EQ(Processors("0::/a/b/c\n"), 1);
}

TEST_F(Groups, AContainersOwnGroupIsTheRoot) {
  Write("cpu.max", "200000 100000\n");
  EXPECT_EQ(Processors("0::/../outside/container\n"), 2);
}

TEST_F(Groups, VersionOneGivesThemInTwoFiles) {
  Write("cpu,cpuacct/a/cpu.cfs_quota_us", "150000\n");
  Write("cpu,cpuacct/a/cpu.cfs_period_us", "50000\n");
  Write("cpu,cpuacct/cpu.cfs_quota_us", "-1\n");
  Write("cpu,cpuacct/cpu.cfs_period_us", "100000\n");
  Write("cpuset/a/cpu.cfs_quota_us", "1\n");
  EXPECT_EQ(Processors("4:memory:/a\n3:cpuset:/a\n2:cpu,cpuacct:/a\n1:name=systemd:/a\n"), 3);
  EXPECT_EQ(Processors("2:cpu,cpuacct:/\n"), 0);
}

TEST_F(Groups, BothVersionsCount) {
  Write("cpu/cpu.cfs_quota_us", "500000");
  Write("cpu/cpu.cfs_period_us", "100000");
  Write("cpu.max", "300000 100000");
  EXPECT_EQ(Processors("1:cpu:/\n0::/"), 3);
}

TEST_F(Groups, WhatCannotBeReadLimitsNothing) {
  EXPECT_EQ(Processors(""), 0);
  EXPECT_EQ(Processors("nonsense"), 0);
  EXPECT_EQ(Processors("0::/nowhere\n"), 0);
  EXPECT_EQ(Processors("0::" + std::string(5000, '/')), 0);
  Write("cpu.max", "many 100000\n");
  EXPECT_EQ(Processors("0::/"), 0);
  Write("cpu.max", "100000");
  EXPECT_EQ(Processors("0::/"), 0) << "no period";
  EXPECT_EQ(ProcessorsPaidFor("/nowhere", "/nowhere/either"), 0);
}

TEST(Processors, OneWhereTheThreadMayRunOnOne) {
  std::thread([] {
    cpu_set_t all, one;
    ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
    int first = 0;
    while (!CPU_ISSET(first, &all)) ++first;
    CPU_ZERO(&one);
    CPU_SET(first, &one);
    ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
    EXPECT_EQ(UsableProcessors(), 1);
    EXPECT_EQ(ZEPH_SetThreads(0), 1);
  }).join();
}

TEST(Processors, AtMostThoseOfTheAffinity) {
  cpu_set_t all;
  ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
  EXPECT_GE(UsableProcessors(), 1);
  EXPECT_LE(UsableProcessors(), CPU_COUNT(&all));
}

TEST(Processors, AThreadOfOursLeavesTheProcessorOfAnother) {
  std::thread([] {
    cpu_set_t all, after;
    ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
    if (CPU_COUNT(&all) < 2) GTEST_SKIP() << "there is one processor";
    Spread spread;
    const int before = sched_getcpu();
    for (int k = 0; k < CPU_COUNT(&all) && k < 4; ++k) spread.Settle();
    EXPECT_NE(sched_getcpu(), before);
    ASSERT_EQ(sched_getaffinity(0, sizeof after, &after), 0);
    EXPECT_TRUE(CPU_EQUAL(&all, &after)) << "it may run where it could";
  }).join();
}

}  // namespace
}  // namespace zeph::platform

#else

TEST(Processors, AreAtLeastOne) {
  EXPECT_GE(zeph::platform::UsableProcessors(), 1);
}

#endif
