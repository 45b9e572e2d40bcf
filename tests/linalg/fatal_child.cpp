// Ends at the fatal site that argv[1] names.
#include <functional>
#include <iostream>
#include <map>
#include <string>

#include "linalg.h"

namespace {

char kText[] = "text";

CZEPHDoubleMatrix D(int rows, int cols) {
  return CZEPHDoubleMatrix(rows, cols, 1.0);
}
const CZEPHDoubleMatrix& Fixed() {
  static const CZEPHDoubleMatrix m(2, 3, 1.0);
  return m;
}
CZEPHDoubleMatrix Cleared() {
  CZEPHDoubleMatrix m(2, 2, 1.0);
  m.Clear();
  return m;
}

constexpr auto kRows = &CZEPHDoubleMatrix::m_nRows, kColumns = &CZEPHDoubleMatrix::m_nColumns;

/// A count as `>>` may leave it.
void WithNegative(int CZEPHDoubleMatrix::*count, void (*use)(CZEPHDoubleMatrix&)) {
  CZEPHDoubleMatrix m = D(2, 3);
  m.*count = -1;
  use(m);
}
void Check(CZEPHDoubleMatrix& m) {
  m.CheckBound(0, 0);
}
void Entry(CZEPHDoubleMatrix& m) {
  m.GetEntry(0, 0);
}
void Index(CZEPHDoubleMatrix& m) {
  m[0][0] = 1;
}

const std::map<std::string, std::function<void()>>& Sites() {
  static const std::map<std::string, std::function<void()>> sites = {
      {"report", [] { CZEPHDoubleMatrix::ErrorMessage(kText, std::cout); }},
      {"report to the error stream", [] { CZEPHDoubleMatrix::ErrorMessage(kText, std::cerr); }},
      {"check row -1", [] { D(2, 3).CheckBound(-1, 0); }},
      {"check row 3", [] { D(2, 3).CheckBound(3, 0); }},
      {"check column -1", [] { D(2, 3).CheckBound(0, -1); }},
      {"check column 4", [] { D(2, 3).CheckBound(0, 4); }},
      {"check without storage", [] { CZEPHDoubleMatrix().CheckBound(0, 0); }},
      {"entry row -1", [] { D(2, 3).GetEntry(-1, 0); }},
      {"entry row 3", [] { D(2, 3).GetEntry(3, 0); }},
      {"entry column -1", [] { D(2, 3).GetEntry(0, -1); }},
      {"entry column 4", [] { D(2, 3).GetEntry(0, 4); }},
      {"entry cleared",
       [] {
         CZEPHDoubleMatrix m = D(2, 2);
         m.Clear();
         m.GetEntry(0, 0);
       }},
      {"index -1",
       [] {
         D(2, 3)[-1][0] = 1;
       }},
      {"index 3",
       [] {
         D(2, 3)[3][0] = 1;
       }},
      {"index without storage", [] { CZEPHDoubleMatrix()[0][0] = 1; }},
      {"index with negative columns", [] { WithNegative(kColumns, Index); }},
      {"check with negative rows", [] { WithNegative(kRows, Check); }},
      {"check with negative columns", [] { WithNegative(kColumns, Check); }},
      {"entry with negative rows", [] { WithNegative(kRows, Entry); }},
      {"entry with negative columns", [] { WithNegative(kColumns, Entry); }},
      {"index with negative rows", [] { WithNegative(kRows, Index); }},
      {"assign rows", [] { D(2, 2) = D(3, 2); }},
      {"assign columns", [] { D(2, 2) = D(2, 3); }},
      {"assign empty", [] { D(2, 2) = CZEPHDoubleMatrix(); }},
      {"assign to negative rows",
       [] {
         CZEPHDoubleMatrix m = D(2, 3);
         m.m_nRows = -7;  // as `>>` leaves them
         m = D(2, 3);
       }},
      {"assign to negative columns",
       [] {
         CZEPHDoubleMatrix m = D(2, 3);
         m.m_nColumns = -7;
         m = D(2, 3);
       }},
      {"assign negative rows",
       [] {
         CZEPHDoubleMatrix m = D(2, 3), other = D(2, 3);
         other.m_nRows = -7;
         m = other;
       }},
      {"add to rows", [] { D(2, 2) += D(3, 2); }},
      {"add to columns", [] { D(2, 2) += D(2, 3); }},
      {"subtract from", [] { D(2, 2) -= D(2, 3); }},
      {"member sum", [] { D(2, 2) + D(2, 3); }},
      {"member difference", [] { D(2, 2) - D(2, 3); }},
      {"free sum", [] { Fixed() + D(2, 2); }},
      {"free difference", [] { Fixed() - D(3, 3); }},
      {"member product", [] { D(2, 3) *= D(2, 3); }},
      {"free product",
       [] {
         CZEPHDoubleMatrix m = D(2, 3);
         operator*=(m, Fixed());
       }},
      {"product of another size", [] { D(2, 3) *= D(3, 2); }},
      {"free product of another size",
       [] {
         CZEPHDoubleMatrix m = D(3, 2);
         operator*=(m, Fixed());
       }},
      {"product of negative counts",
       [] {
         CZEPHDoubleMatrix a = D(2, 3), b = D(1, 2);
         a.m_nColumns = b.m_nRows = -7;  // as `>>` leaves them
         operator*=(a, b);
       }},
      {"times array", [] { D(2, 3) * CZEPHDoubleArray(2, 1.0); }},
      {"sum with cleared", [] { D(3, 2) += Cleared(); }},
      {"matrix sum rows", [] { CZEPHMatrix(2, 2) + CZEPHMatrix(3, 2); }},
      {"matrix sum columns", [] { CZEPHMatrix(2, 2) + CZEPHMatrix(2, 3); }},
      {"matrix product", [] { CZEPHMatrix(2, 3) * CZEPHMatrix(2, 3); }},
      {"matrix check", [] { CZEPHMatrix().Check(true, kText); }},
      {"vector sum", [] { CZEPHVector(2) + CZEPHVector(3); }},
      {"vector difference", [] { CZEPHVector(2) - CZEPHVector(); }},
      // As many elements in another shape.
      {"assign another shape", [] { D(2, 3) = D(3, 2); }},
      {"add another shape", [] { D(2, 3) += D(3, 2); }},
      {"subtract another shape", [] { D(2, 3) -= D(3, 2); }},
      {"member sum of another shape", [] { D(2, 3) + D(3, 2); }},
      {"member difference of another shape", [] { D(2, 3) - D(3, 2); }},
      {"free sum of another shape", [] { Fixed() + D(3, 2); }},
      {"free difference of another shape", [] { Fixed() - D(6, 1); }},
      {"matrix sum of another shape", [] { CZEPHMatrix(2, 3) + CZEPHMatrix(3, 2); }},
      {"long product of negative counts",
       [] {
         CZEPHDoubleMatrix a = D(20, 3), b = D(1, 20);
         a.m_nColumns = b.m_nRows = -7;
         operator*=(a, b);
       }},
      // The same with the greater size on the other side.
      {"check far row", [] { D(2, 3).CheckBound(1 << 30, 0); }},
      {"check least row", [] { D(2, 3).CheckBound(-1 - (1 << 30), 0); }},
      {"check far column", [] { D(2, 3).CheckBound(0, 1 << 30); }},
      {"check least column", [] { D(2, 3).CheckBound(0, -1 - (1 << 30)); }},
      {"assign fewer rows", [] { D(3, 2) = D(2, 2); }},
      {"assign fewer columns", [] { D(2, 3) = D(2, 2); }},
      {"add fewer rows", [] { D(3, 2) += D(2, 2); }},
      {"add fewer columns", [] { D(2, 3) += D(2, 2); }},
      {"subtract more rows", [] { D(2, 2) -= D(3, 2); }},
      {"subtract fewer rows", [] { D(3, 2) -= D(2, 2); }},
      {"member sum of fewer rows", [] { D(3, 2) + D(2, 2); }},
      {"member difference of fewer rows", [] { D(3, 2) - D(2, 2); }},
      {"member difference of fewer columns", [] { D(2, 3) - D(2, 2); }},
      {"free sum of more columns", [] { Fixed() + D(2, 4); }},
      {"free sum of fewer rows", [] { Fixed() + D(1, 3); }},
      {"free difference of fewer rows", [] { Fixed() - D(1, 3); }},
      {"free difference of more columns", [] { Fixed() - D(2, 4); }},
      {"member product of more rows", [] { D(2, 3) *= D(4, 3); }},
      {"free product of more rows",
       [] {
         CZEPHDoubleMatrix m = D(1, 1);
         operator*=(m, Fixed());
       }},
      {"times longer array", [] { D(2, 3) * CZEPHDoubleArray(4, 1.0); }},
      {"matrix sum of fewer rows", [] { CZEPHMatrix(3, 2) + CZEPHMatrix(2, 2); }},
      {"matrix sum of fewer columns", [] { CZEPHMatrix(2, 3) + CZEPHMatrix(2, 2); }},
      {"matrix product of more rows", [] { CZEPHMatrix(2, 3) * CZEPHMatrix(4, 3); }},
      {"vector sum of fewer", [] { CZEPHVector(3) + CZEPHVector(2); }},
      {"vector difference of more", [] { CZEPHVector(2) - CZEPHVector(3); }},
      {"vector check",
       [] {
         char text[] = "text";
         CZEPHVector().Check(true, text);
       }},
  };
  return sites;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 3;
  const auto site = Sites().find(argv[1]);
  if (site == Sites().end()) return 4;
  site->second();
  return 0;
}
