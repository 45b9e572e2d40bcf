// SPDX-License-Identifier: MIT
#include "frame.h"

CZEPHDataStructureEngineApp::CZEPHDataStructureEngineApp() : CWinApp(nullptr) {}
CZEPHDataStructureEngineApp::~CZEPHDataStructureEngineApp() = default;

namespace {

[[maybe_unused]] CZEPHDataStructureEngineApp module_object;

}  // namespace
