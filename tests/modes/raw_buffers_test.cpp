// The raw buffers in every floating-point mode of the host.
#include "raw_buffers.h"

#include "modes/inputs.h"
#include "oracle/fixed_geometry.h"
#include "oracle/raw_norms.h"
#include "oracle/searches.h"
#include "support/modes.h"
#include "support/not_finite.h"

using namespace zeph::test;

namespace {

using Doubles = std::vector<double>;

const std::vector<std::size_t> kLengths = {1, 2, 3, 5, 8, 17, 40, 130, 1000, 5000};

using ArrayNorm = double (*)(double* a, int n, int start);
using ArraySteps = double (*)(const double* a, int n, int start);

void CheckArrayNorm(Results kind, ArrayNorm norm, ArraySteps steps) {
  ForEachInput(kLengths, 200, [=](const Doubles& values) {
    Doubles v = values;
    const int n = static_cast<int>(v.size());
    EXPECT_TRUE(SameInEveryMode(
        kind, [&] { return Doubles{norm(v.data(), n, 0)}; },
        [&] { return Doubles{steps(v.data(), n, 0)}; }));
  });
}

/// The rows of a square matrix.
struct Square {
  explicit Square(const Doubles& all) : values(all) {
    while ((n + 1) * (n + 1) <= values.size()) ++n;
    for (std::size_t i = 0; i < n; ++i) rows.push_back(values.data() + i * n);
  }
  Doubles values;
  std::size_t n = 0;
  std::vector<double*> rows;
};

using MatrixNorm = double (*)(double** m, int n, int start);
using MatrixSteps = double (*)(double* const* m, int n, int start);

void CheckMatrixNorm(Results kind, MatrixNorm norm, MatrixSteps steps) {
  ForEachInput({1, 4, 9, 16, 25, 49, 81, 144, 256, 289, 400, 900, 4900}, 200,
               [=](const Doubles& values) {
                 Square m(values);
                 const int n = static_cast<int>(m.n);
                 EXPECT_TRUE(SameInEveryMode(
                     kind, [&] { return Doubles{norm(m.rows.data(), n, 0)}; },
                     [&] { return Doubles{steps(m.rows.data(), n, 0)}; }));
               });
}

using Matrix3 = double[3][3];

Doubles Elements(const Matrix3& m) {
  return {&m[0][0], &m[0][0] + 9};
}
void Set(Matrix3& m, const double* from) {
  std::copy_n(from, 9, &m[0][0]);
}

}  // namespace

TEST(RawBufferModes, ArrayNormsMatchTheirOracles) {
  CheckArrayNorm(Results::kComputed, ZEPH_ArrayOneNorm, oracle::ArrayOneNorm);
  CheckArrayNorm(Results::kComputed, ZEPH_ArrayTwoNorm, oracle::ArrayTwoNorm);
  CheckArrayNorm(Results::kComputed, ZEPH_ArrayTwoNorm2, oracle::ArrayTwoNorm2);
  CheckArrayNorm(Results::kComputed, ZEPH_ArrayMaxNorm, oracle::ArrayMaxNorm);
}

TEST(RawBufferModes, TwoNorm2IgnoresSigns) {
  for (double sign : {1.0, -1.0}) {
    Doubles v = {786, 2223 * sign};
    EXPECT_TRUE(ComputesInEveryMode([&] { return Doubles{ZEPH_ArrayTwoNorm2(v.data(), 2, 0)}; },
                                    [&] { return Doubles{oracle::ArrayTwoNorm2(v.data(), 2, 0)}; }))
        << "sign " << sign;
  }
}

TEST(RawBufferModes, MatrixNormsMatchTheirOracles) {
  CheckMatrixNorm(Results::kComputed, ZEPH_MatrixOneNorm, oracle::MatrixOneNorm);
  CheckMatrixNorm(Results::kComputed, ZEPH_MatrixMaxNorm, oracle::MatrixMaxNorm);
  CheckMatrixNorm(Results::kComputed, ZEPH_MatrixFrobNorm, oracle::MatrixFrobNorm);
  CheckMatrixNorm(Results::kComputed, ZEPH_MatrixFrobNorm2, oracle::MatrixFrobNorm2);
  CheckMatrixNorm(Results::kComputed, ZEPH_MatrixFrobNorm3, oracle::MatrixFrobNorm3);
}

TEST(RawBufferModes, FrobeniusNormOfZerosAndLargeElementsMatchesItsOracle) {
  for (const Doubles& some : {Doubles{3, 1000}, Doubles{1e200, 1e200, 1, 1}, Doubles{1e160}}) {
    for (std::size_t n : {2u, 3u, 16u}) {
      Doubles values(n * n, 0.0);
      for (std::size_t k = 0; k < some.size(); ++k) values[k * (n - 1) % values.size()] = some[k];
      Square m(values);
      EXPECT_TRUE(ComputesInEveryMode(
          [&] { return Doubles{ZEPH_MatrixFrobNorm(m.rows.data(), static_cast<int>(n), 0)}; },
          [&] { return Doubles{oracle::MatrixFrobNorm(m.rows.data(), static_cast<int>(n), 0)}; }))
          << "n " << n;
    }
  }
}

TEST(RawBufferModes, MergeOfSortedArraysMatchesItsOracle) {
  ForEachInput({2, 9, 40, 300}, 200, [](const Doubles& values) {
    Doubles all = values;
    const auto half = static_cast<std::ptrdiff_t>(all.size() / 2);
    const int na = static_cast<int>(half), nb = static_cast<int>(all.size()) - na;
    for (const bool sorted : {false, true}) {
      if (sorted) {
        for (double& x : all) x = x != x ? 3.0 : x;
        std::sort(all.begin(), all.begin() + half);
        std::sort(all.begin() + half, all.end());
      }
      EXPECT_TRUE(MovesInEveryMode(
          [&] {
            Doubles out(all.size());
            ZEPH_ArrayMergeSorted(all.data(), na, all.data() + na, nb, out.data());
            return out;
          },
          [&] {
            Doubles out(all.size());
            oracle::Merge(all.data(), na, all.data() + na, nb, out.data());
            return out;
          }))
          << "sorted " << sorted;
    }
  });
}

// A NaN after the last element of `b` that the documented steps compare: `a` runs out earlier,
// before the others or among them.
TEST(RawBufferModes, MergeComparesOnlyTheElementsItsStepsCompare) {
  for (const double behind : {200.0, 1.5})
    for (const int n : {3, 20, 98, 99, 100, 128}) {
      Doubles a(static_cast<std::size_t>(n)), b(a);
      for (std::size_t i = 0; i < a.size(); ++i)
        a[i] = static_cast<double>(i), b[i] = a[i] + behind;
      b.back() = kNaN;
      EXPECT_TRUE(MovesInEveryMode(
          [&] {
            Doubles out(2 * a.size());
            ZEPH_ArrayMergeSorted(a.data(), n, b.data(), n, out.data());
            return out;
          },
          [&] {
            Doubles out(2 * a.size());
            oracle::Merge(a.data(), n, b.data(), n, out.data());
            return out;
          }))
          << behind << " " << n;
    }
}

TEST(RawBufferModes, AdditiveProductMatchesItsOracle) {
  ForEachInput({8, 98, 450}, 200, [](const Doubles& values) {
    const Doubles half(values.begin(),
                       values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2));
    Square a(half),
        b(Doubles(values.rbegin(), values.rbegin() + static_cast<std::ptrdiff_t>(half.size())));
    const int n = static_cast<int>(a.n);
    EXPECT_TRUE(ComputesInEveryMode(
        [&] {
          Square out(Doubles(a.n * a.n, 0.0));
          ZEPH_MatrixMult(n, n, a.rows.data(), n, n, b.rows.data(), out.rows.data());
          return out.values;
        },
        [&] {
          Doubles out(a.n * a.n);
          for (std::size_t i = 0; i < a.n; ++i)
            for (std::size_t j = 0; j < a.n; ++j)
              out[i * a.n + j] = b.rows[a.n - 1][j] + a.rows[i][a.n - 1];
          return out;
        }));
  });
}

TEST(RawBufferModes, Products3And4MatchTheirOracles) {
  for (std::uint64_t seed = 0; seed < 30; ++seed)
    for (const auto& input : ModeInputs(32, seed)) {
      SCOPED_TRACE(input.name);
      Doubles v = input.values;
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            Doubles out(16);
            ZEPH_MatrixMult4(v.data(), v.data() + 16, out.data());
            return out;
          },
          [&] {
            Doubles out(16);
            oracle::Mult4(v.data(), v.data() + 16, out.data());
            return out;
          }));
      Matrix3 a, b;
      Set(a, v.data());
      Set(b, v.data() + 9);
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            Matrix3 out;
            ZEPH_MatrixMultiply3(a, b, out);
            return Elements(out);
          },
          [&] {
            Matrix3 out;
            oracle::Multiply3(a, b, out);
            return Elements(out);
          }));
    }
}

TEST(RawBufferModes, RotationsMatchTheirOracles) {
  for (const auto& input : ModeInputs(9, 3))
    for (const double angle : {0.0, 30.0, -91.5, 1e6}) {
      SCOPED_TRACE(input.name);
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            Matrix3 m;
            Set(m, input.values.data());
            ZEPH_MatrixRotate3(m, angle, 2 * angle, 3 * angle);
            return Elements(m);
          },
          [&] {
            Matrix3 m;
            Set(m, input.values.data());
            for (const int axis : {0, 1, 2}) oracle::Rotate3(m, axis, (axis + 1) * angle);
            return Elements(m);
          }));
    }
}

TEST(RawBufferModes, VectorsMatchTheirOracles) {
  for (std::uint64_t seed = 0; seed < 50; ++seed)
    for (const auto& input : ModeInputs(18, seed)) {
      SCOPED_TRACE(input.name);
      Doubles v = input.values;
      double *a = v.data(), *b = a + 3;
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            Matrix3 m;
            Set(m, a + 6);
            Doubles out(10);
            ZEPH_VectorCrossProduct3(a, b, out.data());
            out[3] = ZEPH_VectorDotProduct3(a, b);
            std::copy_n(b, 3, &out[4]);
            ZEPH_VectorNormalize3(&out[4]);
            std::copy_n(a, 3, &out[7]);
            ZEPH_MatrixTransform3(m, &out[7], &out[8], &out[9]);
            return out;
          },
          [&] {
            Matrix3 m;
            Set(m, a + 6);
            Doubles out(10);
            oracle::Cross3(a, b, out.data());
            out[3] = oracle::Dot3(a, b);
            std::copy_n(b, 3, &out[4]);
            oracle::Normalize3(&out[4]);
            std::copy_n(a, 3, &out[7]);
            oracle::Transform3(m, &out[7], &out[8], &out[9]);
            return out;
          }));
    }
}
