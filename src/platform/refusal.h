// SPDX-License-Identifier: MIT
//
// The exceptions with which the stand-ins reject an argument.
#ifndef ZEPH_SRC_PLATFORM_REFUSAL_H
#define ZEPH_SRC_PLATFORM_REFUSAL_H

#include <cstdint>

namespace zeph::platform {

/// Throws std::out_of_range: "CObArray::GetAt: index 7 is outside 0..2", or, for a `last` below 0,
/// that there are no elements.
[[noreturn]] void RefuseIndex(const char* operation, std::int64_t index, std::int64_t last);

/// Throws std::length_error: "CString: a text has at most 2147483646 characters".
[[noreturn]] void RefuseLength(const char* type, std::int64_t most);

/// Throws std::out_of_range with "operation: reason".
[[noreturn]] void Refuse(const char* operation, const char* reason);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_REFUSAL_H
