#include <algorithm>
#include <iostream>
#include <limits>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include "containers.h"
#include "oracle/list_insertion.h"
#include "support/allocation.h"
#include "support/bits.h"
#include "support/child.h"
#include "support/modes.h"
#include "support/not_finite.h"
#include "support/numbers.h"
#include "support/other_bytes.h"
#include "support/scale.h"

using namespace zeph;
using namespace zeph::test;

namespace {

using Link = CZEPHLink<double>;
using List = CZEPHLinkList<double>;

bool Greater(const Link& a, const Link& b) {
  return a.m_value > b.m_value;
}
bool GreaterKey(const CZEPHLinkData& a, const CZEPHLinkData& b) {
  return a.m_nKey > b.m_nKey;
}

/// Nodes of these values, owned by the test; a list that holds them must be detached.
std::vector<Link> NodesOf(const std::vector<double>& values) {
  return std::vector<Link>(values.begin(), values.end());
}

/// Positions in `nodes`, in the order of the chain from `head`.
std::vector<std::ptrdiff_t> ChainOf(const Link* head, const std::vector<Link>& nodes) {
  std::vector<std::ptrdiff_t> order;
  for (; head; head = head->m_pNext) {
    order.push_back(head - nodes.data());
    if (order.size() > nodes.size()) break;
  }
  return order;
}

std::vector<double> ValuesOf(const List& list) {
  std::vector<double> values;
  for (const Link* node = list.m_pHead; node; node = node->m_pNext) values.push_back(node->m_value);
  return values;
}

std::vector<int> KeysOf(const CZEPHSortedLinkList& list) {
  std::vector<int> keys;
  for (const auto* node = list.m_pHead; node; node = node->m_pNext) keys.push_back(node->m_nKey);
  return keys;
}

/// Inserts the first `before` values one by one and the rest by Sorting, and compares with the
/// oracle node by node.
void CompareSorting(const std::vector<double>& values, std::size_t before) {
  std::vector<Link> nodes = NodesOf(values), wanted = NodesOf(values);
  std::vector<Link*> table;
  Link* want = nullptr;
  List list;
  for (std::size_t i = 0; i < values.size(); ++i) {
    oracle::InsertOrdered(want, &wanted[i], Greater);
    if (i < before) {
      list.InsertOrdered(&nodes[i]);
    } else {
      table.push_back(&nodes[i]);
    }
  }
  list.Sorting(table.data(), static_cast<int>(table.size()));
  const auto got = ChainOf(list.m_pHead, nodes);
  list.m_pHead = nullptr;  // the nodes are the test's
  ASSERT_EQ(got, ChainOf(want, wanted)) << before << " of " << values.size();
}

}  // namespace

TEST(LinkList, KeepsValuesInAscendingOrder) {
  List list;
  for (double x : {3.0, 1.0, 2.0}) list.InsertOrdered(new Link(x));
  EXPECT_EQ(ValuesOf(list), (std::vector<double>{1, 2, 3}));
}

TEST(LinkList, PutsTheLaterOfTwoEqualValuesFirst) {
  List list;
  auto* a = new Link(5);
  auto* b = new Link(5);
  list.InsertOrdered(a);
  list.InsertOrdered(b);
  EXPECT_EQ(list.m_pHead, b);
  EXPECT_EQ(b->m_pNext, a);
  EXPECT_EQ(a->m_pNext, nullptr);
}

TEST(LinkList, PutsANaNAtTheHeadAndLaterValuesBeforeIt) {
  List list;
  for (double x : {1.0, kNaN, 5.0, 4.0}) list.InsertOrdered(new Link(x));
  EXPECT_TRUE(SameBits(ValuesOf(list), {4, 5, kNaN, 1}));
}

TEST(LinkList, SortsATableOfNodes) {
  List list;
  std::vector<Link*> links = {new Link(4), new Link(2), new Link(9), new Link(2)};
  list.Sorting(links.data(), 4);
  EXPECT_EQ(ValuesOf(list), (std::vector<double>{2, 2, 4, 9}));
  EXPECT_EQ(list.m_pHead, links[3]);
  EXPECT_EQ(list.m_pHead->m_pNext, links[1]);
}

TEST(LinkList, SortingAgreesWithInsertionAroundTheSizesOfItsTables) {
  zeph::test::Random random(77);
  for (const std::size_t n : {15u, 16u, 17u, 31u, 32u, 33u, 48u, 100u, 255u, 256u, 257u, 511u, 512u,
                              513u, 768u, 1025u, 1300u})
    for (const int distinct : {1, 3, 50, 100'000})
      for (const bool nan : {false, true}) {
        std::vector<double> values(n);
        for (double& x : values) x = random.Int(-distinct, distinct);
        for (double& x : values)
          if (x == 0 && random.Below(2)) x = -0.0;
        if (nan) values[random.Below(n)] = kNaN;
        ASSERT_NO_FATAL_FAILURE(CompareSorting(values, 0));
        ASSERT_NO_FATAL_FAILURE(CompareSorting(values, n / 3));
      }
}

TEST(LinkList, SortingInsertsIntoTheExistingList) {
  List list;
  for (double x : {2.0, 7.0}) list.InsertOrdered(new Link(x));
  Link* links[] = {new Link(9), new Link(1), new Link(7)};
  list.Sorting(links, 3);
  EXPECT_EQ(ValuesOf(list), (std::vector<double>{1, 2, 7, 7, 9}));
  EXPECT_EQ(list.m_pHead->m_pNext->m_pNext, links[2]);
}

TEST(LinkList, SortingLinksEveryNodeAsInsertingOneByOneDoes) {
  const std::vector<double> alphabet = {-1, -0.0, 0.0, 1, kNaN};
  for (std::size_t n = 0; n <= Scaled<std::size_t>(7, 5); ++n)
    ForEachArray(alphabet, n, [n](const std::vector<double>& values) {
      for (std::size_t before = 0; before <= n; ++before)
        if (!testing::Test::HasFatalFailure()) CompareSorting(values, before);
    });
  for (const Order& order : Orders())
    for (std::size_t n : std::vector<std::size_t>{20, 100, 1500}) {
      ASSERT_NO_FATAL_FAILURE(CompareSorting(order.make(n, 1), 0)) << order.name;
      ASSERT_NO_FATAL_FAILURE(CompareSorting(order.make(n, 2), n / 2)) << order.name;
    }
}

TEST(LinkList, SortingMatchesInsertionIntoAnUnsortedChain) {
  zeph::test::Random random(4);
  for (int round = 0; round < 2000; ++round) {
    const auto chain = static_cast<std::size_t>(random.Int(0, 6));
    std::vector<double> values(chain + random.Below(6));
    for (double& x : values) x = random.Int(0, 5);
    std::vector<Link> nodes = NodesOf(values), wanted = NodesOf(values);
    std::vector<Link*> table;
    for (std::size_t i = chain; i < values.size(); ++i) table.push_back(&nodes[i]);
    for (std::size_t i = 1; i < chain; ++i) {
      nodes[i - 1].m_pNext = &nodes[i];
      wanted[i - 1].m_pNext = &wanted[i];
    }
    Link* want = chain ? &wanted[0] : nullptr;
    for (std::size_t i = chain; i < values.size(); ++i)
      oracle::InsertOrdered(want, &wanted[i], Greater);
    List list;
    list.m_pHead = chain ? &nodes[0] : nullptr;
    list.Sorting(table.data(), static_cast<int>(table.size()));
    const auto got = ChainOf(list.m_pHead, nodes);
    list.m_pHead = nullptr;
    ASSERT_EQ(got, ChainOf(want, wanted)) << "round " << round;
  }
}

TEST(LinkList, SortsAHundredThousandNodesInLessThanQuadraticTime) {
  std::vector<double> values = Moderate(100000, 3);
  std::vector<Link> nodes = NodesOf(values);
  std::vector<Link*> table;
  for (Link& node : nodes) table.push_back(&node);
  List list;
  list.Sorting(table.data(), static_cast<int>(table.size()));
  std::sort(values.begin(), values.end());
  const std::vector<double> got = ValuesOf(list);
  list.m_pHead = nullptr;
  EXPECT_TRUE(SameBits(got, values));
}

TEST(LinkList, SortsIntoALongListInOneWalk) {
  constexpr std::size_t kHeld = 100'000;
  std::vector<double> values = Moderate(2 * kHeld, 4);
  std::sort(values.begin(), values.begin() + kHeld);
  std::vector<Link> nodes = NodesOf(values);
  std::vector<Link*> table;
  for (std::size_t i = 0; i < kHeld; ++i) {
    if (i > 0) nodes[i - 1].m_pNext = &nodes[i];
    table.push_back(&nodes[kHeld + i]);
  }
  List list;
  list.m_pHead = &nodes[0];
  list.Sorting(table.data(), static_cast<int>(kHeld));
  std::sort(values.begin(), values.end());
  const std::vector<double> got = ValuesOf(list);
  list.m_pHead = nullptr;
  EXPECT_TRUE(SameBits(got, values));
}

TEST(LinkList, SortsTheNodesBetweenSeveralNaNs) {
  zeph::test::Random random(78);
  for (const std::size_t n : {40u, 300u, 1100u})
    for (const std::size_t nans : {2u, 3u, 9u}) {
      std::vector<double> values(n);
      for (double& x : values) x = random.Int(-20, 20);
      for (std::size_t i = 0; i < nans; ++i) values[random.Below(n)] = i % 2 ? kNaN : -kNaN;
      ASSERT_NO_FATAL_FAILURE(CompareSorting(values, 0));
      ASSERT_NO_FATAL_FAILURE(CompareSorting(values, n / 2));
    }
}

TEST(LinkList, SortsByItsComparisonInEveryFloatingPointMode) {
  for (const std::size_t n : {20u, 300u, 700u}) {
    zeph::test::Random random(n);
    std::vector<double> values(n);
    for (double& x : values)
      x = random.Below(3) ? static_cast<double>(random.Int(-3, 3)) * 5e-324 : random.Int(-2, 2);
    const auto places = [](const Link* head, const std::vector<Link>& nodes) {
      std::vector<double> order;
      for (const std::ptrdiff_t at : ChainOf(head, nodes)) order.push_back(static_cast<double>(at));
      return order;
    };
    EXPECT_TRUE(MovesInEveryMode(
        [&] {
          std::vector<Link> nodes = NodesOf(values);
          std::vector<Link*> table;
          for (Link& node : nodes) table.push_back(&node);
          List list;
          list.Sorting(table.data(), static_cast<int>(n));
          Link* const head = list.m_pHead;
          list.m_pHead = nullptr;
          return places(head, nodes);
        },
        [&] {
          std::vector<Link> nodes = NodesOf(values);
          Link* head = nullptr;
          for (Link& node : nodes) oracle::InsertOrdered(head, &node, Greater);
          return places(head, nodes);
        }));
  }
}

TEST(LinkList, SortingReadsNoMoreEntriesThanTheCount) {
  Link one(1), two(2), three(3);
  Link* table[] = {&two, &three, &one};
  List list;
  list.Sorting(table, 2);
  EXPECT_EQ(ValuesOf(list), (std::vector<double>{2, 3}));
  EXPECT_EQ(one.m_pNext, nullptr);
  EXPECT_EQ(table[0], &two);  // the table is only read
  EXPECT_EQ(table[1], &three);
  list.m_pHead = nullptr;
}

TEST(LinkList, InsertsNodesThatStillPointToOldSuccessors) {
  for (std::size_t n : {1u, 2u, 3u, 16u, 40u, 300u}) {
    std::vector<double> values = Moderate(n, n);
    std::vector<Link> nodes = NodesOf(values);
    std::vector<Link*> table;
    for (Link& node : nodes) table.push_back(&node);
    const auto expectSorted = [&](List& list) {
      std::vector<double> want = values;
      std::sort(want.begin(), want.end());
      const auto order = ChainOf(list.m_pHead, nodes);
      list.m_pHead = nullptr;
      ASSERT_EQ(order.size(), n);
      for (std::size_t i = 0; i < n; ++i)
        EXPECT_EQ(values[static_cast<std::size_t>(order[i])], want[i]);
    };
    // Every node but one has a successor in a list, each time another.
    for (std::size_t round = 0; round < 4; ++round) {
      for (Link& node : nodes) node.m_pNext = &nodes[(round * 7) % n];
      List sorted;
      sorted.Sorting(table.data(), static_cast<int>(n));
      ASSERT_NO_FATAL_FAILURE(expectSorted(sorted));
      for (Link& node : nodes) node.m_pNext = &nodes[(round * 5) % n];
      List inserted;
      for (Link* link : table) inserted.InsertOrdered(link);
      ASSERT_NO_FATAL_FAILURE(expectSorted(inserted));
      // A NaN alone becomes the head in front of nothing.
      Link nan(kNaN);
      nan.m_pNext = &nodes[0];
      Link* one[] = {&nan};
      List ofNaN;
      ofNaN.Sorting(one, 1);
      EXPECT_EQ(nan.m_pNext, nullptr);
      ofNaN.m_pHead = nullptr;
    }
  }
  CZEPHLinkData first(1), last(2);
  last.m_pNext = &first;
  CZEPHSortedLinkList list;
  list.Insert(&first);
  list.Insert(&last);
  EXPECT_EQ(first.m_pNext, &last);
  EXPECT_EQ(last.m_pNext, nullptr);
  list.Remove(2);
  EXPECT_EQ(first.m_pNext, nullptr);
  list.Remove(1);
  last.m_pNext = &first;
  list.Insert(&last);
  EXPECT_EQ(last.m_pNext, nullptr);
}

TEST(LinkList, GetFirstLinkReturnsTheNodesInOrder) {
  List list;
  for (double x : {3.0, 1.0, 2.0, 2.0}) list.InsertOrdered(new Link(x));
  for (double x : {1.0, 2.0, 2.0, 3.0}) {
    const std::unique_ptr<Link> first(list.GetFirstLink());
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->m_value, x);
  }
  EXPECT_EQ(list.m_pHead, nullptr);
  EXPECT_EQ(list.GetFirstLink(), nullptr);
  list.RemoveAll();
}

TEST(LinkList, SelfAssignmentKeepsASharedChain) {
  Link node(1), next(2);
  node.m_pNext = &next;
  node = *&node;
  EXPECT_EQ(node.m_pNext, &next);
  EXPECT_EQ(node.m_value, 1.0);
  List list;
  list.m_pHead = &node;
  list = *&list;
  EXPECT_EQ(list.m_pHead, &node);
  list.m_pHead = nullptr;
}

TEST(LinkList, AssignmentCopiesNullPointersToo) {
  Link with(1), without(2);
  with.m_pNext = &without;
  with = without;
  EXPECT_EQ(with.m_value, 2.0);
  EXPECT_EQ(with.m_pNext, nullptr);
  List full, empty;
  full.m_pHead = &with;
  full = empty;
  EXPECT_EQ(full.m_pHead, nullptr);
  CZEPHLinkData next(1), last(2);
  next.m_pNext = &last;
  next = last;
  EXPECT_EQ(next.m_nKey, 2);
  EXPECT_EQ(next.m_pNext, nullptr);
  CZEPHSortedLinkList keys, none;
  keys.Insert(&last);
  keys = none;
  EXPECT_EQ(keys.m_pHead, nullptr);
  const CZEPHSortedLinkList copy(none);
  EXPECT_EQ(copy.m_pHead, nullptr);
}

TEST(LinkList, NodesMoveEveryBitOfTheirValues) {
  for (const double x : SpecialValues<double>()) {
    const Link node(x), copy(node);
    Link assigned(7.0);
    assigned = node;
    List list;
    list.InsertOrdered(&assigned);
    const Link* const all[] = {&node, &copy, &assigned};
    for (const Link* each : all) EXPECT_SAME_BITS(each->m_value, x);
    EXPECT_EQ(list.GetFirstLink(), &assigned);
    Link* table[] = {&assigned};
    list.Sorting(table, 1);
    EXPECT_SAME_BITS(list.m_pHead->m_value, x);
    list.m_pHead = nullptr;
  }
}

TEST(LinkList, CopyConstructionSharesTheChain) {
  Link value(2.5), behind(-0.0);
  value.m_pNext = &behind;
  const Link valueCopy(value), behindCopy(behind);
  EXPECT_EQ(valueCopy.m_value, 2.5);
  EXPECT_EQ(valueCopy.m_pNext, &behind);
  EXPECT_SAME_BITS(behindCopy.m_value, -0.0);
  EXPECT_EQ(behindCopy.m_pNext, nullptr);
  List list;
  list.m_pHead = &value;
  List copy(list);
  EXPECT_EQ(copy.m_pHead, &value);
  EXPECT_EQ(list.m_pHead, &value);
  copy.m_pHead = list.m_pHead = nullptr;
  CZEPHLinkData one(1), two(2);
  CZEPHSortedLinkList keys;
  keys.Insert(&two);
  keys.Insert(&one);
  const CZEPHLinkData oneCopy(one), twoCopy(two);
  EXPECT_EQ(oneCopy.m_nKey, 1);
  EXPECT_EQ(oneCopy.m_pNext, &two);
  EXPECT_EQ(twoCopy.m_nKey, 2);
  EXPECT_EQ(twoCopy.m_pNext, nullptr);
  CZEPHSortedLinkList keysCopy(keys);
  EXPECT_EQ(keysCopy.m_pHead, &one);
  EXPECT_EQ(keysCopy.Find(2), &two);
  keysCopy.Remove(1);  // moves its own head only
  EXPECT_EQ(keysCopy.m_pHead, &two);
  EXPECT_EQ(keys.m_pHead, &one);
}

TEST(LinkList, StartsEmptyInDirtyMemory) {
  OverOtherBytes<List> list;
  EXPECT_EQ(list->m_pHead, nullptr);
  OverOtherBytes<CZEPHSortedLinkList> sorted;
  EXPECT_EQ(sorted->m_pHead, nullptr);
  OverOtherBytes<Link> link(+[](void* place) { return new (place) Link(2.5); });
  EXPECT_EQ(link->m_value, 2.5);
  EXPECT_EQ(link->m_pNext, nullptr);
  OverOtherBytes<CZEPHLinkData> data(+[](void* place) { return new (place) CZEPHLinkData(7); });
  EXPECT_EQ(data->m_nKey, 7);
  EXPECT_EQ(data->m_pNext, nullptr);
}

TEST(LinkList, IgnoresCountsBelowOneAndNulls) {
  List list;
  Link* links[] = {nullptr, new Link(1), nullptr};
  list.Sorting(links, 0);
  list.Sorting(links, -1);
  list.Sorting(nullptr, 3);
  list.InsertOrdered(nullptr);
  EXPECT_EQ(list.m_pHead, nullptr);
  list.Sorting(links, 3);
  EXPECT_EQ(ValuesOf(list), std::vector<double>{1});
}

TEST(LinkList, GetFirstLinkUnlinksTheFirstNode) {
  List list;
  EXPECT_EQ(list.GetFirstLink(), nullptr);
  EXPECT_EQ(list.m_pHead, nullptr);
  auto* two = new Link(2);
  list.InsertOrdered(two);
  list.InsertOrdered(new Link(1));
  const std::unique_ptr<Link> first(list.GetFirstLink());
  EXPECT_EQ(first->m_value, 1.0);
  EXPECT_EQ(first->m_pNext, two);  // left as it was
  EXPECT_EQ(list.m_pHead, two);
}

TEST(LinkList, ReleasesEachNodeOnceAndAllocatesNone) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const long before = LiveBlocks();
  {
    List list;
    Link* links[] = {new Link(1), new Link(kNaN), new Link(1)};
    const long asked = AllocationCount();
    list.Sorting(links, 3);
    EXPECT_EQ(AllocationCount(), asked);
    list.RemoveAll();
    EXPECT_EQ(list.m_pHead, nullptr);
    EXPECT_EQ(LiveBlocks(), before);
    list.InsertOrdered(new Link(3));  // usable again, and released by the destructor
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(LinkList, CopiesAreShallow) {
  Link a(1), b(2);
  b.m_pNext = &a;
  const Link copied(b);
  a = b;
  EXPECT_EQ(a.m_value, 2.0);
  EXPECT_EQ(a.m_pNext, &a);
  EXPECT_EQ(copied.m_pNext, &a);
  List list, other;
  list.InsertOrdered(new Link(3));
  EXPECT_EQ(&(other = list), &other);
  EXPECT_EQ(other.m_pHead, list.m_pHead);
  other.m_pHead = nullptr;  // one of the two releases the chain
}

TEST(SortedLinkList, KeepsKeysInAscendingOrderAsTheOracleDoes) {
  zeph::test::Random random(5);
  for (int round = 0; round < 500; ++round) {
    const std::size_t n = random.Below(12);
    std::vector<CZEPHLinkData> nodes, wanted;
    for (std::size_t i = 0; i < n; ++i) nodes.emplace_back(random.Int(-3, 3));
    wanted = nodes;
    CZEPHSortedLinkList list;
    CZEPHLinkData* want = nullptr;
    for (std::size_t i = 0; i < n; ++i) {
      list.Insert(&nodes[i]);
      oracle::InsertOrdered(want, &wanted[i], GreaterKey);
    }
    for (const auto* node = list.m_pHead; node || want; node = node->m_pNext) {
      ASSERT_TRUE(node && want) << "round " << round;
      ASSERT_EQ(node - nodes.data(), want - wanted.data()) << "round " << round;
      want = want->m_pNext;
    }
  }
}

TEST(SortedLinkList, FindsTheFirstNodeWithAKey) {
  CZEPHSortedLinkList list;
  EXPECT_EQ(list.Find(1), nullptr);
  CZEPHLinkData one(1), three(3), five(5), again(3);
  for (CZEPHLinkData* node : {&five, &one, &three, &again}) list.Insert(node);
  EXPECT_EQ(list.Find(4), nullptr);
  EXPECT_EQ(list.Find(9), nullptr);
  EXPECT_EQ(list.Find(3), &again);
  EXPECT_EQ(list.Find(5), &five);
  list.Insert(nullptr);
  EXPECT_EQ(KeysOf(list), (std::vector<int>{1, 3, 3, 5}));
}

TEST(SortedLinkList, FindsAndRemovesTheFirstOfEqualKeysInEveryShortList) {
  for (std::size_t n = 0; n <= 6; ++n)
    ForEachArray<int>({0, 1, 2}, n, [n](const std::vector<int>& keys) {
      if (!std::is_sorted(keys.begin(), keys.end())) return;
      for (int key = -1; key <= 3; ++key) {
        std::vector<CZEPHLinkData> nodes(keys.begin(), keys.end());
        CZEPHSortedLinkList list;
        for (std::size_t i = n; i-- > 0;) list.Insert(&nodes[i]);  // each in front of its equals
        const auto at =
            static_cast<std::size_t>(std::find(keys.begin(), keys.end(), key) - keys.begin());
        ASSERT_EQ(list.Find(key), at < n ? &nodes[at] : nullptr);
        list.Remove(key);
        std::size_t i = 0;
        for (const auto* node = list.m_pHead; node; node = node->m_pNext, ++i) {
          if (i == at) ++i;
          ASSERT_LT(i, n);
          ASSERT_EQ(node, &nodes[i]);
        }
        ASSERT_EQ(i + (i == at && at < n), n);
      }
    });
}

TEST(SortedLinkList, EndsItsSearchAtTheFirstGreaterKey) {
  CZEPHLinkData nine(9), two(2);
  nine.m_pNext = &two;  // a chain in an order that insertion never gives
  CZEPHSortedLinkList list;
  list.m_pHead = &nine;
  EXPECT_EQ(list.Find(2), nullptr);
  list.Remove(2);  // Remove does not stop there
  EXPECT_EQ(KeysOf(list), std::vector<int>{9});
}

TEST(SortedLinkList, FindsAndRemovesKeysOfLongLists) {
  constexpr int kNodes = 2000;
  std::vector<CZEPHLinkData> nodes;
  for (int i = 0; i < kNodes; ++i) nodes.emplace_back(2 * i);
  CZEPHSortedLinkList list;
  for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) list.Insert(&*node);
  std::vector<int> want = KeysOf(list);
  for (const int i : {kNodes - 1, 0, 99, 100, 101, 1000, kNodes - 2}) {
    EXPECT_EQ(list.Find(2 * i), &nodes[static_cast<std::size_t>(i)]) << i;
    EXPECT_EQ(list.Find(2 * i + 1), nullptr) << i;
    list.Remove(2 * i);
    list.Remove(2 * i + 1);
    want.erase(std::find(want.begin(), want.end(), 2 * i));
    EXPECT_EQ(KeysOf(list), want) << i;
    EXPECT_EQ(list.Find(2 * i), nullptr) << i;
  }
  CZEPHLinkData last(3 * kNodes), late(1995);
  list.Insert(&last), list.Insert(&late);
  EXPECT_EQ(list.Find(3 * kNodes), &last);
  EXPECT_EQ(list.Find(1995), &late);
}

TEST(SortedLinkList, UnlinksWithoutReleasing) {
  CZEPHLinkData one(1), two(2), three(3);
  CZEPHSortedLinkList list;
  for (CZEPHLinkData* node : {&three, &two, &one}) list.Insert(node);
  list.Remove(1);
  EXPECT_EQ(list.m_pHead, &two);
  EXPECT_EQ(one.m_pNext, &two);  // left as it was
  list.Remove(3);
  EXPECT_EQ(KeysOf(list), std::vector<int>{2});
}

TEST(SortedLinkList, RemovesOnlyTheFirstOfEqualKeys) {
  CZEPHLinkData one(1), two(2), again(2), last(2), three(3);
  CZEPHSortedLinkList list;
  for (CZEPHLinkData* node : {&last, &again, &two, &three, &one}) list.Insert(node);
  list.Remove(2);
  EXPECT_EQ(list.m_pHead, &one);
  EXPECT_EQ(one.m_pNext, &again);
  EXPECT_EQ(again.m_pNext, &last);
  EXPECT_EQ(two.m_pNext, &again);  // left as it was
  EXPECT_EQ(KeysOf(list), (std::vector<int>{1, 2, 2, 3}));
  list.Remove(1);
  list.Remove(2);
  EXPECT_EQ(list.m_pHead, &last);
  list.Remove(3);
  list.Remove(2);
  EXPECT_EQ(list.m_pHead, nullptr);
}

TEST(SortedLinkList, OrdersAndFindsTheExtremeIntKeys) {
  constexpr int kLeast = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();
  CZEPHLinkData least(kLeast), zero(0), most(kMost);
  CZEPHSortedLinkList list;
  for (CZEPHLinkData* node : {&zero, &most, &least}) list.Insert(node);
  EXPECT_EQ(KeysOf(list), (std::vector<int>{kLeast, 0, kMost}));
  EXPECT_EQ(list.Find(kLeast), &least);
  EXPECT_EQ(list.Find(kMost), &most);
  EXPECT_EQ(list.Find(kLeast + 1), nullptr);
  list.Remove(kMost);
  EXPECT_EQ(KeysOf(list), (std::vector<int>{kLeast, 0}));
}

TEST(SortedLinkList, RemovingAnAbsentKeyDoesNothing) {
  CZEPHSortedLinkList list;
  list.Remove(1);
  CZEPHLinkData two(2);
  list.Insert(&two);
  list.Remove(1);
  list.Remove(3);
  EXPECT_EQ(KeysOf(list), std::vector<int>{2});
}

TEST(SortedLinkList, CopiesAreShallow) {
  CZEPHLinkData one(1), two(2);
  CZEPHSortedLinkList list, other;
  list.Insert(&one);
  EXPECT_EQ(&(other = list), &other);
  EXPECT_EQ(other.m_pHead, &one);
  two = one;
  EXPECT_EQ(two.m_nKey, 1);
  one.m_pNext = &two;
  two = one;
  EXPECT_EQ(two.m_pNext, &two);
}

TEST(SortedLinkList, WritesItsKeysToTheStandardOutput) {
  CZEPHSortedLinkList list;
  CZEPHLinkData one(1), three(3), negative(-2147483647 - 1);
  CaptureStdout capture;
  list.DisplayList();
  list.Insert(&three);
  list.Insert(&one);
  list.DisplayList();
  one.DisplayLink();
  negative.DisplayLink();
  EXPECT_EQ(capture.Text(), "List (first-->last): \nList (first-->last): 1 3 \n1 -2147483648 ");
}

TEST(SortedLinkList, ListingsOfAnyLengthShowEveryKey) {
  std::vector<CZEPHLinkData> nodes;
  for (int key = 0; key < 3000; ++key) nodes.emplace_back(key - 1000);
  CZEPHSortedLinkList list;
  list.m_pHead = &nodes[0];
  std::string want = "List (first-->last): ";
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (i + 1 < nodes.size()) nodes[i].m_pNext = &nodes[i + 1];
    want += std::to_string(nodes[i].m_nKey) + " ";
  }
  CaptureStdout capture;
  list.DisplayList();
  EXPECT_TRUE(capture.Text() == want + "\n");
}

TEST(SortedLinkList, FlushesAfterAListingButNotAfterASingleNode) {
  struct Counting : std::stringbuf {
    int flushes = 0;
    int sync() override { return ++flushes, 0; }
  } buffer;
  std::streambuf* const before = std::cout.rdbuf(&buffer);
  CZEPHSortedLinkList list;
  CZEPHLinkData one(1), two(2);
  list.Insert(&two);
  list.Insert(&one);
  list.DisplayList();
  const int ofTheList = buffer.flushes;
  one.DisplayLink();
  std::cout.rdbuf(before);
  EXPECT_EQ(buffer.str(), "List (first-->last): 1 2 \n1 ");
  EXPECT_EQ(ofTheList, 1);
  EXPECT_EQ(buffer.flushes, 1);
}

TEST(SortedLinkList, WritesItsKeysInDecimalWhateverTheBaseOfTheStream) {
  CZEPHSortedLinkList list;
  CZEPHLinkData link(29);
  list.Insert(&link);
  CaptureStdout capture;
  std::cout << std::hex;
  list.DisplayList();
  std::cout << std::oct;
  link.DisplayLink();
  std::cout << 9 << std::dec << std::flush;  // the program's base is as it was
  EXPECT_EQ(capture.Text(), "List (first-->last): 29 \n29 11");
}
