// SPDX-License-Identifier: MIT
//
// The merge of two ascending blocks.
#ifndef ZEPH_SRC_KERNELS_MERGE_H
#define ZEPH_SRC_KERNELS_MERGE_H

#include <algorithm>
#include <cstddef>

#include "kernels/merge_steps.h"
#include "kernels/overlap.h"
#include "kernels/sort.h"

namespace zeph::kernels {

namespace merge {

/// The first element of an ascending block that is not `below`. In most blocks it is the first or
/// the second.
template <class T, class Below>
const T* FirstNot(const T* first, const T* end, Below below) {
  for (int i = 0; i < 2; ++i, ++first)
    if (first == end || !below(*first)) return first;
  for (std::ptrdiff_t n = end - first; n > 0;) {
    const std::ptrdiff_t half = n / 2;
    const bool passed = below(first[half]);
    first = Either(passed, first + half + 1, first);
    n = half - (passed & (n % 2 == 0));
  }
  return first;
}

/// Where, in an ascending block, the elements equal to 0 and those above 0 begin.
struct Signs {
  const double *zeros, *positive;
  Signs(const double* first, const double* end)
      : zeros(FirstNot(first, end, [](double x) { return x < 0; })),
        positive(FirstNot(zeros, end, [](double x) { return !(x > 0); })) {}
};

/// Merges ascending blocks without NaN. Elements equal to 0.0 may differ in their bits and are
/// merged by the documented steps; every other value has one bit pattern, so any correct merge
/// gives the same bits.
inline void MergeOrdered(const Pair<double>& p) {
  const auto merge = Active().sorting->merge_doubles;
  if (*p.a > 0 && *p.b > 0) return merge(p);
  const Signs a(p.a, p.aEnd), b(p.b, p.bEnd);
  const Pair<double> below{p.a, a.zeros, p.b, b.zeros, p.out};
  const Pair<double> zeros{a.zeros, a.positive, b.zeros, b.positive, below.OutEnd()};
  merge(below);
  MergeByEights(zeros);
  merge({a.positive, p.aEnd, b.positive, p.bEnd, zeros.OutEnd()});
}
inline void MergeOrdered(const Pair<int>& p) {
  Active().sorting->merge_ints(p);
}

inline void TakeFront(Pair<double>& p) {
  Active().sorting->take_front_doubles(p);
}
inline void TakeFront(Pair<int>& p) {
  Active().sorting->take_front_ints(p);
}

inline bool Ascends(const double* first, const double* end) {
  return Active().sorting->ascends_doubles(first, static_cast<std::size_t>(end - first));
}
inline bool Ascends(const int* first, const int* end) {
  return Active().sorting->ascends_ints(first, static_cast<std::size_t>(end - first));
}

}  // namespace merge

/// Takes from `a` only where its element is strictly less: equal ones, and a pair with a NaN, take
/// from `b`. Blocks that overlap get the result of these steps, front to back. A count below 1 is
/// an empty block.
template <class T>
void MergeAscending(const T* a, std::ptrdiff_t na, const T* b, std::ptrdiff_t nb, T* out) {
  const auto countA = static_cast<std::size_t>(std::max<std::ptrdiff_t>(na, 0));
  const auto countB = static_cast<std::size_t>(std::max<std::ptrdiff_t>(nb, 0));
  merge::Pair<T> p{a, a + countA, b, b + countB, out};
  const bool apart =
      !Overlap<T>(out, countA + countB, a, countA) && !Overlap<T>(out, countA + countB, b, countB);
  if (!apart) return merge::MergeForward(p);
  merge::TakeFront(p);
  if (p.Shorter() == 0)
    merge::TakeRest(p);
  else if (merge::Ascends(p.a, p.aEnd) && merge::Ascends(p.b, p.bEnd))
    merge::MergeOrdered(p);
  else
    merge::MergeForward(p);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_MERGE_H
