// SPDX-License-Identifier: MIT
#include "platform.h"

#ifndef ZEPH_USE_MFC

#include <algorithm>
#include <utility>

#include "platform/refusal.h"

using namespace zeph::platform;

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

char CString::GetAt(int index) const {
  if (index < 0 || index > GetLength()) RefuseIndex("CString::GetAt", index, GetLength());
  return m_text.c_str()[index];
}
char CString::operator[](int index) const {
  return GetAt(index);
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
void CString::Append(const char* text, int length) {
  if (text && length > 0) m_text.append(text, static_cast<std::size_t>(length));
}

CString CString::Left(int count) const {
  return Mid(0, count);
}
CString CString::Right(int count) const {
  return Mid(GetLength() - std::clamp(count, 0, GetLength()));
}
CString CString::Mid(int first) const {
  return Mid(first, GetLength());
}
CString CString::Mid(int first, int count) const {
  const int from = std::clamp(first, 0, GetLength());
  const int length = std::clamp(count, 0, GetLength() - from);
  return std::string_view(m_text).substr(static_cast<std::size_t>(from),
                                         static_cast<std::size_t>(length));
}

namespace {
int ToIndex(std::size_t found) {
  return found == std::string::npos ? -1 : static_cast<int>(found);
}
}  // namespace

int CString::Find(const char* text, int start) const {
  if (!text || start < 0) return -1;
  return ToIndex(m_text.find(text, static_cast<std::size_t>(start)));
}
int CString::Find(char c, int start) const {
  if (start < 0) return -1;
  return ToIndex(m_text.find(c, static_cast<std::size_t>(start)));
}

CString operator+(CString left, const CString& right) {
  return std::move(left += right);
}
CString operator+(CString left, const char* right) {
  return std::move(left += right);
}
CString operator+(const char* left, const CString& right) {
  return CString(left) + right;
}
CString operator+(CString left, char right) {
  return std::move(left += right);
}
CString operator+(char left, const CString& right) {
  return CString(std::string_view(&left, 1)) + right;
}

#endif  // ZEPH_USE_MFC
