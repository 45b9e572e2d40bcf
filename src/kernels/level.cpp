// SPDX-License-Identifier: MIT
#include "kernels/level.h"

#include <algorithm>

namespace zeph::kernels {
namespace {

Level BestLevel() {
#if ZEPH_X64
  // The builtins also ask whether the system saves the wide registers.
  // GCOVR_EXCL_START: one processor takes one way through here
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
      __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl"))
    return Level::kAvx512;
  if (__builtin_cpu_supports("avx2")) return Level::kAvx2;
    // GCOVR_EXCL_STOP
#endif
  return Level::kPortable;  // GCOVR_EXCL_LINE: where the processor has no wide form
}

}  // namespace

// Portable until the initialiser has run: a static object of the application may call us first.
std::atomic<Level> detail::active{Level::kPortable};

namespace {
[[maybe_unused]] const bool chosen = (detail::active = BestLevel(), true);
}

const char* Name(Level level) {
  static constexpr const char* kNames[kLevels] = {"portable", "avx2", "avx512"};
  return kNames[static_cast<int>(level)];
}

std::vector<Level> RunnableLevels() {
  std::vector<Level> levels;
  for (int i = 0; i <= static_cast<int>(BestLevel()); ++i) levels.push_back(static_cast<Level>(i));
  return levels;
}

bool Force(Level level) {
  if (level > BestLevel()) return false;
  detail::active = level;
  return true;
}

}  // namespace zeph::kernels
