// SPDX-License-Identifier: MIT
//
// The merge of two ascending blocks.
#ifndef ZEPH_SRC_KERNELS_MERGE_H
#define ZEPH_SRC_KERNELS_MERGE_H

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "kernels/overlap.h"
#include "platform/choose.h"

namespace zeph::kernels {

namespace merge {

/// What is still to be merged, and where it goes.
template <class T>
struct Pair {
  const T *a, *aEnd, *b, *bEnd;
  T* out;
  std::ptrdiff_t Shorter() const { return std::min(aEnd - a, bEnd - b); }
  T* OutEnd() const { return out + (aEnd - a) + (bEnd - b); }
};

/// Moves the next element: from `a` only where its element is strictly less; equal ones, and a pair
/// with a NaN, take from `b`. Without a branch on the outcome, which no processor could predict.
template <class T>
void TakeNext(Pair<T>& p) {
  const T fromA = *p.a, fromB = *p.b;
  const bool takeA = fromA < fromB;
  *p.out++ = platform::Choose(takeA, fromA, fromB);
  p.a += takeA;
  p.b += !takeA;
}

/// The documented steps.
template <class T>
void MergeForward(Pair<T> p) {
  while (p.a < p.aEnd && p.b < p.bEnd) TakeNext(p);
  while (p.a < p.aEnd) *p.out++ = *p.a++;
  while (p.b < p.bEnd) *p.out++ = *p.b++;
}

/// From both ends at once: two walks that do not wait for each other. Where both inputs ascend, the
/// merged order is unique (among equals b's first), so its last element can be told as well as its
/// first: the last of `a` unless the last of `b` is greater. Within as many steps as the shorter
/// input has, neither walk can run off an input, so no step checks.
template <class T>
void MergeFromBothEnds(Pair<T> p) {
  constexpr std::ptrdiff_t kFewest = 8;
  for (std::ptrdiff_t steps; (steps = p.Shorter() / 2) >= kFewest;) {
    T* outEnd = p.OutEnd();
    for (; steps > 0; --steps) {
      TakeNext(p);
      const T fromA = p.aEnd[-1], fromB = p.bEnd[-1];
      const bool takeB = fromB > fromA;
      *--outEnd = platform::Choose(takeB, fromB, fromA);
      p.bEnd -= takeB;
      p.aEnd -= !takeB;
    }
  }
  MergeForward(p);
}

inline bool NotGreater(int x, int y) {
  return x <= y;
}
inline bool NotGreater(double x, double y) {
  return std::islessequal(x, y);  // quietly: the steps may compare no NaN that is there
}

/// Whether every element is at least the one before it; a NaN is not.
template <class T>
bool Ascends(const T* first, const T* end) {
  constexpr std::ptrdiff_t kStride = 256;  // looked at without a branch in between
  bool ascends = true;
  while (ascends && end - first > 1) {
    const std::ptrdiff_t steps = std::min(end - first - 1, kStride);
    for (std::ptrdiff_t i = 0; i < steps; ++i) ascends &= NotGreater(first[i], first[i + 1]);
    first += steps;
  }
  return ascends;
}

}  // namespace merge

/// Takes from `a` only where its element is strictly less: equal ones, and a pair with a NaN, take
/// from `b`. Blocks that overlap give what these steps give, front to back. A count below 1 is an
/// empty block.
template <class T>
void MergeAscending(const T* a, std::ptrdiff_t na, const T* b, std::ptrdiff_t nb, T* out) {
  const auto countA = static_cast<std::size_t>(std::max<std::ptrdiff_t>(na, 0));
  const auto countB = static_cast<std::size_t>(std::max<std::ptrdiff_t>(nb, 0));
  const merge::Pair<T> p{a, a + countA, b, b + countB, out};
  const bool apart =
      !Overlap<T>(out, countA + countB, a, countA) && !Overlap<T>(out, countA + countB, b, countB);
  if (apart && merge::Ascends(p.a, p.aEnd) && merge::Ascends(p.b, p.bEnd))
    merge::MergeFromBothEnds(p);
  else
    merge::MergeForward(p);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_MERGE_H
