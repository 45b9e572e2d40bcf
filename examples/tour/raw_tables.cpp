// Tables as ported code keeps them: 1-based rows of the numbers, grown, rotated and listed.
#include <algorithm>
#include <cstdio>
#include <string>

#include "tour.h"

namespace tour {
namespace {

constexpr int kRows = 4;

/// A name for a row of its own.
std::string Label(const char* name, int row) {
  return std::string(name) + "[" + std::to_string(row) + "]";
}

/// Reads up to 4 rows of 3 into table[1..4][1..3], padding with zeros.
double** ReadTable(const CZEPHDoubleArray& numbers) {
  double** table = ZEPH_MatrixAllocDouble("table", 1, kRows, 1, 3);
  if (!table) return nullptr;
  int next = 0;
  for (int i = 1; i <= kRows; ++i)
    for (int j = 1; j <= 3; ++j, ++next)
      if (next < numbers.GetSize()) table[i][j] = numbers.data[next];
  return table;
}

/// The growing functions take blocks whose first index is 0, so a 1-based table is copied into one.
void ShowGrowth(double** table) {
  double* row = ZEPH_ArrayAllocDouble("row", 0, 2);
  std::copy_n(table[1] + 1, 3, row);
  row = ZEPH_ArrayResize(row, 3, 5);  // counts: two zeros are appended
  std::puts("the first row, 0-based, after ZEPH_ArrayResize(row, 3, 5):");
  ZEPH_ArrayDisplay(stdout, row, 0, 4, "row");

  double** grown = ZEPH_MatrixAllocDouble("grown", kRows, 3);
  for (int i = 0; i < kRows; ++i) std::copy_n(table[i + 1] + 1, 3, grown[i]);
  grown =
      ZEPH_MatrixResize(grown, kRows - 1, 2, kRows, 3);  // highest indices: one more row and column
  std::puts("the table, 0-based, after ZEPH_MatrixResize(m, 3, 2, 4, 3):");
  ZEPH_MatrixPrint(stdout, kRows + 1, 4, grown, "grown");

  ZEPH_MatrixFree(grown, 0, kRows, 0, 3);
  ZEPH_ArrayFree(row, 0, 4);
}

/// Each row as a point. The last factor is applied to a point first: x, then z.
void ShowRotation(double** table) {
  double turn[3][3];
  ZEPH_MatrixSet3(turn, 1, 0, 0, 0, 1, 0, 0, 0, 1);
  ZEPH_MatrixRotate3Z(turn, 90);
  ZEPH_MatrixRotate3X(turn, 90);
  std::puts("each row as a point, rotated by 90 degrees about x first, then about z:");
  for (int i = 1; i <= kRows; ++i) {
    double* p = table[i];
    ZEPH_MatrixTransform3(turn, &p[1], &p[2], &p[3]);
    ZEPH_VectorPrint3(stdout, p + 1, Label("  p", i).data());
  }
}

}  // namespace

void ShowRawTables(const Context& context) {
  double** table = ReadTable(context.numbers);
  if (!table) return;
  std::puts("table[1..4][1..3], listed row by row:");
  for (int i = 1; i <= kRows; ++i)
    ZEPH_ArrayDisplay(stdout, table[i], 1, 3, Label("table", i).data());
  ShowGrowth(table);
  ShowRotation(table);
  ZEPH_MatrixFree(table, 1, kRows, 1, 3);
}

}  // namespace tour
