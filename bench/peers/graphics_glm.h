// SPDX-License-Identifier: MIT
//
// GLM's operations behind a shared library's boundary, as a program has them that keeps its
// arithmetic in one place.
#ifndef ZEPH_BENCH_PEERS_GRAPHICS_GLM_H
#define ZEPH_BENCH_PEERS_GRAPHICS_GLM_H

#include <glm/glm.hpp>

#include "peers/graphics_plain.h"

namespace glm_library {

ZEPH_PEER glm::mat4 Product(const glm::mat4& a, const glm::mat4& b);
ZEPH_PEER glm::vec4 Product(const glm::mat4& a, const glm::vec4& v);
ZEPH_PEER glm::mat4 Inverse(const glm::mat4& a);
ZEPH_PEER glm::vec3 Normalized(const glm::vec3& v);
ZEPH_PEER glm::vec3 Cross(const glm::vec3& a, const glm::vec3& b);
ZEPH_PEER float Dot(const glm::vec3& a, const glm::vec3& b);

}  // namespace glm_library

#endif  // ZEPH_BENCH_PEERS_GRAPHICS_GLM_H
