// SPDX-License-Identifier: MIT
//
// Searches against the plain loops. The key sits where the plain loop meets it last.
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

[[maybe_unused]] const bool kBinary =
    Add("BinarySearch of ints", "random keys", {10, 1000, 100'000}, [](Row& row) {
      const int n = static_cast<int>(row.n());
      auto& a = row.Keep<std::vector<int>>();
      for (int i = 0; i < n; ++i) a.push_back(3 * i);
      auto& keys = row.Keep<std::vector<int>>();
      row.Before([&keys, n](std::size_t round) {
        keys.clear();
        for (double x : RandomDoubles(1000, round * 1000, 0, 3.0 * n))
          keys.push_back(static_cast<int>(x));
      });
      auto& sum = row.Keep<int>();
      row.Result([&sum] { return Values(&sum, 1); });
      row.Ours([&a, &keys, &sum, n] {
        sum = 0;
        for (int key : keys) sum ^= CZEPHIntegralSearch::BinarySearch(a.data(), n, key);
      });
      row.Peer("the loop", [&a, &keys, &sum, n] {
        sum = 0;
        for (int key : keys) sum ^= textbook::BinarySearch(a.data(), n, key);
      });
    });

}  // namespace
}  // namespace zeph::bench
