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
/// One instance exists for each time the shared library is loaded: made while it loads, without a
/// name, and destroyed while it unloads. It starts nothing, and no operation of the library reads
/// it. (A program linked with the static library holds that instance only if it uses this class.)
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
