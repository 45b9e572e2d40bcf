// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstddef>

#include "frame/fatal_report.h"
#include "kernels/few.h"
#include "linalg.h"
#include "parallel/elementwise.h"
#include "platform/exactness.h"

namespace {

/// A new vector as long as `x`, filled by `fill(out, n)` if its operands are `ready`; else of
/// zeros.
template <class Fill>
CZEPHVector Made(const CZEPHVector& x, bool ready, Fill fill) {
  CZEPHVector out(x.m_nSize);
  const std::size_t n = out.m_pData ? static_cast<std::size_t>(out.m_nSize) : 0;
  if (ready)
    fill(out.m_pData, n);
  else
    zeph::kernels::Fill(out.m_pData, 0.0, n);
  return out;
}

/// A new vector of op(x[i], y[i]).
template <zeph::kernels::Elementwise::Binary op>
CZEPHVector Combined(const CZEPHVector& x, const CZEPHVector& y) {
  return Made(x, x.m_pData && y.m_pData,
              [&](double* out, std::size_t n) { op(out, x.m_pData, y.m_pData, n); });
}

}  // namespace

void CZEPHVector::Check(bool failed, char* message) {
  if (failed) ZEPH_REQUIRE_POINTER("CZEPHVector::Check", message);
  zeph::frame::Check(failed, message);
}

CZEPHVector CZEPHVector::operator+(const CZEPHVector& other) {
  if (m_nSize != other.m_nSize) zeph::frame::Check(true, "Addition error (Not of the same size)");
  return Combined<zeph::parallel::Add>(*this, other);
}

CZEPHVector CZEPHVector::operator-(const CZEPHVector& other) {
  if (m_nSize != other.m_nSize)
    zeph::frame::Check(true, "Subtraction error (Not of the same size)");
  return Combined<zeph::parallel::Subtract>(*this, other);
}

CZEPHVector CZEPHVector::operator/(const double& d) {
  return *this * (std::fabs(d) > 1e-8 ? 1.0 / d : 1.0);
}

CZEPHVector operator*(const double& s, const CZEPHVector& v) {
  return Made(v, v.m_pData != nullptr,
              [&](double* out, std::size_t n) { zeph::parallel::Scale(out, s, v.m_pData, n); });
}

CZEPHVector operator*(const CZEPHVector& v, const double& s) {
  return s * v;
}
