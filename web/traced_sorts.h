// SPDX-License-Identifier: MIT
//
// The classic sorts, step by step as documented, on a board that records every access.
#ifndef ZEPH_WEB_TRACED_SORTS_H
#define ZEPH_WEB_TRACED_SORTS_H

#include <algorithm>
#include <cstddef>
#include <vector>

namespace zeph::web {

/// An array whose accesses are recorded, so that a page can show them one after another.
class Board {
 public:
  enum Kind { kLook = 0, kExchange = 1, kMove = 2 };
  struct Step {
    int kind, i, j;
  };

  explicit Board(std::vector<double> values) : m_values(std::move(values)) {}

  int Count() const { return static_cast<int>(m_values.size()); }
  const std::vector<double>& Values() const { return m_values; }
  const std::vector<Step>& Steps() const { return m_steps; }

  bool Greater(int i, int j) {
    Record(kLook, i, j);
    return At(i) > At(j);
  }
  bool AtLeast(int i, int j) {
    Record(kLook, i, j);
    return At(i) >= At(j);
  }
  bool LessThan(int i, double x) {
    Record(kLook, i, i);
    return At(i) < x;
  }
  bool GreaterThan(int i, double x) {
    Record(kLook, i, i);
    return At(i) > x;
  }
  void Exchange(int i, int j) {
    Record(kExchange, i, j);
    std::swap(At(i), At(j));
  }
  /// Removes element `from` and inserts it before element `to`, further down.
  void Insert(int from, int to) {
    Record(kMove, from, to);
    std::rotate(m_values.begin() + to, m_values.begin() + from, m_values.begin() + from + 1);
  }
  double Value(int i) const { return m_values.at(static_cast<std::size_t>(i)); }

 private:
  double& At(int i) { return m_values.at(static_cast<std::size_t>(i)); }
  void Record(Kind kind, int i, int j) { m_steps.push_back({kind, i, j}); }

  std::vector<double> m_values;
  std::vector<Step> m_steps;
};

/// n - 2 passes: the two smallest may stay exchanged.
inline void TraceBubble(Board& board) {
  const int n = board.Count();
  for (int pass = 1; pass <= n - 2; ++pass)
    for (int j = 0; j <= n - 1 - pass; ++j)
      if (board.Greater(j, j + 1)) board.Exchange(j, j + 1);
}

/// Equal elements pass each other.
inline void TraceInsertionRange(Board& board, int left, int right) {
  for (int i = left + 1; i <= right; ++i) {
    int j = i;
    while (j > left && board.AtLeast(j - 1, i)) --j;
    if (j < i) board.Insert(i, j);
  }
}

inline void TraceInsertion(Board& board) {
  TraceInsertionRange(board, 0, board.Count() - 1);
}

/// The list is walked from its head to the first element that is not below the new one.
inline void TraceList(Board& board) {
  for (int i = 1; i < board.Count(); ++i) {
    int place = 0;
    while (place < i && board.Greater(i, place)) ++place;
    if (place < i) board.Insert(i, place);
  }
}

/// Gaps n/2, n/4, ..., 1; every chain is traversed down to its start.
inline void TraceShell(Board& board) {
  const int n = board.Count();
  for (int gap = n / 2; gap >= 1; gap /= 2)
    for (int i = 0; i <= n - gap - 1; ++i)
      for (int j = i; j >= 0; j -= gap)
        if (board.Greater(j, j + gap)) board.Exchange(j, j + gap);
}

inline double TraceMedianOf3(Board& board, int left, int right) {
  const int center = (left + right) / 2;
  if (board.Greater(left, center)) board.Exchange(left, center);
  if (board.Greater(left, right)) board.Exchange(left, right);
  if (board.Greater(center, right)) board.Exchange(center, right);
  board.Exchange(center, right - 1);
  return board.Value(right - 1);
}

inline int TracePartition(Board& board, int left, int right, double pivot) {
  int i = left, j = right - 1;
  for (;;) {
    while (board.LessThan(++i, pivot)) {
    }
    while (board.GreaterThan(--j, pivot)) {
    }
    if (i >= j) break;
    board.Exchange(i, j);
  }
  board.Exchange(i, right - 1);
  return i;
}

/// Pieces of up to ten elements are left to the insertion sort.
inline void TraceQuickRange(Board& board, int left, int right) {
  constexpr int kCutoff = 10;
  while (right - left + 1 > kCutoff) {
    const int p = TracePartition(board, left, right, TraceMedianOf3(board, left, right));
    TraceQuickRange(board, left, p - 1);
    left = p + 1;
  }
  TraceInsertionRange(board, left, right);
}

inline void TraceQuick(Board& board) {
  TraceQuickRange(board, 0, board.Count() - 1);
}

}  // namespace zeph::web

#endif  // ZEPH_WEB_TRACED_SORTS_H
