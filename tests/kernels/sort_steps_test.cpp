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
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/scale.h"

namespace {

/// How many times a step was taken, and on how many elements in all.
enum Step { kPartitioned, kHeapSorted, kSampled, kCounted, kComparedWithAll, kSteps };
struct Count {
  std::size_t times, elements;
};
Count counts[kSteps];

/// Where the callers' frames lie: as many places as calls were nested at most.
std::set<std::uintptr_t> frames;

#if defined(__GNUC__)
__attribute__((noinline))
#endif
void Note(Step step, std::size_t elements) {
  volatile char here = 0;
  if (step == kPartitioned) frames.insert(reinterpret_cast<std::uintptr_t>(&here));
  ++counts[step].times;
  counts[step].elements += elements;
}

}  // namespace

// The forms again, in another namespace, with their marks counted.
#define ZEPH_SORT_STEP(step, elements) Note(step, elements)
#define kernels counted_kernels
#include "kernels/sort_avx2.cpp"
#undef ZEPH_WIDE_CALL
#undef ZEPH_WIDE
#include "kernels/sort_avx512.cpp"
#include "kernels/sort_portable.cpp"

namespace zeph::counted_kernels {
namespace {

template <class T>
using Sorter = void (*)(T* v, std::size_t n);
struct Form {
  std::string name;
  Sorter<double> doubles;
  Sorter<int> ints;
  void (*limited)(double* v, std::size_t n, int depth);  // the quicksort with that limit
  std::size_t small;                                     // elements that are not partitioned
  double most;  // partitions of random elements, relative to perfect halving
};

std::vector<Form> Forms() {
  std::vector<Form> forms;
  forms.push_back({"portable", portable::kSorting.sort_doubles, portable::kSorting.sort_ints,
                   [](double* v, std::size_t n, int depth) {
                     portable::QuickSort<double>(v, n, nullptr, depth, counting::Chance());
                   },
                   portable::kSmall, 1.3});
#if ZEPH_X64
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx2"))
    forms.push_back({"avx2", avx2::kSorting.sort_doubles, avx2::kSorting.sort_ints,
                     [](double* v, std::size_t n, int depth) {
                       avx2::QuickSort<double>(v, n, 0.0, false, depth, counting::Chance());
                     },
                     avx2::kSmall, 1.2});
  if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
      __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl"))
    forms.push_back({"avx512", avx512::kSorting.sort_doubles, avx512::kSorting.sort_ints,
                     [](double* v, std::size_t n, int depth) {
                       avx512::QuickSort<double>(v, n, 0.0, false, depth, counting::Chance());
                     },
                     avx512::kSmall, 1.2});
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
  frames.clear();
  sort(v.data(), v.size());
  const auto unsorted = std::is_sorted_until(v.begin(), v.end());
  ASSERT_TRUE(unsorted == v.end())
      << "element " << unsorted - v.begin() << " of " << v.size() << " is less than the one before";
}

void PrintTo(const Form& form, std::ostream* os) {
  *os << form.name;
}

class SortSteps : public testing::TestWithParam<Form> {};

const std::size_t kLengths[] = {1000, 10'000, test::Scaled<std::size_t>(100'000, 20'000),
                                test::Scaled<std::size_t>(1'000'000, 50'000)};

/// Perfect halving would read n log2(n / m) elements, where pieces of m are left to the network or
/// to insertion.
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
TEST_P(SortSteps, LongInputOfFewValuesIsSortedByCounting) {
  for (const std::size_t n : kLengths)
    for (const std::size_t distinct : {2u, 3u, 4u, 5u, 8u, 9u, 20u, 100u}) {
      if (n < 8000) continue;
      // Wide forms compare with up to eight values at once.
      const std::size_t compared = distinct <= 8 && GetParam().name != "portable";
      SortAndCount(GetParam().doubles, Repeated<double>(n + 5, distinct));
      EXPECT_EQ(1u, counts[kCounted].times) << n << ' ' << distinct;
      EXPECT_EQ(compared, counts[kComparedWithAll].times) << n << ' ' << distinct;
      EXPECT_LT(counts[kPartitioned].elements, 4000u) << n << ' ' << distinct;  // of the values
      SortAndCount(GetParam().ints, Repeated<int>(n + 5, distinct));
      EXPECT_EQ(1u, counts[kCounted].times) << n << ' ' << distinct;
      EXPECT_EQ(compared, counts[kComparedWithAll].times) << n << ' ' << distinct;
    }
}

/// Half of the elements repeat a few values, so that a sample promises what counting cannot keep.
TEST_P(SortSteps, CountingIsGivenUpWhereItFailed) {
  for (const std::size_t n : {50'000u, 200'000u}) {
    std::vector<double> v = Shuffled<double>(n);
    for (std::size_t i = 0; i < n; i += 2) v[i] = std::floor(v[i] / 20000) * 20000;
    SortAndCount(GetParam().doubles, v);
    EXPECT_EQ(0u, counts[kCounted].times) << n;
    EXPECT_LE(counts[kSampled].times, 15u) << n;  // 7 in three generations, or few more
  }
}

/// Each value is finished once it has been a pivot twice.
TEST_P(SortSteps, EqualKeysAreSeparatedAtOnce) {
  for (const std::size_t distinct : {2u, 3u, 10u, 30u}) {
    SortAndCount(GetParam().doubles, Repeated<double>(5000, distinct));
    const double generations = 2 + 2 * std::log2(static_cast<double>(distinct));
    EXPECT_LT(static_cast<double>(counts[kPartitioned].elements), 5000 * generations) << distinct;
    EXPECT_EQ(0u, counts[kHeapSorted].times) << distinct;
  }
}

/// Only the smaller piece of a partition is sorted by another call, so each is at most half as long.
TEST_P(SortSteps, RecursionDeepensOncePerHalving) {
  for (const std::size_t n : {1000u, 10'000u, 50'000u}) {
    const double halvings =
        std::log2(static_cast<double>(n) / static_cast<double>(GetParam().small));
    std::vector<double> pipe = Shuffled<double>(n);  // falls, then rises: unequal pieces
    for (std::size_t i = 0; i < n; ++i)
      pipe[i] = static_cast<double>(i < n / 2 ? n - 2 * i : 2 * i - n + 1);
    for (const std::vector<double>& v : {Shuffled<double>(n), pipe}) {
      SortAndCount(GetParam().doubles, v);
      EXPECT_LE(static_cast<double>(frames.size()), 1 + halvings) << n;
    }
    SortAndCount(GetParam().ints, Shuffled<int>(n));
    EXPECT_LE(static_cast<double>(frames.size()), 1 + halvings) << n;
  }
}

/// After `depth` partitions of what contains it, each piece is left to the heap sort.
TEST_P(SortSteps, HeapSortTakesOverAtTheDepthLimit) {
  for (std::size_t depth = 0; depth <= 3; ++depth) {
    std::vector<double> v = Shuffled<double>(3000);
    std::fill(std::begin(counts), std::end(counts), Count());
    GetParam().limited(v.data(), v.size(), static_cast<int>(depth));
    EXPECT_TRUE(std::is_sorted(v.begin(), v.end())) << depth;
    const std::size_t pieces = std::size_t{1} << depth;
    EXPECT_EQ(pieces - 1, counts[kPartitioned].times) << depth;
    EXPECT_EQ(pieces, counts[kHeapSorted].times) << depth;
    EXPECT_EQ(3000u, counts[kHeapSorted].elements) << depth;
  }
}

/// Two generations per halving, and four more.
TEST(SortLimits, AllowTwoPartitionsPerHalving) {
  for (const std::size_t n : kLengths) {
    const double halvings = std::floor(std::log2(static_cast<double>(n)));
    EXPECT_EQ(4 + 2 * static_cast<int>(halvings), sorting::DepthLimit(n)) << "n " << n;
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, SortSteps, testing::ValuesIn(Forms()),
                         [](const auto& form) { return form.param.name; });

}  // namespace
}  // namespace zeph::counted_kernels
