// Every array of length 1 to 8 over the seven values that compare in every way.
#include <algorithm>

#include "array_checks.h"
#include "double_array/arrays.h"

namespace zeph::prove {
namespace {

constexpr std::uint64_t kArrays = 6'725'600;  // 7 + 7^2 + ... + 7^8

Values ArrayNumber(std::uint64_t k) {
  std::size_t length = 1;
  for (std::uint64_t count = 7; k >= count; count *= 7) {
    k -= count;
    ++length;
  }
  Values v(length);
  for (double& x : v) {
    x = test::Alphabet()[static_cast<std::size_t>(k % 7)];
    k /= 7;
  }
  return v;
}

void Check(std::uint64_t k, Case& seen) {
  const Values v = ArrayNumber(k);
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

}  // namespace

std::vector<Proof> ArrayProofs() {
  return {{"arrays", "every array of 1 to 8 of -inf -1 -0 0 1 inf NaN, every operation", kArrays,
           Check}};
}

}  // namespace zeph::prove
