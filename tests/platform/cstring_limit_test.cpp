// The longest text: one more character is refused, and nothing is lost.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform.h"

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace {

constexpr std::size_t kTooLong = INT_MAX;

template <class Call>
[[maybe_unused]] void ExpectRefused(CString& text, Call call) {
  const std::string before(text, static_cast<std::size_t>(text.GetLength()));
  try {
    call(text);
    FAIL() << "nothing was thrown";
  } catch (const std::length_error& error) {
    EXPECT_STREQ(error.what(), "CString: a text has at most 2147483646 characters");
  }
  EXPECT_EQ(text.GetLength(), static_cast<int>(before.size()));
  EXPECT_STREQ(text, before.c_str());
}

}  // namespace

#ifdef __GLIBC__  // which fails at once; other runtimes write for seconds
namespace {
const char* volatile kWide = "%2147483648d";  // the compiler would warn of a literal
}
TEST(CStringLimit, RefusesATooLongFormattedText) {
  for (const char* held : {"", "short", "a text that has a block of its own, being so long"}) {
    CString text(held);
    ExpectRefused(text, [](CString& s) { s.Format(kWide, 1); });
    ExpectRefused(text, [](CString& s) { s.AppendFormat(kWide, 1); });
  }
}
#endif

#if defined(__linux__) && SIZE_MAX > UINT_MAX
namespace {

/// Readable zeros that take no memory.
class Zeros {
 public:
  explicit Zeros(std::size_t size)
      : m_size(size),
        m_pages(
            mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {}
  ~Zeros() {
    if (Had()) munmap(m_pages, m_size);
  }
  Zeros(const Zeros&) = delete;
  Zeros& operator=(const Zeros&) = delete;
  bool Had() const { return m_pages != MAP_FAILED; }
  const char* Text() const { return static_cast<const char*>(m_pages); }

 private:
  std::size_t m_size;
  void* m_pages;
};

}  // namespace

TEST(CStringLimit, RefusesATooLongTextBeforeReadingIt) {
  const Zeros zeros(kTooLong + 1);
  if (!zeros.Had()) GTEST_SKIP() << "2 GiB of address space cannot be mapped";
  EXPECT_THROW(CString(std::string_view(zeros.Text(), kTooLong)), std::length_error);
  CString text("0123456789");
  ExpectRefused(text, [&](CString& s) { s.Append(zeros.Text(), INT_MAX - 10); });
  ExpectRefused(text, [&](CString& s) { s.Append(zeros.Text(), INT_MAX); });
}

/// Lengths whose lower halves are those of short texts.
TEST(CStringLimit, RefusesATextOfFourGiBAndMore) {
  constexpr std::size_t kMost = (std::size_t{1} << 32) + 16;
  const Zeros zeros(kMost);
  if (!zeros.Had()) GTEST_SKIP() << "4 GiB of address space cannot be mapped";
  for (const std::size_t length : {kMost - 16, kMost - 15, kMost - 1, kMost})
    EXPECT_THROW(CString(std::string_view(zeros.Text(), length)), std::length_error) << length;
}
#endif
