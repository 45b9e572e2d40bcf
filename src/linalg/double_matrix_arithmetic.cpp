// SPDX-License-Identifier: MIT
//
// Sums, differences and negation of the double matrix. Every result is allocated once and written
// once; where memory runs out it has no storage, or only some of its rows.
#include <iostream>
#include <utility>

#include "kernels/few.h"
#include "linalg.h"
#include "linalg/kept_results.h"
#include "linalg/row_table.h"
#include "platform/exactness.h"

namespace {

using zeph::kernels::Add;
using zeph::kernels::Elementwise;
using zeph::kernels::Subtract;
using namespace zeph::linalg;

bool SameSize(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b) {
  return a.m_nRows == b.m_nRows && a.m_nColumns == b.m_nColumns;
}

/// Allocates the storage of results.
struct Result : CZEPHDoubleMatrix {
  using CZEPHDoubleMatrix::AllocMemory;
};

/// A new matrix of op(a(i, j), b(i, j)) for operands of one size.
template <Elementwise::Binary op>
CZEPHDoubleMatrix Combined(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b) {
  Result out;
  if (out.AllocMemory(a.m_nRows, a.m_nColumns) == 1) {
    const int done = Combine<op>(out.m_ppData, a.m_ppData, b.m_ppData, a.m_nRows, a.m_nColumns);
    Fill(out.m_ppData, done, a.m_nRows, a.m_nColumns, 0.0);
  }
  return CZEPHDoubleMatrix(std::move(out));
}

/// The negation of 0.0 is 0.0.
void FromZero(double* out, const double* x, const double*, std::size_t n) {
  zeph::kernels::SubtractFrom(out, 0.0, x, n);
}

void Require(bool sizesAgree, const char* message) {
  if (!sizesAgree) CZEPHDoubleMatrix::ErrorMessage(const_cast<char*>(message), std::cout);
}

}  // namespace

CZEPHDoubleMatrix& CZEPHDoubleMatrix::operator+=(const CZEPHDoubleMatrix& other) {
  Require(SameSize(*this, other), "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()");
  Combine<Add>(m_ppData, m_ppData, other.m_ppData, m_nRows, m_nColumns);
  return *this;
}

CZEPHDoubleMatrix& CZEPHDoubleMatrix::operator-=(const CZEPHDoubleMatrix& other) {
  Require(SameSize(*this, other), "bad matrix sizes");
  Combine<Subtract>(m_ppData, m_ppData, other.m_ppData, m_nRows, m_nColumns);
  return *this;
}

CZEPHDoubleMatrix CZEPHDoubleMatrix::operator+(const CZEPHDoubleMatrix& other) {
  Require(SameSize(*this, other), "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()");
  return Combined<Add>(*this, other);
}

CZEPHDoubleMatrix CZEPHDoubleMatrix::operator-(const CZEPHDoubleMatrix& other) {
  Require(SameSize(*this, other), "bad matrix sizes");
  return Combined<Subtract>(*this, other);
}

CZEPHDoubleMatrix& CZEPHDoubleMatrix::operator-() {
  return Keep(Combined<FromZero>(*this, *this));
}

CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b) {
  Require(SameSize(a, b), "Bad matrix sizes : operator-()");
  return Combined<Add>(a, b);
}

CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b) {
  Require(SameSize(a, b), "Bad matrix sizes : operator-()");
  return Combined<Subtract>(a, b);
}

CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a) {
  return a;
}

CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a) {
  return Combined<FromZero>(a, a);
}
