// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

#include "algorithms.h"
#include "platform/block_writer.h"
#include "platform/wrap.h"

namespace zeph::algorithms {
namespace {

// The formats of a line: the width of the widest item, how an item is written, and what ends a
// line.

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

/// Exchanges two items during its lifetime, so that an exception restores their order too.
template <class T>
class Exchanged {
 public:
  Exchanged(T& a, T& b) : a_(a), b_(b) { std::swap(a_, b_); }
  ~Exchanged() { std::swap(a_, b_); }
  Exchanged(const Exchanged&) = delete;
  Exchanged& operator=(const Exchanged&) = delete;

 private:
  T& a_;
  T& b_;
};

template <class Line, class T, class Sink>
class Lister {
 public:
  Lister(T* items, int count, Sink sink)
      : items_(items), count_(count), last_(platform::WrapSub(count, 1)), text_(sink) {}

  void Run(int k) {
    if (k != last_ && k >= count_) return;  // no lines: no item may be read
    // Every line starts with item 0, even if only the items from k on are permuted. A negative k
    // has no draft.
    char* at = k >= 0 && count_ <= kLongestDraft ? draft_ : nullptr;
    for (int i = 0; at && i < k && i < count_; ++i) at = Line::Put(at, items_[i]);
    List(k, at);
    text_.Flush();
  }

 private:
  // The text of items 0..k-1 is the same in all lines below depth k, so it is written to the draft
  // once per swap: `at` is its end there, or null without a draft.
  void List(int k, char* at) {
    if (k == last_) return at ? PutDraft(at, k, k) : PutPlainly();
    if (at && k < last_ && k + 1 == last_) {  // the last exchange, only written, not made
      PutDraft(at, k, last_);
      PutDraft(at, last_, k);
      return;
    }
    for (int i = k; i < count_; ++i) {
      const Exchanged<T> exchanged(items_[k], items_[i]);
      List(k + 1, at ? Line::Put(at, items_[k]) : nullptr);
    }
  }

  // Writes a line: the draft up to `draftEnd`, then the last two items, or the last one if both are
  // the same.
  void PutDraft(const char* draftEnd, int beforeLast, int last) {
    const std::ptrdiff_t size = draftEnd - draft_;
    char* to = text_.Room(kDraft);
    // Copies whole chunks, a few bytes too many: a copy of constant size compiles to a pair of
    // moves.
    for (std::ptrdiff_t i = 0; i < size; i += kChunk) std::memcpy(to + i, draft_ + i, kChunk);
    to += size;
    if (beforeLast != last) to = Line::Put(to, items_[beforeLast]);
    to = Line::Put(to, items_[last]);
    text_.Wrote(std::copy(Line::kEnd.begin(), Line::kEnd.end(), to));
  }

  // Item by item, for lines of any length.
  void PutPlainly() {
    for (int i = 0; i < count_;) {
      const int end = count_ - i > kLongestDraft ? i + kLongestDraft : count_;
      char* at = text_.Room(kDraft);
      for (; i < end; ++i) at = Line::Put(at, items_[i]);
      text_.Wrote(at);
    }
    char* at = text_.Room(Line::kEnd.size());
    text_.Wrote(std::copy(Line::kEnd.begin(), Line::kEnd.end(), at));
  }

  static constexpr int kLongestDraft = 256;  // items; listing more than a dozen never ends
  static constexpr int kChunk = 16;
  static constexpr std::size_t kDraft = kLongestDraft * Line::kWidest + kChunk;
  static constexpr std::size_t kBlock = 65536;
  static_assert(kDraft <= kBlock);

  T* items_;
  int count_;
  int last_;
  char draft_[kDraft];
  platform::BlockWriter<Sink, kBlock> text_;
};

template <class Line, class T, class Sink>
int ListOrderings(T* items, int k, int n, Sink sink) {
  if (!items) return 0;
  Lister<Line, T, Sink>(items, n, sink).Run(k);
  return 1;
}

template <class Line, class T>
int ListOrderings(T* items, int k, int n, FILE* f) {
  return f ? ListOrderings<Line>(items, k, n, platform::StreamSink{f}) : 0;
}
template <class Line, class T>
int ListOrderings(T* items, int k, int n, CString& out) {
  return ListOrderings<Line>(items, k, n, platform::StringSink{out});
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
  return ListOrderings<JoinedCharacters>(s, k, n, out);
}
int CZEPHPermutation::Run(int* s, int k, int n, FILE* f) {
  return ListOrderings<SpacedNumbers>(s, k, n, f);
}
int CZEPHPermutation::Run(int* s, int k, int n, CString& out) {
  return ListOrderings<SpacedNumbers>(s, k, n, out);
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

  // The integer part follows the closing banner: reports of this class have always been like that.
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
