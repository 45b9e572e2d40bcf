// SPDX-License-Identifier: MIT
#include "frame/fatal_report.h"

#include <cstdlib>
#include <iostream>

namespace zeph::frame {

void FatalReport(const char* message, std::ostream& os) {
  os << "@@@@( Error: " << message << "\n";
  std::exit(1);
}

void Check(bool failed, const char* message) {
  if (!failed) return;
  std::cerr << message << std::endl;
  std::exit(1);
}

}  // namespace zeph::frame
