// SPDX-License-Identifier: MIT
#include "linalg.h"
#include "linalg/row_table.h"
#include "platform/exactness.h"
#include "platform/random.h"

using namespace zeph::linalg;

void ZEPH_RandomizeMatrix(CZEPHMatrix& m, double scale) {
  const int rows = StoredRows(m.m_ppData, m.m_nRows);
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < m.m_nColumns; ++j)
      m.m_ppData[i][j] = zeph::platform::NextRandom() * scale / 32767.0;
}
