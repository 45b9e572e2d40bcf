// SPDX-License-Identifier: MIT
#include <algorithm>

#include "linalg.h"
#include "platform/allocation.h"

namespace {

/// Fills fresh storage from `from`, or with 0.0 where that is not there.
void CopyOrZero(CZEPHVector& to, const double* from) {
  if (from)
    std::copy_n(from, to.m_nSize, to.m_pData);
  else
    std::fill_n(to.m_pData, to.m_nSize, 0.0);
}

}  // namespace

CZEPHVector::CZEPHVector(int n) : CZEPHVector() {
  Create(n);
}

CZEPHVector::CZEPHVector(int n, const double* data) : CZEPHVector(n) {
  CopyOrZero(*this, data);
}

CZEPHVector::CZEPHVector(CZEPHVector& other) : CZEPHVector(other.m_nSize, other.m_pData) {}

CZEPHVector::~CZEPHVector() {
  Free();
}

void CZEPHVector::Create(int n) {
  Free();
  m_nSize = n >= 1 ? n : 0;
  if (n >= 1) m_pData = zeph::platform::NewArray<double>(n);
}

void CZEPHVector::ReSize(int n) {
  Create(n);
}

void CZEPHVector::Free() {
  delete[] m_pData;
  m_pData = nullptr;
}

CZEPHVector CZEPHVector::operator=(const CZEPHVector& other) {
  if (m_nSize != other.m_nSize) {
    Create(other.m_nSize);
    CopyOrZero(*this, other.m_pData);
  } else if (m_pData != other.m_pData && m_pData && other.m_pData) {
    std::copy_n(other.m_pData, m_nSize, m_pData);
  }
  return *this;
}
