// SPDX-License-Identifier: MIT
#include <iomanip>
#include <iostream>

#include "linalg.h"
#include "linalg/cell_writer.h"
#include "linalg/row_table.h"
#include "platform/standard_streams.h"
#include "platform/stream_number.h"

using namespace zeph::linalg;

void CZEPHMatrix::Display(std::FILE* stream, char separator) {
  if (!stream) return;
  CellWriter writer(stream, separator);
  const int rows = StoredRows(m_ppData, m_nRows);
  for (int i = 0; i < rows; ++i) writer.Line(m_ppData[i], m_nColumns);
  writer.Line(nullptr, 0);
  writer.Flush();
}

void CZEPHMatrix::Display() {
  zeph::platform::HoldStandardStreams();
  std::cout.setf(std::ios_base::right | std::ios_base::fixed | std::ios_base::showpoint);
  std::cout.precision(4);
  const int rows = StoredRows(m_ppData, m_nRows);
  for (int i = 0; i < rows; ++i) {
    for (int j = 0; j < m_nColumns; ++j)
      std::cout << std::setw(10) << zeph::platform::Number{m_ppData[i][j]} << " ";
    std::cout << std::endl;
  }
}
