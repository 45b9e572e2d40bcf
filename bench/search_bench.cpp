// SPDX-License-Identifier: MIT
//
// Searches against the plain loops. The key is where the plain loop finds it last.
#include <algorithm>

#include "algorithms.h"
#include "baselines/searches.h"
#include "bench.h"
#include "double_array.h"

namespace zeph::bench {
namespace {

[[maybe_unused]] const bool kFind =
    Add("Find", "key in the last place", {10, 100, 1000, 10'000}, [](Row& row) {
      const int n = static_cast<int>(row.n());
      auto& a = row.Keep<CZEPHDoubleArray>(n, 1.0);
      a.data[n - 1] = 2.0;
      auto& at = row.Keep<int>();
      row.Result([&at] { return Values(&at, 1); });
      row.Ours([&] { at = a.Find(2.0); });
      row.Peer("the loop", [&] { at = textbook::Find(a.data, a.size, 2.0); })
          .Target(n == 1000 || n == 10'000 ? 4 : 0);
      row.Peer("std::find",
               [&] { at = static_cast<int>(std::find(a.data, a.data + a.size, 2.0) - a.data); });
    });

[[maybe_unused]] const bool kSequential =
    Add("SequentialSearch", "key in the first place", {10, 100, 1000, 10'000}, [](Row& row) {
      const int n = static_cast<int>(row.n());
      auto& a = row.Keep<std::vector<int>>(row.n() + 1, 1);
      a[1] = 2;
      auto& at = row.Keep<int>();
      row.Result([&at] { return Values(&at, 1); });
      row.Ours([&a, &at, n] { at = CZEPHIntegralSearch::SequentialSearch(a.data(), n, 2); });
      row.Peer("the loop", [&a, &at, n] { at = textbook::SequentialSearch(a.data(), n, 2); })
          .Target(n == 1000 || n == 10'000 ? 4 : 0);
    });

/// A thousand keys a round, half of them missed, sought among 0, 3, 6, ...
template <class T>
struct Sought {
  std::vector<T> elements, keys;
  int sum = 0;

  Sought(Row& row, std::size_t n) {
    row.Items(1000);
    for (std::size_t i = 0; i < n; ++i) elements.push_back(static_cast<T>(3 * i));
    row.Before([this, n](std::size_t round) {
      keys.clear();
      for (double x : RandomDoubles(1000, round * 1000, 0, static_cast<double>(n)))
        keys.push_back(static_cast<T>(3 * static_cast<int>(x)) + (keys.size() % 2 != 0));
    });
    row.Result([this] { return Values(&sum, 1); });
  }
  /// `find(key)` returns the index or -1.
  template <class Find>
  auto All(Find find) {
    return [this, find] {
      sum = 0;
      for (T key : keys) sum ^= find(key);
    };
  }
  auto ByLowerBound() {
    return All([this](T key) {
      const auto at = std::lower_bound(elements.begin(), elements.end(), key);
      return at != elements.end() && *at == key ? static_cast<int>(at - elements.begin()) : -1;
    });
  }
};

[[maybe_unused]] const bool kBinary[] = {
    Add("BinarySearch", "ints, half missed", {10, 1000, 100'000, 10'000'000},
        [](Row& row) {
          const int n = static_cast<int>(row.n());
          auto& s = row.Keep<Sought<int>>(row, row.n());
          row.Ours(s.All([&s, n](int key) {
            return CZEPHIntegralSearch::BinarySearch(s.elements.data(), n, key);
          }));
          row.Peer("the loop", s.All([&s, n](int key) {
            return textbook::BinarySearch(s.elements.data(), n, key);
          }));
          row.Peer("std::lower_bound", s.ByLowerBound());
        }),
    Add("BinarySearch", "doubles, half missed", {10, 1000, 100'000, 10'000'000},
        [](Row& row) {
          const int n = static_cast<int>(row.n());
          auto& s = row.Keep<Sought<double>>(row, row.n());
          auto& a = row.Keep<CZEPHDoubleArray>(n, s.elements.data());
          a.sorted = 1;
          row.Ours(s.All([&a](double key) {
            int index = -1;
            a.BinarySearch(key, index);
            return index;
          }));
          row.Peer("the loop", s.All([&s, n](double key) {
            return textbook::BinarySearch(s.elements.data(), n, key);
          }));
          row.Peer("std::lower_bound", s.ByLowerBound());
        }),
};

[[maybe_unused]] const bool kSorted =
    Add("CheckSorted", "sorted", {10, 100, 1000, 100'000, 10'000'000}, [](Row& row) {
      const int n = static_cast<int>(row.n());
      auto& a = row.Keep<CZEPHDoubleArray>(n, 0.0);
      for (int i = 0; i < n; ++i) a.data[i] = i;
      auto& sorted = row.Keep<int>();
      row.Result([&sorted] { return Values(&sorted, 1); });
      row.Ours([&] { sorted = a.CheckSorted(); });
      row.Peer("std::is_sorted", [&] { sorted = std::is_sorted(a.data, a.data + a.size); });
    });

}  // namespace
}  // namespace zeph::bench
