// The documented declarations alone, as strip_additions.py extracts them from the headers: what a program
// may have been written against. Not for use: our additions must not change what such a program means.
#ifndef ZEPH_TESTS_HEADERS_DOCUMENTED_H
#define ZEPH_TESTS_HEADERS_DOCUMENTED_H

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

#if !defined(ZEPH_BUILDING) || defined(ZEPH_STATIC) || defined(_MSC_VER) || !defined(__GNUC__)
#define ZEPH_EMIT
#elif defined(_WIN32)
#define ZEPH_EMIT __attribute__((used, dllexport))
#else
#define ZEPH_EMIT __attribute__((used, visibility("default")))
#endif

#if defined(ZEPH_ADDED)
#elif !defined(_WIN32) && (defined(__GNUC__) || defined(__clang__))
#define ZEPH_ADDED __attribute__((visibility("hidden")))
#else
#define ZEPH_ADDED
#endif

#if __cplusplus < 201703L && !(defined(_MSVC_LANG) && _MSVC_LANG >= 201703L)
#endif

#include <cstdio>

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
  std::abort();
}
[[noreturn]] ZEPH_ADDED ZEPH_OUT_OF_LINE inline void ZEPH_StopAtNull(const char* operation,
                                                                     const char* argument) {
  std::fprintf(stderr, "%s: %s is null\n", operation, argument);
  std::fflush(stderr);
  std::abort();
}
[[noreturn]] ZEPH_ADDED ZEPH_OUT_OF_LINE inline void ZEPH_StopOutside(
    const char* operation, const char* argument, long long value, long long low, long long high) {
  if (low == 0 && high == -1)
    std::fprintf(stderr, "%s: %s is %lld, but the array is empty\n", operation, argument, value);
  else
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

#include <climits>
#include <cstdint>
#include <istream>
#include <limits>
#include <ostream>
#include <type_traits>

#if LONG_MAX == INT_MAX
using ZEPH_Long = long;
#else

class ZEPH_Long {
  template <class T>
  using IfInteger = std::enable_if_t<std::is_integral_v<T>, int>;

  template <class T>
  using Quotient = std::conditional_t<std::is_same_v<std::common_type_t<int, T>, int>, long long,
                                      std::common_type_t<int, T> >;

  template <class T>
  static constexpr std::uint32_t Low(T value) {
    return static_cast<std::uint32_t>(value);
  }

 public:
  ZEPH_Long() = default;

  constexpr ZEPH_Long(int value) : m_nValue(value) {}

  constexpr operator int() const { return m_nValue; }

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

  friend std::ostream& operator<<(std::ostream& os, ZEPH_Long x) { return os << x.m_nValue; }
  friend std::istream& operator>>(std::istream& is, ZEPH_Long& x) { return is >> x.m_nValue; }

 private:
  constexpr ZEPH_Long& Set(std::uint32_t bits) {
    m_nValue = static_cast<int>(bits);
    return *this;
  }

  int m_nValue;
};

template <>
class std::numeric_limits<ZEPH_Long> : public std::numeric_limits<int> {};
#endif

#include <cstdint>

#ifdef _WIN32
#include <sys/timeb.h>
#endif

#ifdef _WIN32
using ZEPH_TimeOfDay = struct __timeb64;
#else

struct ZEPH_TimeOfDay {
  std::int64_t time;
  unsigned short millitm;
  short timezone;
  short dstflag;
};
#endif

#ifdef ZEPH_USE_MFC
#include <afx.h>
#include <afxcoll.h>
#include <afxwin.h>
#else

class ZEPH_API CObject {
 public:
  CObject(const CObject&) = delete;
  CObject& operator=(const CObject&) = delete;
  virtual ~CObject();

 protected:
  CObject();
};

class ZEPH_API CMemoryException : public CObject {
 public:
  CMemoryException();
  ~CMemoryException() override;

  virtual int GetErrorMessage(char* text, unsigned size, unsigned* helpContext = nullptr) const;

  void Delete();
};

class ZEPH_API CWinApp : public CObject {
 public:
  explicit CWinApp(const char* appName = nullptr);
  ~CWinApp() override;

  const char* m_pszAppName;
};

#endif

#include <climits>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#ifndef ZEPH_USE_MFC

#if defined(__MINGW_PRINTF_FORMAT)
#define ZEPH_PRINTF_FORMAT __attribute__((format(__MINGW_PRINTF_FORMAT, 2, 3)))
#elif defined(__GNUC__) || defined(__clang__)
#define ZEPH_PRINTF_FORMAT __attribute__((format(printf, 2, 3)))
#else
#define ZEPH_PRINTF_FORMAT
#endif

class ZEPH_API CString {
 public:
  CString();

  CString(const CString& other);
  CString(CString&& other) noexcept;
  CString(const char* text);
  CString(std::string_view text);
  ~CString();

  CString& operator=(const CString& other);
  CString& operator=(CString&& other) noexcept;
  CString& operator=(const char* text);

  int GetLength() const;

  bool IsEmpty() const;

  void Empty();

  const char* GetString() const;
  operator const char*() const;

  char GetAt(int index) const;
  char operator[](int index) const;

  CString& operator+=(const CString& text);
  CString& operator+=(const char* text);
  CString& operator+=(char c);

  void Append(const char* text, int length);

  void Format(const char* format, ...) ZEPH_PRINTF_FORMAT;

  void AppendFormat(const char* format, ...) ZEPH_PRINTF_FORMAT;

  CString Left(int count) const;

  CString Right(int count) const;

  CString Mid(int first) const;

  CString Mid(int first, int count) const;

  int Find(const char* text, int start = 0) const;
  int Find(char c, int start = 0) const;

 private:
  void ReplaceFrom(int from, std::string_view tail);
  void TakeFrom(CString& other) noexcept;
  void Release() noexcept;

  char* m_pchData;
  int m_nLength;
  int m_nCapacity;
  char m_here[16];
};

ZEPH_API CString operator+(CString left, const CString& right);
ZEPH_API CString operator+(CString left, const char* right);
ZEPH_API CString operator+(const char* left, const CString& right);
ZEPH_API CString operator+(CString left, char right);
ZEPH_API CString operator+(char left, const CString& right);

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

#endif

#include <cstddef>

#ifndef ZEPH_USE_MFC

class ZEPH_API CObArray : public CObject {
 public:
  CObArray();
  ~CObArray() override;

  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;

  bool IsEmpty() const;

  std::ptrdiff_t GetUpperBound() const;

  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);

  void FreeExtra();

  void RemoveAll();

  CObject* GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, CObject* element);
  CObject*& ElementAt(std::ptrdiff_t index);
  CObject* operator[](std::ptrdiff_t index) const;
  CObject*& operator[](std::ptrdiff_t index);

  CObject* const* GetData() const;
  CObject** GetData();

  void SetAtGrow(std::ptrdiff_t index, CObject* element);

  ZEPH_EMIT std::ptrdiff_t Add(CObject* element) {
    if (m_nSize < m_nMaxSize)
      m_pData[m_nSize++] = element;
    else
      SetAtGrow(m_nSize, element);
    return m_nSize - 1;
  }

  void InsertAt(std::ptrdiff_t index, CObject* element, std::ptrdiff_t count = 1);

  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  CObject** m_pData;
  std::ptrdiff_t m_nSize;
  std::ptrdiff_t m_nMaxSize;
  std::ptrdiff_t m_nGrowBy;
};

class ZEPH_API CUIntArray : public CObject {
 public:
  CUIntArray();
  ~CUIntArray() override;

  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;

  bool IsEmpty() const;

  std::ptrdiff_t GetUpperBound() const;

  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);

  void FreeExtra();

  void RemoveAll();

  unsigned int GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, unsigned int element);
  unsigned int& ElementAt(std::ptrdiff_t index);
  unsigned int operator[](std::ptrdiff_t index) const;
  unsigned int& operator[](std::ptrdiff_t index);

  const unsigned int* GetData() const;
  unsigned int* GetData();

  void SetAtGrow(std::ptrdiff_t index, unsigned int element);

  ZEPH_EMIT std::ptrdiff_t Add(unsigned int element) {
    if (m_nSize < m_nMaxSize)
      m_pData[m_nSize++] = element;
    else
      SetAtGrow(m_nSize, element);
    return m_nSize - 1;
  }

  void InsertAt(std::ptrdiff_t index, unsigned int element, std::ptrdiff_t count = 1);

  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  unsigned int* m_pData;
  std::ptrdiff_t m_nSize;
  std::ptrdiff_t m_nMaxSize;
  std::ptrdiff_t m_nGrowBy;
};

class ZEPH_API CWordArray : public CObject {
 public:
  CWordArray();
  ~CWordArray() override;

  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;

  bool IsEmpty() const;

  std::ptrdiff_t GetUpperBound() const;

  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);

  void FreeExtra();

  void RemoveAll();

  unsigned short GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, unsigned short element);
  unsigned short& ElementAt(std::ptrdiff_t index);
  unsigned short operator[](std::ptrdiff_t index) const;
  unsigned short& operator[](std::ptrdiff_t index);

  const unsigned short* GetData() const;
  unsigned short* GetData();

  void SetAtGrow(std::ptrdiff_t index, unsigned short element);

  ZEPH_EMIT std::ptrdiff_t Add(unsigned short element) {
    if (m_nSize < m_nMaxSize)
      m_pData[m_nSize++] = element;
    else
      SetAtGrow(m_nSize, element);
    return m_nSize - 1;
  }

  void InsertAt(std::ptrdiff_t index, unsigned short element, std::ptrdiff_t count = 1);

  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  unsigned short* m_pData;
  std::ptrdiff_t m_nSize;
  std::ptrdiff_t m_nMaxSize;
  std::ptrdiff_t m_nGrowBy;
};

#endif

#include <cstddef>

#ifndef ZEPH_USE_MFC

struct __POSITION;

using POSITION = __POSITION*;

class ZEPH_API CObList : public CObject {
 protected:
  struct CNode {
    CNode* pNext;
    CNode* pPrev;
    CObject* data;
  };

 public:
  explicit CObList(std::ptrdiff_t blockSize = 10);
  ~CObList() override;

  std::ptrdiff_t GetCount() const;
  std::ptrdiff_t GetSize() const;

  bool IsEmpty() const;

  CObject*& GetHead();
  const CObject* GetHead() const;
  CObject*& GetTail();
  const CObject* GetTail() const;

  POSITION AddHead(CObject* object);
  POSITION AddTail(CObject* object);

  CObject* RemoveHead();
  CObject* RemoveTail();

  void RemoveAll();

  POSITION GetHeadPosition() const;
  POSITION GetTailPosition() const;

  CObject*& GetNext(POSITION& position);
  const CObject* GetNext(POSITION& position) const;

  CObject*& GetPrev(POSITION& position);
  const CObject* GetPrev(POSITION& position) const;

  CObject*& GetAt(POSITION position);
  const CObject* GetAt(POSITION position) const;
  void SetAt(POSITION position, CObject* object);

  void RemoveAt(POSITION position);

  POSITION InsertBefore(POSITION position, CObject* object);

  POSITION InsertAfter(POSITION position, CObject* object);

  POSITION Find(CObject* object, POSITION startAfter = nullptr) const;

  POSITION FindIndex(std::ptrdiff_t index) const;

 protected:
  CNode* m_pNodeHead;
  CNode* m_pNodeTail;
  std::ptrdiff_t m_nCount;
  CNode* m_pNodeFree;
  CNode* m_pBlocks;
  std::ptrdiff_t m_nBlockSize;

 private:
  CNode* NewNode(CNode* previous, CNode* next, CObject* object);
  void AddBlock();
};

#endif

class ZEPH_API CZEPHDataStructureEngineApp : public CWinApp {
 public:
  CZEPHDataStructureEngineApp();
  ~CZEPHDataStructureEngineApp() override;
};

template <class T>
class ZEPH_API CZEPHLink {
 public:
  ZEPH_EMIT CZEPHLink(T value) : m_value(value), m_pNext(nullptr) {}

  CZEPHLink(const CZEPHLink& other) = default;

  ZEPH_EMIT CZEPHLink& operator=(const CZEPHLink& other) {
    m_value = other.m_value;
    m_pNext = other.m_pNext;
    return *this;
  }

  T m_value;
  CZEPHLink* m_pNext;
};

template <class T>
class ZEPH_API CZEPHLinkList {
 public:
  ZEPH_EMIT CZEPHLinkList() : m_pHead(nullptr) {}

  CZEPHLinkList(const CZEPHLinkList& other) = default;

  ~CZEPHLinkList();

  ZEPH_EMIT CZEPHLinkList& operator=(const CZEPHLinkList& other) {
    m_pHead = other.m_pHead;
    return *this;
  }

  void InsertOrdered(CZEPHLink<T>* link);

  void Sorting(CZEPHLink<T>** links, int count);

  CZEPHLink<T>* GetFirstLink();

  void RemoveAll();

  CZEPHLink<T>* m_pHead;
};

#if !defined(ZEPH_BUILDING) || !defined(_MSC_VER)
extern template class CZEPHLink<double>;
extern template class CZEPHLinkList<double>;
#endif

class ZEPH_API CZEPHLinkData {
 public:
  CZEPHLinkData(int key);
  CZEPHLinkData(const CZEPHLinkData& other) = default;

  CZEPHLinkData& operator=(const CZEPHLinkData& other);

  void DisplayLink();

  int m_nKey;
  CZEPHLinkData* m_pNext;
};

class ZEPH_API CZEPHSortedLinkList {
 public:
  CZEPHSortedLinkList();
  CZEPHSortedLinkList(const CZEPHSortedLinkList& other) = default;

  CZEPHSortedLinkList& operator=(const CZEPHSortedLinkList& other);

  void Insert(CZEPHLinkData* node);

  CZEPHLinkData* Find(int key);

  void Remove(int key);

  void DisplayList();

  CZEPHLinkData* m_pHead;
};

#include <cstdio>

struct ZEPH_StackNode {
  void* m_pData;
  ZEPH_StackNode* m_pNextNode;
};

class ZEPH_API CZEPHStack {
 public:
  CZEPHStack();
  CZEPHStack(const CZEPHStack& other) = default;

  ~CZEPHStack();

  CZEPHStack& operator=(const CZEPHStack& other);

  void Push(void* p);

  void* Pop();

  void* Peek() const;

  ZEPH_StackNode* m_pTop;
};

class ZEPH_API CZEPHPointerStack {
 public:
  CZEPHPointerStack();
  CZEPHPointerStack(const CZEPHPointerStack& other) = default;

  ~CZEPHPointerStack();

  CZEPHPointerStack& operator=(const CZEPHPointerStack& other);

  void Push(void* p);

  void* Pop();

  void* Peek() const;

  static int Test1(int count, FILE* stream);

  ZEPH_StackNode* m_pTop;
};

#include <cstddef>
#include <cstdint>
#include <memory>

class ZEPH_API CZEPHSortableObArray : public CObArray {
 public:
  CZEPHSortableObArray();
  ~CZEPHSortableObArray() override;

  void Sort(int (*compare)(CObject*, CObject*));

  void Sort(int first, int count, int (*compare)(CObject*, CObject*));

 private:
};

class ZEPH_API CZEPHSortableObList : public CObList {
 public:
  CZEPHSortableObList(int blockSize = 10);
  ~CZEPHSortableObList() override;

  void Sort(int (*compare)(CObject*, CObject*));

  void Sort(POSITION start, int count, int (*compare)(CObject*, CObject*));

 private:
};

class ZEPH_API CZEPHUIntArray : public CUIntArray {
 public:
  CZEPHUIntArray();
  ~CZEPHUIntArray() override;

  void SetGrowthSize(int n);

  void SetSize(int n);

  int m_nGrowthSize;
};

class ZEPH_API CZEPHWordArray : public CWordArray {
 public:
  CZEPHWordArray();
  ~CZEPHWordArray() override;

  void SetGrowthSize(int n);

  void SetSize(int n);

  int m_nGrowthSize;
};

#include <cstddef>
#include <iosfwd>
#include <type_traits>
#include <utility>

class ZEPH_API CZEPHDoubleArray {
 public:
  CZEPHDoubleArray();

  CZEPHDoubleArray(int n, double v);

  CZEPHDoubleArray(int n, double* src);

  CZEPHDoubleArray(const CZEPHDoubleArray& other);

  virtual ~CZEPHDoubleArray();

  void Resize(int n, int keep);

  CZEPHDoubleArray& operator=(const CZEPHDoubleArray& other);

  [[noreturn]] static void ErrorMessage(char* message, std::ostream& os);

  ZEPH_EMIT ZEPH_CHECKED double& operator[](int i) {
    ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::operator[]", data);
    ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::operator[]", i, 0, size - 1);
    return data[i];
  }
  ZEPH_EMIT ZEPH_CHECKED const double& operator[](int i) const {
    ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::operator[]", data);
    ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::operator[]", i, 0, size - 1);
    return data[i];
  }

  ZEPH_EMIT double GetEntry(int i) {
    if (!data || i < 0 || i > size) CheckBound(i);
    return data[i];
  }

  int CheckBound(int i);

  void SetEntry(double v);

  void Reset(double v);

  ZEPH_EMIT double* GetData() const { return data; }

  ZEPH_EMIT int GetSize() const { return size; }

  ZEPH_EMIT int Size() const { return size; }

  CZEPHDoubleArray& operator+=(const CZEPHDoubleArray& other);

  CZEPHDoubleArray& operator-=(const CZEPHDoubleArray& other);

  void Display(std::ostream& os);

  void Display(CString& out);

  void Display(CString& out, int from, int to);

  void Trace(CString text);

  void BubbleSort();

  void InsertionSort();

  void InsertionSort(int left, int right);

  void ListInsertSort();

  void ShellSort();

  void QuickSort(int cutoff);

  void recQuickSort(int left, int right, int cutoff);

  double MedianOf3(int left, int right);

  int Partition(int left, int right, double pivot);

  int QuickPartition(int left, int right, double pivot);

  void ManualSort(int left, int right);

  void Swap(int i, int j);

  int CheckSorted();

  int Find(double x);

  int BinarySearch(double x, int& index);

  int Remove(double x);

  void MergeSortedArray(double* const a, int na, double* const b, int nb, double* const out);

  double OneNorm() const;

  double TwoNorm() const;

  double MaxNorm() const;

  void Random();

  int sorted;
  int size;
  double* data;

 protected:
  int AllocMemory(int n);

  void FreeMemory();

 public:
};

ZEPH_API CZEPHDoubleArray operator+(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b);

ZEPH_API CZEPHDoubleArray operator-(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b);

ZEPH_API CZEPHDoubleArray operator+(const CZEPHDoubleArray& a);

ZEPH_API CZEPHDoubleArray operator-(const CZEPHDoubleArray& a);

ZEPH_API CZEPHDoubleArray operator*(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b);

ZEPH_API CZEPHDoubleArray operator*(double s, const CZEPHDoubleArray& a);

ZEPH_API CZEPHDoubleArray operator*(const CZEPHDoubleArray& a, double s);

ZEPH_API CZEPHDoubleArray operator/(const CZEPHDoubleArray& a, double s);

ZEPH_API double ZEPH_ArrayDotProduct(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b);

ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHDoubleArray& a);

ZEPH_API std::istream& operator>>(std::istream& is, CZEPHDoubleArray& a);

#include <cstddef>
#include <cstdio>
#include <type_traits>
#include <utility>

ZEPH_API double* ZEPH_ArrayAllocDouble(char* name, int lo, int hi);

ZEPH_API double* ZEPH_ArrayAllocDouble(char* name, int lo, int hi, long int& bytes);

ZEPH_API float* ZEPH_ArrayAllocFloat(char* name, int lo, int hi);

ZEPH_API float* ZEPH_ArrayAllocFloat(char* name, int lo, int hi, long int& bytes);

ZEPH_API int* ZEPH_ArrayAllocInt(char* name, int lo, int hi);

ZEPH_API int* ZEPH_ArrayAllocInt(char* name, int lo, int hi, long int& bytes);

ZEPH_API ZEPH_Long* ZEPH_ArrayAllocLong(char* name, int lo, int hi);

ZEPH_API ZEPH_Long* ZEPH_ArrayAllocLong(char* name, int lo, int hi, long int& bytes);

ZEPH_API void ZEPH_ArrayFree(int* p, int lo, int hi);
ZEPH_API void ZEPH_ArrayFree(ZEPH_Long* p, int lo, int hi);
ZEPH_API void ZEPH_ArrayFree(float* p, int lo, int hi);
ZEPH_API void ZEPH_ArrayFree(double* p, int lo, int hi);

ZEPH_API int* ZEPH_ArrayRealloc(int* old, int oldN, int newN, char* name);
ZEPH_API ZEPH_Long* ZEPH_ArrayRealloc(ZEPH_Long* old, int oldN, int newN, char* name);
ZEPH_API float* ZEPH_ArrayRealloc(float* old, int oldN, int newN, char* name);
ZEPH_API double* ZEPH_ArrayRealloc(double* old, int oldN, int newN, char* name);

ZEPH_API int* ZEPH_ArrayResize(int* old, int oldCount, int newCount);
ZEPH_API ZEPH_Long* ZEPH_ArrayResize(ZEPH_Long* old, int oldCount, int newCount);
ZEPH_API float* ZEPH_ArrayResize(float* old, int oldCount, int newCount);
ZEPH_API double* ZEPH_ArrayResize(double* old, int oldCount, int newCount);

ZEPH_API double** ZEPH_MatrixAllocDouble(char* name, int rows, int cols);

ZEPH_API double** ZEPH_MatrixAllocDouble(char* name, int rows, int cols, long int& bytes);

ZEPH_API double** ZEPH_MatrixAllocDouble(char* name, int nrl, int nrh, int ncl, int nch);

ZEPH_API double** ZEPH_MatrixAllocDouble(char* name, int nrl, int nrh, int ncl, int nch,
                                         long int& bytes);

ZEPH_API float** ZEPH_MatrixAllocFloat(char* name, int rows, int cols);
ZEPH_API float** ZEPH_MatrixAllocFloat(char* name, int rows, int cols, long int& bytes);
ZEPH_API float** ZEPH_MatrixAllocFloat(char* name, int nrl, int nrh, int ncl, int nch);
ZEPH_API float** ZEPH_MatrixAllocFloat(char* name, int nrl, int nrh, int ncl, int nch,
                                       long int& bytes);

ZEPH_API int** ZEPH_MatrixAllocInt(char* name, int rows, int cols);
ZEPH_API int** ZEPH_MatrixAllocInt(char* name, int rows, int cols, long int& bytes);
ZEPH_API int** ZEPH_MatrixAllocInt(char* name, int nrl, int nrh, int ncl, int nch);
ZEPH_API int** ZEPH_MatrixAllocInt(char* name, int nrl, int nrh, int ncl, int nch, long int& bytes);

ZEPH_API ZEPH_Long** ZEPH_MatrixAllocLong(char* name, int rows, int cols);
ZEPH_API ZEPH_Long** ZEPH_MatrixAllocLong(char* name, int rows, int cols, long int& bytes);
ZEPH_API ZEPH_Long** ZEPH_MatrixAllocLong(char* name, int nrl, int nrh, int ncl, int nch);
ZEPH_API ZEPH_Long** ZEPH_MatrixAllocLong(char* name, int nrl, int nrh, int ncl, int nch,
                                          long int& bytes);

ZEPH_API void ZEPH_MatrixFree(int** m, int rows, int cols);
ZEPH_API void ZEPH_MatrixFree(ZEPH_Long** m, int rows, int cols);
ZEPH_API void ZEPH_MatrixFree(float** m, int rows, int cols);
ZEPH_API void ZEPH_MatrixFree(double** m, int rows, int cols);

ZEPH_API void ZEPH_MatrixFree(int** m, int nrl, int nrh, int ncl, int nch);
ZEPH_API void ZEPH_MatrixFree(ZEPH_Long** m, int nrl, int nrh, int ncl, int nch);
ZEPH_API void ZEPH_MatrixFree(float** m, int nrl, int nrh, int ncl, int nch);
ZEPH_API void ZEPH_MatrixFree(double** m, int nrl, int nrh, int ncl, int nch);

ZEPH_API int** ZEPH_MatrixResize(int** old, int oldRowHi, int oldColHi, int newRowHi, int newColHi);
ZEPH_API ZEPH_Long** ZEPH_MatrixResize(ZEPH_Long** old, int oldRowHi, int oldColHi, int newRowHi,
                                       int newColHi);
ZEPH_API float** ZEPH_MatrixResize(float** old, int oldRowHi, int oldColHi, int newRowHi,
                                   int newColHi);
ZEPH_API double** ZEPH_MatrixResize(double** old, int oldRowHi, int oldColHi, int newRowHi,
                                    int newColHi);

ZEPH_API void ZEPH_ArrayDisplay(CString& out, int* a, int lo, int hi, char* name);
ZEPH_API void ZEPH_ArrayDisplay(CString& out, double* a, int lo, int hi, char* name);

ZEPH_API void ZEPH_ArrayDisplay(CString& out, int* a, int n, char* name);
ZEPH_API void ZEPH_ArrayDisplay(CString& out, double* a, int n, char* name);

ZEPH_API void ZEPH_ArrayDisplay(int* a, int lo, int hi, char* name);
ZEPH_API void ZEPH_ArrayDisplay(double* a, int lo, int hi, char* name);

ZEPH_API void ZEPH_ArrayDisplay(int* a, int n, char* name);

ZEPH_API void ZEPH_ArrayDisplay(FILE* stream, int* a, int lo, int hi, char* name);
ZEPH_API void ZEPH_ArrayDisplay(FILE* stream, double* a, int lo, int hi, char* name);

ZEPH_API void ZEPH_ArrayDisplay(FILE* stream, int* a, int n, char* name);
ZEPH_API void ZEPH_ArrayDisplay(FILE* stream, double* a, int n, char* name);

ZEPH_API void ZEPH_MatrixPrint(FILE* stream, int rows, int cols, double** m, char* name);

ZEPH_API void ZEPH_MatrixPrint(FILE* stream, int n, double** m, char* name);

ZEPH_API void ZEPH_MatrixPrint3(FILE* stream, double** m, char* name);

ZEPH_API void ZEPH_MatrixPrint4(FILE* stream, double** m, char* name);

ZEPH_API void ZEPH_MatrixPrint4(FILE* stream, double* const m, char* name);

ZEPH_API void ZEPH_VectorPrint3(FILE* stream, double* const v, char* name);

ZEPH_API double ZEPH_ArrayOneNorm(double* a, int n, int start);

ZEPH_API double ZEPH_ArrayTwoNorm(double* a, int n, int start);

ZEPH_API double ZEPH_ArrayTwoNorm2(double* a, int n, int start);

ZEPH_API double ZEPH_ArrayMaxNorm(double* a, int n, int start);

ZEPH_API double ZEPH_MatrixOneNorm(double** m, int n, int start);

ZEPH_API double ZEPH_MatrixMaxNorm(double** m, int n, int start);

ZEPH_API double ZEPH_MatrixFrobNorm(double** m, int n, int start);

ZEPH_API double ZEPH_MatrixFrobNorm2(double** m, int n, int start);

ZEPH_API double ZEPH_MatrixFrobNorm3(double** m, int n, int start);

ZEPH_API void ZEPH_ArrayMergeSorted(int* const a, int na, int* const b, int nb, int* const out);
ZEPH_API void ZEPH_ArrayMergeSorted(double* const a, int na, double* const b, int nb,
                                    double* const out);

ZEPH_API void ZEPH_MatrixMult(int rowsA, int colsA, double** a, int rowsB, int colsB, double** b,
                              double** out);

ZEPH_API void ZEPH_MatrixTranspose(int n, double* a, double* b);

ZEPH_API void ZEPH_MatrixTranspose(int n, double** a, double** b);

ZEPH_API void ZEPH_MatrixSetIdentity(int n, double** m);

ZEPH_API void ZEPH_MatrixSet3(double m[3][3], double m00, double m01, double m02, double m10,
                              double m11, double m12, double m20, double m21, double m22);

ZEPH_API void ZEPH_MatrixSetIdentity(double* const m);

ZEPH_API void ZEPH_MatrixMultiply3(double a[3][3], double b[3][3], double out[3][3]);

ZEPH_API void ZEPH_MatrixMult3(double a[3][3], double b[3][3], double out[3][3]);

ZEPH_API void ZEPH_MatrixMult4(double* const a, double* const b, double* const out);

ZEPH_API void ZEPH_MatrixRotate3X(double m[3][3], double angle);

ZEPH_API void ZEPH_MatrixRotate3Y(double m[3][3], double angle);

ZEPH_API void ZEPH_MatrixRotate3Z(double m[3][3], double angle);

ZEPH_API void ZEPH_MatrixRotate3(double m[3][3], double ax, double ay, double az);

ZEPH_API void ZEPH_MatrixTransform3(double m[3][3], double* x, double* y, double* z);

ZEPH_API void ZEPH_MatrixTranspose3(double m[3][3]);

ZEPH_API void ZEPH_VectorAdd3(double* const a, double* const b, double* const out);

ZEPH_API void ZEPH_VectorSub3(double* const a, double* const b, double* const out);

ZEPH_API void ZEPH_VectorScale3(double* const a, double s, double* const out);

ZEPH_API void ZEPH_VectorAssign3(double* const src, double* const dst);

ZEPH_API void ZEPH_VectorAssign3(double* const v, double s);

ZEPH_API void ZEPH_VectorAssign3(double* const v, double x, double y, double z);

ZEPH_API void ZEPH_VectorCrossProduct3(double* const a, double* const b, double* const out);

ZEPH_API double ZEPH_VectorDotProduct3(double* const a, double* const b);

ZEPH_API double ZEPH_VectorGetLength3(double* const v);

ZEPH_API void ZEPH_VectorNormalize3(double* const v);

#include <cstddef>
#include <istream>
#include <ostream>
#include <type_traits>

class ZEPH_API CZEPHDoubleMatrix {
 public:
  int m_nRows;
  int m_nColumns;
  double** m_ppData;

  ZEPH_EMIT CZEPHDoubleMatrix() : m_nRows(0), m_nColumns(0), m_ppData(nullptr) {}

  CZEPHDoubleMatrix(const CZEPHDoubleMatrix& other);

  CZEPHDoubleMatrix(int rows, int cols, double value);

  CZEPHDoubleMatrix(int rows, int cols, double** source);

  ~CZEPHDoubleMatrix();

  void Clear();

  int Create(int rows, int cols);

  int SetData(const CZEPHDoubleMatrix& other);

  int SetData(int rows, int cols, double value);

  int SetData(int rows, int cols, double** source);

  void SetEntry(double value);

  ZEPH_EMIT double GetEntry(int i, int j) {
    if (!m_ppData || i < 0 || i > m_nRows || j < 0 || j > m_nColumns) CheckBound(i, j);
    return m_ppData[i][j];
  }

  int CheckBound(int i, int j);

  ZEPH_EMIT double* operator[](int i) {
    if (!m_ppData || i < 0 || i > m_nRows || m_nColumns < 0) CheckBound(i, 0);
    return m_ppData[i];
  }

  ZEPH_EMIT ZEPH_CHECKED double* operator[](int i) const {
    ZEPH_REQUIRE_POINTER("CZEPHDoubleMatrix::operator[]", m_ppData);
    ZEPH_REQUIRE_INSIDE("CZEPHDoubleMatrix::operator[]", i, 0, m_nRows - 1);
    return m_ppData[i];
  }

  ZEPH_EMIT int GetNoRows() { return m_nColumns; }

  ZEPH_EMIT int GetNoColumns() { return m_nRows; }

  CZEPHDoubleMatrix& operator=(const CZEPHDoubleMatrix& other);

  CZEPHDoubleMatrix& operator+=(const CZEPHDoubleMatrix& other);

  CZEPHDoubleMatrix& operator-=(const CZEPHDoubleMatrix& other);

  CZEPHDoubleMatrix& operator*=(const CZEPHDoubleMatrix& other);

  CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& other);

  CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& other);

  ZEPH_EMIT CZEPHDoubleMatrix& operator+() { return *this; }

  CZEPHDoubleMatrix& operator-();

  CZEPHDoubleArray operator*(const CZEPHDoubleArray& v) const;

  void Display(std::ostream& os);

  [[noreturn]] static void ErrorMessage(char* message, std::ostream& os);

 protected:
  int AllocMemory(int rows, int cols);

  void FreeMemory();

 public:
};

ZEPH_API CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b);

ZEPH_API CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b);

ZEPH_API CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a);

ZEPH_API CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a);

ZEPH_API CZEPHDoubleMatrix& operator*=(CZEPHDoubleMatrix& left, const CZEPHDoubleMatrix& other);

ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHDoubleMatrix& a);

ZEPH_API std::istream& operator>>(std::istream& is, CZEPHDoubleMatrix& a);

#include <cstddef>
#include <cstdio>

class ZEPH_API CZEPHVector {
 public:
  int m_nSize;
  double* m_pData;

  ZEPH_EMIT CZEPHVector() : m_nSize(0), m_pData(nullptr) {}

  CZEPHVector(int n);

  CZEPHVector(int n, const double* data);

  CZEPHVector(CZEPHVector& other);

  ~CZEPHVector();

  void ReSize(int n);

  void Free();

  ZEPH_EMIT ZEPH_CHECKED double& operator[](int i) {
    ZEPH_REQUIRE_POINTER("CZEPHVector::operator[]", m_pData);
    ZEPH_REQUIRE_INSIDE("CZEPHVector::operator[]", i, 0, m_nSize - 1);
    return m_pData[i];
  }

  ZEPH_EMIT ZEPH_CHECKED double Get(int i) const {
    ZEPH_REQUIRE_POINTER("CZEPHVector::Get", m_pData);
    ZEPH_REQUIRE_INSIDE("CZEPHVector::Get", i, 0, m_nSize - 1);
    return m_pData[i];
  }

  ZEPH_EMIT int GetSize() const { return m_nSize; }

  CZEPHVector operator=(const CZEPHVector& other);

  CZEPHVector operator+(const CZEPHVector& other);

  CZEPHVector operator-(const CZEPHVector& other);

  CZEPHVector operator/(const double& d);

  void Check(bool failed, char* message);

  void Display(std::FILE* stream, char separator);

  void Display();

 protected:
  void Create(int n);

 public:
};

ZEPH_API CZEPHVector operator*(const double& s, const CZEPHVector& v);

ZEPH_API CZEPHVector operator*(const CZEPHVector& v, const double& s);

class ZEPH_API CZEPHMatrix {
 public:
  int m_nRows;
  int m_nColumns;
  double** m_ppData;

  ZEPH_EMIT CZEPHMatrix() : m_nRows(0), m_nColumns(0), m_ppData(nullptr) {}

  CZEPHMatrix(int rows, int cols);

  CZEPHMatrix(int rows, int cols, const double* data);

  CZEPHMatrix(CZEPHMatrix& other);

  ~CZEPHMatrix();

  void ReSize(int rows, int cols);

  void Free();

  ZEPH_EMIT ZEPH_CHECKED double* operator[](int i) {
    ZEPH_REQUIRE_POINTER("CZEPHMatrix::operator[]", m_ppData);
    ZEPH_REQUIRE_INSIDE("CZEPHMatrix::operator[]", i, 0, m_nRows - 1);
    return m_ppData[i];
  }

  ZEPH_EMIT int GetNoRow() const { return m_nRows; }

  ZEPH_EMIT int GetNoColumn() const { return m_nColumns; }

  CZEPHMatrix operator=(const CZEPHMatrix& other);

  CZEPHMatrix operator+(const CZEPHMatrix& other);

  CZEPHMatrix operator*(const CZEPHMatrix& other);

  CZEPHVector PickCol(int j);

  void PickCol(int j, CZEPHVector& out);

  void SetCol(int j, CZEPHVector& v);

  void Check(bool failed, char* message);

  void Display(std::FILE* stream, char separator);

  void Display();

 protected:
  void Create(int rows, int cols);

 public:
};

ZEPH_API CZEPHVector ZEPH_SumVector(CZEPHMatrix& m);

ZEPH_API void ZEPH_SumVector(CZEPHMatrix& m, CZEPHVector& out);

ZEPH_API void ZEPH_RandomizeMatrix(CZEPHMatrix& m, double scale);

ZEPH_API int ZEPH_GetVectorMaxSite(CZEPHVector& v);

ZEPH_API int ZEPH_GetVectorMinSite(CZEPHVector& v);

ZEPH_API double ZEPH_GetVectorSquareNorm(CZEPHVector& v);

ZEPH_API double ZEPH_GetVectorInfititeNorm(CZEPHVector& v);

#include <istream>
#include <ostream>

class ZEPH_API CZEPHMatrix4 {
 public:
  enum ordermode : int { ColumnMajor = 0, RowMajor = 1 };

  CZEPHMatrix4();

  CZEPHMatrix4(const double& value);

  CZEPHMatrix4(const double* const data, ordermode mode);
  CZEPHMatrix4(const CZEPHMatrix4& other);
  ~CZEPHMatrix4();

  ZEPH_EMIT CZEPHMatrix4& operator=(const CZEPHMatrix4& other) {
    for (int k = 0; k < 16; ++k) m_data[k] = other.m_data[k];
    return *this;
  }

  ZEPH_EMIT ZEPH_CHECKED double& operator()(const int& i, const int& j) {
    ZEPH_REQUIRE_INSIDE("CZEPHMatrix4::operator()", i, 0, 3);
    ZEPH_REQUIRE_INSIDE("CZEPHMatrix4::operator()", j, 0, 3);
    return m_data[i + 4 * j];
  }

  ZEPH_EMIT operator float*() { return reinterpret_cast<float*>(m_data); }

  void loadIdentity();

  CZEPHMatrix4& operator+=(const CZEPHMatrix4& other);
  CZEPHMatrix4& operator-=(const CZEPHMatrix4& other);
  CZEPHMatrix4& operator*=(const double& s);
  CZEPHMatrix4& operator/=(const double& s);

  CZEPHMatrix4& operator*=(const CZEPHMatrix4& b);

  CZEPHMatrix4& operator-();

  static int howMany();

  double m_data[16];

 private:
  static int m_nObject;
};

ZEPH_API CZEPHMatrix4 operator+(const CZEPHMatrix4& a, const CZEPHMatrix4& b);
ZEPH_API CZEPHMatrix4 operator-(const CZEPHMatrix4& a, const CZEPHMatrix4& b);

ZEPH_API CZEPHMatrix4 operator*(const CZEPHMatrix4& a, const CZEPHMatrix4& b);

ZEPH_API CZEPHMatrix4 operator*(const double& s, const CZEPHMatrix4& a);
ZEPH_API CZEPHMatrix4 operator*(const CZEPHMatrix4& a, const double& s);
ZEPH_API CZEPHMatrix4 operator/(const CZEPHMatrix4& a, const double& s);

ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHMatrix4& a);

#include <istream>
#include <ostream>

class ZEPH_API CZEPHVector3 {
 public:
  CZEPHVector3();
  CZEPHVector3(const double& x, const double& y, const double& z);

  CZEPHVector3(CZEPHVector3& from, CZEPHVector3& to);
  CZEPHVector3(const CZEPHVector3& other);
  ~CZEPHVector3();

  ZEPH_EMIT CZEPHVector3& operator=(const CZEPHVector3& other) {
    m_x = other.m_x;
    m_y = other.m_y;
    m_z = other.m_z;
    return *this;
  }

  ZEPH_EMIT ZEPH_CHECKED double& operator[](const int& i) {
    ZEPH_REQUIRE_INSIDE("CZEPHVector3::operator[]", i, 0, 2);
    return reinterpret_cast<double*>(this)[i];
  }

  ZEPH_EMIT double& x() { return m_x; }
  ZEPH_EMIT double& y() { return m_y; }
  ZEPH_EMIT double& z() { return m_z; }
  ZEPH_EMIT double x() const { return m_x; }
  ZEPH_EMIT double y() const { return m_y; }
  ZEPH_EMIT double z() const { return m_z; }

  ZEPH_EMIT double GetX() { return m_x; }
  ZEPH_EMIT double GetY() { return m_y; }
  ZEPH_EMIT double GetZ() { return m_z; }

  ZEPH_EMIT void SetX(double v) { m_x = v; }
  ZEPH_EMIT void SetY(double v) { m_y = v; }

  ZEPH_EMIT void SetZ(double v) { m_x = v; }

  ZEPH_EMIT void Set(double, double b, double c) {
    m_y = b;
    m_x = c;
  }

  ZEPH_EMIT void Set(const CZEPHVector3& v) {
    m_x = v.m_x;
    m_y = v.m_z;
  }

  ZEPH_EMIT operator float*() { return reinterpret_cast<float*>(this); }

  double GetLength2() const;
  double GetLength() const;

  double Normalize();

  CZEPHVector3 Normalized() const;

  void EpsilonCorrect(const CZEPHVector3& fallback);

  CZEPHVector3& operator+=(const CZEPHVector3& other);
  CZEPHVector3& operator-=(const CZEPHVector3& other);
  CZEPHVector3& operator*=(const double& s);
  CZEPHVector3& operator/=(const double& s);

  static int HowMany();

  double m_x;
  double m_y;
  double m_z;

 private:
  static int m_nObject;

 public:
};

ZEPH_API CZEPHVector3 operator+(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API CZEPHVector3 operator-(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API CZEPHVector3 operator-(const CZEPHVector3& a);
ZEPH_API CZEPHVector3 operator*(const double& s, const CZEPHVector3& v);
ZEPH_API CZEPHVector3 operator*(const CZEPHVector3& v, const double& s);
ZEPH_API CZEPHVector3 operator/(const CZEPHVector3& v, const double& s);

ZEPH_API double operator*(const CZEPHVector3& a, const CZEPHVector3& b);

ZEPH_API CZEPHVector3 operator^(const CZEPHVector3& a, const CZEPHVector3& b);

ZEPH_API int operator==(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API int operator!=(const CZEPHVector3& a, const CZEPHVector3& b);

ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHVector3& v);

ZEPH_API CZEPHVector3 Bisect(CZEPHVector3 a, CZEPHVector3 b);

ZEPH_API void ZEPH_MathClamp(CZEPHVector3& v, const double& lo, const double& hi);

class ZEPH_API CZEPHVector2D {
 public:
  ZEPH_EMIT CZEPHVector2D() : x(0), y(0) {}

  ZEPH_EMIT CZEPHVector2D(float newX, float newY) : x(newX), y(newY) {}

  CZEPHVector2D(const float* p);

  ZEPH_EMIT CZEPHVector2D(const CZEPHVector2D& other) : x(other.x), y(other.y) {}

  ZEPH_EMIT virtual ~CZEPHVector2D() {}

  ZEPH_EMIT CZEPHVector2D& operator=(const CZEPHVector2D& other) {
    x = other.x;
    y = other.y;
    return *this;
  }

  ZEPH_EMIT float GetX() const { return x; }
  ZEPH_EMIT float GetY() const { return y; }

  ZEPH_EMIT void SetX(float value) { x = value; }
  ZEPH_EMIT void SetY(float value) { y = value; }

  ZEPH_EMIT void Set(float newX, float newY) {
    x = newX;
    y = newY;
  }

  CZEPHVector2D operator+(const CZEPHVector2D& other) const;
  CZEPHVector2D operator-(const CZEPHVector2D& other) const;

  CZEPHVector2D operator*(float s) const;

  CZEPHVector2D operator/(float s) const;

  CZEPHVector2D operator-() const;

  CZEPHVector2D operator+() const;

  void operator+=(const CZEPHVector2D& other);
  void operator-=(const CZEPHVector2D& other);
  void operator*=(float s);

  void operator/=(float s);

  int operator==(const CZEPHVector2D& other) const;

  int operator!=(const CZEPHVector2D& other) const;

  operator float*() const;
  operator const float*() const;

  float GetLength() const;

  float GetSquaredLength() const;

  void Normalize();

  CZEPHVector2D GetNormalized() const;

  CZEPHVector2D LinearInterpolate(const CZEPHVector2D& other, float factor) const;

  CZEPHVector2D QuadraticInterpolate(const CZEPHVector2D& middle, const CZEPHVector2D& end,
                                     float factor) const;

  float x;
  float y;
};

ZEPH_API CZEPHVector2D operator*(float s, const CZEPHVector2D& v);

class ZEPH_API CZEPHVector3D {
 public:
  ZEPH_EMIT CZEPHVector3D() : x(0), y(0), z(0) {}

  ZEPH_EMIT CZEPHVector3D(float newX, float newY, float newZ) : x(newX), y(newY), z(newZ) {}

  ZEPH_EMIT ZEPH_CHECKED CZEPHVector3D(const float* p)
      : x((ZEPH_REQUIRE_POINTER("CZEPHVector3D::CZEPHVector3D", p), p[0])), y(p[1]), z(p[2]) {}

  ZEPH_EMIT CZEPHVector3D(const CZEPHVector3D& other) : x(other.x), y(other.y), z(other.z) {}

  ZEPH_EMIT virtual ~CZEPHVector3D() {}

  ZEPH_EMIT CZEPHVector3D& operator=(const CZEPHVector3D& other) {
    x = other.x;
    y = other.y;
    z = other.z;
    return *this;
  }

  ZEPH_EMIT float GetX() const { return x; }
  ZEPH_EMIT float GetY() const { return y; }
  ZEPH_EMIT float GetZ() const { return z; }

  ZEPH_EMIT void SetX(float value) { x = value; }
  ZEPH_EMIT void SetY(float value) { y = value; }
  ZEPH_EMIT void SetZ(float value) { z = value; }

  ZEPH_EMIT void Set(float newX, float newY, float newZ) {
    x = newX;
    y = newY;
    z = newZ;
  }

  ZEPH_EMIT void LoadZero() { Set(0, 0, 0); }
  ZEPH_EMIT void LoadOne() { Set(1, 1, 1); }

  CZEPHVector3D operator+(const CZEPHVector3D& other) const;
  CZEPHVector3D operator-(const CZEPHVector3D& other) const;

  CZEPHVector3D operator*(float s) const;

  CZEPHVector3D operator/(float s) const;

  CZEPHVector3D operator-() const;

  CZEPHVector3D operator+() const;

  void operator+=(const CZEPHVector3D& other);
  void operator-=(const CZEPHVector3D& other);
  void operator*=(float s);

  void operator/=(float s);

  int operator==(const CZEPHVector3D& other) const;

  int operator!=(const CZEPHVector3D& other) const;

  operator float*() const;
  operator const float*() const;

  float GetLength() const;

  float GetSquaredLength() const;

  void Normalize();

  CZEPHVector3D GetNormalized() const;

  float DotProduct(const CZEPHVector3D& other) const;

  CZEPHVector3D CrossProduct(const CZEPHVector3D& other) const;

  void Add(const CZEPHVector3D& other, CZEPHVector3D& result);

  void Subtract(const CZEPHVector3D& other, CZEPHVector3D& result);

  CZEPHVector3D LinearInterpolate(const CZEPHVector3D& other, float factor) const;

  CZEPHVector3D QuadraticInterpolate(const CZEPHVector3D& middle, const CZEPHVector3D& end,
                                     float factor) const;

  void PackTo01();

  CZEPHVector3D GetPackedTo01() const;

  void RotateX(double angle);
  void RotateY(double angle);
  void RotateZ(double angle);
  CZEPHVector3D GetRotatedX(double angle) const;
  CZEPHVector3D GetRotatedY(double angle) const;
  CZEPHVector3D GetRotatedZ(double angle) const;

  void RotateAxis(double angle, const CZEPHVector3D& axis);
  CZEPHVector3D GetRotatedAxis(double angle, const CZEPHVector3D& axis) const;

  float x;
  float y;
  float z;
};

ZEPH_API CZEPHVector3D operator*(float s, const CZEPHVector3D& v);

class ZEPH_API CZEPHVector4D {
 public:
  ZEPH_EMIT CZEPHVector4D() : x(0), y(0), z(0), w(0) {}

  ZEPH_EMIT CZEPHVector4D(float newX, float newY, float newZ, float newW)
      : x(newX), y(newY), z(newZ), w(newW) {}

  ZEPH_EMIT ZEPH_CHECKED CZEPHVector4D(const float* p)
      : x((ZEPH_REQUIRE_POINTER("CZEPHVector4D::CZEPHVector4D", p), p[0])),
        y(p[1]),
        z(p[2]),
        w(p[3]) {}

  ZEPH_EMIT CZEPHVector4D(const CZEPHVector4D& other)
      : x(other.x), y(other.y), z(other.z), w(other.w) {}

  ZEPH_EMIT CZEPHVector4D(const CZEPHVector3D& v) : x(v.x), y(v.y), z(v.z), w(1) {}

  ZEPH_EMIT virtual ~CZEPHVector4D() {}

  ZEPH_EMIT CZEPHVector4D& operator=(const CZEPHVector4D& other) {
    x = other.x;
    y = other.y;
    z = other.z;
    w = other.w;
    return *this;
  }

  ZEPH_EMIT float GetX() const { return x; }
  ZEPH_EMIT float GetY() const { return y; }
  ZEPH_EMIT float GetZ() const { return z; }
  ZEPH_EMIT float GetW() const { return w; }

  ZEPH_EMIT void SetX(float value) { x = value; }
  ZEPH_EMIT void SetY(float value) { y = value; }
  ZEPH_EMIT void SetZ(float value) { z = value; }
  ZEPH_EMIT void SetW(float value) { w = value; }

  ZEPH_EMIT void Set(float newX, float newY, float newZ, float newW) {
    x = newX;
    y = newY;
    z = newZ;
    w = newW;
  }

  ZEPH_EMIT void LoadZero() { Set(0, 0, 0, 0); }
  ZEPH_EMIT void LoadOne() { Set(1, 1, 1, 1); }

  CZEPHVector4D operator+(const CZEPHVector4D& other) const;
  CZEPHVector4D operator-(const CZEPHVector4D& other) const;

  CZEPHVector4D operator*(float s) const;

  CZEPHVector4D operator/(float s) const;

  CZEPHVector4D operator-() const;

  CZEPHVector4D operator+() const;

  void operator+=(const CZEPHVector4D& other);
  void operator-=(const CZEPHVector4D& other);
  void operator*=(float s);

  void operator/=(float s);

  int operator==(const CZEPHVector4D& other) const;

  int operator!=(const CZEPHVector4D& other) const;

  operator float*() const;
  operator const float*() const;

  operator CZEPHVector3D();

  float DotProduct(const CZEPHVector4D& other);

  CZEPHVector4D LinearInterpolate(const CZEPHVector4D& other, float factor) const;

  CZEPHVector4D QuadraticInterpolate(const CZEPHVector4D& middle, const CZEPHVector4D& end,
                                     float factor) const;

  void RotateX(double angle);
  void RotateY(double angle);
  void RotateZ(double angle);
  CZEPHVector4D GetRotatedX(double angle) const;
  CZEPHVector4D GetRotatedY(double angle) const;
  CZEPHVector4D GetRotatedZ(double angle) const;

  void RotateAxis(double angle, const CZEPHVector3D& axis);
  CZEPHVector4D GetRotatedAxis(double angle, const CZEPHVector3D& axis) const;

  float x;
  float y;
  float z;
  float w;
};

ZEPH_API CZEPHVector4D operator*(float s, const CZEPHVector4D& v);

class ZEPH_API CZEPHVector3S {
 public:
  ZEPH_EMIT CZEPHVector3S() : x(0), y(0), z(0) {}
  CZEPHVector3S(const CZEPHVector3S&) = default;

  ZEPH_EMIT ~CZEPHVector3S() {}

  ZEPH_EMIT CZEPHVector3S& operator=(const CZEPHVector3S& other) {
    x = other.x;
    y = other.y;
    z = other.z;
    return *this;
  }

  float x;
  float y;
  float z;
};

ZEPH_API void ZEPH_AddVectors(CZEPHVector3S* a, CZEPHVector3S* b, CZEPHVector3S* out);

ZEPH_API void ZEPH_CopyVector(CZEPHVector3S* destination, CZEPHVector3S* source);

ZEPH_API void ZEPH_CrossVectors(CZEPHVector3S* a, CZEPHVector3S* b, CZEPHVector3S* out);

ZEPH_API float ZEPH_DotVectors(CZEPHVector3S* a, CZEPHVector3S* b);

ZEPH_API void ZEPH_ScaleVector(CZEPHVector3S* v, float s);

#include <cstring>

class ZEPH_API CZEPHMatrix4x4 {
 public:
  ZEPH_EMIT CZEPHMatrix4x4() { LoadIdentity(); }

  ZEPH_EMIT CZEPHMatrix4x4(const CZEPHMatrix4x4& other) {
    std::memcpy(entries, other.entries, sizeof entries);
  }

  ZEPH_EMIT CZEPHMatrix4x4(float e0, float e1, float e2, float e3, float e4, float e5, float e6,
                           float e7, float e8, float e9, float e10, float e11, float e12, float e13,
                           float e14, float e15)
      : entries{e0, e1, e2, e3, e4, e5, e6, e7, e8, e9, e10, e11, e12, e13, e14, e15} {}

  ZEPH_EMIT ZEPH_CHECKED CZEPHMatrix4x4(const float* p) {
    ZEPH_REQUIRE_POINTER("CZEPHMatrix4x4::CZEPHMatrix4x4", p);
    std::memcpy(entries, p, sizeof entries);
  }

  ZEPH_EMIT virtual ~CZEPHMatrix4x4() {}

  ZEPH_EMIT CZEPHMatrix4x4& operator=(const CZEPHMatrix4x4& other) {
    if (this != &other) std::memcpy(entries, other.entries, sizeof entries);
    return *this;
  }

  ZEPH_EMIT void LoadIdentity() {
    LoadZero();
    entries[0] = entries[5] = entries[10] = entries[15] = 1;
  }

  ZEPH_EMIT void LoadZero() {
    for (float& entry : entries) entry = 0;
  }

  ZEPH_EMIT void SetEntry(int index, float value) {
    if (index >= 0 && index < 16) entries[index] = value;
  }

  ZEPH_EMIT float GetEntry(int index) const {
    return index >= 0 && index < 16 ? entries[index] : 0.0f;
  }

  ZEPH_EMIT CZEPHVector4D GetRow(int index) const {
    if (index < 0 || index > 3) return CZEPHVector4D();
    return CZEPHVector4D(entries[index], entries[index + 4], entries[index + 8],
                         entries[index + 12]);
  }
  ZEPH_EMIT CZEPHVector4D GetColumn(int index) const {
    if (index < 0 || index > 3) return CZEPHVector4D();
    return CZEPHVector4D(entries + 4 * index);
  }

  operator float*() const;
  operator const float*() const;

  CZEPHMatrix4x4 operator+(const CZEPHMatrix4x4& other) const;
  CZEPHMatrix4x4 operator-(const CZEPHMatrix4x4& other) const;

  CZEPHMatrix4x4 operator-() const;

  CZEPHMatrix4x4 operator+() const;

  CZEPHMatrix4x4 operator*(float s) const;

  CZEPHMatrix4x4 operator/(float s) const;

  CZEPHMatrix4x4 operator*(const CZEPHMatrix4x4& other) const;

  CZEPHVector4D operator*(CZEPHVector4D v) const;

  void operator*=(const CZEPHMatrix4x4& other);
  void operator*=(float s);
  void operator+=(const CZEPHMatrix4x4& other);
  void operator-=(const CZEPHMatrix4x4& other);
  void operator/=(float s);

  int operator==(const CZEPHMatrix4x4& other) const;

  int operator!=(const CZEPHMatrix4x4& other) const;

  CZEPHVector3D GetRotatedVector3D(const CZEPHVector3D& v) const;
  void RotateVector3D(CZEPHVector3D& v) const;

  CZEPHVector3D GetInverseRotatedVector3D(const CZEPHVector3D& v) const;
  void InverseRotateVector3D(CZEPHVector3D& v) const;

  CZEPHVector3D GetTranslatedVector3D(const CZEPHVector3D& v) const;
  void TranslateVector3D(CZEPHVector3D& v) const;
  CZEPHVector3D GetInverseTranslatedVector3D(const CZEPHVector3D& v) const;
  void InverseTranslateVector3D(CZEPHVector3D& v) const;

  CZEPHMatrix4x4 GetTranspose() const;
  void Transpose();

  void SetTranslation(const CZEPHVector3D& v);

  void SetTranslationPart(const CZEPHVector3D& v);

  void SetScale(const CZEPHVector3D& v);
  void SetUniformScale(float s);

  void SetRotationX(double angle);
  void SetRotationY(double angle);
  void SetRotationZ(double angle);

  void SetRotationAxis(double angle, const CZEPHVector3D& axis);

  void SetRotationPartEuler(double angleX, double angleY, double angleZ);

  void SetRotationPartEuler(const CZEPHVector3D& angles);

  void SetRotationEuler(double angleX, double angleY, double angleZ);

  void SetPerspective(float left, float right, float bottom, float top, float near, float far);

  void SetPerspective(float fovy, float aspect, float near, float far);

  void SetOrtho(float left, float right, float bottom, float top, float near, float far);

  CZEPHMatrix4x4 GetInverseTranspose() const;

  CZEPHMatrix4x4 GetInverse() const;
  void InvertTranspose();
  void Invert();

  CZEPHMatrix4x4 GetAffineInverse() const;

  CZEPHMatrix4x4 GetAffineInverseTranspose() const;
  void AffineInvert();
  void AffineInvertTranspose();

  float entries[16];
};

ZEPH_API double ZEPH_MathAbs(const double& x);

ZEPH_API void ZEPH_MathClamp(double& v, const double& lo, const double& hi);

ZEPH_API double ZEPH_MathClamped(const double& v, const double& lo, const double& hi);

ZEPH_API void ZEPH_MathConvertToDeg(double& v);

ZEPH_API void ZEPH_MathConvertToRad(double& v);

ZEPH_API double ZEPH_MathDegToRad(const double& v);

ZEPH_API double ZEPH_MathRadToDeg(const double& v);

ZEPH_API int ZEPH_MathGetRightMostDigit(int n);

ZEPH_API void ZEPH_MathIntegerDivision(int a, int b, int& quotient, int& remainder);

ZEPH_API double ZEPH_MathRoundOff(double value, int places);

ZEPH_API int ZEPH_RoundOffToInt(double x);

ZEPH_API int ZEPH_MathGetScientificNotationBase(double value, char digits);

ZEPH_API double ZEPH_MathGetScientificNotationValue(double value, int exponent);

ZEPH_API CString ZEPH_MathToScientificNotation(double value, int& exponent, double& mantissa,
                                               char digits, char decimals);

ZEPH_API void ZEPH_MathGetExponent(double& value, double ignored, int exponent);

ZEPH_API void ZEPH_MathRandomInit();

ZEPH_API int ZEPH_MathRandom(int n);

ZEPH_API double ZEPH_MathRandom(double lo, double hi);

ZEPH_API void ZEPH_MathRandomSeed(unsigned seed);

ZEPH_API int ZEPH_MathIsPortable();

#ifdef ZEPH_PORTABLE_MATH

#else

#endif

#include <cstdio>

class ZEPH_API CZEPHPermutation {
 public:
  CZEPHPermutation();

  CZEPHPermutation(const CZEPHPermutation& other);
  virtual ~CZEPHPermutation();

  CZEPHPermutation& operator=(const CZEPHPermutation& other);

  static int Run(char* s, int k, int n, FILE* f);

  static int Run(char* s, int k, int n, CString& out);

  static int Run(int* s, int k, int n, FILE* f);

  static int Run(int* s, int k, int n, CString& out);

  static int Test1(FILE* f);
};

#include <cstdio>

class ZEPH_API CZEPHIntegralSearch {
 public:
  CZEPHIntegralSearch();

  CZEPHIntegralSearch(const CZEPHIntegralSearch& other);
  virtual ~CZEPHIntegralSearch();

  CZEPHIntegralSearch& operator=(const CZEPHIntegralSearch& other);

  static int SequentialSearch(int* a, int n, int key);

  static int BinarySearch(int* a, int n, int key);

  static int BinarySearch(int* a, int low, int high, int key);

  static int Test1(FILE* f);

 protected:
  static char Compare(int x, int y);
};

#include <cstdio>

class ZEPH_API CZEPHSelectionSort {
 public:
  CZEPHSelectionSort(FILE* f = stdout);

  CZEPHSelectionSort(const CZEPHSelectionSort& other);
  virtual ~CZEPHSelectionSort();

  CZEPHSelectionSort& operator=(const CZEPHSelectionSort& other);

  static int Run(int* a, int n);

  static int Run(double* a, int n);

  static int Test1(int n, FILE* f);
};

class ZEPH_API CZEPHSortTester {
 public:
  enum SORT_METHOD_TYPE : int { SELECTION_SORT = 0 };

  CZEPHSortTester();

  CZEPHSortTester(const CZEPHSortTester& other);
  virtual ~CZEPHSortTester();

  static int Randomize(int* a, int n, int sign);

  static int Randomize(double* a, int n, int sign);

  static int Run(SORT_METHOD_TYPE method, int n, FILE* f);
};

#include <cstdio>

class ZEPH_API CZEPHDSTimer {
 public:
  CZEPHDSTimer();
  CZEPHDSTimer(const CZEPHDSTimer& other);
  virtual ~CZEPHDSTimer();

  CZEPHDSTimer& operator=(const CZEPHDSTimer& other);

  void Start();

  long Stop();

  long GetProcessTime();

  void Begin();

  long End();

  static int Test1(long ms, FILE* f);

  ZEPH_TimeOfDay start;
  ZEPH_TimeOfDay stop;
  int elapsed;
};

#endif  // ZEPH_TESTS_HEADERS_DOCUMENTED_H
