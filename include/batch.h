// SPDX-License-Identifier: MIT
//
/// @file
/// Our additions: the operations of the small classes on whole arrays of objects.
//
//   by one matrix     ZEPH_BatchTransformPoints, ZEPH_BatchTransformDirections,
//                     ZEPH_BatchTransformVectors, ZEPH_BatchMultiply
//   about an axis     ZEPH_BatchRotateAxis
//   of vectors        ZEPH_BatchNormalize, ZEPH_BatchDot, ZEPH_BatchCross, ZEPH_BatchBounds
//
// A program that loops over an array of vectors pays for a call on each. These functions take one
// call for all of them, and work on eight or sixteen objects at a time where the processor can.
// Every result has the bits that the named call on the single object gives; where two NaN meet, it
// is unspecified, there and here, which of them is the result.
//
//     std::vector<CZEPHVector3D> points = ...;
//     CZEPHMatrix4x4 m;
//     m.SetRotationAxis(30, CZEPHVector3D(0, 0, 1));
//     ZEPH_BatchTransformPoints(m, points.data(), points.data(), int(points.size()));
//
// Conventions, the same everywhere in this header:
//
//   - `n` is the number of objects in each array. Below 1 nothing is read or written, and pointers
//     may be null.
//   - Arrays need no alignment beyond their elements'. `out` may be the very array that is read
//     (its first object the first one read). Any other overlap of `out` with an array that is read
//     is an error: hardened builds stop there, other builds do not check and leave unspecified
//     elements. A matrix or axis is read before anything is written and may lie anywhere.
//   - The objects of `out` exist already; their components are overwritten. Nothing is constructed,
//     so that the counts of live CZEPHMatrix4 and CZEPHVector3 objects stay.
//   - Nothing is allocated, thrown or reported. Floating-point exceptions are raised as the single
//     calls raise them, and the host's rounding and denormal modes apply.
//   - Any number of threads may work on arrays of their own at once.
//   - The cost is linear: from a fraction of a nanosecond to a few nanoseconds an object, depending
//     on the class and the processor; above a few thousand objects memory bandwidth sets the pace.
#ifndef ZEPH_BATCH_H
#define ZEPH_BATCH_H

#include "graphics.h"
#include "linalg/matrix4.h"
#include "linalg/vector3.h"

// --- by one matrix -------------------------------------------------------------------------------

/// Points: out[i] = CZEPHVector3D(m * CZEPHVector4D(points[i])).
///
/// That is the product with (x, y, z, 1), divided by its w unless w is exactly 0 or 1; an affine
/// matrix leaves w at 1 and never divides.
///
///     CZEPHMatrix4x4 m;
///     m.SetTranslation(CZEPHVector3D(0, 0, 5));
///     CZEPHVector3D v[2] = {CZEPHVector3D(1, 2, 3), CZEPHVector3D(4, 5, 6)};
///     ZEPH_BatchTransformPoints(m, v, v, 2);
///     v[1];  // (4, 5, 11)
ZEPH_API void ZEPH_BatchTransformPoints(const CZEPHMatrix4x4& m, const CZEPHVector3D* points,
                                        CZEPHVector3D* out, int n);

/// Directions: out[i] = m.GetRotatedVector3D(directions[i]). The translation is ignored.
///
///     CZEPHMatrix4x4 m;
///     m.SetUniformScale(2);
///     const CZEPHVector3D v[2] = {CZEPHVector3D(1, 2, 3), CZEPHVector3D(4, 5, 6)};
///     CZEPHVector3D out[2];
///     ZEPH_BatchTransformDirections(m, v, out, 2);
///     out[1];  // (8, 10, 12)
ZEPH_API void ZEPH_BatchTransformDirections(const CZEPHMatrix4x4& m,
                                            const CZEPHVector3D* directions, CZEPHVector3D* out,
                                            int n);

/// Homogeneous vectors: out[i] = m * vectors[i]. An affine matrix copies w.
///
///     CZEPHMatrix4x4 m;
///     m.SetTranslation(CZEPHVector3D(0, 0, 5));
///     CZEPHVector4D v[] = {CZEPHVector4D(1, 2, 3, 0), CZEPHVector4D(1, 2, 3, 1)};
///     ZEPH_BatchTransformVectors(m, v, v, 2);
///     v[0];  // (1, 2, 3, 0)
///     v[1];  // (1, 2, 8, 1)
ZEPH_API void ZEPH_BatchTransformVectors(const CZEPHMatrix4x4& m, const CZEPHVector4D* vectors,
                                         CZEPHVector4D* out, int n);

/// Products: out[i] = m * matrices[i]; in place this puts `m` in front of each of them.
///
///     CZEPHMatrix4x4 m, all[3];
///     m.SetUniformScale(2);
///     ZEPH_BatchMultiply(m, all, all, 3);
///     all[2] == m;  // 1
ZEPH_API void ZEPH_BatchMultiply(const CZEPHMatrix4x4& m, const CZEPHMatrix4x4* matrices,
                                 CZEPHMatrix4x4* out, int n);
ZEPH_API void ZEPH_BatchMultiply(const CZEPHMatrix4& m, const CZEPHMatrix4* matrices,
                                 CZEPHMatrix4* out, int n);

// --- about an axis -------------------------------------------------------------------------------

/// Rotations by `angle` degrees: out[i] = vectors[i].GetRotatedAxis(angle, axis). Sine and cosine
/// are taken once. An angle of exactly 0 gives exact copies.
///
///     CZEPHVector3D v[] = {CZEPHVector3D(1, 0, 0), CZEPHVector3D(0, 0, 2)};
///     ZEPH_BatchRotateAxis(180, CZEPHVector3D(0, 0, 1), v, v, 2);
///     v[1];  // (0, 0, 2)
ZEPH_API void ZEPH_BatchRotateAxis(double angle, const CZEPHVector3D& axis,
                                   const CZEPHVector3D* vectors, CZEPHVector3D* out, int n);

// --- of vectors ----------------------------------------------------------------------------------

/// out[i] = vectors[i].GetNormalized(): lengths of exactly 0 and 1 leave a vector alone.
///
///     CZEPHVector3D v[] = {CZEPHVector3D(0, 0, -2), CZEPHVector3D()};
///     ZEPH_BatchNormalize(v, v, 2);
///     v[0];  // (0, 0, -1)
///     v[1];  // (0, 0, 0)
ZEPH_API void ZEPH_BatchNormalize(const CZEPHVector3D* vectors, CZEPHVector3D* out, int n);
/// out[i] = vectors[i].Normalized(): the null vector becomes three NaN.
ZEPH_API void ZEPH_BatchNormalize(const CZEPHVector3* vectors, CZEPHVector3* out, int n);

/// out[i] = a[i].DotProduct(b[i]). `out` overlaps neither array.
///
///     const CZEPHVector3D a[] = {CZEPHVector3D(1, 2, 3), CZEPHVector3D(1, 0, 0)};
///     float out[2];
///     ZEPH_BatchDot(a, a, out, 2);  // out is (14, 1)
ZEPH_API void ZEPH_BatchDot(const CZEPHVector3D* a, const CZEPHVector3D* b, float* out, int n);
/// out[i] = a[i] * b[i]. `out` overlaps neither array.
ZEPH_API void ZEPH_BatchDot(const CZEPHVector3* a, const CZEPHVector3* b, double* out, int n);

/// out[i] = a[i].CrossProduct(b[i]). `a` and `b` may overlap as they like; `out` may be one of
/// them.
///
///     const CZEPHVector3D x[] = {CZEPHVector3D(1, 0, 0)}, y[] = {CZEPHVector3D(0, 1, 0)};
///     CZEPHVector3D out[1];
///     ZEPH_BatchCross(x, y, out, 1);
///     out[0];  // (0, 0, 1)
ZEPH_API void ZEPH_BatchCross(const CZEPHVector3D* a, const CZEPHVector3D* b, CZEPHVector3D* out,
                              int n);
/// out[i] = a[i] ^ b[i]. `a` and `b` may overlap as they like; `out` may be one of them.
ZEPH_API void ZEPH_BatchCross(const CZEPHVector3* a, const CZEPHVector3* b, CZEPHVector3* out,
                              int n);

/// Stores the corners of the bounding box of n points and returns 1; for `n` < 1 only returns 0.
///
/// Each component of `low` starts as the first point's and is replaced by every later one that is
/// strictly below it; `high` likewise, strictly above it. So a NaN in the first point stays, any
/// other is skipped, and of zeros of both signs the first is kept. `low` and `high` may be among
/// the points: they are written last, `high` after `low`.
///
///     CZEPHVector3D low, high;
///     ZEPH_BatchBounds(points.data(), int(points.size()), low, high);
ZEPH_API int ZEPH_BatchBounds(const CZEPHVector3D* points, int n, CZEPHVector3D& low,
                              CZEPHVector3D& high);
ZEPH_API int ZEPH_BatchBounds(const CZEPHVector3* points, int n, CZEPHVector3& low,
                              CZEPHVector3& high);

#endif  // ZEPH_BATCH_H
