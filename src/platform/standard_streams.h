// SPDX-License-Identifier: MIT
//
// Initialises the standard library's streams.
#ifndef ZEPH_SRC_PLATFORM_STANDARD_STREAMS_H
#define ZEPH_SRC_PLATFORM_STANDARD_STREAMS_H

#include <ios>

namespace zeph::platform {

/// Must be called before std::cout or std::cerr is used. In a static library the caller may be the
/// constructor of a static object, before any source that includes <iostream> has initialised the
/// streams.
inline void HoldStandardStreams() {
  static const std::ios_base::Init held;
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_STANDARD_STREAMS_H
