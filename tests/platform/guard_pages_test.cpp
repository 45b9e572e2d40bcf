// Texts that end at a page boundary, before an inaccessible page.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "platform.h"
#include "platform/block_writer.h"

namespace {

using zeph::test::Guarded;

/// `n` letters without a terminating zero, and with one.
std::string_view Letters(const Guarded& pages, std::size_t n, bool atEnd) {
  return {pages.Copy(std::vector<char>(n, 'x'), atEnd), n};
}
const char* Closed(const Guarded& pages, std::size_t n, bool atEnd) {
  std::vector<char> letters(n, 'x');
  letters.push_back('\0');
  return pages.Copy(letters, atEnd);
}

TEST(TextGuardPages, StringsStayInBounds) {
  const Guarded pages, others;
  for (const bool atEnd : {true, false})
    for (std::size_t n = 0; n <= 70; ++n) {
      SCOPED_TRACE(::testing::Message() << "atEnd " << atEnd << ", n " << n);
      const std::string want(n, 'x');
      const std::string_view open = Letters(pages, n, atEnd);
      const char* closed = Closed(others, n, atEnd);
      EXPECT_STREQ(want.c_str(), CString(open).GetString());
      CString text(closed);
      EXPECT_STREQ(want.c_str(), text.GetString());
      text.Append(open.data(), static_cast<int>(n));
      EXPECT_EQ(static_cast<int>(2 * n), text.GetLength());
      text += closed;
      text = closed;
      EXPECT_TRUE(text == closed);
      EXPECT_EQ(n == 0 ? 0 : -1, text.Find(n == 0 ? closed : "y"));
      EXPECT_EQ(0, text.Find(closed));
      text.Format("%s", closed);
      text.AppendFormat("%.*s", static_cast<int>(n), open.data());
      EXPECT_EQ(static_cast<int>(2 * n), text.GetLength());
      EXPECT_EQ(static_cast<int>(n), (closed + CString()).GetLength());
    }
}

/// Short texts are stored in the string itself, up to the last byte of its buffer and no further.
TEST(TextGuardPages, AShortTextIsStoredInTheStringItself) {
  const Guarded pages;
  for (std::size_t n = 0; n <= 40; ++n) {
    const std::string want(n, 'x');
    auto* text = new (pages.Room<CString>(1, true)) CString;
    for (std::size_t i = 0; i < n; ++i) *text += 'x';
    EXPECT_STREQ(want.c_str(), text->GetString()) << "n " << n;
    *text = want.c_str();
    EXPECT_STREQ(want.c_str(), text->GetString()) << "n " << n;
    text->Empty();
    text->Append(want.c_str(), static_cast<int>(n));
    EXPECT_STREQ(want.c_str(), text->GetString()) << "n " << n;
    text->~CString();
  }
}

/// Takes texts from a block that lies at the boundary.
struct Gathered {
  std::string* all;
  void operator()(const char* text, std::size_t size) const { all->append(text, size); }
};

TEST(TextGuardPages, BlocksOfTextStayInBounds) {
  constexpr std::size_t kBlock = 64;
  using Writer = zeph::platform::BlockWriter<Gathered, kBlock>;
  const Guarded pages;
  for (std::size_t first = 0; first <= kBlock; ++first)
    for (std::size_t second = 0; second <= kBlock; ++second) {
      std::string all;
      auto* const writer = new (pages.Room<Writer>(1, true)) Writer(Gathered{&all});
      const std::string a(first, 'a'), b(second, 'b'), c(150, 'c');
      writer->Text(a.data(), first);
      char* const room = writer->Room(second);
      writer->Wrote(std::copy(b.begin(), b.end(), room));
      writer->Blanks(3);
      writer->Text(c.c_str());
      writer->Flush();
      ASSERT_EQ(a + b + "   " + c, all) << first << ", " << second;
      writer->~Writer();
    }
}

}  // namespace
#endif
