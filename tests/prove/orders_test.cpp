// Random arrays of every order and size: sorts, partitions, searches, merges, norms.
#include <algorithm>

#include "double_array/arrays.h"
#include "prove/array_checks.h"

namespace zeph::prove {
namespace {

using test::Random;

/// Mostly short, one in 16 up to 500, one in 4096 up to 3000.
std::size_t AnyLength(Random& random) {
  if (random.Below(4096) == 0) return random.Below(3000);
  return random.Below(random.Below(16) == 0 ? 500 : 50);
}

Values AnyArray(Random& random) {
  const auto& orders = test::Orders();
  const auto& order = orders[random.Below(orders.size())];
  const std::size_t n = AnyLength(random);
  return order.make(n, random.Next());
}

/// One of the elements, or any value.
double AnyKey(const Values& v, Random& random) {
  if (v.empty() || random.Below(3) == 0) return test::AwkwardValue<double>(random);
  return v[random.Below(v.size())];
}

void Name(const Values& v, Case& seen) {
  if (seen.Failed()) seen.Describe(test::Show(v));
}

void CheckSort(std::uint64_t k, Case& seen) {
  Random random(k * 8 + 1);
  const Values v = AnyArray(random);
  CheckSorts(v, seen);
  Name(v, seen);
}

void CheckPartition(std::uint64_t k, Case& seen) {
  Random random(k * 8 + 2);
  const Values v = AnyArray(random);
  CheckPartitions(v, AnyKey(v, random), seen);
  Name(v, seen);
}

void CheckSearch(std::uint64_t k, Case& seen) {
  Random random(k * 8 + 3);
  Values v = AnyArray(random);
  if (random.Below(2) && std::none_of(v.begin(), v.end(), [](double x) { return x != x; }))
    std::sort(v.begin(), v.end());
  CheckSearches(v, AnyKey(v, random), seen);
  Name(v, seen);
}

void CheckMerging(std::uint64_t k, Case& seen) {
  Random random(k * 8 + 4);
  Values v = AnyArray(random);
  const std::size_t split = random.Below(v.size() + 1);
  const auto middle = v.begin() + static_cast<std::ptrdiff_t>(split);
  if (random.Below(4) && std::none_of(v.begin(), v.end(), [](double x) { return x != x; })) {
    std::sort(v.begin(), middle);
    std::sort(middle, v.end());
  }
  CheckMerge(v, split, seen);
  Name(v, seen);
}

void CheckNorm(std::uint64_t k, Case& seen) {
  Random random(k * 8 + 5);
  const Values v = AnyArray(random);
  CheckNorms(v, seen);
  CheckArithmetic(v, test::Awkward(v.size(), random.Next()), seen);
  Name(v, seen);
}

TEST(Proof, SortsOfAnyOrderMatchTheirOracles) {
  Prove(kRandomCases, CheckSort);
}
TEST(Proof, PartitionsOfAnyOrderMatchTheirOracles) {
  Prove(kRandomCases, CheckPartition);
}
TEST(Proof, SearchesOfAnyOrderMatchTheirOracles) {
  Prove(kRandomCases, CheckSearch);
}
TEST(Proof, MergesOfAnyOrderMatchTheirOracles) {
  Prove(kRandomCases, CheckMerging);
}
TEST(Proof, NormsAndArithmeticOfArraysMatchTheirOracles) {
  Prove(kRandomCases, CheckNorm);
}

}  // namespace
}  // namespace zeph::prove
