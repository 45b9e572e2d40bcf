// Every array of length 1 to 8 over the seven values that compare in every way, and of 9 to 12 over
// fewer.
#include "prove/short_arrays.h"

#include <algorithm>

#include "double_array/arrays.h"
#include "prove/array_checks.h"

namespace zeph::prove {
namespace {

void CheckEveryOperation(const ShortArrays& arrays, std::uint64_t k, Case& seen) {
  const Values v = arrays.Number(k);
  CheckSorts(v, seen);
  for (const double x : test::Alphabet()) {
    CheckPartitions(v, x, seen);
    CheckSearches(v, x, seen);
  }
  for (std::size_t split = 0; split <= v.size(); ++split) CheckMerge(v, split, seen);
  CheckNorms(v, seen);
  const Values reversed(v.rbegin(), v.rend());
  CheckArithmetic(v, reversed, seen);
  if (seen.Failed()) seen.Describe(test::Show(v));
}

void CheckEverySort(const ShortArrays& arrays, std::uint64_t k, Case& seen) {
  const Values v = arrays.Number(k);
  CheckSorts(v, seen);
  if (seen.Failed()) seen.Describe(test::Show(v));
}

template <class Check>
void ProveAll(const ShortArrays& arrays, Check check) {
  Prove(arrays.Count(), [&](std::uint64_t k, Case& seen) { check(arrays, k, seen); });
}

TEST(Proof, EveryOperationOnEveryArrayOf1To8MatchesItsOracle) {
  ProveAll(WalkedArrays(), CheckEveryOperation);
}
TEST(Proof, EverySortOnEveryArrayOf9And10MatchesItsOracle) {
  ProveAll(LongerArrays(), CheckEverySort);
}
TEST(Proof, EverySortOnEveryArrayOf11And12MatchesItsOracle) {
  ProveAll(LongestArrays(), CheckEverySort);
}

}  // namespace
}  // namespace zeph::prove
