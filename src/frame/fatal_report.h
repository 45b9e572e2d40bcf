// SPDX-License-Identifier: MIT
//
// The two ways in which the library ends its process.
#ifndef ZEPH_SRC_FRAME_FATAL_REPORT_H
#define ZEPH_SRC_FRAME_FATAL_REPORT_H

#include <ostream>

namespace zeph::frame {

/// Writes "@@@@( Error: ", the message and a line feed to `os`, then `exit(1)`.
[[noreturn]] void FatalReport(const char* message, std::ostream& os);

/// If `failed`, writes the bare message and a flushed line end to standard error, then `exit(1)`.
void Check(bool failed, const char* message);

}  // namespace zeph::frame

#endif  // ZEPH_SRC_FRAME_FATAL_REPORT_H
