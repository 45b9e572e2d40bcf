// Texts that end at a page boundary, before an inaccessible page.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "platform.h"

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

TEST(TextGuardPages, StringsReadWhatIsTheirsOnly) {
  const Guarded pages, others;
  for (const bool atEnd : {true, false})
    for (std::size_t n = 0; n <= 70; ++n) {
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
TEST(TextGuardPages, AShortTextStaysInItsString) {
  const Guarded pages;
  for (std::size_t n = 0; n <= 40; ++n) {
    const std::string want(n, 'x');
    auto* text = new (pages.Room<CString>(1, true)) CString;
    for (std::size_t i = 0; i < n; ++i) *text += 'x';
    EXPECT_STREQ(want.c_str(), text->GetString());
    *text = want.c_str();
    EXPECT_STREQ(want.c_str(), text->GetString());
    text->Empty();
    text->Append(want.c_str(), static_cast<int>(n));
    EXPECT_STREQ(want.c_str(), text->GetString());
    text->~CString();
  }
}

}  // namespace
#endif
