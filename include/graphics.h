// SPDX-License-Identifier: MIT
//
/// @file
/// Single-precision vectors and the 4x4 transform matrix.
//
//   graphics/vector2d.h   CZEPHVector2D,
//   graphics/vector3d.h   CZEPHVector3D,
//   graphics/vector4d.h   CZEPHVector4D: float vectors with operators, lengths, interpolation and
//                         rotations
//   graphics/vector3s.h   CZEPHVector3S: a bare record of three floats, with its free functions:
//                         ZEPH_AddVectors, ZEPH_CopyVector, ZEPH_CrossVectors, ZEPH_DotVectors,
//                         ZEPH_ScaleVector
//   graphics/matrix4x4.h  CZEPHMatrix4x4: a column-major 4x4 transform: builders, product, vector
//                         transforms, inverses
//
// Conventions, the same in all of them:
//
//   - Angles are doubles in degrees. Radians are (angle * 3.141592653589793) / 180.0; sine and
//     cosine are taken in double and rounded to float (the Euler builder alone goes on in double).
//   - Rotations are right-handed: a positive angle turns counter-clockwise as seen from the tip of
//     the axis. A quarter turn about z takes (1, 0, 0) to (nearly 0, 1, 0).
//   - Vectors are columns and stand on the right: (A * B) * v applies B first.
//   - Storage is column-major: entry 4 * column + row. The translation is entries 12, 13, 14.
//   - Every operation on components is rounded to float, products and sums apart, and sums run left
//     to right in x, y, z, w order unless an entry says otherwise. So results are the same to the
//     last bit with every compiler and processor; those that take a sine, cosine or tangent depend
//     on the C runtime's, or with ZEPH_PORTABLE_MATH are the same everywhere too.
//   - Comparisons are exact. Nothing here allocates, prints, throws or reports an error, and
//     nothing is checked unless an entry says so: NaN and infinities follow the ordinary rules, and
//     null pointers must not be passed.
//   - Objects are plain values with a virtual destructor; distinct objects may be used by distinct
//     threads at once.
#ifndef ZEPH_GRAPHICS_H
#define ZEPH_GRAPHICS_H

#include "graphics/matrix4x4.h"
#include "graphics/vector2d.h"
#include "graphics/vector3d.h"
#include "graphics/vector3s.h"
#include "graphics/vector4d.h"

#endif  // ZEPH_GRAPHICS_H
