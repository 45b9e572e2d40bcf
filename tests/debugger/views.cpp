// One object of every type that has a debugger view; gdb stops at Stop() and prints them.
#include <ZEPHDataStructureEngine/ZEPHDataStructureEngine.h>

__attribute__((noinline)) void Stop() {
  asm volatile("");
}

struct Shape : CObject {};

int main() {
  double values[] = {3, 1, 2, 4};
  double* rows[] = {values, values + 2};
  CZEPHDoubleArray array(3, values), none;
  array.InsertionSort();
  CZEPHDoubleMatrix doubles(2, 2, rows);
  CZEPHMatrix matrix(2, 2, values);
  CZEPHVector vector(3, values);
  CZEPHMatrix4 matrix4(0.0);
  for (int i = 0; i < 16; ++i) matrix4.m_data[i] = i;
  CZEPHVector3 vector3(1, 2, 3);
  CZEPHVector2D two(1, 2);
  CZEPHVector3D three(1, 2, 3);
  CZEPHVector4D four(1, 2, 3, 4);
  CZEPHMatrix4x4 transform;
  CZEPHLinkList<double> list;
  list.InsertOrdered(new CZEPHLink<double>(2));
  list.InsertOrdered(new CZEPHLink<double>(1));
  CZEPHLinkData key(7);
  CZEPHSortedLinkList keys;
  keys.Insert(&key);
  CZEPHPointerStack stack;
  stack.Push(nullptr);
  CZEPHUIntArray counts;
  counts.Add(5);
  CZEPHSortableObList shapes;
  Shape shape;
  shapes.AddTail(&shape);
  CString text("hello");
  Stop();
  return 0;
}
