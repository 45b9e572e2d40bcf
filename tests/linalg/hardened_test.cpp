#include "support/hardened.h"

using zeph::test::ExpectPasses;
using zeph::test::ExpectStops;

namespace {

const char kChild[] = "zeph_linalg_hardened_child";

}  // namespace

TEST(HardenedLinalg, StopsAtARowOutsideAMatrix) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild,
              {
                  {"const row", "CZEPHDoubleMatrix::operator[]: i is 2, outside 0..1"},
                  {"const without storage", "CZEPHDoubleMatrix::operator[]: m_ppData is null"},
                  {"row", "CZEPHMatrix::operator[]: i is -1, outside 0..1"},
                  {"added row", "CZEPHMatrix::operator[]: i is 2, outside 0..1"},
                  {"row without storage", "CZEPHMatrix::operator[]: m_ppData is null"},
              });
}

TEST(HardenedLinalg, StopsAtAStreamThatAnnouncesMoreThanTheStorageHolds) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild,
              {
                  {"more rows", "operator>>(CZEPHDoubleMatrix): rows is 3, outside 0..2"},
                  {"more columns", "operator>>(CZEPHDoubleMatrix): columns is 4, outside 0..3"},
              });
}

TEST(HardenedLinalg, StopsAtAnIndexOutsideAVector) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"element", "CZEPHVector::operator[]: i is 2, outside 0..1"},
                          {"get", "CZEPHVector::Get: i is -1, outside 0..1"},
                          {"const element", "CZEPHVector::operator[]: i is 2, outside 0..1"},
                          {"freed", "CZEPHVector::operator[]: m_pData is null"},
                      });
}

TEST(HardenedLinalg, StopsAtAColumnOutsideAMatrix) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"pick", "CZEPHMatrix::PickCol: j is 3, outside 0..2"},
                          {"set", "CZEPHMatrix::SetCol: j is -1, outside 0..2"},
                      });
}

TEST(HardenedLinalg, StopsAtAVectorThatIsTooShort) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild,
              {
                  {"pick into", "CZEPHMatrix::PickCol: out.m_nSize is 1, outside 2..2147483647"},
                  {"set from", "CZEPHMatrix::SetCol: v.m_nSize is 1, outside 2..2147483647"},
                  {"sums", "ZEPH_SumVector: out.m_nSize is 1, outside 2..2147483647"},
              });
}

TEST(HardenedLinalg, StopsAtSmallValues) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"cell", "CZEPHMatrix4::operator(): j is 4, outside 0..3"},
                          {"block", "CZEPHMatrix4::CZEPHMatrix4: data is null"},
                          {"component", "CZEPHVector3::operator[]: i is 3, outside 0..2"},
                      });
}

TEST(HardenedLinalg, StopsAtNullMessages) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"check", "CZEPHVector::Check: message is null"},
                          {"matrix check", "CZEPHMatrix::Check: message is null"},
                      });
}

TEST(HardenedLinalg, LetsEverythingDocumentedPass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectPasses(kChild, {"fewer", "every index", "count itself", "without storage", "longer vector",
                        "no source", "passed check"});
}
