// Which overload a call chooses. The check compiles this file with our additions marked: exactly
// the lines that end in the word "added" may reach one, so every other call still means the
// documented function. Nothing here runs.
#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "ZEPHDataStructureEngine.h"

// clang-format off

void Strings(CString s, const CString& constant, const char* text, const std::string& standard) {
  CString a, b(constant), c(text), d("text"), e(std::string_view("text"));
  CString f(standard);                             // added
  a = f = constant;
  a = text;
  a = "text";
  a += constant;
  a += text;
  a += 'c';
  (void)(s + constant), (void)(s + "x"), (void)("x" + s), (void)(s + 'x');
  (void)(s == constant), (void)(s == "x"), (void)("x" == s), (void)(s < constant);
  (void)s[0];
  (void)s[0u];                                     // added
  (void)s[std::size_t{0}];                         // added
  const char* plain = s;
  (void)plain;
  a = standard;                                    // added
}

void DoubleArrays(double v, double* block, const double* constants, int n, char* message) {
  CZEPHDoubleArray none, filled(n, v), literal(3, 1.0), copied(n, block), twin(filled);
  const CZEPHDoubleArray constant(filled);
  CZEPHDoubleArray whole(3, 1);                    // added
  CZEPHDoubleArray nothing(3, 0);                  // added
  CZEPHDoubleArray wide(3, 1L);                    // added
  CZEPHDoubleArray longest(3, 1.0L), single(3, 1.0f);
  CZEPHDoubleArray from(n, constants);             // added
  CZEPHDoubleArray null(n, nullptr);
  filled = twin;
  filled = constant;
  filled = filled + twin;
  filled = CZEPHDoubleArray(n, v);
  filled += twin;
  filled -= constant;
  filled += filled * 2.0;
  (void)(filled + twin), (void)(constant + constant), (void)(filled + constant);
  (void)(filled - twin), (void)(constant - constant), (void)(constant - filled);
  (void)(+filled), (void)(-filled), (void)(filled * twin), (void)(2.0 * filled), (void)(filled * 2.0), (void)(filled / 2.0);
  (void)(filled * constant * 2.0), (void)(-(filled * twin)), (void)(+(filled * twin));
  (void)((filled * 2.0) + twin);                   // added
  (void)(twin + filled * 2.0);                     // added
  (void)((filled * 2.0) + twin * 2.0);             // added
  (void)((filled * 2.0) - twin);                   // added
  (void)(twin - filled * 2.0);
  (void)filled[0], (void)constant[0], (void)filled.GetData(), (void)constant.GetSize();
  (void)ZEPH_ArrayDotProduct(filled, constant), (void)ZEPH_ArrayDotProduct(filled, filled * 2.0);
  std::stringstream stream;
  stream << filled << constant;
  stream >> filled;
  for (double x : filled) (void)x;                 // added
  for (double x : constant) (void)x;               // added
  if (n == 1) CZEPHDoubleArray::ErrorMessage(message, stream);
}

void DoubleMatrices(double v, double** source, int n, char* message) {
  CZEPHDoubleMatrix none, filled(n, n, v), copied(n, n, source), twin(filled);
  const CZEPHDoubleMatrix constant(filled);
  CZEPHDoubleMatrix whole(2, 2, 0);                // added
  filled.SetData(2, 2, v);
  filled.SetData(2, 2, source);
  filled.SetData(constant);
  filled.SetData(twin);
  filled.SetData(2, 2, 7);                         // added
  filled = twin;
  filled = constant;
  filled = filled + twin;
  filled += constant;
  filled -= twin;
  filled *= twin;                                  // added
  filled *= filled + twin;                         // added
  filled.operator*=(constant);
  operator*=(filled, constant);
  (void)(filled + twin), (void)(constant + constant), (void)(constant + filled), (void)(filled + constant);
  (void)(filled - twin), (void)(constant - constant), (void)(constant - filled);
  (void)(+filled), (void)(-filled), (void)(+constant), (void)(-constant);
  (void)(filled * CZEPHDoubleArray(n, v)), (void)(constant * CZEPHDoubleArray(n, v));
  (void)filled[0], (void)constant[0], (void)filled.GetEntry(0, 0);
  if (n == 1) CZEPHDoubleMatrix::ErrorMessage(message, std::cout);
}

void GeneralMatrices(int n, const double* values, char* message) {
  CZEPHVector v, sized(n), copied(n, values), twin(v);
  CZEPHMatrix m, square(n, n), listed(n, n, values), same(m);
  const CZEPHVector constantVector(v);
  const CZEPHMatrix constant(m);
  CZEPHVector w(constantVector);                   // added
  CZEPHMatrix k(constant);                         // added
  v = twin;
  m = same;
  v = v + twin;
  (void)(v + twin), (void)(v - twin), (void)(v / 2.0), (void)(2.0 * v), (void)(v * 2.0), (void)(v + constantVector);
  (void)(m + same), (void)(m * same), (void)(m * constant), (void)v[0], (void)m[0], (void)v.Get(0);
  (void)constantVector[0];                         // added
  (void)constant[0];                               // added
  m.PickCol(0, v);
  m.SetCol(0, v);
  ZEPH_SumVector(m, v);
  (void)ZEPH_SumVector(m), (void)ZEPH_GetVectorMaxSite(v), (void)ZEPH_GetVectorMinSite(v);
  (void)ZEPH_GetVectorSquareNorm(v), (void)ZEPH_GetVectorInfititeNorm(v);
  (void)ZEPH_SumVector(m * same);                  // added
  v.Check(false, message);
  m.Check(false, message);
  v.Check(false, nullptr);
  for (double x : v) (void)x;                      // added
}

void SmallValues(const CZEPHVector3& constant, std::stringstream& stream) {
  CZEPHVector3 a, b(1.0, 2.0, 3.0), c(a, b), d(a);
  CZEPHVector3 e(constant, constant);              // added
  CZEPHVector3 f(a, a + b);                        // added
  CZEPHMatrix4 m, n(2.0), o(m.m_data, CZEPHMatrix4::RowMajor), p(m);
  a = b, m = n;
  (void)a.GetX(), (void)a.GetY(), (void)a.GetZ();
  (void)(a + b), (void)(a * b), (void)(a ^ b), (void)(2.0 * a), (void)(m * n), (void)(m * 2.0), (void)(-m);
  stream << a << m;
  stream >> a;                                     // added
  stream >> m;                                     // added
}

void RawBuffers(char* name, double* a, int* i, double** m, CString& out, long& bytes) {
  (void)ZEPH_ArrayAllocDouble(name, 0, 1), (void)ZEPH_ArrayAllocDouble(nullptr, 0, 1, bytes);
  (void)ZEPH_ArrayAllocDouble("x", 0, 1);          // added
  (void)ZEPH_MatrixAllocInt(name, 1, 1), (void)ZEPH_MatrixAllocInt(name, 0, 1, 0, 1), (void)ZEPH_MatrixAllocInt(nullptr, 0, 1, 0, 1, bytes);
  (void)ZEPH_MatrixAllocInt("x", 0, 1, 0, 1);      // added
  (void)ZEPH_ArrayRealloc(a, 0, 1, name), (void)ZEPH_ArrayRealloc(i, 0, 1, nullptr);
  (void)ZEPH_ArrayRealloc(a, 0, 1, "x");           // added
  ZEPH_ArrayDisplay(out, a, 0, 1, name);
  ZEPH_ArrayDisplay(out, i, 1, nullptr);
  ZEPH_ArrayDisplay(i, 1, name);
  ZEPH_ArrayDisplay(a, 0, 1, nullptr);
  ZEPH_ArrayDisplay(stdout, a, 1, name);
  ZEPH_ArrayDisplay(stdout, i, 0, 1, name);
  ZEPH_ArrayDisplay(out, a, 0, 1, "x");            // added
  ZEPH_ArrayDisplay(i, 1, "x");                    // added
  ZEPH_ArrayDisplay(a, 0, 1, "x");                 // added
  ZEPH_ArrayDisplay(stdout, i, 0, 1, "x");         // added
  ZEPH_MatrixPrint(stdout, 1, m, name);
  ZEPH_MatrixPrint(stdout, 1, 1, m, nullptr);
  ZEPH_MatrixPrint3(stdout, m, name);
  ZEPH_MatrixPrint4(stdout, m, name);
  ZEPH_MatrixPrint4(stdout, a, name);
  ZEPH_VectorPrint3(stdout, a, name);
  ZEPH_MatrixPrint(stdout, 1, m, "x");             // added
  ZEPH_MatrixPrint(stdout, 1, 1, m, "x");          // added
  ZEPH_MatrixPrint4(stdout, m, "x");               // added
  ZEPH_MatrixPrint4(stdout, a, "x");               // added
}

void Collections(CZEPHSortableObArray& array, CZEPHSortableObList& list, int (*compare)(CObject*, CObject*)) {
  array.Sort(compare), array.Sort(0, 2, compare);
  list.Sort(compare), list.Sort(list.GetHeadPosition(), 2, compare);
  array.SortStable(compare);                       // added
  array.SortStable(0, 2, compare);                 // added
  list.SortStable(compare);                        // added
  list.SortStable(list.GetHeadPosition(), 2, compare);  // added
}
