// SPDX-License-Identifier: MIT
//
// What ZEPH_HARDENED costs a caller: the same loops over single elements, compiled with it.
#include "bench.h"
#include "peers/element_access.h"

namespace zeph::bench {
namespace {

const bool added_sum = Add("hardened", "sum of a[i]", {1000}, [](Row& row) {
  const auto values = RandomDoubles(row.n(), 5);
  auto& a = row.Keep<CZEPHDoubleArray>(static_cast<int>(row.n()), values.data());
  auto& sum = row.Keep<double>();
  row.Result([&] { return Values(&sum, 1); });
  row.Ours([&] { sum = plain_access::Sum(a); });
  row.Peer("with every check", [&] { sum = hardened_access::Sum(a); });
});

const bool added_scale = Add("hardened", "b[i] = a[i] * 2", {1000}, [](Row& row) {
  const auto values = RandomDoubles(row.n(), 6);
  auto& a = row.Keep<CZEPHDoubleArray>(static_cast<int>(row.n()), values.data());
  auto& b = row.Keep<CZEPHDoubleArray>(static_cast<int>(row.n()), 0.0);
  row.Result([&] { return Values(b.data, row.n()); });
  row.Ours([&] { plain_access::Scale(a, b); });
  row.Peer("with every check", [&] { hardened_access::Scale(a, b); });
});

const bool added_matrix = Add("hardened", "sum of m[i][j]", {200}, [](Row& row) {
  row.Items(row.n() * row.n());
  const int n = static_cast<int>(row.n());
  auto& m = row.Keep<CZEPHMatrix>(n, n);
  const auto values = RandomDoubles(row.n() * row.n(), 7);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) m[i][j] = values[static_cast<std::size_t>(i * n + j)];
  auto& sum = row.Keep<double>();
  row.Result([&] { return Values(&sum, 1); });
  row.Ours([&] { sum = plain_access::Sum(m); });
  row.Peer("with every check", [&] { sum = hardened_access::Sum(m); });
});

}  // namespace
}  // namespace zeph::bench
