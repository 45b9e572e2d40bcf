// SPDX-License-Identifier: MIT
#include "platform.h"

#ifndef ZEPH_USE_MFC

#include <cstdarg>
#include <cstdio>

namespace {

/// The formatted text, which stands apart from the string that it goes to: an argument may point
/// into that string. Texts of usual length need neither the heap nor a second formatting.
class Formatted {
 public:
  Formatted(const char* format, va_list arguments) {
    if (!format) return;
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(short_, sizeof short_, format, arguments);
    if (length > 0) size_ = static_cast<std::size_t>(length);
    if (size_ >= sizeof short_) {
      long_.resize(size_);
      std::vsnprintf(long_.data(), size_ + 1, format, again);
    }
    va_end(again);
  }
  std::string_view Text() const { return {long_.empty() ? short_ : long_.data(), size_}; }

 private:
  char short_[512];
  std::string long_;
  std::size_t size_ = 0;
};

}  // namespace

void CString::Format(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const Formatted formatted(format, arguments);
  va_end(arguments);
  m_text = formatted.Text();
}

void CString::AppendFormat(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const Formatted formatted(format, arguments);
  va_end(arguments);
  m_text += formatted.Text();
}

#endif  // ZEPH_USE_MFC
