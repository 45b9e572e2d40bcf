// SPDX-License-Identifier: MIT
//
// The 4x4 matrix of doubles, stored by columns.
#include <algorithm>
#include <functional>

#include "linalg.h"
#include "platform/exactness.h"
#include "platform/stream_number.h"

namespace {

constexpr int kElements = 16;

// `to` may be either operand.
template <class Operation>
void Combine(const CZEPHMatrix4& a, const CZEPHMatrix4& b, CZEPHMatrix4& to, Operation operation) {
  for (int k = 0; k < kElements; ++k) to.m_data[k] = operation(a.m_data[k], b.m_data[k]);
}

// The scalar is passed by value: it may be an element of the result.
template <class Operation>
void Combine(const CZEPHMatrix4& a, double s, CZEPHMatrix4& to, Operation operation) {
  for (int k = 0; k < kElements; ++k) to.m_data[k] = operation(a.m_data[k], s);
}

// `r` is neither operand. Rows are the innermost loop, so that a step computes a whole column.
void Multiply(const double* a, const double* b, double* r) {
  for (int j = 0; j < 4; ++j)
    for (int i = 0; i < 4; ++i)
      r[i + 4 * j] = a[i] * b[4 * j] + a[i + 4] * b[4 * j + 1] + a[i + 8] * b[4 * j + 2] +
                     a[i + 12] * b[4 * j + 3];
}

}  // namespace

int CZEPHMatrix4::m_nObject = 0;

CZEPHMatrix4::CZEPHMatrix4() {
  ++m_nObject;
}

CZEPHMatrix4::CZEPHMatrix4(const double& value) {
  std::fill_n(m_data, kElements, value);
  ++m_nObject;
}

CZEPHMatrix4::CZEPHMatrix4(const double* const data, ordermode mode) {
  ZEPH_REQUIRE_POINTER("CZEPHMatrix4::CZEPHMatrix4", data);
  if (mode == RowMajor) {
    for (int i = 0; i < 4; ++i)
      for (int j = 0; j < 4; ++j) m_data[i + 4 * j] = data[4 * i + j];
  } else {
    std::copy_n(data, kElements, m_data);
  }
  ++m_nObject;
}

CZEPHMatrix4::CZEPHMatrix4(const CZEPHMatrix4& other) {
  *this = other;
  ++m_nObject;
}

CZEPHMatrix4::~CZEPHMatrix4() {
  --m_nObject;
}

int CZEPHMatrix4::howMany() {
  return m_nObject;
}

void CZEPHMatrix4::loadIdentity() {
  for (int k = 0; k < kElements; ++k) m_data[k] = k % 5 == 0 ? 1.0 : 0.0;
}

CZEPHMatrix4& CZEPHMatrix4::operator+=(const CZEPHMatrix4& other) {
  Combine(*this, other, *this, std::plus<double>());
  return *this;
}

CZEPHMatrix4& CZEPHMatrix4::operator-=(const CZEPHMatrix4& other) {
  Combine(*this, other, *this, std::minus<double>());
  return *this;
}

CZEPHMatrix4& CZEPHMatrix4::operator*=(const double& s) {
  Combine(*this, s, *this, std::multiplies<double>());
  return *this;
}

CZEPHMatrix4& CZEPHMatrix4::operator/=(const double& s) {
  Combine(*this, s, *this, std::divides<double>());
  return *this;
}

CZEPHMatrix4& CZEPHMatrix4::operator*=(const CZEPHMatrix4& b) {
  double product[kElements];
  Multiply(m_data, b.m_data, product);
  std::copy_n(product, kElements, m_data);
  return *this;
}

CZEPHMatrix4& CZEPHMatrix4::operator-() {
  for (double& element : m_data) element = -element;
  return *this;
}

CZEPHMatrix4 operator+(const CZEPHMatrix4& a, const CZEPHMatrix4& b) {
  CZEPHMatrix4 result;
  Combine(a, b, result, std::plus<double>());
  return result;
}

CZEPHMatrix4 operator-(const CZEPHMatrix4& a, const CZEPHMatrix4& b) {
  CZEPHMatrix4 result;
  Combine(a, b, result, std::minus<double>());
  return result;
}

CZEPHMatrix4 operator*(const CZEPHMatrix4& a, const CZEPHMatrix4& b) {
  CZEPHMatrix4 result;
  Multiply(a.m_data, b.m_data, result.m_data);
  return result;
}

CZEPHMatrix4 operator*(const double& s, const CZEPHMatrix4& a) {
  return a * s;
}

CZEPHMatrix4 operator*(const CZEPHMatrix4& a, const double& s) {
  CZEPHMatrix4 result;
  Combine(a, s, result, std::multiplies<double>());
  return result;
}

CZEPHMatrix4 operator/(const CZEPHMatrix4& a, const double& s) {
  CZEPHMatrix4 result;
  Combine(a, s, result, std::divides<double>());
  return result;
}

std::ostream& operator<<(std::ostream& os, const CZEPHMatrix4& a) {
  zeph::platform::StreamWriter out(os);
  for (int i = 0; i < 4; ++i) {
    out.Text("[ ");
    for (int j = 0; j < 4; ++j) {
      out.Real(a.m_data[i + 4 * j]);
      out.Text(j < 3 ? " " : " ]\n");
    }
  }
  out.Flush();
  return os;
}
