// The storage of strings: how it grows, what a move takes over and what it leaves behind.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform.h"
#include "support/allocation.h"

using zeph::test::AllocationCount;
using zeph::test::AllocationEvent;
using zeph::test::LiveBlocks;
using zeph::test::RecordAllocations;

namespace {

std::string Text(const CString& s) {
  return {s.GetString(), static_cast<std::size_t>(s.GetLength())};
}

/// Texts that fit in the object itself, that just do not, and longer ones.
const int kLengths[] = {0, 1, 14, 15, 16, 17, 31, 32, 100, 1000};

std::string Letters(int length, char first) {
  std::string text(static_cast<std::size_t>(length), first);
  for (std::size_t i = 0; i < text.size(); ++i)
    text[i] = static_cast<char>(first + static_cast<int>(i % 5));
  return text;
}

}  // namespace

TEST(StringStorage, IsUsableAfterBeingMovedFrom) {
  for (const int length : kLengths) {
    const std::string old = Letters(length, 'a');
    CString from(old);
    CString to(std::move(from));
    std::string want;  // NOLINTBEGIN(bugprone-use-after-move): what is left is an empty string
    for (int i = 0; i < 100; ++i) {
      from += 'x';
      want += 'x';
      ASSERT_EQ(want, Text(from)) << length;
    }
    from = old.c_str();
    EXPECT_EQ(old, Text(from));
    EXPECT_EQ(old, Text(to));
    for (int i = 0; i < 100; ++i) to += 'y';
    EXPECT_EQ(old + std::string(100, 'y'), Text(to));
    to = std::move(from);
    EXPECT_EQ(old, Text(to));
    EXPECT_EQ("", Text(from));
    from.Append(old.data(), length);
    EXPECT_EQ(old, Text(from));  // NOLINTEND(bugprone-use-after-move)
  }
}

TEST(StringStorage, MovingTakesOverTheBlockAndItsCapacity) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CString from(Letters(1000, 'a'));
  from.Empty();
  from += 'z';
  const char* const block = from.GetString();
  CString to(std::move(from));
  const long before = AllocationCount();
  for (int i = 1; i < 1000; ++i) to += 'z';
  EXPECT_EQ(before, AllocationCount());
  EXPECT_EQ(block, to.GetString());
  CString last;
  last = std::move(to);
  last.Empty();
  for (int i = 0; i < 1000; ++i) last += 'w';
  EXPECT_EQ(before, AllocationCount());
  EXPECT_EQ(block, last.GetString());
}

TEST(StringStorage, SelfMoveChangesNothing) {
  for (const int length : kLengths) {
    CString s(Letters(length, 'a'));
    CString& same = s;
    s = std::move(same);
    EXPECT_EQ(Letters(length, 'a'), Text(s));
  }
}

TEST(StringStorage, ReleasesWhatAMoveReplaces) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (const int before : kLengths)
    for (const int after : kLengths) {
      const std::string old = Letters(before, 'a'), moved = Letters(after, 'b');
      const long live = LiveBlocks();
      {
        CString to(old), from(moved);
        to = std::move(from);
        EXPECT_EQ(moved, Text(to));
      }
      EXPECT_EQ(live, LiveBlocks()) << before << ", " << after;
    }
}

TEST(StringStorage, IsExactForATextAndDoubledForAppending) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const std::string hundred = Letters(100, 'a');
  const auto asked = [](auto call) {
    RecordAllocations record;
    call();
    std::vector<std::size_t> bytes;
    for (const auto& event : record.Events())
      if (event.kind == AllocationEvent::kNewArray) bytes.push_back(event.bytes);
    return bytes;
  };
  using Bytes = std::vector<std::size_t>;
  EXPECT_EQ((Bytes{}), asked([&] { CString s("123456789012345"); }));
  EXPECT_EQ((Bytes{17}), asked([&] { CString s("1234567890123456"); }));
  EXPECT_EQ((Bytes{101}), asked([&] { CString s(hundred); }));
  EXPECT_EQ((Bytes{101}), asked([&] {
              CString s("short");
              s = hundred.c_str();
            }));
  const std::string threeHundred = Letters(300, 'a');
  EXPECT_EQ((Bytes{101, 201, 501}), asked([&] {
              CString s(hundred);
              for (int i = 0; i < 100; ++i) s += 'x';  // twice the room, which is filled
              s.Append(threeHundred.c_str(), 300);     // more than twice
            }));
  EXPECT_EQ((Bytes{31}), asked([] {
              CString s;
              for (int i = 0; i < 30; ++i) s += 'x';
            }));
}

TEST(StringStorage, AssigningAShorterTextKeepsTheBlock) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CString s(Letters(200, 'a'));
  const CString shorter(Letters(150, 'b'));
  const char* const block = s.GetString();
  const long before = AllocationCount();
  s = shorter;
  EXPECT_EQ(150, s.GetLength());
  s = "c";
  EXPECT_STREQ("c", s.GetString());
  s.Format("%d", 12345);
  EXPECT_STREQ("12345", s.GetString());
  EXPECT_EQ(before, AllocationCount());
  EXPECT_EQ(block, s.GetString());
}

/// Every length of the old and of the appended text: the result is both, terminated by a zero.
TEST(StringStorage, IsCompleteAndTerminatedAtEveryLength) {
  for (int first = 0; first <= 40; ++first)
    for (int second = 0; second <= 40; ++second) {
      const std::string a = Letters(first, 'a'), b = Letters(second, 'p'), both = a + b;
      CString appended(a), added(a), formatted(a), assigned(a), characters(a);
      appended.Append(b.data(), second);
      added += CString(b);
      formatted.AppendFormat("%s", b.c_str());
      assigned = b.c_str();
      for (const char c : b) characters += c;
      ASSERT_EQ(both, Text(appended));
      ASSERT_EQ(both, Text(added));
      ASSERT_EQ(both, Text(formatted));
      ASSERT_EQ(both, Text(characters));
      ASSERT_EQ(b, Text(assigned));
      for (const CString* s : {&appended, &added, &formatted, &assigned, &characters})
        ASSERT_EQ('\0', s->GetString()[s->GetLength()]);
      ASSERT_EQ(both, Text(CString(a) + b.c_str()));
      ASSERT_EQ(both, Text(a.c_str() + CString(b)));
    }
}

/// A piece of the text itself, from every place and of every length, with and without room for it.
TEST(StringStorage, AppendsAndAssignsEveryPieceOfItself) {
  for (const int length : {10, 15, 16, 30})
    for (const int room : {0, 100})
      for (int from = 0; from <= length; ++from)
        for (int count = 0; count <= length - from; ++count) {
          const std::string old = Letters(length, 'a');
          CString s(Letters(room, 'z'));
          s = old.c_str();
          s.Append(s.GetString() + from, count);
          ASSERT_EQ(
              old + old.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(count)),
              Text(s));
          CString t(old);
          t = t.GetString() + from;
          ASSERT_EQ(old.substr(static_cast<std::size_t>(from)), Text(t));
        }
}

namespace {

template <class Right>
void ExpectToAppendRarely(const char* kind, const Right& right) {
  CString sum(Letters(100, 'a'));
  const long before = AllocationCount();
  for (int k = 0; k < 1000; ++k) sum = std::move(sum) + right;
  EXPECT_LE(AllocationCount() - before, 20) << kind;
  EXPECT_EQ(sum.GetLength(), 100 + 1000 * (CString() + right).GetLength()) << kind;
}

}  // namespace

/// Whatever stands to the right: the text to the left is not copied.
TEST(StringStorage, AChainOfSumsAppendsToOneText) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ExpectToAppendRarely("a text", CString("text"));
  ExpectToAppendRarely("characters", "text");
  ExpectToAppendRarely("a character", 't');
}
