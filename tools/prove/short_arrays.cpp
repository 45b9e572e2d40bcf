// Every array of length 1 to 8 over the seven values that compare in every way, and of 9 to 12 over
// fewer.
#include "short_arrays.h"

#include <algorithm>

#include "array_checks.h"
#include "double_array/arrays.h"

namespace zeph::prove {
namespace {

void Check(std::uint64_t k, Case& seen) {
  static const ShortArrays arrays = WalkedArrays();
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

void CheckLonger(std::uint64_t k, Case& seen) {
  static const ShortArrays longer = LongerArrays(), longest = LongestArrays();
  static const std::uint64_t longers = longer.Count();
  const Values v = k < longers ? longer.Number(k) : longest.Number(k - longers);
  CheckSorts(v, seen);
  if (seen.Failed()) seen.Describe(test::Show(v));
}

}  // namespace

std::vector<Proof> ArrayProofs() {
  return {{"arrays", "every array of 1 to 8 of -inf -1 -0 0 1 inf NaN, every operation",
           WalkedArrays().Count(), Check},
          {"longer", "every array of 9 and 10 of -0 0 1 NaN, of 11 and 12 of -1 -0 0, every sort",
           LongerArrays().Count() + LongestArrays().Count(), CheckLonger}};
}

}  // namespace zeph::prove
