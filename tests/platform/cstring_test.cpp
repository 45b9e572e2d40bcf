#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include "platform.h"
#include "support/allocation.h"

namespace {

std::string Text(const CString& s) {
  return {s.GetString(), static_cast<std::size_t>(s.GetLength())};
}

constexpr const char* kNull = nullptr;

}  // namespace

TEST(String, StartsEmptyAndTerminated) {
  const CString s;
  EXPECT_TRUE(s.IsEmpty());
  EXPECT_EQ(s.GetLength(), 0);
  EXPECT_STREQ(s.GetString(), "");
}

TEST(String, TreatsNullAsEmptyEverywhere) {
  CString s(kNull);
  EXPECT_TRUE(s.IsEmpty());
  s = "abc";
  s += kNull;
  s.Append(nullptr, 3);
  EXPECT_EQ(Text(s), "abc");
  EXPECT_EQ(Text(s + kNull), "abc");
  EXPECT_EQ(Text(kNull + s), "abc");
  EXPECT_EQ(s.Find(kNull), -1);
  EXPECT_TRUE(s > kNull && kNull < s && s != kNull && !(s == kNull));
  s = kNull;
  EXPECT_TRUE(s == kNull && kNull == s && s.IsEmpty());
}

TEST(String, CopiesDeepAndMoves) {
  CString a("one");
  CString b(a);
  b += " two";
  EXPECT_EQ(Text(a), "one");
  EXPECT_EQ(Text(b), "one two");
  CString c(std::move(b));
  EXPECT_EQ(Text(c), "one two");
  a = c;
  c = "three";
  EXPECT_EQ(Text(a), "one two");
  a = std::move(c);
  EXPECT_EQ(Text(a), "three");
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<CString>);
}

TEST(String, MayBeAssignedAndAppendedToItselfInWholeOrInPart) {
  CString s("0123456789abcdef");
  s = *&s;
  EXPECT_EQ(Text(s), "0123456789abcdef");
  s += s;
  EXPECT_EQ(Text(s), "0123456789abcdef0123456789abcdef");
  s = s.GetString() + 28;
  EXPECT_EQ(Text(s), "cdef");
  for (int i = 0; i < 5; ++i) s += s.GetString();
  EXPECT_EQ(s.GetLength(), 128);
  s.Append(s.GetString(), 128);
  EXPECT_EQ(s.GetLength(), 256);
  EXPECT_EQ(Text(s.Right(8)), "cdefcdef");
}

TEST(String, AppendsExactlyTheGivenNumberOfBytes) {
  CString s;
  s.Append("abcdef", 3);
  s.Append("x\0y", 3);
  s.Append("zzz", 0);
  s.Append("zzz", -4);
  EXPECT_EQ(Text(s), std::string("abcx\0y", 6));
  s += '\0';
  EXPECT_EQ(s.GetLength(), 7);
}

TEST(String, ConcatenatesTextsAndCharactersOnEitherSide) {
  const CString s("mid");
  EXPECT_EQ(Text(s + s), "midmid");
  EXPECT_EQ(Text(s + "x"), "midx");
  EXPECT_EQ(Text("x" + s), "xmid");
  EXPECT_EQ(Text(s + '!'), "mid!");
  EXPECT_EQ(Text('!' + s), "!mid");
  EXPECT_EQ(Text("(" + s + ',' + s + ")"), "(mid,mid)");
  EXPECT_EQ(Text(s), "mid");
}

TEST(String, ComparesByBytesWithTextsOnEitherSide) {
  const CString a("abc"), b("abd"), ab("ab");
  EXPECT_TRUE(a == a && a == "abc" && "abc" == a && a != b && a != "x" && "x" != a);
  EXPECT_TRUE(a < b && a < "abd" && "abb" < a && ab < a);
  EXPECT_TRUE(b > a && b > "abc" && "abe" > b && a > ab);
  EXPECT_TRUE(a <= a && a <= "abc" && "abc" <= a && a >= a && a >= "abc" && "abc" >= a);
  EXPECT_FALSE(a == b || a != a || a < a || a > a || b <= a || a >= b);
  EXPECT_FALSE(a == "abd" || "abd" == a || a != "abc" || "abc" != a || a < "abc" || "abc" < a);
  EXPECT_FALSE(a > "abc" || "abc" > a || b <= "abc" || "abd" <= a || a >= "abd" || "abc" >= b);
  EXPECT_TRUE(CString("\xe9") > CString("z"));  // unsigned bytes
  EXPECT_FALSE(CString(std::string_view("a\0b", 3)) == "a");
}

TEST(String, GivesCharactersUpToTheTerminator) {
  const CString s("abc");
  EXPECT_EQ(s[0], 'a');
  EXPECT_EQ(s.GetAt(2), 'c');
  EXPECT_EQ(s[3], '\0');
  EXPECT_EQ(s[std::size_t{1}], 'b');
  EXPECT_EQ(s[1L], 'b');
  EXPECT_THROW(s.GetAt(4), std::out_of_range);
  EXPECT_THROW(s[-1], std::out_of_range);
  EXPECT_THROW(s[SIZE_MAX], std::out_of_range);
  EXPECT_THROW(s[-1LL], std::out_of_range);
}

TEST(String, AcceptsAnIndexOfEveryIntegerType) {
  const CString s("abc");
  EXPECT_EQ(s[static_cast<unsigned char>(2)], 'c');
  EXPECT_EQ(s[static_cast<signed char>(1)], 'b');
  EXPECT_EQ(s[static_cast<short>(0)], 'a');
  EXPECT_EQ(s[3u], '\0');
  EXPECT_EQ(s[2ULL], 'c');
  EXPECT_EQ(s[false], 'a');
  EXPECT_EQ(s[true], 'b');
  EXPECT_THROW(s[4u], std::out_of_range);
  EXPECT_THROW(s[0x80000000u], std::out_of_range);
  EXPECT_THROW(s[0x100000001ULL], std::out_of_range);  // would be 1 in 32 bits
  EXPECT_THROW(s[-0xFFFFFFFFLL], std::out_of_range);
  EXPECT_THROW(s[static_cast<signed char>(-1)], std::out_of_range);
  EXPECT_THROW(s[static_cast<short>(-3)], std::out_of_range);
  EXPECT_THROW(s[INT64_MIN], std::out_of_range);
  EXPECT_THROW(s[INT64_MAX], std::out_of_range);
}

TEST(String, CopiesEveryByteOfAStandardString) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(Text(CString(text)), text);
  EXPECT_EQ(Text(CString(std::string())), "");
}

TEST(String, ExtractsSubstringsWithClampedBounds) {
  const CString s("abcdef");
  EXPECT_EQ(Text(s.Left(2)), "ab");
  EXPECT_EQ(Text(s.Left(0)), "");
  EXPECT_EQ(Text(s.Left(-5)), "");
  EXPECT_EQ(Text(s.Left(INT_MAX)), "abcdef");
  EXPECT_EQ(Text(s.Right(2)), "ef");
  EXPECT_EQ(Text(s.Right(INT_MIN)), "");
  EXPECT_EQ(Text(s.Right(INT_MAX)), "abcdef");
  EXPECT_EQ(Text(s.Mid(2)), "cdef");
  EXPECT_EQ(Text(s.Mid(INT_MIN)), "abcdef");
  EXPECT_EQ(Text(s.Mid(6)), "");
  EXPECT_EQ(Text(s.Mid(INT_MAX)), "");
  EXPECT_EQ(Text(s.Mid(2, 2)), "cd");
  EXPECT_EQ(Text(s.Mid(4, INT_MAX)), "ef");
  EXPECT_EQ(Text(s.Mid(4, -1)), "");
}

TEST(String, FindsTextsAndCharactersFromAStart) {
  const CString s("abcabc");
  EXPECT_EQ(s.Find("ca"), 2);
  EXPECT_EQ(s.Find("abc", 1), 3);
  EXPECT_EQ(s.Find("abcd"), -1);
  EXPECT_EQ(s.Find(""), 0);
  EXPECT_EQ(s.Find("", 6), 6);
  EXPECT_EQ(s.Find("", 7), -1);
  EXPECT_EQ(s.Find("a", -1), -1);
  EXPECT_EQ(s.Find('b'), 1);
  EXPECT_EQ(s.Find('b', 2), 4);
  EXPECT_EQ(s.Find('b', 5), -1);
  EXPECT_EQ(s.Find('b', -1), -1);
  EXPECT_EQ(s.Find('z'), -1);
}

/// Every character and piece from every start, also where the text has zeros in it.
TEST(String, FindsWhatAStandardStringFinds) {
  const auto index = [](std::size_t found) {
    return found == std::string::npos ? -1 : static_cast<int>(found);
  };
  for (const std::string& text :
       {std::string(), std::string("abcabc"), std::string("a\0b\0ab", 6), std::string(3, '\0'),
        std::string("ab\0", 3), std::string(40, 'a') + "b"}) {
    const CString s(text);
    for (std::size_t start = 0; start <= text.size() + 2; ++start) {
      const int from = static_cast<int>(start);
      for (const char c : {'\0', 'a', 'b', 'c', 'z'})
        EXPECT_EQ(s.Find(c, from), index(text.find(c, start))) << int{c} << " from " << start;
      for (const char* piece : {"", "a", "b", "ab", "bca", "aab"})
        EXPECT_EQ(s.Find(piece, from), index(text.find(piece, start))) << piece << from;
    }
  }
}

TEST(String, FormatsTextsOfAnyLength) {
  CString s("old");
  s.Format("%d %s %.3f", 42, "text", 1.5);
  EXPECT_EQ(Text(s), "42 text 1.500");
  for (int length : {0, 1, 510, 511, 512, 513, 100000}) {
    const std::string text(static_cast<std::size_t>(length), 'x');
    s.Format("%s", text.c_str());
    EXPECT_EQ(Text(s), text) << length;
    s = "<";
    s.AppendFormat("%s>", text.c_str());
    EXPECT_EQ(Text(s), "<" + text + ">") << length;
  }
}

TEST(String, FormatsItselfIntoItself) {
  CString s("ab");
  s.Format("%s-%s", s.GetString(), s.GetString());
  EXPECT_EQ(Text(s), "ab-ab");
  s.AppendFormat("[%s]", s.GetString());
  EXPECT_EQ(Text(s), "ab-ab[ab-ab]");
}

/// Of any length: up to 512 characters a text is written in place before it is moved.
TEST(String, FormatsItselfIntoItselfAtAnyLength) {
  for (const std::size_t length :
       {1u, 14u, 15u, 16u, 254u, 255u, 256u, 511u, 512u, 513u, 1000u, 5000u}) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i) text += static_cast<char>('a' + i % 26);
    CString s(text.c_str());
    s.Format("<%s|%s>", s.GetString(), s.GetString() + length / 2);
    const std::string once = "<" + text + "|" + text.substr(length / 2) + ">";
    EXPECT_EQ(Text(s), once) << length;
    s.AppendFormat("%s%d%s", s.GetString(), 42, s.GetString());
    EXPECT_EQ(Text(s), once + once + "42" + once) << length;
  }
}

TEST(String, AnEmptyOrNullFormatGivesTheEmptyText) {
  CString s("old");
  s.AppendFormat(kNull);
  EXPECT_EQ(Text(s), "old");
  s.Format("%s", "");
  EXPECT_EQ(Text(s), "");
  s = "old";
  s.Format(kNull);
  EXPECT_EQ(Text(s), "");
}

TEST(String, AFormatWithAnEmptyResultGivesTheEmptyTextWhateverWasWrongBefore) {
  CString s("old");
  errno = EOVERFLOW;
  s.AppendFormat("%ls", L"");
  EXPECT_EQ(Text(s), "old");
  errno = EOVERFLOW;
  s.Format("%ls", L"");
  EXPECT_EQ(Text(s), "");
}

#ifdef __GLIBC__
/// A character that no locale has: the runtime writes nothing, and neither does the string, whatever was wrong before.
TEST(String, AFormatThatTheRuntimeRejectsGivesTheEmptyText) {
  const wchar_t nothing[] = {static_cast<wchar_t>(0x7FFFFFFF), L'\0'};
  for (const int before : {0, EOVERFLOW}) {
    CString s("old");
    errno = before;
    s.AppendFormat("%ls", nothing);
    EXPECT_EQ(Text(s), "old");
    errno = before;
    s.Format("%ls", nothing);
    EXPECT_EQ(Text(s), "");
  }
}
#endif

TEST(String, EmptyRemovesTheTextAndKeepsTheStorage) {
  CString s(std::string(1000, 'x'));
  const char* storage = s.GetString();
  s.Empty();
  EXPECT_TRUE(s.IsEmpty());
  for (int i = 0; i < 1000; ++i) s += 'y';
  EXPECT_EQ(s.GetString(), storage);
}

TEST(String, AppendingAllocatesRarely) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CString s;
  const long before = zeph::test::AllocationCount();
  for (int i = 0; i < 100000; ++i) s.AppendFormat("%d\r\n", i);
  EXPECT_LT(zeph::test::AllocationCount() - before, 40);
}

TEST(String, KeepsItsTextWhenMemoryRunsOut) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const std::string longText(2000, 'x');
  CString s("a text of more than fifteen characters");
  const std::string old = Text(s);
  {
    zeph::test::FailAllocation failing(1, true);
    EXPECT_THROW(s += longText.c_str(), std::bad_alloc);
    EXPECT_THROW(s.Append(longText.c_str(), 2000), std::bad_alloc);
    EXPECT_THROW(s.Format("%s", longText.c_str()), std::bad_alloc);
    EXPECT_THROW(s.AppendFormat("%s", longText.c_str()), std::bad_alloc);
    EXPECT_THROW(CString{s}, std::bad_alloc);
  }
  EXPECT_EQ(Text(s), old);
}

TEST(String, ConvertsFromStandardStringsAndViews) {
  const std::string standard("abc\0d", 5);
  CString s(standard);
  EXPECT_EQ(s.GetLength(), 5);
  s = standard;
  EXPECT_EQ(Text(s), standard);
  EXPECT_TRUE(s == standard);
  EXPECT_EQ((s += standard).GetLength(), 10);
  const CString implicit = standard;
  EXPECT_EQ(Text(implicit), standard);
  s = std::string_view("view");
  EXPECT_EQ(Text(s), "view");
  EXPECT_EQ(std::string(s), "view");
  std::ostringstream out;
  out << s;
  EXPECT_EQ(out.str(), "view");
}

TEST(String, IsEmptyAfterBeingMovedFrom) {
  for (const char* text : {"short", "long enough for a block of its own"}) {
    CString from(text);
    const CString to(std::move(from));
    EXPECT_STREQ(text, to.GetString()) << "text " << text;
    EXPECT_STREQ("", from.GetString());  // NOLINT(bugprone-use-after-move): what is left is stated
    EXPECT_EQ(0, from.GetLength()) << "text " << text;
  }
}

/// Every operation on texts with zeros in them, short ones and ones with a block of their own.
TEST(String, KeepsTheZerosOfItsTextInEveryOperation) {
  for (const std::string& text : {std::string("a\0b", 3), std::string("\0\0", 2),
                                  std::string("in a block of its own\0and so on", 32)}) {
    const CString s(text);
    CString assigned("before"), added("x"), moved(s), taken;
    assigned = s;
    added += s;
    EXPECT_EQ(Text(CString(s)), text);
    EXPECT_EQ(Text(assigned), text);
    EXPECT_EQ(Text(added), "x" + text);
    EXPECT_EQ(Text(CString(std::move(moved))), text);
    taken = std::move(assigned);
    EXPECT_EQ(Text(taken), text);
    EXPECT_EQ(Text(s + s), text + text);
    EXPECT_EQ(Text("x" + s), "x" + text);
    EXPECT_EQ(Text(s + "x"), text + "x");
    EXPECT_EQ(Text('\0' + s), std::string(1, '\0') + text);
    EXPECT_EQ(Text(s + '\0'), text + std::string(1, '\0'));
    taken.AppendFormat("%d", 7);
    EXPECT_EQ(Text(taken), text + "7");
  }
}

/// Bounds inside and outside the text, which has a zero in it.
TEST(String, ExtractsPiecesByAnyBounds) {
  const std::string text("ab\0cde", 6);
  const CString s(text);
  const auto clamped = [](int x, std::size_t most) {
    return x < 0 ? 0 : std::min(static_cast<std::size_t>(x), most);
  };
  for (int first = -3; first <= 9; ++first) {
    const std::size_t from = clamped(first, 6);
    EXPECT_EQ(Text(s.Left(first)), text.substr(0, from)) << first;
    EXPECT_EQ(Text(s.Right(first)), text.substr(6 - from)) << first;
    EXPECT_EQ(Text(s.Mid(first)), text.substr(from)) << first;
    for (int count = -3; count <= 9; ++count)
      EXPECT_EQ(Text(s.Mid(first, count)), text.substr(from, clamped(count, 6 - from)))
          << first << ", " << count;
  }
}
