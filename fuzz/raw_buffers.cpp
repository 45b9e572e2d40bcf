// The life of raw blocks: allocated, filled, grown, listed, measured, released.
#include "raw_buffers.h"

#include <cmath>
#include <utility>

#include "oracle/listing.h"
#include "oracle/raw_norms.h"
#include "oracle/searches.h"
#include "support/bytes.h"
#include "support/require.h"

namespace {

using zeph::fuzz::Bytes;
using zeph::fuzz::Require;
using zeph::fuzz::RequireBits;
using zeph::fuzz::RequireText;
using zeph::fuzz::RequireValue;

template <class T>
T Element(Bytes& in) {
  if constexpr (std::is_floating_point_v<T>) {
    return in.Real<T>();
  } else {
    return T(in.Int(-100, 100));
  }
}
template <class T>
bool Same(T a, T b) {
  if constexpr (std::is_floating_point_v<T>) {
    return zeph::test::Bits(a) == zeph::test::Bits(b);
  } else {
    return a == b;
  }
}

int* Alloc(int*, int lo, int hi, long& bytes) {
  return ZEPH_ArrayAllocInt(nullptr, lo, hi, bytes);
}
float* Alloc(float*, int lo, int hi, long& bytes) {
  return ZEPH_ArrayAllocFloat(nullptr, lo, hi, bytes);
}
double* Alloc(double*, int lo, int hi, long& bytes) {
  return ZEPH_ArrayAllocDouble(nullptr, lo, hi, bytes);
}
ZEPH_Long* Alloc(ZEPH_Long*, int lo, int hi, long& bytes) {
  return ZEPH_ArrayAllocLong(nullptr, lo, hi, bytes);
}
int** AllocRows(int*, int a, int b, int c, int d) {
  return ZEPH_MatrixAllocInt(nullptr, a, b, c, d);
}
float** AllocRows(float*, int a, int b, int c, int d) {
  return ZEPH_MatrixAllocFloat(nullptr, a, b, c, d);
}
double** AllocRows(double*, int a, int b, int c, int d) {
  return ZEPH_MatrixAllocDouble(nullptr, a, b, c, d);
}
ZEPH_Long** AllocRows(ZEPH_Long*, int a, int b, int c, int d) {
  return ZEPH_MatrixAllocLong(nullptr, a, b, c, d);
}

/// Bounds near 0, near the ends of the range, or anything; the block stays small or impossible.
std::pair<int, int> Bounds(Bytes& in) {
  const int lo = in.Flag() ? in.Int(-8, 8) : static_cast<int>(in.Word(4));
  const std::int64_t hi = std::int64_t{lo} + in.Int(-3, 40);
  if (hi > 2147483647 || hi < -2147483647 - 1) return {lo, lo};
  return {lo, static_cast<int>(hi)};
}

/// Element by signed distance, as the interface addresses it.
template <class T>
T& At(T* p, int i) {
  return *reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(p) +
                               static_cast<std::uintptr_t>(static_cast<std::intptr_t>(i)) *
                                   sizeof(T));
}

template <class T>
void OffsetArray(Bytes& in) {
  const auto [lo, hi] = Bounds(in);
  long bytes = -1;
  T* p = Alloc(static_cast<T*>(nullptr), lo, hi, bytes);
  Require((p != nullptr) == (hi >= lo), "an array exists where its range is not inverted");
  if (!p) return Require(bytes == -1, "no array, no byte count");
  Require(bytes == (hi - lo + 1) * static_cast<long>(sizeof(T)), "bytes of an array");
  for (std::int64_t i = lo; i <= hi; ++i)
    Require(Same(At(p, static_cast<int>(i)), T(0)), "elements start at zero");
  At(p, lo) = At(p, hi) = Element<T>(in);
  ZEPH_ArrayFree(p, lo, hi);
}

template <class T>
void GrownArray(Bytes& in) {
  std::vector<T> model(static_cast<std::size_t>(in.Int(1, 20)), T(0));
  long bytes = 0;
  T* p = Alloc(static_cast<T*>(nullptr), 0, static_cast<int>(model.size()) - 1, bytes);
  for (int k = 0; k < 6; ++k) {
    const int count = static_cast<int>(model.size());
    for (std::size_t i = 0; i < model.size(); ++i) p[i] = model[i] = Element<T>(in);
    const int wanted = in.Int(-1, 40);  // below, sanitizers end the program
    T* next = nullptr;
    std::size_t kept = 0;
    if (in.Flag()) {
      next = ZEPH_ArrayResize(p, count, wanted);
      Require((next != nullptr) == (wanted >= count), "Resize never shrinks");
      kept = model.size();
      if (next) model.resize(static_cast<std::size_t>(wanted));
    } else {  // sizes are counts for ints, highest indices otherwise
      const bool counts = std::is_same_v<T, int>;
      const int old = counts ? count : count - 1;
      next = ZEPH_ArrayRealloc(p, old, wanted, nullptr);
      Require((next != nullptr) == (wanted >= -1), "Realloc refuses below -1");
      const int copied = std::min(old, wanted) + (counts ? 0 : 1);
      kept = static_cast<std::size_t>(copied < 0 ? 0 : copied);
      if (next) model.resize(static_cast<std::size_t>(wanted + 1));
    }
    if (!next) continue;
    p = next;
    for (std::size_t i = kept; i < model.size(); ++i) model[i] = T(0);
    for (std::size_t i = 0; i < model.size(); ++i)
      Require(Same(p[i], model[i]), "growing keeps the elements and adds zeros");
  }
  ZEPH_ArrayFree(p, 0, static_cast<int>(model.size()) - 1);
}

template <class T>
void OffsetMatrix(Bytes& in) {
  const auto [nrl, nrh] = Bounds(in);
  const auto [ncl, nch] = Bounds(in);
  T** m = AllocRows(static_cast<T*>(nullptr), nrl, nrh, ncl, nch);
  Require((m != nullptr) == (nrh >= nrl && nch >= ncl),
          "a matrix exists where no range is inverted");
  if (!m) return;
  for (std::int64_t i = nrl; i <= nrh; ++i)
    for (std::int64_t j = ncl; j <= nch; ++j) {
      T& cell = At(At(m, static_cast<int>(i)), static_cast<int>(j));
      Require(Same(cell, T(0)), "cells start at zero");
      cell = T(1);
    }
  ZEPH_MatrixFree(m, nrl, nrh, ncl, nch);
}

template <class T>
void GrownMatrix(Bytes& in) {
  int rowHi = in.Int(0, 5);
  int colHi = in.Int(0, 5);
  T** m = AllocRows(static_cast<T*>(nullptr), 0, rowHi, 0, colHi);
  std::vector<std::vector<T>> model(static_cast<std::size_t>(rowHi + 1),
                                    std::vector<T>(static_cast<std::size_t>(colHi + 1), T(0)));
  for (int k = 0; k < 4; ++k) {
    for (std::size_t i = 0; i < model.size(); ++i)
      for (std::size_t j = 0; j < model[i].size(); ++j) m[i][j] = model[i][j] = Element<T>(in);
    const int newRowHi = in.Int(-1, 12);
    const int newColHi = in.Int(-1, 12);
    T** next = ZEPH_MatrixResize(m, rowHi, colHi, newRowHi, newColHi);
    Require((next != nullptr) == (newRowHi >= rowHi && newColHi >= colHi),
            "a matrix is never shrunk");
    if (!next) continue;
    m = next;
    rowHi = newRowHi;
    colHi = newColHi;
    model.resize(static_cast<std::size_t>(rowHi + 1));
    for (std::size_t i = 0; i < model.size(); ++i) {
      model[i].resize(static_cast<std::size_t>(colHi + 1), T(0));
      for (std::size_t j = 0; j < model[i].size(); ++j)
        Require(Same(m[i][j], model[i][j]), "growing keeps the cells and adds zeros");
    }
  }
  ZEPH_MatrixFree(m, 0, rowHi, 0, colHi);
}

void Measure(Bytes& in) {
  std::vector<double> v = in.Doubles(300);
  v.push_back(in.Double());
  const int start = in.Int(0, static_cast<int>(v.size()) - 1);
  const int n = in.Int(-1, static_cast<int>(v.size()) - start);
  double* a = v.data();
  RequireValue(ZEPH_ArrayOneNorm(a, n, start), oracle::ArrayOneNorm(a, n, start), "ArrayOneNorm");
  RequireValue(ZEPH_ArrayTwoNorm(a, n, start), oracle::ArrayTwoNorm(a, n, start), "ArrayTwoNorm");
  RequireValue(ZEPH_ArrayTwoNorm2(a, n, start), oracle::ArrayTwoNorm2(a, n, start),
               "ArrayTwoNorm2");
  RequireValue(ZEPH_ArrayMaxNorm(a, n, start), oracle::ArrayMaxNorm(a, n, start), "ArrayMaxNorm");

  const int order = in.Int(1, 12);
  const std::size_t side = static_cast<std::size_t>(order);
  std::vector<double> cells = in.ExactlyDoubles(side * side);
  std::vector<double*> rows(side);
  for (std::size_t i = 0; i < side; ++i) rows[i] = cells.data() + i * side;
  const int first = in.Int(0, order - 1);
  const int count = order - first;
  double** m = rows.data();
  RequireValue(ZEPH_MatrixOneNorm(m, count, first), oracle::MatrixOneNorm(m, count, first),
               "MatrixOneNorm");
  RequireValue(ZEPH_MatrixMaxNorm(m, count, first), oracle::MatrixMaxNorm(m, count, first),
               "MatrixMaxNorm");
  RequireValue(ZEPH_MatrixFrobNorm(m, count, first), oracle::MatrixFrobNorm(m, count, first),
               "MatrixFrobNorm");
  RequireValue(ZEPH_MatrixFrobNorm2(m, count, first), oracle::MatrixFrobNorm2(m, count, first),
               "MatrixFrobNorm2");
  RequireValue(ZEPH_MatrixFrobNorm3(m, count, first), oracle::MatrixFrobNorm3(m, count, first),
               "MatrixFrobNorm3");

  std::vector<double> turned(cells.size());
  ZEPH_MatrixTranspose(order, cells.data(), turned.data());
  for (std::size_t i = 0; i < side; ++i)
    for (std::size_t j = 0; j < side; ++j)
      RequireBits(&turned[i * side + j], &cells[j * side + i], 1, "MatrixTranspose");
}

/// out[i][j] = b[k][j] + a[i][k], of which the last k remains; `out` may share rows with `a` and
/// `b`.
void AddLast(Bytes& in) {
  const int rows = in.Int(1, 6);
  const int inner = in.Int(1, 6);
  const int cols = in.Int(1, 6);
  std::vector<double> pool = in.ExactlyDoubles(120);
  std::vector<double> model = pool;
  const auto place = [&in](int count) {
    std::vector<std::size_t> at(static_cast<std::size_t>(count));
    for (std::size_t& offset : at) offset = in.Below(114);
    return at;
  };
  const auto a = place(rows), b = place(inner), out = place(rows);
  const auto pointers = [&pool](const std::vector<std::size_t>& at) {
    std::vector<double*> table;
    for (const std::size_t offset : at) table.push_back(pool.data() + offset);
    return table;
  };
  auto ap = pointers(a), bp = pointers(b), op = pointers(out);
  ZEPH_MatrixMult(rows, inner, ap.data(), inner, cols, bp.data(), op.data());
  for (std::size_t i = 0; i < out.size(); ++i)
    for (std::size_t j = 0; j < static_cast<std::size_t>(cols); ++j)
      for (std::size_t k = 0; k < b.size(); ++k)
        model[out[i] + j] = model[b[k] + j] + model[a[i] + k];
  zeph::fuzz::RequireValues(pool.data(), model.data(), model.size(), "MatrixMult, rows shared");
}

void Lists(Bytes& in) {
  std::vector<double> v = in.Doubles(60);
  std::string label = in.Text(20).c_str();
  const int n = static_cast<int>(v.size());
  CString got("before");
  ZEPH_ArrayDisplay(got, v.data(), n, label.data());
  RequireText(
      got.GetString(),
      "before" + oracle::Listing("%s[%d]=%-5.4e    ", "\r\n", v.data(), 0, n - 1, label.c_str()),
      "ArrayDisplay of doubles");
  std::vector<int> whole(v.size());
  for (int& x : whole) x = static_cast<int>(in.Word(4));
  CString ints;
  const int lo = n ? in.Int(0, n - 1) : 0;
  ZEPH_ArrayDisplay(ints, whole.data(), lo, n - 1, label.data());
  RequireText(ints.GetString(),
              oracle::Listing("%s[%d]=%-5d   ", "\r\n", whole.data(), lo, n - 1, label.c_str()),
              "ArrayDisplay of ints");
}

template <class T>
void Merge(std::vector<T> a, std::vector<T> b) {
  std::vector<T> out(a.size() + b.size());
  const int na = static_cast<int>(a.size());
  const int nb = static_cast<int>(b.size());
  ZEPH_ArrayMergeSorted(a.data(), na, b.data(), nb, out.data());
  std::size_t i = 0;
  std::size_t j = 0;
  for (const T& got : out) {
    const bool fromA = i < a.size() && (j == b.size() || b[j] > a[i]);
    Require(Same(got, fromA ? a[i++] : b[j++]), "ArrayMergeSorted");
  }
}

template <class T>
void Life(Bytes& in) {
  switch (in.Int(0, 3)) {
    case 0:
      return OffsetArray<T>(in);
    case 1:
      return GrownArray<T>(in);
    case 2:
      return OffsetMatrix<T>(in);
    default:
      return GrownMatrix<T>(in);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Bytes in(data, size);
  for (int steps = 0; steps < 8 && !in.Empty(); ++steps) switch (in.Int(0, 8)) {
      case 0:
        Life<int>(in);
        break;
      case 1:
        Life<ZEPH_Long>(in);
        break;
      case 2:
        Life<float>(in);
        break;
      case 3:
        Life<double>(in);
        break;
      case 4:
        Measure(in);
        break;
      case 5:
        AddLast(in);
        break;
      case 6: {
        const auto a = in.Doubles(100);
        Merge(a, in.Doubles(100));
        break;
      }
      case 7: {
        std::vector<int> a(in.Below(40)), b(in.Below(40));
        for (int& x : a) x = in.Int(-3, 3);
        for (int& x : b) x = in.Int(-3, 3);
        Merge(a, b);
        break;
      }
      default:
        Lists(in);
    }
  return 0;
}
