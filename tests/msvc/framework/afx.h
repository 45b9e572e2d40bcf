// Declarations of the framework's classes as our platform headers describe them, so that the
// sources compile with ZEPH_USE_MFC here as well. Written from include/platform; nothing is
// defined, and no program can be linked.
#ifndef ZEPH_TESTS_MSVC_FRAMEWORK_AFX_H
#define ZEPH_TESTS_MSVC_FRAMEWORK_AFX_H

#include <cstddef>

// The framework's headers include the system's names and macros.
using BOOL = int;
using UINT = unsigned int;
using WORD = unsigned short;
using INT_PTR = std::ptrdiff_t;
#define near
#define far
#define small char
#ifndef NOMINMAX
#define min(a, b) ((a) < (b) ? (a) : (b))
#define max(a, b) ((a) > (b) ? (a) : (b))
#endif

class CObject {
 public:
  virtual ~CObject() = default;

 protected:
  CObject() = default;

 private:
  CObject(const CObject&);
  void operator=(const CObject&);
};

class CString {
 public:
  CString();
  CString(const CString& other);
  CString(const char* text);
  ~CString();
  CString& operator=(const CString& other);
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
  void Format(const char* format, ...);
  void AppendFormat(const char* format, ...);

  CString Left(int count) const;
  CString Right(int count) const;
  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  int Find(const char* text, int start = 0) const;
  int Find(char c, int start = 0) const;

 private:
  char* m_pszData;
};

class CException : public CObject {
 public:
  virtual BOOL GetErrorMessage(char* text, UINT size, UINT* helpContext = nullptr) const;
  void Delete();
};
class CMemoryException : public CException {};

#endif  // ZEPH_TESTS_MSVC_FRAMEWORK_AFX_H
