// Objects that record their origin, and compare functions of every kind.
#ifndef ZEPH_TESTS_CONTAINERS_SORTABLE_SUPPORT_H
#define ZEPH_TESTS_CONTAINERS_SORTABLE_SUPPORT_H

#include <climits>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "containers.h"
#include "support/numbers.h"

namespace zeph::test {

struct Item : CObject {
  int key = 0;
  int id = 0;
};

inline const Item& ItemOf(const CObject* object) {
  return *static_cast<const Item*>(object);
}

/// One comparison: the identities of both elements, in the order in which they were passed.
using Comparison = std::pair<int, int>;

/// The compare functions below record their calls here unless it is null.
inline std::vector<Comparison>*& Trace() {
  static std::vector<Comparison>* trace = nullptr;
  return trace;
}
/// The state of the capricious compare function.
inline std::uint64_t& Whim() {
  static std::uint64_t whim = 0;
  return whim;
}

inline void Note(const CObject* a, const CObject* b) {
  if (Trace()) Trace()->emplace_back(ItemOf(a).id, ItemOf(b).id);
}

inline int ByKey(CObject* a, CObject* b) {
  Note(a, b);
  return ItemOf(a).key - ItemOf(b).key;
}
inline int Descending(CObject* a, CObject* b) {
  Note(a, b);
  return ItemOf(b).key - ItemOf(a).key;
}
inline int AlwaysBefore(CObject* a, CObject* b) {
  Note(a, b);
  return -1;
}
inline int AlwaysAfter(CObject* a, CObject* b) {
  Note(a, b);
  return 1;
}
inline int AlwaysEqual(CObject* a, CObject* b) {
  Note(a, b);
  return 0;
}
inline int RockPaperScissors(CObject* a, CObject* b) {  // not transitive
  Note(a, b);
  return (ItemOf(a).key - ItemOf(b).key + 300) % 3 - 1;
}
inline int Capricious(CObject* a, CObject* b) {
  Note(a, b);
  Whim() = Whim() * 6364136223846793005u + 1442695040888963407u;
  return static_cast<int>(Whim() >> 33) % 5 - 2;
}

inline int ByTheExtremes(CObject* a, CObject* b) {  // no other number than these tells an order
  Note(a, b);
  const int order = ItemOf(a).key - ItemOf(b).key;
  return order < 0 ? INT_MIN : order > 0 ? INT_MAX : 0;
}
inline int ByLargeSteps(CObject* a, CObject* b) {  // zeros in the low bits
  Note(a, b);
  return (ItemOf(a).key - ItemOf(b).key) % 100 * (1 << 24);
}

struct Temper {
  const char* name;
  int (*compare)(CObject*, CObject*);
};
inline const std::vector<Temper>& Tempers() {
  static const std::vector<Temper> tempers = {
      {"by key", ByKey},
      {"descending", Descending},
      {"by the extremes", ByTheExtremes},
      {"by large steps", ByLargeSteps},
      {"always before", AlwaysBefore},
      {"always after", AlwaysAfter},
      {"always equal", AlwaysEqual},
      {"rock paper scissors", RockPaperScissors},
      {"capricious", Capricious},
  };
  return tempers;
}

/// `n` objects with keys 0..distinct-1 and ids 0..n-1.
class Items {
 public:
  Items(std::size_t n, int distinct, std::uint64_t seed) : items_(n) {
    Random random(seed);
    for (std::size_t i = 0; i < n; ++i) {
      items_[i] = std::make_unique<Item>();
      items_[i]->key = random.Int(0, distinct - 1);
      items_[i]->id = static_cast<int>(i);
    }
  }
  static Items OfKeys(const std::vector<int>& keys) {
    Items items(keys.size(), 1, 0);
    for (std::size_t i = 0; i < keys.size(); ++i) items.items_[i]->key = keys[i];
    return items;
  }
  std::vector<CObject*> Pointers() const {
    std::vector<CObject*> pointers;
    for (const auto& item : items_) pointers.push_back(item.get());
    return pointers;
  }

 private:
  std::vector<std::unique_ptr<Item>> items_;
};

inline std::vector<int> Keys(const std::vector<CObject*>& objects) {
  std::vector<int> keys;
  for (const CObject* object : objects) keys.push_back(ItemOf(object).key);
  return keys;
}
inline std::vector<int> Ids(const std::vector<CObject*>& objects) {
  std::vector<int> ids;
  for (const CObject* object : objects) ids.push_back(ItemOf(object).id);
  return ids;
}

/// The comparisons that `body` makes, in order.
template <class Body>
std::vector<Comparison> Traced(Body body) {
  std::vector<Comparison> trace;
  Whim() = 42;
  Trace() = &trace;
  body();
  Trace() = nullptr;
  return trace;
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_CONTAINERS_SORTABLE_SUPPORT_H
