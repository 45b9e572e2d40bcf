// SPDX-License-Identifier: MIT
#include "platform.h"

#ifndef ZEPH_USE_MFC

CObject::CObject() = default;
CObject::~CObject() = default;

#endif  // ZEPH_USE_MFC
