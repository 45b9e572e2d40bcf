// A plug-in that uses the library, for programs that load and unload it.
#include <cstdio>
#include <cstring>
#include <thread>

#include "ZEPHDataStructureEngine.h"

#ifdef _WIN32
#define ZEPH_PLUGIN extern "C" __declspec(dllexport)
#else
#define ZEPH_PLUGIN extern "C" __attribute__((visibility("default")))
#endif

namespace {

bool Negate() {
  CZEPHDoubleMatrix m(5, 5, 2.0);
  bool right = true;
  for (int i = 0; i < 20; ++i) right = right && (-m)[4][4] == -2.0;
  return right;
}

bool UseArrays() {
  double values[] = {9, 7, 8, 1, 2, 3, 6, 5, 4};
  CZEPHDoubleArray a(9, values), b(a);
  a.QuickSort(3);
  b.ShellSort();
  CString text;
  a.Display(text);
  return a[0] == 1.0 && b[8] == 9.0 && (a + b).MaxNorm() == 18.0 && text.GetLength() > 0;
}

bool UseMatrices() {
  CZEPHMatrix m(40, 40), n(40, 40);
  ZEPH_RandomizeMatrix(m, 1.0);
  ZEPH_RandomizeMatrix(n, 1.0);
  CZEPHMatrix product = m * n;
  double** raw = ZEPH_MatrixAllocDouble("raw", 1, 3, 1, 4);
  ZEPH_MatrixFree(raw, 1, 3, 1, 4);
  CZEPHMatrix4x4 turn;
  turn.SetRotationAxis(30, CZEPHVector3D(0, 0, 1));
  return product.GetNoRow() == 40 && raw && turn.GetInverse().GetEntry(15) == 1.0f;
}

bool UseTheKit() {
  int exponent;
  double mantissa;
  CString text = ZEPH_MathToScientificNotation(12345.678, exponent, mantissa, 2, 3);
  int numbers[] = {3, 1, 2};
  CZEPHSelectionSort::Run(numbers, 3);
  CZEPHStack stack;
  stack.Push(numbers);
  return numbers[0] == 1 && stack.Pop() == numbers && text.GetLength() > 0;
}

}  // namespace

/// Calls something of every part of the library, with results kept for this thread and another.
ZEPH_PLUGIN int Use() {
  bool other = false;
  std::thread([&other] { other = Negate(); }).join();
  return Negate() && other && UseArrays() && UseMatrices() && UseTheKit();
}

/// Leaves sleeping threads of the library behind.
ZEPH_PLUGIN int UseThreads() {
  ZEPH_SetThreads(3);
  const CZEPHDoubleMatrix ones(180, 180, 1.0);
  CZEPHDoubleMatrix product = ones;
  product.operator*=(ones);
  return product[179][179] == 180.0;
}

/// Keeps results for the calling thread only.
ZEPH_PLUGIN int UseThreadData() {
  return Negate();
}
