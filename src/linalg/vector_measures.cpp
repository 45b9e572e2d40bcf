// SPDX-License-Identifier: MIT
//
// Positions of extremes and norms.
#include <cstddef>

#include "kernels/largest_magnitude.h"
#include "linalg.h"
#include "platform/exactness.h"

namespace {

int StoredSize(const CZEPHVector& v) {
  return v.m_pData ? v.m_nSize : 0;
}

/// The first element that no later one exceeds in the given order.
template <class Beats>
int Site(const CZEPHVector& v, Beats beats) {
  int best = 0;
  for (int i = 1; i < StoredSize(v); ++i)
    if (beats(v.m_pData[i], v.m_pData[best])) best = i;
  return best;
}

}  // namespace

int ZEPH_GetVectorMaxSite(CZEPHVector& v) {
  return Site(v, [](double x, double best) { return x > best; });
}

int ZEPH_GetVectorMinSite(CZEPHVector& v) {
  return Site(v, [](double x, double best) { return best > x; });
}

double ZEPH_GetVectorSquareNorm(CZEPHVector& v) {
  double sum = 0.0;
  for (int i = 0; i < StoredSize(v); ++i) sum += v.m_pData[i] * v.m_pData[i];
  return sum;
}

double ZEPH_GetVectorInfititeNorm(CZEPHVector& v) {
  if (StoredSize(v) < 1) return 0.0;
  return zeph::kernels::Active().magnitudes->largest(v.m_pData,
                                                     static_cast<std::size_t>(v.m_nSize));
}
