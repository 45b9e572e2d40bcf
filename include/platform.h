// SPDX-License-Identifier: MIT
//
// platform.h -- what the interface needs of its platform, where the framework is absent.
//
//   export macros     ZEPH_API, ZEPH_EMIT, ZEPH_ADDED
//   preconditions     ZEPH_REQUIRE, ..._POINTER, ..._INSIDE, ZEPH_CHECKED: with ZEPH_HARDENED
//   ZEPH_Long         the 32-bit signed integer behind every `long` overload
//   ZEPH_TimeOfDay    the millisecond time record that the stopwatch keeps
//   CObject           the polymorphic base of everything that collections point to
//   CMemoryException  what an application's allocator may throw, by pointer, on exhaustion
//   CString           the narrow text string that listings are appended to
//   CObArray          growable array of object pointers
//   CUIntArray        growable array of unsigned 32-bit values
//   CWordArray        growable array of unsigned 16-bit values
//   CObList           doubly linked list of object pointers, with POSITION as handle of an element
//   CWinApp           base of the library's module object
//   our additions     std::string and any index type for CString, numeric_limits of ZEPH_Long
//
// With ZEPH_USE_MFC defined the framework's own classes are used and none of ours is declared.
//
// Our stand-ins follow the framework's conventions. Where the framework refuses an argument (an
// index outside the array, a negative size, the head of an empty list) they throw std::out_of_range
// with a text that names the operation and the bounds, and change nothing. Memory exhaustion passes
// to the caller as what the allocation operator throws, and changes nothing either. No object
// locks: callers serialise access to any one of them.
#ifndef ZEPH_PLATFORM_H
#define ZEPH_PLATFORM_H

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <istream>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

#ifdef _WIN32
#include <sys/timeb.h>
#endif

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
#if !defined(ZEPH_BUILDING) || !(defined(__GNUC__) || defined(__clang__))
#define ZEPH_EMIT
#elif defined(_WIN32)
#define ZEPH_EMIT __attribute__((used, dllexport))
#else  // -fvisibility-inlines-hidden would hide them, whatever their class says
#define ZEPH_EMIT __attribute__((used, visibility("default")))
#endif

// ZEPH_ADDED stands on inline members that we add for comfort: they belong to the caller's program
// and are never exported. (A tool that tells them apart defines it first.)
#if defined(ZEPH_ADDED)
#elif !defined(_WIN32) && (defined(__GNUC__) || defined(__clang__))
#define ZEPH_ADDED __attribute__((visibility("hidden")))
#else
#define ZEPH_ADDED
#endif

// ZEPH_REQUIRE_... state what an operation trusts. Normal builds do not look, and hold no code for
// it; with ZEPH_HARDENED a breach stops the program with one line on standard error, which names
// the operation, the argument and its bounds: "CZEPHSortableObArray::Sort: count is 7, outside
// 0..5". docs/hardened.md tells what is checked.
//
// ZEPH_CHECKED stands on inline members that check. It has every caller take them inline, so that
// each part of a program gets what it was compiled for, even where hardened and plain parts are
// linked together: there is no function of that name for the linker to choose.
#ifdef ZEPH_HARDENED
#include <cstdlib>
#if defined(__GNUC__) || defined(__clang__)
#define ZEPH_CHECKED __attribute__((always_inline))
#define ZEPH_OUT_OF_LINE __attribute__((cold, noinline))
#else
#define ZEPH_CHECKED __forceinline
#define ZEPH_OUT_OF_LINE __declspec(noinline)
#endif
[[noreturn]] ZEPH_ADDED ZEPH_OUT_OF_LINE inline void ZEPH_Stop(const char* operation,
                                                               const char* breach) {
  std::fprintf(stderr, "%s: %s\n", operation, breach);
  std::fflush(stderr);
  std::abort();  // here a debugger stops, with the caller on the stack
}
[[noreturn]] ZEPH_ADDED ZEPH_OUT_OF_LINE inline void ZEPH_StopAtNull(const char* operation,
                                                                     const char* argument) {
  std::fprintf(stderr, "%s: %s is null\n", operation, argument);
  std::fflush(stderr);
  std::abort();
}
[[noreturn]] ZEPH_ADDED ZEPH_OUT_OF_LINE inline void ZEPH_StopOutside(
    const char* operation, const char* argument, long long value, long long low, long long high) {
  std::fprintf(stderr, "%s: %s is %lld, outside %lld..%lld\n", operation, argument, value, low,
               high);
  std::fflush(stderr);
  std::abort();
}
#undef ZEPH_OUT_OF_LINE
#define ZEPH_REQUIRE(operation, condition, breach) \
  ((condition) ? static_cast<void>(0) : ZEPH_Stop(operation, breach))
#define ZEPH_REQUIRE_POINTER(operation, argument) \
  ((argument) != nullptr ? static_cast<void>(0) : ZEPH_StopAtNull(operation, #argument))
#define ZEPH_REQUIRE_INSIDE(operation, argument, low, high)                          \
  ((argument) < (low) || (argument) > (high)                                         \
       ? ZEPH_StopOutside(operation, #argument, static_cast<long long>(argument),    \
                          static_cast<long long>(low), static_cast<long long>(high)) \
       : static_cast<void>(0))
#else
#define ZEPH_CHECKED
#define ZEPH_REQUIRE(operation, condition, breach) static_cast<void>(0)
#define ZEPH_REQUIRE_POINTER(operation, argument) static_cast<void>(0)
#define ZEPH_REQUIRE_INSIDE(operation, argument, low, high) static_cast<void>(0)
#endif

// ZEPH_PRINTF_FORMAT has the compiler compare the arguments of a formatting member with its format.
#if defined(__MINGW_PRINTF_FORMAT)
#define ZEPH_PRINTF_FORMAT __attribute__((format(__MINGW_PRINTF_FORMAT, 2, 3)))
#elif defined(__GNUC__) || defined(__clang__)
#define ZEPH_PRINTF_FORMAT __attribute__((format(printf, 2, 3)))
#else
#define ZEPH_PRINTF_FORMAT
#endif

#if LONG_MAX == INT_MAX
using ZEPH_Long = long;
#else
/// The 32-bit signed integer of the `long` overloads, where the system's own `long` is wider.
///
/// Converts from and to `int` by itself, yet `int*` and `ZEPH_Long*` remain different types, so
/// both overloads of a function can exist. Trivially copyable, 4 bytes, uninitialised by default
/// like any integer. Mixed arithmetic and comparison are the built-in ones on its `int` value:
///
///     ZEPH_Long x = 7;
///     x * 2;              // int 14
///     x < v.size();       // as with an int on the left
///     x += 3000000000u;   // wraps as a 32-bit long does
///
/// Compound assignment takes any integer, computes as a 32-bit `long` would and wraps on overflow;
/// only division by zero is undefined. With a floating-point right side write the conversion out:
/// `x = static_cast<int>(x * 1.5)`. So it is for `condition ? x : 0`, where either side could
/// become the other, and for `printf`, which takes `%d` with `int{x}`.
class ZEPH_Long {
  template <class T>
  using IfInteger = std::enable_if_t<std::is_integral_v<T>, int>;
  // What the quotient is computed in: 64 bits where both sides are at most int, for INT_MIN / -1.
  template <class T>
  using Quotient = std::conditional_t<std::is_same_v<std::common_type_t<int, T>, int>, long long,
                                      std::common_type_t<int, T> >;

 public:
  ZEPH_Long() = default;
  /// Conversion from and to `int`; the value is the same.
  constexpr ZEPH_Long(int value) : m_nValue(value) {}  // NOLINT: implicit on purpose
  /// The value.
  constexpr operator int() const { return m_nValue; }  // NOLINT: implicit on purpose

  /// Compound assignment with any integer, as a 32-bit `long` computes it; wraps on overflow.
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator+=(T other) {
    return Set(Low(m_nValue) + Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator-=(T other) {
    return Set(Low(m_nValue) - Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator*=(T other) {
    return Set(Low(m_nValue) * Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator/=(T other) {
    return Set(Low(static_cast<Quotient<T> >(m_nValue) / static_cast<Quotient<T> >(other)));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator%=(T other) {
    return Set(Low(static_cast<Quotient<T> >(m_nValue) % static_cast<Quotient<T> >(other)));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator&=(T other) {
    return Set(Low(m_nValue) & Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator|=(T other) {
    return Set(Low(m_nValue) | Low(other));
  }
  template <class T, IfInteger<T> = 0>
  constexpr ZEPH_Long& operator^=(T other) {
    return Set(Low(m_nValue) ^ Low(other));
  }
  constexpr ZEPH_Long& operator<<=(int bits) { return Set(Low(m_nValue) << bits); }
  constexpr ZEPH_Long& operator>>=(int bits) { return m_nValue >>= bits, *this; }
  constexpr ZEPH_Long& operator++() { return *this += 1; }
  constexpr ZEPH_Long& operator--() { return *this -= 1; }
  constexpr ZEPH_Long operator++(int) {
    const ZEPH_Long old = *this;
    ++*this;
    return old;
  }
  constexpr ZEPH_Long operator--(int) {
    const ZEPH_Long old = *this;
    --*this;
    return old;
  }

  /// Text as of an `int`.
  friend std::ostream& operator<<(std::ostream& os, ZEPH_Long x) { return os << x.m_nValue; }
  friend std::istream& operator>>(std::istream& is, ZEPH_Long& x) { return is >> x.m_nValue; }

 private:
  template <class T>
  static constexpr std::uint32_t Low(T value) {
    return static_cast<std::uint32_t>(value);
  }
  constexpr ZEPH_Long& Set(std::uint32_t bits) {
    m_nValue = static_cast<int>(bits);
    return *this;
  }

  int m_nValue;
};
#endif

#ifdef _WIN32
using ZEPH_TimeOfDay = struct __timeb64;
#else
/// A moment of the wall clock to the millisecond, as the runtime library of Windows records it.
struct ZEPH_TimeOfDay {
  std::int64_t time;       ///< seconds since 1970-01-01 00:00 UTC
  unsigned short millitm;  ///< milliseconds, 0..999
  short timezone;          ///< minutes west of UTC; 0 where the system's clock does not tell
  short dstflag;           ///< non-zero while daylight saving is in force; 0 where not told
};
#endif

#ifndef ZEPH_USE_MFC

/// The polymorphic base of the objects that collections point to. Has an identity: not copied.
class ZEPH_API CObject {
 public:
  CObject(const CObject&) = delete;
  CObject& operator=(const CObject&) = delete;
  virtual ~CObject();

 protected:
  CObject();
};

/// Thrown by pointer when memory runs out, by applications whose allocation operator does so.
///
///     try {
///       list.AddTail(item);
///     } catch (CMemoryException* e) {
///       e->Delete();
///     }
class ZEPH_API CMemoryException : public CObject {
 public:
  CMemoryException();
  ~CMemoryException() override;

  /// Writes "Out of memory." into `text`, cut to `size` characters with the closing zero included.
  ///
  /// Sets `*helpContext`, where given, to 0. Answers 1, or 0 when `text` is null or `size` is 0.
  virtual int GetErrorMessage(char* text, unsigned size, unsigned* helpContext = nullptr) const;

  /// Releases the exception object, which stands on the heap; the handler calls it once.
  void Delete();
};

/// A narrow text string, with the members that Windows programmers expect.
///
/// Holds any bytes, zeros included, behind which a closing zero always stands. A null `const char*`
/// counts as the empty text everywhere. Copies are deep; appending costs amortised constant time a
/// character and may be given a piece of the string itself.
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

  /// The number of characters, without the closing zero.
  int GetLength() const;
  /// Whether there is no character.
  bool IsEmpty() const;
  /// Takes the text away; the storage is kept for what comes next.
  void Empty();

  /// The text, closed by a zero. Valid until the string is next changed.
  const char* GetString() const;
  operator const char*() const;  // NOLINT: implicit on purpose

  /// The character at `index`; 0 at the length. Throws std::out_of_range outside 0..GetLength().
  char GetAt(int index) const;
  char operator[](int index) const;

  /// Appends a text or one character.
  CString& operator+=(const CString& text);
  CString& operator+=(const char* text);
  CString& operator+=(char c);
  /// Appends the first `length` bytes of `text`, zeros included; nothing if null or below 1.
  void Append(const char* text, int length);

  /// Replaces the content by the formatted text (printf conversions), of any length.
  ///
  /// Arguments may point into this string. A null format gives the empty text. Strings among the
  /// arguments are passed as GetString().
  void Format(const char* format, ...) ZEPH_PRINTF_FORMAT;
  /// Appends the formatted text; otherwise as Format.
  void AppendFormat(const char* format, ...) ZEPH_PRINTF_FORMAT;

  /// The first `count` characters; `count` is clamped to 0..GetLength().
  CString Left(int count) const;
  /// The last `count` characters; `count` is clamped to 0..GetLength().
  CString Right(int count) const;
  /// What follows from index `first`, which is clamped to 0..GetLength().
  CString Mid(int first) const;
  /// At most `count` characters from index `first`; both are clamped.
  CString Mid(int first, int count) const;

  /// Index of the first `text` (or `c`) at or behind `start`, or -1: when there is none, `text` is
  /// null, or `start` lies outside 0..GetLength().
  int Find(const char* text, int start = 0) const;
  int Find(char c, int start = 0) const;

  // Our additions, listed in docs/additions.md.

  /// A copy of a standard string, whatever its allocator.
  template <class Allocator>
  ZEPH_ADDED CString(  // NOLINT: implicit on purpose
      const std::basic_string<char, std::char_traits<char>, Allocator>& text)
      : CString(std::string_view(text)) {}
  /// An index of another integer type, which would otherwise be as good for `const char*`.
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

  std::string m_text;
};

/// The two texts one after the other. A chain of `+` grows one string.
ZEPH_API CString operator+(CString left, const CString& right);
ZEPH_API CString operator+(CString left, const char* right);
ZEPH_API CString operator+(const char* left, const CString& right);
ZEPH_API CString operator+(CString left, char right);
ZEPH_API CString operator+(char left, const CString& right);

/// Comparison by unsigned byte value, the shorter of two equal beginnings first.
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

/// A growable array of pointers to objects, which it never owns, copies or follows.
///
///     CObArray shapes;
///     shapes.SetSize(0, 256);  // grow by 256 at a time
///     shapes.Add(&circle);
///     shapes[0];               // &circle
class ZEPH_API CObArray : public CObject {
 public:
  CObArray();
  ~CObArray() override;

  /// The number of elements, by both names.
  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;
  /// Whether there is no element.
  bool IsEmpty() const;
  /// The last index; -1 when empty.
  std::ptrdiff_t GetUpperBound() const;

  /// Sets the number of elements to `size`; new ones are null, dropped ones forgotten.
  ///
  /// `growBy` >= 0 becomes the growth setting: the least number of elements by which storage grows;
  /// 0 chooses by size (an eighth, from 4 to 1024). Below 0 the setting stays. Size 0 releases the
  /// storage; a smaller size keeps it. Throws std::out_of_range when `size` is negative.
  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);
  /// Cuts the storage down to the elements.
  void FreeExtra();
  /// Forgets all elements and releases the storage.
  void RemoveAll();

  /// Access to one element; throws std::out_of_range outside 0..GetUpperBound().
  CObject* GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, CObject* element);
  CObject*& ElementAt(std::ptrdiff_t index);
  CObject* operator[](std::ptrdiff_t index) const;
  CObject*& operator[](std::ptrdiff_t index);
  /// The elements in a row, null while there is no storage; valid until the size next changes.
  CObject* const* GetData() const;
  CObject** GetData();

  /// Sets one element, growing the array to hold it; throws when `index` is negative.
  void SetAtGrow(std::ptrdiff_t index, CObject* element);
  /// Appends one element and gives its index. Constant time but where storage grows.
  std::ptrdiff_t Add(CObject* element);
  /// Puts `count` copies in front of `index`; behind the end, the gap is filled with nulls.
  ///
  /// Throws std::out_of_range when `index` is negative or `count` below 1.
  void InsertAt(std::ptrdiff_t index, CObject* element, std::ptrdiff_t count = 1);
  /// Takes `count` elements out from `index` on, keeping the storage.
  ///
  /// Throws std::out_of_range unless they all lie inside the array.
  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  CObject** m_pData;          ///< The storage, null while there is none.
  std::ptrdiff_t m_nSize;     ///< Elements in use.
  std::ptrdiff_t m_nMaxSize;  ///< Elements that the storage holds.
  std::ptrdiff_t m_nGrowBy;   ///< Growth setting.
};

/// A growable array of unsigned 32-bit values; every member as in CObArray, with 0 for null.
class ZEPH_API CUIntArray : public CObject {
 public:
  CUIntArray();
  ~CUIntArray() override;

  /// The number of elements, by both names.
  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;
  /// Whether there is no element.
  bool IsEmpty() const;
  /// As CObArray::GetUpperBound.
  std::ptrdiff_t GetUpperBound() const;
  /// As CObArray::SetSize; new elements are 0.
  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);
  /// As CObArray::FreeExtra.
  void FreeExtra();
  /// As CObArray::RemoveAll.
  void RemoveAll();
  /// Access to one element; throws std::out_of_range outside 0..GetUpperBound().
  unsigned int GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, unsigned int element);
  unsigned int& ElementAt(std::ptrdiff_t index);
  unsigned int operator[](std::ptrdiff_t index) const;
  unsigned int& operator[](std::ptrdiff_t index);
  /// As CObArray::GetData.
  const unsigned int* GetData() const;
  unsigned int* GetData();
  /// As CObArray::SetAtGrow.
  void SetAtGrow(std::ptrdiff_t index, unsigned int element);
  /// As CObArray::Add.
  std::ptrdiff_t Add(unsigned int element);
  /// As CObArray::InsertAt; a gap is filled with 0.
  void InsertAt(std::ptrdiff_t index, unsigned int element, std::ptrdiff_t count = 1);
  /// As CObArray::RemoveAt.
  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  unsigned int* m_pData;      ///< The storage, null while there is none.
  std::ptrdiff_t m_nSize;     ///< Elements in use.
  std::ptrdiff_t m_nMaxSize;  ///< Elements that the storage holds.
  std::ptrdiff_t m_nGrowBy;   ///< The growth setting.
};

/// A growable array of unsigned 16-bit values; every member as in CObArray, with 0 for null.
class ZEPH_API CWordArray : public CObject {
 public:
  CWordArray();
  ~CWordArray() override;

  /// The number of elements, by both names.
  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;
  /// Whether there is no element.
  bool IsEmpty() const;
  /// As CObArray::GetUpperBound.
  std::ptrdiff_t GetUpperBound() const;
  /// As CObArray::SetSize; new elements are 0.
  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);
  /// As CObArray::FreeExtra.
  void FreeExtra();
  /// As CObArray::RemoveAll.
  void RemoveAll();
  /// Access to one element; throws std::out_of_range outside 0..GetUpperBound().
  unsigned short GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, unsigned short element);
  unsigned short& ElementAt(std::ptrdiff_t index);
  unsigned short operator[](std::ptrdiff_t index) const;
  unsigned short& operator[](std::ptrdiff_t index);
  /// As CObArray::GetData.
  const unsigned short* GetData() const;
  unsigned short* GetData();
  /// As CObArray::SetAtGrow.
  void SetAtGrow(std::ptrdiff_t index, unsigned short element);
  /// As CObArray::Add.
  std::ptrdiff_t Add(unsigned short element);
  /// As CObArray::InsertAt; a gap is filled with 0.
  void InsertAt(std::ptrdiff_t index, unsigned short element, std::ptrdiff_t count = 1);
  /// As CObArray::RemoveAt.
  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  unsigned short* m_pData;    ///< The storage, null while there is none.
  std::ptrdiff_t m_nSize;     ///< Elements in use.
  std::ptrdiff_t m_nMaxSize;  ///< Elements that the storage holds.
  std::ptrdiff_t m_nGrowBy;   ///< The growth setting.
};

/// The handle of one element of a list. Stays good until that element is removed.
struct __POSITION;
using POSITION = __POSITION*;

/// A doubly linked list of pointers to objects, which it never owns, copies or follows.
///
///     for (POSITION at = list.GetHeadPosition(); at;) Use(list.GetNext(at));
///
/// Insertion and removal at any position take constant time. A null or empty-list argument where an
/// element is needed throws std::out_of_range; a POSITION of another list, or of an element removed
/// before, is not recognised.
class ZEPH_API CObList : public CObject {
 protected:
  /// What a POSITION stands for.
  struct CNode {
    CNode* pNext;   ///< The next node, or null.
    CNode* pPrev;   ///< The previous node, or null.
    CObject* data;  ///< The element.
  };

 public:
  /// An empty list that takes storage for `blockSize` elements at a time; below 1 counts as 1.
  explicit CObList(std::ptrdiff_t blockSize = 10);
  ~CObList() override;

  /// The number of elements, by both names.
  std::ptrdiff_t GetCount() const;
  std::ptrdiff_t GetSize() const;
  /// Whether there is no element.
  bool IsEmpty() const;

  /// The element at an end; throws std::out_of_range when the list is empty.
  CObject*& GetHead();
  const CObject* GetHead() const;
  CObject*& GetTail();
  const CObject* GetTail() const;

  /// Adds one element at an end and gives its position.
  POSITION AddHead(CObject* object);
  POSITION AddTail(CObject* object);
  /// Takes the element at an end out of the list and gives it.
  CObject* RemoveHead();
  CObject* RemoveTail();
  /// Forgets all elements and releases the storage.
  void RemoveAll();

  /// The position of the first or last element, or null.
  POSITION GetHeadPosition() const;
  POSITION GetTailPosition() const;
  /// The element at `position`, which moves on to the next one or to null.
  CObject*& GetNext(POSITION& position);
  const CObject* GetNext(POSITION& position) const;
  /// The element at `position`, which moves back to the previous one or to null.
  CObject*& GetPrev(POSITION& position);
  const CObject* GetPrev(POSITION& position) const;

  /// Access to the element at `position`; throws std::out_of_range for null.
  CObject*& GetAt(POSITION position);
  const CObject* GetAt(POSITION position) const;
  void SetAt(POSITION position, CObject* object);
  /// Takes the element at `position` out of the list.
  void RemoveAt(POSITION position);
  /// Adds an element before `position`; at the head when it is null. Gives the new position.
  POSITION InsertBefore(POSITION position, CObject* object);
  /// Adds an element behind `position`; at the tail when it is null. Gives the new position.
  POSITION InsertAfter(POSITION position, CObject* object);

  /// The first element behind `startAfter` (from the head when null) that is `object`, or null.
  POSITION Find(CObject* object, POSITION startAfter = nullptr) const;
  /// The position of the element with this 0-based index, or null. Steps from the head.
  POSITION FindIndex(std::ptrdiff_t index) const;

 protected:
  CNode* m_pNodeHead;           ///< The first node, or null.
  CNode* m_pNodeTail;           ///< The last node, or null.
  std::ptrdiff_t m_nCount;      ///< Elements in the list.
  CNode* m_pNodeFree;           ///< Nodes of the blocks that hold no element, by pNext.
  CNode* m_pBlocks;             ///< The first node of each block links the blocks, by pNext.
  std::ptrdiff_t m_nBlockSize;  ///< Elements to a block.

 private:
  CNode* NewNode(CNode* previous, CNode* next, CObject* object);
  void AddBlock();
};

/// The application or library as one object; the base of the library's module object.
class ZEPH_API CWinApp : public CObject {
 public:
  /// Keeps `appName` as it is, without a copy; null for none.
  explicit CWinApp(const char* appName = nullptr);
  ~CWinApp() override;

  const char* m_pszAppName;  ///< The name given to the constructor, or null.
};

#endif  // ZEPH_USE_MFC

#if LONG_MAX != INT_MAX
/// Limits of the 32-bit `long`: those of `int`.
template <>
class std::numeric_limits<ZEPH_Long> : public std::numeric_limits<int> {};
#endif

#endif  // ZEPH_PLATFORM_H
