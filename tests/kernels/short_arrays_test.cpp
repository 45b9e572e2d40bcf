// The arrays of the long proof are long enough to reach every path of the sorts.
#include "prove/short_arrays.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "double_array/quick_walk.h"
#include "double_array/shell.h"
#include "double_array/sorting.h"
#include "kernels/partition.h"
#include "kernels/sort.h"

namespace zeph {
namespace {

/// The calls of kernels that only one path uses.
struct Calls {
  static inline std::size_t censuses, partitions;
  static inline const kernels::Table* active;
};
const kernels::Partitions kCountingPartitions = {
    [](const double* v, std::size_t n) {
      ++Calls::censuses;
      return Calls::active->partitions->census(v, n);
    },
    [](double* v, std::size_t n, double pivot) {
      ++Calls::partitions;
      return Calls::active->partitions->part(v, n, pivot);
    },
    [](const double* v, std::size_t n, double pivot) {
      return Calls::active->partitions->not_less(v, n, pivot);
    },
    [](const double* v, std::size_t n, double pivot) {
      return Calls::active->partitions->not_greater(v, n, pivot);
    },
    [](const double* v, std::size_t n) { return Calls::active->partitions->bounds(v, n); }};

struct Ways {
  std::size_t unique = 0, runs = 0, around_zeros = 0, partitioned = 0;
};

Ways Met(const prove::ShortArrays& arrays) {
  Calls::active = &kernels::Active();
  kernels::Table counting = *Calls::active;
  kernels::Sorting sorting = *counting.sorting;
  sorting.pays_from = 10;  // longer ones are sorted by runs, shorter ones by the documented steps
  counting.sorting = &sorting;
  counting.partitions = &kCountingPartitions;
  kernels::Force(counting);
  Ways met;
  for (std::uint64_t k = 0; k < arrays.Count(); k += 101) {
    const auto v = arrays.Number(k);
    auto shell = v, quick = v;
    const bool nan = std::any_of(v.begin(), v.end(), [](double x) { return x != x; });
    Calls::censuses = Calls::partitions = 0;
    double_array::ShellSort(shell.data(), v.size());
    met.unique += Calls::censuses == 0;
    met.around_zeros += Calls::censuses > 0 && !nan;  // then only zeros need to be followed
    met.runs += Calls::censuses > 0 && nan;
    double_array::SortAsWalked(quick.data(), v.size(), 3);
    met.partitioned += Calls::partitions > 0;
  }
  kernels::Force(*Calls::active);
  return met;
}

TEST(ShortArrays, AreEnumeratedWithoutGapsOrRepetition) {
  const prove::ShortArrays arrays = {{1, 2, 3}, 2, 3};
  ASSERT_EQ(arrays.Count(), 9u + 27u);
  std::vector<std::vector<double>> all;
  for (std::uint64_t k = 0; k < arrays.Count(); ++k) all.push_back(arrays.Number(k));
  std::sort(all.begin(), all.end());
  EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
  EXPECT_EQ(prove::WalkedArrays().longest, double_array::kSmall);
  EXPECT_EQ(prove::LongerArrays().shortest, double_array::kSmall + 1);
}

TEST(ShortArrays, ReachEveryPathOfTheSorts) {
  const Ways longer = Met(prove::LongerArrays()), longest = Met(prove::LongestArrays());
  EXPECT_GT(longer.unique, 20u);
  EXPECT_GT(longer.runs, 1000u);
  EXPECT_GT(longer.around_zeros, 100u);
  EXPECT_GT(longer.partitioned, 1000u);
  EXPECT_GT(longest.unique, 10u);
  EXPECT_GT(longest.around_zeros, 1000u);
  EXPECT_GT(longest.partitioned, 1000u);
}

}  // namespace
}  // namespace zeph
