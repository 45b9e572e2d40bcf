// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_CONTAINERS_CHAIN_SORTER_H
#define ZEPH_SRC_CONTAINERS_CHAIN_SORTER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace zeph::containers {

/// Sorts nodes (with m_value and m_pNext) without NaN into the order that inserting them one by one
/// gives: ascending, with later nodes first among equals.
///
/// Method: ranks within groups of 16, merges in a table of 256 entries on the stack, then a
/// bottom-up merge sort of the resulting chains. No branch depends on the values.
template <class Node>
class ChainSorter {
 public:
  using Value = decltype(Node::m_value);

  void Add(Node* node) {
    entries_[count_++] = {node->m_value, node};
    if (count_ == kTable) Flush();
  }

  /// The ordered chain of all nodes added since the last call; null without one.
  Node* Take() {
    Flush();
    Node *chain = nullptr, **bin = bins_;
    for (; usedBins_ > 0; --usedBins_, ++bin) chain = *bin ? MergeChains(chain, *bin) : chain;
    return chain;
  }

 private:
  static constexpr std::size_t kGroup = 16, kTable = 256;
  struct Entry {
    Value value;
    Node* node;
  };

  /// Whether a newer value goes after an older one. This is the documented comparison and the only
  /// one used, so results agree where the processor treats denormals as zeros.
  static bool Passes(Value newer, Value older) { return newer > older; }

  static Node* Either(bool first, Node* a, Node* b) {
    const std::uintptr_t mask = std::uintptr_t{0} - first;
    return reinterpret_cast<Node*>((reinterpret_cast<std::uintptr_t>(a) & mask) |
                                   (reinterpret_cast<std::uintptr_t>(b) & ~mask));
  }

  /// Orders up to kGroup entries, oldest first, by counting those that go in front of each.
  static void Rank(const Entry* from, std::size_t n, Entry* to) {
    unsigned rank[kGroup] = {};
    for (std::size_t i = 1; i < n; ++i) {
      unsigned passed = 0;
      for (std::size_t k = 0; k < i; ++k) {
        const bool passes = Passes(from[i].value, from[k].value);
        passed += passes;
        rank[k] += !passes;
      }
      rank[i] = passed;
    }
    for (std::size_t i = 0; i < n; ++i) to[rank[i]] = from[i];
  }

  static void TakeFirst(const Entry*& older, const Entry*& newer, Entry*& out) {
    const bool passes = Passes(newer->value, older->value);
    *out++ = *(passes ? older : newer);
    older += passes;
    newer += !passes;
  }
  static void TakeLast(const Entry*& olderEnd, const Entry*& newerEnd, Entry*& outEnd) {
    const bool passes = Passes(newerEnd[-1].value, olderEnd[-1].value);
    *--outEnd = (passes ? newerEnd : olderEnd)[-1];
    newerEnd -= passes;
    olderEnd -= !passes;
  }

  /// Merges `older` .. `newer` with `newer` .. `end`, which is not the longer one.
  static void MergeEntries(const Entry* older, const Entry* newer, const Entry* end, Entry* out) {
    const Entry *olderEnd = newer, *newerEnd = end;
    Entry* outEnd = out + (end - older);
    // Merges from both ends at once: two independent dependency chains, which never take more
    // elements together than there are.
    for (std::ptrdiff_t steps = (end - newer) / 2; steps > 0; --steps) {
      TakeFirst(older, newer, out);
      TakeLast(olderEnd, newerEnd, outEnd);
    }
    while (older < olderEnd && newer < newerEnd) TakeFirst(older, newer, out);
    out = std::copy(older, olderEnd, out);
    std::copy(newer, newerEnd, out);
  }

  /// Sorts the entries and returns them as a chain.
  Node* Chain() {
    Entry *from = entries_, *to = spare_;
    for (std::size_t at = 0; at < count_; at += kGroup)
      Rank(from + at, std::min(kGroup, count_ - at), to + at);
    std::swap(from, to);
    for (std::size_t run = kGroup; run < count_; run *= 2) {
      for (std::size_t at = 0; at < count_; at += 2 * run)
        MergeEntries(from + at, from + std::min(at + run, count_),
                     from + std::min(at + 2 * run, count_), to + at);
      std::swap(from, to);
    }
    Node* head = nullptr;
    Node** link = &head;
    for (std::size_t i = 0; i < count_; ++i) {
      *link = from[i].node;
      link = &from[i].node->m_pNext;
    }
    *link = nullptr;
    return head;
  }

  /// Merges two ordered chains; that of the newer nodes comes first among equals.
  static Node* MergeChains(Node* newer, Node* older) {
    Node* head = nullptr;
    Node** link = &head;
    while (newer && older) {
      const bool passes = Passes(newer->m_value, older->m_value);
      Node *behindNewer = newer->m_pNext, *behindOlder = older->m_pNext;
      Node* first = Either(passes, older, newer);
      *link = first;
      link = &first->m_pNext;
      newer = Either(passes, newer, behindNewer);
      older = Either(passes, behindOlder, older);
    }
    *link = newer ? newer : older;
    return head;
  }

  /// Moves the table's entries to the bins.
  void Flush() {
    if (count_ == 0) return;
    Node* chain = Chain();
    count_ = 0;
    std::size_t bin = 0;
    for (; bin < usedBins_ && bins_[bin]; ++bin) {
      chain = MergeChains(chain, bins_[bin]);
      bins_[bin] = nullptr;
    }
    bins_[bin] = chain;
    usedBins_ = std::max(usedBins_, bin + 1);
  }

  Entry entries_[kTable];  // oldest first
  Entry spare_[kTable];
  std::size_t count_ = 0;
  // bins_[i] is null or the chain of 2^i tables, newer than those of the higher bins. A count is an
  // int: below 2^31 nodes.
  Node* bins_[32];
  std::size_t usedBins_ = 0;
};

}  // namespace zeph::containers

#endif  // ZEPH_SRC_CONTAINERS_CHAIN_SORTER_H
