// SPDX-License-Identifier: MIT
//
// Binary search: which element it finds, for any contents.
#ifndef ZEPH_SRC_KERNELS_HALVING_H
#define ZEPH_SRC_KERNELS_HALVING_H

#include <cstddef>

namespace zeph::kernels {

namespace halving {

// Elements further apart come from memory, where a branch predicted right every other time beats
// waiting for each comparison.
constexpr std::size_t kNearBytes = std::size_t{16} << 20;
constexpr std::size_t kNearest = 2048;  // elements; with fewer, prefetching does not pay
constexpr std::size_t kLastFar = 16;

/// The range still to be searched.
template <class T>
struct Range {
  const T* first;
  std::size_t count;

  const T* Middle() const { return first + (count - 1) / 2; }
  /// Continues above the middle, or below it. By masks: compilers turn a conditional expression
  /// into a branch, which would be mispredicted every other time.
  void Narrow(bool above) {
    const std::size_t lower = (count - 1) / 2, upper = count / 2;
    const std::size_t all = std::size_t{0} - above;
    first += (lower + 1) & all;
    count = (lower & ~all) | (upper & all);
  }
};

inline void AskFor([[maybe_unused]] const void* address) {
#if defined(__GNUC__) || defined(__clang__)
  __builtin_prefetch(address);
#endif
}

/// Prefetches both middles that may be next.
template <class T>
void AskForNext(const Range<T>& range) {
  AskFor(range.first + range.count / 4);
  AskFor(range.first + range.count / 4 * 3);
}

/// The address of the element equal to `x` that the steps find among 1 or more; null if none.
template <class T>
const T* MeetNear(Range<T> range, T x) {
  // Each of the first log2(n) halvings leaves at least one element, the last one or none: the
  // number of steps depends on the count alone.
  std::size_t left = range.count;
  for (; left > kNearest; left /= 2) {
    AskForNext(range);
    const T* middle = range.Middle();
    if (*middle == x) return middle;
    range.Narrow(x > *middle);
  }
  for (; left > 1; left /= 2) {
    const T* middle = range.Middle();
    if (*middle == x) return middle;
    range.Narrow(x > *middle);
  }
  return range.count != 0 && *range.first == x ? range.first : nullptr;
}

/// The same by branches, until the remaining range is small.
template <class T>
const T* MeetFar(Range<T> range, T x) {
  while (range.count > kLastFar) {
    AskForNext(range);
    const T* middle = range.Middle();
    if (*middle == x) return middle;
    if (x > *middle)
      range = {middle + 1, range.count / 2};
    else
      range.count = (range.count - 1) / 2;
  }
  return MeetNear(range, x);
}

}  // namespace halving

/// The index of the element equal to `x` that the search probes first, or n: the middle of lo..hi
/// is (lo + hi) / 2, and the search continues above it where x is greater than that element, else
/// below. The elements may be in any order.
template <class T>
std::size_t FindByHalving(const T* v, std::size_t n, T x) {
  if (n == 0) return n;
  const halving::Range<T> all{v, n};
  const bool close = n <= halving::kNearBytes / sizeof(T);
  const T* met = close ? halving::MeetNear(all, x) : halving::MeetFar(all, x);
  return met ? static_cast<std::size_t>(met - v) : n;
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_HALVING_H
