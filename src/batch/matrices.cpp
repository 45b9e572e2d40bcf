// SPDX-License-Identifier: MIT
//
// Arrays by one matrix, and rotations about an axis.
#include <cstring>

#include "batch.h"
#include "batch/arrays.h"
#include "graphics/lanes.h"
#include "graphics/rotation.h"
#include "platform/exactness.h"

using zeph::batch::Count;
using zeph::batch::RequireOut;
using zeph::kernels::Active;

namespace {

/// A copy of a matrix's entries, which the output cannot overlap.
template <class T>
struct Entries {
  explicit Entries(const T* from) { std::memcpy(e, from, sizeof e); }
  T e[16];
};

/// The length of the run, within the first `n` matrices, that are affine or not as the first one
/// is; at most as many as fit into the first-level cache.
int AlikeFrom(const CZEPHMatrix4x4* m, int n) {
  constexpr int kAtMost = 64;
  if (n > kAtMost) n = kAtMost;
  const bool affine = zeph::graphics::IsAffine(m[0].entries);
  int alike = 1;
  while (alike < n && zeph::graphics::IsAffine(m[alike].entries) == affine) ++alike;
  return alike;
}

}  // namespace

void ZEPH_BatchTransformPoints(const CZEPHMatrix4x4& m, const CZEPHVector3D* points,
                               CZEPHVector3D* out, int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER(__func__, points);
  RequireOut(__func__, points, out, n);
  Entries<float> by(m.entries);
  const bool divide = !zeph::graphics::IsAffine(by.e);
  // The fourth terms, the same for all points. They are products too, so that denormals are flushed
  // where the host asks for it; the compiler must not fold them.
  const volatile float w = 1.0f;
  for (int i = 12; i < 16; ++i) by.e[i] *= w;
  Active().batch->points(&out->x, &points->x, sizeof *out, by.e, divide, Count(n));
}

void ZEPH_BatchTransformDirections(const CZEPHMatrix4x4& m, const CZEPHVector3D* directions,
                                   CZEPHVector3D* out, int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER(__func__, directions);
  RequireOut(__func__, directions, out, n);
  const Entries<float> by(m.entries);
  Active().batch->directions(&out->x, &directions->x, sizeof *out, by.e, Count(n));
}

void ZEPH_BatchTransformVectors(const CZEPHMatrix4x4& m, const CZEPHVector4D* vectors,
                                CZEPHVector4D* out, int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER(__func__, vectors);
  RequireOut(__func__, vectors, out, n);
  const Entries<float> by(m.entries);
  Active().batch->vectors(&out->x, &vectors->x, sizeof *out, by.e, zeph::graphics::IsAffine(by.e),
                          Count(n));
}

void ZEPH_BatchMultiply(const CZEPHMatrix4x4& m, const CZEPHMatrix4x4* matrices,
                        CZEPHMatrix4x4* out, int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER(__func__, matrices);
  RequireOut(__func__, matrices, out, n);
  const Entries<float> by(m.entries);
  const bool firstAffine = zeph::graphics::IsAffine(by.e);
  for (int i = 0; i < n;) {
    const int alike = AlikeFrom(matrices + i, n - i);
    Active().batch_products->floats(out[i].entries, matrices[i].entries, sizeof *out, by.e,
                                    firstAffine, zeph::graphics::IsAffine(matrices[i].entries),
                                    Count(alike));
    i += alike;
  }
}

void ZEPH_BatchMultiply(const CZEPHMatrix4& m, const CZEPHMatrix4* matrices, CZEPHMatrix4* out,
                        int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER(__func__, matrices);
  RequireOut(__func__, matrices, out, n);
  const Entries<double> by(m.m_data);
  Active().batch_products->doubles(out->m_data, matrices->m_data, sizeof *out, by.e, Count(n));
}

void ZEPH_BatchRotateAxis(double angle, const CZEPHVector3D& axis, const CZEPHVector3D* vectors,
                          CZEPHVector3D* out, int n) {
  if (n < 1) return;
  ZEPH_REQUIRE_POINTER(__func__, vectors);
  RequireOut(__func__, vectors, out, n);
  if (angle == 0.0) {
    for (int i = 0; i < n; ++i) out[i] = vectors[i];
    return;
  }
  const zeph::graphics::Rotation r = zeph::graphics::RotationAbout(axis, angle);
  const float e[16] = {r.r00, r.r10, r.r20, 0, r.r01, r.r11, r.r21, 0,
                       r.r02, r.r12, r.r22, 0, 0,     0,     0,     1};
  Active().batch->directions(&out->x, &vectors->x, sizeof *out, e, Count(n));
}
