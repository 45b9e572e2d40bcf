// SPDX-License-Identifier: MIT
//
// linalg.h -- dense double matrices and vectors.
#ifndef ZEPH_LINALG_H
#define ZEPH_LINALG_H

#include "double_array.h"

#endif  // ZEPH_LINALG_H
