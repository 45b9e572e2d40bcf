// SPDX-License-Identifier: MIT
//
// The functions that the playground page calls, on numbers and texts: a result stays in storage of
// this file until the next call of the same function.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "ZEPHDataStructureEngine.h"
#include "expected.h"
#include "traced_sorts.h"

#ifdef __EMSCRIPTEN__
#include <emscripten.h>
#define ZEPH_PAGE extern "C" EMSCRIPTEN_KEEPALIVE
#else
#define ZEPH_PAGE extern "C"
#endif

namespace {

using zeph::web::Board;

struct Method {
  void (*trace)(Board&);
  void (*sort)(CZEPHDoubleArray&);
};
constexpr Method kMethods[] = {
    {zeph::web::TraceBubble, [](CZEPHDoubleArray& a) { a.BubbleSort(); }},
    {zeph::web::TraceInsertion, [](CZEPHDoubleArray& a) { a.InsertionSort(); }},
    {zeph::web::TraceList, [](CZEPHDoubleArray& a) { a.ListInsertSort(); }},
    {zeph::web::TraceShell, [](CZEPHDoubleArray& a) { a.ShellSort(); }},
    {zeph::web::TraceQuick, [](CZEPHDoubleArray& a) { a.QuickSort(10); }},
};

std::vector<Board::Step> steps;
std::vector<double> outcome;
std::string text;

bool SameBits(const std::vector<double>& a, const CZEPHDoubleArray& b) {
  return std::memcmp(a.data(), b.data, a.size() * sizeof(double)) == 0;
}

}  // namespace

/// The published digest of a line of zeph-selftest as sixteen hexadecimal digits; "" where none is.
ZEPH_PAGE const char* zeph_published(const char* line) {
  text.clear();
  for (const auto& expected : zeph::selftest::kExpected) {
    if (std::strcmp(expected.line, line) != 0) continue;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx",
                  static_cast<unsigned long long>(ZEPH_MathIsPortable() ? expected.portable
                                                                        : expected.digest));
    text = digits;
  }
  return text.c_str();
}

/// Runs sort `method` on `values` step by step and returns the number of steps. zeph_steps returns
/// them, three ints each (kind, i, j), and zeph_outcome the result of the library's own sort.
ZEPH_PAGE int zeph_trace(int method, const double* values, int count) {
  Board board(std::vector<double>(values, values + count));
  kMethods[method].trace(board);
  CZEPHDoubleArray sorted(count, values);
  kMethods[method].sort(sorted);
  outcome.assign(sorted.begin(), sorted.end());
  steps = board.Steps();
  return SameBits(board.Values(), sorted) ? static_cast<int>(steps.size()) : -1;
}
ZEPH_PAGE const int* zeph_steps() {
  return &steps.data()->kind;
}
ZEPH_PAGE const double* zeph_outcome() {
  return outcome.data();
}

/// The matrix that turns by `angleX` and `angleY` (degrees), moves away from the eye and projects; its
/// sixteen entries by columns, then `count` points of `points` (x, y, z each) as it places them.
ZEPH_PAGE const float* zeph_view(double angleX, double angleY, int perspective, const float* points,
                                 int count) {
  static std::vector<float> placed;
  CZEPHMatrix4x4 turn, move, projection;
  turn.SetRotationEuler(angleX, angleY, 0);
  move.SetTranslation(CZEPHVector3D(0, 0, -3));
  if (perspective)
    projection.SetPerspective(50, 1, 0.1f, 10);
  else
    projection.SetOrtho(-1.4f, 1.4f, -1.4f, 1.4f, 0.1f, 10);
  const CZEPHMatrix4x4 all = projection * (move * turn);
  placed.assign(all.entries, all.entries + 16);
  for (int i = 0; i < count; ++i) {
    const CZEPHVector3D p =
        all * CZEPHVector4D(points[3 * i], points[3 * i + 1], points[3 * i + 2], 1);
    placed.insert(placed.end(), {p.x, p.y, p.z});
  }
  return placed.data();
}

/// The product of an n x k and a k x m matrix, by rows.
ZEPH_PAGE const double* zeph_product(const double* left, const double* right, int n, int k, int m) {
  static std::vector<double> product;
  CZEPHMatrix a(n, k, left), b(k, m, right);
  const CZEPHMatrix c = a * b;
  product.clear();
  for (int i = 0; i < n; ++i) product.insert(product.end(), c[i], c[i] + m);
  return product.data();
}

/// Level and slope of the least-squares line through (x, y), by the normal equations (X'X) b = X'y.
/// NaN for both where the equations have no single answer.
ZEPH_PAGE const double* zeph_line(const double* x, const double* y, int count) {
  static double line[2];
  CZEPHMatrix design(count, 2), transposed(2, count), values(count, 1, y);
  for (int i = 0; i < count; ++i) {
    design[i][0] = transposed[0][i] = 1.0;
    design[i][1] = transposed[1][i] = x[i];
  }
  CZEPHMatrix a = transposed * design, b = transposed * values;
  const double determinant = a[0][0] * a[1][1] - a[0][1] * a[1][0];
  if (determinant == 0.0) {
    line[0] = line[1] = std::nan("");
  } else {
    line[0] = (b[0][0] * a[1][1] - a[0][1] * b[1][0]) / determinant;
    line[1] = (a[0][0] * b[1][0] - a[1][0] * b[0][0]) / determinant;
  }
  return line;
}

/// Every ordering of `word` (up to eight bytes), a line each.
ZEPH_PAGE const char* zeph_orderings(const char* word) {
  static CString lines;
  std::string letters(word, std::min<std::size_t>(std::strlen(word), 8));
  lines.Empty();
  if (!letters.empty())
    CZEPHPermutation::Run(letters.data(), 0, static_cast<int>(letters.size()), lines);
  return lines.GetString();
}
