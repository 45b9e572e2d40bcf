// SPDX-License-Identifier: MIT
//
// Searches against the plain loops. The key sits where the plain loop meets it last.
#include <algorithm>

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

}  // namespace
}  // namespace zeph::bench
