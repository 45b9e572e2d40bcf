// SPDX-License-Identifier: MIT
//
// Ranges divided among threads.
#ifndef ZEPH_SRC_PARALLEL_RANGE_H
#define ZEPH_SRC_PARALLEL_RANGE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "parallel/pool.h"
#include "parallel/settings.h"

namespace zeph::parallel {

/// From this many elements on two threads are faster than one in a pass limited by memory, even
/// where the second must be woken.
constexpr std::uint64_t kPassPays = 500'000;

/// Whether threads may be worth considering: the work is large enough, and the program has asked
/// for threads. A small call pays only for this comparison; the code that follows should be a
/// separate function.
inline bool MayShare(std::uint64_t work, std::uint64_t floor) {
  return work >= floor && Asked();
}

/// The number of threads to use for `work`, where two pay from `floor` on: 1 at once where the work
/// is small or the program has not asked for threads.
inline int ThreadsFor(std::uint64_t work, std::uint64_t floor) {
  if (!MayShare(work, floor)) return 1;
  return static_cast<int>(
      std::min<std::uint64_t>(work / (floor / 2), static_cast<std::uint64_t>(Threads())));
}

/// A contiguous part of the indices below some count.
struct Part {
  std::size_t first, count;
};

/// The k-th of `parts` parts of about the same size; all begin at a multiple of `grain`.
inline Part PartOf(std::size_t n, std::size_t grain, std::size_t parts, std::size_t k) {
  const std::size_t grains = (n + grain - 1) / grain;
  const auto begin = [&](std::size_t j) {
    return std::min(n, (grains / parts * j + std::min(j, grains % parts)) * grain);
  };
  return {begin(k), begin(k + 1) - begin(k)};
}

/// Calls work(first, count) for parts of `n` on up to `threads` threads. Each thread gets one, or
/// several where each is still as long as `enough`: then a delayed thread delays the others less.
template <class Work>
void ShareParts(int threads, std::size_t n, std::size_t grain, std::size_t enough, Work work) {
  if (threads == 1) return work(std::size_t{0}, n);
  const auto count = static_cast<std::size_t>(threads);
  const std::size_t each = std::clamp<std::size_t>(n / count / enough, 1, 8);
  const std::size_t parts = std::min(count * each, (n + grain - 1) / grain);
  Share(threads, parts, [&](std::size_t k) {
    const Part part = PartOf(n, grain, parts, k);
    work(part.first, part.count);
  });
}

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_RANGE_H
