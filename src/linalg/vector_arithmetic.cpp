// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "frame/fatal_report.h"
#include "linalg.h"
#include "platform/exactness.h"

namespace {

/// A new vector of op(x[i], y[i]); zeros where an operand has no storage.
template <class Op>
CZEPHVector Combined(const CZEPHVector& x, const CZEPHVector& y, Op op) {
  CZEPHVector out(x.m_nSize);
  if (x.m_pData && y.m_pData)
    std::transform(x.m_pData, x.m_pData + out.m_nSize, y.m_pData, out.m_pData, op);
  else
    std::fill_n(out.m_pData, out.m_nSize, 0.0);
  return out;
}

}  // namespace

void CZEPHVector::Check(bool failed, char* message) {
  zeph::frame::Check(failed, message);
}

CZEPHVector CZEPHVector::operator+(const CZEPHVector& other) {
  Check(m_nSize != other.m_nSize, "Addition error (Not of the same size)");
  return Combined(*this, other, [](double x, double y) { return x + y; });
}

CZEPHVector CZEPHVector::operator-(const CZEPHVector& other) {
  Check(m_nSize != other.m_nSize, "Subtraction error (Not of the same size)");
  return Combined(*this, other, [](double x, double y) { return x - y; });
}

CZEPHVector CZEPHVector::operator/(const double& d) {
  return *this * (std::fabs(d) > 1e-8 ? 1.0 / d : 1.0);
}

CZEPHVector operator*(const double& s, const CZEPHVector& v) {
  return Combined(v, v, [s](double x, double) { return x * s; });
}

CZEPHVector operator*(const CZEPHVector& v, const double& s) {
  return s * v;
}
