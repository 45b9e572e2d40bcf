// SPDX-License-Identifier: MIT
//
// The containers against the standard library's: growth, the sorted list, the sorts of objects.
#include <algorithm>
#include <forward_list>
#include <list>

#include "bench.h"
#include "containers.h"

namespace zeph::bench {
namespace {

struct Thing : CObject {};

[[maybe_unused]] const bool kGrowth =
    Add("CObArray", "Add from empty", {100, 10'000, 1'000'000}, [](Row& row) {
      const std::size_t n = row.n();
      auto& object = row.Keep<Thing>();
      auto& count = row.Keep<std::ptrdiff_t>();
      row.Result([&count] { return Numbers{static_cast<double>(count)}; });
      row.Ours([&object, &count, n] {
        CObArray a;
        for (std::size_t i = 0; i < n; ++i) a.Add(&object);
        count = a.GetSize();
      });
      row.Peer("std::vector", [&object, &count, n] {
        std::vector<CObject*> v;
        for (std::size_t i = 0; i < n; ++i) v.push_back(&object);
        count = static_cast<std::ptrdiff_t>(v.size());
      });
    });

/// Nodes and their values, filled anew before each call.
struct Nodes {
  std::vector<std::vector<double>> inputs;
  std::vector<CZEPHLink<double>> nodes;
  std::vector<CZEPHLink<double>*> links;
  std::forward_list<double> twins;
  Numbers sorted;

  explicit Nodes(std::size_t n) : nodes(n, CZEPHLink<double>(0)), twins(n) {
    for (std::size_t k = 0; k < (n <= 1000 ? 256 : 8); ++k)
      inputs.push_back(RandomDoubles(n, 1000 * k));
    for (auto& node : nodes) links.push_back(&node);
  }
  void Fill(std::size_t round) {
    const auto& values = inputs[round % inputs.size()];
    for (std::size_t i = 0; i < nodes.size(); ++i) nodes[i].m_value = values[i];
    std::copy(values.begin(), values.end(), twins.begin());
  }
};

[[maybe_unused]] const bool kSorting =
    Add("CZEPHLinkList", "Sorting", {10, 100, 1000, 10'000}, [](Row& row) {
      auto& data = row.Keep<Nodes>(row.n());
      const int n = static_cast<int>(row.n());
      auto& head = row.Keep<CZEPHLink<double>*>();
      row.Before([&data](std::size_t round) { data.Fill(round); });
      row.Ours([&data, &head, n] {
           CZEPHLinkList<double> list;
           list.Sorting(data.links.data(), n);
           head = list.m_pHead;
           list.m_pHead = nullptr;  // the nodes are the row's
         })
          .Result([&head] {
            Numbers values;
            for (const auto* node = head; node; node = node->m_pNext)
              values.push_back(node->m_value);
            return values;
          });
      row.Peer("forward_list::sort", [&data] { data.twins.sort(); }).Result([&data] {
        return Numbers(data.twins.begin(), data.twins.end());
      });
    });

struct Weighed : CObject {
  int weight = 0;
};
int ByWeight(CObject* a, CObject* b) {
  const int x = static_cast<Weighed*>(a)->weight, y = static_cast<Weighed*>(b)->weight;
  return (x > y) - (x < y);
}
bool Lighter(CObject* a, CObject* b) {
  return ByWeight(a, b) < 0;
}

/// Objects of random weights, and whoever holds pointers to them, filled anew before each call.
struct Objects {
  std::vector<Weighed> objects;
  std::vector<CObject*> order, vector;
  CZEPHSortableObArray array;
  CZEPHSortableObList list;

  Objects(Row& row, std::size_t n) : objects(n) {
    for (auto& object : objects)
      order.push_back(&object), array.Add(&object), list.AddTail(&object);
    row.Before([this](std::size_t round) {
      const auto weights = RandomDoubles(objects.size(), 1000 * round, -1e9, 1e9);
      for (std::size_t i = 0; i < weights.size(); ++i)
        objects[i].weight = static_cast<int>(weights[i]);
      vector = order;
      std::copy(order.begin(), order.end(), array.GetData());
      std::size_t i = 0;
      for (POSITION at = list.GetHeadPosition(); at;) list.GetNext(at) = order[i++];
    });
  }
  static void Append(Numbers& weights, CObject* object) {
    weights.push_back(static_cast<Weighed*>(object)->weight);
  }
  Numbers OfArray() {
    Numbers weights;
    for (std::ptrdiff_t i = 0; i < array.GetSize(); ++i) Append(weights, array[i]);
    return weights;
  }
  Numbers OfList() {
    Numbers weights;
    for (POSITION at = list.GetHeadPosition(); at;) Append(weights, list.GetNext(at));
    return weights;
  }
  Numbers OfVector() {
    Numbers weights;
    for (CObject* object : vector) Append(weights, object);
    return weights;
  }
};

[[maybe_unused]] const bool kObjects[] = {
    Add("CZEPHSortableObArray", "Sort", {1000, 100'000},
        [](Row& row) {
          auto& o = row.Keep<Objects>(row, row.n());
          row.Ours([&o] { o.array.Sort(ByWeight); }).Result([&o] { return o.OfArray(); });
          row.Peer("std::sort", [&o] { std::sort(o.vector.begin(), o.vector.end(), Lighter); })
              .Result([&o] { return o.OfVector(); });
        }),
    Add("CZEPHSortableObArray", "SortStable", {1000, 100'000, 1'000'000},
        [](Row& row) {
          auto& o = row.Keep<Objects>(row, row.n());
          row.Ours([&o] { o.array.SortStable(ByWeight); }).Result([&o] { return o.OfArray(); });
          row.Peer("std::stable_sort",
                   [&o] { std::stable_sort(o.vector.begin(), o.vector.end(), Lighter); })
              .Result([&o] { return o.OfVector(); });
        }),
    Add("CZEPHSortableObList", "SortStable", {1000, 10'000},
        [](Row& row) {
          auto& o = row.Keep<Objects>(row, row.n());
          row.Ours([&o] { o.list.SortStable(ByWeight); }).Result([&o] { return o.OfList(); });
          row.Peer("Sort", [&o] { o.list.Sort(ByWeight); }).Result([&o] { return o.OfList(); });
          row.Peer("std::stable_sort of a vector",
                   [&o] { std::stable_sort(o.vector.begin(), o.vector.end(), Lighter); })
              .Result([&o] { return o.OfVector(); });
        }),
};

}  // namespace
}  // namespace zeph::bench
