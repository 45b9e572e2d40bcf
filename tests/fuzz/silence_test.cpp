// Only listings, reports and fatal errors are written to the standard streams: everything else is silent, whatever it
// meets. The fuzz bodies meet nearly everything.
#include <gtest/gtest.h>

#include <batch.h>
#include <containers.h>
#include <double_array.h>
#include <graphics.h>
#include <linalg.h>

#include <limits>
#include <sstream>
#include <vector>

#include "fuzz/bodies.h"
#include "support/child.h"
#include "support/random.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

int Alike(CObject*, CObject*) {
  return 0;
}

void MeetNoElement() {
  CZEPHDoubleArray none, three(3, 1.0);
  int index = 0;
  three.Remove(7.0), none.Remove(7.0), three.BinarySearch(7.0, index), none.QuickSort(3);
  three.recQuickSort(2, 1, 3), three.InsertionSort(2, 1), three.ManualSort(2, 1);
  three.Trace("traced");
  std::istringstream("2 5 6") >> none;
  std::istringstream("x") >> three;
  CZEPHSortableObArray array;
  CZEPHSortableObList list;
  array.Sort(Alike), array.Sort(0, 0, Alike), list.Sort(Alike), list.Sort(nullptr, 1, Alike);
  array.SortStable(Alike), list.SortStable(Alike);
  CZEPHStack stack;
  CZEPHPointerStack pointers;
  stack.Pop(), stack.Peek(), pointers.Pop(), pointers.Peek();
  CZEPHLinkList<double> values;
  CZEPHSortedLinkList keys;
  values.GetFirstLink(), values.InsertOrdered(nullptr), values.Sorting(nullptr, 3);
  keys.Find(1), keys.Remove(1), keys.Insert(nullptr);
  CZEPHVector3D low, high;
  ZEPH_BatchBounds(nullptr, 0, low, high);
  ZEPH_BatchNormalize(&low, &high, -1);
}

void MeetZeros() {
  CZEPHMatrix4x4 zero;
  zero.LoadZero();
  zero.GetInverse(), zero.GetInverseTranspose(), zero.GetAffineInverse();
  zero /= 0.0f, zero.SetEntry(16, 1.0f), zero.GetEntry(-1), zero.GetRow(4), zero.GetColumn(-1);
  zero.SetPerspective(1, 1, -1, 1, 1, 10), zero.SetOrtho(1, 1, 1, 1, 1, 1);
  CZEPHVector3D v;
  v /= 0.0f, v.Normalize(), v.RotateAxis(30, v);
  CZEPHVector3 null;
  Bisect(null, null), null.EpsilonCorrect(null), null.Normalized();
  null.Normalize(), null /= 0.0;
  CZEPHMatrix4(1.0) / 0.0;
  CZEPHVector w(3, nullptr);
  w / 0.0, w / std::numeric_limits<double>::quiet_NaN();
}

/// The sanitizers' allocators end the program at a request for so many bytes.
void MeetNegativeCounts() {
#ifndef ZEPH_TEST_SANITIZED
  CZEPHDoubleMatrix m, negative(-1, 2, 1.0);  // rows past a new count are never released
  CZEPHDoubleArray array(-1, 1.0);
  m.Create(-1, 2);
  CZEPHMatrix general(2, 2);
  CZEPHVector vector(2);
  general.ReSize(-1, 2), vector.ReSize(-1);
#endif
}

void MeetNoStorage() {
  CZEPHDoubleMatrix m(2, 2, 1.0);
  m.Clear(), m.SetEntry(1.0);
  std::istringstream("2 2 1 2 3 4") >> m;
  CZEPHMatrix general(2, 2);
  CZEPHVector vector(2);
  general.Free(), general.PickCol(0), vector.Free();
  ZEPH_RandomizeMatrix(general, 1.0);
  ZEPH_GetVectorMaxSite(vector), ZEPH_GetVectorInfititeNorm(vector);
}

void RunTheFuzzBodies() {
  Random random(31);
  std::vector<unsigned char> input;
  for (std::size_t k = 0; k < Scaled<std::size_t>(400, 60); ++k)
    for (FuzzBody* body : kFuzzBodies) {
      input.resize(random.Below(120));
      for (auto& byte : input) byte = static_cast<unsigned char>(random.Next());
      body(input.data(), input.size());
    }
}

}  // namespace

TEST(Silence, OfEverythingButListingsAndReports) {
  CaptureStdout out;
  CaptureStderr err;
  MeetNoElement();
  MeetZeros();
  MeetNegativeCounts();
  MeetNoStorage();
  RunTheFuzzBodies();
  EXPECT_EQ(out.Text(), "");
#ifndef ZEPH_TEST_SANITIZED  // a sanitizer warns of a format that it does not know
  EXPECT_EQ(err.Text(), "");
#endif
}

}  // namespace zeph::test
