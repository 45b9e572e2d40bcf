// SPDX-License-Identifier: MIT
#include "platform.h"

#ifndef ZEPH_USE_MFC

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <memory>

#include "platform/allocation.h"
#include "platform/quick_format.h"
#include "platform/refusal.h"

namespace {

/// The formatted text, kept separate from the string it goes to: an argument may point into that
/// string. Texts of usual length need neither the heap nor a second formatting.
class Formatted {
 public:
  Formatted(const char* format, va_list arguments) {
    if (!format) return;
    zeph::platform::Arguments quick(arguments);
    if (const char* end =
            zeph::platform::WriteQuickly(m_short, m_short + sizeof m_short, format, quick)) {
      m_size = static_cast<std::size_t>(end - m_short);
      return;
    }
    zeph::platform::Arguments again(arguments);
    m_size = Length(std::vsnprintf(m_short, sizeof m_short, format, arguments));
    if (m_size >= sizeof m_short) {
      m_long.reset(zeph::platform::NewArray<char>(static_cast<std::int64_t>(m_size) + 1));
      std::vsnprintf(m_long.get(), m_size + 1, format, again.list);
    }
  }
  std::string_view Text() const { return {m_long ? m_long.get() : m_short, m_size}; }

 private:
  /// The length that the runtime returns; 0 for a format that it refuses. It is an int: the runtime
  /// cannot write longer texts.
  static std::size_t Length(int counted) {
    if (counted == INT_MAX || (counted < 0 && errno == EOVERFLOW))
      zeph::platform::RefuseLength("CString", INT_MAX - 1);
    return counted > 0 ? static_cast<std::size_t>(counted) : 0;
  }

  char m_short[512];
  std::unique_ptr<char[]> m_long;
  std::size_t m_size = 0;
};

}  // namespace

void CString::Format(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const Formatted formatted(format, arguments);
  va_end(arguments);
  ReplaceFrom(0, formatted.Text());
}

void CString::AppendFormat(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const Formatted formatted(format, arguments);
  va_end(arguments);
  ReplaceFrom(m_nLength, formatted.Text());
}

#endif  // ZEPH_USE_MFC
