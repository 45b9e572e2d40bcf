// SPDX-License-Identifier: MIT
#include "platform/refusal.h"

#include <stdexcept>
#include <string>

namespace zeph::platform {

void RefuseIndex(const char* operation, std::int64_t index, std::int64_t last) {
  const std::string what = std::string(operation) + ": index " + std::to_string(index);
  throw std::out_of_range(what + (last < 0 ? " is refused: there are no elements"
                                           : " is outside 0.." + std::to_string(last)));
}

void RefuseLength(const char* type, std::int64_t most) {
  throw std::length_error(std::string(type) + ": a text has at most " + std::to_string(most) +
                          " characters");
}

void Refuse(const char* operation, const char* reason) {
  throw std::out_of_range(std::string(operation) + ": " + reason);
}

}  // namespace zeph::platform
