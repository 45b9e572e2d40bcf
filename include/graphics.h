// SPDX-License-Identifier: MIT
//
// graphics.h -- single-precision vectors and the 4x4 transform matrix.
#ifndef ZEPH_GRAPHICS_H
#define ZEPH_GRAPHICS_H

#include "platform.h"

#endif  // ZEPH_GRAPHICS_H
