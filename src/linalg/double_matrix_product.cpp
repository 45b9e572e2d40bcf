// SPDX-License-Identifier: MIT
//
// Products of the double matrix with matrices and arrays.
#include <algorithm>
#include <cstddef>
#include <iostream>

#include "frame/fatal_report.h"
#include "linalg.h"
#include "linalg/row_table.h"
#include "parallel/rows.h"
#include "platform/exactness.h"

using namespace zeph::linalg;

CZEPHDoubleMatrix& CZEPHDoubleMatrix::operator*=(const CZEPHDoubleMatrix& other) {
  if (m_nColumns != other.m_nRows)
    zeph::frame::FatalReport("Matrices are not conformable : CZEPHDoubleMatrix::operator*=()",
                             std::cout);
  CZEPHDoubleMatrix product;
  if (product.AllocMemory(m_nRows, other.m_nColumns) == 1)
    Multiply(product.m_ppData, m_ppData, other.m_ppData, product.m_nRows, m_nColumns,
             product.m_nColumns);
  else
    product.Clear();  // keeps the counts, which the assignment compares
  return *this = product;
}

CZEPHDoubleMatrix& operator*=(CZEPHDoubleMatrix& left, const CZEPHDoubleMatrix& other) {
  if (left.m_nColumns != other.m_nRows)
    zeph::frame::FatalReport("Matrices are not conformable : operator*=()", std::cout);
  return left.operator*=(other);
}

CZEPHDoubleArray CZEPHDoubleMatrix::operator*(const CZEPHDoubleArray& v) const {
  if (m_nColumns != v.size)
    zeph::frame::FatalReport("matrix and vector sizes do not match", std::cout);
  CZEPHDoubleArray result(m_nRows, static_cast<double*>(nullptr));
  if (!result.data) return result;
  int rows = 0;
  if (v.data) {
    rows = StoredRows(m_ppData, m_nRows);
    zeph::parallel::RowsTimesVector(result.data, m_ppData, v.data, static_cast<std::size_t>(rows),
                                    static_cast<std::size_t>(std::max(m_nColumns, 0)));
  }
  std::fill(result.data + rows, result.data + std::max(m_nRows, rows), 0.0);
  return result;
}
