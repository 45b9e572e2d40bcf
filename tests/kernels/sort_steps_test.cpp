// The guaranteed cost of the fast sort: its steps are counted in forms compiled here for that
// purpose. The library's own have no counters.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/scale.h"

namespace {

/// The number of times a step was taken, and of its elements in all.
enum Step { kPartitioned, kHeapSorted, kSampled, kCounted, kSteps };
struct Count {
  std::size_t times, elements;
};
Count counts[kSteps];

void Note(Step step, std::size_t elements) {
  ++counts[step].times;
  counts[step].elements += elements;
}

}  // namespace

// The forms again, in another namespace, with their marks counted.
#define ZEPH_SORT_STEP(step, elements) Note(step, elements)
#define kernels counted_kernels
#include "kernels/sort_avx2.cpp"
#include "kernels/sort_portable.cpp"

namespace zeph::counted_kernels {
namespace {

template <class T>
using Sorter = void (*)(T* v, std::size_t n);
struct Form {
  std::string name;
  Sorter<double> doubles;
  Sorter<int> ints;
  Sorter<double> atTheLimit;  // the quicksort at its limit of partitions
  std::size_t small;          // elements that are not partitioned
  double most;                // partitions of random elements, relative to perfect halving
};

std::vector<Form> Forms() {
  std::vector<Form> forms;
  forms.push_back({"portable", portable::kSorting.sort_doubles, portable::kSorting.sort_ints,
                   [](double* v, std::size_t n) {
                     portable::QuickSort<double>(v, n, nullptr, 0, counting::Chance());
                   },
                   portable::kSmall, 1.3});
#if ZEPH_X64
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx2"))
    forms.push_back({"avx2", avx2::kSorting.sort_doubles, avx2::kSorting.sort_ints,
                     [](double* v, std::size_t n) {
                       avx2::QuickSort<double>(v, n, 0.0, false, 0, counting::Chance());
                     },
                     avx2::kSmall, 1.2});
#endif
  return forms;
}

/// Distinct values in random order; the same for each n.
template <class T>
std::vector<T> Shuffled(std::size_t n) {
  std::vector<T> v(n);
  std::iota(v.begin(), v.end(), T(1));
  std::shuffle(v.begin(), v.end(), std::mt19937(static_cast<unsigned>(n)));
  return v;
}

template <class T>
std::vector<T> Repeated(std::size_t n, std::size_t distinct) {
  std::vector<T> v = Shuffled<T>(n);
  for (T& x : v) x = static_cast<T>(1 + static_cast<std::size_t>(x) % distinct);
  return v;
}

template <class T>
void SortAndCount(Sorter<T> sort, std::vector<T> v) {
  std::fill(std::begin(counts), std::end(counts), Count());
  sort(v.data(), v.size());
  ASSERT_TRUE(std::is_sorted(v.begin(), v.end()));
}

void PrintTo(const Form& form, std::ostream* os) {
  *os << form.name;
}

class SortSteps : public testing::TestWithParam<Form> {};

const std::size_t kLengths[] = {1000, 10'000, test::Scaled<std::size_t>(100'000, 20'000),
                                test::Scaled<std::size_t>(1'000'000, 50'000)};

/// Halving would look at log2(n / what is left to the network or to insertion) times n elements.
template <class T>
void LooksAtNLogN(Sorter<T> sort, const Form& form) {
  for (const std::size_t n : kLengths) {
    SortAndCount(sort, Shuffled<T>(n));
    const double all = static_cast<double>(n);
    const double halvings = std::log2(all / static_cast<double>(form.small));
    EXPECT_LT(static_cast<double>(counts[kPartitioned].elements) / all, form.most * halvings) << n;
    EXPECT_EQ(0u, counts[kHeapSorted].times) << n;
    EXPECT_EQ(0u, counts[kCounted].times) << n;
    EXPECT_LE(counts[kSampled].times, 7u) << n;  // of three generations of pieces
  }
}
TEST_P(SortSteps, RandomDoublesArePartitionedNLogNTimes) {
  LooksAtNLogN<double>(GetParam().doubles, GetParam());
}
TEST_P(SortSteps, RandomIntsArePartitionedNLogNTimes) {
  LooksAtNLogN<int>(GetParam().ints, GetParam());
}

TEST_P(SortSteps, OrderedInputIsNotPartitioned) {
  for (const std::size_t n : kLengths) {
    std::vector<double> v(n);
    std::iota(v.begin(), v.end(), 1.0);
    SortAndCount(GetParam().doubles, v);
    EXPECT_EQ(0u, counts[kPartitioned].times) << n;
    std::reverse(v.begin(), v.end());
    SortAndCount(GetParam().doubles, v);
    EXPECT_EQ(0u, counts[kPartitioned].times) << n;
    SortAndCount(GetParam().doubles, std::vector<double>(n, 2.0));
    EXPECT_EQ(0u, counts[kPartitioned].times) << n;
  }
}

/// Two passes, for any values.
TEST_P(SortSteps, LongInputOfFewValuesIsCounted) {
  for (const std::size_t n : kLengths)
    for (const std::size_t distinct : {2u, 8u, 20u, 100u}) {
      if (n < 8000) continue;
      SortAndCount(GetParam().doubles, Repeated<double>(n, distinct));
      EXPECT_EQ(1u, counts[kCounted].times) << n << ' ' << distinct;
      EXPECT_LT(counts[kPartitioned].elements, 4000u) << n << ' ' << distinct;  // of the values
      SortAndCount(GetParam().ints, Repeated<int>(n, distinct));
      EXPECT_EQ(1u, counts[kCounted].times) << n << ' ' << distinct;
    }
}

/// Each value is finished once it has been a pivot twice.
TEST_P(SortSteps, EqualKeysAreSplitOff) {
  for (const std::size_t distinct : {2u, 3u, 10u, 30u}) {
    SortAndCount(GetParam().doubles, Repeated<double>(5000, distinct));
    const double generations = 2 + 2 * std::log2(static_cast<double>(distinct));
    EXPECT_LT(static_cast<double>(counts[kPartitioned].elements), 5000 * generations) << distinct;
    EXPECT_EQ(0u, counts[kHeapSorted].times) << distinct;
  }
}

TEST_P(SortSteps, WithoutPartitionsLeftTheHeapSorts) {
  SortAndCount(GetParam().atTheLimit, Shuffled<double>(3000));
  EXPECT_EQ(0u, counts[kPartitioned].times);
  EXPECT_EQ(1u, counts[kHeapSorted].times);
  EXPECT_EQ(3000u, counts[kHeapSorted].elements);
}

/// Two generations to each halving, and four.
TEST(SortLimits, LeaveTwoPartitionsToEachHalving) {
  for (const std::size_t n : kLengths) {
    const double halvings = std::floor(std::log2(static_cast<double>(n)));
    EXPECT_EQ(4 + 2 * static_cast<int>(halvings), sorting::DepthLimit(n));
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, SortSteps, testing::ValuesIn(Forms()),
                         [](const auto& form) { return form.param.name; });

}  // namespace
}  // namespace zeph::counted_kernels
