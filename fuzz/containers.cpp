// Collections, lists and stacks against the standard containers.
#include "containers.h"

#include <algorithm>
#include <list>
#include <memory>
#include <stdexcept>

#include "oracle/list_insertion.h"
#include "oracle/object_sorts.h"
#include "support/bytes.h"
#include "support/require.h"

namespace {

using zeph::fuzz::Bytes;
using zeph::fuzz::Require;

struct Item : CObject {
  int value = 0;
};

/// The objects that a run's collections hold; a collection owns none of them.
struct Pool {
  Item items[16];
  explicit Pool(Bytes& in) {
    for (Item& item : items) item.value = in.Int(-3, 3);
  }
  CObject* Any(Bytes& in) { return &items[in.Below(16)]; }
};

int ByValue(CObject* a, CObject* b) {
  const int x = a ? static_cast<Item*>(a)->value : -9;
  const int y = b ? static_cast<Item*>(b)->value : -9;
  return x < y ? -1 : x > y;
}
int Contradicting(CObject* a, CObject* b) {
  return ByValue(a, b) <= 0 ? 1 : -1;
}
int AlwaysBelow(CObject*, CObject*) {
  return -1;
}
using Compare = int (*)(CObject*, CObject*);
const Compare kCompares[] = {ByValue, Contradicting, AlwaysBelow};

/// Whether `call` throws std::out_of_range, as it should where `outside`.
template <class Call>
void ThrowsWhere(bool outside, const char* promise, Call call) {
  bool thrown = false;
  try {
    call();
  } catch (const std::out_of_range&) {
    thrown = true;
  }
  Require(thrown == outside, promise);
}

/// One step on any of the array collections; `value` is what to store.
template <class Array, class T>
void ArrayStep(Bytes& in, Array& array, std::vector<T>& model, T value) {
  const int size = static_cast<int>(model.size());
  const int index = in.Int(-2, size + 3);
  const int count = in.Int(-1, 5);
  const auto at = [](int i) { return static_cast<std::ptrdiff_t>(i); };
  switch (in.Int(0, 7)) {
    case 0:
      Require(array.Add(value) == size, "Add returns the index");
      return model.push_back(value);
    case 1:
      ThrowsWhere(index < 0, "SetAtGrow", [&] { array.SetAtGrow(index, value); });
      if (index < 0) return;
      if (index >= size) model.resize(static_cast<std::size_t>(index) + 1);
      model[static_cast<std::size_t>(index)] = value;
      return;
    case 2: {
      const bool outside = index < 0 || count < 1;
      ThrowsWhere(outside, "InsertAt", [&] { array.InsertAt(index, value, count); });
      if (outside) return;
      if (index > size) model.resize(static_cast<std::size_t>(index));
      model.insert(model.begin() + at(index), static_cast<std::size_t>(count), value);
      return;
    }
    case 3: {
      const bool outside = index < 0 || count < 0 || index + count > size;
      if (count < 1) return;  // removing 0 elements is not tested here
      ThrowsWhere(outside, "RemoveAt", [&] { array.RemoveAt(index, count); });
      if (!outside) model.erase(model.begin() + at(index), model.begin() + at(index + count));
      return;
    }
    case 4: {
      const bool outside = index < 0 || index >= size;
      ThrowsWhere(outside, "SetAt", [&] { array.SetAt(index, value); });
      ThrowsWhere(outside, "GetAt", [&] { (void)array.GetAt(index); });
      if (!outside) model[static_cast<std::size_t>(index)] = value;
      return;
    }
    case 5:
      array.FreeExtra();
      return;
    case 6:
      if (in.Int(0, 7)) return;
      array.RemoveAll();
      return model.clear();
    default:
      if (index < 0) return;
      model.resize(static_cast<std::size_t>(index));
      if constexpr (std::is_base_of_v<CObArray, Array>) {
        array.SetSize(index, in.Int(-1, 9));
      } else {
        array.SetGrowthSize(in.Int(-1, 9));
        array.SetSize(index);
      }
  }
}

template <class Array, class T>
void CheckArray(const Array& array, const std::vector<T>& model) {
  Require(array.GetSize() == static_cast<std::ptrdiff_t>(model.size()), "the size is the model's");
  Require(array.GetUpperBound() == array.GetSize() - 1, "GetUpperBound");
  for (std::size_t i = 0; i < model.size(); ++i)
    Require(array[static_cast<std::ptrdiff_t>(i)] == model[i], "the elements are the model's");
}

template <class Array, class T>
void NumberArray(Bytes& in) {
  Array array;
  std::vector<T> model;
  for (int steps = 0; steps < 40 && !in.Empty(); ++steps) {
    ArrayStep(in, array, model, static_cast<T>(in.Word(2)));
    CheckArray(array, model);
  }
}

void ObjectArray(Bytes& in) {
  Pool pool(in);
  CZEPHSortableObArray array;
  std::vector<CObject*> model;
  for (int steps = 0; steps < 40 && !in.Empty(); ++steps) {
    const Compare compare = kCompares[in.Below(3)];
    const int size = static_cast<int>(model.size());
    switch (in.Int(0, 9)) {
      case 0:
        array.Sort(compare);
        oracle::ShellSortObjects(model, 0, size, compare);
        break;
      case 1: {
        const int first = size ? in.Int(0, size - 1) : 0;
        const int count = in.Int(-1, size - first);
        array.Sort(first, count, compare);
        oracle::ShellSortObjects(model, static_cast<std::size_t>(first), count, compare);
        break;
      }
      default:
        ArrayStep(in, array, model, pool.Any(in));
    }
    CheckArray(array, model);
  }
}

void CheckList(const CZEPHSortableObList& list, const std::list<CObject*>& model) {
  Require(list.GetCount() == static_cast<std::ptrdiff_t>(model.size()), "the count is the model's");
  POSITION forward = list.GetHeadPosition();
  for (CObject* want : model) Require(list.GetNext(forward) == want, "the list, forward");
  POSITION backward = list.GetTailPosition();
  for (auto want = model.rbegin(); want != model.rend(); ++want)
    Require(list.GetPrev(backward) == *want, "the list, backward");
  Require(!forward && !backward, "the walks end");
}

void ListStep(Bytes& in, Pool& pool, CZEPHSortableObList& list, std::list<CObject*>& model) {
  CObject* value = pool.Any(in);
  const int index = in.Int(0, static_cast<int>(model.size()));
  const POSITION place = list.FindIndex(index);
  const auto at = std::next(model.begin(), index);
  Require((place == nullptr) == (at == model.end()), "FindIndex");
  switch (in.Int(0, 9)) {
    case 0:
      list.AddHead(value);
      return model.push_front(value);
    case 1:
      list.AddTail(value);
      return model.push_back(value);
    case 2:
      list.InsertBefore(place, value);  // at the head for null
      model.insert(place ? at : model.begin(), value);
      return;
    case 3:
      list.InsertAfter(place, value);  // at the tail for null
      model.insert(place ? std::next(at) : model.end(), value);
      return;
    case 4:
      if (!place) return;
      list.RemoveAt(place);
      model.erase(at);
      return;
    case 5:
      if (model.empty()) return;
      Require(list.RemoveHead() == model.front(), "RemoveHead");
      return model.pop_front();
    case 6:
      if (model.empty()) return;
      Require(list.RemoveTail() == model.back(), "RemoveTail");
      return model.pop_back();
    case 7:
      if (!place) return;
      list.SetAt(place, value);
      *at = value;
      return;
    case 8: {
      const auto want = std::find(model.begin(), model.end(), value);
      const POSITION found = list.Find(value);
      Require((found == nullptr) == (want == model.end()), "Find");
      return;
    }
    default:
      if (in.Int(0, 7)) return;
      list.RemoveAll();
      model.clear();
  }
}

void ObjectList(Bytes& in) {
  Pool pool(in);
  CZEPHSortableObList list(in.Int(-1, 12));
  std::list<CObject*> model;
  for (int steps = 0; steps < 40 && !in.Empty(); ++steps) {
    if (in.Int(0, 7) == 0) {
      const Compare compare = kCompares[in.Below(3)];
      std::vector<CObject*> row(model.begin(), model.end());
      const int first = in.Int(0, static_cast<int>(row.size()));
      const int count = in.Int(-1, 40);
      const bool whole = in.Flag();
      if (whole) list.Sort(compare);
      if (!whole) list.Sort(list.FindIndex(first), count, compare);
      oracle::InsertionSortObjects(row, whole ? 0 : static_cast<std::size_t>(first),
                                   whole ? ~0u : static_cast<unsigned>(count), compare);
      model.assign(row.begin(), row.end());
    } else {
      ListStep(in, pool, list, model);
    }
    CheckList(list, model);
  }
}

void LinkList(Bytes& in) {
  using Link = CZEPHLink<double>;
  CZEPHLinkList<double> list;
  struct Node {
    double m_value;
    Node* m_pNext;
  };
  std::vector<std::unique_ptr<Node>> nodes;
  Node* head = nullptr;
  const auto insert = [&](double x) {
    nodes.push_back(std::make_unique<Node>(Node{x, nullptr}));
    oracle::InsertOrdered(head, nodes.back().get(),
                          [](const Node& a, const Node& b) { return a.m_value > b.m_value; });
  };
  for (int steps = 0; steps < 20 && !in.Empty(); ++steps) {
    switch (in.Int(0, 3)) {
      case 0: {
        const double x = in.Double();
        list.InsertOrdered(new Link(x));
        insert(x);
        break;
      }
      case 1: {
        const auto values = in.Doubles(200);
        std::vector<Link*> links;
        for (const double x : values) links.push_back(new Link(x));
        list.Sorting(links.data(), static_cast<int>(links.size()));
        for (const double x : values) insert(x);
        break;
      }
      case 2: {
        const std::unique_ptr<Link> first(list.GetFirstLink());
        Require((first == nullptr) == (head == nullptr), "GetFirstLink");
        if (head) head = head->m_pNext;
        break;
      }
      default:
        if (in.Int(0, 3)) break;
        list.RemoveAll();
        head = nullptr;
    }
    const Link* got = list.m_pHead;
    for (const Node* want = head; want; want = want->m_pNext, got = got->m_pNext) {
      Require(got != nullptr, "the chain is as long as the model's");
      zeph::fuzz::RequireBits(&got->m_value, &want->m_value, 1, "the chain's values");
    }
    Require(got == nullptr, "the chain ends with the model's");
  }
}

void KeyedListAndStack(Bytes& in) {
  std::list<CZEPHLinkData> nodes;
  std::list<CZEPHLinkData*> model;
  CZEPHSortedLinkList list;
  CZEPHStack stack;
  std::vector<void*> pushed;
  for (int steps = 0; steps < 60 && !in.Empty(); ++steps) {
    const int key = in.Int(-5, 5);
    const auto place = std::find_if(model.begin(), model.end(),
                                    [key](const CZEPHLinkData* n) { return n->m_nKey >= key; });
    CZEPHLinkData* present = place != model.end() && (*place)->m_nKey == key ? *place : nullptr;
    Require(list.Find(key) == present, "Find returns the first node with the key");
    switch (in.Int(0, 3)) {
      case 0:
        nodes.emplace_back(key);
        list.Insert(&nodes.back());
        model.insert(place, &nodes.back());
        break;
      case 1:
        list.Remove(key);
        if (present) model.erase(place);
        break;
      case 2:
        pushed.push_back(&pushed);
        stack.Push(pushed.back());
        break;
      default:
        Require(stack.Peek() == (pushed.empty() ? nullptr : pushed.back()), "Peek");
        Require(stack.Pop() == (pushed.empty() ? nullptr : pushed.back()), "Pop");
        if (!pushed.empty()) pushed.pop_back();
    }
    const CZEPHLinkData* got = list.m_pHead;
    for (const CZEPHLinkData* want : model) {
      Require(got == want, "the nodes are the model's");
      got = got->m_pNext;
    }
    Require(got == nullptr, "the chain ends with the model's");
  }
  while (stack.m_pTop) stack.Pop();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Bytes in(data, size);
  switch (in.Int(0, 5)) {
    case 0:
      ObjectArray(in);
      break;
    case 1:
      ObjectList(in);
      break;
    case 2:
      NumberArray<CZEPHUIntArray, unsigned>(in);
      break;
    case 3:
      NumberArray<CZEPHWordArray, std::uint16_t>(in);
      break;
    case 4:
      LinkList(in);
      break;
    default:
      KeyedListAndStack(in);
  }
  return 0;
}
