// SPDX-License-Identifier: MIT
#include <iomanip>
#include <iostream>

#include "linalg.h"
#include "linalg/cell_writer.h"
#include "platform/standard_streams.h"
#include "platform/stream_number.h"

using namespace zeph::linalg;

void CZEPHVector::Display(std::FILE* stream, char separator) {
  if (!stream) return;
  CellWriter writer(stream, separator);
  writer.Line(m_pData, m_pData ? m_nSize : 0);
  writer.Flush();
}

void CZEPHVector::Display() {
  zeph::platform::HoldStandardStreams();
  for (std::size_t i = 0; i < size(); ++i) {
    std::cout.setf(std::ios_base::right | std::ios_base::fixed | std::ios_base::showpoint);
    std::cout << std::setprecision(4) << std::setw(12) << zeph::platform::Number{m_pData[i]};
  }
  std::cout << std::endl;
}
