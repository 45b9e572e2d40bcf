// SPDX-License-Identifier: MIT
//
// Sums, differences and negation of the double matrix. Every result is allocated once and written
// once; where memory for it runs out it has no storage, or only some of its rows.
#include <iostream>
#include <utility>

#include "kernels/elementwise.h"
#include "linalg.h"
#include "linalg/kept_results.h"
#include "linalg/row_table.h"
#include "platform/exactness.h"

namespace {

using zeph::kernels::Active;
using zeph::kernels::Elementwise;
using zeph::linalg::Combine;
using zeph::linalg::Fill;

bool SameSize(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b) {
  return a.m_nRows == b.m_nRows && a.m_nColumns == b.m_nColumns;
}

/// Where results get their storage.
struct Result : CZEPHDoubleMatrix {
  using CZEPHDoubleMatrix::AllocMemory;
};

/// A new matrix of op(a(i, j), b(i, j)) for operands of one size.
CZEPHDoubleMatrix Combined(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b,
                           Elementwise::Binary op) {
  Result out;
  if (out.AllocMemory(a.m_nRows, a.m_nColumns) == 1) {
    const int done = Combine(out.m_ppData, a.m_ppData, b.m_ppData, a.m_nRows, a.m_nColumns, op);
    Fill(out.m_ppData, done, a.m_nRows, a.m_nColumns, 0.0);
  }
  return CZEPHDoubleMatrix(std::move(out));
}

/// The negation of 0.0 is 0.0.
void FromZero(double* out, const double* x, const double*, std::size_t n) {
  Active().elementwise->subtract_from(out, 0.0, x, n);
}

void Require(bool sizesAgree, const char* message) {
  if (!sizesAgree) CZEPHDoubleMatrix::ErrorMessage(const_cast<char*>(message), std::cout);
}

}  // namespace

CZEPHDoubleMatrix& CZEPHDoubleMatrix::operator+=(const CZEPHDoubleMatrix& other) {
  Require(SameSize(*this, other), "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()");
  Combine(m_ppData, m_ppData, other.m_ppData, m_nRows, m_nColumns, Active().elementwise->add);
  return *this;
}

CZEPHDoubleMatrix& CZEPHDoubleMatrix::operator-=(const CZEPHDoubleMatrix& other) {
  Require(SameSize(*this, other), "bad matrix sizes");
  Combine(m_ppData, m_ppData, other.m_ppData, m_nRows, m_nColumns, Active().elementwise->subtract);
  return *this;
}

CZEPHDoubleMatrix CZEPHDoubleMatrix::operator+(const CZEPHDoubleMatrix& other) {
  Require(SameSize(*this, other), "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()");
  return Combined(*this, other, Active().elementwise->add);
}

CZEPHDoubleMatrix CZEPHDoubleMatrix::operator-(const CZEPHDoubleMatrix& other) {
  Require(SameSize(*this, other), "bad matrix sizes");
  return Combined(*this, other, Active().elementwise->subtract);
}

CZEPHDoubleMatrix& CZEPHDoubleMatrix::operator-() {
  return zeph::linalg::Keep(Combined(*this, *this, FromZero));
}

CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b) {
  Require(SameSize(a, b), "Bad matrix sizes : operator-()");
  return Combined(a, b, Active().elementwise->add);
}

CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b) {
  Require(SameSize(a, b), "Bad matrix sizes : operator-()");
  return Combined(a, b, Active().elementwise->subtract);
}

CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a) {
  return a;
}

CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a) {
  return Combined(a, a, FromZero);
}
