// What keeps an ascending order from being unique, in the orders that the walks are slow on, sorted
// by every form of the kernels.
#include <string>

#include "array_checks.h"
#include "double_array/arrays.h"
#include "double_array/quick_walk.h"
#include "double_array/shell.h"
#include "kernels/table.h"
#include "oracle/sorts.h"
#include "support/hostile.h"

namespace zeph::prove {
namespace {

constexpr std::uint64_t kKinds = test::kContents * test::kArrangements;
constexpr std::uint64_t kEveryLength = 201 * kKinds;  // 0 to 200
constexpr std::uint64_t kAnyLength = 2800;            // up to 20,000, of every kind as many
constexpr std::size_t kQuadratic = 3000;              // the literal walks of more take too long

Values Input(std::uint64_t k) {
  const std::uint64_t kind = k % kKinds;
  test::Random random(k);
  const std::size_t n = k < kEveryLength ? static_cast<std::size_t>(k / kKinds)
                                         : 1 + random.Below(random.Below(4) ? 3000 : 20'000);
  return test::Hostile(static_cast<test::Content>(kind % test::kContents),
                       static_cast<test::Arrangement>(kind / test::kContents), n, random.Next());
}

template <class Sort>
void Expect(const Values& v, const Values& want, const char* what, Case& seen, Sort sort) {
  Values got = v;
  sort(got);
  seen.Expect(test::SameBits(got, want), what);
}

template <std::size_t kForm>
void CheckForm(std::uint64_t k, Case& seen) {
  kernels::Force(*kernels::RunnableTables()[kForm]);
  const Values v = Input(k);
  for (const int cutoff : {2, 3, 4, 10, 100}) {
    Values want = v;
    oracle::RecQuickSort(want, 0, oracle::SizeOf(v) - 1, cutoff);
    Expect(v, want, "QuickSort", seen, [cutoff](Values& got) {
      double_array::SortAsWalked(got.data(), got.size(), static_cast<std::size_t>(cutoff));
    });
  }
  if (v.size() <= kQuadratic || k % 64 == 0) {
    Values want = v;
    oracle::ShellSort(want);
    Expect(v, want, "ShellSort", seen,
           [](Values& got) { double_array::ShellSort(got.data(), got.size()); });
  }
  // All sorts, as they are called, in the form that this processor gets.
  if (kForm == 0 && v.size() <= kQuadratic) CheckSorts(v, seen);
  if (seen.Failed()) seen.Describe(test::Show(v));
}

template <std::size_t kForm>
void AddForm(std::vector<Proof>& proofs) {
  static const auto tables = kernels::RunnableTables();
  if (kForm >= tables.size()) return;
  static const std::string what = std::string("zeros, NaN, killers, ") + tables[kForm]->name;
  proofs.push_back({"hostile", what.c_str(), kEveryLength + kAnyLength, CheckForm<kForm>});
}

}  // namespace

std::vector<Proof> HostileProofs() {
  std::vector<Proof> proofs;
  AddForm<0>(proofs);
  AddForm<1>(proofs);
  AddForm<2>(proofs);
  return proofs;
}

}  // namespace zeph::prove
