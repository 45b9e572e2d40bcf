// The documented quicksort on blocks: how many elements it reads, and what it does without memory.
#include "double_array/quick_walk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "double_array/stop_tree.h"
#include "kernels/memory.h"
#include "kernels/partition.h"
#include "oracle/sorts.h"
#include "support/bits.h"
#include "support/guarded.h"
#include "support/hostile.h"
#include "support/scale.h"

namespace zeph::double_array {
namespace {

using test::Arrangement;
using test::Content;
using Values = std::vector<double>;

void* Refuse(std::size_t) {
  return nullptr;
}

/// Large enough for a stop tree on the heap.
const std::size_t kLarge = test::Scaled<std::size_t>(20000, 17000);

void CompareKillers(std::size_t n) {
  for (Content content : {Content::kBothZeros, Content::kOnePercentNans, Content::kHalfZeros}) {
    Values v = test::Hostile(content, Arrangement::kKiller, n, 3);
    Values want = v;
    oracle::RecQuickSort(want, 0, oracle::SizeOf(want) - 1, 10);
    SortAsWalked(v.data(), n, 10);
    EXPECT_TRUE(test::SameBits(v, want)) << test::kContentNames[static_cast<int>(content)];
  }
}

TEST(QuickWalk, MakesTheDocumentedExchangesOnKillersWithAStopTree) {
  CompareKillers(kLarge);
}

#ifdef ZEPH_TEST_GUARDED
/// The last leaf is seldom a whole one, and larger ones are used where there is no memory for a tree of many.
TEST(QuickWalk, StaysInBoundsOnKillersWithMemoryAndWithout) {
  for (const std::size_t n : {std::size_t{16'449}, kLarge}) {
    const Values v = test::Hostile(Content::kHalfZeros, Arrangement::kKiller, n, 3);
    Values want = v;
    oracle::RecQuickSort(want, 0, oracle::SizeOf(want) - 1, 10);
    const test::Guarded pages(n * sizeof(double));
    for (const bool atEnd : {false, true})
      for (const auto lender : {kernels::detail::borrow.load(), Refuse}) {
        double* const sorted = pages.Copy(v, atEnd);
        const auto before = kernels::detail::borrow.exchange(lender);
        SortAsWalked(sorted, n, 10);
        kernels::detail::borrow = before;
        EXPECT_TRUE(test::SameBits(Values(sorted, sorted + n), want)) << n;
      }
  }
}
#endif

/// The larger piece again and again, in any order: bounds must follow every exchange.
void ExpectDocumentedParts(Values v, const std::string& name) {
  Values want = v;
  StopTree tree(v.data(), v.size());
  tree.Cover(0, v.size() - 1);
  int first = 0, last = oracle::SizeOf(v) - 1;
  while (last - first > 3) {
    const std::size_t stop =
        tree.Part(static_cast<std::size_t>(first), static_cast<std::size_t>(last));
    const double pivot = oracle::MedianOf3(want, first, last);
    const int p = oracle::QuickPartition(want, first, last, pivot);
    ASSERT_EQ(stop, static_cast<std::size_t>(p)) << name;
    if (p - first < last - p) {
      first = p + 1;
    } else {
      last = p - 1;
    }
  }
  ASSERT_TRUE(test::SameBits(v, want)) << name;
}

TEST(StopTree, PartitionsAsDocumentedAtEveryDepth) {
  for (std::size_t n : {70u, 600u, 3000u}) test::ForEachHostile(n, n, ExpectDocumentedParts);
}

/// Twice to sixteen times as large, as many as a tree has room for.
TEST(StopTree, PartitionsAsDocumentedByLargerLeavesWithoutMemory) {
  const auto lender = kernels::detail::borrow.exchange(Refuse);
  for (const std::size_t n : {16'385u, 17'000u, 32'800u, 70'001u, 140'000u}) {
    test::Random random(n);
    Values v(n);
    for (double& x : v) x = random.Real(-9, 9);
    ExpectDocumentedParts(v, std::to_string(n));
  }
  kernels::detail::borrow = lender;
}

/// A NaN as the pivot stops both scans at once, everywhere.
TEST(StopTree, PartitionsAsDocumentedAroundANaN) {
  for (std::size_t n : {70u, 600u, 3000u})
    for (std::size_t at : {std::size_t{0}, (n - 1) / 2, n - 1}) {
      test::Random random(n + at);
      Values v(n);
      for (double& x : v) x = random.Real(-9, 9);
      v[at] = test::kNaN;
      Values want = v;
      StopTree tree(v.data(), n);
      tree.Cover(0, n - 1);
      const std::size_t stop = tree.Part(0, n - 1);
      const int last = static_cast<int>(n) - 1;
      const double pivot = oracle::MedianOf3(want, 0, last);
      ASSERT_EQ(stop, static_cast<std::size_t>(oracle::QuickPartition(want, 0, last, pivot)));
      ASSERT_TRUE(test::SameBits(v, want)) << at << " of " << n;
    }
}

/// What a tree has borrowed: its leaves, then the nodes of each level above.
std::vector<kernels::Bounds> lent;
class Lending {
 public:
  Lending()
      : lender_(kernels::detail::borrow.exchange(Lend)),
        taker_(kernels::detail::give_back.exchange(Take)) {}
  ~Lending() {
    kernels::detail::borrow = lender_;
    kernels::detail::give_back = taker_;
  }
  Lending(const Lending&) = delete;
  Lending& operator=(const Lending&) = delete;

 private:
  static void* Lend(std::size_t bytes) {
    lent.assign(bytes / sizeof(kernels::Bounds), {});
    return lent.data();
  }
  static void Take(void*) {}
  void* (*lender_)(std::size_t);
  void (*taker_)(void*);
};

/// Whether every leaf's bounds hold its elements, and every other node has those of the eight below it.
void ExpectBoundsOf(const Values& v, const std::string& name) {
  std::size_t nodes = (v.size() + 63) / 64, below = 0;
  for (std::size_t i = 0; i < v.size(); ++i) {
    const bool nan = v[i] != v[i];
    const kernels::Bounds& leaf = lent[i / 64];
    ASSERT_LE(leaf.least, nan ? -test::kInfinity : v[i]) << name << ", element " << i;
    ASSERT_GE(leaf.greatest, nan ? test::kInfinity : v[i]) << name << ", element " << i;
  }
  for (std::size_t at = nodes; nodes > 1; below = at, at += nodes) {
    const std::size_t children = nodes;
    nodes = (nodes + 7) / 8;
    for (std::size_t k = 0; k < nodes; ++k) {
      kernels::Bounds want = lent[below + 8 * k];
      for (std::size_t child = 8 * k; child < std::min(8 * k + 8, children); ++child) {
        want.least = std::min(want.least, lent[below + child].least);
        want.greatest = std::max(want.greatest, lent[below + child].greatest);
      }
      ASSERT_EQ(lent[at + k].least, want.least) << name << ", node " << k << " of " << nodes;
      ASSERT_EQ(lent[at + k].greatest, want.greatest) << name << ", node " << k << " of " << nodes;
    }
  }
}

/// Bounds that are too wide cost time only: scans enter what they could skip.
TEST(StopTree, NodesHaveTheBoundsOfThoseBelowAfterEveryPartition) {
  const Lending lending;
  for (Content content : {Content::kBothZeros, Content::kOnePercentNans, Content::kHalfZeros}) {
    const std::string name = test::kContentNames[static_cast<int>(content)];
    Values v = test::Hostile(content, Arrangement::kKiller, kLarge, 3);
    StopTree tree(v.data(), v.size());
    std::size_t first = 0, last = v.size() - 1;
    tree.Cover(first, last);
    for (int k = 0; last - first > 3; ++k) {
      const std::size_t p = tree.Part(first, last);
      (p - first < last - p ? first : last) = p - first < last - p ? p + 1 : p - 1;
      if (k % 64 != 0) continue;
      ASSERT_NO_FATAL_FAILURE(ExpectBoundsOf(v, name));
    }
  }
}

/// An order in which each partition splits off one of `share` elements, at either end, and moves others all over the
/// piece. So a piece needs a tree, halves, is partitioned without it, and needs it again. Two zeros stay in the larger
/// piece.
Values Nibbled(std::size_t n, std::size_t share, std::uint64_t seed) {
  test::Random random(seed);
  std::vector<std::size_t> at(n), others;  // where the element at a place was at first
  std::iota(at.begin(), at.end(), std::size_t{0});
  Values v(n);
  const auto shuffle = [&random](auto& all) {
    for (std::size_t k = all.size(); k > 1; --k) std::swap(all[k - 1], all[random.Below(k)]);
  };
  const auto fill = [&](std::size_t first, std::size_t count, std::size_t low) {
    others.resize(count);
    std::iota(others.begin(), others.end(), low);
    shuffle(others);
    for (std::size_t k = 0; k < count; ++k) v[at[first + k]] = static_cast<double>(others[k]);
  };
  std::size_t first = 0, count = n, low = 0;
  while (count > 100) {
    const std::size_t few = count / share, less = random.Below(2) ? few : count - 1 - few;
    const std::size_t middle = (count - 1) / 2, pivot = count - 2;
    std::vector<char> below(count, 0);
    others.clear();
    for (std::size_t k = 1; k + 1 < count; ++k)
      if (k != middle) others.push_back(k);
    shuffle(others);
    below[0] = 1;
    for (std::size_t k = 0; k + 1 < less; ++k) below[others[k]] = 1;
    v[at[first + middle]] = static_cast<double>(low + less);
    std::swap(at[first + middle], at[first + pivot]);
    std::swap(below[middle], below[pivot]);
    std::size_t i = 0, j = pivot;
    for (;;) {
      while (below[++i]) {
      }
      while (!below[--j]) {
      }
      if (i >= j) break;
      std::swap(at[first + i], at[first + j]);
      std::swap(below[i], below[j]);
    }
    std::swap(at[first + i], at[first + pivot]);
    const std::size_t more = count - 1 - less;
    if (less < more) {
      fill(first, less, low);
      first += less + 1;
      low += less + 1;
    } else {
      fill(first + less + 1, more, low + less + 1);
    }
    count = std::max(less, more);
  }
  fill(first, count, low);
  const auto zero = static_cast<double>(low + count / 2);
  for (double& x : v)
    x = x == zero ? 0.0 : x == zero + 1 ? -0.0 : x < zero ? x - zero : x - zero - 1;
  return v;
}

TEST(QuickWalk, MakesTheDocumentedExchangesWhereATreeIsNeededAgain) {
  for (const std::size_t n : {12'000u, 16'384u})
    for (const std::size_t share : {70u, 85u, 100u})
      for (std::uint64_t seed = 1; seed <= test::Scaled<std::uint64_t>(5, 3); ++seed) {
        Values v = Nibbled(n, share, seed);
        Values want = v;
        oracle::RecQuickSort(want, 0, oracle::SizeOf(want) - 1, 10);
        SortAsWalked(v.data(), n, 10);
        ASSERT_TRUE(test::SameBits(v, want)) << n << ", seed " << seed;
      }
}

TEST(QuickWalk, MakesTheDocumentedExchangesWithoutMemoryForTheTree) {
  const auto lender = kernels::detail::borrow.exchange(Refuse);
  // As many leaves as the tree itself has room for, one more, and more by a leaf that has doubled.
  for (std::size_t n : {std::size_t{16'384}, std::size_t{16'385}, std::size_t{16'449}, kLarge})
    CompareKillers(n);
  kernels::detail::borrow = lender;
}

/// Counts the elements that the kernels read.
struct Looks {
  static inline std::size_t count;
  static inline const kernels::Partitions* form;
};
const kernels::Partitions kCounting = {[](const double* v, std::size_t n) {
                                         Looks::count += n;
                                         return Looks::form->census(v, n);
                                       },
                                       [](double* v, std::size_t n, double pivot) {
                                         Looks::count += n;
                                         return Looks::form->part(v, n, pivot);
                                       },
                                       [](const double* v, std::size_t n, double pivot) {
                                         Looks::count += n;
                                         return Looks::form->not_less(v, n, pivot);
                                       },
                                       [](const double* v, std::size_t n, double pivot) {
                                         Looks::count += n;
                                         return Looks::form->not_greater(v, n, pivot);
                                       },
                                       [](const double* v, std::size_t n) {
                                         Looks::count += n;
                                         return Looks::form->bounds(v, n);
                                       }};

/// On a killer the documented steps read a fifth of n^2 elements.
TEST(QuickWalk, ReadsNLogNElementsOfAnyInput) {
  const kernels::Table& active = kernels::Active();
  kernels::Table counting = active;
  Looks::form = active.partitions;
  counting.partitions = &kCounting;
  kernels::Force(counting);
  for (std::size_t n : {1000u, 10000u, 100000u})
    test::ForEachHostile(n, 3, [n](Values v, const std::string& name) {
      Looks::count = 0;
      SortAsWalked(v.data(), n, 10);
      const double each = static_cast<double>(Looks::count) / static_cast<double>(n);
      EXPECT_LT(each, 15 * std::log2(static_cast<double>(n))) << name;
    });
  kernels::Force(active);
}

}  // namespace
}  // namespace zeph::double_array
