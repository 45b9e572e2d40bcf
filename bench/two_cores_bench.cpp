// SPDX-License-Identifier: MIT
//
// Two threads: against one, and against other libraries' threads.
#include <chrono>
#include <cstddef>
#include <thread>
#include <vector>

#include "bench.h"
#include "double_array.h"
#include "linalg.h"
#include "parallel.h"
#include "raw_buffers.h"

#ifdef ZEPH_HAVE_OPENBLAS
#include <cblas.h>
#endif
#ifdef ZEPH_HAVE_TBB
#include <tbb/global_control.h>

#include <algorithm>
#include <execution>
#endif

namespace zeph::bench {
namespace {

constexpr int kThreads = 2;

/// OpenBLAS's threads spin for a while after a call, which would slow the next contender down.
void LetTheOthersSleep() {
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
}

/// A matrix both ways: as the library keeps it, and contiguous.
struct Matrix {
  Matrix(int n, unsigned long long seed)
      : cells(RandomDoubles(static_cast<std::size_t>(n) * static_cast<std::size_t>(n), seed)),
        rows(n, n) {
    for (int i = 0; i < n; ++i)
      std::copy_n(cells.data() + std::ptrdiff_t{i} * n, n, rows.m_ppData[i]);
  }
  Numbers Rows() const {
    Numbers all;
    for (int i = 0; i < rows.m_nRows; ++i)
      all.insert(all.end(), rows.m_ppData[i], rows.m_ppData[i] + rows.m_nColumns);
    return all;
  }
  std::vector<double> cells;
  CZEPHMatrix rows;
};

void Product(Row& row) {
  row.Items(row.n() * row.n() * row.n());
  const int n = static_cast<int>(row.n());
  auto& a = row.Keep<Matrix>(n, 1);
  auto& b = row.Keep<Matrix>(n, 2);
  auto& out = row.Keep<Matrix>(n, 3);
  row.Between(LetTheOthersSleep);
  row.Result([&] { return out.Rows(); });
  // Includes allocating the result and moving into it, unlike OpenBLAS.
  row.Ours([&] {
    const ZEPH_ThreadScope threads(kThreads);
    out.rows = a.rows * b.rows;
  });
  row.Peer("one thread", [&] { out.rows = a.rows * b.rows; });
#ifdef ZEPH_HAVE_OPENBLAS
  row.Peer("OpenBLAS, two threads",
           [&, n] {
             openblas_set_num_threads(kThreads);
             cblas_dgemm(CblasRowMajor, CblasNoTrans, CblasNoTrans, n, n, n, 1.0, a.cells.data(), n,
                         b.cells.data(), n, 0.0, out.cells.data(), n);
             openblas_set_num_threads(1);
           })
      .Result([&] { return out.cells; })
      .Near(1e-9)
      .Target(n >= 512 ? 0.95 : 0);
#endif
}

void Sort(Row& row) {
  const std::size_t n = row.n();
  auto& input = row.Keep<std::vector<double>>(RandomDoubles(n, 1));
  auto& a = row.Keep<CZEPHDoubleArray>(static_cast<int>(n), 0.0);
  row.Before([&](std::size_t round) {
    // Different beginnings each time, so that branch predictors cannot learn them.
    const std::size_t first = round * 7919 % input.size();
    std::rotate_copy(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(first), input.end(),
                     a.data);
  });
  row.Between(LetTheOthersSleep);
  row.Result([&, n] { return Values(a.data, n); });
  row.Ours([&] {
    const ZEPH_ThreadScope threads(kThreads);
    a.QuickSort(10);
  });
  auto one = row.Peer("one thread", [&] { a.QuickSort(10); });
  if (n == 10'000'000) one.Target(1.7);
#ifdef ZEPH_HAVE_TBB
  row.Peer("std::sort(par) on TBB", [&, n] {
    const tbb::global_control two(tbb::global_control::max_allowed_parallelism, kThreads);
    std::sort(std::execution::par, a.data, a.data + n);
  });
#endif
}

template <class Work>
void Shared(Row& row, Work work) {
  row.Between(LetTheOthersSleep);
  row.Ours([work]() mutable {
    const ZEPH_ThreadScope threads(kThreads);
    work();
  });
  row.Peer("one thread", work);
}

void Norm(Row& row) {
  row.Items(row.n() * row.n());
  auto& m = row.Keep<Matrix>(static_cast<int>(row.n()), 4);
  auto& norm = row.Keep<double>(0.0);
  row.Result([&] { return Numbers{norm}; });
  Shared(row, [&] { norm = ZEPH_MatrixFrobNorm(m.rows.m_ppData, m.rows.m_nRows, 0); });
}

void Transposition(Row& row) {
  row.Items(row.n() * row.n());
  auto& m = row.Keep<Matrix>(static_cast<int>(row.n()), 5);
  auto& to = row.Keep<Matrix>(static_cast<int>(row.n()), 6);
  row.Result([&] { return to.Rows(); });
  Shared(row, [&] { ZEPH_MatrixTranspose(m.rows.m_nRows, m.rows.m_ppData, to.rows.m_ppData); });
}

void Sum(Row& row) {
  auto& a = row.Keep<CZEPHDoubleArray>(static_cast<int>(row.n()), 1.5);
  auto& b = row.Keep<CZEPHDoubleArray>(static_cast<int>(row.n()),
                                       0.0);  // so that every call gives the same
  row.Result([&] { return Values(a.data, row.n()); });
  Shared(row, [&] { a += b; });
}

const bool kAdded = Add("two cores", "product", {160, 256, 512, 1024, 2048}, Product) &&
                    Add("two cores", "QuickSort", {100'000, 1'000'000, 10'000'000}, Sort) &&
                    Add("two cores", "MatrixFrobNorm", {400, 1000, 2000}, Norm) &&
                    Add("two cores", "transposition", {500, 1000, 2000}, Transposition) &&
                    Add("two cores", "a += b", {500'000, 1'000'000, 10'000'000}, Sum);

}  // namespace
}  // namespace zeph::bench
