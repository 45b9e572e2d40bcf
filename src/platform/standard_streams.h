// SPDX-License-Identifier: MIT
//
// The standard library's own streams, ready to be written to.
#ifndef ZEPH_SRC_PLATFORM_STANDARD_STREAMS_H
#define ZEPH_SRC_PLATFORM_STANDARD_STREAMS_H

#include <ios>

namespace zeph::platform {

/// Called before std::cout or std::cerr is used. In a static library this may be the constructor of a
/// static object, before any source that includes <iostream> has set the streams up.
inline void HoldStandardStreams() {
  static const std::ios_base::Init held;
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_STANDARD_STREAMS_H
