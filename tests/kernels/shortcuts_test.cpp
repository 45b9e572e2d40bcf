// SPDX-License-Identifier: MIT
//
// Which kernels the operations call, and for how many elements: results stay the same where a
// shortcut is no longer taken, so here the calls are counted, by a table of forms that count. Only
// the static library lets itself be given one.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "double_array.h"
#include "kernels/chains.h"
#include "kernels/elementwise.h"
#include "kernels/largest_magnitude.h"
#include "kernels/partition.h"
#include "kernels/row_sums.h"
#include "kernels/search.h"
#include "kernels/sort.h"
#include "kernels/table.h"
#include "raw_buffers.h"
#include "support/not_finite.h"
#include "support/random.h"

namespace zeph::kernels {
namespace {

using test::kNaN;
using Values = std::vector<double>;

struct Count {
  std::size_t calls = 0, elements = 0;
};
std::map<std::string, Count> counts;
std::mutex counting;             // rows may be shared among threads
const Table* counted = nullptr;  // what does the work

void Note(const char* kernel, std::size_t elements) {
  const std::lock_guard<std::mutex> lock(counting);
  ++counts[kernel].calls;
  counts[kernel].elements += elements;
}

const Sorting kCountingSorting = {
    [](const double* v, std::size_t n) {
      Note("order_is_unique", n);
      return counted->sorting->order_is_unique(v, n);
    },
    [](double* v, std::size_t n) {
      Note("sort", n);
      counted->sorting->sort_doubles(v, n);
    },
    [](int* v, std::size_t n) {
      Note("sort_ints", n);
      counted->sorting->sort_ints(v, n);
    },
    [](double* v, std::size_t n, double pivot) {
      return counted->sorting->split_doubles(v, n, pivot);
    },
    [](int* v, std::size_t n, int pivot) { return counted->sorting->split_ints(v, n, pivot); },
    [](const double* v, std::size_t n) {
      Note("ascends", n);
      return counted->sorting->ascends_doubles(v, n);
    },
    [](const int* v, std::size_t n) {
      Note("ascends", n);
      return counted->sorting->ascends_ints(v, n);
    },
    [](const merge::Pair<double>& p) {
      Note("merge", static_cast<std::size_t>(p.OutEnd() - p.out));
      counted->sorting->merge_doubles(p);
    },
    [](const merge::Pair<int>& p) {
      Note("merge", static_cast<std::size_t>(p.OutEnd() - p.out));
      counted->sorting->merge_ints(p);
    },
    [](merge::Pair<double>& p) {
      const double* const before = p.out;
      counted->sorting->take_front_doubles(p);
      Note("take_front", static_cast<std::size_t>(p.out - before));
    },
    [](merge::Pair<int>& p) {
      const int* const before = p.out;
      counted->sorting->take_front_ints(p);
      Note("take_front", static_cast<std::size_t>(p.out - before));
    },
    32};

const Partitions kCountingPartitions = {[](const double* v, std::size_t n) {
                                          Note("census", n);
                                          return counted->partitions->census(v, n);
                                        },
                                        [](double* v, std::size_t n, double pivot) {
                                          Note("part", n);
                                          return counted->partitions->part(v, n, pivot);
                                        },
                                        [](const double* v, std::size_t n, double pivot) {
                                          Note("not_less", n);
                                          return counted->partitions->not_less(v, n, pivot);
                                        },
                                        [](const double* v, std::size_t n, double pivot) {
                                          Note("not_greater", n);
                                          return counted->partitions->not_greater(v, n, pivot);
                                        },
                                        [](const double* v, std::size_t n) {
                                          Note("bounds", n);
                                          return counted->partitions->bounds(v, n);
                                        }};

const Searching kCountingSearching = {[](const double* v, std::size_t n, double x) {
                                        Note("find_first", n);
                                        return counted->searching->find_first(v, n, x);
                                      },
                                      [](const int* v, std::size_t n, int x) {
                                        Note("find_last", n);
                                        return counted->searching->find_last(v, n, x);
                                      },
                                      [](const double* v, std::size_t n) {
                                        Note("first_least", n);
                                        return counted->searching->first_least(v, n);
                                      },
                                      [](const double* v, std::size_t n) {
                                        Note("none_descends", n);
                                        return counted->searching->none_descends(v, n);
                                      }};

const Elementwise kCountingElementwise = {
    [](double* out, const double* a, const double* b, std::size_t n) {
      Note("add", n);
      counted->elementwise->add(out, a, b, n);
    },
    [](double* out, const double* a, const double* b, std::size_t n) {
      Note("subtract", n);
      counted->elementwise->subtract(out, a, b, n);
    },
    [](double* out, const double* a, const double* b, std::size_t n) {
      Note("multiply", n);
      counted->elementwise->multiply(out, a, b, n);
    },
    [](double* out, double s, const double* a, std::size_t n) {
      Note("scale", n);
      counted->elementwise->scale(out, s, a, n);
    },
    [](double* out, double s, const double* a, std::size_t n) {
      Note("subtract_from", n);
      counted->elementwise->subtract_from(out, s, a, n);
    },
    [](double* out, double s, std::size_t n) {
      Note("fill", n);
      counted->elementwise->fill(out, s, n);
    }};

const Magnitudes kCountingMagnitudes = {[](const double* x, std::size_t n) {
                                          Note("largest", n);
                                          return counted->magnitudes->largest(x, n);
                                        },
                                        [](const double* x, std::size_t n) {
                                          Note("largest_or_nan", n);
                                          return counted->magnitudes->largest_or_nan(x, n);
                                        }};

const RowSums kCountingRowSums = {
    [](double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
      Note("sum", rows * cols);
      counted->row_sums->sum(sums, m, rows, cols);
    },
    [](double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
      Note("magnitude", rows * cols);
      counted->row_sums->magnitude(sums, m, rows, cols);
    },
    [](double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
      Note("length", rows * cols);
      counted->row_sums->length(sums, m, rows, cols);
    },
    [](double* sums, const double* const* m, const double* v, std::size_t rows, std::size_t cols) {
      Note("dot", rows * cols);
      counted->row_sums->dot(sums, m, v, rows, cols);
    }};

class Shortcuts : public testing::Test {
 protected:
  void SetUp() override {
    before_ = &Active();
    counted = RunnableTables().back();
    counting_ = *counted;
    counting_.sorting = &kCountingSorting;
    counting_.partitions = &kCountingPartitions;
    counting_.searching = &kCountingSearching;
    counting_.elementwise = &kCountingElementwise;
    counting_.magnitudes = &kCountingMagnitudes;
    counting_.row_sums = &kCountingRowSums;
    Force(counting_);
    counts.clear();
  }
  void TearDown() override { Force(*before_); }

  /// What has been counted since the last call.
  static std::map<std::string, Count> Taken() {
    std::map<std::string, Count> taken;
    taken.swap(counts);
    return taken;
  }

 private:
  const Table* before_ = nullptr;
  Table counting_{};
};

struct Method {
  const char* name;
  void (*sort)(CZEPHDoubleArray&);
};
const Method kMethods[] = {{"BubbleSort", [](CZEPHDoubleArray& a) { a.BubbleSort(); }},
                           {"InsertionSort", [](CZEPHDoubleArray& a) { a.InsertionSort(); }},
                           {"ListInsertSort", [](CZEPHDoubleArray& a) { a.ListInsertSort(); }},
                           {"ShellSort", [](CZEPHDoubleArray& a) { a.ShellSort(); }},
                           {"QuickSort", [](CZEPHDoubleArray& a) { a.QuickSort(10); }}};

CZEPHDoubleArray Shuffled(int n) {
  CZEPHDoubleArray a(n, 0.0);
  test::Random random(static_cast<std::uint64_t>(n));
  for (double& x : a) x = random.Real(-9, 9);
  return a;
}

TEST_F(Shortcuts, ArraysOfUniqueOrderTakeOneFastSort) {
  for (const Method& method : kMethods)
    for (const int n : {9, 10, 100, 5000}) {
      CZEPHDoubleArray a = Shuffled(n);
      Taken();
      method.sort(a);
      auto taken = Taken();
      EXPECT_EQ(1u, taken["sort"].calls) << method.name << ' ' << n;
      EXPECT_EQ(static_cast<std::size_t>(n), taken["sort"].elements) << method.name << ' ' << n;
      EXPECT_EQ(static_cast<std::size_t>(n), taken["order_is_unique"].elements) << method.name;
      EXPECT_EQ(0u, taken["census"].calls + taken["part"].calls) << method.name << ' ' << n;
      EXPECT_TRUE(std::is_sorted(a.begin(), a.end()));
    }
}

TEST_F(Shortcuts, UpToEightElementsTakeTheDocumentedSteps) {
  for (const Method& method : kMethods)
    for (int n = 0; n <= 8; ++n) {
      CZEPHDoubleArray a = Shuffled(n);
      Taken();
      method.sort(a);
      auto taken = Taken();
      EXPECT_EQ(0u, taken["order_is_unique"].calls) << method.name << ' ' << n;
    }
}

/// Its zeros are taken out, or lose their signs, and put back: the rest is one fast sort.
TEST_F(Shortcuts, ZerosOfBothSignsCostAFastSortAndAFewPasses) {
  for (const Method& method : kMethods)
    for (const int zeros : {2, 300, 4900}) {
      constexpr int kCount = 5000;
      CZEPHDoubleArray a = Shuffled(kCount);
      for (int i = 0; i < zeros; ++i) a[i * (kCount / zeros)] = i % 2 ? 0.0 : -0.0;
      Taken();
      method.sort(a);
      auto taken = Taken();
      EXPECT_LE(taken["sort"].elements, std::size_t{kCount}) << method.name << ' ' << zeros;
      EXPECT_LE(taken["census"].elements, std::size_t{8 * kCount}) << method.name << ' ' << zeros;
      // Quicksort parts the pieces with zeros only: halves of halves, for two zeros both of them.
      EXPECT_LE(taken["part"].elements, (zeros == 2 ? 6u : 14u) * std::size_t{kCount})
          << method.name << ' ' << zeros;
      if (zeros > 4000) continue;
      EXPECT_GE(taken["sort"].elements, std::size_t{kCount / 2}) << method.name << ' ' << zeros;
    }
}

TEST_F(Shortcuts, RunsBetweenNaNsAreSortedFast) {
  for (const Method& method : {kMethods[0], kMethods[1], kMethods[2]}) {
    constexpr int kCount = 5000;
    CZEPHDoubleArray a = Shuffled(kCount);
    a[1000] = a[3000] = kNaN;
    Taken();
    method.sort(a);
    auto taken = Taken();
    EXPECT_EQ(3u, taken["sort"].calls) << method.name;
    EXPECT_EQ(std::size_t{kCount - 2}, taken["sort"].elements) << method.name;
  }
  CZEPHDoubleArray a = Shuffled(5000);
  a[1000] = kNaN;
  Taken();
  a.QuickSort(10);
  auto taken = Taken();
  EXPECT_LE(taken["part"].elements, 6u * 5000);  // the pieces with the NaN only
  EXPECT_GE(taken["sort"].elements, 2500u);
}

TEST_F(Shortcuts, AscendingBlocksAreMergedFast) {
  std::vector<double> a(1000), b(1000), out(2000);
  std::vector<int> ia(1000), ib(1000), iout(2000);
  for (int i = 0; i < 1000; ++i) {
    a[static_cast<std::size_t>(i)] = ia[static_cast<std::size_t>(i)] = 2 * i - 500;
    b[static_cast<std::size_t>(i)] = ib[static_cast<std::size_t>(i)] = 2 * i - 499;
  }
  std::vector<double> high = b;  // all of a goes first: copied, looked at once
  for (double& x : high) x += 5000;
  for (const Table* form : RunnableTables()) {
    SCOPED_TRACE(form->name);
    counted = form;
    Taken();
    ZEPH_ArrayMergeSorted(a.data(), 1000, b.data(), 1000, out.data());
    auto taken = Taken();
    EXPECT_GE(taken["merge"].elements, 1990u);
    EXPECT_LE(taken["ascends"].elements, 2000u);
    ZEPH_ArrayMergeSorted(ia.data(), 1000, ib.data(), 1000, iout.data());
    EXPECT_GE(Taken()["merge"].elements, 1990u);
    ZEPH_ArrayMergeSorted(a.data(), 1000, high.data(), 1000, out.data());
    taken = Taken();
    EXPECT_EQ(1000u, taken["take_front"].elements);
    EXPECT_EQ(0u, taken["ascends"].calls + taken["merge"].calls);
  }
}

TEST_F(Shortcuts, SearchesAndMaximaCallTheirKernelOnce) {
  CZEPHDoubleArray a = Shuffled(100);
  Taken();
  a.Find(1.0);
  EXPECT_EQ(100u, Taken()["find_first"].elements);
  a.CheckSorted();
  EXPECT_EQ(99u, Taken()["none_descends"].elements);
  a.MaxNorm();
  EXPECT_EQ(100u, Taken()["largest"].elements);
  int index = 0;
  a.sorted = 1;
  a.BinarySearch(1.0, index);
  EXPECT_EQ(0u, Taken()["find_first"].calls);
  for (const int n : {2, 4096, 4097, 10'000}) {
    CZEPHDoubleArray b = Shuffled(n);
    Taken();
    ZEPH_ArrayMaxNorm(b.data, n, 0);
    auto taken = Taken();
    EXPECT_EQ(static_cast<std::size_t>(n), taken["largest_or_nan"].elements);
    EXPECT_EQ(static_cast<std::size_t>(n + 4095) / 4096, taken["largest_or_nan"].calls);
  }
}

TEST_F(Shortcuts, ArithmeticOnMoreThanAFewElementsCallsItsKernelOnce) {
  for (const int n : {1, 4, 5, 16, 17, 100, 1000}) {
    CZEPHDoubleArray a = Shuffled(n), b = a;
    const auto all = static_cast<std::size_t>(n), many = n > 16 ? all : 0;
    Taken();
    EXPECT_EQ((a + b).size, n);
    EXPECT_EQ(many, Taken()["add"].elements) << n;
    EXPECT_EQ((a - b).size, n);
    EXPECT_EQ(many, Taken()["subtract"].elements) << n;
    EXPECT_EQ((a * b).size, n);
    EXPECT_EQ(many, Taken()["multiply"].elements) << n;
    EXPECT_EQ((2.0 * a).size, n);
    EXPECT_EQ(many, Taken()["scale"].elements) << n;
    EXPECT_EQ((-a).size, n);
    EXPECT_EQ(many, Taken()["subtract_from"].elements) << n;
    a.SetEntry(1.0);
    EXPECT_EQ(many, Taken()["fill"].elements) << n;
    a += b;
    auto taken = Taken();
    EXPECT_EQ(many, taken["add"].elements) << n;
    EXPECT_LE(taken["add"].calls, 1u) << n;
    a -= b;
    EXPECT_EQ(many, Taken()["subtract"].elements) << n;
  }
}

TEST_F(Shortcuts, NormsByRowsCallTheirKernelPerBlockOfRows) {
  for (const int n : {1, 7, 100, 961}) {
    Values row(static_cast<std::size_t>(n), 1.0);
    std::vector<double*> m(static_cast<std::size_t>(n), row.data());
    const std::size_t cells = m.size() * m.size();
    Taken();
    ZEPH_MatrixMaxNorm(m.data(), n, 0);
    EXPECT_EQ(cells, Taken()["magnitude"].elements) << n;
    ZEPH_MatrixFrobNorm(m.data(), n, 0);
    EXPECT_EQ(cells, Taken()["length"].elements) << n;
  }
}

}  // namespace
}  // namespace zeph::kernels
