// SPDX-License-Identifier: MIT
#include "peers/graphics_glm.h"

namespace glm_library {

glm::mat4 Product(const glm::mat4& a, const glm::mat4& b) {
  return a * b;
}
glm::vec4 Product(const glm::mat4& a, const glm::vec4& v) {
  return a * v;
}
glm::mat4 Inverse(const glm::mat4& a) {
  return glm::inverse(a);
}
glm::vec3 Normalized(const glm::vec3& v) {
  return glm::normalize(v);
}
glm::vec3 Cross(const glm::vec3& a, const glm::vec3& b) {
  return glm::cross(a, b);
}
float Dot(const glm::vec3& a, const glm::vec3& b) {
  return glm::dot(a, b);
}

}  // namespace glm_library
