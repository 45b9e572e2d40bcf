// Matrix products of every shape up to 32, and the norms of raw matrices.
#include "linalg/matrices.h"

#include "oracle/raw_norms.h"
#include "prove/proof.h"
#include "raw_buffers.h"

namespace zeph::prove {
namespace {

using test::Count;
using test::Elements;
using test::Random;
using test::Rows;
using test::SameValues;

/// Mostly up to 8, one in 16 up to 32.
int AnySize(Random& random) {
  return random.Int(1, random.Below(16) == 0 ? 32 : 8);
}

std::string Shape(int rows, int inner, int cols, std::uint64_t k) {
  return "case " + std::to_string(k) + ": " + std::to_string(rows) + " x " + std::to_string(inner) +
         " x " + std::to_string(cols);
}

void CheckRawProduct(Rows x, Rows y, Random& random, Case& seen) {
  const auto pointers = [](Rows& rows) {
    std::vector<double*> out;
    for (auto& row : rows) out.push_back(row.data());
    return out;
  };
  const int rows = static_cast<int>(x.size()), inner = static_cast<int>(y.size());
  const std::size_t cols = y[0].size();
  Rows got(x.size(), std::vector<double>(cols)), want = got;
  for (std::size_t i = 0; i < x.size(); ++i)
    for (std::size_t j = 0; j < cols; ++j)
      for (std::size_t k = 0; k < y.size(); ++k) want[i][j] = y[k][j] + x[i][k];
  ZEPH_MatrixMult(rows, inner, pointers(x).data(), inner, static_cast<int>(cols),
                  pointers(y).data(), pointers(got).data());
  seen.Expect(SameValues(got, want), "ZEPH_MatrixMult");

  const int n = random.Int(1, 8);
  Rows square = test::AwkwardRows(n, n, random.Next());
  const auto table = pointers(square);
  double** const m = const_cast<double**>(table.data());
  seen.ExpectValue(ZEPH_MatrixOneNorm(m, n, 0), oracle::MatrixOneNorm(m, n, 0),
                   "ZEPH_MatrixOneNorm");
  seen.ExpectValue(ZEPH_MatrixMaxNorm(m, n, 0), oracle::MatrixMaxNorm(m, n, 0),
                   "ZEPH_MatrixMaxNorm");
  seen.ExpectValue(ZEPH_MatrixFrobNorm(m, n, 0), oracle::MatrixFrobNorm(m, n, 0),
                   "ZEPH_MatrixFrobNorm");
  seen.ExpectValue(ZEPH_MatrixFrobNorm2(m, n, 0), oracle::MatrixFrobNorm2(m, n, 0),
                   "ZEPH_MatrixFrobNorm2");
  seen.ExpectValue(ZEPH_MatrixFrobNorm3(m, n, 0), oracle::MatrixFrobNorm3(m, n, 0),
                   "ZEPH_MatrixFrobNorm3");
}

void CheckProduct(std::uint64_t k, Case& seen) {
  Random random(k * 8 + 6);
  const int rows = AnySize(random), inner = AnySize(random), cols = AnySize(random);
  const auto make = random.Below(2) ? test::AwkwardRows : test::ModerateRows;
  const Rows x = make(rows, inner, random.Next()), y = make(inner, cols, random.Next());
  const Rows want = oracle::DenseProduct(x, y, Count(rows), Count(inner), Count(cols));
  seen.Expect(SameValues(Elements(test::ToMatrix(x) * test::ToMatrix(y)), want), "product");
  // The double matrix assigns its product back, so that one of these is square.
  const Rows z = make(inner, inner, random.Next());
  CZEPHDoubleMatrix a = test::ToDoubleMatrix(x, rows, inner);
  const CZEPHDoubleMatrix b = test::ToDoubleMatrix(z, inner, inner);
  a.operator*=(b);
  seen.Expect(
      SameValues(Elements(a), oracle::DenseProduct(x, z, Count(rows), Count(inner), Count(inner))),
      "*= of the double matrix");
  CheckRawProduct(x, y, random, seen);
  if (seen.Failed()) seen.Describe(Shape(rows, inner, cols, k));
}

TEST(Proof, ProductsOfEveryShapeAndNormsOfMatricesMatchTheirOracles) {
  Prove(kRandomCases, CheckProduct);
}

}  // namespace
}  // namespace zeph::prove
