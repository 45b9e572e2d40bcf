// SPDX-License-Identifier: MIT
#include "linalg.h"
#include "linalg/row_table.h"

using namespace zeph::linalg;

// Delegating to the default constructor makes the destructor release the storage allocated so far
// when memory runs out half-way.

CZEPHMatrix::CZEPHMatrix(int rows, int cols) : CZEPHMatrix() {
  Create(rows, cols);
}

CZEPHMatrix::CZEPHMatrix(int rows, int cols, const double* data) : CZEPHMatrix(rows, cols) {
  for (int i = 0; i < m_nRows; ++i)
    if (data)
      std::copy_n(data + static_cast<std::ptrdiff_t>(i) * cols, cols, m_ppData[i]);
    else
      std::fill_n(m_ppData[i], cols, 0.0);
}

CZEPHMatrix::CZEPHMatrix(CZEPHMatrix& other) : CZEPHMatrix(other.m_nRows, other.m_nColumns) {
  CopyOrZero(m_ppData, other.m_ppData, m_nRows, m_nColumns);
}

CZEPHMatrix::~CZEPHMatrix() {
  Free();
}

void CZEPHMatrix::Create(int rows, int cols) {
  Free();
  if (rows < 1 || cols < 1) rows = cols = 0;
  m_nRows = rows;
  m_nColumns = cols;
  if (rows < 1) return;
  m_ppData = NewTable(rows);
  NewRows(m_ppData, rows, cols);
}

void CZEPHMatrix::ReSize(int rows, int cols) {
  Create(rows, cols);
}

void CZEPHMatrix::Free() {
  if (!m_ppData) return;
  ReleaseRows(m_ppData, m_nRows);
  ReleaseTable(m_ppData);
  m_ppData = nullptr;
}

CZEPHMatrix CZEPHMatrix::operator=(const CZEPHMatrix& other) {
  if (m_nRows != other.m_nRows || m_nColumns != other.m_nColumns) {
    Create(other.m_nRows, other.m_nColumns);
    CopyOrZero(m_ppData, other.m_ppData, m_nRows, m_nColumns);
  } else {
    Copy(m_ppData, other.m_ppData, m_nRows, m_nColumns);
  }
  return *this;
}
