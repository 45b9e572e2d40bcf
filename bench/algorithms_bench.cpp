// SPDX-License-Identifier: MIT
//
// The algorithm kit: orderings against a formatted write per item, binary search against std.
#include "algorithms.h"

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <vector>

#include "baselines/algorithms.h"
#include "bench.h"
#include "sheet.h"

namespace zeph::bench {
namespace {

namespace baseline = zeph::baseline;

/// A stream that swallows everything.
class Void {
 public:
  Void() : file_(std::fopen("/dev/null", "w")) {}
  ~Void() {
    if (file_) std::fclose(file_);
  }
  Void(const Void&) = delete;
  Void& operator=(const Void&) = delete;
  std::FILE* file() { return file_; }

 private:
  std::FILE* file_;
};

template <class T>
std::vector<T> Items(std::size_t n, T first) {
  std::vector<T> items(n);
  std::iota(items.begin(), items.end(), first);
  return items;
}

// `stream()` gives the stream to write to; both contenders flush it, so that all is written.
template <class T, class Stream>
void OrderingsRow(Row& row, T first, Stream stream, double target) {
  row.Items(0);
  auto& items = row.Keep<std::vector<T>>(Items(row.n(), first));
  const int n = static_cast<int>(row.n());
  row.Ours([&items, stream, n] {
    std::FILE* f = stream();
    CZEPHPermutation::Run(items.data(), 0, n, f);
    std::fflush(f);
  });
  row.Peer("fprintf per item",
           [&items, stream, n] {
             std::FILE* f = stream();
             baseline::ListOrderings(f, items.data(), 0, n);
             std::fflush(f);
           })
      .Target(target);
}

template <class T>
void ToFile(Row& row, T first) {
  auto& sheet = row.Keep<Sheet>();
  row.Result([&] { return sheet.Content(); });
  OrderingsRow(
      row, first, [&sheet] { return sheet.Rewound(); }, 12);
}

template <class T>
void ToNowhere(Row& row, T first) {
  auto& nowhere = row.Keep<Void>();
  if (!nowhere.file()) return;
  row.Result([&] { return Numbers{static_cast<double>(std::ferror(nowhere.file()))}; });
  OrderingsRow(
      row, first, [&nowhere] { return nowhere.file(); }, 20);
}

const bool kOrderings[] = {
    Add("permutation", "characters to a file", {9}, [](Row& row) { ToFile(row, 'a'); }),
    Add("permutation", "characters to nowhere", {9}, [](Row& row) { ToNowhere(row, 'a'); }),
    Add("permutation", "numbers to a file", {9}, [](Row& row) { ToFile(row, 1); }),
    Add("permutation", "numbers to nowhere", {9}, [](Row& row) { ToNowhere(row, 1); }),
};

const bool kSearches[] = {
    Add("integer search", "binary", {10, 1000, 100'000},
        [](Row& row) {
          auto& a = row.Keep<std::vector<int>>(Items(row.n(), 0));
          auto& sum = row.Keep<int>();
          const int n = static_cast<int>(row.n());
          row.Items(4000);
          // Enough keys that a branch predictor cannot learn the path to each.
          auto& keys = row.Keep<std::vector<int>>();
          for (double x : RandomDoubles(4000, 70, 0, n)) keys.push_back(static_cast<int>(x));
          row.Result([&] { return Values(&sum, 1); });
          row.Ours([&, n] {
            sum = 0;
            for (int key : keys) sum += CZEPHIntegralSearch::BinarySearch(a.data(), n, key);
          });
          row.Peer("std::lower_bound", [&] {
            sum = 0;
            for (int key : keys)
              sum += static_cast<int>(std::lower_bound(a.begin(), a.end(), key) - a.begin());
          });
        }),
};

}  // namespace
}  // namespace zeph::bench
