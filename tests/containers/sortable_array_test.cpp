#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>

#include "containers/sortable_support.h"
#include "oracle/object_sorts.h"
#include "support/allocation.h"

using namespace zeph::test;

namespace {

using Objects = std::vector<CObject*>;

void Fill(CZEPHSortableObArray& array, const Objects& objects) {
  array.RemoveAll();
  for (CObject* object : objects) array.Add(object);
}

Objects ObjectsOf(CZEPHSortableObArray& array) {
  return {array.GetData(), array.GetData() + array.GetSize()};
}

CZEPHSortableObArray* victim = nullptr;  // what the misbehaving compare functions change
int calls_left = 0;

int Shrinks(CObject* a, CObject* b) {
  if (--calls_left == 0) victim->SetSize(victim->GetSize() / 2);
  return ItemOf(a).key - ItemOf(b).key;
}
int Releases(CObject* a, CObject* b) {
  if (--calls_left == 0) victim->RemoveAll();
  return ItemOf(a).key - ItemOf(b).key;
}
int Moves(CObject* a, CObject* b) {
  if (--calls_left == 0) {
    victim->SetSize(victim->GetSize() + 1000);
    victim->SetSize(victim->GetSize() - 1000);
  }
  return ItemOf(a).key - ItemOf(b).key;
}
int Throws(CObject* a, CObject* b) {
  if (--calls_left == 0) throw 7;
  return ItemOf(a).key - ItemOf(b).key;
}

}  // namespace

TEST(SortableArray, AddsNoFieldToItsBase) {
  EXPECT_EQ(sizeof(CZEPHSortableObArray), sizeof(CObArray));
}

TEST(SortableArray, DoesNotCompareFewerThanTwoElements) {
  CZEPHSortableObArray array;
  EXPECT_TRUE(Traced([&] { array.Sort(ByKey); }).empty());
  const Items items = Items::OfKeys({5});
  Fill(array, items.Pointers());
  EXPECT_TRUE(Traced([&] { array.Sort(ByKey); }).empty());
  EXPECT_EQ(ObjectsOf(array), items.Pointers());
}

TEST(SortableArray, SortsFiveElementsWithTheGapsFourAndOne) {
  const Items items = Items::OfKeys({5, 4, 3, 2, 1});
  CZEPHSortableObArray array;
  Fill(array, items.Pointers());
  const auto trace = Traced([&] { array.Sort(ByKey); });
  EXPECT_EQ(Keys(ObjectsOf(array)), (std::vector<int>{1, 2, 3, 4, 5}));
  ASSERT_GE(trace.size(), 2u);
  EXPECT_EQ(trace[0], Comparison(4, 0));  // gap 4: the last with the first
  EXPECT_EQ(trace[1], Comparison(1, 4));  // gap 1, after the exchange
}

TEST(SortableArray, TakesTheDocumentedStepsForEveryCompareFunction) {
  CZEPHSortableObArray array;
  for (const Temper& temper : Tempers())
    for (std::size_t n :
         {0u, 1u, 2u, 3u, 4u, 5u, 6u, 12u, 13u, 14u, 15u, 39u, 40u, 41u, 42u, 122u, 400u})
      for (int distinct : {1, 2, 5, 1000}) {
        const Items items(n, distinct, n * 7 + static_cast<std::size_t>(distinct));
        Objects want = items.Pointers();
        Fill(array, want);
        const auto wanted =
            Traced([&] { oracle::ShellSortObjects(want, 0, static_cast<int>(n), temper.compare); });
        const auto trace = Traced([&] { array.Sort(temper.compare); });
        ASSERT_EQ(Ids(ObjectsOf(array)), Ids(want)) << temper.name << " n=" << n;
        ASSERT_EQ(trace, wanted) << temper.name << " n=" << n;
      }
}

TEST(SortableArray, SortsEveryOrderOfUpToSevenElements) {
  CZEPHSortableObArray array;
  for (std::size_t n = 2; n <= 7; ++n) {
    const Items items(n, 4, n);
    Objects order = items.Pointers();
    std::sort(order.begin(), order.end());
    do {
      Fill(array, order);
      Objects want = order;
      oracle::ShellSortObjects(want, 0, static_cast<int>(n), ByKey);
      array.Sort(ByKey);
      ASSERT_EQ(ObjectsOf(array), want) << "n " << n;
      const auto keys = Keys(ObjectsOf(array));
      ASSERT_TRUE(std::is_sorted(keys.begin(), keys.end())) << "n " << n;
    } while (std::next_permutation(order.begin(), order.end()));
  }
}

TEST(SortableArray, IsNotStableAcrossGaps) {
  const Items items = Items::OfKeys({2, 2, 2, 2, 1});
  CZEPHSortableObArray array;
  Fill(array, items.Pointers());
  array.Sort(ByKey);
  EXPECT_EQ(Ids(ObjectsOf(array)), (std::vector<int>{4, 1, 2, 3, 0}));  // 0 went after its equals
}

TEST(SortableArray, SortsARangeAndLeavesTheRestUntouched) {
  const Items items = Items::OfKeys({7, 6, 5, 4, 3, 2, 1});
  CZEPHSortableObArray array;
  Fill(array, items.Pointers());
  array.Sort(2, 3, ByKey);
  EXPECT_EQ(Keys(ObjectsOf(array)), (std::vector<int>{7, 6, 3, 4, 5, 2, 1}));
}

TEST(SortableArray, SortsEveryRangeAsTheStepsSay) {
  CZEPHSortableObArray array;
  for (const Temper& temper : Tempers()) {
    const Items items(23, 4, 5);
    for (int first = 0; first <= 23; ++first)
      for (int count = -1; first + count <= 23; ++count) {
        Objects want = items.Pointers();
        Fill(array, want);
        const auto wanted = Traced([&] {
          oracle::ShellSortObjects(want, static_cast<std::size_t>(first), count, temper.compare);
        });
        const auto trace = Traced([&] { array.Sort(first, count, temper.compare); });
        ASSERT_EQ(ObjectsOf(array), want) << temper.name << ' ' << first << ' ' << count;
        ASSERT_EQ(trace, wanted) << "first " << first << ", count " << count;
      }
  }
}

TEST(SortableArray, ACountBelowOneSortsNothing) {
  const Items items = Items::OfKeys({3, 2, 1});
  CZEPHSortableObArray array;
  Fill(array, items.Pointers());
  for (int count : {0, -1, INT_MIN}) {
    EXPECT_TRUE(Traced([&] { array.Sort(0, count, ByKey); }).empty()) << "count " << count;
    EXPECT_TRUE(Traced([&] { array.Sort(INT_MIN, count, ByKey); }).empty()) << "count " << count;
  }
  EXPECT_EQ(ObjectsOf(array), items.Pointers());
}

#ifndef ZEPH_HARDENED
TEST(SortableArray, ARangeMayReachElementsBeyondTheSize) {
  const Items items = Items::OfKeys({5, 4, 3, 2, 1});
  CZEPHSortableObArray array;
  Fill(array, items.Pointers());
  array.FreeExtra();
  array.SetSize(2);
  array.Sort(0, 5, ByKey);
  EXPECT_EQ(Keys(ObjectsOf(array)), (std::vector<int>{1, 2}));
}

TEST(SortableArray, ARangeBeyondTheStorageSortsWhatLiesInside) {
  const Items items = Items::OfKeys({5, 4, 3, 2, 1});
  CZEPHSortableObArray array;
  const auto sorted = [&](int first, int count) {
    Fill(array, items.Pointers());
    array.FreeExtra();
    array.Sort(first, count, ByKey);
    return Keys(ObjectsOf(array));
  };
  EXPECT_EQ(sorted(3, 100), (std::vector<int>{5, 4, 3, 1, 2}));
  EXPECT_EQ(sorted(0, INT_MAX), (std::vector<int>{1, 2, 3, 4, 5}));
  EXPECT_EQ(sorted(1, INT_MAX), (std::vector<int>{5, 1, 2, 3, 4}));
  EXPECT_EQ(sorted(4, INT_MAX), (std::vector<int>{5, 4, 3, 2, 1}));
  EXPECT_EQ(sorted(3, INT_MAX - 2), (std::vector<int>{5, 4, 3, 1, 2}));
  EXPECT_EQ(sorted(INT_MAX, 1), (std::vector<int>{5, 4, 3, 2, 1}));
  EXPECT_EQ(sorted(-INT_MAX, INT_MAX), (std::vector<int>{5, 4, 3, 2, 1}));
  EXPECT_EQ(sorted(-2, 4), (std::vector<int>{4, 5, 3, 2, 1}));
  EXPECT_EQ(sorted(INT_MAX, INT_MAX), (std::vector<int>{5, 4, 3, 2, 1}));
  EXPECT_EQ(sorted(INT_MIN, INT_MAX), (std::vector<int>{5, 4, 3, 2, 1}));
  array.RemoveAll();
  array.Sort(0, 3, ByKey);
  EXPECT_TRUE(array.IsEmpty());
}
#endif

TEST(SortableArray, StopsIfTheCompareFunctionRemovesTheElements) {
  const Items items(200, 1000, 3);
  CZEPHSortableObArray array;
  victim = &array;
  for (auto misbehave : {Shrinks, Releases, Moves})
    for (int call : {1, 2, 50, 700}) {
      Fill(array, items.Pointers());
      calls_left = call;
      array.Sort(misbehave);
      EXPECT_LE(calls_left, 0) << "call " << call;
      Fill(array, items.Pointers());
      array.FreeExtra();
      calls_left = call;
      array.Sort(0, 200, misbehave);
      EXPECT_LE(calls_left, 0) << "call " << call;
    }
}

TEST(SortableArray, ExchangesNothingIfTheCompareFunctionRemovedOneOfThePair) {
  const Items items = Items::OfKeys({2, 1});
  CZEPHSortableObArray array;
  victim = &array;
  Fill(array, items.Pointers());
  calls_left = 1;
  array.Sort(Shrinks);
  ASSERT_EQ(array.GetSize(), 1);
  EXPECT_EQ(array.GetAt(0), items.Pointers()[0]);
}

namespace {

/// What a compare function exchanges while it is called: the elements of an array or its model.
CObject** replaced = nullptr;
int replaced_size = 0;

/// Exchanges two elements, by turns others, and then compares.
int Replaces(CObject* a, CObject* b) {
  ++calls_left;
  std::swap(replaced[calls_left * 7 % replaced_size], replaced[calls_left * 5 % replaced_size]);
  return ByKey(a, b);
}

}  // namespace

TEST(SortableArray, ExchangesWhatStandsThereAfterTheCompareFunctionReplacedElements) {
  for (const int n : {2, 3, 5, 14, 41}) {
    const Items items(static_cast<std::size_t>(n), 1000, static_cast<std::uint64_t>(n));
    for (const bool all : {true, false}) {
      Objects want = items.Pointers();
      const int first = all ? 0 : n / 4, count = all ? n : n - n / 2;
      replaced = want.data(), replaced_size = n, calls_left = 0;
      const auto wanted = Traced([&] {
        oracle::ShellSortObjects(want, static_cast<std::size_t>(first), count, Replaces);
      });
      CZEPHSortableObArray array;
      Fill(array, items.Pointers());
      replaced = array.GetData(), calls_left = 0;
      const auto trace = Traced([&] {
        if (all)
          array.Sort(Replaces);
        else
          array.Sort(first, count, Replaces);
      });
      EXPECT_EQ(Ids(ObjectsOf(array)), Ids(want)) << n << (all ? ", all" : ", a range");
      EXPECT_EQ(trace, wanted) << n << (all ? ", all" : ", a range");
    }
  }
}

/// What the documented steps leave, and how many comparisons they make, where the `call`-th
/// comparison takes elements away: `left(size)` of them stay, and none where the sort stops at once.
template <class Left>
int StepsUntilGone(Objects& v, std::size_t first, int count, int call, Left left) {
  int calls = 0;
  std::size_t there = v.size();
  try {
    int h = 1;
    while (h <= count) h = 3 * h + 1;
    for (h /= 3; h >= 1; h /= 3)
      for (int i = 0; i < count - h; ++i)
        for (int j = i; j >= 0; j -= h) {
          const std::size_t low = first + static_cast<std::size_t>(j);
          const std::size_t high = low + static_cast<std::size_t>(h);
          if (high >= there) throw 0;
          const bool swaps = ItemOf(v[high]).key < ItemOf(v[low]).key;
          if (++calls == call) there = left(there);
          if (!swaps) break;
          if (high >= there) throw 0;
          std::swap(v[high], v[low]);
        }
  } catch (int) {
  }
  return calls;
}

TEST(SortableArray, StopsAtTheFirstStepWhoseElementWasRemoved) {
  for (const int call : {1, 2, 3, 7, 20, 40}) {
    const Items items(16, 1000, static_cast<std::uint64_t>(call));
    CZEPHSortableObArray array;
    victim = &array;
    Fill(array, items.Pointers());
    Objects want = items.Pointers();
    const int steps = StepsUntilGone(want, 0, 16, call, [](std::size_t n) { return n / 2; });
    calls_left = call;
    array.Sort(Shrinks);
    EXPECT_EQ(call - calls_left, steps) << call;
    want.resize(steps < call ? 16 : 8);
    EXPECT_EQ(Ids(ObjectsOf(array)), Ids(want)) << call;
  }
}

TEST(SortableArray, SortingARangeStopsWhenTheStorageMoves) {
  for (const auto misbehave : {Moves, Releases})
    for (const int call : {1, 2, 3, 7, 20, 40}) {
      const Items items(20, 1000, static_cast<std::uint64_t>(call));
      CZEPHSortableObArray array;
      victim = &array;
      Fill(array, items.Pointers());
      array.FreeExtra();
      Objects want = items.Pointers();
      const int steps = StepsUntilGone(want, 2, 16, call, [](std::size_t n) { return n - n; });
      calls_left = call;
      array.Sort(2, 16, misbehave);
      EXPECT_EQ(call - calls_left, steps) << call;
      if (misbehave == Moves) {
        EXPECT_EQ(Ids(ObjectsOf(array)), Ids(want)) << call;
      }
    }
}

TEST(SortableArray, StaysWithinTheComparisonBoundOfKnuthsGaps) {
  for (const std::size_t n : {1000u, 10'000u}) {
    const Items items(n, 1 << 30, n);
    CZEPHSortableObArray array;
    Fill(array, items.Pointers());
    const auto calls = static_cast<double>(Traced([&] { array.Sort(ByKey); }).size());
    EXPECT_LE(calls, 3.0 * std::pow(static_cast<double>(n), 1.3)) << n;
  }
}

TEST(SortableArray, FollowsTheStorageWhenTheCompareFunctionMovesIt) {
  const Items items(200, 1000, 3);
  CZEPHSortableObArray array;
  Fill(array, items.Pointers());
  array.FreeExtra();
  victim = &array;
  calls_left = 100;
  const CObject* const* before = array.GetData();
  array.Sort(Moves);
  ASSERT_NE(array.GetData(), before);
  const auto keys = Keys(ObjectsOf(array));
  EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
}

TEST(SortableArray, KeepsItsElementsWhenTheCompareFunctionThrows) {
  const Items items(100, 1000, 9);
  CZEPHSortableObArray array;
  for (int call = 1; call < 500; call += 7) {
    Fill(array, items.Pointers());
    calls_left = call;
    EXPECT_THROW(array.Sort(Throws), int) << "call " << call;
    Objects want = items.Pointers(), got = ObjectsOf(array);
    EXPECT_TRUE(std::is_permutation(got.begin(), got.end(), want.begin(), want.end()))
        << "call " << call;
  }
}

TEST(SortableArray, AllocatesNothingAndOwnsNothing) {
  const Items items(100, 10, 9);
  const long live = LiveBlocks();
  {
    CZEPHSortableObArray array;
    Fill(array, items.Pointers());
    const long before = AllocationCount();
    array.Sort(ByKey);
    array.Sort(3, 50, Descending);
    EXPECT_EQ(AllocationCount(), before);
  }
  EXPECT_EQ(LiveBlocks(), live);
}
