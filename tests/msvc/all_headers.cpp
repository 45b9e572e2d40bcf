// Every public header, in the dialect of Visual C++. ZEPH_MACROS_FIRST puts the system's macros in front.
#ifdef ZEPH_MACROS_FIRST
#include "numeric.h"  // everything that our headers include of the standard library
#include "system_macros.h"
#endif
#include "ZEPHDataStructureEngine.h"
#ifndef ZEPH_MACROS_FIRST
#include "system_macros.h"
#endif

// The macros do no harm after the headers either.
inline void Use(CZEPHMatrix4x4& m, CZEPHDoubleArray& a) {
  m.SetOrtho(0, 640, 480, 0, -1, 1);
  m.SetPerspective(60, 1, 1, 100);
  a.QuickSort(3);
}
