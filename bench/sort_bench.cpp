// SPDX-License-Identifier: MIT
//
// CZEPHDoubleArray's sorts: against the standard sort and other sorts, and against their own
// documented steps.
#include <algorithm>

#include "algorithms.h"
#include "baselines/sorts.h"
#include "bench.h"
#include "double_array.h"
#include "support/hostile.h"
#include "support/not_finite.h"

#ifdef ZEPH_HAVE_BOOST
#include <boost/sort/sort.hpp>
#endif
#ifdef ZEPH_HAVE_HWY
#include <hwy/contrib/sort/vqsort.h>
#endif

namespace zeph::bench {
namespace {

using Make = std::vector<double> (*)(std::size_t n, unsigned long long seed);

std::vector<double> Random(std::size_t n, unsigned long long seed) {
  return RandomDoubles(n, seed);
}
std::vector<double> WithNaN(std::size_t n, unsigned long long seed) {
  auto v = RandomDoubles(n, seed);
  v[n / 3 + seed % 7] = zeph::test::kNaN;
  return v;
}
std::vector<double> FewDistinct(std::size_t n, unsigned long long seed) {
  auto v = RandomDoubles(n, seed, 1, 9);
  for (double& x : v) x = static_cast<int>(x);
  return v;
}
std::vector<double> Hundreds(std::size_t n, unsigned long long seed) {
  auto v = RandomDoubles(n, seed, 1, 3);
  for (double& x : v) x = static_cast<int>(x * 100) / 100.0;
  return v;
}
std::vector<double> Sorted(std::size_t n, unsigned long long) {
  std::vector<double> v(n);
  for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i);
  return v;
}
std::vector<double> Reversed(std::size_t n, unsigned long long seed) {
  auto v = Sorted(n, seed);
  std::reverse(v.begin(), v.end());
  return v;
}
std::vector<double> Killer(std::size_t n, unsigned long long) {
  return test::MedianOfThreeKiller(n);
}

/// An array that each timed call finds filled anew; short inputs differ from round to round.
CZEPHDoubleArray& Filled(Row& row, Make make) {
  auto& inputs = row.Keep<std::vector<std::vector<double>>>();
  for (unsigned long long seed = 0; seed < (row.n() <= 1000     ? 1024
                                            : row.n() <= 10'000 ? 64
                                                                : 2);
       ++seed)
    inputs.push_back(make(row.n(), 1000 * seed));
  auto& a = row.Keep<CZEPHDoubleArray>(static_cast<int>(row.n()), 0.0);
  row.Before([&](std::size_t round) {
    const auto& input = inputs[round % inputs.size()];
    std::copy(input.begin(), input.end(), a.data);
  });
  row.Result([&] { return Values(a.data, row.n()); });
  return a;
}

struct Targets {
  double standard, vqsort;
};

void AgainstSorts(Row& row, Make make, Targets targets) {
  auto& a = Filled(row, make);
  row.Ours([&a] { a.QuickSort(10); });
  row.Peer("std::sort", [&a] { std::sort(a.data, a.data + a.size); }).Target(targets.standard);
#ifdef ZEPH_HAVE_HWY
  auto& vqsort = row.Keep<hwy::Sorter>();
  row.Peer(
         "Highway VQSort",
         [&a, &vqsort] { vqsort(a.data, static_cast<std::size_t>(a.size), hwy::SortAscending()); })
      .Target(targets.vqsort);
#endif
#ifdef ZEPH_HAVE_BOOST
  row.Peer("Boost pdqsort", [&a] { boost::sort::pdqsort(a.data, a.data + a.size); });
  row.Peer("Boost float_sort",
           [&a] { boost::sort::spreadsort::float_sort(a.data, a.data + a.size); });
#endif
}

bool AddAgainstSorts(const char* name, const std::vector<std::size_t>& sizes, Make make,
                     Targets targets) {
  return Add("QuickSort", name, sizes, [=](Row& row) { AgainstSorts(row, make, targets); });
}

using Member = void (CZEPHDoubleArray::*)();
using Walk = void (*)(double*, int);

bool AddAgainstWalk(const char* family, const char* name, Make make, Member sort, Walk walk,
                    double target) {
  return Add(family, name, {100, 1000, 10'000}, [=](Row& row) {
    auto& a = Filled(row, make);
    row.Ours([&a, sort] { (a.*sort)(); });
    row.Peer("the walk", [&a, walk] { walk(a.data, a.size); })
        .Target(row.n() == 10'000 ? target : 0);
  });
}

void SelectInts(Row& row) {
  const int n = static_cast<int>(row.n());
  auto& input = row.Keep<std::vector<int>>();
  for (double x : RandomDoubles(row.n(), 3, -1e9, 1e9)) input.push_back(static_cast<int>(x));
  auto& v = row.Keep<std::vector<int>>(input);
  row.Before([&](std::size_t) { v = input; });
  row.Result([&] { return Values(v.data(), v.size()); });
  row.Ours([&v, n] { CZEPHSelectionSort::Run(v.data(), n); });
  row.Peer("the walk", [&v, n] { textbook::SelectionSort(v.data(), n); })
      .Target(n == 10'000 ? 1000 : 0);
}

void SelectDoubles(Row& row) {
  auto& a = Filled(row, [](std::size_t n, unsigned long long seed) {
    return RandomDoubles(n, seed, -1e6, 1e6);
  });
  row.Ours([&a] { CZEPHSelectionSort::Run(a.data, a.size); });
  row.Peer("the walk", [&a] { textbook::SelectionSort(a.data, a.size); })
      .Target(row.n() == 10'000 ? 4 : 0);
}

[[maybe_unused]] const bool kSelection[] = {
    Add("SelectionSort", "ints", {100, 1000, 10'000}, SelectInts),
    Add("SelectionSort", "doubles", {100, 1000, 10'000}, SelectDoubles),
};

[[maybe_unused]] const bool kAdded[] = {
    AddAgainstSorts("random", {1000, 100'000, 1'000'000}, Random, {11, 0.9}),
    AddAgainstSorts("random", {10'000'000}, Random, {10, 0.9}),
    AddAgainstSorts("sorted", {1000, 100'000, 1'000'000}, Sorted, {12, 0}),
    AddAgainstSorts("reversed", {1000, 100'000, 1'000'000}, Reversed, {1, 0}),
    AddAgainstSorts("median-of-3 killer", {10'000}, Killer, {9, 0}),
    AddAgainstSorts("median-of-3 killer", {1'000'000}, Killer, {1, 0}),
    AddAgainstSorts("few distinct", {10'000, 100'000}, FewDistinct, {0, 0}),
    AddAgainstSorts("few distinct", {1'000'000}, FewDistinct, {15, 0}),
    AddAgainstSorts("200 distinct", {10'000, 100'000, 1'000'000}, Hundreds, {0, 0}),
    AddAgainstWalk("BubbleSort", "random", Random, &CZEPHDoubleArray::BubbleSort,
                   textbook::BubbleSort, 2000),
    AddAgainstWalk("BubbleSort", "with a NaN", WithNaN, &CZEPHDoubleArray::BubbleSort,
                   textbook::BubbleSort, 14),
    AddAgainstWalk("InsertionSort", "random", Random, &CZEPHDoubleArray::InsertionSort,
                   textbook::InsertionSort, 120),
    AddAgainstWalk("InsertionSort", "with a NaN", WithNaN, &CZEPHDoubleArray::InsertionSort,
                   textbook::InsertionSort, 3),
    AddAgainstWalk("ShellSort", "random", Random, &CZEPHDoubleArray::ShellSort, textbook::ShellSort,
                   600),
    AddAgainstWalk("ShellSort", "with a NaN", WithNaN, &CZEPHDoubleArray::ShellSort,
                   textbook::ShellSort, 0),
    AddAgainstWalk("ListInsertSort", "random", Random, &CZEPHDoubleArray::ListInsertSort,
                   textbook::ListInsertSort, 1000),
};

}  // namespace
}  // namespace zeph::bench
