// Ends at the fatal error that its argument names, or computes, before the static objects of any library. It includes
// no standard stream, whose header would prepare them.
#include <cstring>
#include <limits>

#include "ZEPHDataStructureEngine.h"

static int result = 7;

#ifdef __GLIBC__
/// Something by each family of inner loops.
static bool Computes() {
  constexpr int kSize = 300;
  double v[kSize], w[kSize];
  for (int i = 0; i < kSize; ++i) v[i] = w[i] = (i * 7919) % 1009 - 500.5;
  w[10] = w[200] = std::numeric_limits<double>::quiet_NaN();
  CZEPHDoubleArray a(kSize, v), b(kSize, v), c(kSize, w), d(kSize, w);
  a += b;
  bool right = a[299] == 2 * v[299] && a.Find(2 * v[250]) == 250 && a.MaxNorm() > 0;
  a.QuickSort(10);
  b.ShellSort();
  for (int i = 0; i < kSize; ++i) right = right && a[i] == 2 * b[i];
  c.ShellSort();
  d.QuickSort(10);
  right = right && a.CheckSorted() && c[10] != c[10] && d.Find(v[299]) >= 0;
  CZEPHMatrix one(40, 40);
  for (int i = 0; i < 40; ++i)
    for (int j = 0; j < 40; ++j) one.m_ppData[i][j] = i == j ? 1.0 : 0.0;
  CZEPHMatrix product = one * one;
  CZEPHVector sums(40);
  ZEPH_SumVector(product, sums);
  for (int i = 0; i < 40; ++i) right = right && product.m_ppData[i][i] == 1 && sums[i] == 1;
  CZEPHVector3D points[20], ends[20];
  for (CZEPHVector3D& point : points) point.x = 2;
  CZEPHMatrix4x4 same;
  same.LoadIdentity();
  ZEPH_BatchTransformPoints(same, points, ends, 20);
  return right && ends[19].x == 2;
}

[[gnu::constructor]] static void Early(int argc, char** argv) {
  if (argc != 2) return;
  if (std::strcmp(argv[1], "report") == 0) CZEPHDoubleArray(3, 1.0).GetEntry(-1);
  if (std::strcmp(argv[1], "check") == 0) CZEPHVector(2) + CZEPHVector(3);
  if (std::strcmp(argv[1], "compute") == 0) result = Computes() ? 8 : 9;
}
#endif

int main() {
  return result;
}
