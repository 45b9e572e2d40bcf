// SPDX-License-Identifier: MIT
//
/// @file
/// Dense double matrices and vectors.
//
//   linalg/double_matrix.h  CZEPHDoubleMatrix: a value with checked access; misuse ends the process
//   linalg/matrix.h         CZEPHMatrix: resizable, unchecked access, products, columns;
//                           CZEPHVector: the columns and sums of general matrices;
//                           ZEPH_SumVector, ZEPH_RandomizeMatrix, ZEPH_GetVector*
//   linalg/matrix4.h        CZEPHMatrix4: 16 doubles by columns, live objects counted
//   linalg/vector3.h        CZEPHVector3: 3 doubles, live objects counted; Bisect;
//                           ZEPH_MathClamp of a vector
//
// The first three are dense, own their storage and copy it deeply. A matrix keeps a table of row
// pointers and each row as a block of its own, so `m[i][j]` is element (i, j) and a row is a
// contiguous `double*`; rows do not follow each other in memory. The last two are small values.
//
// Storage can be absent while the counts are not 0: after Clear or Free, and after an allocation
// that failed. Operations on whole objects then still compare and pass on the counts, and find no
// element to read, write or print; elements that would have come from there are 0.0 in new storage.
//
// Threads: any number may work on different objects; callers serialise the use of one object.
#ifndef ZEPH_LINALG_H
#define ZEPH_LINALG_H

#include "linalg/double_matrix.h"
#include "linalg/matrix.h"
#include "linalg/matrix4.h"
#include "linalg/vector3.h"

#endif  // ZEPH_LINALG_H
