// The double array: values in, sorted, searched, measured, printed.
#include <iostream>

#include <ZEPHDataStructureEngine/double_array.h>

int main() {
  const double values[] = {4, -3, 12, 0.5};
  CZEPHDoubleArray a(4, values);
  std::cout << "norms " << a.OneNorm() << " " << a.TwoNorm() << " " << a.MaxNorm() << "\n";

  a.QuickSort(10);
  int at = -1;
  if (a.BinarySearch(4, at)) std::cout << "4 stands at " << at << "\n";
  std::cout << "largest " << a[a.GetSize() - 1] << "\n";

  CZEPHDoubleArray doubled = 2 * a;
  std::cout << doubled << "dot product " << ZEPH_ArrayDotProduct(a, doubled) << "\n";

  double sum = 0;
  for (double x : doubled - a) sum += x;  // a range, also of a temporary
  std::cout << "sum " << sum << "\n";
  return 0;
}
