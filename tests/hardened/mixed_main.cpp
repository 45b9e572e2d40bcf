// A program of which one part is hardened and the other is not: each part checks as it was
// compiled.
#include "double_array.h"

double ReadHardened(const CZEPHDoubleArray& a, int i);
double ReadPlain(const CZEPHDoubleArray& a, int i);

int main(int argc, char**) {
  CZEPHDoubleArray a(6, 7.0);
  a.size = 5;  // the element after the last exists
  const double read = argc > 1 ? ReadHardened(a, 5) : ReadPlain(a, 5) + ReadHardened(a, 4) - 7.0;
  return read == 7.0 ? 0 : 1;
}
