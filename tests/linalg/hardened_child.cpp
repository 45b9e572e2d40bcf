// Breaks one precondition, or keeps it, as the argument names.
#include "linalg.h"

#include <sstream>

#include "support/breach.h"

namespace {

using zeph::test::Hidden;
using zeph::test::Null;
using zeph::test::Use;

const CZEPHDoubleMatrix& TwoByThree() {
  static const CZEPHDoubleMatrix matrix(2, 3, 1.0);
  return matrix;
}

CZEPHMatrix General() {
  const double values[] = {1, 2, 3, 4, 5, 6};
  return CZEPHMatrix(2, 3, values);
}

CZEPHVector Vector() {
  const double values[] = {1, 2};
  return CZEPHVector(2, values);
}

/// Reads `text` into a 2 x 3 matrix.
void Read(const char* text) {
  CZEPHDoubleMatrix m(2, 3, 1.0);
  std::istringstream is(text);
  is >> m;
  m.m_nRows = 2;
}

const zeph::test::Breach kBreaches[] = {
    {"const row", [] { TwoByThree()[2]; }},
    {"const without storage",
     [] {
       const CZEPHDoubleMatrix m;
       m[0];
     }},
    {"more rows", [] { Read("3 2  1 2 3 4 5 6"); }},
    {"more columns", [] { Read("1 4  1 2 3 4"); }},
    {"fewer", [] { Read("1 2  1 2"); }},
    {"row", [] { General()[-1]; }},
    {"added row",
     [] {
       const CZEPHMatrix m = General();
       m[2];
     }},
    {"row without storage",
     [] {
       CZEPHMatrix m;
       m[0];
     }},
    {"element", [] { Vector()[2]; }},
    {"get", [] { Vector().Get(-1); }},
    {"const element",
     [] {
       const CZEPHVector v = Vector();
       Use(v[2]);
     }},
    {"freed",
     [] {
       CZEPHVector v = Vector();
       v.Free();
       Use(v[0]);
     }},
    {"pick", [] { General().PickCol(3); }},
    {"set",
     [] {
       CZEPHVector v = Vector();
       General().SetCol(-1, v);
     }},
    {"pick into",
     [] {
       CZEPHVector v(1);
       General().PickCol(0, v);
     }},
    {"set from",
     [] {
       CZEPHVector v(1);
       General().SetCol(0, v);
     }},
    {"sums",
     [] {
       CZEPHVector v(1);
       ZEPH_SumVector(General(), v);
     }},
    {"cell",
     [] {
       CZEPHMatrix4 m(0.0);
       Use(m(0, Hidden(4)));
     }},
    {"block",
     [] {
       CZEPHMatrix4 m(Null<const double>(), CZEPHMatrix4::RowMajor);
       Use(m);
     }},
    {"component",
     [] {
       CZEPHVector3 v;
       Use(v[Hidden(3)]);
     }},
    {"check", [] { CZEPHVector().Check(true, static_cast<char*>(nullptr)); }},
    {"matrix check", [] { CZEPHMatrix().Check(true, static_cast<char*>(nullptr)); }},
    {"every index",
     [] {
       Use(TwoByThree()[1][2]);
       Use(General()[1][2]);
       Use(Vector()[1]);
       CZEPHMatrix4 m(0.0);
       Use(m(3, 3));
       CZEPHVector3 v;
       Use(v[2]);
     }},
    {"count itself",
     [] {
       CZEPHDoubleMatrix m(2, 3, 1.0);
       m.CheckBound(2, 3);
     }},
    {"without storage",
     [] {
       CZEPHMatrix m;
       CZEPHVector v, w(1);
       m.PickCol(7);
       m.PickCol(7, w);
       m.SetCol(7, w);
       General().PickCol(0, v);
       ZEPH_SumVector(General(), v);
     }},
    {"longer vector",
     [] {
       CZEPHVector v(9);
       General().PickCol(2, v);
       General().SetCol(2, v);
       ZEPH_SumVector(General(), v);
     }},
    {"no source",
     [] {
       CZEPHVector v(2, nullptr);
       CZEPHMatrix m(2, 2, nullptr);
       Use(v[1] + m[1][1]);
     }},
    {"passed check", [] { CZEPHVector().Check(false, static_cast<char*>(nullptr)); }},
};

}  // namespace

int main(int argc, char** argv) {
  return zeph::test::MakeBreach(argc, argv, kBreaches);
}
