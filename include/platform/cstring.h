// SPDX-License-Identifier: MIT
//
/// @file
/// CString, the narrow text string that listings are appended to.
#ifndef ZEPH_PLATFORM_CSTRING_H
#define ZEPH_PLATFORM_CSTRING_H

#include <climits>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "macros.h"
#include "object.h"

#ifndef ZEPH_USE_MFC

// ZEPH_PRINTF_FORMAT has the compiler compare the arguments of a formatting member with its format.
#if defined(__MINGW_PRINTF_FORMAT)
#define ZEPH_PRINTF_FORMAT __attribute__((format(__MINGW_PRINTF_FORMAT, 2, 3)))
#elif defined(__GNUC__) || defined(__clang__)
#define ZEPH_PRINTF_FORMAT __attribute__((format(printf, 2, 3)))
#else
#define ZEPH_PRINTF_FORMAT
#endif

/// A narrow text string, with the members that Windows programmers expect.
///
/// Holds any bytes, zeros included, and always adds a terminating zero. A null `const char*` counts
/// as the empty text everywhere. Copies are deep; appending costs amortised constant time a
/// character and accepts a piece of the string itself. Texts of up to 15 characters are stored in
/// the object itself.
///
/// A text has at most 2^31 - 2 characters. An operation that would make a longer one throws
/// std::length_error and changes nothing.
///
///     CString s("bubble"), t;
///     t = s;
///     t += " sort";
///     t.GetString();      // "bubble sort"
///     t.GetLength();      // 11
///     t[0];               // "b"
///     t.Find("sort");     // 7
class ZEPH_API CString {
 public:
  CString();
  /// A copy of a text.
  CString(const CString& other);
  CString(CString&& other) noexcept;
  CString(const char* text);       // NOLINT: implicit on purpose
  CString(std::string_view text);  // NOLINT: implicit on purpose
  ~CString();
  /// Replaces the text.
  CString& operator=(const CString& other);
  CString& operator=(CString&& other) noexcept;
  CString& operator=(const char* text);

  /// The number of characters, without the terminating zero.
  ///
  ///     CString s("abc");
  ///     s.GetLength();  // 3
  int GetLength() const;
  /// Whether there is no character.
  bool IsEmpty() const;
  /// Makes the text empty; the storage is kept for later use.
  ///
  ///     CString s("abc");
  ///     s.Empty();
  ///     s.IsEmpty();  // 1
  void Empty();

  /// The text with its terminating zero. Valid until the string is next changed.
  const char* GetString() const;
  operator const char*() const;  // NOLINT: implicit on purpose

  /// The character at `index`; 0 at the length. Throws std::out_of_range outside 0..GetLength().
  ///
  ///     CString s("abc");
  ///     s.GetAt(1);  // "b"
  ///     s.GetAt(3);  // 0
  char GetAt(int index) const;
  char operator[](int index) const;

  /// Appends a text or one character.
  CString& operator+=(const CString& text);
  CString& operator+=(const char* text);
  CString& operator+=(char c);
  /// Appends the first `length` bytes of `text`, zeros included; nothing if null or below 1.
  ///
  ///     CString s("ab");
  ///     s.Append("cdef", 2);
  ///     s.GetString();  // "abcd"
  void Append(const char* text, int length);

  /// Replaces the content by the formatted text (printf conversions), of any length.
  ///
  /// Arguments may point into this string. A null format gives the empty text, as does one that the
  /// runtime refuses. Strings among the arguments are passed as GetString().
  void Format(const char* format, ...) ZEPH_PRINTF_FORMAT;
  /// Appends the formatted text; otherwise as Format.
  ///
  ///     CString s;
  ///     s.Format("%d of %d", 3, 7);
  ///     s.AppendFormat(": %.1f %%", 300.0 / 7);
  ///     s.GetString();  // "3 of 7: 42.9 %"
  void AppendFormat(const char* format, ...) ZEPH_PRINTF_FORMAT;

  /// The first `count` characters; `count` is clamped to 0..GetLength().
  ///
  ///     CString s("QuickSort");
  ///     s.Left(5);    // "Quick"
  ///     s.Right(4);   // "Sort"
  ///     s.Mid(5);     // "Sort"
  ///     s.Mid(1, 3);  // "uic"
  CString Left(int count) const;
  /// The last `count` characters; `count` is clamped to 0..GetLength().
  CString Right(int count) const;
  /// The characters from index `first` on, which is clamped to 0..GetLength().
  CString Mid(int first) const;
  /// At most `count` characters from index `first`; both are clamped.
  CString Mid(int first, int count) const;

  /// Index of the first `text` (or `c`) at or after `start`; -1 when there is none, `text` is null,
  /// or `start` is outside 0..GetLength().
  int Find(const char* text, int start = 0) const;
  int Find(char c, int start = 0) const;

  // Our additions, listed in docs/additions.md.

  /// A copy of a standard string, whatever its allocator.
  template <class Allocator>
  ZEPH_ADDED CString(  // NOLINT: implicit on purpose
      const std::basic_string<char, std::char_traits<char>, Allocator>& text)
      : CString(std::string_view(text)) {}
  /// An index of another integer type, which would otherwise be ambiguous with the conversion to
  /// `const char*`.
  template <class T, std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, int>, int> = 0>
  ZEPH_ADDED char operator[](T index) const {
    return GetAt(CheckedIndex(index));
  }

 private:
  template <class T>
  ZEPH_ADDED static int CheckedIndex(T index) {  // -1 where no int can hold it
    if constexpr (std::is_signed_v<T>) {
      if (index < 0) return -1;
    }
    return static_cast<std::uintmax_t>(index) > std::uintmax_t{INT_MAX} ? -1
                                                                        : static_cast<int>(index);
  }

  void ReplaceFrom(int from, std::string_view tail);
  void TakeFrom(CString& other) noexcept;
  void Release() noexcept;

  char* m_pchData;  // the characters and the closing zero: m_here, or a block of its own
  int m_nLength;    // characters, without the closing zero
  int m_nCapacity;  // characters that there is room for, likewise
  char m_here[16];
};

/// The concatenation of both texts. A chain of `+` appends to one string.
///
///     const CString a("bubble"), b("sort");
///     a + b;           // "bubblesort"
///     a + " sort";     // "bubble sort"
///     "a " + b;        // "a sort"
///     a + ' ' + b;     // "bubble sort"
///     '>' + a;         // ">bubble"
ZEPH_API CString operator+(CString left, const CString& right);
ZEPH_API CString operator+(CString left, const char* right);
ZEPH_API CString operator+(const char* left, const CString& right);
ZEPH_API CString operator+(CString left, char right);
ZEPH_API CString operator+(char left, const CString& right);

/// Comparison by unsigned byte value; a text that is a prefix of the other comes first.
///
///     const CString a("ab"), b("b");
///     a == a && a == "ab" && "ab" == a;  // 1
///     a != b && a != "b" && "b" != a;    // 1
///     a < b && a < "b" && "a" < a;       // 1
///     b > a && b > "ab" && "b" > a;      // 1
///     a <= b && a <= "ab" && "ab" <= a;  // 1
///     b >= a && b >= "b" && "b" >= a;    // 1
ZEPH_API bool operator==(const CString& left, const CString& right);
ZEPH_API bool operator==(const CString& left, const char* right);
ZEPH_API bool operator==(const char* left, const CString& right);
ZEPH_API bool operator!=(const CString& left, const CString& right);
ZEPH_API bool operator!=(const CString& left, const char* right);
ZEPH_API bool operator!=(const char* left, const CString& right);
ZEPH_API bool operator<(const CString& left, const CString& right);
ZEPH_API bool operator<(const CString& left, const char* right);
ZEPH_API bool operator<(const char* left, const CString& right);
ZEPH_API bool operator>(const CString& left, const CString& right);
ZEPH_API bool operator>(const CString& left, const char* right);
ZEPH_API bool operator>(const char* left, const CString& right);
ZEPH_API bool operator<=(const CString& left, const CString& right);
ZEPH_API bool operator<=(const CString& left, const char* right);
ZEPH_API bool operator<=(const char* left, const CString& right);
ZEPH_API bool operator>=(const CString& left, const CString& right);
ZEPH_API bool operator>=(const CString& left, const char* right);
ZEPH_API bool operator>=(const char* left, const CString& right);

#endif  // ZEPH_USE_MFC

#endif  // ZEPH_PLATFORM_CSTRING_H
