// SPDX-License-Identifier: MIT
//
// Shared by the forms of the merge: the documented steps, and the same steps from both ends.
#ifndef ZEPH_SRC_KERNELS_MERGE_STEPS_H
#define ZEPH_SRC_KERNELS_MERGE_STEPS_H

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "platform/choose.h"

namespace zeph::kernels::merge {

/// The elements still to be merged, and where they go.
template <class T>
struct Pair {
  const T *a, *aEnd, *b, *bEnd;
  T* out;
  std::ptrdiff_t Shorter() const { return std::min(aEnd - a, bEnd - b); }
  T* OutEnd() const { return out + (aEnd - a) + (bEnd - b); }
};

/// `a` or `b`, without a branch.
template <class T>
const T* Either(bool first, const T* a, const T* b) {
  const std::uintptr_t mask = std::uintptr_t{0} - first;
  return reinterpret_cast<const T*>((reinterpret_cast<std::uintptr_t>(a) & mask) |
                                    (reinterpret_cast<std::uintptr_t>(b) & ~mask));
}

/// Moves the next element: from `a` only where its element is strictly less; equal ones, and a pair
/// with a NaN, take from `b`. Without a branch on the outcome, which would be unpredictable.
template <class T>
void TakeNext(Pair<T>& p) {
  const T fromA = *p.a, fromB = *p.b;
  const bool takeA = fromA < fromB;
  *p.out++ = platform::Choose(takeA, fromA, fromB);
  p.a += takeA;
  p.b += !takeA;
}

template <class T>
void TakeRest(const Pair<T>& p) {
  std::copy(p.b, p.bEnd, std::copy(p.a, p.aEnd, p.out));
}

/// The documented steps, for any elements and blocks that may overlap.
template <class T>
void MergeForward(Pair<T> p) {
  while (p.a < p.aEnd && p.b < p.bEnd) TakeNext(p);
  while (p.a < p.aEnd) *p.out++ = *p.a++;
  while (p.b < p.bEnd) *p.out++ = *p.b++;
}

constexpr std::ptrdiff_t kEight = 8;

template <class T>
void TakeEight(const T*& from, T*& out) {
  std::copy(from, from + kEight, out);
  from += kEight;
  out += kEight;
}

/// x < y and x <= y without raising exceptions: the blocks may hold a NaN that the documented steps
/// never compare.
inline bool QuietLess(double x, double y) {
  return std::isless(x, y);
}
inline bool QuietLess(int x, int y) {
  return x < y;
}
inline bool QuietNotAbove(double x, double y) {
  return std::islessequal(x, y);
}
inline bool QuietNotAbove(int x, int y) {
  return x <= y;
}

/// The same steps while they take from a block with fewer than `few` elements left.
template <class T>
void TakeFew(Pair<T>& p, std::ptrdiff_t few) {
  if (p.Shorter() == 0) return;
  if (p.aEnd - p.a < few)
    while (p.a != p.aEnd && QuietLess(*p.a, *p.b)) *p.out++ = *p.a++;
  if (p.a != p.aEnd && p.bEnd - p.b < few)
    while (p.b != p.bEnd && !QuietLess(*p.a, *p.b)) *p.out++ = *p.b++;
}

/// The same steps while they take eight elements of one block in a row. The blocks need not ascend;
/// they do not overlap the output.
template <class T>
void TakeWhatIsInFront(Pair<T>& p) {
  const auto all = [](const T* v, auto test) {
    int passed = 0;
    for (std::ptrdiff_t i = 0; i < kEight; ++i) passed += test(v[i]);
    return passed == kEight;
  };
  while (p.Shorter() > 0) {
    const T a = *p.a, b = *p.b;
    if (p.aEnd - p.a >= kEight && all(p.a, [b](T x) { return QuietLess(x, b); }))
      TakeEight(p.a, p.out);
    else if (p.bEnd - p.b >= kEight && all(p.b, [a](T x) { return !QuietLess(a, x); }))
      TakeEight(p.b, p.out);
    else
      return TakeFew(p, kEight);
  }
}

/// The same steps where both blocks ascend: eight at once where the eighth element of a block still
/// precedes the other's first.
template <class T>
void MergeByEights(Pair<T> p) {
  while (p.Shorter() >= kEight) {
    if (p.a[kEight - 1] < *p.b) {
      TakeEight(p.a, p.out);
    } else if (!(*p.a < p.b[kEight - 1])) {
      TakeEight(p.b, p.out);
    } else {
      for (std::ptrdiff_t i = 0; i < kEight; ++i) TakeNext(p);
    }
  }
  while (p.Shorter() > 0) {
    if (p.aEnd - p.a >= kEight && p.a[kEight - 1] < *p.b)
      TakeEight(p.a, p.out);
    else if (p.bEnd - p.b >= kEight && !(*p.a < p.b[kEight - 1]))
      TakeEight(p.b, p.out);
    else
      TakeNext(p);
  }
  TakeRest(p);
}

/// Merges from both ends at once: two independent dependency chains. Where both inputs ascend, the
/// merged order is unique (b's first among equals), so its last element is known as well as its
/// first: the last of `a` unless the last of `b` is greater. Eight steps at both ends take at most
/// sixteen elements of a block, so no step needs a check.
template <class T>
void MergeFromBothEnds(Pair<T> p) {
  T* outEnd = p.OutEnd();
  while (p.Shorter() >= 2 * kEight) {
    if (p.a[kEight - 1] < *p.b) {
      TakeEight(p.a, p.out);
    } else if (!(*p.a < p.b[kEight - 1])) {
      TakeEight(p.b, p.out);
    } else {
      for (std::ptrdiff_t i = 0; i < kEight; ++i) {
        TakeNext(p);
        const T fromA = p.aEnd[-1], fromB = p.bEnd[-1];
        const bool takeB = fromB > fromA;
        *--outEnd = platform::Choose(takeB, fromB, fromA);
        p.bEnd -= takeB;
        p.aEnd -= !takeB;
      }
    }
  }
  MergeByEights(p);
}

/// Returns the kHeld elements taken last from the ends to `p`, the rest of `all`: where both blocks
/// gave some, comparing element k of one with kHeld - 1 - k of the other decides whether k is among
/// them. Each end was taken kHeld elements at a time.
constexpr std::ptrdiff_t kHeld = 16;
template <class T>
void GiveBackEnd(const Pair<T>& all, Pair<T>& p) {
  const bool takenA = p.aEnd != all.aEnd, takenB = p.bEnd != all.bEnd;
  std::ptrdiff_t fromA = 0;
  for (std::ptrdiff_t k = 0; takenA && k < kHeld; ++k)
    fromA += !takenB || p.aEnd[k] < p.bEnd[kHeld - 1 - k];
  p.aEnd += fromA;
  p.bEnd += kHeld - fromA;
}

/// Whether every element is at least the one before it; a NaN is not.
template <class T>
bool AscendsByPairs(const T* v, std::size_t n) {
  constexpr std::size_t kPairs = 256;  // tested without a branch in between
  if (n == 1) return v[0] == v[0];
  bool ascends = true;
  for (std::size_t i = 1; ascends && i < n; i += kPairs)
    for (std::size_t k = i; k < std::min(i + kPairs, n); ++k)
      ascends &= QuietNotAbove(v[k - 1], v[k]);
  return ascends;
}

/// From both ends, for any pair.
template <class T>
void MergeApart(const Pair<T>& blocks) {
  MergeFromBothEnds(blocks);
}

}  // namespace zeph::kernels::merge

#endif  // ZEPH_SRC_KERNELS_MERGE_STEPS_H
