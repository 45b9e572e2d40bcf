#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>

#include "containers/sortable_support.h"
#include "support/allocation.h"

using namespace zeph::test;

namespace {

using Objects = std::vector<CObject*>;

/// An array and a list with a common interface: the range is given by an index in both.
struct StableArray {
  CZEPHSortableObArray array;
  explicit StableArray(const Objects& objects) {
    for (CObject* object : objects) array.Add(object);
  }
  Objects Content() const { return {array.GetData(), array.GetData() + array.GetSize()}; }
  void SortStable(int (*compare)(CObject*, CObject*)) { array.SortStable(compare); }
  void SortStable(int first, int count, int (*compare)(CObject*, CObject*)) {
    array.SortStable(first, count, compare);
  }
};
struct StableList {
  CZEPHSortableObList list;
  explicit StableList(const Objects& objects) {
    for (CObject* object : objects) list.AddTail(object);
  }
  Objects Content() {
    Objects content;
    for (POSITION at = list.GetHeadPosition(); at;) content.push_back(list.GetNext(at));
    return content;
  }
  void SortStable(int (*compare)(CObject*, CObject*)) { list.SortStable(compare); }
  void SortStable(int first, int count, int (*compare)(CObject*, CObject*)) {
    list.SortStable(list.FindIndex(first), count, compare);
  }
};

template <class Collection>
class SortStable : public ::testing::Test {};
using Collections = ::testing::Types<StableArray, StableList>;
TYPED_TEST_SUITE(SortStable, Collections, );

bool Before(CObject* a, CObject* b) {
  return ItemOf(a).key < ItemOf(b).key;
}

long calls_left = 0;
int Throws(CObject* a, CObject* b) {
  if (--calls_left == 0) throw 7;
  return ItemOf(a).key - ItemOf(b).key;
}

}  // namespace

TYPED_TEST(SortStable, KeepsTheOrderOfEqualElementsAtEverySize) {
  for (std::size_t n = 0; n <= 300; n += n < 70 ? 1 : 23)
    for (const int distinct : {1, 2, 10, 1000}) {
      const Items items(n, distinct, n);
      TypeParam collection(items.Pointers());
      Objects want = items.Pointers();
      std::stable_sort(want.begin(), want.end(), Before);
      collection.SortStable(ByKey);
      ASSERT_EQ(Ids(collection.Content()), Ids(want)) << n << " " << distinct;
    }
}

TYPED_TEST(SortStable, ReadsOnlyTheSignOfAComparison) {
  for (const std::size_t n : {2u, 3u, 5u, 40u})
    for (const auto compare : {ByTheExtremes, ByLargeSteps}) {
      const Items items(n, 50, n);
      TypeParam collection(items.Pointers());
      Objects want = items.Pointers();
      std::stable_sort(want.begin(), want.end(), Before);
      collection.SortStable(compare);
      ASSERT_EQ(Ids(collection.Content()), Ids(want)) << n;
    }
}

TYPED_TEST(SortStable, SortsEveryRangeAndLeavesTheRestUntouched) {
  const Items items(9, 4, 3);
  for (int first = 0; first < 9; ++first)
    for (int count = 0; count <= 9 - first; ++count) {
      TypeParam collection(items.Pointers());
      Objects want = items.Pointers();
      std::stable_sort(want.begin() + first, want.begin() + first + count, Before);
      collection.SortStable(first, count, ByKey);
      ASSERT_EQ(Ids(collection.Content()), Ids(want)) << first << " " << count;
    }
}

TYPED_TEST(SortStable, ComparesAboutNLogNTimesAndOncePerElementIfSorted) {
  for (const std::size_t n : {2u, 10u, 1000u, 4096u, 10'000u}) {
    const Items items(n, 1 << 30, n);
    TypeParam collection(items.Pointers());
    const auto calls = Traced([&] { collection.SortStable(ByKey); }).size();
    const double many = static_cast<double>(n);
    EXPECT_LE(static_cast<double>(calls), many * std::ceil(std::log2(many)) + many) << n;
    EXPECT_EQ(Traced([&] { collection.SortStable(ByKey); }).size(), n - 1) << "n " << n;
  }
}

TYPED_TEST(SortStable, ComparesEqualElementsOncePerElement) {
  for (const std::size_t n : {2u, 3u, 16u, 1000u}) {
    const Items items(n, 1, n);
    TypeParam collection(items.Pointers());
    EXPECT_EQ(Traced([&] { collection.SortStable(ByKey); }).size(), n - 1) << n << " elements";
    EXPECT_EQ(collection.Content(), items.Pointers()) << n << " elements";
  }
}

TYPED_TEST(SortStable, LosesNoElementForAnyCompareFunction) {
  for (const Temper& temper : Tempers())
    for (const std::size_t n : {2u, 3u, 17u, 100u}) {
      const Items items(n, 5, n);
      TypeParam collection(items.Pointers());
      Whim() = n;
      collection.SortStable(temper.compare);
      Objects got = collection.Content(), want = items.Pointers();
      std::sort(got.begin(), got.end());
      std::sort(want.begin(), want.end());
      EXPECT_EQ(got, want) << temper.name << " " << n;
    }
}

TYPED_TEST(SortStable, LeavesTheCollectionUnchangedIfTheCompareFunctionThrows) {
  const Items items(40, 1000, 8);
  for (long at = 1; at <= 40; ++at) {
    TypeParam collection(items.Pointers());
    calls_left = at;
    EXPECT_THROW(collection.SortStable(Throws), int) << "at " << at;
    EXPECT_EQ(collection.Content(), items.Pointers()) << "at " << at;
  }
}

TYPED_TEST(SortStable, LeavesTheCollectionUnchangedIfMemoryRunsOut) {
  const Items items(40, 1000, 8);
  TypeParam collection(items.Pointers());
  const long live = LiveBlocks();
  const long failures = FailEachAllocation(
      Failure::kBadAlloc, false,
      [&] {
        try {
          collection.SortStable(ByKey);
        } catch (const std::bad_alloc&) {
        }
      },
      [&](long) { EXPECT_EQ(collection.Content(), items.Pointers()); });
  EXPECT_GE(failures, 2);
  EXPECT_EQ(LiveBlocks(), live);
}

TEST(SortStableOfArrays, LeavesElementsBeyondTheSizeAlone) {
  struct Shown : CZEPHSortableObArray {
    using CObArray::m_pData;
  } array;
  const Items items = Items::OfKeys({5, 4, 3, 2, 1});
  for (CObject* object : items.Pointers()) array.Add(object);
  array.SetSize(3);
  array.SortStable(ByKey);
  EXPECT_EQ(Keys({array.m_pData, array.m_pData + 5}), (std::vector<int>{3, 4, 5, 2, 1}));
#ifndef ZEPH_HARDENED
  array.SortStable(1, INT_MAX, Descending);
  EXPECT_EQ(Keys({array.m_pData, array.m_pData + 5}), (std::vector<int>{3, 5, 4, 2, 1}));
  array.SortStable(3, 2, ByKey);
  EXPECT_EQ(Keys({array.m_pData, array.m_pData + 5}), (std::vector<int>{3, 5, 4, 2, 1}));
#endif
}

/// The sizes of the blocks that `body` asks for, in elements.
template <class Body>
std::vector<std::size_t> BlocksFor(Body body) {
  const RecordAllocations record;
  body();
  std::vector<std::size_t> blocks;
  for (const AllocationEvent& event : record.Events())
    if (event.bytes > 0) blocks.push_back(event.bytes / sizeof(CObject*));
  return blocks;
}

TEST(SortStableOfArrays, AllocatesTwoCopiesOfThePointers) {
  const Items items(40, 1000, 8);
  StableArray collection(items.Pointers());
  using Blocks = std::vector<std::size_t>;
  EXPECT_EQ(BlocksFor([&] { collection.SortStable(ByKey); }), (Blocks{40, 40}));
  EXPECT_EQ(BlocksFor([&] { collection.SortStable(5, 7, ByKey); }), (Blocks{7, 7}));
  EXPECT_EQ(BlocksFor([&] { collection.SortStable(5, 1, ByKey); }), Blocks());
  EXPECT_EQ(BlocksFor([&] { collection.SortStable(5, 0, ByKey); }), Blocks());
}

TEST(SortStableOfLists, AllocatesThreeCopiesOfThePointers) {
  const Items items(40, 1000, 8);
  StableList collection(items.Pointers());
  using Blocks = std::vector<std::size_t>;
  EXPECT_EQ(BlocksFor([&] { collection.SortStable(ByKey); }), (Blocks{40, 40, 40}));
  EXPECT_EQ(BlocksFor([&] { collection.SortStable(5, 7, ByKey); }), (Blocks{7, 7, 7}));
}

TEST(SortStableOfArrays, SortsNothingForACountBelowOneAndToTheEndIfItIsTooLarge) {
  const Items items = Items::OfKeys({3, 2, 1});
  StableArray collection(items.Pointers());
  for (const int count : {0, -1, INT_MIN}) {
    collection.SortStable(0, count, ByKey);
    EXPECT_EQ(collection.Content(), items.Pointers()) << "count " << count;
  }
#ifndef ZEPH_HARDENED
  collection.SortStable(1, INT_MAX, ByKey);
  EXPECT_EQ(Keys(collection.Content()), (std::vector<int>{3, 1, 2}));
  collection.SortStable(-5, 7, ByKey);
  EXPECT_EQ(Keys(collection.Content()), (std::vector<int>{1, 3, 2}));
  collection.SortStable(7, 2, ByKey);
  EXPECT_EQ(Keys(collection.Content()), (std::vector<int>{1, 3, 2}));
#endif
}

TEST(SortStableOfLists, ReadsCountsAsSortDoes) {
  const Items items = Items::OfKeys({3, 2, 1});
  StableList collection(items.Pointers());
  collection.list.SortStable(nullptr, 3, ByKey);
  EXPECT_EQ(collection.Content(), items.Pointers());
  collection.SortStable(1, -1, ByKey);
  EXPECT_EQ(Keys(collection.Content()), (std::vector<int>{3, 1, 2}));
  StableList empty({});
  empty.SortStable(ByKey);
  empty.list.SortStable(nullptr, 1, ByKey);
  EXPECT_TRUE(empty.Content().empty());
}

TEST(SortStableOfLists, TakesNoElementOfAnotherListWhileEmpty) {
  const Items items = Items::OfKeys({3, 2, 1});
  StableList other(items.Pointers()), empty({});
  empty.list.SortStable(other.list.GetHeadPosition(), 3, ByKey);
  EXPECT_EQ(other.Content(), items.Pointers());
}
