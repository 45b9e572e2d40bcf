// SPDX-License-Identifier: MIT
#include <cstdio>

#include "platform.h"

#ifndef ZEPH_USE_MFC

CMemoryException::CMemoryException() = default;
CMemoryException::~CMemoryException() = default;

int CMemoryException::GetErrorMessage(char* text, unsigned size, unsigned* helpContext) const {
  if (helpContext) *helpContext = 0;
  if (!text || size == 0) return 0;
  std::snprintf(text, size, "%s", "Out of memory.");
  return 1;
}

void CMemoryException::Delete() {
  delete this;
}

#endif  // ZEPH_USE_MFC
