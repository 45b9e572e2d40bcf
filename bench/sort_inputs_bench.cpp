// SPDX-License-Identifier: MIT
//
// The sorts on elements whose ascending order is not unique (zeros of both signs, NaN), in
// adversarial orders: no input may take much longer than random data.
#include <algorithm>
#include <string>

#include "bench.h"
#include "double_array.h"
#include "support/hostile.h"

#ifdef ZEPH_HAVE_HWY
#include <hwy/contrib/sort/vqsort.h>
#endif

namespace zeph::bench {
namespace {

using test::Arrangement;
using test::Content;

struct Kind {
  Content content;
  Arrangement arrangement;
};

using Sort = void (*)(CZEPHDoubleArray&);

bool HasNan(Kind kind) {
  return kind.content == Content::kOneNan || kind.content == Content::kOnePercentNans;
}
bool Hostile(Kind kind) {
  return kind.arrangement == Arrangement::kKiller || kind.arrangement == Arrangement::kInterleaved;
}

std::string NameOf(Kind kind) {
  const std::string content = test::kContentNames[static_cast<int>(kind.content)];
  if (kind.arrangement == Arrangement::kShuffled) return content;
  const std::string arrangement = test::kArrangementNames[static_cast<int>(kind.arrangement)];
  return kind.content == Content::kPlain ? arrangement : arrangement + ", " + content;
}

using Inputs = std::vector<std::vector<double>>;

Inputs Make(Kind kind, std::size_t n) {
  Inputs inputs;
  const std::uint64_t count = n <= 1000 ? 256 : n <= 20'000 ? 16 : 2;
  for (std::uint64_t seed = 0; seed < count; ++seed)
    inputs.push_back(test::Hostile(kind.content, kind.arrangement, n, 1000 * seed));
  return inputs;
}

/// An array that each timed call finds filled anew.
struct Filled {
  Filled(Kind kind, std::size_t n) : inputs(Make(kind, n)), array(static_cast<int>(n), 0.0) {}
  void Fill(std::size_t round) {
    const auto& input = inputs[round % inputs.size()];
    std::copy(input.begin(), input.end(), array.data);
  }
  Inputs inputs;
  CZEPHDoubleArray array;
};

/// `slower`: how many times as long as random data the input may take.
void AgainstRandom(Row& row, Kind kind, Sort sort, double slower, bool peers) {
  auto& filled = row.Keep<Filled>(kind, row.n());
  auto& random = row.Keep<Filled>(Kind{Content::kPlain, Arrangement::kShuffled}, row.n());
  auto& a = filled.array;
  row.Before([&](std::size_t round) {
    filled.Fill(round);
    random.Fill(round);
  });
  row.Result([&] { return Values(a.data, row.n()); });
  row.Ours([&a, sort] { sort(a); });
  row.Peer("ours, random order", [&random, sort] { sort(random.array); })
      .NotCompared()
      .Target(1 / slower);
  if (!peers || HasNan(kind)) return;
  constexpr double kZerosInAnyOrder = 1e-300;
  row.Peer("std::sort", [&a] { std::sort(a.data, a.data + a.size); }).Near(kZerosInAnyOrder);
#ifdef ZEPH_HAVE_HWY
  auto& vqsort = row.Keep<hwy::Sorter>();
  row.Peer(
         "Highway VQSort",
         [&a, &vqsort] { vqsort(a.data, static_cast<std::size_t>(a.size), hwy::SortAscending()); })
      .Near(kZerosInAnyOrder);
#endif
}

template <class Limit>
bool AddKinds(const char* family, const std::vector<std::size_t>& sizes, Sort sort, bool peers,
              Limit limit) {
  for (int arrangement = 0; arrangement < test::kArrangements; ++arrangement)
    for (int content = 0; content < test::kContents; ++content) {
      const Kind kind = {static_cast<Content>(content), static_cast<Arrangement>(arrangement)};
      if (kind.content == Content::kPlain && kind.arrangement != Arrangement::kInterleaved)
        continue;  // measured with the other plain orders
      const double slower = limit(kind);
      Add(family, NameOf(kind).c_str(), sizes,
          [=](Row& row) { AgainstRandom(row, kind, sort, slower, peers); });
    }
  return true;
}

double Twice(Kind kind) {
  return Hostile(kind) ? 30 : 2;
}

/// With NaNs the passes themselves have to be run, as they move elements across the NaNs; many
/// zeros are followed as bytes, which takes time.
double ForShell(Kind kind) {
  if (Hostile(kind)) return 30;
  if (HasNan(kind)) return 8;
  return kind.content == Content::kHalfZeros ? 2.5 : 2;
}

[[maybe_unused]] const bool kAdded[] = {
    AddKinds(
        "QuickSort", {10'000, 1'000'000}, [](CZEPHDoubleArray& a) { a.QuickSort(10); }, true,
        Twice),
    AddKinds(
        "ShellSort", {10'000, 16'384}, [](CZEPHDoubleArray& a) { a.ShellSort(); }, true, ForShell),
    AddKinds(
        "BubbleSort", {10'000}, [](CZEPHDoubleArray& a) { a.BubbleSort(); }, false, Twice),
    AddKinds(
        "InsertionSort", {10'000}, [](CZEPHDoubleArray& a) { a.InsertionSort(); }, false, Twice),
    AddKinds(
        "ListInsertSort", {10'000}, [](CZEPHDoubleArray& a) { a.ListInsertSort(); }, false, Twice),
};

}  // namespace
}  // namespace zeph::bench
