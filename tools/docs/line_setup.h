// What the one-line snippets of docs/behaviours.md take for granted: headers, and how a stated
// number is compared.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <limits>
#include <sstream>
#include <vector>

#include "ZEPHDataStructureEngine.h"

inline int Same(double value, double stated) {
  return value == stated ? 0 : 1;
}
inline int ByKey(CObject*, CObject*) {
  return 0;
}
