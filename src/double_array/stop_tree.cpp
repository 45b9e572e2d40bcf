// SPDX-License-Identifier: MIT
#include "double_array/stop_tree.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "kernels/bits.h"

namespace zeph::double_array {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
using kernels::Bounds;

/// Whether an element within the bounds may stop the upward scan (kUp), by not being below the
/// pivot, or the downward one.
template <bool kUp>
bool MayStop(const Bounds& bounds, double pivot) {
  return kUp ? !(bounds.greatest < pivot) : !(bounds.least > pivot);
}

}  // namespace

StopTree::StopTree(double* v, std::size_t n) : v_(v), n_(n) {
  std::size_t leaves = LeafOf(n - 1) + 1;
  Bounds* at = own_;
  if (leaves > kOwnLeaves) {
    std::size_t all = 1;
    for (std::size_t nodes = leaves; nodes > 1; nodes = (nodes + kFan - 1) / kFan) all += nodes;
    borrowed_ = kernels::Borrow<Bounds>(all);
    at = borrowed_.get();
    if (!at) {
      at = own_;
      while (LeafOf(n - 1) >= kOwnLeaves) ++leaf_shift_;
      leaves = LeafOf(n - 1) + 1;
    }
  }
  for (std::size_t nodes = leaves;; nodes = (nodes + kFan - 1) / kFan) {
    level_[levels_] = at;
    nodes_[levels_] = nodes;
    ++levels_;
    std::fill_n(at, nodes, Bounds{-kInf, kInf});
    at += nodes;
    if (nodes == 1) return;
  }
}

void StopTree::Cover(std::size_t first, std::size_t last) {
  first = LeafOf(first);
  last = LeafOf(last);
  for (std::size_t leaf = first; leaf <= last; ++leaf) Measure(leaf);
  for (int level = 1; level < levels_; ++level) {
    first /= kFan;
    last /= kFan;
    for (std::size_t node = first; node <= last; ++node) Combine(level, node);
  }
}

void StopTree::Measure(std::size_t leaf) {
  level_[0][leaf] = kernels::BoundsOf(v_ + Begin(leaf), End(leaf) - Begin(leaf));
}

/// Recomputes a node's bounds from those below it; returns false if they were right already.
bool StopTree::Combine(int level, std::size_t node) {
  const Bounds* const below = level_[level - 1];
  const std::size_t end = std::min((node + 1) * kFan, nodes_[level - 1]);
  Bounds bounds = below[node * kFan];
  for (std::size_t k = node * kFan + 1; k < end; ++k) {
    bounds.least = std::min(bounds.least, below[k].least);
    bounds.greatest = std::max(bounds.greatest, below[k].greatest);
  }
  Bounds& own = level_[level][node];
  const bool changed = own.least != bounds.least || own.greatest != bounds.greatest;
  own = bounds;
  return changed;
}

void StopTree::Tighten(std::size_t leaf) {
  Measure(leaf);
  for (int level = 1; level < levels_; ++level) {
    leaf /= kFan;
    if (!Combine(level, leaf)) return;
  }
}

void StopTree::Widen(std::size_t at) {
  const double x = v_[at];
  const bool nan = x != x;
  std::size_t node = LeafOf(at);
  for (int level = 0; level < levels_; ++level, node /= kFan) {
    Bounds& bounds = level_[level][node];
    const bool low = nan ? bounds.least != -kInf : x < bounds.least;
    const bool high = nan ? bounds.greatest != kInf : x > bounds.greatest;
    if (!low && !high) return;  // then the bounds above include it too
    if (low) bounds.least = nan ? -kInf : x;
    if (high) bounds.greatest = nan ? kInf : x;
  }
}

void StopTree::Exchange(std::size_t a, std::size_t b) {
  std::swap(v_[a], v_[b]);
  if (LeafOf(a) == LeafOf(b)) return;
  Widen(a);
  Widen(b);
}

void StopTree::SwapIfGreater(std::size_t a, std::size_t b) {
  if (v_[a] > v_[b]) Exchange(a, b);
}

double StopTree::MedianOf3(std::size_t left, std::size_t right) {
  const std::size_t center = left + (right - left) / 2;
  SwapIfGreater(left, center);
  SwapIfGreater(left, right);
  SwapIfGreater(center, right);
  Exchange(center, right - 1);
  return v_[right - 1];
}

/// One of the two scans: `kUp` from low indices to high ones until something is not less than the
/// pivot, the other down until something is not greater. Keeps a mask of the stops in the current
/// block.
template <bool kUp>
struct StopTree::Scanner {
  StopTree& tree;
  const double pivot;
  std::size_t next;  // kUp: the first index not examined; else the last one, plus 1
  std::size_t base = 0;
  std::uint64_t mask = 0;  // stops from `base` on that are not used yet
  bool idle = false;       // this leaf was entered at its edge and has no stop so far

  /// The next stop before `limit` (kUp), or the next one above it; `limit` if there is none.
  std::size_t Next(std::size_t limit) {
    while (!mask) {
      if (kUp ? next >= limit : next <= limit + 1) return limit;
      if (AtEdge()) Skip(limit);
      if (kUp ? next >= limit : next <= limit + 1) return limit;
      Look();
    }
    const int bit = kUp ? kernels::LowestBit(mask) : kernels::HighestBit(mask);
    mask &= ~(std::uint64_t{1} << bit);
    const std::size_t at = base + static_cast<std::size_t>(bit);
    return kUp ? std::min(at, limit) : std::max(at, limit);
  }

 private:
  std::size_t Leaf() const { return tree.LeafOf(kUp ? next : next - 1); }

  bool AtEdge() const {
    const std::size_t leaf = Leaf();
    return next == (kUp ? tree.Begin(leaf) : tree.End(leaf));
  }
  bool May(int level, std::size_t node) const {
    return MayStop<kUp>(tree.level_[level][node], pivot);
  }
  /// Whether the scan enters a node and its parent at once.
  bool EntersAbove(int level, std::size_t node) const {
    if (kUp) return node % kFan == 0;
    return node % kFan == kFan - 1 || node + 1 == tree.nodes_[level];
  }
  bool IsLast(int level, std::size_t node) const {
    return kUp ? node + 1 == tree.nodes_[level] : node == 0;
  }
  std::size_t FirstBelow(int level, std::size_t node) const {
    return kUp ? node * kFan : std::min(node * kFan + kFan, tree.nodes_[level - 1]) - 1;
  }

  /// At the edge of a leaf: moves to the next leaf that may contain a stop, or past `limit`. Skips
  /// whole nodes where their bounds allow it and enters the others.
  void Skip(std::size_t limit) {
    int level = 0;
    std::size_t node = Leaf();
    for (;;) {
      while (level + 1 < tree.levels_ && EntersAbove(level, node) && !May(level + 1, node / kFan)) {
        ++level;
        node /= kFan;
      }
      while (May(level, node)) {
        if (level == 0) {
          next = kUp ? tree.Begin(node) : tree.End(node);
          return;
        }
        node = FirstBelow(level, node);
        --level;
      }
      const std::size_t last_leaf = tree.LeafOf(limit) >> (3 * level);
      if (IsLast(level, node) || node == last_leaf) {
        next = limit;
        return;
      }
      node = kUp ? node + 1 : node - 1;
    }
  }

  /// Finds the stops of the next block: at most 64 elements, which end where a leaf does.
  void Look() {
    const std::size_t leaf = Leaf();
    const std::size_t leaf_begin = tree.Begin(leaf), leaf_end = tree.End(leaf);
    if (next == (kUp ? leaf_begin : leaf_end)) idle = true;
    const std::size_t n = std::min(kBlock, kUp ? leaf_end - next : next - leaf_begin);
    base = kUp ? next : next - n;
    mask = kUp ? kernels::NotLess(tree.v_ + base, n, pivot)
               : kernels::NotGreater(tree.v_ + base, n, pivot);
    next = kUp ? next + n : base;
    if (mask) idle = false;
    if (idle && next == (kUp ? leaf_end : leaf_begin)) tree.Tighten(leaf);
  }
};

std::size_t StopTree::Part(std::size_t first, std::size_t last) {
  const double pivot = MedianOf3(first, last);
  std::size_t i = first, j = last - 1;
  Scanner<true> up{*this, pivot, i + 1};
  Scanner<false> down{*this, pivot, j};
  for (;;) {
    i = up.Next(j);
    if (i >= j) break;
    j = down.Next(i);
    if (i >= j) break;
    Exchange(i, j);
  }
  Exchange(i, last - 1);
  return i;
}

}  // namespace zeph::double_array
