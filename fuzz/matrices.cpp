// Call sequences on both dense matrix classes and the vector against vectors of rows.
#include <cmath>

#include "linalg/matrices.h"
#include "support/bytes.h"
#include "support/require.h"

namespace {

using zeph::fuzz::Bytes;
using zeph::fuzz::Require;
using zeph::fuzz::RequireValue;
using zeph::fuzz::RequireValues;
using zeph::test::Rows;

struct Model {
  int rows = 0;
  int cols = 0;
  Rows cells;
};

Model Read(Bytes& in, int rows, int cols) {
  Model m{rows, cols, {}};
  for (int i = 0; i < rows; ++i)
    m.cells.push_back(in.ExactlyDoubles(static_cast<std::size_t>(cols)));
  return m;
}
Model Read(Bytes& in, int least) {
  const int most = in.Flag() ? 6 : in.Long() ? 40 : 14;
  const int rows = in.Int(least, most);
  return Read(in, rows, in.Int(least, most));
}

template <class Matrix>
void Check(const Matrix& m, const Model& want, const char* promise) {
  Require(m.m_nRows == want.rows && m.m_nColumns == want.cols, "the counts are the model's");
  Require(m.m_ppData || want.cells.empty(), "cells have a table of rows");
  for (std::size_t i = 0; i < want.cells.size(); ++i)
    RequireValues(m.m_ppData[i], want.cells[i].data(), want.cells[i].size(), promise);
}

Model Product(const Model& a, const Model& b) {
  const auto n = [](int count) { return static_cast<std::size_t>(count); };
  return {a.rows, b.cols, oracle::DenseProduct(a.cells, b.cells, n(a.rows), n(a.cols), n(b.cols))};
}

template <class Op>
Model Each(const Model& a, const Model& b, Op op) {
  return {a.rows, a.cols, zeph::test::Zip(a.cells, b.cells, op)};
}

const auto kAdd = [](double x, double y) { return x + y; };
const auto kSubtract = [](double x, double y) { return x - y; };
const auto kFromZero = [](double x, double) { return 0.0 - x; };

struct Double {
  CZEPHDoubleMatrix matrix;
  Model model;
};

void Step(Bytes& in, Double& a, Double& b) {
  const bool sameSize = a.model.rows == b.model.rows && a.model.cols == b.model.cols;
  switch (in.Int(0, 9)) {
    case 0:
    case 1: {  // of any size, from rows
      a.matrix.Clear();
      a.model = Read(in, 0);
      std::vector<double*> table;
      for (auto& row : a.model.cells) table.push_back(row.data());
      Require(a.matrix.SetData(a.model.rows, a.model.cols, table.data()) == 1, "SetData(rows)");
      return;
    }
    case 2: {
      if (a.model.rows > 20) return;  // fewer would leave rows unreleased
      const int rows = in.Int(a.model.rows, 20);
      const int cols = in.Int(0, 20);
      const double x = in.Flag() ? 0.0 : in.Double();
      Require((x == 0.0 ? a.matrix.Create(rows, cols) : a.matrix.SetData(rows, cols, x)) == 1,
              "SetData(value)");
      a.model = {rows, cols,
                 Rows(static_cast<std::size_t>(rows),
                      std::vector<double>(static_cast<std::size_t>(cols), x == 0.0 ? 0.0 : x))};
      return;
    }
    case 3:
      if (!sameSize) return;
      a.matrix += b.matrix;
      a.model = Each(a.model, b.model, kAdd);
      return;
    case 4:
      if (!sameSize) return;
      a.matrix -= b.matrix;
      a.model = Each(a.model, b.model, kSubtract);
      return;
    case 5:
      if (a.model.cols != b.model.rows || b.model.cols != a.model.cols) return;
      a.matrix *= b.matrix;
      a.model = Product(a.model, b.model);
      return;
    case 6: {
      if (!sameSize) return;
      Check(a.matrix + b.matrix, Each(a.model, b.model, kAdd), "a + b");
      const auto& ca = a.matrix;
      const auto& cb = b.matrix;
      Check(ca - cb, Each(a.model, b.model, kSubtract), "a - b, both const");
      Check(-a.matrix, Each(a.model, a.model, kFromZero), "-a");
      Check(-ca, Each(a.model, a.model, kFromZero), "-a, const");
      Check(+a.matrix, a.model, "+a");
      return;
    }
    case 7: {
      const Model v = Read(in, 1, a.model.cols);
      CZEPHDoubleArray x(a.model.cols, v.cells[0].data());
      const CZEPHDoubleArray got = a.matrix * x;
      Model column{a.model.cols, 1, {}};
      for (const double y : v.cells[0]) column.cells.push_back({y});
      const Model want = Product(a.model, column);
      Require(got.GetSize() == a.model.rows, "m * v has one element per row");
      for (int i = 0; i < a.model.rows; ++i)
        RequireValue(got[i], want.cells[static_cast<std::size_t>(i)][0], "m * v");
      return;
    }
    case 8:
      if (a.model.rows && a.model.cols && !sameSize) return;
      if (&a != &b && !(a.model.rows && a.model.cols)) a.matrix.Clear();
      if (&a == &b) return;
      a.matrix = b.matrix;
      a.model = b.model;
      return;
    default: {
      CZEPHDoubleMatrix copy(a.matrix);
      Check(copy, a.model, "a copy");
      const CZEPHDoubleMatrix moved(std::move(copy));
      Check(moved, a.model, "a move");
      if (!a.model.rows || !a.model.cols) return;
      const int i = in.Int(0, a.model.rows - 1);
      const int j = in.Int(0, a.model.cols - 1);
      a.matrix[i][j] = a.model.cells[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] =
          in.Double();
    }
  }
}

struct General {
  CZEPHMatrix matrix;
  Model model;
};

void Columns(Bytes& in, General& a) {
  if (!a.model.rows) return;
  const int j = in.Int(0, a.model.cols - 1);
  const auto column = static_cast<std::size_t>(j);
  CZEPHVector v = a.matrix.PickCol(j);
  std::vector<double> want;
  for (const auto& row : a.model.cells) want.push_back(row[column]);
  RequireValues(v.data(), want.data(), want.size(), "PickCol");  // of computed NaNs too
  const std::vector<double> fresh = in.ExactlyDoubles(want.size());
  CZEPHVector source = zeph::test::ToVector(fresh);
  a.matrix.SetCol(j, source);
  for (std::size_t i = 0; i < fresh.size(); ++i) a.model.cells[i][column] = fresh[i];
  const CZEPHVector sums = ZEPH_SumVector(a.matrix);
  for (std::size_t i = 0; i < want.size(); ++i) {
    double sum = 0.0;
    for (const double x : a.model.cells[i]) sum += x;
    RequireValue(sums.m_pData[i], sum, "SumVector");
  }
}

void Step(Bytes& in, General& a, General& b) {
  switch (in.Int(0, 5)) {
    case 0:
    case 1: {
      a.model = Read(in, 1);
      std::vector<double> flat;
      for (const auto& row : a.model.cells) flat.insert(flat.end(), row.begin(), row.end());
      const CZEPHMatrix fresh(a.model.rows, a.model.cols, flat.data());
      a.matrix = fresh;
      return;
    }
    case 2:
      if (a.model.rows != b.model.rows || a.model.cols != b.model.cols) return;
      return Check(a.matrix + b.matrix, Each(a.model, b.model, kAdd), "a + b");
    case 3:
      if (a.model.cols != b.model.rows || !a.model.rows) return;
      a.matrix = a.matrix * b.matrix;
      a.model = Product(a.model, b.model);
      return;
    case 4:
      return Columns(in, a);
    default:
      a.matrix = b.matrix;
      a.model = Model(b.model);
  }
}

template <class Kind>
void Run(Bytes& in) {
  Kind a, b;
  for (int steps = 0; steps < 24 && !in.Empty(); ++steps) {
    const std::uint8_t which = in.Byte();
    Step(in, which & 1 ? b : a, which & 2 ? b : a);
    Check(a.matrix, a.model, "the cells are the model's");
    Check(b.matrix, b.model, "the cells are the model's");
  }
}

void Vectors(Bytes& in) {
  const auto x = in.Doubles(100);
  const auto y = in.ExactlyDoubles(x.size());
  CZEPHVector v = zeph::test::ToVector(x), w = zeph::test::ToVector(y);
  const double s = in.Double();
  const CZEPHVector sum = v + w, difference = v - w, times = s * v, over = v / s;
  const double factor = std::fabs(s) > 1e-8 ? 1.0 / s : 1.0;
  double squares = 0.0, largest = x.empty() ? 0.0 : std::fabs(x[0]);
  int high = 0, low = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    volatile double a = x[i] + y[i], d = x[i] - y[i], m = x[i] * s, q = x[i] * factor;
    RequireValue(sum.m_pData[i], static_cast<double>(a), "v + w");
    RequireValue(difference.m_pData[i], static_cast<double>(d), "v - w");
    RequireValue(times.m_pData[i], static_cast<double>(m), "s * v");
    RequireValue(over.m_pData[i], static_cast<double>(q), "v / s");
    volatile double square = x[i] * x[i];
    squares += square;
    if (std::fabs(x[i]) > largest) largest = std::fabs(x[i]);
    if (x[i] > x[static_cast<std::size_t>(high)]) high = static_cast<int>(i);
    if (x[i] < x[static_cast<std::size_t>(low)]) low = static_cast<int>(i);
  }
  RequireValue(ZEPH_GetVectorSquareNorm(v), squares, "SquareNorm");
  RequireValue(ZEPH_GetVectorInfititeNorm(v), largest, "InfititeNorm");
  Require(ZEPH_GetVectorMaxSite(v) == high, "MaxSite");
  Require(ZEPH_GetVectorMinSite(v) == low, "MinSite");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Bytes in(data, size);
  switch (in.Int(0, 2)) {
    case 0:
      Run<Double>(in);
      break;
    case 1:
      Run<General>(in);
      break;
    default:
      Vectors(in);
  }
  return 0;
}
