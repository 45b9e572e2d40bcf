#include <gtest/gtest.h>

#include <iterator>
#include <list>
#include <stdexcept>
#include <vector>

#include "platform.h"
#include "support/allocation.h"
#include "support/numbers.h"

namespace {

class Thing : public CObject {};
Thing a, b, c, d;

struct Shown : CObList {
  using CObList::CObList;
  using CObList::m_nBlockSize;
  using CObList::m_nCount;
  using CObList::m_pNodeHead;
  using CObList::m_pNodeTail;
};

using Content = std::vector<CObject*>;

/// The elements from head to tail; fails unless the backward links and the count agree.
Content Walk(Shown& list) {
  Content forward, backward;
  for (POSITION at = list.GetHeadPosition(); at;) forward.push_back(list.GetNext(at));
  for (POSITION at = list.GetTailPosition(); at;)
    backward.insert(backward.begin(), list.GetPrev(at));
  EXPECT_EQ(forward, backward);
  EXPECT_EQ(list.GetCount(), static_cast<std::ptrdiff_t>(forward.size()));
  EXPECT_EQ(list.GetSize(), list.GetCount());
  EXPECT_EQ(list.IsEmpty(), forward.empty());
  return forward;
}

}  // namespace

TEST(List, StartsEmptyWithItsBlockSize) {
  Shown list;
  EXPECT_EQ(list.m_nBlockSize, 10);
  EXPECT_EQ(Shown(64).m_nBlockSize, 64);
  EXPECT_EQ(Shown(-3).m_nBlockSize, 1);
  EXPECT_EQ(Walk(list), Content{});
  EXPECT_EQ(list.GetHeadPosition(), nullptr);
  EXPECT_EQ(list.GetTailPosition(), nullptr);
}

TEST(List, AddsAndRemovesAtBothEnds) {
  Shown list;
  list.AddTail(&b);
  list.AddHead(&a);
  list.AddTail(&c);
  EXPECT_EQ(Walk(list), (Content{&a, &b, &c}));
  EXPECT_EQ(list.GetHead(), &a);
  EXPECT_EQ(list.GetTail(), &c);
  EXPECT_EQ(list.RemoveHead(), &a);
  EXPECT_EQ(list.RemoveTail(), &c);
  EXPECT_EQ(list.RemoveTail(), &b);
  EXPECT_EQ(Walk(list), Content{});
}

TEST(List, InsertsNextToAPositionAndAtTheEndsForNull) {
  Shown list;
  const POSITION at = list.AddHead(&b);
  EXPECT_EQ(list.GetAt(list.InsertBefore(at, &a)), &a);
  EXPECT_EQ(list.GetAt(list.InsertAfter(at, &c)), &c);
  EXPECT_EQ(Walk(list), (Content{&a, &b, &c}));
  list.InsertBefore(nullptr, &d);
  list.InsertAfter(nullptr, nullptr);
  EXPECT_EQ(Walk(list), (Content{&d, &a, &b, &c, nullptr}));
}

/// Whatever else is in the list.
TEST(List, ReturnsThePositionOfWhatIsAdded) {
  Shown list(2);
  const auto expect = [&list](POSITION added, std::ptrdiff_t index) {
    EXPECT_EQ(added, list.FindIndex(index)) << index << " of " << list.GetCount();
  };
  for (int round = 0; round < 5; ++round) {
    const std::ptrdiff_t count = list.GetCount();
    expect(list.AddHead(&a), 0);
    expect(list.AddTail(&b), count + 1);
    expect(list.InsertBefore(nullptr, &c), 0);
    expect(list.InsertAfter(nullptr, &d), count + 3);
    expect(list.InsertBefore(list.FindIndex(2), &c), 2);
    expect(list.InsertAfter(list.FindIndex(1), &d), 2);
  }
  POSITION at = list.GetTailPosition();
  list.GetPrev(at) = &a;
  EXPECT_EQ(list.GetTail(), &a);
}

TEST(List, PositionsStayValidUntilTheirElementIsRemoved) {
  Shown list(2);
  const POSITION at = list.AddTail(&a);
  for (int i = 0; i < 50; ++i) {
    list.AddHead(&b);
    list.AddTail(&c);
  }
  while (list.GetHead() == &b) list.RemoveHead();
  EXPECT_EQ(list.GetAt(at), &a);
  EXPECT_EQ(list.GetHeadPosition(), at);
}

TEST(List, WritesThroughPositionsAndEnds) {
  Shown list;
  const POSITION at = list.AddTail(&a);
  list.AddTail(&b);
  list.SetAt(at, &c);
  list.GetTail() = &d;
  EXPECT_EQ(Walk(list), (Content{&c, &d}));
  list.GetAt(at) = &a;
  list.GetHead() = &b;
  POSITION walk = list.GetHeadPosition();
  list.GetNext(walk) = &c;
  EXPECT_EQ(Walk(list), (Content{&c, &d}));
}

TEST(List, CanBeReadWhenConst) {
  Shown list;
  list.AddTail(&a);
  list.AddTail(&b);
  const CObList& constant = list;
  EXPECT_EQ(constant.GetHead(), &a);
  EXPECT_EQ(constant.GetTail(), &b);
  POSITION at = constant.GetHeadPosition();
  EXPECT_EQ(constant.GetAt(at), &a);
  EXPECT_EQ(constant.GetNext(at), &a);
  EXPECT_EQ(constant.GetPrev(at), &b);
  EXPECT_EQ(constant.GetAt(at), &a);
}

TEST(List, RemovesAnyElement) {
  Shown list;
  list.AddTail(&a);
  const POSITION middle = list.AddTail(&b);
  list.AddTail(&c);
  list.RemoveAt(middle);
  EXPECT_EQ(Walk(list), (Content{&a, &c}));
  list.RemoveAt(list.GetHeadPosition());
  list.RemoveAt(list.GetTailPosition());
  EXPECT_EQ(Walk(list), Content{});
  EXPECT_EQ(list.m_pNodeHead, nullptr);
  EXPECT_EQ(list.m_pNodeTail, nullptr);
}

TEST(List, FindsElementsAndIndices) {
  Shown list;
  const POSITION first = list.AddTail(&a);
  list.AddTail(&b);
  const POSITION third = list.AddTail(&a);
  EXPECT_EQ(list.Find(&a), first);
  EXPECT_EQ(list.Find(&a, first), third);
  EXPECT_EQ(list.Find(&a, third), nullptr);
  EXPECT_EQ(list.Find(&d), nullptr);
  EXPECT_EQ(list.FindIndex(0), first);
  EXPECT_EQ(list.FindIndex(2), third);
  EXPECT_EQ(list.FindIndex(3), nullptr);
  EXPECT_EQ(list.FindIndex(-1), nullptr);
}

TEST(List, RefusesAccessToMissingElements) {
  Shown list;
  POSITION none = nullptr;
  EXPECT_THROW(list.GetHead(), std::out_of_range);
  EXPECT_THROW(list.GetTail(), std::out_of_range);
  EXPECT_THROW(list.RemoveHead(), std::out_of_range);
  EXPECT_THROW(list.RemoveTail(), std::out_of_range);
  EXPECT_THROW(list.GetNext(none), std::out_of_range);
  EXPECT_THROW(list.GetPrev(none), std::out_of_range);
  EXPECT_THROW(list.GetAt(none), std::out_of_range);
  EXPECT_THROW(list.SetAt(none, &a), std::out_of_range);
  EXPECT_THROW(list.RemoveAt(none), std::out_of_range);
  const CObList& constant = list;
  EXPECT_THROW(constant.GetHead(), std::out_of_range);
  EXPECT_THROW(constant.GetTail(), std::out_of_range);
  EXPECT_THROW(constant.GetNext(none), std::out_of_range);
  EXPECT_THROW(constant.GetPrev(none), std::out_of_range);
  EXPECT_THROW(constant.GetAt(none), std::out_of_range);
  try {
    list.RemoveHead();
  } catch (const std::out_of_range& refusal) {
    EXPECT_STREQ(refusal.what(), "CObList::RemoveHead: the list is empty");
  }
}

TEST(List, AllocatesNodesInBlocksAndReusesRemovedOnes) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  Shown list(10);
  const long before = zeph::test::AllocationCount();
  for (int i = 0; i < 20; ++i) list.AddTail(&a);
  EXPECT_EQ(zeph::test::AllocationCount() - before, 2);
  for (int i = 0; i < 1000; ++i) {
    list.RemoveHead();
    list.AddTail(&b);
  }
  EXPECT_EQ(zeph::test::AllocationCount() - before, 2);
}

TEST(List, ReleasesItsStorageWithTheLastElement) {
  const long before = zeph::test::LiveBlocks();
  Shown list(1);
  for (int i = 0; i < 20; ++i) list.AddTail(&a);
  while (!list.IsEmpty()) list.RemoveTail();
  EXPECT_EQ(zeph::test::LiveBlocks(), before);
  for (int i = 0; i < 20; ++i) list.AddTail(&a);
  list.RemoveAll();
  EXPECT_EQ(zeph::test::LiveBlocks(), before);
  EXPECT_EQ(Walk(list), Content{});
  { Shown(3).AddTail(&a); }
  EXPECT_EQ(zeph::test::LiveBlocks(), before);
}

TEST(List, StaysUnchangedWhenMemoryRunsOut) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  Shown list(2);
  list.AddTail(&a);
  list.AddTail(&b);
  {
    zeph::test::FailAllocation failing(1, true);
    EXPECT_THROW(list.AddTail(&c), std::bad_alloc);
    EXPECT_THROW(list.AddHead(&c), std::bad_alloc);
    EXPECT_THROW(list.InsertAfter(list.GetHeadPosition(), &c), std::bad_alloc);
  }
  EXPECT_EQ(Walk(list), (Content{&a, &b}));
  list.AddTail(&c);
  EXPECT_EQ(Walk(list), (Content{&a, &b, &c}));
}

TEST(List, AgreesWithAStandardListOverRandomChanges) {
  zeph::test::Random random(11);
  Thing* const objects[] = {&a, &b, &c, &d};
  Shown list(3);
  std::list<CObject*> want;
  for (int step = 0; step < 4000; ++step) {
    CObject* object = objects[random.Below(4)];
    const auto index = static_cast<std::ptrdiff_t>(random.Below(want.size() + 1));
    const POSITION at = list.FindIndex(index);
    const auto it = std::next(want.begin(), index);
    ASSERT_EQ(at == nullptr, it == want.end()) << "step " << step;
    switch (random.Below(at ? 8 : 2)) {
      case 0:
        list.AddHead(object);
        want.push_front(object);
        break;
      case 1:
        list.AddTail(object);
        want.push_back(object);
        break;
      case 2:
        list.InsertBefore(at, object);
        want.insert(it, object);
        break;
      case 3:
        list.InsertAfter(at, object);
        want.insert(std::next(it), object);
        break;
      default:
        list.RemoveAt(at);
        want.erase(it);
    }
    ASSERT_EQ(Walk(list), Content(want.begin(), want.end())) << "step " << step;
  }
}
