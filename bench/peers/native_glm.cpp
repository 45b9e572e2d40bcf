// SPDX-License-Identifier: MIT
#include <glm/glm.hpp>
#include <glm/gtc/matrix_transform.hpp>

#include "peers/native_geometry.h"

namespace zeph::native_geometry {
namespace {

using Vector = glm::vec3;

const Vector* Of(const float* p) {
  return reinterpret_cast<const Vector*>(p);
}
Vector* Of(float* p) {
  return reinterpret_cast<Vector*>(p);
}
const glm::mat4& Matrix(const float* p) {
  return *reinterpret_cast<const glm::mat4*>(p);
}

}  // namespace

void Points(float* out, const float* v, const float* m, std::size_t n) {
  const glm::mat4 by = Matrix(m);
  for (std::size_t i = 0; i < n; ++i) Of(out)[i] = Vector(by * glm::vec4(Of(v)[i], 1.0f));
}
void Directions(float* out, const float* v, const float* m, std::size_t n) {
  const glm::mat3 by(Matrix(m));
  for (std::size_t i = 0; i < n; ++i) Of(out)[i] = by * Of(v)[i];
}
void Vectors(float* out, const float* v, const float* m, std::size_t n) {
  const glm::mat4 by = Matrix(m);
  for (std::size_t i = 0; i < n; ++i)
    reinterpret_cast<glm::vec4*>(out)[i] = by * reinterpret_cast<const glm::vec4*>(v)[i];
}
void Products(float* out, const float* a, const float* m, std::size_t n) {
  const glm::mat4 by = Matrix(m);
  for (std::size_t i = 0; i < n; ++i)
    reinterpret_cast<glm::mat4*>(out)[i] = by * reinterpret_cast<const glm::mat4*>(a)[i];
}
void Normalise(float* out, const float* v, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) Of(out)[i] = glm::normalize(Of(v)[i]);
}
void Dot(float* out, const float* a, const float* b, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = glm::dot(Of(a)[i], Of(b)[i]);
}
void Cross(float* out, const float* a, const float* b, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) Of(out)[i] = glm::cross(Of(a)[i], Of(b)[i]);
}
void Rotate(float* out, const float* v, float degrees, const float* axis, std::size_t n) {
  const glm::mat3 by(glm::rotate(glm::mat4(1.0f), glm::radians(degrees), *Of(axis)));
  for (std::size_t i = 0; i < n; ++i) Of(out)[i] = by * Of(v)[i];
}
void Bounds(float* box, const float* v, std::size_t n) {
  Vector low = *Of(v), high = low;
  for (std::size_t i = 1; i < n; ++i) {
    low = glm::min(low, Of(v)[i]);
    high = glm::max(high, Of(v)[i]);
  }
  Of(box)[0] = low;
  Of(box)[1] = high;
}

}  // namespace zeph::native_geometry
