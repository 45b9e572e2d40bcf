// SPDX-License-Identifier: MIT
//
// raw_buffers.h -- offset-indexed arrays, row-pointer matrices, fixed-size geometry, listings.
#ifndef ZEPH_RAW_BUFFERS_H
#define ZEPH_RAW_BUFFERS_H

#include "platform.h"

#endif  // ZEPH_RAW_BUFFERS_H
