// SPDX-License-Identifier: MIT
//
/// @file
/// The objects of the framework: what collections point to, memory exceptions, module objects.
//
// CObject           the polymorphic base of everything that collections point to
// CMemoryException  what an application's allocator may throw, by pointer, on exhaustion
// CWinApp           base of the library's module object
//
// With ZEPH_USE_MFC defined the framework's own classes are used and none of ours is declared.
#ifndef ZEPH_PLATFORM_OBJECT_H
#define ZEPH_PLATFORM_OBJECT_H

#include "macros.h"

#ifdef ZEPH_USE_MFC
#include <afx.h>
#include <afxcoll.h>
#include <afxwin.h>
#else

/// The polymorphic base of the objects that collections point to. Objects have an identity, so they
/// cannot be copied.
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
///       char text[80];
///       e->GetErrorMessage(text, sizeof text);
///       e->Delete();
///     }
class ZEPH_API CMemoryException : public CObject {
 public:
  CMemoryException();
  ~CMemoryException() override;

  /// Writes "Out of memory." into `text`, cut to `size` characters with the closing zero included.
  ///
  /// Sets `*helpContext`, where given, to 0. Returns 1, or 0 when `text` is null or `size` is 0.
  ///
  ///     char text[8];
  ///     CMemoryException e;
  ///     e.GetErrorMessage(text, sizeof text);  // 1
  ///     CString(text);                         // "Out of "
  virtual int GetErrorMessage(char* text, unsigned size, unsigned* helpContext = nullptr) const;

  /// Releases the exception object, which is on the heap; the handler calls it once.
  void Delete();
};

/// The application or library as one object; the base of the library's module object.
///
///     CWinApp app("viewer");
///     app.m_pszAppName;  // "viewer"
class ZEPH_API CWinApp : public CObject {
 public:
  /// Keeps `appName` as it is, without a copy; null for none.
  explicit CWinApp(const char* appName = nullptr);
  ~CWinApp() override;

  const char* m_pszAppName;  ///< The name given to the constructor, or null.
};

#endif  // ZEPH_USE_MFC

#endif  // ZEPH_PLATFORM_OBJECT_H
