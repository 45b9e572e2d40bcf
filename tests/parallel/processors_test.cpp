// The number of usable processors, by affinity and by the control groups' files.
#include "platform/processors.h"

#include <gtest/gtest.h>

#ifdef __linux__

#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "parallel.h"

#if defined(__GLIBC__) && SIZE_MAX > 0xFFFFFFFFu
#define ZEPH_TEST_OWN_OPEN
#include <fcntl.h>
#include <sys/syscall.h>

#include <cstdarg>

/// While it is not empty, the folder that stands for the system's files of control groups.
static std::string ownGroups;

/// In the runtime's place, for this program and the library, which is another one in the shared build.
extern "C" __attribute__((visibility("default"))) int open(const char* path, int flags, ...) {
  va_list list;
  va_start(list, flags);
  const int mode = flags & O_CREAT ? va_arg(list, int) : 0;
  va_end(list);
  std::string other;
  const std::string asked = path, groups = "/sys/fs/cgroup";
  if (!ownGroups.empty() && asked.compare("/proc/self/cgroup") == 0)
    other = ownGroups + "/membership";
  else if (!ownGroups.empty() && asked.compare(0, groups.size(), groups) == 0)
    other = ownGroups + (path + groups.size());
  return static_cast<int>(
      syscall(SYS_openat, AT_FDCWD, other.empty() ? path : other.c_str(), flags, mode));
}
#endif

namespace zeph::platform {
namespace {

namespace fs = std::filesystem;

/// A folder that looks like /sys/fs/cgroup, and the file that names a process's groups.
class ControlGroups : public ::testing::Test {
 protected:
  ControlGroups() {
    char name[] = "/tmp/zeph-groups-XXXXXX";
    root_ = mkdtemp(name);
  }
  ~ControlGroups() override { fs::remove_all(root_); }

  void Write(const std::string& file, const std::string& text) const {
    fs::create_directories((root_ / file).parent_path());
    std::ofstream(root_ / file) << text;
  }
  int Processors(const std::string& membership) const {
    Write("membership", membership);
    return ProcessorsPaidFor(root_.c_str(), (root_ / "membership").c_str());
  }

  fs::path root_;
};

TEST_F(ControlGroups, VersionTwoLimitsByQuotaAndPeriod) {
  Write("cpu.max", "max 100000\n");
  Write("a/cpu.max", "400000 100000\n");
  Write("a/b/cpu.max", "250000 100000\n");
  EXPECT_EQ(Processors("0::/\n"), 0);
  EXPECT_EQ(Processors("0::/a\n"), 4);
  EXPECT_EQ(Processors("0::/a/b\n"), 3) << "a limit of two and a half is rounded up";
}

TEST_F(ControlGroups, TheStrictestAncestorApplies) {
  Write("a/cpu.max", "100000 100000\n");
  Write("a/b/cpu.max", "800000 100000\n");
  Write("a/b/c/cpu.max", "max 100000\n");
  EXPECT_EQ(Processors("0::/a/b/c\n"), 1);
}

TEST_F(ControlGroups, AContainersOwnGroupIsTheRoot) {
  Write("cpu.max", "200000 100000\n");
  EXPECT_EQ(Processors("0::/../outside/container\n"), 2);
}

TEST_F(ControlGroups, VersionOneReadsQuotaAndPeriodFromTwoFiles) {
  Write("cpu,cpuacct/a/cpu.cfs_quota_us", "150000\n");
  Write("cpu,cpuacct/a/cpu.cfs_period_us", "50000\n");
  Write("cpu,cpuacct/cpu.cfs_quota_us", "-1\n");
  Write("cpu,cpuacct/cpu.cfs_period_us", "100000\n");
  Write("cpuset/a/cpu.cfs_quota_us", "1\n");
  EXPECT_EQ(Processors("4:memory:/a\n3:cpuset:/a\n2:cpu,cpuacct:/a\n1:name=systemd:/a\n"), 3);
  EXPECT_EQ(Processors("2:cpu,cpuacct:/\n"), 0);
}

TEST_F(ControlGroups, APartOfAProcessorCountsAsOne) {
  const std::pair<const char*, int> quotas[] = {{"1", 1},      {"99999", 1},  {"100000", 1},
                                                {"100001", 2}, {"200000", 2}, {"200001", 3}};
  for (const auto& [quota, processors] : quotas) {
    Write("cpu/a/cpu.cfs_quota_us", quota);
    Write("cpu/a/cpu.cfs_period_us", "100000\n");
    EXPECT_EQ(Processors("3:cpu:/a\n"), processors) << quota;
    Write("a/cpu.max", std::string(quota) + " 100000\n");
    EXPECT_EQ(Processors("0::/a\n"), processors) << quota;
  }
}

/// What `long` cannot hold, 64 bits as a rule, is read as its greatest number.
TEST_F(ControlGroups, LimitsBeyondAnIntAreManyProcessors) {
  Write("a/cpu.max", "2147483648 100000\n");
  EXPECT_EQ(Processors("0::/a\n"), 21'475);
  for (const char* quota : {"2147483648", "4294967296", "4294967297", "429496729600000",
                            "9223372036854775807", "99999999999999999999"}) {
    Write("a/cpu.max", std::string(quota) + " 1000\n");
    EXPECT_EQ(Processors("0::/a\n"), 1 << 20) << quota;
  }
}

TEST_F(ControlGroups, CpuIsFoundAmongOtherControllers) {
  for (const char* controllers : {"cpuacct,cpu", "cpu", "cpuset,cpu,cpuacct", "cpu,cpuset"}) {
    const std::string folder = controllers;
    Write(folder + "/a/cpu.cfs_quota_us", "400000\n");
    Write(folder + "/a/cpu.cfs_period_us", "100000\n");
    EXPECT_EQ(Processors("3:" + folder + ":/a\n"), 4) << controllers;
  }
  for (const char* controllers :
       {"cpuacct", "cpuset", "xcpu", "cp", "memory,cpuset", ",", "name=cpu"}) {
    const std::string folder = controllers;
    Write(folder + "/a/cpu.cfs_quota_us", "400000\n");
    Write(folder + "/a/cpu.cfs_period_us", "100000\n");
    EXPECT_EQ(Processors("3:" + folder + ":/a\n"), 0) << controllers;
  }
}

TEST_F(ControlGroups, BothVersionsApplyAtOnce) {
  Write("cpu/cpu.cfs_quota_us", "500000");
  Write("cpu/cpu.cfs_period_us", "100000");
  Write("cpu.max", "300000 100000");
  EXPECT_EQ(Processors("1:cpu:/\n0::/"), 3);
}

/// Two groups of version 1 and one of version 2, each without a limit, with the strictest one, or with
/// another, in lines of any order.
TEST_F(ControlGroups, TheStrictestOfAllGroupsAppliesInAnyOrder) {
  const int quotas[] = {-1, 200'000, 500'000};
  for (const int one : quotas)
    for (const int other : quotas)
      for (const int both : quotas) {
        Write("cpu/a/cpu.cfs_quota_us", std::to_string(one));
        Write("cpu/a/cpu.cfs_period_us", "100000");
        Write("cpu,cpuacct/b/cpu.cfs_quota_us", std::to_string(other));
        Write("cpu,cpuacct/b/cpu.cfs_period_us", "100000");
        Write("c/cpu.max", (both < 0 ? "max" : std::to_string(both)) + " 100000");
        int want = 0;
        for (const int quota : {one, other, both})
          if (const int limit = quota / 100'000; limit > 0)
            want = want ? std::min(want, limit) : limit;
        std::string lines[] = {"0::/c\n", "1:cpu:/a\n", "2:cpu,cpuacct:/b\n"};
        do
          EXPECT_EQ(Processors(lines[0] + lines[1] + lines[2]), want)
              << lines[0] << lines[1] << lines[2] << one << ' ' << other << ' ' << both;
        while (std::next_permutation(std::begin(lines), std::end(lines)));
      }
}

/// As long as the room for a file's text, and about that: what is behind it is not read.
TEST_F(ControlGroups, FilesOfAnyLengthAreRead) {
  for (const std::size_t size : {100u, 4094u, 4095u, 4096u, 4097u, 8192u, 20'000u}) {
    std::string limit = "400000 100000";
    Write("a/cpu.max", limit + std::string(size - limit.size(), ' '));
    std::string membership = "0::/a\n";
    EXPECT_EQ(Processors(membership + std::string(size - membership.size(), '\n')), 4) << size;
  }
}

TEST_F(ControlGroups, UnreadableFilesLimitNothing) {
  EXPECT_EQ(Processors(""), 0);
  EXPECT_EQ(Processors("nonsense"), 0);
  EXPECT_EQ(Processors("0::/nowhere\n"), 0);
  EXPECT_EQ(Processors("0::" + std::string(5000, '/')), 0);
  Write("cpu.max", "many 100000\n");
  EXPECT_EQ(Processors("0::/"), 0);
  Write("cpu.max", "100000");
  EXPECT_EQ(Processors("0::/"), 0) << "no period";
  Write("cpu/a/cpu.cfs_period_us", "100000");
  EXPECT_EQ(Processors("3:cpu:/a\n"), 0) << "no quota";
  EXPECT_EQ(ProcessorsPaidFor("/nowhere", "/nowhere/either"), 0);
}

int OpenFiles() {
  int files = 0;
  for ([[maybe_unused]] const auto& file : fs::directory_iterator("/proc/self/fd")) ++files;
  return files;
}

TEST(Processors, CountingThemClosesEveryFile) {
  if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "the system does not say";
  UsableProcessors();
  const int before = OpenFiles();
  for (int k = 0; k < 5; ++k) {
    UsableProcessors();
    ZEPH_SetThreads(0);
  }
  ZEPH_SetThreads(1);
  EXPECT_EQ(OpenFiles(), before);
}

#ifdef ZEPH_TEST_OWN_OPEN
TEST_F(ControlGroups, LimitThisProcess) {
  cpu_set_t all;
  ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
  const int processors = CPU_COUNT(&all);
  const auto usable = [this](const char* limit) {
    Write("cpu.max", limit);
    Write("membership", "0::/\n");
    ownGroups = root_.string();
    const int threads = ZEPH_SetThreads(0);
    EXPECT_EQ(UsableProcessors(), threads);
    ZEPH_SetThreads(1);
    ownGroups.clear();
    return threads;
  };
  EXPECT_EQ(usable("max 100000\n"), std::min(processors, 256));
  EXPECT_EQ(usable("50000 100000\n"), 1);
  EXPECT_EQ(usable("100000 100000\n"), 1);
  EXPECT_EQ(usable("100001 100000\n"), std::min(processors, 2));
  EXPECT_EQ(usable("900000000 100000\n"), std::min(processors, 256));
}
#endif

TEST(Processors, CountOneForAThreadPinnedToOne) {
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

TEST(Processors, CountNoMoreThanTheAffinityMask) {
  cpu_set_t all;
  ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
  EXPECT_GE(UsableProcessors(), 1);
  EXPECT_LE(UsableProcessors(), CPU_COUNT(&all));
}

TEST(Processors, SettlingMovesAThreadOffTheCurrentOne) {
  std::thread([] {
    cpu_set_t all, after;
    ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
    if (CPU_COUNT(&all) < 2) GTEST_SKIP() << "there is one processor";
    Spread spread;
    const int before = sched_getcpu();
    for (int k = 0; k < CPU_COUNT(&all) && k < 4; ++k) spread.Settle();
    EXPECT_NE(sched_getcpu(), before);
    ASSERT_EQ(sched_getaffinity(0, sizeof after, &after), 0);
    EXPECT_TRUE(CPU_EQUAL(&all, &after)) << "the affinity has changed";
  }).join();
}

}  // namespace
}  // namespace zeph::platform

#else

TEST(Processors, CountAtLeastOne) {
  EXPECT_GE(zeph::platform::UsableProcessors(), 1);
}

#endif
