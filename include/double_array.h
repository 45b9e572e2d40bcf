// SPDX-License-Identifier: MIT
//
// double_array.h -- the dynamic array of doubles with its sorts, searches and norms.
#ifndef ZEPH_DOUBLE_ARRAY_H
#define ZEPH_DOUBLE_ARRAY_H

#include "frame.h"

#endif  // ZEPH_DOUBLE_ARRAY_H
