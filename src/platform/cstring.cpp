// SPDX-License-Identifier: MIT
#include "platform.h"

#ifndef ZEPH_USE_MFC

#include <algorithm>
#include <climits>
#include <cstring>
#include <utility>

#include "platform/allocation.h"
#include "platform/refusal.h"

using namespace zeph::platform;

namespace {

constexpr int kLongest = INT_MAX - 1;  // so that the size with the terminating zero fits an int too

std::string_view View(const CString& text) {
  return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}
std::string_view View(const char* text) {
  return text ? std::string_view(text) : std::string_view();
}

}  // namespace

CString::CString() : m_pchData(m_here), m_nLength(0), m_nCapacity(sizeof m_here - 1), m_here{} {}
CString::CString(const CString& other) : CString() {
  ReplaceFrom(0, View(other));
}
CString::CString(CString&& other) noexcept : CString() {
  TakeFrom(other);
}
CString::CString(const char* text) : CString() {
  ReplaceFrom(0, View(text));
}
CString::CString(std::string_view text) : CString() {
  ReplaceFrom(0, text);
}
CString::~CString() {
  Release();
}
CString& CString::operator=(const CString& other) {
  ReplaceFrom(0, View(other));
  return *this;
}
CString& CString::operator=(CString&& other) noexcept {
  if (this != &other) {
    Release();
    TakeFrom(other);
  }
  return *this;
}
CString& CString::operator=(const char* text) {
  ReplaceFrom(0, View(text));
  return *this;
}

/// Keeps the first `from` characters and appends `tail`, which may be a piece of this text.
void CString::ReplaceFrom(int from, std::string_view tail) {
  if (tail.size() > static_cast<std::size_t>(kLongest - from)) RefuseLength("CString", kLongest);
  const int length = from + static_cast<int>(tail.size());
  if (length <= m_nCapacity) {
    if (!tail.empty()) std::memmove(m_pchData + from, tail.data(), tail.size());
  } else {
    const int doubled = m_nCapacity > kLongest / 2 ? kLongest : 2 * m_nCapacity;
    const int capacity = std::max(length, from > 0 ? doubled : 0);
    char* const block = NewArray<char>(std::int64_t{capacity} + 1);
    std::memcpy(block, m_pchData, static_cast<std::size_t>(from));
    std::memcpy(block + from, tail.data(), tail.size());
    Release();
    m_pchData = block;
    m_nCapacity = capacity;
  }
  m_pchData[length] = '\0';
  m_nLength = length;
}

/// For a string that owns no block: takes the other's block, or copies its characters; the other
/// becomes empty.
void CString::TakeFrom(CString& other) noexcept {
  if (other.m_pchData == other.m_here) {
    std::memcpy(m_here, other.m_here, sizeof m_here);
    m_pchData = m_here;
  } else {
    m_pchData = other.m_pchData;
  }
  m_nLength = other.m_nLength;
  m_nCapacity = other.m_nCapacity;
  other.m_pchData = other.m_here;
  other.m_nLength = 0;
  other.m_nCapacity = sizeof other.m_here - 1;
  other.m_here[0] = '\0';
}

void CString::Release() noexcept {
  if (m_pchData != m_here) delete[] m_pchData;
}

int CString::GetLength() const {
  return m_nLength;
}
bool CString::IsEmpty() const {
  return m_nLength == 0;
}
void CString::Empty() {
  ReplaceFrom(0, {});
}

const char* CString::GetString() const {
  return m_pchData;
}
CString::operator const char*() const {
  return m_pchData;
}

char CString::GetAt(int index) const {
  if (index < 0 || index > m_nLength) RefuseIndex("CString::GetAt", index, m_nLength);
  return m_pchData[index];
}
char CString::operator[](int index) const {
  return GetAt(index);
}

CString& CString::operator+=(const CString& text) {
  ReplaceFrom(m_nLength, View(text));
  return *this;
}
CString& CString::operator+=(const char* text) {
  ReplaceFrom(m_nLength, View(text));
  return *this;
}
CString& CString::operator+=(char c) {
  if (m_nLength == m_nCapacity) {
    ReplaceFrom(m_nLength, {&c, 1});
  } else {
    m_pchData[m_nLength++] = c;
    m_pchData[m_nLength] = '\0';
  }
  return *this;
}
void CString::Append(const char* text, int length) {
  if (text && length > 0) ReplaceFrom(m_nLength, {text, static_cast<std::size_t>(length)});
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
  return std::string_view(m_pchData + from, static_cast<std::size_t>(length));
}

namespace {
int ToIndex(std::size_t found) {
  return found == std::string::npos ? -1 : static_cast<int>(found);
}
}  // namespace

int CString::Find(const char* text, int start) const {
  if (!text || start < 0) return -1;
  return ToIndex(View(*this).find(text, static_cast<std::size_t>(start)));
}
int CString::Find(char c, int start) const {
  if (start < 0) return -1;
  return ToIndex(View(*this).find(c, static_cast<std::size_t>(start)));
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
