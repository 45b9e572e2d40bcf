// A fixed piece of work per family of operations, for counting instructions
// (tools/check/instructions.sh).
//
//     zeph_instructions --list | zeph_instructions FORM FAMILY
//
// Only what runs inside ZephWorkload is counted; inputs are made before it.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "ZEPHDataStructureEngine.h"
#include "kernels/table.h"

namespace {

std::function<void()> work;
volatile double sink;

/// Whole numbers and fractions, the same everywhere.
std::vector<double> Numbers(std::size_t n) {
  std::vector<double> v(n);
  std::uint64_t state = 88172645463325252u;
  for (double& x : v) {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    x = static_cast<double>(state >> 40) / 1024.0 - 8000.0;
  }
  return v;
}

CZEPHDoubleArray Array(std::size_t n) {
  std::vector<double> v = Numbers(n);
  return CZEPHDoubleArray(static_cast<int>(n), v.data());
}

CZEPHMatrix Matrix(int n) {
  return CZEPHMatrix(n, n,
                     Numbers(static_cast<std::size_t>(n) * static_cast<std::size_t>(n)).data());
}

struct Family {
  const char* name;
  std::function<void()> (*prepare)();
};

template <class Sort>
std::function<void()> Sorting(std::size_t n, Sort sort) {
  static CZEPHDoubleArray a = Array(n);
  return [sort] { sort(a); };
}

/// With zeros of both signs the shared sort alone is not sufficient: quicksort makes its partitions
/// as far as they matter, Shell's sort follows the zeros through its passes, bubble sort keeps them
/// in order.
CZEPHDoubleArray Walked(std::size_t n) {
  CZEPHDoubleArray a = Array(n);
  a[0] = 0.0;
  a[1] = -0.0;
  return a;
}

const Family kFamilies[] = {
    {"quicksort", [] { return Sorting(20'000, [](CZEPHDoubleArray& a) { a.QuickSort(10); }); }},
    {"quicksort-walk",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Walked(20'000);
       return [] { a.QuickSort(10); };
     }},
    {"shell-walk",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Walked(5'000);
       return [] { a.ShellSort(); };
     }},
    {"bubble-walk",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Walked(1'000);
       return [] { a.BubbleSort(); };
     }},
    {"short-sorts",
     []() -> std::function<void()> {
       static std::vector<CZEPHDoubleArray> all(1'000, Array(12));
       return [] {
         for (auto& a : all) a.InsertionSort();
       };
     }},
    {"find",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Array(50'000);
       return [] {
         for (int i = 0; i < 20; ++i) sink = a.Find(1e9);
       };
     }},
    {"binary-search",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Array(10'000), keys = a;
       a.QuickSort(10);
       return [] {
         int at = 0;
         for (double x : keys) a.BinarySearch(x, at);
         sink = at;
       };
     }},
    {"merge",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Array(20'000), b = Array(20'000), out(40'000, 0.0);
       a.QuickSort(10);
       b.QuickSort(10);
       return [] { a.MergeSortedArray(a.data, 20'000, b.data, 20'000, out.data); };
     }},
    {"norms",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Array(50'000);
       return [] { sink = a.OneNorm() + a.TwoNorm() + a.MaxNorm() + ZEPH_ArrayDotProduct(a, a); };
     }},
    {"array-arithmetic",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Array(20'000), b = Array(20'000);
       return [] { sink = (2.0 * (a + b) - a * b)[7]; };
     }},
    {"product",
     []() -> std::function<void()> {
       static CZEPHMatrix a = Matrix(96), b = Matrix(96);
       return [] { sink = (a * b)[95][95]; };
     }},
    {"row-sums",
     []() -> std::function<void()> {
       static CZEPHMatrix a = Matrix(200);
       return [] { sink = ZEPH_SumVector(a)[199]; };
     }},
    {"small-arrays",
     []() -> std::function<void()> {
       static CZEPHDoubleArray a = Array(4), b = Array(4);
       static CZEPHVector u(4, a.data), v(4, b.data);
       return [] {
         for (int i = 0; i < 1'000; ++i) {
           CZEPHDoubleArray sum = a + b;
           sum += a;
           sink = sum.MaxNorm() + sum.OneNorm() + ZEPH_ArrayDotProduct(sum, a);
           CZEPHVector total = u + v;
           total = u;
           sink = total[3] + CZEPHDoubleArray(10, 1.0)[9];
         }
       };
     }},
    {"small-matrices",
     []() -> std::function<void()> {
       static CZEPHMatrix a = Matrix(4), b = Matrix(4), c = Matrix(4);
       return [] {
         for (int i = 0; i < 500; ++i) {
           c = a * b;
           c = a;
         }
         sink = c[3][3];
       };
     }},
    {"small-classes",
     []() -> std::function<void()> {
       static CZEPHMatrix4 a(0.5), b(a);
       static CZEPHMatrix4x4 e, f;
       return [] {
         CZEPHVector3 p(1, 2, 3), q(3, 1, 2);
         CZEPHStack stack;
         for (int i = 0; i < 1'000; ++i) {
           CZEPHMatrix4 product = a * b, copy = product;
           CZEPHVector3 sum = p + q * 0.5;
           CZEPHVector4D moved = e * f * CZEPHVector4D(1, 2, 3, 1);
           stack.Push(&copy);
           stack.Pop();
           sink = copy.m_data[5] + sum.m_x + moved.x;
         }
       };
     }},
    {"batches",
     []() -> std::function<void()> {
       static std::vector<CZEPHVector3D> v(1'000, CZEPHVector3D(1, 2, 3));
       static std::vector<CZEPHVector3> d(1'000, CZEPHVector3(1, 2, 3));
       static std::vector<CZEPHMatrix4x4> m(100);
       static CZEPHMatrix4x4 by;
       by.SetRotationAxis(30, CZEPHVector3D(1, 2, 3));
       return [] {
         CZEPHVector3D low, high;
         ZEPH_BatchTransformPoints(by, v.data(), v.data(), 1'000);
         ZEPH_BatchCross(v.data(), v.data(), v.data(), 1'000);
         ZEPH_BatchNormalize(d.data(), d.data(), 1'000);
         ZEPH_BatchMultiply(by, m.data(), m.data(), 100);
         ZEPH_BatchBounds(v.data(), 1'000, low, high);
         sink = low.x;
       };
     }},
    {"inverse",
     []() -> std::function<void()> {
       static CZEPHMatrix4x4 m;
       m.SetRotationAxis(30, CZEPHVector3D(1, 2, 3));
       m.SetEntry(3, 0.5f);
       return [] {
         for (int i = 0; i < 2'000; ++i) sink = (m.GetInverse() * m).GetEntry(5);
       };
     }},
    {"vectors",
     []() -> std::function<void()> {
       return [] {
         CZEPHVector3D v(1, 2, 3);
         for (int i = 0; i < 2'000; ++i) v = v.CrossProduct(CZEPHVector3D(3, 1, 2)).GetNormalized();
         sink = v.x;
       };
     }},
    {"raw-matrices",
     []() -> std::function<void()> {
       return [] {
         for (int i = 0; i < 20; ++i)
           ZEPH_MatrixFree(ZEPH_MatrixAllocDouble("m", 1, 50, 1, 50), 1, 50, 1, 50);
       };
     }},
    {"listing",
     []() -> std::function<void()> {
       static std::vector<double> values = Numbers(1'000);
       static CString text;
       return [] { ZEPH_ArrayDisplay(text, values.data(), 0, 999, "a"); };
     }},
    {"selection-sort",
     []() -> std::function<void()> {
       static std::vector<int> values;
       for (const double x : Numbers(2'000)) values.push_back(static_cast<int>(x * 16));
       return [] { CZEPHSelectionSort::Run(values.data(), 2'000); };
     }},
    {"collections",
     []() -> std::function<void()> {
       return [] {
         CZEPHStack stack;
         for (int i = 0; i < 1'000; ++i) stack.Push(&stack);
         while (stack.Pop()) {
         }
       };
     }},
};

}  // namespace

/// Counted. Not inlined and not renamed, so that it is found by its name.
extern "C" __attribute__((noinline)) void ZephWorkload() {
  work();
}

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--list") == 0) {
    for (const Family& family : kFamilies) std::puts(family.name);
    return 0;
  }
  if (argc != 3) return 2;
  if (!zeph::kernels::Force(argv[1])) return 3;
  for (const Family& family : kFamilies)
    if (std::strcmp(family.name, argv[2]) == 0) {
      work = family.prepare();
      ZephWorkload();
      return 0;
    }
  return 3;
}
