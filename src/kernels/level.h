// SPDX-License-Identifier: MIT
//
// Which form of the inner loops runs. This is the one place that asks the processor.
#ifndef ZEPH_SRC_KERNELS_LEVEL_H
#define ZEPH_SRC_KERNELS_LEVEL_H

#include <atomic>
#include <vector>

// Wide forms exist for 64-bit x86 outside Windows, where the stack alignment of 32-byte spills is
// not proven.
#if defined(__x86_64__) && !defined(_WIN32) && (defined(__GNUC__) || defined(__clang__))
#define ZEPH_X64 1
#define ZEPH_TARGET(features) __attribute__((target(features)))
#else
#define ZEPH_X64 0
#define ZEPH_TARGET(features)
#endif

namespace zeph::kernels {

/// The forms a kernel may have, worst to best. A family without a form for a level uses the best
/// one below it. kAvx512 stands for F, DQ, BW and VL together.
enum class Level : int { kPortable = 0, kAvx2 = 1, kAvx512 = 2 };
constexpr int kLevels = 3;

/// "portable", "avx2" or "avx512".
const char* Name(Level level);

/// The levels that this processor and system can run, worst to best; kPortable always.
std::vector<Level> RunnableLevels();

namespace detail {
extern std::atomic<Level> active;  // kept here so that Active() is one load
}

/// The level in use: the best runnable one, unless a test chose another.
inline Level Active() {
  return detail::active.load(std::memory_order_relaxed);
}

/// Makes `level` the one in use, for tests and benchmarks; false (and no change) if it cannot run.
bool Force(Level level);

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_LEVEL_H
