// SPDX-License-Identifier: MIT
//
// How many processors the process may use.
#ifndef ZEPH_SRC_PLATFORM_PROCESSORS_H
#define ZEPH_SRC_PLATFORM_PROCESSORS_H

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace zeph::platform {

/// The number of processors that the calling thread may run on, or that the limits of its control
/// groups allow (rounded up), whichever is less; at least 1.
int UsableProcessors();

/// The number of processors that the control groups of a process allow. `membership` (a file like
/// /proc/self/cgroup) names the groups; their limits are below `root` (a folder like
/// /sys/fs/cgroup): in version 2 in cpu.max, in version 1 in cpu/cpu.cfs_quota_us. 0 where there is
/// no limit or the files cannot be read.
int ProcessorsPaidFor(const char* root, const char* membership);

/// The processors that the threads of one job run on.
///
/// Linux wakes a thread on the processor of the waking one, and some kernels leave both there for
/// milliseconds although another processor is idle: longer than the work takes.
class Spread {
 public:
  /// The calling thread stays where it is. After waking others it yields, so that those placed on
  /// its processor can run and move away.
  void Stay() { Take(); }
  static void LetOthersRun();
  /// Moves the calling thread, one of the library's own, to a processor that no other thread of the
  /// job has taken, if it is on a taken one and may run elsewhere. Its affinity is unchanged
  /// afterwards.
  void Settle();

 private:
  static constexpr std::size_t kWords = 16;
  bool Take();  // takes the current processor; false if it was taken
#ifdef __linux__
  std::atomic<std::uint64_t> taken_[kWords] = {};
#endif
};

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_PROCESSORS_H
