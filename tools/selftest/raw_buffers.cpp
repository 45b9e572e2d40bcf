// SPDX-License-Identifier: MIT
//
// The workload over plain buffers.
#include "raw_buffers.h"

#include <algorithm>

#include "inputs.h"
#include "report.h"

namespace zeph::selftest {
namespace {

/// A table of row pointers over one vector.
class Rows {
 public:
  Rows(int rows, int cols, Inputs& in, Kind kind)
      : m_cells(in.Values<double>(rows * cols, kind)), m_count(rows * cols) {
    for (int i = 0; i < rows; ++i) m_rows.push_back(m_cells.data() + i * cols);
  }
  double** Table() { return m_rows.data(); }
  double* Cells() { return m_cells.data(); }
  int Count() const { return m_count; }

 private:
  std::vector<double> m_cells;
  std::vector<double*> m_rows;
  int m_count;
};

template <class T, class Alloc>
void ReallocateFamily(Report& report, Inputs& in, int n, Alloc allocate) {
  Digest& digest = report("ZEPH_ArrayAlloc, ZEPH_ArrayRealloc, ZEPH_ArrayResize");
  T* a = allocate(0, n);
  if (!a) return;
  for (int i = 0; i <= n; ++i) a[i] = static_cast<T>(in.Whole(-999, 999));
  a = ZEPH_ArrayRealloc(a, n, n + 5, static_cast<char*>(nullptr));
  // The elements after the kept ones are undefined.
  for (int i = 0; i < n; ++i) digest.Computed(static_cast<double>(a[i]));
  a = ZEPH_ArrayResize(a, n, n + 9);
  for (int i = 0; i < n + 9; ++i) digest.Computed(static_cast<double>(a[i]));
  ZEPH_ArrayFree(a, 0, n + 8);
}

void Blocks(Report& report, Inputs& in, int n) {
  long int bytes = 0;
  ReallocateFamily<int>(report, in, n,
                        [&](int lo, int hi) { return ZEPH_ArrayAllocInt(nullptr, lo, hi, bytes); });
  report("byte counts").Integer(bytes);
  ReallocateFamily<ZEPH_Long>(
      report, in, n, [&](int lo, int hi) { return ZEPH_ArrayAllocLong(nullptr, lo, hi, bytes); });
  report("byte counts").Integer(bytes);
  ReallocateFamily<float>(
      report, in, n, [&](int lo, int hi) { return ZEPH_ArrayAllocFloat(nullptr, lo, hi, bytes); });
  report("byte counts").Integer(bytes);
  ReallocateFamily<double>(
      report, in, n, [&](int lo, int hi) { return ZEPH_ArrayAllocDouble(nullptr, lo, hi, bytes); });
  report("byte counts").Integer(bytes);
}

void Norms(Report& report, Inputs& in, int n, Kind kind) {
  auto a = in.Values<double>(n + 3, kind);
  Digest& arrays = report("array norms");
  arrays.Computed(ZEPH_ArrayOneNorm(a.data(), n, 3));
  arrays.Computed(ZEPH_ArrayTwoNorm(a.data(), n, 3));
  arrays.Computed(ZEPH_ArrayTwoNorm2(a.data(), n, 3));
  arrays.Computed(ZEPH_ArrayMaxNorm(a.data(), n, 3));
  if (n > 130) return;
  Rows m(n + 1, n + 1, in, kind);
  Digest& matrices = report("matrix norms");
  for (int start = 0; start < 2; ++start) {
    matrices.Computed(ZEPH_MatrixOneNorm(m.Table(), n, start));
    matrices.Computed(ZEPH_MatrixMaxNorm(m.Table(), n, start));
    matrices.Computed(ZEPH_MatrixFrobNorm(m.Table(), n, start));
    matrices.Computed(ZEPH_MatrixFrobNorm2(m.Table(), n, start));
    matrices.Computed(ZEPH_MatrixFrobNorm3(m.Table(), n, start));
  }
}

void WholeBuffers(Report& report, Inputs& in, int n, Kind kind) {
  if (n > 65) return;
  Rows a(n, n + 1, in, kind), b(n + 1, n, in, kind), out(n, n, in, kind), turned(n, n, in, kind);
  ZEPH_MatrixMult(n, n + 1, a.Table(), n + 1, n, b.Table(), out.Table());
  report("ZEPH_MatrixMult").Computed(out.Cells(), out.Count());
  ZEPH_MatrixTranspose(n, out.Table(), turned.Table());
  report("ZEPH_MatrixTranspose").Computed(turned.Cells(), turned.Count());
  ZEPH_MatrixMult(n, n, turned.Table(), n, n, turned.Table(), turned.Table());
  report("ZEPH_MatrixMult in place").Computed(turned.Cells(), turned.Count());
  ZEPH_MatrixTranspose(n, turned.Cells(), out.Cells());
  report("ZEPH_MatrixTranspose, flat").Computed(out.Cells(), out.Count());
}

void Merging(Report& report, Inputs& in, int n) {
  auto a = in.Values<double>(n, Kind::kTies), b = in.Values<double>(n / 2, Kind::kTies);
  std::stable_sort(a.begin(), a.end());
  std::stable_sort(b.begin(), b.end());
  std::vector<double> out(a.size() + b.size());
  ZEPH_ArrayMergeSorted(a.data(), n, b.data(), n / 2, out.data());
  report("ZEPH_ArrayMergeSorted").Moved(out.data(), n + n / 2);
  std::vector<int> left, right, merged(out.size());
  for (double x : a) left.push_back(static_cast<int>(x));
  for (double x : b) right.push_back(static_cast<int>(x));
  ZEPH_ArrayMergeSorted(left.data(), n, right.data(), n / 2, merged.data());
  report("ZEPH_ArrayMergeSorted").Integers(merged.data(), n + n / 2);
}

void Fixed3(Report& report, Inputs& in, Kind kind) {
  double a[3][3], b[3][3], out[3][3];
  in.Fill(&a[0][0], 9, kind);
  in.Fill(&b[0][0], 9, kind);
  ZEPH_MatrixMultiply3(a, b, out);
  report("ZEPH_MatrixMultiply3").Computed(&out[0][0], 9);
  ZEPH_MatrixMult3(a, b, out);
  report("ZEPH_MatrixMult3").Computed(&out[0][0], 9);
  ZEPH_MatrixMult3(out, b, out);
  report("ZEPH_MatrixMult3").Computed(&out[0][0], 9);
  ZEPH_MatrixTranspose3(a);
  report("ZEPH_MatrixTranspose3").Moved(&a[0][0], 9);
  double v[3];
  in.Fill(v, 3, kind);
  ZEPH_MatrixTransform3(a, &v[0], &v[1], &v[2]);
  report("ZEPH_MatrixTransform3").Computed(v, 3);
  double c[16], d[16], product[16];
  in.Fill(c, 16, kind);
  in.Fill(d, 16, kind);
  ZEPH_MatrixMult4(c, d, product);
  report("ZEPH_MatrixMult4").Computed(product, 16);
}

void Rotations(Report& report, Inputs& in) {
  const double x = in.Value<double>(Kind::kPlain), y = in.Value<double>(Kind::kPlain);
  double m[3][3] = {{x, y, -x}, {y, 1.0, x}, {-y, x, y}};
  Digest& digest = report("rotations", Rests::kFunctions);
  ZEPH_MatrixRotate3X(m, x);
  digest.Computed(&m[0][0], 9);
  ZEPH_MatrixRotate3Y(m, x);
  digest.Computed(&m[0][0], 9);
  ZEPH_MatrixRotate3Z(m, x);
  digest.Computed(&m[0][0], 9);
  ZEPH_MatrixRotate3(m, x, y, x - y);
  digest.Computed(&m[0][0], 9);
}

void Vectors3(Report& report, Inputs& in, Kind kind) {
  double a[3], b[3], out[3];
  in.Fill(a, 3, kind);
  in.Fill(b, 3, kind);
  Digest& digest = report("3-vectors");
  ZEPH_VectorAdd3(a, b, out);
  digest.Computed(out, 3);
  ZEPH_VectorSub3(a, b, out);
  digest.Computed(out, 3);
  ZEPH_VectorScale3(a, b[0], out);
  digest.Computed(out, 3);
  ZEPH_VectorCrossProduct3(a, b, out);
  digest.Computed(out, 3);
  ZEPH_VectorCrossProduct3(out, b, out);
  digest.Computed(out, 3);
  digest.Computed(ZEPH_VectorDotProduct3(a, b));
  digest.Computed(ZEPH_VectorGetLength3(a));
  ZEPH_VectorNormalize3(a);
  digest.Computed(a, 3);
  ZEPH_VectorAssign3(b, out);
  digest.Moved(out, 3);
}

void Texts(Report& report, Inputs& in, int n, Kind kind) {
  auto a = in.Values<double>(n, kind);
  std::vector<int> whole;
  for (int i = 0; i < n; ++i) whole.push_back(in.Whole(-99999, 99999));
  CString text;
  ZEPH_ArrayDisplay(text, a.data(), n, "doubles");
  ZEPH_ArrayDisplay(text, a.data(), n / 2, n - 1, "a range");
  ZEPH_ArrayDisplay(text, whole.data(), n, "ints");
  report("ZEPH_ArrayDisplay", Rests::kTexts)
      .Text(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

}  // namespace

void RunRawBuffers(Report& report) {
  Inputs in(2);
  for (int round = 0; round < 3; ++round)
    for (Kind kind : kKinds) {
      for (int n : Sizes()) {
        Blocks(report, in, n);
        Norms(report, in, n, kind);
        WholeBuffers(report, in, n, kind);
        Merging(report, in, n);
        if (round == 0 && n < 100) Texts(report, in, n, kind);
      }
      for (int k = 0; k < 1500; ++k) {
        Fixed3(report, in, kind);
        Vectors3(report, in, kind);
        if (k < 200) Rotations(report, in);
      }
    }
}

}  // namespace zeph::selftest
