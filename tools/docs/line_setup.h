// What the one-line snippets of docs/behaviours.md rely on: headers, and the comparison with a
// stated number.
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
