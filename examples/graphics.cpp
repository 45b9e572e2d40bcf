// Graphics: a point is rotated, translated and brought back.
#include <cstdio>

#include <ZEPHDataStructureEngine/graphics.h>

static void Print(const char* what, const CZEPHVector3D& p) {
  std::printf("%-8s %.3f %.3f %.3f\n", what, static_cast<double>(p.x), static_cast<double>(p.y),
              static_cast<double>(p.z));
}

int main() {
  CZEPHMatrix4x4 turn, move;
  turn.SetRotationZ(90);
  move.SetTranslation(CZEPHVector3D(5, 0, 0));
  CZEPHMatrix4x4 place = move * turn;  // rotated first, then translated

  CZEPHVector3D p = place * CZEPHVector4D(1, 2, 3, 1);
  Print("there", p);
  CZEPHVector3D back = place.GetAffineInverse() * CZEPHVector4D(p);
  Print("back", back);
  std::printf("length   %.3f\n", static_cast<double>(CZEPHVector3D(2, 3, 6).GetLength()));
  return 0;
}
