// One random program of operations in every form of the kernels that this machine runs: each gives
// the same bits as the portable one. Where the library hides its kernels only one form can run.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "ZEPHDataStructureEngine.h"
#include "batch.h"
#include "support/bytes.h"
#include "support/forms.h"
#include "support/modes.h"
#include "support/not_finite.h"
#include "support/require.h"

namespace {

using zeph::fuzz::Bytes;

constexpr int kMostElements = 3000, kFewElements = 200, kMostCells = 40, kMostObjects = 50;

/// The bits of computed NaNs are unspecified; all of them count as equal.
template <class T>
void TakeUp(std::vector<std::uint64_t>& seen, const T* values, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    zeph::test::BitsOf<T> bits = 1;
    if (values[i] == values[i]) std::memcpy(&bits, values + i, sizeof bits);
    seen.push_back(static_cast<std::uint64_t>(bits));
  }
}
void TakeUp(std::vector<std::uint64_t>& seen, double value) {
  TakeUp(seen, &value, 1);
}
void TakeUp(std::vector<std::uint64_t>& seen, CZEPHDoubleArray& a) {
  for (double& x : a)
    if (x != x) x = zeph::test::kNaN;
  TakeUp(seen, a.begin(), static_cast<std::size_t>(a.end() - a.begin()));
}

void OnAnArray(Bytes& in, std::vector<std::uint64_t>& seen) {
  std::vector<double> values = in.Doubles(kMostElements, kFewElements);
  if (values.empty()) values.push_back(in.Double());
  const int n = static_cast<int>(values.size());
  CZEPHDoubleArray a(n, values.data()), b(n, in.ExactlyDoubles(values.size()).data());
  for (int steps = in.Int(1, 6); steps > 0; --steps) {
    switch (in.Int(0, 15)) {
      case 0:
        a.BubbleSort();
        break;
      case 1:
        a.InsertionSort();
        break;
      case 2:
        a.ListInsertSort();
        break;
      case 3:
        a.ShellSort();
        break;
      case 4:
        a.QuickSort(in.Int(0, 20));
        break;
      case 5:
        a += b;
        break;
      case 6:
        a -= b;
        break;
      case 7:
        a = in.Double() * a;
        break;
      case 8:
        std::swap(a.data, b.data);
        break;
      case 9:
        TakeUp(seen, a.MaxNorm());
        break;
      case 10:
        TakeUp(seen, ZEPH_ArrayMaxNorm(a.data, n, 0));
        break;
      case 11:
        seen.push_back(static_cast<std::uint64_t>(a.Find(in.Flag() ? b[0] : in.Double())));
        break;
      case 12: {
        int index = -2;
        seen.push_back(
            static_cast<std::uint64_t>(a.BinarySearch(in.Flag() ? b[0] : in.Double(), index)));
        seen.push_back(static_cast<std::uint64_t>(index));
        break;
      }
      case 13: {
        CZEPHDoubleArray out(2 * n, 0.0);
        const int part = in.Int(0, n);
        a.MergeSortedArray(a.data, part, b.data, n, out.data);
        TakeUp(seen, out);
        break;
      }
      case 14:
        CZEPHSelectionSort::Run(a.data, n);
        break;
      case 15:
        a.SetEntry(in.Double());
        break;
    }
    TakeUp(seen, a);
  }
}

void OnMatrices(Bytes& in, std::vector<std::uint64_t>& seen) {
  const int rows = in.Int(1, kMostCells), inner = in.Int(1, kMostCells),
            cols = in.Int(1, kMostCells);
  CZEPHMatrix a(rows, inner), b(inner, cols);
  const auto fill = [&in](CZEPHMatrix& m) {
    for (int i = 0; i < m.m_nRows; ++i) {
      const auto row = in.ExactlyDoubles(static_cast<std::size_t>(m.m_nColumns));
      std::copy(row.begin(), row.end(), m.m_ppData[i]);
    }
  };
  fill(a), fill(b);
  const int square = std::min(rows, inner);
  TakeUp(seen, ZEPH_MatrixMaxNorm(a.m_ppData, square, 0));
  TakeUp(seen, ZEPH_MatrixOneNorm(a.m_ppData, square, 0));
  TakeUp(seen, ZEPH_MatrixFrobNorm(a.m_ppData, square, 0));
  const CZEPHDoubleMatrix other(rows, inner, a.m_ppData);
  CZEPHDoubleArray v(inner, in.ExactlyDoubles(static_cast<std::size_t>(inner)).data());
  CZEPHDoubleArray byVector = other * v;
  TakeUp(seen, byVector);
  const CZEPHMatrix product = a * b;
  for (int i = 0; i < product.m_nRows; ++i)
    TakeUp(seen, product.m_ppData[i], static_cast<std::size_t>(product.m_nColumns));
}

void OnInts(Bytes& in, std::vector<std::uint64_t>& seen) {
  std::vector<int> v(in.Size(kMostElements, kFewElements) + 2);
  const int span = in.Int(1, 1000);
  zeph::test::Random random(in.Word(2));
  for (int& x : v) x = random.Int(-span, span);
  const int n = static_cast<int>(v.size()) - 1, key = random.Int(-span, span);
  seen.push_back(
      static_cast<std::uint64_t>(CZEPHIntegralSearch::SequentialSearch(v.data(), n, key)));
  if (in.Flag()) CZEPHSelectionSort::Run(v.data(), n);
  seen.push_back(static_cast<std::uint64_t>(CZEPHIntegralSearch::BinarySearch(v.data(), n, key)));
  for (const int x : v) seen.push_back(static_cast<std::uint64_t>(x));
}

template <class V, class T>
std::vector<V> Objects(Bytes& in, int n) {
  zeph::test::Random random(in.Word(2));
  const bool special = in.Flag();
  const auto one = [&] {
    return special ? zeph::test::AwkwardValue<T>(random) : static_cast<T>(random.Int(-9, 9)) / T(4);
  };
  std::vector<V> objects;
  for (int i = 0; i < n; ++i) {
    const T x = one(), y = one(), z = one();
    objects.emplace_back(x, y, z);
  }
  return objects;
}

void OnObjects(Bytes& in, std::vector<std::uint64_t>& seen) {
  const int n = in.Int(1, kMostObjects);
  const auto count = static_cast<std::size_t>(n);
  CZEPHMatrix4x4 m;
  m.LoadIdentity();
  const int entries = in.Flag() ? 16 : 12;  // with its bottom row, or affine
  for (int k = 0; k < entries; ++k)
    if (entries == 16 || k % 4 != 3) m.entries[k] = in.Float();
  const auto a = Objects<CZEPHVector3D, float>(in, n), b = Objects<CZEPHVector3D, float>(in, n);
  const auto c = Objects<CZEPHVector3, double>(in, n), d = Objects<CZEPHVector3, double>(in, n);
  const auto floats = [&seen](const std::vector<CZEPHVector3D>& all) {
    for (const CZEPHVector3D& v : all) TakeUp(seen, &v.x, 3);
  };
  std::vector<CZEPHVector3D> out(a);
  ZEPH_BatchTransformPoints(m, a.data(), out.data(), n), floats(out);
  ZEPH_BatchTransformDirections(m, a.data(), out.data(), n), floats(out);
  ZEPH_BatchNormalize(a.data(), out.data(), n), floats(out);
  ZEPH_BatchCross(a.data(), b.data(), out.data(), n), floats(out);
  std::vector<float> dots(count);
  ZEPH_BatchDot(a.data(), b.data(), dots.data(), n);
  TakeUp(seen, dots.data(), count);
  std::vector<CZEPHVector3> wide(c);
  ZEPH_BatchCross(c.data(), d.data(), wide.data(), n);
  for (const CZEPHVector3& v : wide) TakeUp(seen, &v.m_x, 3);
  ZEPH_BatchNormalize(c.data(), wide.data(), n);
  for (const CZEPHVector3& v : wide) TakeUp(seen, &v.m_x, 3);
  CZEPHVector3D low, high;
  ZEPH_BatchBounds(a.data(), n, low, high);
  floats({low, high});
  std::vector<CZEPHMatrix4x4> matrices(count, m);
  for (std::size_t i = 0; i < count; ++i) matrices[i].entries[i % 16] = a[i].x;
  ZEPH_BatchMultiply(m, matrices.data(), matrices.data(), n);
  for (const CZEPHMatrix4x4& each : matrices) TakeUp(seen, each.entries, 16);
}

}  // namespace

std::vector<std::uint64_t> zeph::fuzz::ResultsOf(const unsigned char* data, std::size_t size) {
  std::vector<std::uint64_t> seen;
  Bytes in(data, size);
  for (int programs = 0; programs < 4 && !in.Empty(); ++programs) switch (in.Int(0, 3)) {
      case 0:
        OnAnArray(in, seen);
        break;
      case 1:
        OnMatrices(in, seen);
        break;
      case 2:
        OnInts(in, seen);
        break;
      case 3:
        OnObjects(in, seen);
        break;
    }
  return seen;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  std::vector<std::uint64_t> first;
  bool others = false;
  zeph::test::ForEachForm([&](const std::string& name) {
    const std::vector<std::uint64_t> seen = zeph::fuzz::ResultsOf(data, size);
    if (!others)
      first = seen;
    else if (seen != first)
      zeph::fuzz::Broken("every form leaves the portable one's bits", name);
    others = true;
  });
  return 0;
}
