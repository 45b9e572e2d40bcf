// What sorting and merging chains may cost, counted in comparisons.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "containers/chain_sorter.h"
#include "containers/ordered_walk.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace {

/// A number that counts its comparisons.
struct Counted {
  double value = 0;
  static std::size_t comparisons;
  // The documented comparison is >; the others are for mistakes to compile.
  bool operator>(const Counted& other) const { return ++comparisons, value > other.value; }
  bool operator<(const Counted& other) const { return ++comparisons, value < other.value; }
  bool operator>=(const Counted& other) const { return ++comparisons, value >= other.value; }
  bool operator<=(const Counted& other) const { return ++comparisons, value <= other.value; }
};
std::size_t Counted::comparisons = 0;

struct Node {
  Counted m_value;
  Node* m_pNext = nullptr;
};
const Counted& KeyOf(const Node& node) {
  return node.m_value;
}

std::vector<Node> NodesOf(const std::vector<double>& values) {
  std::vector<Node> nodes;
  for (const double x : values) nodes.push_back({{x}});
  return nodes;
}

/// The head of the nodes linked in their order.
Node* Linked(std::vector<Node>& nodes) {
  for (std::size_t i = 1; i < nodes.size(); ++i) nodes[i - 1].m_pNext = &nodes[i];
  return nodes.empty() ? nullptr : &nodes[0];
}

std::size_t LengthOfAscending(const Node* chain) {
  std::size_t n = 0;
  for (; chain; chain = chain->m_pNext, ++n)
    EXPECT_FALSE(chain->m_pNext && chain->m_value.value > chain->m_pNext->m_value.value);
  return n;
}

}  // namespace

TEST(ChainCosts, SortingComparesABoundedNumberOfTimesPerDoubling) {
  // Groups of 16 are ranked by all their pairs; every merge compares less often than it has nodes.
  const std::vector<std::size_t> sizes = {
      1, 16, 17, 255, 256, 257, 1000, 4096, zeph::test::Scaled(200'000)};
  for (const std::size_t n : sizes)
    for (const zeph::test::Order& order : zeph::test::Orders()) {
      const std::vector<double> values = order.make(n, 5);
      std::vector<Node> nodes = NodesOf(values);
      zeph::containers::ChainSorter<Node> sorter;
      Counted::comparisons = 0;
      for (Node& node : nodes)
        if (node.m_value.value == node.m_value.value) sorter.Add(&node);
      const Node* const chain = sorter.Take();
      const std::size_t made = Counted::comparisons;
      const double count = static_cast<double>(LengthOfAscending(chain));
      const double doublings = count > 16 ? std::ceil(std::log2(count / 16)) : 0;
      EXPECT_LE(static_cast<double>(made), count * (7.5 + doublings)) << order.name << ", n " << n;
    }
}

TEST(ChainCosts, ASorterCanBeUsedAgainAtTheSameCost) {
  zeph::containers::ChainSorter<Node> sorter;
  std::size_t first = 0;
  for (int round = 0; round < 5; ++round) {
    std::vector<Node> nodes = NodesOf(zeph::test::Moderate(1500, 7));
    Counted::comparisons = 0;
    for (Node& node : nodes) sorter.Add(&node);
    const Node* const chain = sorter.Take();
    const std::size_t made = Counted::comparisons;
    EXPECT_EQ(LengthOfAscending(chain), 1500u);
    EXPECT_EQ(sorter.Take(), nullptr);
    if (round == 0) first = made;
    EXPECT_EQ(made, first) << "round " << round;
  }
}

TEST(ChainCosts, MergingComparesEachNodeOfEitherChainOnce) {
  for (const std::size_t held : {0u, 1u, 7u, 1000u})
    for (const std::size_t fresh : {0u, 1u, 5u, 1000u})
      for (const double shift : {0.0, 1e6, -1e6, 0.5}) {
        const auto ascending = [](std::size_t n, double from) {
          std::vector<double> values(n);
          for (std::size_t i = 0; i < n; ++i)
            values[i] = from + static_cast<double>(i) - static_cast<double>(n) / 2;
          return values;
        };
        std::vector<Node> old = NodesOf(ascending(held, 0)),
                          young = NodesOf(ascending(fresh, shift));
        Node *head = Linked(old), *chain = Linked(young);
        Counted::comparisons = 0;
        head = zeph::containers::Merge(chain, head);
        const std::size_t made = Counted::comparisons;
        EXPECT_EQ(LengthOfAscending(head), held + fresh);
        // Every comparison passes a node that is held or ends the walk of a fresh one.
        EXPECT_LE(made, held + fresh) << held << " and " << fresh << " from " << shift;
      }
}

TEST(ChainCosts, AWalkEndsAtTheFirstNodeThatIsNotSmaller) {
  std::vector<Node> nodes = NodesOf({1, 2, 2, 5, 9});
  const struct {
    double value;
    std::ptrdiff_t stop;
  } walks[] = {{0, 0}, {1, 0}, {1.5, 1}, {2, 1}, {3, 3}, {9, 4}, {10, 5}};
  for (const auto& [value, stop] : walks) {
    Node* head = Linked(nodes);
    Node* stopped = nullptr;
    Counted::comparisons = 0;
    stopped = *zeph::containers::StopOf(Node{{value}}, &head);
    const std::size_t made = Counted::comparisons;
    EXPECT_EQ(stopped, stop == 5 ? nullptr : &nodes[static_cast<std::size_t>(stop)]) << value;
    EXPECT_EQ(made, static_cast<std::size_t>(stop == 5 ? 5 : stop + 1)) << value;
  }
}
