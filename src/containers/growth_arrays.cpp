// SPDX-License-Identifier: MIT
#include "containers.h"

CZEPHUIntArray::CZEPHUIntArray() : m_nGrowthSize(-1) {}
CZEPHUIntArray::~CZEPHUIntArray() = default;
void CZEPHUIntArray::SetGrowthSize(int n) {
  m_nGrowthSize = n;
}
void CZEPHUIntArray::SetSize(int n) {
  CUIntArray::SetSize(n, m_nGrowthSize);
}

CZEPHWordArray::CZEPHWordArray() : m_nGrowthSize(-1) {}
CZEPHWordArray::~CZEPHWordArray() = default;
void CZEPHWordArray::SetGrowthSize(int n) {
  m_nGrowthSize = n;
}
void CZEPHWordArray::SetSize(int n) {
  CWordArray::SetSize(n, m_nGrowthSize);
}
