// SPDX-License-Identifier: MIT
//
// Element-wise operations on arrays larger than the caches, divided among threads.
#ifndef ZEPH_SRC_PARALLEL_ELEMENTWISE_H
#define ZEPH_SRC_PARALLEL_ELEMENTWISE_H

#include <cstddef>

#include "kernels/few.h"
#include "kernels/target.h"
#include "parallel/range.h"

namespace zeph::parallel {

namespace detail {
/// Calls work(first, count) for parts that consist of whole pages, except at the ends.
template <class Work>
void ShareElements(int threads, std::size_t n, Work work) {
  constexpr std::size_t kPage = 512;
  ShareParts(threads, n, kPage, n, work);
}
template <void (*kOperation)(double*, const double*, const double*, std::size_t)>
ZEPH_NOINLINE void SharedOfArrays(double* out, const double* a, const double* b, std::size_t n) {
  ShareElements(ThreadsFor(n, kPassPays), n, [=](std::size_t first, std::size_t count) {
    kOperation(out + first, a + first, b + first, count);
  });
}
template <void (*kOperation)(double*, double, const double*, std::size_t)>
ZEPH_NOINLINE void SharedOfNumber(double* out, double s, const double* a, std::size_t n) {
  ShareElements(ThreadsFor(n, kPassPays), n, [=](std::size_t first, std::size_t count) {
    kOperation(out + first, s, a + first, count);
  });
}
template <void (*kOperation)(double*, const double*, const double*, std::size_t)>
void OfArrays(double* out, const double* a, const double* b, std::size_t n) {
  MayShare(n, kPassPays) ? SharedOfArrays<kOperation>(out, a, b, n) : kOperation(out, a, b, n);
}
template <void (*kOperation)(double*, double, const double*, std::size_t)>
void OfNumber(double* out, double s, const double* a, std::size_t n) {
  MayShare(n, kPassPays) ? SharedOfNumber<kOperation>(out, s, a, n) : kOperation(out, s, a, n);
}
}  // namespace detail

// The operations of kernels/few.h, with the same requirements on operands.

inline void Add(double* out, const double* a, const double* b, std::size_t n) {
  detail::OfArrays<kernels::Add>(out, a, b, n);
}
inline void Subtract(double* out, const double* a, const double* b, std::size_t n) {
  detail::OfArrays<kernels::Subtract>(out, a, b, n);
}
inline void Multiply(double* out, const double* a, const double* b, std::size_t n) {
  detail::OfArrays<kernels::Multiply>(out, a, b, n);
}
inline void Scale(double* out, double s, const double* a, std::size_t n) {
  detail::OfNumber<kernels::Scale>(out, s, a, n);
}
inline void SubtractFrom(double* out, double s, const double* a, std::size_t n) {
  detail::OfNumber<kernels::SubtractFrom>(out, s, a, n);
}

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_ELEMENTWISE_H
