// SPDX-License-Identifier: MIT
//
// The workload over lists, stacks, sortable collections and growth-size arrays.
#include "containers.h"

#include <memory>

#include "inputs.h"
#include "report.h"

namespace zeph::selftest {
namespace {

struct Item : CObject {
  int key = 0;
  int id = 0;
};

int CompareItems(CObject* a, CObject* b) {
  const int left = static_cast<Item*>(a)->key, right = static_cast<Item*>(b)->key;
  return left < right ? -1 : left > right;
}

/// `n` items with keys in 0..`keys` - 1.
std::vector<std::unique_ptr<Item>> DrawItems(Inputs& in, int n, int keys) {
  std::vector<std::unique_ptr<Item>> items;
  for (int i = 0; i < n; ++i) {
    items.push_back(std::make_unique<Item>());
    items.back()->key = in.Whole(0, keys - 1);
    items.back()->id = i;
  }
  return items;
}

void LinkLists(Report& report, Inputs& in, int n, Kind kind) {
  using Link = CZEPHLink<double>;
  // The list releases its links: they come from new.
  std::vector<Link*> links;
  for (int i = 0; i < n; ++i) links.push_back(new Link(in.Value<double>(kind)));
  CZEPHLinkList<double> list;
  list.Sorting(links.data(), n);
  for (int i = 0; i < 3; ++i) list.InsertOrdered(new Link(in.Value<double>(kind)));
  Digest& digest = report("CZEPHLinkList");
  for (const Link* link = list.m_pHead; link; link = link->m_pNext) digest.Moved(link->m_value);
}

void SortedLinkLists(Report& report, Inputs& in, int n) {
  std::vector<std::unique_ptr<CZEPHLinkData>> nodes;
  CZEPHSortedLinkList list;
  for (int i = 0; i < n; ++i) {
    nodes.push_back(std::make_unique<CZEPHLinkData>(in.Whole(-n, n)));
    list.Insert(nodes.back().get());
  }
  Digest& digest = report("CZEPHSortedLinkList");
  for (int i = 0; i < 10; ++i) {
    const CZEPHLinkData* found = list.Find(in.Whole(-n, n));
    digest.Integer(found ? found->m_nKey : -12345);
  }
  for (const CZEPHLinkData* node = list.m_pHead; node; node = node->m_pNext) {
    digest.Integer(node->m_nKey);
    // The order of equal keys.
    for (int i = 0; i < n; ++i)
      if (nodes[static_cast<std::size_t>(i)].get() == node) digest.Integer(i);
  }
}

template <class Stack>
void Stacks(Digest& digest, Inputs& in, int n) {
  std::vector<int> cells(static_cast<std::size_t>(n));
  Stack stack;
  for (int i = 0; i < 2 * n; ++i) {
    if (in.Whole(0, 2)) {
      int* cell = &cells[static_cast<std::size_t>(in.Whole(0, n - 1))];
      stack.Push(cell);
    } else {
      const auto* cell = static_cast<int*>(stack.Pop());
      digest.Integer(cell ? cell - cells.data() : -1);
    }
    const auto* top = static_cast<int*>(stack.Peek());
    digest.Integer(top ? top - cells.data() : -1);
  }
  while (stack.Peek()) stack.Pop();
}

void SortableArrays(Report& report, Inputs& in, int n, int keys) {
  const auto items = DrawItems(in, n, keys);
  CZEPHSortableObArray whole, range;
  for (const auto& item : items) {
    whole.Add(item.get());
    range.Add(item.get());
  }
  whole.Sort(CompareItems);
  range.Sort(n / 4, n / 2, CompareItems);
  Digest& digest = report("CZEPHSortableObArray");
  for (const auto* sorted : {&whole, &range})
    for (int i = 0; i < n; ++i) digest.Integer(static_cast<Item*>(sorted->GetAt(i))->id);
}

void SortableLists(Report& report, Inputs& in, int n, int keys) {
  const auto items = DrawItems(in, n, keys);
  CZEPHSortableObList whole, range;
  for (const auto& item : items) {
    whole.AddTail(item.get());
    range.AddTail(item.get());
  }
  whole.Sort(CompareItems);
  range.Sort(range.FindIndex(n / 4), n / 2, CompareItems);
  Digest& digest = report("CZEPHSortableObList");
  for (const auto* sorted : {&whole, &range})
    for (POSITION at = sorted->GetHeadPosition(); at;)
      digest.Integer(static_cast<const Item*>(sorted->GetNext(at))->id);
}

template <class Array>
void GrowthArrays(Digest& digest, Inputs& in, int n) {
  Array array;
  array.SetGrowthSize(in.Whole(1, 50));
  array.SetSize(n);
  for (int i = 0; i < n; ++i) digest.Integer(array[i]);
  for (int i = 0; i < n; ++i) array.Add(static_cast<unsigned short>(in.Whole(0, 65535)));
  array.SetSize(n + n / 2);
  for (int i = 0; i < array.GetSize(); ++i) digest.Integer(array[i]);
}

}  // namespace

void RunContainers(Report& report) {
  Inputs in(5);
  for (int round = 0; round < 8; ++round)
    for (int n : Sizes()) {
      if (n <= 513)
        for (Kind kind : kKinds) LinkLists(report, in, n, kind);
      if (n <= 257) SortedLinkLists(report, in, n);
      Stacks<CZEPHStack>(report("CZEPHStack"), in, n);
      Stacks<CZEPHPointerStack>(report("CZEPHPointerStack"), in, n);
      for (int keys : {3, 1000}) {
        SortableArrays(report, in, n, keys);
        SortableLists(report, in, n, keys);
      }
      GrowthArrays<CZEPHUIntArray>(report("CZEPHUIntArray"), in, n);
      GrowthArrays<CZEPHWordArray>(report("CZEPHWordArray"), in, n);
    }
}

}  // namespace zeph::selftest
