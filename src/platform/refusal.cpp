// SPDX-License-Identifier: MIT
#include "platform/refusal.h"

#include <stdexcept>
#include <string>

namespace zeph::platform {

void RefuseIndex(const char* operation, std::int64_t index, std::int64_t last) {
  throw std::out_of_range(std::string(operation) + ": index " + std::to_string(index) +
                          " is outside 0.." + std::to_string(last));
}

void Refuse(const char* operation, const char* reason) {
  throw std::out_of_range(std::string(operation) + ": " + reason);
}

}  // namespace zeph::platform
