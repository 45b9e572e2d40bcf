// Threads with objects of their own do not interfere: all bodies at once, each on its own inputs.
//
// What threads may share by the documentation is not called here (the random generator) or
// suppressed by the step that runs this under the thread sanitizer (the live counts of CZEPHMatrix4
// and CZEPHVector3, tools/check/threads.supp).
#include <gtest/gtest.h>

#include <algorithms.h>
#include <batch.h>
#include <containers.h>
#include <double_array.h>
#include <graphics.h>
#include <linalg.h>
#include <raw_buffers.h>

#include <atomic>
#include <cstring>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "fuzz/bodies.h"
#include "support/not_finite.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

constexpr int kThreads = 8;
/// Inputs of a thread for every body; most hold several operations.
const std::size_t kInputs = Scaled<std::size_t>(300, 100);

void RunAll(std::uint64_t seed) {
  Random random(seed);
  std::vector<unsigned char> input;
  for (std::size_t k = 0; k < kInputs; ++k)
    for (FuzzBody* body : kFuzzBodies) {
      input.resize(random.Below(120));
      for (auto& byte : input) byte = static_cast<unsigned char>(random.Next());
      body(input.data(), input.size());
    }
}

/// The objects of one thread, and a digest of all results.
class Mixture {
 public:
  explicit Mixture(std::uint64_t seed) : random_(seed) {}

  std::uint64_t Run(int operations) {
    for (int k = 0; k < operations; ++k) Step();
    return digest_;
  }

 private:
  void Step() {
    switch (random_.Below(9)) {
      case 0:
        return Keep(array_ = array_ + array_);
      case 1:
        return Sort();
      case 2:
        return Multiply();
      case 3:
        return Turn();
      case 4:
        return Negate();
      case 5:
        return Buffer();
      case 6:
        return List();
      case 7:
        return Write();
      default:
        return Refill();
    }
  }

  void Keep(double x) {
    std::uint64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    digest_ = (digest_ ^ bits) * 0x100000001B3u;
  }
  void Keep(const CZEPHDoubleArray& a) {
    for (int i = 0; i < a.GetSize(); ++i) Keep(a.data[i]);
  }

  void Refill() {
    for (int i = 0; i < array_.GetSize(); ++i) array_[i] = random_.Real();
  }
  void Sort() {
    array_.QuickSort(static_cast<int>(random_.Below(12)));
    Keep(array_);
  }
  void Multiply() {
    CZEPHDoubleMatrix m(4, 4, 0.0);
    for (int i = 0; i < 4; ++i)
      for (int j = 0; j < 4; ++j) m[i][j] = random_.Real();
    m *= m;
    Keep(m[3][2]);
  }
  void Turn() {
    transform_.SetRotationX(random_.Real(-90, 90));
    const CZEPHMatrix4x4 inverse = transform_.GetInverse();
    for (float x : inverse.entries) Keep(x);
  }
  void Negate() {  // uses what the library keeps for each thread
    CZEPHDoubleMatrix m(2, 2, 1.0);
    m[1][0] = random_.Real();
    Keep((-m)[1][0]);
  }
  void Buffer() {
    const int hi = static_cast<int>(random_.Below(20));
    double* x = ZEPH_ArrayAllocDouble("x", -3, hi);
    x[hi] = random_.Real();
    Keep(ZEPH_ArrayMaxNorm(x, hi, -3));
    ZEPH_ArrayFree(x, -3, hi);
  }
  void List() {
    CZEPHLinkList<double> list;
    for (int k = 0; k < 5; ++k) list.InsertOrdered(new CZEPHLink<double>(random_.Real()));
    Keep(list.m_pHead->m_value);
  }
  void Write() {
    CString text;
    array_.Display(text);
    Keep(text.GetLength());
  }

  Random random_;
  CZEPHDoubleArray array_{16, 0.5};
  CZEPHMatrix4x4 transform_;
  std::uint64_t digest_ = 0xCBF29CE484222325u;
};

/// What an operation gives for the inputs of a seed, as text.
struct Operation {
  const char* name;
  std::string (*result)(Random& random);
};

template <class T>
std::string Bytes(const T* values, std::size_t n) {
  return std::string(reinterpret_cast<const char*>(values), n * sizeof(T));
}

std::string SortedNodes(Random& random) {
  std::vector<CZEPHLink<double>> nodes;
  for (std::size_t n = 20 + random.Below(2000); n > 0; --n) nodes.emplace_back(random.Int(0, 99));
  std::vector<CZEPHLink<double>*> table;
  for (auto& node : nodes) table.push_back(&node);
  CZEPHLinkList<double> list;
  list.Sorting(table.data(), static_cast<int>(table.size()));
  std::vector<std::ptrdiff_t> order;
  for (auto* node = list.m_pHead; node && order.size() < nodes.size(); node = node->m_pNext)
    order.push_back(node - nodes.data());
  list.m_pHead = nullptr;
  return Bytes(order.data(), order.size());
}
std::string SelectedNumbers(Random& random) {
  std::vector<double> numbers(300 + random.Below(300));
  for (double& x : numbers) x = random.Real(-1e6, 1e6);
  CZEPHSelectionSort::Run(numbers.data(), static_cast<int>(numbers.size()));
  return Bytes(numbers.data(), numbers.size());
}
/// Many times over, since each takes less time than a thread takes to begin.
std::string ProductsOf4x4(Random& random) {
  CZEPHMatrix4 a, b;
  CZEPHMatrix4x4 turn;
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j) a(i, j) = random.Real(), b(i, j) = random.Real();
  for (float& x : turn.entries) x = static_cast<float>(random.Real());
  const CZEPHVector4D v(1, 2, 3, 4), want = turn * v;
  const CZEPHMatrix4 product = a * b;
  int others = 0;
  for (int k = 0; k < 2000; ++k) {
    CZEPHMatrix4 m(a);
    m *= b;
    others += std::memcmp(m.m_data, product.m_data, sizeof m.m_data) != 0;
    others += turn * v != want;
  }
  return Bytes(product.m_data, 16) + std::to_string(others);
}
std::string Orderings(Random& random) {
  int numbers[6];
  for (int& x : numbers) x = random.Int(-1'000'000, 1'000'000);
  CString text;
  CZEPHPermutation::Run(numbers, 0, 6, text);
  return text.GetString();
}
std::string SplitNumbers(Random& random) {
  std::string all;
  for (int k = 0; k < 100; ++k) {
    int exponent = 0;
    double mantissa = 0;
    all += ZEPH_MathToScientificNotation(random.Real(-1e9, 1e9), exponent, mantissa, 2, 9);
  }
  return all;
}
CZEPHMatrix RandomMatrix(Random& random, int rows, int cols) {
  CZEPHMatrix m(rows, cols);
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < cols; ++j) m[i][j] = random.Real();
  return m;
}
std::string GeneralMatrices(Random& random) {
  CZEPHMatrix a = RandomMatrix(random, 3, 5), b = RandomMatrix(random, 5, 7);
  const CZEPHVector sums = ZEPH_SumVector(a * b) + (a * b).PickCol(6);
  return Bytes(sums.data(), sums.size());
}
/// Many times over; of matrices that are multiplied without the dense kernel.
std::string NarrowProducts(Random& random) {
  std::string all;
  for (int k = 0; k < 100; ++k) {
    const int n = random.Int(1, 4);
    CZEPHDoubleMatrix m(n, n, 0.0);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j) m[i][j] = random.Real();
    CZEPHMatrix a = RandomMatrix(random, 3, 4), b = RandomMatrix(random, 4, n);
    CZEPHMatrix product = a * b;
    m *= m;
    for (const double* row : {m[0], m[n - 1], product[0], product[2]})
      all += Bytes(row, static_cast<std::size_t>(n));
  }
  return all;
}
std::string ReadMatrices(Random& random) {
  std::stringstream stream;
  stream << "2 3";
  for (int k = 0; k < 6; ++k) stream << ' ' << random.Real(-1e9, 1e9);
  CZEPHDoubleMatrix m(2, 3, 0.0);
  stream >> m;
  return Bytes(m[0], 3) + Bytes(m[1], 3);
}

/// Many zeros of both signs among repeated values, sometimes with NaNs; some arrays are long enough to be counted.
template <class Sort>
std::string Sorted(Random& random, Sort sort) {
  CZEPHDoubleArray a(random.Below(8) ? 1000 + random.Int(0, 3000) : 9000, 0.0);
  const bool nans = random.Below(4) == 0;
  for (double& x : a) {
    x = random.Below(2) ? random.Int(-20, 20) : -0.0;
    if (nans && random.Below(200) == 0) x = kNaN;
  }
  sort(a);
  return Bytes(a.data, static_cast<std::size_t>(a.size));
}
std::string BubbleSorted(Random& random) {
  return Sorted(random, [](CZEPHDoubleArray& a) { a.BubbleSort(); });
}
std::string InsertionSorted(Random& random) {
  return Sorted(random, [](CZEPHDoubleArray& a) { a.InsertionSort(); });
}
std::string ListSorted(Random& random) {
  return Sorted(random, [](CZEPHDoubleArray& a) { a.ListInsertSort(); });
}
std::string ShellSorted(Random& random) {
  return Sorted(random, [](CZEPHDoubleArray& a) { a.ShellSort(); });
}
std::string QuickSorted(Random& random) {
  return Sorted(random, [](CZEPHDoubleArray& a) { a.QuickSort(10); });
}

/// Short arrays, whose sorts have room of their own: a part of the elements are zeros of both signs.
std::string ShortSorted(Random& random) {
  std::string all;
  for (int k = 0; k < 20; ++k) {
    CZEPHDoubleArray a(random.Int(2, 255), 0.0);
    const std::size_t zeros = random.Below(2) ? 2 : 40;  // one in so many
    for (double& x : a) x = random.Below(zeros) ? random.Real(-9, 9) : random.Below(2) ? 0.0 : -0.0;
    CZEPHDoubleArray sorts[] = {a, a, a, a, a};
    sorts[0].ShellSort(), sorts[1].QuickSort(3), sorts[2].InsertionSort();
    sorts[3].ListInsertSort(), sorts[4].BubbleSort();
    for (const CZEPHDoubleArray& sorted : sorts)
      all += Bytes(sorted.data, static_cast<std::size_t>(sorted.size));
  }
  return all;
}
/// Long ones with few zeros.
std::string ShellSortedAroundFewZeros(Random& random) {
  CZEPHDoubleArray a(random.Int(256, 2000), 0.0);
  for (double& x : a) x = random.Below(40) ? random.Real(-9, 9) : random.Below(2) ? 0.0 : -0.0;
  a.ShellSort();
  return Bytes(a.data, static_cast<std::size_t>(a.size));
}
std::string ArraysOfDoubles(Random& random) {
  std::string all;
  for (int k = 0; k < 30; ++k) {
    const int n = random.Int(1, 60);
    CZEPHDoubleArray a(n, 0.0), b(n, 0.0);
    for (double& x : a) x = random.Int(-99, 99);
    for (double& x : b) x = random.Real(-99, 99);
    const double numbers[] = {a.OneNorm(), b.TwoNorm(), a.MaxNorm(), ZEPH_ArrayDotProduct(a, b)};
    all += Bytes(numbers, 4) + std::to_string(a.Find(b[0])) + std::to_string(a.Find(a[n - 1]));
    for (const CZEPHDoubleArray& c : {a + b, b - a, a * b, a / 3.0, -b, 2.0 * a + b})
      all += Bytes(c.data, static_cast<std::size_t>(n));
    a.InsertionSort(), b.InsertionSort();
    std::vector<double> merged(static_cast<std::size_t>(2 * n));
    a.MergeSortedArray(a.data, n, b.data, n, merged.data());
    int at = -1;
    a.BinarySearch(a[n / 2], at);
    all += Bytes(merged.data(), merged.size()) + std::to_string(at);
  }
  return all;
}
std::string Texts(Random& random) {
  std::ostringstream stream;
  CString text;
  CZEPHDoubleArray a(30, 0.0);
  CZEPHDoubleMatrix m(3, 5, 0.0);
  CZEPHMatrix4 four(0.0);
  for (double& x : a) x = random.Real(-1e6, 1e6);
  for (int j = 0; j < 5; ++j) m[0][j] = m[2][4 - j] = random.Real();
  for (double& x : four.m_data) x = random.Real();
  a.Display(text);
  a.Display(text, 5, 25);
  a.Display(stream);
  m.Display(stream);
  stream << a << m << four << CZEPHVector3(a[0], a[1], a[2]);
  CZEPHMatrix4 again(0.0);
  std::stringstream matrix;
  matrix << four;
  matrix >> again;
  return text.GetString() + stream.str() + Bytes(again.m_data, 16);
}
/// In place, and the same one by one.
std::string Batches(Random& random) {
  constexpr int kCount = 37;
  CZEPHMatrix4x4 m;
  m.SetRotationEuler(random.Real(-180, 180), random.Real(-180, 180), random.Real(-180, 180));
  m.SetTranslationPart(CZEPHVector3D(1, static_cast<float>(random.Real()), 3));
  if (random.Below(2)) m.entries[3] = 0.5f;
  std::string all;
  for (int k = 0; k < 20; ++k) {
    std::vector<CZEPHVector3D> v(kCount), low(2);
    for (CZEPHVector3D& p : v) p.Set(static_cast<float>(random.Real()), 2, 3);
    std::vector<CZEPHMatrix4x4> matrices(kCount, m);
    ZEPH_BatchTransformPoints(m, v.data(), v.data(), kCount);
    ZEPH_BatchRotateAxis(random.Real(-180, 180), v[0], v.data(), v.data(), kCount);
    ZEPH_BatchTransformDirections(m, v.data(), v.data(), kCount);
    ZEPH_BatchMultiply(m.GetInverse(), matrices.data(), matrices.data(), kCount);
    ZEPH_BatchBounds(v.data(), kCount, low[0], low[1]);
    std::vector<float> dots(kCount);
    ZEPH_BatchDot(v.data(), v.data(), dots.data(), kCount);
    ZEPH_BatchNormalize(v.data(), v.data(), kCount);
    all += Bytes(dots.data(), dots.size()) + Bytes(matrices[kCount - 1].entries, 16);
    for (const CZEPHVector3D& p : {low[0], low[1], v[0], v[kCount - 1]}) all += Bytes(&p.x, 3);
  }
  return all;
}
std::string TransformsOfFloats(Random& random) {
  std::string all;
  for (int k = 0; k < 100; ++k) {
    CZEPHMatrix4x4 m, turn;
    for (float& x : m.entries) x = static_cast<float>(random.Real());
    const CZEPHVector3D v(m.entries), axis(m.entries + 5);
    turn.SetRotationAxis(random.Real(-180, 180), axis);
    for (const CZEPHMatrix4x4& each : {m.GetInverse(), m.GetInverseTranspose(), m.GetTranspose(),
                                       turn.GetAffineInverse(), m * turn, m / 3.0f})
      all += Bytes(each.entries, 16);
    for (const CZEPHVector3D& each : {v.GetRotatedX(30), v.GetRotatedAxis(30, axis),
                                      v.CrossProduct(axis), v.GetNormalized(), v.GetPackedTo01()})
      all += Bytes(&each.x, 3);
  }
  return all;
}
struct Weighed : CObject {
  int weight = 0;
};
int ByWeight(CObject* a, CObject* b) {
  return static_cast<Weighed*>(a)->weight - static_cast<Weighed*>(b)->weight;
}
std::string SortedObjects(Random& random) {
  std::vector<Weighed> objects(100);
  for (Weighed& object : objects) object.weight = random.Int(0, 40);
  CZEPHSortableObArray sorted, stable;
  CZEPHSortableObList list, stableList;
  for (Weighed& object : objects) {
    sorted.Add(&object), stable.Add(&object);
    list.AddTail(&object), stableList.AddTail(&object);
  }
  sorted.Sort(ByWeight), stable.SortStable(ByWeight);
  list.Sort(ByWeight), stableList.SortStable(ByWeight);
  std::string places;
  const auto note = [&](CObject* object) {
    places += std::to_string(static_cast<Weighed*>(object) - objects.data()) + ' ';
  };
  for (int i = 0; i < 100; ++i) note(sorted.GetAt(i)), note(stable.GetAt(i));
  for (POSITION at = list.GetHeadPosition(); at;) note(list.GetNext(at));
  for (POSITION at = stableList.GetHeadPosition(); at;) note(stableList.GetNext(at));
  return places;
}

constexpr Operation kSameOperations[] = {{"bubble sorts", BubbleSorted},
                                         {"insertion sorts", InsertionSorted},
                                         {"list sorts", ListSorted},
                                         {"Shell's sorts", ShellSorted},
                                         {"quicksorts", QuickSorted},
                                         {"short sorts", ShortSorted},
                                         {"few zeros", ShellSortedAroundFewZeros},
                                         {"arrays of doubles", ArraysOfDoubles},
                                         {"texts", Texts},
                                         {"batches", Batches},
                                         {"transforms of floats", TransformsOfFloats},
                                         {"sorted objects", SortedObjects},
                                         {"sorted nodes", SortedNodes},
                                         {"selected numbers", SelectedNumbers},
                                         {"products of 4 x 4", ProductsOf4x4},
                                         {"orderings", Orderings},
                                         {"split numbers", SplitNumbers},
                                         {"general matrices", GeneralMatrices},
                                         {"narrow products", NarrowProducts},
                                         {"read matrices", ReadMatrices}};

// All threads run the same operation, so that one that kept anything between its calls or beside its
// objects would meet itself.
TEST(Threads, GiveTheResultsOfOneThreadInTheSameOperationAtOnce) {
  const auto inputs = Scaled<std::uint64_t>(200, 50);
  for (const Operation& operation : kSameOperations) {
    std::vector<std::string> want;
    for (std::uint64_t seed = 0; seed < inputs; ++seed) {
      Random random(seed);
      want.push_back(operation.result(random));
    }
    std::atomic<int> others{0}, ready{0};
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < kThreads; ++i)
      threads.emplace_back([&, i] {
        for (++ready; ready < kThreads;) std::this_thread::yield();
        for (std::uint64_t k = 0; k < inputs; ++k) {
          const std::uint64_t seed = (k + i * 7) % inputs;
          Random random(seed);
          if (operation.result(random) != want[static_cast<std::size_t>(seed)]) ++others;
        }
      });
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(others, 0) << operation.name;
  }
}

TEST(Threads, GiveTheResultsOfOneThreadInTenThousandMixedOperationsEach) {
  constexpr int kOperations = 10'000;
  std::uint64_t together[kThreads], alone[kThreads];
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < kThreads; ++i)
    threads.emplace_back([&, i] { together[i] = Mixture(i).Run(kOperations); });
  for (auto& thread : threads) thread.join();
  for (unsigned i = 0; i < kThreads; ++i) alone[i] = Mixture(i).Run(kOperations);
  for (int i = 0; i < kThreads; ++i) EXPECT_EQ(together[i], alone[i]) << "thread " << i;
}

TEST(Threads, RunEveryFuzzTargetOnObjectsOfTheirOwn) {
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(RunAll, static_cast<std::uint64_t>(i));
  for (auto& thread : threads) thread.join();
}

}  // namespace
}  // namespace zeph::test
