// SPDX-License-Identifier: MIT
#include <cmath>

#include "platform/exactness.h"
#include "raw_buffers.h"

namespace {

constexpr int kComponents = 3;

}  // namespace

void ZEPH_VectorAdd3(double* const a, double* const b, double* const out) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  ZEPH_REQUIRE_POINTER(__func__, out);
  for (int k = 0; k < kComponents; ++k) out[k] = a[k] + b[k];
}

void ZEPH_VectorSub3(double* const a, double* const b, double* const out) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  ZEPH_REQUIRE_POINTER(__func__, out);
  for (int k = 0; k < kComponents; ++k) out[k] = a[k] - b[k];
}

void ZEPH_VectorScale3(double* const a, double s, double* const out) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, out);
  for (int k = 0; k < kComponents; ++k) out[k] = s * a[k];
}

void ZEPH_VectorAssign3(double* const src, double* const dst) {
  ZEPH_REQUIRE_POINTER(__func__, src);
  ZEPH_REQUIRE_POINTER(__func__, dst);
  for (int k = 0; k < kComponents; ++k) dst[k] = src[k];
}

void ZEPH_VectorAssign3(double* const v, double s) {
  ZEPH_VectorAssign3(v, s, s, s);
}

void ZEPH_VectorAssign3(double* const v, double x, double y, double z) {
  ZEPH_REQUIRE_POINTER(__func__, v);
  v[0] = x, v[1] = y, v[2] = z;
}

void ZEPH_VectorCrossProduct3(double* const a, double* const b, double* const out) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  ZEPH_REQUIRE_POINTER(__func__, out);
  out[0] = a[1] * b[2] - a[2] * b[1];
  out[1] = a[2] * b[0] - a[0] * b[2];
  out[2] = a[0] * b[1] - a[1] * b[0];
}

double ZEPH_VectorDotProduct3(double* const a, double* const b) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  return a[1] * b[1] + a[0] * b[0] + a[2] * b[2];
}

double ZEPH_VectorGetLength3(double* const v) {
  ZEPH_REQUIRE_POINTER(__func__, v);
  return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

void ZEPH_VectorNormalize3(double* const v) {
  ZEPH_REQUIRE_POINTER(__func__, v);
  const double length = ZEPH_VectorGetLength3(v);
  if (!(length > 0.0)) return;
  for (int k = 0; k < kComponents; ++k) v[k] /= length;
}
