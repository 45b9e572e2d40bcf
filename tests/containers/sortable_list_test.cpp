#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "containers/sortable_support.h"
#include "oracle/object_sorts.h"
#include "support/allocation.h"

using namespace zeph::test;

namespace {

using Objects = std::vector<CObject*>;

struct List : CZEPHSortableObList {
  using CObList::m_nBlockSize;
  using CZEPHSortableObList::CZEPHSortableObList;
};

void Fill(CObList& list, const Objects& objects) {
  list.RemoveAll();
  for (CObject* object : objects) list.AddTail(object);
}

/// The elements from head to tail, which must be the same from tail to head.
Objects ObjectsOf(CObList& list) {
  Objects forward, backward;
  for (POSITION at = list.GetHeadPosition(); at;) forward.push_back(list.GetNext(at));
  for (POSITION at = list.GetTailPosition(); at;) backward.push_back(list.GetPrev(at));
  std::reverse(backward.begin(), backward.end());
  EXPECT_EQ(forward, backward);
  return forward;
}

std::vector<POSITION> Positions(CObList& list) {
  std::vector<POSITION> positions;
  for (POSITION at = list.GetHeadPosition(); at; list.GetNext(at)) positions.push_back(at);
  return positions;
}

int calls_left = 0;
int Throws(CObject* a, CObject* b) {
  if (--calls_left == 0) throw 7;
  return ItemOf(a).key - ItemOf(b).key;
}

}  // namespace

TEST(SortableList, AddsNoFieldToItsBaseAndAllocatesTenNodesAtATime) {
  EXPECT_EQ(sizeof(CZEPHSortableObList), sizeof(CObList));
  EXPECT_EQ(List().m_nBlockSize, 10);
  EXPECT_EQ(List(33).m_nBlockSize, 33);
}

TEST(SortableList, DoesNotCompareFewerThanTwoElements) {
  CZEPHSortableObList list;
  EXPECT_TRUE(Traced([&] { list.Sort(ByKey); }).empty());
  const Items items = Items::OfKeys({5});
  Fill(list, items.Pointers());
  EXPECT_TRUE(Traced([&] { list.Sort(ByKey); }).empty());
  EXPECT_EQ(ObjectsOf(list), items.Pointers());
}

TEST(SortableList, KeepsTheOrderOfEqualElements) {
  const Items items = Items::OfKeys({2, 1, 2, 1, 2});
  CZEPHSortableObList list;
  Fill(list, items.Pointers());
  list.Sort(ByKey);
  EXPECT_EQ(Ids(ObjectsOf(list)), (std::vector<int>{1, 3, 0, 2, 4}));
}

TEST(SortableList, KeepsPositionsAndMovesTheirData) {
  const Items items = Items::OfKeys({3, 1, 2});
  CZEPHSortableObList list;
  Fill(list, items.Pointers());
  const auto before = Positions(list);
  list.Sort(ByKey);
  EXPECT_EQ(Positions(list), before);
  EXPECT_EQ(ItemOf(list.GetAt(before[0])).key, 1);
  EXPECT_EQ(ItemOf(list.GetAt(before[2])).key, 3);
}

TEST(SortableList, TakesTheDocumentedStepsForEveryCompareFunction) {
  CZEPHSortableObList list;
  for (const Temper& temper : Tempers())
    for (std::size_t n : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 13u, 40u, 150u})
      for (int distinct : {1, 2, 5, 1000}) {
        const Items items(n, distinct, n * 7 + static_cast<std::size_t>(distinct));
        Objects want = items.Pointers();
        Fill(list, want);
        const auto before = Positions(list);
        const auto wanted = Traced(
            [&] { oracle::InsertionSortObjects(want, 0, unsigned(want.size()), temper.compare); });
        const auto trace = Traced([&] { list.Sort(temper.compare); });
        ASSERT_EQ(Ids(ObjectsOf(list)), Ids(want)) << temper.name << " n=" << n;
        ASSERT_EQ(trace, wanted) << temper.name << " n=" << n;
        ASSERT_EQ(Positions(list), before) << "n " << n << ", distinct " << distinct;
      }
}

TEST(SortableList, AgreesWithTheStandardStableSort) {
  CZEPHSortableObList list;
  for (int distinct : {2, 10, 100}) {
    const Items items(300, distinct, 1);
    Objects want = items.Pointers();
    Fill(list, want);
    std::stable_sort(want.begin(), want.end(),
                     [](CObject* a, CObject* b) { return ByKey(a, b) < 0; });
    list.Sort(ByKey);
    EXPECT_EQ(Ids(ObjectsOf(list)), Ids(want)) << "distinct " << distinct;
  }
}

TEST(SortableList, SortsTwoElementsFromTheThirdOn) {
  const Items items = Items::OfKeys({6, 5, 4, 3, 2, 1});
  CZEPHSortableObList list;
  Fill(list, items.Pointers());
  list.Sort(list.FindIndex(2), 2, ByKey);
  EXPECT_EQ(Keys(ObjectsOf(list)), (std::vector<int>{6, 5, 3, 4, 2, 1}));
}

TEST(SortableList, SortsEveryRangeAsTheStepsSay) {
  CZEPHSortableObList list;
  const Items items(17, 4, 5);
  for (const Temper& temper : Tempers())
    for (int first = 0; first < 17; ++first)
      for (int count : {INT_MIN, -1, 0, 1, 2, 3, 7, 15, 16, 17, 18, INT_MAX}) {
        Objects want = items.Pointers();
        Fill(list, want);
        const auto wanted = Traced([&] {
          oracle::InsertionSortObjects(want, static_cast<std::size_t>(first),
                                       static_cast<unsigned>(count), temper.compare);
        });
        const auto trace = Traced([&] { list.Sort(list.FindIndex(first), count, temper.compare); });
        ASSERT_EQ(ObjectsOf(list), want) << temper.name << ' ' << first << ' ' << count;
        ASSERT_EQ(trace, wanted) << "first " << first << ", count " << count;
      }
}

TEST(SortableList, ANegativeCountRunsToTheEnd) {
  const Items items = Items::OfKeys({6, 5, 4, 3, 2, 1});
  CZEPHSortableObList list;
  Fill(list, items.Pointers());
  list.Sort(list.FindIndex(2), -1, ByKey);
  EXPECT_EQ(Keys(ObjectsOf(list)), (std::vector<int>{6, 5, 1, 2, 3, 4}));
}

TEST(SortableList, DoesNothingWithoutElementsOrAStartPosition) {
  const Items items = Items::OfKeys({2, 1});
  CZEPHSortableObList list;
  list.Sort(nullptr, 5, ByKey);
  EXPECT_TRUE(list.IsEmpty());
  Fill(list, items.Pointers());
  EXPECT_TRUE(Traced([&] { list.Sort(nullptr, 5, ByKey); }).empty());
  EXPECT_EQ(ObjectsOf(list), items.Pointers());
}

TEST(SortableList, KeepsItsElementsWhenTheCompareFunctionThrows) {
  const Items items(60, 1000, 9);
  CZEPHSortableObList list;
  for (int call = 1; call < 500; call += 7) {
    Fill(list, items.Pointers());
    calls_left = call;
    EXPECT_THROW(list.Sort(Throws), int) << "call " << call;
    Objects want = items.Pointers(), got = ObjectsOf(list);
    EXPECT_TRUE(std::is_permutation(got.begin(), got.end(), want.begin(), want.end()))
        << "call " << call;
  }
}

TEST(SortableList, AllocatesNothingAndOwnsNothing) {
  const Items items(100, 10, 9);
  const long live = LiveBlocks();
  {
    CZEPHSortableObList list;
    Fill(list, items.Pointers());
    const long before = AllocationCount();
    list.Sort(ByKey);
    list.Sort(list.FindIndex(3), 50, Descending);
    EXPECT_EQ(AllocationCount(), before);
  }
  EXPECT_EQ(LiveBlocks(), live);
}
