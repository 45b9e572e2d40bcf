// A fixed piece of work per family of operations, for counting instructions
// (count.py).
//
//     zeph_instructions --list FORM | zeph_instructions FORM FAMILY
//
// Families that use no kernel are listed for the portable form only. Only what runs inside
// ZephWorkload is counted; inputs are made before it.
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
  bool kernels = true;  // false: the same whatever the form
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

// What programs do with objects of a few elements, by the thousand.

template <class Work>
std::function<void()> Small(Work once) {
  return [once] {
    for (int i = 0; i < 1'000; ++i) once();
  };
}

CZEPHVector Vector(std::size_t n) {
  return CZEPHVector(static_cast<int>(n), Numbers(n).data());
}

CZEPHMatrix4x4 Turned() {
  CZEPHMatrix4x4 m;
  m.SetRotationAxis(30, CZEPHVector3D(1, 2, 3));
  return m;
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
     },
     false},
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
    {"array-made", [] { return Small([] { sink = CZEPHDoubleArray(10, 1.0)[9]; }); }, false},
    {"array-sum",
     [] {
       static CZEPHDoubleArray a = Array(4), b = Array(4);
       return Small([] {
         CZEPHDoubleArray sum = a + b;
         sink = sum[3];
       });
     },
     false},
    {"array-added",
     [] {
       static CZEPHDoubleArray a = Array(4), b = Array(4);
       return Small([] { a += b; });
     },
     false},
    {"array-norms",
     [] {
       static CZEPHDoubleArray a = Array(4);
       return Small([] { sink = a.MaxNorm() + a.OneNorm() + ZEPH_ArrayDotProduct(a, a); });
     },
     false},
    {"vector-sum",
     [] {
       static CZEPHVector u = Vector(4), v = Vector(4);
       return Small([] {
         CZEPHVector sum = u + v;
         sink = sum[3];
       });
     },
     false},
    {"vector-assigned",
     [] {
       static CZEPHVector u = Vector(4), v = Vector(4);
       return Small([] { u = v; });
     },
     false},
    {"matrix-product",
     [] {
       static CZEPHMatrix a = Matrix(4), b = Matrix(4);
       return Small([] {
         CZEPHMatrix product = a * b;
         sink = product[3][3];
       });
     },
     false},
    {"product-assigned",
     [] {
       static CZEPHMatrix a = Matrix(4), b = Matrix(4), r = Matrix(4);
       return Small([] { r = a * b; });
     },
     false},
    {"matrix-assigned",
     [] {
       static CZEPHMatrix a = Matrix(4), r = Matrix(4);
       return Small([] { r = a; });
     },
     false},
    {"double-4x4",
     [] {
       static CZEPHMatrix4 a(0.5), b(a);
       return Small([] {
         CZEPHMatrix4 product = a * b;
         sink = product.m_data[5];
       });
     },
     false},
    {"double-4x4-copied",
     [] {
       static CZEPHMatrix4 a(0.5);
       return Small([] {
         CZEPHMatrix4 copy = a;
         sink = copy.m_data[5];
       });
     },
     false},
    {"double-vector",
     [] {
       static CZEPHVector3 p(1, 2, 3), q(3, 1, 2);
       return Small([] {
         CZEPHVector3 sum = p + q * 0.5;
         sink = sum.m_x;
       });
     },
     false},
    {"float-4x4",
     [] {
       static CZEPHMatrix4x4 e = Turned(), f = Turned();
       return Small([] { sink = (e * f).GetEntry(5); });
     },
     false},
    {"float-4x4-vector",
     [] {
       static CZEPHMatrix4x4 e = Turned();
       static CZEPHVector4D v(1, 2, 3, 1);
       return Small([] { sink = (e * v).x; });
     },
     false},
    {"float-cross",
     [] {
       static CZEPHVector3D v(1, 2, 3), w(3, 1, 2);
       return Small([] { sink = v.CrossProduct(w).x; });
     },
     false},
    {"float-dot",
     [] {
       static CZEPHVector3D v(1, 2, 3), w(3, 1, 2);
       return Small([] { sink = v.DotProduct(w); });
     },
     false},
    {"float-normalised",
     [] {
       static CZEPHVector3D v(1, 2, 3);
       return Small([] { sink = v.GetNormalized().x; });
     },
     false},
    {"stack-pair",
     [] {
       static CZEPHStack stack;
       return Small([] {
         stack.Push(&stack);
         sink = stack.Pop() == &stack;
       });
     },
     false},
    {"inverse",
     []() -> std::function<void()> {
       static CZEPHMatrix4x4 m;
       m.SetRotationAxis(30, CZEPHVector3D(1, 2, 3));
       m.SetEntry(3, 0.5f);
       return [] {
         for (int i = 0; i < 2'000; ++i) sink = (m.GetInverse() * m).GetEntry(5);
       };
     },
     false},
    {"raw-matrices",
     []() -> std::function<void()> {
       return [] {
         for (int i = 0; i < 20; ++i)
           ZEPH_MatrixFree(ZEPH_MatrixAllocDouble("m", 1, 50, 1, 50), 1, 50, 1, 50);
       };
     },
     false},
    {"listing",
     []() -> std::function<void()> {
       static std::vector<double> values = Numbers(1'000);
       static CString text;
       return [] { ZEPH_ArrayDisplay(text, values.data(), 0, 999, "a"); };
     },
     false},
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
     },
     false},
};

}  // namespace

/// Counted. Not inlined and not renamed, so that it is found by its name.
extern "C" __attribute__((noinline)) void ZephWorkload() {
  work();
}

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], "--list") == 0) {
    for (const Family& family : kFamilies)
      if (family.kernels || std::strcmp(argv[2], "portable") == 0) std::puts(family.name);
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
