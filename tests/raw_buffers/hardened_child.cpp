// Breaks one precondition, or keeps it, as the argument names.
#include "raw_buffers.h"

#include "support/breach.h"

namespace {

using zeph::test::Null;
using zeph::test::Use;

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
    {"free another low",
     [] {
       double* p = ZEPH_ArrayAllocDouble(nullptr, 1, 10);
       ZEPH_ArrayFree(p, 0, 10);
     }},
    {"free twice",
     [] {
       int* p = ZEPH_ArrayAllocInt(nullptr, 1, 10);
       ZEPH_ArrayFree(p, 1, 10);
       ZEPH_ArrayFree(p, 1, 10);
     }},
    {"free foreign",
     [] {
       static float a[3];
       ZEPH_ArrayFree(a, 0, 2);
     }},
    {"free more rows",
     [] {
       double** m = ZEPH_MatrixAllocDouble(nullptr, 2, 3);
       ZEPH_MatrixFree(m, 3, 3);
     }},
    {"free another row low",
     [] {
       float** m = ZEPH_MatrixAllocFloat(nullptr, 1, 2, 1, 3);
       ZEPH_MatrixFree(m, 0, 2, 1, 3);
     }},
    {"free another column low",
     [] {
       int** m = ZEPH_MatrixAllocInt(nullptr, 1, 2, 1, 3);
       ZEPH_MatrixFree(m, 1, 2, 0, 3);
     }},
    {"free a matrix twice",
     [] {
       double** m = ZEPH_MatrixAllocDouble(nullptr, 2, 3);
       ZEPH_MatrixFree(m, 2, 3);
       ZEPH_MatrixFree(m, 2, 3);
     }},
    {"free after resize",
     [] {
       double** m = ZEPH_MatrixAllocDouble(nullptr, 2, 2);
       Use(ZEPH_MatrixResize(m, 1, 1, 2, 2));
       ZEPH_MatrixFree(m, 2, 2);
     }},
    {"realloc",
     [] { Use(ZEPH_ArrayRealloc(ZEPH_ArrayAllocDouble(nullptr, 0, 4), 5, 9, nullptr)); }},
    {"realloc ints",
     [] { Use(ZEPH_ArrayRealloc(ZEPH_ArrayAllocInt(nullptr, 0, 4), 6, 9, nullptr)); }},
    {"realloc twice",
     [] {
       float* p = ZEPH_ArrayAllocFloat(nullptr, 0, 4);
       Use(ZEPH_ArrayRealloc(p, 4, 9, nullptr));
       Use(ZEPH_ArrayRealloc(p, 4, 9, nullptr));
     }},
    {"resize", [] { Use(ZEPH_ArrayResize(ZEPH_ArrayAllocInt(nullptr, 0, 4), 6, 9)); }},
    {"matrix resize rows",
     [] { Use(ZEPH_MatrixResize(ZEPH_MatrixAllocDouble(nullptr, 2, 2), 2, 1, 3, 3)); }},
    {"matrix resize columns",
     [] { Use(ZEPH_MatrixResize(ZEPH_MatrixAllocDouble(nullptr, 2, 2), 1, 2, 3, 3)); }},
    {"merge into a",
     [] {
       int a[4] = {1, 2};
       int b[2] = {1, 3};
       ZEPH_ArrayMergeSorted(a, 2, b, 2, a);
     }},
    {"merge into b",
     [] {
       double a[2] = {1, 2};
       double b[6] = {0, 0, 0, 1, 3};
       ZEPH_ArrayMergeSorted(a, 2, b + 3, 2, b);
     }},
    {"merge beside",
     [] {
       double block[8] = {1, 2, 1, 3};
       ZEPH_ArrayMergeSorted(block, 2, block + 2, 2, block + 4);
       ZEPH_ArrayMergeSorted(block, 0, block + 2, 2, block);
     }},
    {"another high",
     [] {
       double* p = ZEPH_ArrayAllocDouble(nullptr, 1, 10);
       ZEPH_ArrayFree(p, 1, -5);
       double** m = ZEPH_MatrixAllocDouble(nullptr, 1, 2, 1, 3);
       ZEPH_ArrayFree(m[2], 1, 3);
       m[2] = nullptr;
       ZEPH_MatrixFree(m, 1, 2, 1, -3);
     }},
    {"own block",
     [] {
       double* p = ZEPH_ArrayResize(new double[3], 3, 4);
       p = ZEPH_ArrayRealloc(p, 3, 1, nullptr);
       p = ZEPH_ArrayRealloc(p, 1, 8, nullptr);
       ZEPH_ArrayFree(p, 0, 8);
     }},
    {"many blocks",
     [] {
       static int* blocks[5000];
       for (int round = 0; round < 3; ++round) {
         for (int i = 0; i < 5000; ++i) blocks[i] = ZEPH_ArrayAllocInt(nullptr, i, i + round);
         for (int i = 0; i < 5000; ++i) ZEPH_ArrayFree(blocks[i], i, i + round);
       }
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
