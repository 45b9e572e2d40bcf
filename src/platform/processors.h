// SPDX-License-Identifier: MIT
//
// How many processors the process may use.
#ifndef ZEPH_SRC_PLATFORM_PROCESSORS_H
#define ZEPH_SRC_PLATFORM_PROCESSORS_H

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace zeph::platform {

/// The processors that the calling thread may run on, or as many of them as the limits of its
/// control groups pay for (rounded up), whichever is less; at least 1.
int UsableProcessors();

/// The number of processors that the control groups of a process pay for, of which `membership` (a
/// file like /proc/self/cgroup) tells and whose limits stand below `root` (a folder like
/// /sys/fs/cgroup): in version 2 in cpu.max, in version 1 in cpu/cpu.cfs_quota_us. 0 where nothing
/// is limited, and where the files cannot be read.
int ProcessorsPaidFor(const char* root, const char* membership);

/// Which processors the threads of one piece of work run on.
///
/// Linux wakes a thread where the waking one runs, and some kernels leave both there for
/// milliseconds, although another processor has nothing to do: longer than the work takes.
class Spread {
 public:
  /// The calling thread stays where it is. When it has woken others, it lets those that were put on
  /// its processor run, and they move away.
  void Stay() { Take(); }
  static void LetOthersRun();
  /// The calling thread, one of the library's own, moves to a processor that none of the others has
  /// taken, if it is on one of theirs and may run elsewhere. It may run where it could before.
  void Settle();

 private:
  static constexpr std::size_t kWords = 16;
  bool Take();  // the present processor: false if it was taken
#ifdef __linux__
  std::atomic<std::uint64_t> taken_[kWords] = {};
#endif
};

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_PROCESSORS_H
