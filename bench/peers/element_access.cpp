// SPDX-License-Identifier: MIT
#include "peers/element_access.h"

namespace ZEPH_ACCESS {

double Sum(const CZEPHDoubleArray& a) {
  double sum = 0.0;
  for (int i = 0, n = a.GetSize(); i < n; ++i) sum += a[i];
  return sum;
}

void Scale(const CZEPHDoubleArray& a, CZEPHDoubleArray& b) {
  for (int i = 0, n = a.GetSize(); i < n; ++i) b[i] = a[i] * 2.0;
}

double Sum(CZEPHMatrix& m) {
  double sum = 0.0;
  for (int i = 0, rows = m.GetNoRow(); i < rows; ++i)
    for (int j = 0, columns = m.GetNoColumn(); j < columns; ++j) sum += m[i][j];
  return sum;
}

}  // namespace ZEPH_ACCESS
