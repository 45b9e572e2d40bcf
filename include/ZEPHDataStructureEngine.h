// SPDX-License-Identifier: MIT
//
/// @file
/// Every public header of the library.
#ifndef ZEPH_ZEPHDATASTRUCTUREENGINE_H
#define ZEPH_ZEPHDATASTRUCTUREENGINE_H

#include "algorithms.h"
#include "batch.h"
#include "containers.h"
#include "double_array.h"
#include "frame.h"
#include "graphics.h"
#include "linalg.h"
#include "parallel.h"
#include "platform.h"
#include "raw_buffers.h"

#endif  // ZEPH_ZEPHDATASTRUCTUREENGINE_H
