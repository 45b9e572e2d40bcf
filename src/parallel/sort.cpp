// SPDX-License-Identifier: MIT
#include "parallel/sort.h"

#include <algorithm>
#include <atomic>

#include "kernels/partition.h"
#include "parallel/shared_sort.h"

namespace zeph::parallel {
namespace {

bool Ascends(const double* v, std::size_t n) {
  return kernels::Active().sorting->ascends_doubles(v, n);
}
bool Ascends(const int* v, std::size_t n) {
  return kernels::Active().sorting->ascends_ints(v, n);
}

/// The reverse of ascending. Sums of tests instead of branches, so that the compiler can vectorise.
template <class T>
bool Descends(const T* v, std::size_t n) {
  constexpr std::size_t kBlock = 128;
  for (std::size_t i = 1; i < n; i += kBlock) {
    const std::size_t end = std::min(i + kBlock, n);
    int rises = 0;
    for (std::size_t k = i; k < end; ++k) rises += v[k - 1] < v[k];
    if (rises) return false;
  }
  return true;
}

/// Whether `test(chunk, length)` holds for all chunks, which overlap by one element so that all
/// neighbours are compared.
template <class T, class Test>
bool HoldsThroughout(const T* v, std::size_t n, int threads, Test test) {
  constexpr std::size_t kChunk = 16 * 1024;
  std::atomic<bool> holds{true};
  Share(threads, (n - 1) / kChunk + 1, [&](std::size_t k) {
    if (!holds.load(std::memory_order_relaxed)) return;
    const std::size_t first = k * kChunk, last = std::min(n, first + kChunk + 1);
    if (!test(v + first, last - first)) holds.store(false, std::memory_order_relaxed);
  });
  return holds.load(std::memory_order_relaxed);
}

template <class T>
void Reverse(T* v, std::size_t n, int threads) {
  constexpr std::size_t kGrain = 4096;
  ShareParts(threads, n / 2, kGrain, n, [=](std::size_t first, std::size_t count) {
    for (std::size_t i = first; i < first + count; ++i) std::swap(v[i], v[n - 1 - i]);
  });
}

template <class T>
void SortShared(T* v, std::size_t n) {
  const int threads = ThreadsFor(n, kSortPays);
  if (threads == 1) return kernels::SortAscending(v, n);
  // Sorted data needs only a pass or two, and its beginning is in order.
  constexpr std::size_t kBeginning = 512;
  const bool ascends = Ascends(v, kBeginning), descends = Descends(v, kBeginning);
  if (ascends || descends) {
    if (n < kPassPays) return kernels::SortAscending(v, n);
    const auto ascend = [](const T* at, std::size_t count) { return Ascends(at, count); };
    if (ascends && HoldsThroughout(v, n, threads, ascend)) return;
    if (descends && HoldsThroughout(v, n, threads, Descends<T>)) return Reverse(v, n, threads);
  }
  if (!SharedSort<T>(v, n, threads).Run()) kernels::SortAscending(v, n);
}

}  // namespace

bool detail::OrderIsUnique(const double* v, std::size_t n, int threads) {
  constexpr std::size_t kChunk = 32 * 1024;
  constexpr unsigned kPlus = 1, kMinus = 2, kDenormal = 4, kNaN = 8;
  std::atomic<unsigned> met{0};
  const auto decided = [&met] {
    const unsigned all = met.load(std::memory_order_relaxed);
    return (all & kNaN) || (all & (kPlus | kMinus)) == (kPlus | kMinus);
  };
  Share(threads, (n - 1) / kChunk + 1, [&](std::size_t k) {
    if (decided()) return;
    const std::size_t first = k * kChunk;
    const kernels::Census census = kernels::TakeCensus(v + first, std::min(n - first, kChunk));
    met.fetch_or((census.plus ? kPlus : 0) | (census.minus ? kMinus : 0) |
                     (census.zeros != census.plus + census.minus ? kDenormal : 0) |
                     (census.nans ? kNaN : 0),
                 std::memory_order_relaxed);
  });
  // Denormals that are treated as zeros: whether all are identical takes a further pass.
  if (!decided() && (met.load(std::memory_order_relaxed) & kDenormal))
    return kernels::OrderIsUnique(v, n);
  return !decided();
}

bool detail::OrderIsUnique(const double* v, std::size_t n) {
  const int threads = ThreadsFor(n, kPassPays);
  return threads == 1 ? kernels::OrderIsUnique(v, n) : OrderIsUnique(v, n, threads);
}

void detail::Sort(double* v, std::size_t n) {
  SortShared(v, n);
}
void detail::Sort(int* v, std::size_t n) {
  SortShared(v, n);
}

}  // namespace zeph::parallel
