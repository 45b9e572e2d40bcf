// SPDX-License-Identifier: MIT
#include "platform.h"

#ifndef ZEPH_USE_MFC

CWinApp::CWinApp(const char* appName) : m_pszAppName(appName) {}
CWinApp::~CWinApp() = default;

#endif  // ZEPH_USE_MFC
