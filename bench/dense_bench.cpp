// SPDX-License-Identifier: MIT
//
// Dense arithmetic: products, element-wise work, ordered sums, maxima, whole arrays. Against the
// textbook's loops, OpenBLAS on one thread, and Eigen compiled for this processor.
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "baselines/dense.h"
#include "baselines/raw_buffers.h"
#include "bench.h"
#include "double_array.h"
#include "kernels/dense_product.h"
#include "kernels/elementwise.h"
#include "kernels/largest_magnitude.h"
#include "linalg.h"
#include "peers/native_eigen.h"

#ifdef ZEPH_HAVE_OPENBLAS
#include <cblas.h>
#endif

namespace zeph::bench {
namespace {

using Array = std::vector<double>;

/// A matrix in both forms: rows in blocks of their own, as the library stores them, and contiguous.
struct Matrix {
  std::vector<Array> blocks;
  std::vector<double*> rows;
  Array cells;
  Matrix(std::size_t m, std::size_t n, unsigned long long seed)
      : cells(RandomDoubles(m * n, seed)) {
    for (std::size_t i = 0; i < m; ++i)
      blocks.emplace_back(cells.begin() + static_cast<std::ptrdiff_t>(i * n),
                          cells.begin() + static_cast<std::ptrdiff_t>((i + 1) * n));
    for (auto& block : blocks) rows.push_back(block.data());
  }
  Numbers Values() const {
    Numbers all;
    for (const auto& block : blocks) all.insert(all.end(), block.begin(), block.end());
    return all;
  }
};

/// rows x inner times inner x cols.
void ProductRow(Row& row, std::size_t rows, std::size_t inner, std::size_t cols, double target) {
  row.Items(rows * inner * cols);
  auto& a = row.Keep<Matrix>(rows, inner, 1);
  auto& b = row.Keep<Matrix>(inner, cols, 2);
  auto& out = row.Keep<Matrix>(rows, cols, 3);
  row.Result([&] { return out.Values(); });
  row.Ours([&, rows, inner, cols] {
    kernels::DenseProduct(out.rows.data(), a.rows.data(), b.rows.data(), rows, inner, cols);
  });
  const int m = static_cast<int>(rows), k = static_cast<int>(inner), n = static_cast<int>(cols);
  const auto contiguous = [&] { return out.cells; };
#ifdef ZEPH_HAVE_OPENBLAS
  row.Peer("OpenBLAS",
           [&, m, k, n] {
             cblas_dgemm(CblasRowMajor, CblasNoTrans, CblasNoTrans, m, n, k, 1.0, a.cells.data(), k,
                         b.cells.data(), n, 0.0, out.cells.data(), n);
           })
      .Result(contiguous)
      .Near(1e-9)
      .Target(target);
#endif
#ifdef ZEPH_HAVE_NATIVE_EIGEN
  row.Peer("Eigen native",
           [&, m, k, n] {
             native_eigen::Product(out.cells.data(), a.cells.data(), b.cells.data(), m, k, n);
           })
      .Result(contiguous)
      .Near(1e-9);
#endif
  if (rows * inner * cols <= 256 * 256 * 256)
    row.Peer("textbook loop", [&, m, k, n] {
      baseline::Product(out.rows.data(), a.rows.data(), b.rows.data(), m, k, n);
    });
}

double SquareTarget(std::size_t n) {
  const std::string form = kernels::Active().name;
  if (form != "avx512") return form == "avx2" ? 0.8 : 0;
  return n == 64 || n >= 1024 ? 0.9 : 1.0;
}

/// What a caller writes: `a * b` with the storage of its result, n x n.
void WholeProductRow(Row& row) {
  const std::size_t cells = row.n() * row.n();
  row.Items(cells * row.n());
  const int n = static_cast<int>(row.n());
  auto& left = row.Keep<Array>(RandomDoubles(cells, 1));
  auto& right = row.Keep<Array>(RandomDoubles(cells, 2));
  auto& a = row.Keep<CZEPHMatrix>(n, n, left.data());
  auto& b = row.Keep<CZEPHMatrix>(n, n, right.data());
  auto& last = row.Keep<double>();  // of the product, which is gone when its contender returns
  row.Result([&] { return Values(&last, 1); });
  row.Ours([&, n] {
    CZEPHMatrix product = a * b;
    Keep(product);
    last = product[n - 1][n - 1];
  });
#ifdef ZEPH_HAVE_OPENBLAS
  row.Peer("OpenBLAS into a new block",
           [&, n, cells] {
             const std::unique_ptr<double[]> product(new double[cells]);
             cblas_dgemm(CblasRowMajor, CblasNoTrans, CblasNoTrans, n, n, n, 1.0, left.data(), n,
                         right.data(), n, 0.0, product.get(), n);
             last = product[cells - 1];
           })
      .Near(1e-9);
#endif
#ifdef ZEPH_HAVE_NATIVE_EIGEN
  row.Peer("Eigen native into a new block",
           [&, n, cells] {
             const std::unique_ptr<double[]> product(new double[cells]);
             native_eigen::Product(product.get(), left.data(), right.data(), n, n, n);
             last = product[cells - 1];
           })
      .Near(1e-9);
#endif
}

const bool kProducts[] = {
    Add("product", "whole a * b", {16, 64, 256}, WholeProductRow),
    Add("product", "square", {16, 64, 256, 512, 1024, 2048},
        [](Row& row) { ProductRow(row, row.n(), row.n(), row.n(), SquareTarget(row.n())); }),
    Add("product", "odd", {17, 63, 255, 513},
        [](Row& row) { ProductRow(row, row.n(), row.n(), row.n(), 0); }),
    Add("product", "tall: n x 40 x 40", {2000},
        [](Row& row) { ProductRow(row, row.n(), 40, 40, 0); }),
    Add("product", "flat: 40 x 40 x n", {2000},
        [](Row& row) { ProductRow(row, 40, 40, row.n(), 0); }),
    Add("product", "deep: 40 x n x 40", {2000},
        [](Row& row) { ProductRow(row, 40, row.n(), 40, 0); }),
};

constexpr double kScalar = 1.0625;

#ifdef ZEPH_HAVE_NATIVE_EIGEN
#define ZEPH_NATIVE_EIGEN(work) work
#else
#define ZEPH_NATIVE_EIGEN(work) nullptr
#endif

struct ElementwiseCase {
  void (*ours)(double* out, const double* a, const double* b, std::size_t n);
  void (*textbook)(double* out, const double* a, const double* b, int n);
  void (*eigen)(double* out, const double* a, const double* b, int n);
};

void ElementwiseRow(Row& row, const ElementwiseCase& c) {
  auto& a = row.Keep<Array>(RandomDoubles(row.n(), 4));
  auto& b = row.Keep<Array>(RandomDoubles(row.n(), 5));
  auto& out = row.Keep<Array>(row.n());
  const std::size_t n = row.n();
  const int count = static_cast<int>(n);
  row.Result([&] { return out; });
  row.Ours([&, n] { c.ours(out.data(), a.data(), b.data(), n); });
  row.Peer("textbook loop -O2", [&, count] { c.textbook(out.data(), a.data(), b.data(), count); })
      .Target(n <= 1000 ? 2 : 0);
  if (c.eigen)
    row.Peer("Eigen native", [&, count] { c.eigen(out.data(), a.data(), b.data(), count); })
        .Target(0.9);
}

// `eigen` is null where there is none.
const ElementwiseCase kAdd = {[](double* out, const double* a, const double* b, std::size_t n) {
                                kernels::Active().elementwise->add(out, a, b, n);
                              },
                              baseline::Add, ZEPH_NATIVE_EIGEN(native_eigen::Add)};
const ElementwiseCase kMultiply = {
    [](double* out, const double* a, const double* b, std::size_t n) {
      kernels::Active().elementwise->multiply(out, a, b, n);
    },
    baseline::Multiply, ZEPH_NATIVE_EIGEN(native_eigen::Multiply)};
const ElementwiseCase kScale = {
    [](double* out, const double* a, const double*, std::size_t n) {
      kernels::Active().elementwise->scale(out, kScalar, a, n);
    },
    [](double* out, const double* a, const double*, int n) { baseline::Scale(out, kScalar, a, n); },
    ZEPH_NATIVE_EIGEN(([](double* out, const double* a, const double*, int n) {
      native_eigen::Scale(out, kScalar, a, n);
    }))};
const ElementwiseCase kFill = {
    [](double* out, const double*, const double*, std::size_t n) {
      kernels::Active().elementwise->fill(out, kScalar, n);
    },
    [](double* out, const double*, const double*, int n) { baseline::Fill(out, kScalar, n); },
    ZEPH_NATIVE_EIGEN(([](double* out, const double*, const double*, int n) {
      native_eigen::Fill(out, kScalar, n);
    }))};

const bool kElementwise[] = {
    Add("elementwise", "add", {100, 1000, 100'000}, [](Row& row) { ElementwiseRow(row, kAdd); }),
    Add("elementwise", "multiply", {1000}, [](Row& row) { ElementwiseRow(row, kMultiply); }),
    Add("elementwise", "scale", {1000, 100'000}, [](Row& row) { ElementwiseRow(row, kScale); }),
    Add("elementwise", "fill", {1000, 100'000}, [](Row& row) { ElementwiseRow(row, kFill); }),
};

/// A library array of n random elements.
CZEPHDoubleArray& RandomArray(Row& row, unsigned long long seed) {
  return row.Keep<CZEPHDoubleArray>(static_cast<int>(row.n()), RandomDoubles(row.n(), seed).data());
}

/// The lower bound of an ordered sum: the additions alone, one after another, of precomputed terms.
template <class Term, class Finish>
void LatencyLimit(Row& row, double& result, Term term, Finish finish) {
  auto& terms = row.Keep<Array>(row.n());
  for (std::size_t i = 0; i < terms.size(); ++i) terms[i] = term(static_cast<int>(i));
  row.Peer("latency limit",
           [&, finish, n = static_cast<int>(row.n())] {
             result = finish(baseline::ChainOfSums(terms.data(), n));
           })
      .Target(0.98);
}

double Itself(double sum) {
  return sum;
}

const bool kArrays[] = {
    Add("array", "copy", {1000},
        [](Row& row) {
          auto& a = RandomArray(row, 6);
          auto& v = row.Keep<Array>(a.begin(), a.end());
          auto& last = row.Keep<double>();
          row.Result([&] { return Values(&last, 1); });
          row.Ours([&] {
            CZEPHDoubleArray copy(a);
            Keep(copy);
            last = copy[copy.size - 1];
          });
          row.Peer("std::vector",
                   [&] {
                     Array copy(v);
                     Keep(copy);
                     last = copy.back();
                   })
              .Target(0.9);
        }),
    Add("array", "a + b", {1000},
        [](Row& row) {
          auto &a = RandomArray(row, 7), &b = RandomArray(row, 8);
          auto &va = row.Keep<Array>(a.begin(), a.end()), &vb = row.Keep<Array>(b.begin(), b.end());
          auto& out = row.Keep<Array>();
          auto& last = row.Keep<double>();
          row.Result([&] { return Values(&last, 1); });
          row.Ours([&] {
            const CZEPHDoubleArray sum = a + b;
            last = sum[sum.size - 1];
          });
          row.Peer("copy, add, copy",
                   [&] {
                     baseline::CopyAddCopy(out, va, vb);
                     last = out.back();
                   })
              .Target(8);
#ifdef ZEPH_HAVE_NATIVE_EIGEN
          row.Peer("Eigen native", [&] { last = native_eigen::NewSum(a.data, b.data, a.size); })
              .Target(0.9);
#endif
        }),
    Add("array", "a + b + c + d", {1000},
        [](Row& row) {
          auto &a = RandomArray(row, 7), &b = RandomArray(row, 8);
          auto &c = RandomArray(row, 9), &d = RandomArray(row, 10);
          auto &va = row.Keep<Array>(a.begin(), a.end()), &vb = row.Keep<Array>(b.begin(), b.end());
          auto &vc = row.Keep<Array>(c.begin(), c.end()), &vd = row.Keep<Array>(d.begin(), d.end());
          auto& out = row.Keep<Array>();
          auto& last = row.Keep<double>();
          row.Result([&] { return Values(&last, 1); });
          row.Ours([&] {
            const CZEPHDoubleArray sum = a + b + c + d;
            last = sum[sum.size - 1];
          });
          row.Peer("copy, add, copy",
                   [&] {
                     baseline::CopyAddCopy(out, va, vb, vc, vd);
                     last = out.back();
                   })
              .Target(8);
#ifdef ZEPH_HAVE_NATIVE_EIGEN
          row.Peer("Eigen native",
                   [&] { last = native_eigen::NewSum(a.data, b.data, c.data, d.data, a.size); })
              .Target(0.9);
#endif
        }),
    Add("array", "MaxNorm", {1000, 100'000, 1'000'000},
        [](Row& row) {
          auto& a = RandomArray(row, 11);
          auto& norm = row.Keep<double>();
          row.Result([&] { return Values(&norm, 1); });
          row.Ours([&] { norm = a.MaxNorm(); });
          row.Peer("textbook loop", [&] { norm = baseline::MaxNorm(a.data, a.size); })
              .Target(row.n() <= 100'000 ? 6 : 0);
#ifdef ZEPH_HAVE_NATIVE_EIGEN
          row.Peer("Eigen native", [&] { norm = native_eigen::MaxNorm(a.data, a.size); })
              .Target(0.9);
#endif
        }),
    Add("array", "OneNorm", {1000},
        [](Row& row) {
          auto& a = RandomArray(row, 12);
          auto& norm = row.Keep<double>();
          row.Result([&] { return Values(&norm, 1); });
          row.Ours([&] { norm = a.OneNorm(); });
          row.Peer("textbook loop", [&] { norm = baseline::OneNorm(a.data, a.size); });
          LatencyLimit(
              row, norm, [&](int i) { return std::fabs(a[i]); }, Itself);
        }),
    Add("array", "dot product", {1000},
        [](Row& row) {
          auto &a = RandomArray(row, 13), &b = RandomArray(row, 14);
          auto& sum = row.Keep<double>();
          row.Result([&] { return Values(&sum, 1); });
          row.Ours([&] { sum = ZEPH_ArrayDotProduct(a, b); });
          row.Peer("textbook loop", [&] { sum = baseline::Dot(a.data, b.data, a.size); });
          LatencyLimit(
              row, sum, [&](int i) { return a[i] * b[i]; }, Itself);
        }),
    Add("array", "TwoNorm", {1000},
        [](Row& row) {
          auto& a = RandomArray(row, 12);
          auto& norm = row.Keep<double>();
          row.Result([&] { return Values(&norm, 1); });
          row.Ours([&] { norm = a.TwoNorm(); });
          row.Peer("textbook loop",
                   [&] { norm = std::sqrt(baseline::Dot(a.data, a.data, a.size)); });
          LatencyLimit(
              row, norm, [&](int i) { return a[i] * a[i]; },
              [](double sum) { return std::sqrt(sum); });
        }),
};

const bool kRowSums[] = {
    Add("matrix", "times array", {16, 60, 250},
        [](Row& row) {
          row.Items(row.n() * row.n());
          const int n = static_cast<int>(row.n());
          auto& m = row.Keep<Matrix>(row.n(), row.n(), 15);
          auto& ours = row.Keep<CZEPHDoubleMatrix>(n, n, m.rows.data());
          auto& v = RandomArray(row, 16);
          auto& out = row.Keep<Array>(row.n());
          row.Result([&] { return out; });
          row.Ours([&] {
            const CZEPHDoubleArray product = ours * v;
            out.assign(product.begin(), product.end());
          });
          row.Peer("textbook loop",
                   [&, n] { baseline::TimesVector(out.data(), m.rows.data(), v.data, n, n); })
              .Target(n >= 60 ? 4.5 : 0);
#ifdef ZEPH_HAVE_NATIVE_EIGEN
          row.Peer("Eigen native",
                   [&, n] { native_eigen::TimesVector(out.data(), m.cells.data(), v.data, n, n); })
              .Near(1e-9);
#endif
        }),
    Add("matrix", "row sums", {60, 250},
        [](Row& row) {
          row.Items(row.n() * row.n());
          const int n = static_cast<int>(row.n());
          auto& m = row.Keep<Matrix>(row.n(), row.n(), 17);
          auto& ours = row.Keep<CZEPHMatrix>(n, n, m.cells.data());
          auto& sums = row.Keep<CZEPHVector>(n);
          row.Result([&, n] { return Values(sums.m_pData, static_cast<std::size_t>(n)); });
          row.Ours([&] { ZEPH_SumVector(ours, sums); });
          row.Peer("textbook loop",
                   [&, n] { baseline::RowSums(sums.m_pData, m.rows.data(), n, n); })
              .Target(4.5);
#ifdef ZEPH_HAVE_NATIVE_EIGEN
          row.Peer("Eigen native",
                   [&, n] { native_eigen::RowSums(sums.m_pData, m.cells.data(), n, n); })
              .Near(1e-9);
#endif
        }),
};

}  // namespace
}  // namespace zeph::bench
