#include <iostream>
#include <sstream>

#include "linalg.h"
#include "support/hardened.h"

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

}  // namespace

TEST(HardenedLinalg, StopsAtARowOutsideAMatrix) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHDoubleMatrix::operator[]: i is 2, outside 0..1", TwoByThree()[2]);
  EXPECT_STOP("CZEPHDoubleMatrix::operator[]: m_ppData is null", {
    const CZEPHDoubleMatrix m;
    m[0];
  });
  EXPECT_STOP("CZEPHMatrix::operator[]: i is -1, outside 0..1", General()[-1]);
  EXPECT_STOP("CZEPHMatrix::operator[]: i is 2, outside 0..1", {
    const CZEPHMatrix m = General();
    m[2];
  });
  EXPECT_STOP("CZEPHMatrix::operator[]: m_ppData is null", {
    CZEPHMatrix m;
    m[0];
  });
}

TEST(HardenedLinalg, StopsAtStreamedCountsBeyondTheStorage) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("operator>>(CZEPHDoubleMatrix): rows is 3, outside 0..2", Read("3 2  1 2 3 4 5 6"));
  EXPECT_STOP("operator>>(CZEPHDoubleMatrix): columns is 4, outside 0..3", Read("1 4  1 2 3 4"));
}

TEST(HardenedLinalg, StopsAtAnIndexOutsideAVector) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHVector::operator[]: i is 2, outside 0..1", Vector()[2]);
  EXPECT_STOP("CZEPHVector::Get: i is -1, outside 0..1", Vector().Get(-1));
  EXPECT_STOP("CZEPHVector::operator[]: i is 2, outside 0..1", {
    const CZEPHVector v = Vector();
    Use(v[2]);
  });
  EXPECT_STOP("CZEPHVector::operator[]: m_pData is null", {
    CZEPHVector v = Vector();
    v.Free();
    Use(v[0]);
  });
}

TEST(HardenedLinalg, StopsAtAColumnOutsideAMatrix) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHMatrix::PickCol: j is 3, outside 0..2", General().PickCol(3));
  EXPECT_STOP("CZEPHMatrix::SetCol: j is -1, outside 0..2", {
    CZEPHVector v = Vector();
    General().SetCol(-1, v);
  });
}

TEST(HardenedLinalg, StopsAtAVectorThatIsTooShort) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHMatrix::PickCol: out.m_nSize is 1, outside 2..2147483647", {
    CZEPHVector v(1);
    General().PickCol(0, v);
  });
  EXPECT_STOP("CZEPHMatrix::SetCol: v.m_nSize is 1, outside 2..2147483647", {
    CZEPHVector v(1);
    General().SetCol(0, v);
  });
  EXPECT_STOP("ZEPH_SumVector: out.m_nSize is 1, outside 2..2147483647", {
    CZEPHVector v(1);
    ZEPH_SumVector(General(), v);
  });
}

TEST(HardenedLinalg, StopsAtMisuseOfMatrix4AndVector3) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHMatrix4::operator(): j is 4, outside 0..3", {
    CZEPHMatrix4 m(0.0);
    Use(m(0, Hidden(4)));
  });
  EXPECT_STOP("CZEPHMatrix4::CZEPHMatrix4: data is null", {
    CZEPHMatrix4 m(Null<const double>(), CZEPHMatrix4::RowMajor);
    Use(m);
  });
  EXPECT_STOP("CZEPHVector3::operator[]: i is 3, outside 0..2", {
    CZEPHVector3 v;
    Use(v[Hidden(3)]);
  });
}

TEST(HardenedLinalg, StopsAtNullMessages) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHVector::Check: message is null",
              CZEPHVector().Check(true, static_cast<char*>(nullptr)));
  EXPECT_STOP("CZEPHMatrix::Check: message is null",
              CZEPHMatrix().Check(true, static_cast<char*>(nullptr)));
}

TEST(HardenedLinalg, AllowsEverythingDocumented) {
  ZEPH_SKIP_UNLESS_HARDENED();
  Read("1 2  1 2");
  {  // every index
    Use(TwoByThree()[1][2]);
    Use(General()[1][2]);
    Use(Vector()[1]);
    CZEPHMatrix4 m(0.0);
    Use(m(3, 3));
    CZEPHVector3 v;
    Use(v[2]);
  }
  {  // a table and rows of the program's own, whose lengths are not known
    double first[4], second[4];
    double* own[] = {first, second};
    CZEPHDoubleMatrix m, rows(2, 3, 1.0);
    m.m_ppData = own;
    std::istringstream("2 4  1 2 3 4 5 6 7 8") >> m;
    m.m_ppData = nullptr;
    double* const kept = rows.m_ppData[0];
    rows.m_ppData[0] = first;
    std::istringstream("1 4  1 2 3 4") >> rows;
    rows.m_ppData[0] = kept;
    rows.m_nRows = 2;
  }
  {  // count itself
    CZEPHDoubleMatrix m(2, 3, 1.0);
    m.CheckBound(2, 3);
  }
  {  // without storage
    CZEPHMatrix m;
    CZEPHVector v, w(1);
    m.PickCol(7);
    m.PickCol(7, w);
    m.SetCol(7, w);
    General().PickCol(0, v);
    ZEPH_SumVector(General(), v);
  }
  {  // longer vector
    CZEPHVector v(9);
    General().PickCol(2, v);
    General().SetCol(2, v);
    ZEPH_SumVector(General(), v);
  }
  {  // no source
    CZEPHVector v(2, nullptr);
    CZEPHMatrix m(2, 2, nullptr);
    Use(v[1] + m[1][1]);
  }
  {  // released, with counts of before
    CZEPHMatrix m = General();
    CZEPHVector v(9), released(9), shorter(1);
    m.Free();
    released.Free();
    for (const int j : {-1, 0, 3}) {
      m.PickCol(j);
      m.PickCol(j, v);
      m.PickCol(j, shorter);
      m.SetCol(j, v);
      General().PickCol(j, released);
      General().SetCol(j, released);
    }
    ZEPH_SumVector(m, shorter);
  }
  CZEPHVector().Check(false, static_cast<char*>(nullptr));
  CZEPHMatrix().Check(false, static_cast<char*>(nullptr));
}

// The counts of a stream that ends or fails among them are not used.
TEST(HardenedLinalg, AllowsAnyCountsWhereNotBothAreRead) {
  ZEPH_SKIP_UNLESS_HARDENED();
  for (const char* text : {"", "9", "9 ", "9 x", "x", "x 9", "-9", "9 -1", "-1 9", "9 0", "0 9",
                           "9 99999999999", "99999999999 9"}) {
    SCOPED_TRACE(text);
    Read(text);
  }
}

TEST(HardenedLinalg, StopsAtEachEndOfEachRange) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHDoubleMatrix::operator[]: i is -1, outside 0..1", TwoByThree()[-1]);
  EXPECT_STOP("CZEPHMatrix::operator[]: i is 2, outside 0..1", General()[2]);
  EXPECT_STOP("CZEPHMatrix::operator[]: i is -1, outside 0..1", {
    const CZEPHMatrix m = General();
    m[-1];
  });
  EXPECT_STOP("CZEPHMatrix::operator[]: m_ppData is null", {
    const CZEPHMatrix m;
    m[0];
  });
  EXPECT_STOP("CZEPHVector::operator[]: i is -1, outside 0..1", Vector()[-1]);
  EXPECT_STOP("CZEPHVector::Get: i is 2, outside 0..1", Vector().Get(2));
  EXPECT_STOP("CZEPHVector::Get: m_pData is null", {
    CZEPHVector v = Vector();
    v.Free();
    v.Get(0);
  });
  EXPECT_STOP("CZEPHVector::operator[]: i is -1, outside 0..1", {
    const CZEPHVector v = Vector();
    Use(v[-1]);
  });
  EXPECT_STOP("CZEPHVector::operator[]: m_pData is null", {
    CZEPHVector v = Vector();
    v.Free();
    const CZEPHVector& constant = v;
    Use(constant[0]);
  });
  EXPECT_STOP("CZEPHMatrix::PickCol: j is -1, outside 0..2", General().PickCol(-1));
  EXPECT_STOP("CZEPHMatrix::PickCol: j is 3, outside 0..2", {
    CZEPHVector v(2);
    General().PickCol(3, v);
  });
  EXPECT_STOP("CZEPHMatrix::SetCol: j is 3, outside 0..2", {
    CZEPHVector v = Vector();
    General().SetCol(3, v);
  });
  EXPECT_STOP("CZEPHMatrix4::operator(): i is 4, outside 0..3", {
    CZEPHMatrix4 m(0.0);
    Use(m(Hidden(4), 0));
  });
  EXPECT_STOP("CZEPHMatrix4::operator(): i is -1, outside 0..3", {
    CZEPHMatrix4 m(0.0);
    Use(m(Hidden(-1), 0));
  });
  EXPECT_STOP("CZEPHMatrix4::operator(): j is -1, outside 0..3", {
    CZEPHMatrix4 m(0.0);
    Use(m(0, Hidden(-1)));
  });
  EXPECT_STOP("CZEPHMatrix4::CZEPHMatrix4: data is null", {
    CZEPHMatrix4 m(Null<const double>(), CZEPHMatrix4::ColumnMajor);
    Use(m);
  });
  EXPECT_STOP("CZEPHVector3::operator[]: i is -1, outside 0..2", {
    CZEPHVector3 v;
    Use(v[Hidden(-1)]);
  });
  EXPECT_STOP("CZEPHDoubleMatrix::ErrorMessage: message is null",
              CZEPHDoubleMatrix::ErrorMessage(static_cast<char*>(nullptr), std::cout));
  EXPECT_STOP("CZEPHVector::Get: m_pData is null", CZEPHVector().Get(0));
  EXPECT_STOP("CZEPHVector::operator[]: m_pData is null", {
    const CZEPHVector v;
    Use(v[0]);
  });
  EXPECT_STOP("CZEPHMatrix4::operator(): j is -1, outside 0..3", {
    CZEPHMatrix4 m(0.0);
    Use(m(3, Hidden(-1)));
  });
}
