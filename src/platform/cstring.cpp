// SPDX-License-Identifier: MIT
#include <cstdio>

#include "platform.h"

#ifndef ZEPH_USE_MFC

CString::CString() = default;
CString::CString(const CString& other) = default;
CString::CString(CString&& other) noexcept = default;
CString::CString(const char* text) : m_text(text ? text : "") {}
CString::CString(std::string_view text) : m_text(text) {}
CString::~CString() = default;
CString& CString::operator=(const CString& other) = default;
CString& CString::operator=(CString&& other) noexcept = default;
CString& CString::operator=(const char* text) {
  m_text = text ? text : "";
  return *this;
}

int CString::GetLength() const {
  return static_cast<int>(m_text.size());
}
bool CString::IsEmpty() const {
  return m_text.empty();
}
void CString::Empty() {
  m_text.clear();
}
const char* CString::GetString() const {
  return m_text.c_str();
}
CString::operator const char*() const {
  return m_text.c_str();
}

CString& CString::operator+=(const CString& text) {
  m_text += text.m_text;
  return *this;
}
CString& CString::operator+=(const char* text) {
  if (text) m_text += text;
  return *this;
}
CString& CString::operator+=(char c) {
  m_text += c;
  return *this;
}

namespace {
void AppendFormatted(std::string& out, const char* format, va_list arguments) {
  va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, again);
  va_end(again);
  if (length < 1) return;
  const std::size_t old = out.size();
  out.resize(old + static_cast<std::size_t>(length) + 1);
  std::vsnprintf(&out[old], static_cast<std::size_t>(length) + 1, format, arguments);
  out.resize(old + static_cast<std::size_t>(length));
}
}  // namespace

void CString::Format(const char* format, ...) {
  std::string text;  // built apart: an argument may point into this string
  va_list arguments;
  va_start(arguments, format);
  AppendFormatted(text, format, arguments);
  va_end(arguments);
  m_text = std::move(text);
}

void CString::AppendFormat(const char* format, ...) {
  std::string text;
  va_list arguments;
  va_start(arguments, format);
  AppendFormatted(text, format, arguments);
  va_end(arguments);
  m_text += text;
}

#endif  // ZEPH_USE_MFC
