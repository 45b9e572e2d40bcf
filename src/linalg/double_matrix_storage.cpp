// SPDX-License-Identifier: MIT
//
// Storage, fill, copy and access of the double matrix.
#include <algorithm>
#include <iostream>
#include <utility>

#include "frame/fatal_report.h"
#include "linalg.h"
#include "linalg/row_table.h"
#include "platform/allocation.h"

using namespace zeph::linalg;

CZEPHDoubleMatrix::CZEPHDoubleMatrix(const CZEPHDoubleMatrix& other) : CZEPHDoubleMatrix() {
  SetData(other);
}

CZEPHDoubleMatrix::CZEPHDoubleMatrix(int rows, int cols, double value) : CZEPHDoubleMatrix() {
  SetData(rows, cols, value);
}

CZEPHDoubleMatrix::CZEPHDoubleMatrix(int rows, int cols, double** source) : CZEPHDoubleMatrix() {
  SetData(rows, cols, source);
}

CZEPHDoubleMatrix::~CZEPHDoubleMatrix() {
  FreeMemory();
}

void CZEPHDoubleMatrix::Clear() {
  FreeMemory();
}

int CZEPHDoubleMatrix::AllocMemory(int rows, int cols) {
  // Releases the rows below both counts: the new count is the documented bound, the old one the end
  // of the table.
  const int releasable = std::min(m_nRows, rows);
  m_nRows = rows;
  m_nColumns = cols;
  return zeph::platform::OnExhaustion(0, [&] {
    if (m_ppData) {
      ReleaseRows(m_ppData, releasable);
      ReleaseTable(m_ppData);
      m_ppData = nullptr;
    }
    m_ppData = NewTable(rows);
    NewRows(m_ppData, rows, cols);
    return 1;
  });
}

void CZEPHDoubleMatrix::FreeMemory() {
  if (!m_ppData) return;
  ReleaseRows(m_ppData, m_nRows);
  ReleaseTable(m_ppData);
  m_ppData = nullptr;
}

int CZEPHDoubleMatrix::Create(int rows, int cols) {
  return SetData(rows, cols, 0.0);
}

int CZEPHDoubleMatrix::SetData(const CZEPHDoubleMatrix& other) {
  if (this == &other && m_ppData) return 1;
  if (AllocMemory(other.m_nRows, other.m_nColumns) != 1) return 0;
  CopyOrZero(m_ppData, other.m_ppData, m_nRows, m_nColumns);
  return 1;
}

int CZEPHDoubleMatrix::SetData(int rows, int cols, double value) {
  if (AllocMemory(rows, cols) != 1) return 0;
  Fill(m_ppData, 0, rows, cols, value);
  return 1;
}

int CZEPHDoubleMatrix::SetData(int rows, int cols, double** source) {
  // Where `source` lies in this matrix's table or contains its rows, these are kept until they are
  // copied; then the rows that AllocMemory would have released are released. Rows past the new
  // count are never released.
  CZEPHDoubleMatrix held;
  const int releasable = std::min(m_nRows, rows);
  if (ReadsFrom(source, rows, cols, m_ppData, m_nRows, releasable, m_nColumns)) {
    std::swap(held.m_ppData, m_ppData);
    held.m_nRows = releasable;
  }
  if (AllocMemory(rows, cols) != 1) return 0;
  CopyOrZero(m_ppData, source, rows, cols);
  return 1;
}

void CZEPHDoubleMatrix::SetEntry(double value) {
  Fill(m_ppData, 0, StoredRows(m_ppData, m_nRows), m_nColumns, value);
}

int CZEPHDoubleMatrix::CheckBound(int i, int j) {
  if (!m_ppData || i < 0 || i > m_nRows || j < 0 || j > m_nColumns)
    zeph::frame::FatalReport("Matrix check bound error!\n", std::cout);
  return 1;
}

CZEPHDoubleMatrix& CZEPHDoubleMatrix::operator=(const CZEPHDoubleMatrix& other) {
  if (this == &other) return *this;
  if (m_ppData && m_nRows != 0 && m_nColumns != 0) {
    if (m_nRows != other.m_nRows || m_nColumns != other.m_nColumns)
      zeph::frame::FatalReport("Bad matrix sizes in CZEPHDoubleMatrix::operator=()", std::cout);
    Copy(m_ppData, other.m_ppData, m_nRows, m_nColumns);
  } else {
    AllocMemory(other.m_nRows, other.m_nColumns);
    CopyOrZero(m_ppData, other.m_ppData, m_nRows, m_nColumns);
  }
  return *this;
}

void CZEPHDoubleMatrix::ErrorMessage(char* message, std::ostream& os) {
  ZEPH_REQUIRE_POINTER("CZEPHDoubleMatrix::ErrorMessage", message);
  zeph::frame::FatalReport(message, os);
}
