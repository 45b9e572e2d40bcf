// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHVector3S: a bare record of three floats, with its free functions.
#ifndef ZEPH_GRAPHICS_VECTOR3S_H
#define ZEPH_GRAPHICS_VECTOR3S_H

#include "../platform.h"

/// Three contiguous floats and nothing else: an array of three floats can be handled as one.
///
///     CZEPHVector3S a, b;
///     a.x = 1, a.y = 2, a.z = 3;
///     b = a;
///     b;  // (1, 2, 3)
class ZEPH_API CZEPHVector3S {
 public:
  /// (0, 0, 0).
  ZEPH_EMIT CZEPHVector3S() : x(0), y(0), z(0) {}
  CZEPHVector3S(const CZEPHVector3S&) = default;
  /// Does nothing.
  ZEPH_EMIT ~CZEPHVector3S() {}
  /// Copies the components.
  ZEPH_EMIT CZEPHVector3S& operator=(const CZEPHVector3S& other) {
    x = other.x;
    y = other.y;
    z = other.z;
    return *this;
  }

  float x;  ///< The first component.
  float y;  ///< The second component.
  float z;  ///< The third component.
};

// Functions on records. Pointers may be equal; components are written in x, y, z order, each before
// the next is computed, so an output that is also an input changes on the way. Null is not checked.

/// `out` = `a` + `b`.
///
///     CZEPHVector3S a, b, out;
///     a.x = 1, a.y = 2, a.z = 3, b.x = b.y = b.z = 1;
///     ZEPH_AddVectors(&a, &b, &out);  // out is (2, 3, 4)
ZEPH_API void ZEPH_AddVectors(CZEPHVector3S* a, CZEPHVector3S* b, CZEPHVector3S* out);
/// Copies `source` into `destination`: destination first.
///
///     CZEPHVector3S a, b, out;
///     a.x = 1, a.y = 2, a.z = 3, b.x = b.y = b.z = 1;
///     ZEPH_CopyVector(&out, &a);  // out is (1, 2, 3)
ZEPH_API void ZEPH_CopyVector(CZEPHVector3S* destination, CZEPHVector3S* source);
/// `out` = `a` x `b`. With `out` equal to `a` or `b` the y and z components use the new x (and y).
///
///     CZEPHVector3S a, b, out;
///     a.x = 1, a.y = 0, a.z = 0, b.x = 0, b.y = 1, b.z = 0;
///     ZEPH_CrossVectors(&a, &b, &out);  // out is (0, 0, 1)
ZEPH_API void ZEPH_CrossVectors(CZEPHVector3S* a, CZEPHVector3S* b, CZEPHVector3S* out);
/// (a.x * b.x + a.y * b.y) + a.z * b.z.
///
///     CZEPHVector3S a, b, out;
///     a.x = 1, a.y = 2, a.z = 3, b.x = b.y = b.z = 1;
///     ZEPH_DotVectors(&a, &b);  // 6
ZEPH_API float ZEPH_DotVectors(CZEPHVector3S* a, CZEPHVector3S* b);
/// Multiplies each component of `v` by `s`, in place.
///
///     CZEPHVector3S v;
///     v.x = 1, v.y = 2, v.z = 3;
///     ZEPH_ScaleVector(&v, 2);  // v is (2, 4, 6)
ZEPH_API void ZEPH_ScaleVector(CZEPHVector3S* v, float s);

#endif  // ZEPH_GRAPHICS_VECTOR3S_H
