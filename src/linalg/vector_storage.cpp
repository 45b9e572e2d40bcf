// SPDX-License-Identifier: MIT
#include <algorithm>

#include "kernels/few.h"
#include "linalg.h"
#include "platform/allocation.h"

namespace {

/// Fills fresh storage from `from`, or with 0.0 where that is null.
void CopyOrZero(CZEPHVector& to, const double* from) {
  if (from)
    zeph::kernels::Copy(to.m_pData, from, static_cast<std::size_t>(to.m_nSize));
  else
    zeph::kernels::Fill(to.m_pData, 0.0, static_cast<std::size_t>(to.m_nSize));
}

}  // namespace

CZEPHVector::CZEPHVector(int n)
    : m_nSize(n >= 1 ? n : 0), m_pData(n >= 1 ? zeph::platform::NewArray<double>(n) : nullptr) {}

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
  } else if (m_nSize > 0 && m_pData && other.m_pData) {
    zeph::kernels::Copy(m_pData, other.m_pData, static_cast<std::size_t>(m_nSize));
  }
  return *this;
}
