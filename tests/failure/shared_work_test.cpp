// Parallel work makes the same allocations as work on one thread.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "double_array.h"
#include "linalg.h"
#include "parallel.h"
#include "raw_buffers.h"
#include "support/allocation.h"

namespace zeph::test {
namespace {

/// The allocations of a second call, when the threads are running.
long Requests(const std::function<void()>& call, int threads) {
  const ZEPH_ThreadScope scope(threads);
  call();
  const long before = AllocationCount();
  call();
  return AllocationCount() - before;
}

void ExpectRequests(const char* what, long want, const std::function<void()>& call) {
  ZEPH_SetThreads(1);
  EXPECT_EQ(Requests(call, 1), want) << what << ", one thread";
  EXPECT_EQ(Requests(call, 4), want) << what << ", four threads";
  ZEPH_SetThreads(1);
}

}  // namespace

TEST(ParallelWork, AllocatesNoMoreThanSerialWork) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  constexpr int kElements = 1'000'000, kRows = 800;
  CZEPHDoubleArray a(kElements, 0.0), b(kElements, 1.5);
  for (const int size : {10, 3})
    ExpectRequests("QuickSort", 0, [&] {
      for (int i = 0; i < kElements; ++i) a.data[i] = static_cast<double>(i * 7919LL % 1'000'003);
      a.QuickSort(size);
    });
  ExpectRequests("+=", 0, [&] { a += b; });
  CZEPHMatrix from(kRows, kRows), to(kRows, kRows);
  for (const CZEPHMatrix* matrix : {&from, &to})
    for (int i = 0; i < kRows; ++i) std::fill_n(matrix->m_ppData[i], kRows, i + 0.5);
  ExpectRequests("ZEPH_MatrixTranspose", 0,
                 [&] { ZEPH_MatrixTranspose(kRows, from.m_ppData, to.m_ppData); });
  ExpectRequests("ZEPH_MatrixFrobNorm", 0, [&] { ZEPH_MatrixFrobNorm(from.m_ppData, kRows, 0); });
  // The rows of the result and their table.
  ExpectRequests("the product", kRows + 1, [&] { const CZEPHMatrix product = from * to; });
}

}  // namespace zeph::test
