// Elements whose ascending order is not unique, in adversarial orders, sorted by every form of the
// kernels.
#include <string>

#include "double_array/arrays.h"
#include "double_array/quick_walk.h"
#include "double_array/shell.h"
#include "kernels/table.h"
#include "oracle/sorts.h"
#include "prove/array_checks.h"
#include "support/hostile.h"

namespace zeph::prove {
namespace {

constexpr std::uint64_t kKinds = test::kContents * test::kArrangements;
constexpr std::uint64_t kEveryLength = 201 * kKinds;  // 0 to 200
constexpr std::uint64_t kAnyLength = 2800;            // up to 20,000, as many of every kind
constexpr std::size_t kQuadratic = 3000;              // the literal steps of more take too long

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

void CheckHostile(std::uint64_t k, bool everySort, Case& seen) {
  const Values v = Input(k);
  for (const int cutoff : {2, 3, 4, 10, 100}) {
    Values want = v;
    oracle::RecQuickSort(want, 0, oracle::SizeOf(v) - 1, cutoff);
    Expect(v, want, "QuickSort", seen, [cutoff](Values& got) {
      double_array::SortAsWalked(got.data(), got.size(), static_cast<std::size_t>(cutoff));
    });
  }
  Values want = v;
  oracle::ShellSortByChains(want);
  if (v.size() <= kQuadratic || k % 64 == 0) {
    Values walked = v;
    oracle::ShellSort(walked);
    seen.Expect(test::SameBits(want, walked), "what the passes of ShellSort leave");
  }
  Expect(v, want, "ShellSort", seen,
         [](Values& got) { double_array::ShellSort(got.data(), got.size()); });
  if (everySort && v.size() <= kQuadratic) CheckSorts(v, seen);
  if (seen.Failed()) seen.Describe(test::Show(v));
}

std::vector<std::string> RunnableForms() {
  std::vector<std::string> names;
  for (const kernels::Table* form : kernels::RunnableTables()) names.push_back(form->name);
  return names;
}

class HostileProof : public ::testing::TestWithParam<std::string> {};

TEST_P(HostileProof, SortsOfZerosNaNAndSlowOrdersMatchTheirOracles) {
  ASSERT_TRUE(kernels::Force(GetParam().c_str()));
  // All sorts by their public functions, once, in the form that this processor selects.
  const bool first = GetParam() == RunnableForms().front();
  Prove(kEveryLength + kAnyLength,
        [first](std::uint64_t k, Case& seen) { CheckHostile(k, first, seen); });
}

INSTANTIATE_TEST_SUITE_P(, HostileProof, ::testing::ValuesIn(RunnableForms()));

}  // namespace
}  // namespace zeph::prove
