// SPDX-License-Identifier: MIT
#include <Eigen/Dense>

#include "peers/native_geometry.h"

namespace zeph::native_geometry {
namespace {

using Vector = Eigen::Vector3d;
using Matrix = Eigen::Matrix4d;

const Vector* Of(const double* p) {
  return reinterpret_cast<const Vector*>(p);
}
Vector* Of(double* p) {
  return reinterpret_cast<Vector*>(p);
}

}  // namespace

void Products(double* out, const double* a, const double* m, std::size_t n) {
  const Matrix by = Eigen::Map<const Matrix>(m);
  for (std::size_t i = 0; i < n; ++i)
    Eigen::Map<Matrix>(out + 16 * i).noalias() = by * Eigen::Map<const Matrix>(a + 16 * i);
}
void Normalise(double* out, const double* v, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) Of(out)[i] = Of(v)[i].normalized();
}
void Dot(double* out, const double* a, const double* b, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = Of(a)[i].dot(Of(b)[i]);
}
void Cross(double* out, const double* a, const double* b, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) Of(out)[i] = Of(a)[i].cross(Of(b)[i]);
}
void Bounds(double* box, const double* v, std::size_t n) {
  Vector low = *Of(v), high = low;
  for (std::size_t i = 1; i < n; ++i) {
    low = low.cwiseMin(Of(v)[i]);
    high = high.cwiseMax(Of(v)[i]);
  }
  Of(box)[0] = low;
  Of(box)[1] = high;
}

}  // namespace zeph::native_geometry
