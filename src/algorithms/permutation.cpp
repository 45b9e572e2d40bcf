// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

#include "algorithms.h"
#include "algorithms/blocked_text.h"
#include "platform/wrap.h"

namespace zeph::algorithms {
namespace {

// The shapes of a line: how wide an item can be, how it is put down, and what ends the line.

struct SpacedCharacters {
  static constexpr std::size_t kWidest = 2;
  static constexpr std::string_view kEnd = "\n";
  static char* Put(char* at, char c) {
    *at++ = c;
    *at++ = ' ';
    return at;
  }
};

struct JoinedCharacters {
  static constexpr std::size_t kWidest = 1;
  static constexpr std::string_view kEnd = " \n";
  static char* Put(char* at, char c) {
    *at++ = c;
    return at;
  }
};

struct SpacedNumbers {
  static constexpr std::size_t kWidest = 12;  // "-2147483648 "
  static constexpr std::string_view kEnd = "\n";
  static char* Put(char* at, int x) {
    at = std::to_chars(at, at + kWidest, x).ptr;
    *at++ = ' ';
    return at;
  }
};

/// Exchanges two items while it lives; an exception on its way out puts them back too.
template <class T>
class Exchanged {
 public:
  Exchanged(T& a, T& b) : m_a(a), m_b(b) { std::swap(m_a, m_b); }
  ~Exchanged() { std::swap(m_a, m_b); }
  Exchanged(const Exchanged&) = delete;
  Exchanged& operator=(const Exchanged&) = delete;

 private:
  T& m_a;
  T& m_b;
};

template <class Line, class T, class Sink>
class Lister {
 public:
  Lister(T* items, int count, Sink& sink)
      : m_items(items), m_count(count), m_last(platform::WrapSub(count, 1)), m_text(sink) {}

  void Run(int k) {
    if (k != m_last && k >= m_count) return;  // no line, so no item is read either
    // A line starts at position 0, wherever the permuted part does; below 0 nothing is drafted.
    char* at = k >= 0 && m_count <= kLongestDraft ? m_draft : nullptr;
    for (int i = 0; at && i < k && i < m_count; ++i) at = Line::Put(at, m_items[i]);
    List(k, at);
    m_text.Flush();
  }

 private:
  // The text of items 0..k-1 is the same in all lines below depth k, so it is made once per swap:
  // `at` is its end in the draft, or null without one.
  void List(int k, char* at) {
    if (k == m_last) return at ? PutDraft(at, k, k) : PutPlainly();
    if (at && k < m_last && k + 1 == m_last) {  // the last exchange, without making it
      PutDraft(at, k, m_last);
      PutDraft(at, m_last, k);
      return;
    }
    for (int i = k; i < m_count; ++i) {
      const Exchanged<T> exchanged(m_items[k], m_items[i]);
      List(k + 1, at ? Line::Put(at, m_items[k]) : nullptr);
    }
  }

  // The draft up to `draftEnd`, then the last two items (or the last alone) as a line.
  void PutDraft(const char* draftEnd, int beforeLast, int last) {
    const std::ptrdiff_t size = draftEnd - m_draft;
    char* to = m_text.Room(kDraft);
    // Whole chunks, a few bytes too many: a copy of known size is a pair of moves.
    for (std::ptrdiff_t i = 0; i < size; i += kChunk) std::memcpy(to + i, m_draft + i, kChunk);
    to += size;
    if (beforeLast != last) to = Line::Put(to, m_items[beforeLast]);
    to = Line::Put(to, m_items[last]);
    m_text.Wrote(std::copy(Line::kEnd.begin(), Line::kEnd.end(), to));
  }

  // Item by item, for lines of any length.
  void PutPlainly() {
    for (int i = 0; i < m_count;) {
      const int end = m_count - i > kLongestDraft ? i + kLongestDraft : m_count;
      char* at = m_text.Room(kDraft);
      for (; i < end; ++i) at = Line::Put(at, m_items[i]);
      m_text.Wrote(at);
    }
    char* at = m_text.Room(Line::kEnd.size());
    m_text.Wrote(std::copy(Line::kEnd.begin(), Line::kEnd.end(), at));
  }

  static constexpr int kLongestDraft = 256;  // items; nothing longer than a dozen ever ends anyway
  static constexpr int kChunk = 16;
  static constexpr std::size_t kDraft = kLongestDraft * Line::kWidest + kChunk;
  static_assert(kDraft <= BlockedText<Sink>::kBlock);

  T* m_items;
  int m_count;
  int m_last;
  char m_draft[kDraft];
  BlockedText<Sink> m_text;
};

template <class Line, class T, class Sink>
int ListOrderings(T* items, int k, int n, Sink* sink) {
  if (!items || !sink) return 0;
  Lister<Line, T, Sink>(items, n, *sink).Run(k);
  return 1;
}

}  // namespace
}  // namespace zeph::algorithms

using namespace zeph::algorithms;

CZEPHPermutation::CZEPHPermutation() {}
CZEPHPermutation::CZEPHPermutation(const CZEPHPermutation&) {}
CZEPHPermutation::~CZEPHPermutation() {}
CZEPHPermutation& CZEPHPermutation::operator=(const CZEPHPermutation&) {
  return *this;
}

int CZEPHPermutation::Run(char* s, int k, int n, FILE* f) {
  return ListOrderings<SpacedCharacters>(s, k, n, f);
}
int CZEPHPermutation::Run(char* s, int k, int n, CString& out) {
  return ListOrderings<JoinedCharacters>(s, k, n, &out);
}
int CZEPHPermutation::Run(int* s, int k, int n, FILE* f) {
  return ListOrderings<SpacedNumbers>(s, k, n, f);
}
int CZEPHPermutation::Run(int* s, int k, int n, CString& out) {
  return ListOrderings<SpacedNumbers>(s, k, n, &out);
}

int CZEPHPermutation::Test1(FILE* f) {
  if (!f) return 0;
  std::fprintf(f, "\n@@@( CZEPHPermutation::Test1()...BEGIN\n");
  char letters[] = {'a', 'b', 'c', 'd', 'e', 'f', 'g'};
  CString text;
  for (const int n : {3, 5}) {
    std::fprintf(f, "\n...Character permutation test b(0,%d): Version#1\n", n);
    Run(letters, 0, n, f);
    std::fprintf(f, "\n...Character permutation test b(0,%d): Version#2\n", n);
    text.Empty();
    Run(letters, 0, n, text);
    std::fprintf(f, "%s\n", text.GetString());
  }
  std::fprintf(f, "\n@@@( CZEPHPermutation::Test1()...END\n");

  // The integer part stands after the closing banner: reports of this class always read so.
  int numbers[] = {1, 2, 3, 4, 5, 6, 7};
  std::fprintf(f, "\n...Integer permutation test c(0,3): Version#1\n");
  Run(numbers, 0, 3, f);
  std::fprintf(f, "\n...Integer permutation test c(0,3): Version#2\n");
  text.Empty();
  Run(numbers, 0, 3, text);
  std::fprintf(f, "%s\n", text.GetString());
  std::fprintf(f, "\n...Integer permutation test c(0,6): Version#1\n");
  Run(numbers, 0, 6, f);
  return 1;
}
