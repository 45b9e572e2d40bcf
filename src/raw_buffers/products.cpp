// SPDX-License-Identifier: MIT
#include <cstddef>

#include "kernels/overlap.h"
#include "platform/exactness.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"

namespace zeph::raw_buffers {
namespace {

using kernels::Overlap;

// The additive routine assigns out[i][j] = b[k][j] + a[i][k] for every k, so the last k determines
// the result: the loop over k writes only the cell itself, so where neither operand of the last
// step is the cell, both still have their old values, and that step alone gives the cell. Where the
// last step reads the cell, the step before it matters too, and so on back to the first step that
// does not; from there the steps run forward as documented.

struct Operands {
  const double* a;   // row i of a
  double* const* b;  // all rows of b
  int count;         // steps: columns of a, rows of b
};

double Step(const Operands& in, int k, int j) {
  return in.b[k][j] + in.a[k];
}

bool Reads(const Operands& in, int k, int j, const double* cell) {
  return in.a + k == cell || in.b[k] + j == cell;
}

void AssignCell(const Operands& in, int j, double* cell) {
  int k = in.count - 1;
  while (k > 0 && Reads(in, k, j, cell)) --k;
  for (; k < in.count; ++k) *cell = Step(in, k, j);
}

/// out[j] = b[j] + x for rows that do not overlap.
void AddScalar(const double* __restrict b, double x, double* __restrict out, std::size_t count) {
  for (std::size_t j = 0; j < count; ++j) out[j] = b[j] + x;
}

/// The index of `cell` in the row, or `count` if it is not in the row.
std::size_t IndexIn(const double* row, std::size_t count, const double* cell) {
  if (!Overlap(row, count, cell, 1)) return count;
  return static_cast<std::size_t>(cell - row);
}

void AssignRow(const Operands& in, double* out, int cols) {
  const auto count = static_cast<std::size_t>(cols);
  const double* lastA = in.a + (in.count - 1);
  const double* lastB = in.b[in.count - 1];
  if (Overlap(out, count, lastB, count)) {
    for (int j = 0; j < cols; ++j) AssignCell(in, j, out + j);
    return;
  }
  // Only the last element of a's row may be in the row written: the cells before it use its old
  // value, those after it the new one.
  const std::size_t own = IndexIn(out, count, lastA);
  AddScalar(lastB, *lastA, out, own);
  if (own == count) return;
  AssignCell(in, static_cast<int>(own), out + own);
  AddScalar(lastB + own + 1, *lastA, out + own + 1, count - own - 1);
}

constexpr int k3 = 3;

/// As AssignRow, for a row of the 3x3 routine. That loops over j inside k, so between two steps of
/// one cell every other cell of the row changes: with any overlap, all steps are taken.
void AssignRow3(const double* a, const double (*b)[k3], double* out) {
  const bool apart = !Overlap(out, k3, a + (k3 - 1), 1) && !Overlap(out, k3, b[k3 - 1], k3);
  for (int k = apart ? k3 - 1 : 0; k < k3; ++k)
    for (int j = 0; j < k3; ++j) out[j] = b[k][j] + a[k];
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

void ZEPH_MatrixMult(int rowsA, int colsA, double** a, int rowsB, int colsB, double** b,
                     double** out) {
  if (colsA != rowsB || !a || !b || !out) return;
  if (colsA < 1 || colsB < 1 || rowsA < 1) return;
  RequireRows(__func__, "a", a, 0, rowsA);
  RequireRows(__func__, "b", b, 0, rowsB);
  RequireRows(__func__, "out", out, 0, rowsA);
  for (int i = 0; i < rowsA; ++i) AssignRow({a[i], b, colsA}, out[i], colsB);
}

void ZEPH_MatrixMult3(double a[3][3], double b[3][3], double out[3][3]) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  ZEPH_REQUIRE_POINTER(__func__, out);
  for (int i = 0; i < k3; ++i) AssignRow3(a[i], b, out[i]);
}
