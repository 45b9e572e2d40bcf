// See afx.h.
#ifndef ZEPH_TESTS_MSVC_FRAMEWORK_AFXWIN_H
#define ZEPH_TESTS_MSVC_FRAMEWORK_AFXWIN_H

#include "afx.h"

class CWinApp : public CObject {
 public:
  explicit CWinApp(const char* appName = nullptr);
  ~CWinApp() override;

  const char* m_pszAppName;
};

#endif  // ZEPH_TESTS_MSVC_FRAMEWORK_AFXWIN_H
