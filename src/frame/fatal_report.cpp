// SPDX-License-Identifier: MIT
#include "frame/fatal_report.h"

#include <cstdlib>
#include <iostream>

#include "platform/standard_streams.h"

namespace zeph::frame {

void FatalReport(const char* message, std::ostream& os) {
  platform::HoldStandardStreams();
  os << "@@@@( Error: " << message << "\n";
  std::exit(1);
}

void Check(bool failed, const char* message) {
  if (!failed) return;
  platform::HoldStandardStreams();
  std::cerr << message << std::endl;
  std::exit(1);
}

}  // namespace zeph::frame
