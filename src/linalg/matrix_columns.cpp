// SPDX-License-Identifier: MIT
//
// Columns and row sums as vectors, random fill.
#include <algorithm>
#include <cstddef>

#include "kernels/row_sums.h"
#include "linalg.h"
#include "linalg/row_table.h"
#include "platform/exactness.h"

using zeph::linalg::StoredRows;

namespace {

/// A vector of one element per row for what `fill` writes; 0.0 for rows that are not there.
template <class Fill>
CZEPHVector VectorOfRows(const CZEPHMatrix& m, Fill fill) {
  CZEPHVector out(m.m_nRows);
  for (int i = StoredRows(m.m_ppData, m.m_nRows); i < out.m_nSize; ++i) out.m_pData[i] = 0.0;
  fill(out);
  return out;
}

}  // namespace

CZEPHVector CZEPHMatrix::PickCol(int j) {
  return VectorOfRows(*this, [&](CZEPHVector& out) { PickCol(j, out); });
}

void CZEPHMatrix::PickCol(int j, CZEPHVector& out) {
  if (!out.m_pData) return;
  const int rows = StoredRows(m_ppData, m_nRows);
  for (int i = 0; i < rows; ++i) out.m_pData[i] = m_ppData[i][j];
}

void CZEPHMatrix::SetCol(int j, CZEPHVector& v) {
  if (!v.m_pData) return;
  const int rows = StoredRows(m_ppData, m_nRows);
  for (int i = 0; i < rows; ++i) m_ppData[i][j] = v.m_pData[i];
}

CZEPHVector ZEPH_SumVector(CZEPHMatrix& m) {
  return VectorOfRows(m, [&](CZEPHVector& out) { ZEPH_SumVector(m, out); });
}

void ZEPH_SumVector(CZEPHMatrix& m, CZEPHVector& out) {
  if (!out.m_pData) return;
  zeph::kernels::ActiveRowSums().sum(out.m_pData, m.m_ppData,
                                     static_cast<std::size_t>(StoredRows(m.m_ppData, m.m_nRows)),
                                     static_cast<std::size_t>(std::max(m.m_nColumns, 0)));
}
