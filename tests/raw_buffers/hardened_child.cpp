// Breaks one precondition, or keeps it, as the argument names.
#include "raw_buffers.h"

#include "support/breach.h"

namespace {

using zeph::test::Null;

double kNine[3][3] = {};

/// A 2 x 2 matrix whose second row is missing.
double** HalfMatrix() {
  static double row[2] = {};
  static double* rows[] = {row, nullptr};
  return rows;
}

const zeph::test::Breach kBreaches[] = {
    {"norm", [] { ZEPH_ArrayTwoNorm2(Null<double>(), 3, 0); }},
    {"norm of none", [] { ZEPH_ArrayMaxNorm(Null<double>(), 0, 0); }},
    {"listing",
     [] {
       CString out;
       ZEPH_ArrayDisplay(out, Null<double>(), 1, 2, nullptr);
     }},
    {"stream",
     [] {
       double a = 1;
       ZEPH_ArrayDisplay(Null<FILE>(), &a, 1, nullptr);
     }},
    {"merge",
     [] {
       double a = 1;
       ZEPH_ArrayMergeSorted(&a, 1, Null<double>(), 1, &a);
     }},
    {"flat transpose",
     [] {
       double a[4] = {};
       ZEPH_MatrixTranspose(2, a, Null<double>());
     }},
    {"matrix", [] { ZEPH_MatrixOneNorm(nullptr, 2, 0); }},
    {"row", [] { ZEPH_MatrixFrobNorm2(HalfMatrix(), 2, 0); }},
    {"first row", [] { ZEPH_MatrixMaxNorm(HalfMatrix(), 0, 1); }},
    {"transpose", [] { ZEPH_MatrixTranspose(2, HalfMatrix(), HalfMatrix()); }},
    {"identity", [] { ZEPH_MatrixSetIdentity(2, HalfMatrix()); }},
    {"product", [] { ZEPH_MatrixMult(2, 2, HalfMatrix(), 2, 2, HalfMatrix(), HalfMatrix()); }},
    {"print", [] { ZEPH_MatrixPrint(stdout, 2, HalfMatrix(), static_cast<char*>(nullptr)); }},
    {"cross",
     [] {
       double v[3] = {};
       ZEPH_VectorCrossProduct3(v, Null<double>(), v);
     }},
    {"assign", [] { ZEPH_VectorAssign3(Null<double>(), 1.0); }},
    {"transform",
     [] {
       double x = 0;
       ZEPH_MatrixTransform3(kNine, &x, Null<double>(), &x);
     }},
    {"rotate", [] { ZEPH_MatrixRotate3X(Null<double[3]>(), 90.0); }},
    {"product 4",
     [] {
       double m[16] = {};
       ZEPH_MatrixMult4(m, m, Null<double>());
     }},
    {"no elements",
     [] {
       CString out;
       ZEPH_ArrayDisplay(out, Null<double>(), 0, nullptr);
       ZEPH_ArrayMergeSorted(Null<double>(), 0, Null<double>(), -1, Null<double>());
       ZEPH_MatrixOneNorm(nullptr, 0, 0);
       ZEPH_MatrixFrobNorm3(nullptr, -1, 0);
       ZEPH_MatrixTranspose(0, Null<double>(), Null<double>());
     }},
    {"null results",
     [] {
       ZEPH_ArrayFree(Null<double>(), 1, 2);
       ZEPH_MatrixFree(static_cast<double**>(nullptr), 1, 2);
       ZEPH_MatrixMult(1, 1, nullptr, 1, 1, nullptr, nullptr);
       delete[] ZEPH_ArrayResize(Null<double>(), 3, 4);
     }},
    {"offset array",
     [] {
       double* p = ZEPH_ArrayAllocDouble(nullptr, -2, 2);
       ZEPH_ArrayOneNorm(p, 5, -2);
       ZEPH_ArrayFree(p, -2, 2);
     }},
    {"missing rows",
     [] {
       ZEPH_MatrixFrobNorm(HalfMatrix(), 1, 0);
       ZEPH_MatrixOneNorm(HalfMatrix(), 1, 0);
     }},
};

}  // namespace

int main(int argc, char** argv) {
  return zeph::test::MakeBreach(argc, argv, kBreaches);
}
