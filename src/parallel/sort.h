// SPDX-License-Identifier: MIT
//
// The shared fast sort on several threads, for data whose ascending order is unique to the bit.
#ifndef ZEPH_SRC_PARALLEL_SORT_H
#define ZEPH_SRC_PARALLEL_SORT_H

#include <cstddef>

#include "kernels/sort.h"
#include "parallel/range.h"

namespace zeph::parallel {

/// From this many elements on two threads are faster than one.
constexpr std::size_t kSortPays = 100'000;

namespace detail {
bool OrderIsUnique(const double* v, std::size_t n, int threads);
bool OrderIsUnique(const double* v, std::size_t n);
void Sort(double* v, std::size_t n);
void Sort(int* v, std::size_t n);
}  // namespace detail

/// kernels::OrderIsUnique, with its pass divided among threads.
inline bool OrderIsUnique(const double* v, std::size_t n) {
  return MayShare(n, kPassPays) ? detail::OrderIsUnique(v, n) : kernels::OrderIsUnique(v, n);
}

/// kernels::SortAscending. The result is the same, since it is unique. Allocates nothing; takes
/// some 32 KiB of stack when it runs in parallel.
template <class T>
void SortAscending(T* v, std::size_t n) {
  MayShare(n, kSortPays) ? detail::Sort(v, n) : kernels::SortAscending(v, n);
}

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_SORT_H
