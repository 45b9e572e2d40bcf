// SPDX-License-Identifier: MIT
//
// Arrays of 3-vectors: lengths, products and boxes, in both precisions.
#include "batch.h"
#include "batch/arrays.h"
#include "kernels/batch.h"
#include "platform/exactness.h"

namespace zeph::batch {
namespace {

using kernels::Active;

const kernels::Vectors<float>& Kernels(const float*) {
  return Active().batch->floats;
}
const kernels::Vectors<double>& Kernels(const double*) {
  return Active().batch->doubles;
}

float* First(CZEPHVector3D* v) {
  return &v->x;
}
const float* First(const CZEPHVector3D* v) {
  return &v->x;
}
double* First(CZEPHVector3* v) {
  return &v->m_x;
}
const double* First(const CZEPHVector3* v) {
  return &v->m_x;
}

template <class V>
void Normalize(const V* vectors, V* out, int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER("ZEPH_BatchNormalize", vectors);
  RequireOut("ZEPH_BatchNormalize", vectors, out, n);
  Kernels(First(out)).normalise(First(out), First(vectors), sizeof *out, Count(n));
}

template <class V, class T>
void Dot(const V* a, const V* b, T* out, int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER("ZEPH_BatchDot", a);
  ZEPH_REQUIRE_POINTER("ZEPH_BatchDot", b);
  ZEPH_REQUIRE_POINTER("ZEPH_BatchDot", out);
  ZEPH_REQUIRE("ZEPH_BatchDot", !Overlap(a, out, n) && !Overlap(b, out, n),
               "out overlaps an input");
  Kernels(out).dot(out, First(a), First(b), sizeof *a, Count(n));
}

template <class V>
void Cross(const V* a, const V* b, V* out, int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER("ZEPH_BatchCross", a);
  RequireOut("ZEPH_BatchCross", a, out, n);
  ZEPH_REQUIRE_POINTER("ZEPH_BatchCross", b);
  RequireOut("ZEPH_BatchCross", b, out, n);
  Kernels(First(out)).cross(First(out), First(a), First(b), sizeof *out, Count(n));
}

/// The kernels do not tell 0.0 and -0.0 apart: where a bound is zero, it is the first zero in the
/// array.
template <class V, class T>
void TakeFirstZeros(T* bound, const V* points, int n) {
  for (int c = 0; c < 3; ++c)
    if (bound[c] == T(0)) {
      int i = 0;
      while (i < n - 1 && !(First(points + i)[c] == T(0))) ++i;
      bound[c] = First(points + i)[c];
    }
}

template <class V, class T>
int Bounds(const V* points, int n, V& low, V& high, T first) {
  if (n < 1) return 0;
  ZEPH_REQUIRE_POINTER("ZEPH_BatchBounds", points);
  const T* p = First(points);
  T least[3] = {p[0], p[1], p[2]}, greatest[3] = {p[0], p[1], p[2]};
  Kernels(&first).bounds(least, greatest, p, sizeof *points, Count(n));
  TakeFirstZeros(least, points, n);
  TakeFirstZeros(greatest, points, n);
  for (int c = 0; c < 3; ++c) First(&low)[c] = least[c];
  for (int c = 0; c < 3; ++c) First(&high)[c] = greatest[c];
  return 1;
}

}  // namespace
}  // namespace zeph::batch

void ZEPH_BatchNormalize(const CZEPHVector3D* vectors, CZEPHVector3D* out, int n) {
  zeph::batch::Normalize(vectors, out, n);
}
void ZEPH_BatchNormalize(const CZEPHVector3* vectors, CZEPHVector3* out, int n) {
  zeph::batch::Normalize(vectors, out, n);
}

void ZEPH_BatchDot(const CZEPHVector3D* a, const CZEPHVector3D* b, float* out, int n) {
  zeph::batch::Dot(a, b, out, n);
}
void ZEPH_BatchDot(const CZEPHVector3* a, const CZEPHVector3* b, double* out, int n) {
  zeph::batch::Dot(a, b, out, n);
}

void ZEPH_BatchCross(const CZEPHVector3D* a, const CZEPHVector3D* b, CZEPHVector3D* out, int n) {
  zeph::batch::Cross(a, b, out, n);
}
void ZEPH_BatchCross(const CZEPHVector3* a, const CZEPHVector3* b, CZEPHVector3* out, int n) {
  zeph::batch::Cross(a, b, out, n);
}

int ZEPH_BatchBounds(const CZEPHVector3D* points, int n, CZEPHVector3D& low, CZEPHVector3D& high) {
  return zeph::batch::Bounds(points, n, low, high, 0.0f);
}
int ZEPH_BatchBounds(const CZEPHVector3* points, int n, CZEPHVector3& low, CZEPHVector3& high) {
  return zeph::batch::Bounds(points, n, low, high, 0.0);
}
