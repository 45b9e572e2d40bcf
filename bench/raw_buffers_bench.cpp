// SPDX-License-Identifier: MIT
//
// Raw buffers: listings against plain printf, the rest against textbook loops and the peers.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "baselines/raw_buffers.h"
#include "bench.h"
#include "raw_buffers.h"
#include "sheet.h"

#ifdef ZEPH_HAVE_EIGEN
#include <Eigen/Dense>
#endif
#ifdef ZEPH_HAVE_OPENBLAS
#include <cblas.h>
#endif
#ifdef ZEPH_HAVE_GLM
#include <glm/glm.hpp>
#endif

namespace zeph::bench {
namespace {

namespace baseline = zeph::baseline;

/// A row-pointer matrix with its cells.
struct Matrix {
  std::vector<double> cells;
  std::vector<double*> rows;
  Matrix(std::size_t n, std::vector<double> values) : cells(std::move(values)) {
    for (std::size_t i = 0; i < n; ++i) rows.push_back(cells.data() + i * n);
  }
  double** m() { return rows.data(); }
};
Matrix& RandomMatrix(Row& row, unsigned long long seed, double lo = -1, double hi = 1) {
  return row.Keep<Matrix>(row.n(), RandomDoubles(row.n() * row.n(), seed, lo, hi));
}

char kLabel[] = "series";

const bool kListings[] = {
    Add("listing", "ArrayDisplay double", {100, 1'000'000},
        [](Row& row) {
          auto& a = row.Keep<std::vector<double>>(RandomDoubles(row.n(), 1, -1e6, 1e6));
          auto& sheet = row.Keep<Sheet>();
          const int n = static_cast<int>(row.n());
          row.Result([&] { return sheet.Content(); });
          row.Ours([&, n] { ZEPH_ArrayDisplay(sheet.Rewound(), a.data(), n, kLabel); });
          row.Peer("fprintf",
                   [&, n] { baseline::ListDoubles(sheet.Rewound(), a.data(), n, kLabel); })
              .Target(3);
        }),
    Add("listing", "ArrayDisplay int", {100, 1'000'000},
        [](Row& row) {
          auto& a = row.Keep<std::vector<int>>(row.n());
          const auto values = RandomDoubles(row.n(), 2, -1e5, 1e5);
          std::transform(values.begin(), values.end(), a.begin(),
                         [](double x) { return static_cast<int>(x); });
          auto& sheet = row.Keep<Sheet>();
          const int n = static_cast<int>(row.n());
          row.Result([&] { return sheet.Content(); });
          row.Ours([&, n] { ZEPH_ArrayDisplay(sheet.Rewound(), a.data(), n, kLabel); });
          row.Peer("fprintf", [&, n] { baseline::ListInts(sheet.Rewound(), a.data(), n, kLabel); });
        }),
    Add("listing", "MatrixPrint", {10, 1000},
        [](Row& row) {
          row.Items(row.n() * row.n());
          auto& a = RandomMatrix(row, 3, -1e3, 1e3);
          auto& sheet = row.Keep<Sheet>();
          const int n = static_cast<int>(row.n());
          row.Result([&] { return sheet.Content(); });
          row.Ours([&, n] { ZEPH_MatrixPrint(sheet.Rewound(), n, n, a.m(), kLabel); });
          row.Peer("fprintf",
                   [&, n] { baseline::PrintMatrix(sheet.Rewound(), n, n, a.m(), kLabel); })
              .Target(3);
        }),
};

/// One step per cell: the time per cell is constant, where the literal loop's grows with n.
void AdditiveRow(Row& row, bool inPlace) {
  row.Items(row.n() * row.n());
  auto& a = RandomMatrix(row, 4);
  auto& b = RandomMatrix(row, 5);
  auto& own = RandomMatrix(row, 6);
  auto& out = inPlace ? a : own;
  const auto& start = row.Keep<std::vector<double>>(a.cells);
  const int n = static_cast<int>(row.n());
  if (inPlace) row.Before([&](std::size_t) { a.cells = start; });
  row.Result([&] { return out.cells; });
  row.Ours([&, n] { ZEPH_MatrixMult(n, n, a.m(), n, n, b.m(), out.m()); });
  row.Peer("literal loop", [&, n] { baseline::AdditiveProduct(n, n, a.m(), n, b.m(), out.m()); });
}

const bool kProducts[] = {
    Add("raw", "MatrixMult", {16, 64, 256}, [](Row& row) { AdditiveRow(row, false); }),
    Add("raw", "MatrixMult in place", {64, 256}, [](Row& row) { AdditiveRow(row, true); }),
    Add("raw", "MatrixTranspose", {16, 100, 1000},
        [](Row& row) {
          row.Items(row.n() * row.n());
          auto& a = RandomMatrix(row, 7);
          auto& b = RandomMatrix(row, 8);
          const int n = static_cast<int>(row.n());
          row.Result([&] { return b.cells; });
          row.Ours([&, n] { ZEPH_MatrixTranspose(n, a.cells.data(), b.cells.data()); });
          row.Peer("textbook loop",
                   [&, n] { baseline::Transpose(n, a.cells.data(), b.cells.data()); });
#ifdef ZEPH_HAVE_EIGEN
          row.Peer("Eigen", [&, n] {
            Eigen::Map<const Eigen::MatrixXd> from(a.cells.data(), n, n);
            Eigen::Map<Eigen::MatrixXd>(b.cells.data(), n, n).noalias() = from.transpose();
          });
#endif
        }),
    Add("raw", "MatrixMult4", {4},
        [](Row& row) {
          row.Items(row.n() * row.n() * row.n());
          auto& a = RandomMatrix(row, 9);
          auto& b = RandomMatrix(row, 10);
          auto& out = RandomMatrix(row, 11);
          row.Result([&] { return out.cells; });
          row.Ours([&] { ZEPH_MatrixMult4(a.cells.data(), b.cells.data(), out.cells.data()); });
          row.Peer("textbook loop",
                   [&] { baseline::Multiply4(a.cells.data(), b.cells.data(), out.cells.data()); });
#ifdef ZEPH_HAVE_GLM
          // Stored by columns, so the factors are exchanged.
          row.Peer("GLM",
                   [&] {
                     const auto* x = reinterpret_cast<const glm::dmat4*>(a.cells.data());
                     const auto* y = reinterpret_cast<const glm::dmat4*>(b.cells.data());
                     *reinterpret_cast<glm::dmat4*>(out.cells.data()) = *y * *x;
                   })
              .Near(1e-12);
#endif
        }),
};

/// Two ascending blocks of n elements each, by the pattern in which they alternate.
using Blocks = std::pair<std::vector<double>, std::vector<double>>;
Blocks RandomBlocks(std::size_t n, unsigned long long seed) {
  Blocks blocks = {RandomDoubles(n, seed, -1e9, 1e9), RandomDoubles(n, seed + 1, -1e9, 1e9)};
  std::sort(blocks.first.begin(), blocks.first.end());
  std::sort(blocks.second.begin(), blocks.second.end());
  return blocks;
}
template <std::size_t kRun>
Blocks InRuns(std::size_t n, unsigned long long) {
  Blocks blocks;
  const std::size_t run = kRun ? kRun : n;  // 0: one block after the other
  for (std::size_t i = 0; i < 2 * n; ++i)
    (i / run % 2 ? blocks.second : blocks.first).push_back(static_cast<double>(i));
  blocks.first.resize(n, 2.0 * static_cast<double>(n));
  blocks.second.resize(n, 2.0 * static_cast<double>(n));
  return blocks;
}

template <class T>
void MergeRow(Row& row, Blocks (*make)(std::size_t, unsigned long long)) {
  const std::size_t n = row.n();
  using Pair = std::pair<std::vector<T>, std::vector<T>>;
  auto& inputs = row.Keep<std::vector<Pair>>();
  for (std::size_t k = 0; k < (n < 1000 ? 512 : 8); ++k) {  // more than a branch predictor learns
    const Blocks blocks = make(n, 1000 * k);
    inputs.push_back(
        {{blocks.first.begin(), blocks.first.end()}, {blocks.second.begin(), blocks.second.end()}});
  }
  auto& at = row.Keep<const Pair*>();
  row.Items(2 * n);
  auto& out = row.Keep<std::vector<T>>(2 * n);
  row.Before([&](std::size_t round) { at = &inputs[round % inputs.size()]; });
  row.Result([&] { return Numbers(out.begin(), out.end()); });
  row.Ours([&, n] {
    const int count = static_cast<int>(n);
    ZEPH_ArrayMergeSorted(const_cast<T*>(at->first.data()), count,
                          const_cast<T*>(at->second.data()), count, out.data());
  });
  row.Peer("std::merge", [&] {
    std::merge(at->first.begin(), at->first.end(), at->second.begin(), at->second.end(),
               out.begin());
  });
}

template <class T>
bool AddMerge(const char* name, Blocks (*make)(std::size_t, unsigned long long)) {
  return Add("ArrayMergeSorted", name, {100, 100'000},
             [make](Row& row) { MergeRow<T>(row, make); });
}
[[maybe_unused]] const bool kMerges[] = {
    AddMerge<double>("doubles, random", RandomBlocks),
    AddMerge<double>("doubles, one behind the other", InRuns<0>),
    AddMerge<double>("doubles, runs of 50", InRuns<50>),
    AddMerge<double>("doubles, in turn", InRuns<1>),
    AddMerge<int>("ints, random", RandomBlocks),
    AddMerge<int>("ints, one behind the other", InRuns<0>),
    AddMerge<int>("ints, runs of 50", InRuns<50>),
    AddMerge<int>("ints, in turn", InRuns<1>),
};

/// A norm of a random matrix against its textbook form and, where there is one, Eigen's.
template <class Ours, class Textbook>
double& NormRow(Row& row, Matrix& m, Ours ours, Textbook textbook, double target = 0) {
  row.Items(row.n() * row.n());
  auto& norm = row.Keep<double>();
  const int n = static_cast<int>(row.n());
  row.Result([&] { return Values(&norm, 1); });
  row.Ours([&, n, ours] { norm = ours(m.m(), n, 0); });
  row.Peer("textbook loop", [&, n, textbook] { norm = textbook(m.m(), n); })
      .Target(n >= 100 ? target : 0);
  return norm;
}

#ifdef ZEPH_HAVE_EIGEN
using EigenRows = Eigen::Map<const Eigen::Matrix<double, -1, -1, Eigen::RowMajor>>;
#endif

const bool kNorms[] = {
    Add("norm", "ArrayMaxNorm", {100, 10'000, 1'000'000},
        [](Row& row) {
          auto& a = row.Keep<std::vector<double>>(RandomDoubles(row.n(), 50));
          auto& norm = row.Keep<double>();
          const int n = static_cast<int>(row.n());
          row.Result([&] { return Values(&norm, 1); });
          row.Ours([&, n] { norm = ZEPH_ArrayMaxNorm(a.data(), n, 0); });
          row.Peer("textbook loop", [&, n] { norm = baseline::MaxNorm(a.data(), n); });
#ifdef ZEPH_HAVE_EIGEN
          row.Peer("Eigen", [&, n] {
            norm = Eigen::Map<const Eigen::VectorXd>(a.data(), n).lpNorm<Eigen::Infinity>();
          });
#endif
#ifdef ZEPH_HAVE_OPENBLAS
          row.Peer("OpenBLAS", [&, n] {
            norm = std::abs(a[static_cast<std::size_t>(cblas_idamax(n, a.data(), 1))]);
          });
#endif
        }),
    Add("norm", "MatrixOneNorm", {10, 100, 1000},
        [](Row& row) {
          auto& m = RandomMatrix(row, 51);
          [[maybe_unused]] double& norm =
              NormRow(row, m, ZEPH_MatrixOneNorm, baseline::MatrixOneNorm);
#ifdef ZEPH_HAVE_EIGEN
          row.Peer("Eigen",
                   [&, n = static_cast<int>(row.n())] {
                     norm = EigenRows(m.cells.data(), n, n).colwise().lpNorm<1>().maxCoeff();
                   })
              .Near(1e-12);
#endif
        }),
    Add("norm", "MatrixMaxNorm", {10, 100, 1000},
        [](Row& row) {
          auto& m = RandomMatrix(row, 52);
          [[maybe_unused]] double& norm =
              NormRow(row, m, ZEPH_MatrixMaxNorm, baseline::MatrixMaxNorm, 4.5);
#ifdef ZEPH_HAVE_EIGEN
          row.Peer("Eigen",
                   [&, n = static_cast<int>(row.n())] {
                     norm = EigenRows(m.cells.data(), n, n).rowwise().lpNorm<1>().maxCoeff();
                   })
              .Near(1e-12);
#endif
        }),
    Add("norm", "MatrixFrobNorm", {10, 100, 1000},
        [](Row& row) {
          auto& m = RandomMatrix(row, 53);
          [[maybe_unused]] double& norm =
              NormRow(row, m, ZEPH_MatrixFrobNorm, baseline::ScaledFrobenius, 4.5);
#ifdef ZEPH_HAVE_EIGEN
          row.Peer("Eigen stableNorm",
                   [&, n = static_cast<int>(row.n())] {
                     norm = EigenRows(m.cells.data(), n, n).stableNorm();
                   })
              .Near(1e-12);
#endif
        }),
};

}  // namespace
}  // namespace zeph::bench
