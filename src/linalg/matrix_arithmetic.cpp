// SPDX-License-Identifier: MIT
#include "frame/fatal_report.h"
#include "kernels/few.h"
#include "linalg.h"
#include "linalg/row_table.h"
#include "platform/exactness.h"

using namespace zeph::linalg;

void CZEPHMatrix::Check(bool failed, char* message) {
  if (failed) ZEPH_REQUIRE_POINTER("CZEPHMatrix::Check", message);
  zeph::frame::Check(failed, message);
}

CZEPHMatrix CZEPHMatrix::operator+(const CZEPHMatrix& other) {
  if (m_nRows != other.m_nRows || m_nColumns != other.m_nColumns)
    zeph::frame::Check(true, "Addition error (Not of the same size)");
  CZEPHMatrix sum(m_nRows, m_nColumns);
  const int added = Combine<zeph::kernels::Add>(sum.m_ppData, other.m_ppData, m_ppData, sum.m_nRows,
                                                sum.m_nColumns);
  Fill(sum.m_ppData, added, sum.m_nRows, sum.m_nColumns, 0.0);
  return sum;
}

CZEPHMatrix CZEPHMatrix::operator*(const CZEPHMatrix& other) {
  if (m_nColumns != other.m_nRows) zeph::frame::Check(true, "Multiplication error!(size)");
  CZEPHMatrix product(m_nRows, other.m_nColumns);
  Multiply(product.m_ppData, m_ppData, other.m_ppData, product.m_nRows, m_nColumns,
           product.m_nColumns);
  return product;
}
