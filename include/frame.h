// SPDX-License-Identifier: MIT
//
// frame.h -- the library's module object.
#ifndef ZEPH_FRAME_H
#define ZEPH_FRAME_H

#include "platform.h"

#endif  // ZEPH_FRAME_H
