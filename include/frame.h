// SPDX-License-Identifier: MIT
//
/// @file
/// The library's module object.
//
//   CZEPHDataStructureEngineApp  stands for the loaded library; nothing in it is ever read
#ifndef ZEPH_FRAME_H
#define ZEPH_FRAME_H

#include "platform.h"

/// The library as an object of the framework.
///
/// One instance exists while the shared library is loaded: constructed, without a name, when it
/// loads and destroyed when it unloads. It starts nothing, and no operation of the library reads
/// it. (A program linked with the static library has that instance only if it uses this class.)
///
///     CZEPHDataStructureEngineApp module;
///     module.m_pszAppName == nullptr;  // 1
class ZEPH_API CZEPHDataStructureEngineApp : public CWinApp {
 public:
  /// A module object without a name.
  CZEPHDataStructureEngineApp();
  ~CZEPHDataStructureEngineApp() override;
};

#endif  // ZEPH_FRAME_H
