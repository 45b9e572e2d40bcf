// One part of a program, compiled plain and hardened: ZEPH_TEST_PART names the function.
#include "double_array.h"

double ZEPH_TEST_PART(const CZEPHDoubleArray& a, int i) {
  return a[i];
}
