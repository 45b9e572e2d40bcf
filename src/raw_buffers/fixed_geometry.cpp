// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "kernels/overlap.h"
#include "platform/degrees.h"
#include "platform/exactness.h"
#include "raw_buffers.h"

namespace zeph::raw_buffers {
namespace {

constexpr int k3 = 3;
constexpr int k4 = 4;
constexpr double kSnapTolerance = 1.0e-8;

/// 0.0 for a value within the tolerance, bounds included; NaN is kept.
double Snapped(double s) {
  return std::fabs(s) <= kSnapTolerance ? 0.0 : s;
}

/// Snapped after every partial sum, not only at the end.
double SnappedEntry(const double* row, const double (*b)[k3], int j) {
  double s = Snapped(0.0 + row[0] * b[0][j]);
  s = Snapped(s + row[1] * b[1][j]);
  return Snapped(s + row[2] * b[2][j]);
}

/// Row i of the 4x4 product.
void Row4(const double* a, const double* b, double* out) {
  for (int j = 0; j < k4; ++j)
    out[j] = a[0] * b[j] + a[1] * b[k4 + j] + a[2] * b[2 * k4 + j] + a[3] * b[3 * k4 + j];
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;
using zeph::platform::SinCosDegrees;

void ZEPH_MatrixSet3(double m[3][3], double m00, double m01, double m02, double m10, double m11,
                     double m12, double m20, double m21, double m22) {
  ZEPH_REQUIRE_POINTER(__func__, m);
  m[0][0] = m00, m[0][1] = m01, m[0][2] = m02;
  m[1][0] = m10, m[1][1] = m11, m[1][2] = m12;
  m[2][0] = m20, m[2][1] = m21, m[2][2] = m22;
}

void ZEPH_MatrixSetIdentity(double* const m) {
  ZEPH_REQUIRE_POINTER(__func__, m);
  std::fill_n(m, k4 * k4, 0.0);
  for (int i = 0; i < k4; ++i) m[i * k4 + i] = 1.0;
}

void ZEPH_MatrixMultiply3(double a[3][3], double b[3][3], double out[3][3]) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  ZEPH_REQUIRE_POINTER(__func__, out);
  double product[3][3];
  for (int i = 0; i < k3; ++i)
    for (int j = 0; j < k3; ++j) product[i][j] = SnappedEntry(a[i], b, j);
  std::memcpy(out, product, sizeof product);
}

void ZEPH_MatrixMult4(double* const a, double* const b, double* const out) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  ZEPH_REQUIRE_POINTER(__func__, out);
  constexpr std::size_t kCells = k4 * k4;
  if (zeph::kernels::Overlap(out, kCells, a, kCells) ||
      zeph::kernels::Overlap(out, kCells, b, kCells)) {
    // Overlap is not allowed, but keeping the documented order of stores costs nothing.
    for (int i = 0; i < k4; ++i) Row4(a + k4 * i, b, out + k4 * i);
    return;
  }
  // No overlap: a row in registers, its four entries side by side, each in its own order.
  for (int i = 0; i < k4; ++i) {
    double row[k4];
    Row4(a + k4 * i, b, row);
    std::copy_n(row, k4, out + k4 * i);
  }
}

void ZEPH_MatrixRotate3X(double m[3][3], double angle) {
  ZEPH_REQUIRE_POINTER(__func__, m);
  const auto [si, co] = SinCosDegrees(angle);
  double turn[3][3];
  ZEPH_MatrixSet3(turn, 1.0, 0.0, 0.0, 0.0, co, -si, 0.0, si, co);
  ZEPH_MatrixMultiply3(m, turn, m);
}

void ZEPH_MatrixRotate3Y(double m[3][3], double angle) {
  ZEPH_REQUIRE_POINTER(__func__, m);
  const auto [si, co] = SinCosDegrees(angle);
  double turn[3][3];
  ZEPH_MatrixSet3(turn, co, 0.0, si, 0.0, 1.0, 0.0, -si, 0.0, co);
  ZEPH_MatrixMultiply3(m, turn, m);
}

void ZEPH_MatrixRotate3Z(double m[3][3], double angle) {
  ZEPH_REQUIRE_POINTER(__func__, m);
  const auto [si, co] = SinCosDegrees(angle);
  double turn[3][3];
  ZEPH_MatrixSet3(turn, co, -si, 0.0, si, co, 0.0, 0.0, 0.0, 1.0);
  ZEPH_MatrixMultiply3(m, turn, m);
}

void ZEPH_MatrixRotate3(double m[3][3], double ax, double ay, double az) {
  ZEPH_REQUIRE_POINTER(__func__, m);
  ZEPH_MatrixRotate3X(m, ax);
  ZEPH_MatrixRotate3Y(m, ay);
  ZEPH_MatrixRotate3Z(m, az);
}

void ZEPH_MatrixTransform3(double m[3][3], double* x, double* y, double* z) {
  ZEPH_REQUIRE_POINTER(__func__, m);
  ZEPH_REQUIRE_POINTER(__func__, x);
  ZEPH_REQUIRE_POINTER(__func__, y);
  ZEPH_REQUIRE_POINTER(__func__, z);
  const double x0 = *x, y0 = *y, z0 = *z;
  const double x1 = m[0][0] * x0 + m[0][1] * y0 + m[0][2] * z0;
  const double y1 = m[1][0] * x0 + m[1][1] * y0 + m[1][2] * z0;
  const double z1 = m[2][0] * x0 + m[2][1] * y0 + m[2][2] * z0;
  *x = x1;
  *y = y1;
  *z = z1;
}

void ZEPH_MatrixTranspose3(double m[3][3]) {
  ZEPH_REQUIRE_POINTER(__func__, m);
  for (int i = 0; i < k3; ++i)
    for (int j = i + 1; j < k3; ++j) std::swap(m[i][j], m[j][i]);
}
