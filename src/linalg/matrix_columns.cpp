// SPDX-License-Identifier: MIT
//
// Columns and row sums as vectors, random fill.
#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>

#include "linalg.h"
#include "linalg/row_table.h"
#include "parallel/rows.h"
#include "platform/exactness.h"

using namespace zeph::linalg;

namespace {

/// A vector with one element per row, written by `fill`; 0.0 for missing rows.
template <class Fill>
CZEPHVector VectorOfRows(const CZEPHMatrix& m, Fill fill) {
  CZEPHVector out(m.m_nRows);
  for (int i = StoredRows(m.m_ppData, m.m_nRows); i < out.m_nSize; ++i) out.m_pData[i] = 0.0;
  fill(out);
  return out;
}

/// Hardened builds require a column of the matrix, if it has rows.
void RequireColumn([[maybe_unused]] const char* operation, [[maybe_unused]] const CZEPHMatrix& m,
                   int rows, [[maybe_unused]] int j) {
  if (rows > 0) ZEPH_REQUIRE_INSIDE(operation, j, 0, m.m_nColumns - 1);
}

}  // namespace

CZEPHVector CZEPHMatrix::PickCol(int j) {
  return VectorOfRows(*this, [&](CZEPHVector& out) { PickCol(j, out); });
}

void CZEPHMatrix::PickCol(int j, CZEPHVector& out) {
  if (!out.m_pData) return;
  const int rows = StoredRows(m_ppData, m_nRows);
  RequireColumn("CZEPHMatrix::PickCol", *this, rows, j);
  ZEPH_REQUIRE_INSIDE("CZEPHMatrix::PickCol", out.m_nSize, rows, INT_MAX);
  for (int i = 0; i < rows; ++i) out.m_pData[i] = m_ppData[i][j];
}

void CZEPHMatrix::SetCol(int j, CZEPHVector& v) {
  if (!v.m_pData) return;
  const int rows = StoredRows(m_ppData, m_nRows);
  RequireColumn("CZEPHMatrix::SetCol", *this, rows, j);
  ZEPH_REQUIRE_INSIDE("CZEPHMatrix::SetCol", v.m_nSize, rows, INT_MAX);
  for (int i = 0; i < rows; ++i) m_ppData[i][j] = v.m_pData[i];
}

CZEPHVector ZEPH_SumVector(CZEPHMatrix& m) {
  return VectorOfRows(m, [&](CZEPHVector& out) { ZEPH_SumVector(m, out); });
}

void ZEPH_SumVector(CZEPHMatrix& m, CZEPHVector& out) {
  if (!out.m_pData) return;
  const int rows = StoredRows(m.m_ppData, m.m_nRows);
  ZEPH_REQUIRE_INSIDE(__func__, out.m_nSize, rows, INT_MAX);
  namespace parallel = zeph::parallel;
  const std::size_t count = static_cast<std::size_t>(rows);
  const std::size_t cols = static_cast<std::size_t>(std::max(m.m_nColumns, 0));
  parallel::SumsOfRows(zeph::kernels::Active().row_sums->sum,
                       parallel::ThreadsFor(std::uint64_t{count} * cols, parallel::kPassPays),
                       out.m_pData, m.m_ppData, count, cols);
}
