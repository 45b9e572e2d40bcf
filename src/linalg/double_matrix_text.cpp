// SPDX-License-Identifier: MIT
//
// Text output and input of the double matrix.
#include "linalg.h"
#include "linalg/row_table.h"
#include "platform/live_blocks.h"
#include "platform/stream_number.h"
#include "platform/stream_reader.h"

using namespace zeph::linalg;
using zeph::platform::Number;

void CZEPHDoubleMatrix::Display(std::ostream& os) {
  const int rows = StoredRows(m_ppData, m_nRows);
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < m_nColumns; ++j)
      os << "Mat[" << i << "][" << j << "]=" << Number{m_ppData[i][j]} << std::endl;
}

std::ostream& operator<<(std::ostream& os, const CZEPHDoubleMatrix& a) {
  const int rows = StoredRows(a.m_ppData, a.m_nRows);
  zeph::platform::StreamWriter out(os);
  for (int i = 0; i < rows; ++i) {
    for (int j = 0; j < a.m_nColumns; ++j) out.Real(a.m_ppData[i][j]);
    out.EndLine();
  }
  return os;
}

namespace {

/// Hardened builds check that blocks allocated by the library have room for the counts that a
/// stream announces.
void RequireRoom([[maybe_unused]] const CZEPHDoubleMatrix& a) {
#ifdef ZEPH_HARDENED
  const char* const operation = "operator>>(CZEPHDoubleMatrix)";
  zeph::platform::LiveBlock table, row;
  if (a.m_nColumns < 1 || !zeph::platform::FindBlock(a.m_ppData, table)) return;
  if (a.m_nRows > table.count) ZEPH_StopOutside(operation, "rows", a.m_nRows, 0, table.count);
  for (int i = 0; i < a.m_nRows; ++i)
    if (zeph::platform::FindBlock(a.m_ppData[i], row) && a.m_nColumns > row.count)
      ZEPH_StopOutside(operation, "columns", a.m_nColumns, 0, row.count);
#endif
}

/// Whether both counts and all elements could be read.
bool ReadInto(CZEPHDoubleMatrix& a, std::istream& is) {
  bool good = static_cast<bool>(is >> a.m_nRows);
  good = static_cast<bool>(is >> a.m_nColumns) && good;
  if (good) RequireRoom(a);
  zeph::platform::StreamReader in(is);
  for (int i = 0; good && i < a.m_nRows; ++i) {
    double* const row = a.m_ppData ? a.m_ppData[i] : nullptr;
    for (int j = 0; good && j < a.m_nColumns; ++j) good = row && in.Read(row[j]);
  }
  return good;
}

}  // namespace

std::istream& operator>>(std::istream& is, CZEPHDoubleMatrix& a) {
  bool good = false;
  try {
    good = ReadInto(a, is);
  } catch (...) {  // a failing stream may throw
    a.m_nRows = a.m_nColumns = 0;
    throw;
  }
  if (!good) a.m_nRows = a.m_nColumns = 0;
  return is;
}
