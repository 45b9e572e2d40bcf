// A program of a parent project: something from each header, printed with every bit.
#include <ZEPHDataStructureEngine/ZEPHDataStructureEngine.h>

#include <cstdio>
#include <iostream>
#include <sstream>

namespace {

void Print(const char* what, double value) {
  std::printf("%s %a\n", what, value);
}

void SortAndSearch() {
  double values[300];
  for (int i = 0; i < 300; ++i) values[i] = (i * 7919 % 307) / 8.0 - 11;
  CZEPHDoubleArray array(300, values);
  array.QuickSort(3);
  int place = 0;
  array.BinarySearch(array[123], place);
  std::printf("found at %d\n", place);
  Print("norm", ZEPH_ArrayDotProduct(array, array));
  CZEPHDoubleArray few(3, values);
  std::ostringstream text;
  text << few;
  std::fputs(text.str().c_str(), stdout);
}

void Matrices() {
  double** matrix = ZEPH_MatrixAllocDouble("m", 0, 2, 0, 2);
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) matrix[i][j] = i * 3 + j;
  Print("Frobenius", ZEPH_MatrixFrobNorm2(matrix, 3, 0));
  ZEPH_MatrixFree(matrix, 0, 2, 0, 2);
  CZEPHMatrix4x4 turn;
  turn.SetRotationZ(30);
  const CZEPHVector4D turned = turn * CZEPHVector4D(1, 2, 3, 1);
  Print("x", static_cast<double>(turned.x));
  Print("y", static_cast<double>(turned.y));
  std::cout << CZEPHVector3(1, 2, 3) << '\n';
}

class Item : public CObject {};
int Compare(CObject* a, CObject* b) {
  return a < b ? -1 : 1;
}

void Collections() {
  CZEPHLinkList<double> list;
  for (double x : {3.0, 1.0, 2.0}) list.InsertOrdered(new CZEPHLink<double>(x));
  std::printf("first %g\n", list.m_pHead->m_value);
  CZEPHSortableObArray sorted;
  Item objects[2];
  sorted.Add(&objects[1]);
  sorted.Add(&objects[0]);
  sorted.Sort(Compare);
  std::printf("sorted %d\n", sorted.GetAt(0) == &objects[0]);
  CString text;
  text.Format("%d %s", ZEPH_RoundOffToInt(2.5), "rounded");
  std::printf("%s\n", text.GetString());
}

}  // namespace

int main() {
  SortAndSearch();
  Matrices();
  Collections();
  return 0;
}
