// SPDX-License-Identifier: MIT
//
// platform.h -- what the interface needs of its platform, where the framework is absent.
//
//   export macros     ZEPH_API, ZEPH_EMIT, ZEPH_ADDED
//   ZEPH_Long         the 32-bit signed integer behind every `long` overload
//   CMemoryException  what an application's allocator may throw, by pointer, on exhaustion
//   CString           the narrow text string that listings are appended to
//
// With ZEPH_USE_MFC defined the framework's own classes are used and none of ours is declared.
#ifndef ZEPH_PLATFORM_H
#define ZEPH_PLATFORM_H

#include <climits>
#include <cstdarg>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>

#ifdef ZEPH_USE_MFC
#include <afx.h>
#include <afxcoll.h>
#include <afxwin.h>
#endif

// ZEPH_API marks what the shared library exports; everything else stays hidden.
#if defined(ZEPH_STATIC)
#define ZEPH_API
#elif defined(_WIN32)
#ifdef ZEPH_BUILDING
#define ZEPH_API __declspec(dllexport)
#else
#define ZEPH_API __declspec(dllimport)
#endif
#else
#define ZEPH_API __attribute__((visibility("default")))
#endif

// ZEPH_EMIT stands on documented inline members: while the library itself is built they are emitted
// as if used, so that every documented name is exported.
#if defined(ZEPH_BUILDING) && (defined(__GNUC__) || defined(__clang__))
#define ZEPH_EMIT __attribute__((used))
#else
#define ZEPH_EMIT
#endif

// ZEPH_ADDED stands on inline members that we add for comfort: they belong to the caller's program
// and are never exported.
#if !defined(_WIN32) && (defined(__GNUC__) || defined(__clang__))
#define ZEPH_ADDED __attribute__((visibility("hidden")))
#else
#define ZEPH_ADDED
#endif

#if LONG_MAX == INT_MAX
using ZEPH_Long = long;
#else
/// The 32-bit signed integer of the `long` overloads, where the system's own `long` is wider.
///
/// Converts from and to `int` by itself, yet `int*` and `ZEPH_Long*` remain different types, so
/// both overloads of a function can exist. Trivially copyable, 4 bytes.
class ZEPH_Long {
 public:
  ZEPH_Long() = default;
  constexpr ZEPH_Long(int value) : m_nValue(value) {}  // NOLINT: implicit on purpose
  constexpr operator int() const { return m_nValue; }  // NOLINT: implicit on purpose

  ZEPH_Long& operator+=(int other) { return m_nValue += other, *this; }
  ZEPH_Long& operator-=(int other) { return m_nValue -= other, *this; }
  ZEPH_Long& operator*=(int other) { return m_nValue *= other, *this; }
  ZEPH_Long& operator/=(int other) { return m_nValue /= other, *this; }
  ZEPH_Long& operator%=(int other) { return m_nValue %= other, *this; }
  ZEPH_Long& operator++() { return ++m_nValue, *this; }
  ZEPH_Long& operator--() { return --m_nValue, *this; }
  ZEPH_Long operator++(int) { return m_nValue++; }
  ZEPH_Long operator--(int) { return m_nValue--; }

  friend std::ostream& operator<<(std::ostream& os, ZEPH_Long x) { return os << x.m_nValue; }
  friend std::istream& operator>>(std::istream& is, ZEPH_Long& x) { return is >> x.m_nValue; }

 private:
  int m_nValue;
};
#endif

#ifndef ZEPH_USE_MFC

/// Thrown by pointer when memory runs out, by applications whose allocation operator does so.
class ZEPH_API CMemoryException {
 public:
  CMemoryException();
  virtual ~CMemoryException();

  /// Writes at most `size` characters, the closing zero included, into `text`; 1 on success.
  virtual int GetErrorMessage(char* text, unsigned size, unsigned* helpContext = nullptr) const;

  /// Releases the exception object; the handler calls it once.
  void Delete();
};

/// A narrow text string, with the members that Windows programmers expect.
class ZEPH_API CString {
 public:
  CString();
  CString(const CString& other);
  CString(CString&& other) noexcept;
  CString(const char* text);       // NOLINT: implicit on purpose; null gives the empty string
  CString(std::string_view text);  // NOLINT: implicit on purpose
  ~CString();
  CString& operator=(const CString& other);
  CString& operator=(CString&& other) noexcept;
  CString& operator=(const char* text);

  int GetLength() const;
  bool IsEmpty() const;
  void Empty();
  const char* GetString() const;
  operator const char*() const;  // NOLINT: implicit on purpose

  CString& operator+=(const CString& text);
  CString& operator+=(const char* text);
  CString& operator+=(char c);

  /// Replaces the content by the formatted text (printf conversions), of any length.
  void Format(const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;
  void AppendFormat(const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;

 private:
  std::string m_text;
};

#endif  // ZEPH_USE_MFC

#endif  // ZEPH_PLATFORM_H
