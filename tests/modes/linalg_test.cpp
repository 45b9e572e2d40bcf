// The matrices and vectors of doubles in every floating-point mode of the host.
#include <cmath>

#include "linalg/matrices.h"
#include "modes/inputs.h"
#include "oracle/matrix4.h"
#include "support/modes.h"
#include "support/not_finite.h"

using namespace zeph::test;

namespace {

using Doubles = std::vector<double>;

/// `count` rows of `cols` of the values.
Rows Cut(const Doubles& values, std::size_t count, std::size_t cols) {
  Rows rows;
  for (std::size_t i = 0; i < count; ++i)
    rows.emplace_back(values.begin() + static_cast<std::ptrdiff_t>(i * cols),
                      values.begin() + static_cast<std::ptrdiff_t>((i + 1) * cols));
  return rows;
}

Doubles Joined(const Rows& rows) {
  Doubles all;
  for (const auto& row : rows) all.insert(all.end(), row.begin(), row.end());
  return all;
}

struct Shape {
  std::size_t rows, inner, cols;
};

// Narrower than a vector, whole vectors, remaining columns, more than a block of k, panels.
const Shape kShapes[] = {{1, 1, 1},  {2, 2, 2},   {3, 5, 7},   {4, 4, 3},    {6, 9, 9},
                         {9, 8, 10}, {12, 7, 25}, {5, 260, 3}, {70, 65, 71}, {130, 70, 49}};

CZEPHDoubleMatrix ToDoubleMatrix(const Rows& rows) {
  return zeph::test::ToDoubleMatrix(rows, static_cast<int>(rows.size()),
                                    static_cast<int>(rows[0].size()));
}

}  // namespace

TEST(LinalgModes, ProductsMatchTheirOracles) {
  for (const Shape& shape : kShapes) {
    const std::size_t left = shape.rows * shape.inner, right = shape.inner * shape.cols;
    for (const auto& input : ModeInputs(left + right, left)) {
      SCOPED_TRACE(input.name + ", " + std::to_string(shape.rows) + " x " +
                   std::to_string(shape.inner) + " x " + std::to_string(shape.cols));
      const Rows a = Cut(input.values, shape.rows, shape.inner);
      const Doubles rest(input.values.begin() + static_cast<std::ptrdiff_t>(left),
                         input.values.end());
      const Rows b = Cut(rest, shape.inner, shape.cols);
      const auto steps = [&] {
        return Joined(oracle::DenseProduct(a, b, shape.rows, shape.inner, shape.cols));
      };
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            CZEPHMatrix m = ToMatrix(a);
            return Joined(Elements(m * ToMatrix(b)));
          },
          steps));
      const Rows column = Cut(rest, shape.inner, 1);
      const Doubles v = Joined(column);
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            return Elements(ToDoubleMatrix(a) *
                            CZEPHDoubleArray(static_cast<int>(v.size()), v.data()));
          },
          [&] { return Joined(oracle::DenseProduct(a, column, shape.rows, shape.inner, 1)); }));
      if (HasFailure()) return;
    }
  }
}

TEST(LinalgModes, ProductWithAnInfinityRaisesNothingForPaddedColumns) {
  const Rows a = {{1, kInfinity}, {2, 3}}, b = {{1, 2}, {3, 4}};
  EXPECT_TRUE(ComputesInEveryMode(
      [&] {
        CZEPHMatrix left = ToMatrix(a);
        return Joined(Elements(left * ToMatrix(b)));
      },
      [&] { return Joined(oracle::DenseProduct(a, b, 2, 2, 2)); }));
}

TEST(LinalgModes, SumsDifferencesAndNegationMatchTheirOracles) {
  for (const std::size_t cols : {1u, 3u, 8u, 19u, 300u})
    for (const auto& input : ModeInputs(8 * cols, cols)) {
      SCOPED_TRACE(input.name);
      const Rows all = Cut(input.values, 8, cols);
      const Rows x(all.begin(), all.begin() + 4), y(all.begin() + 4, all.end());
      CZEPHDoubleMatrix a = ToDoubleMatrix(x), b = ToDoubleMatrix(y);
      const auto check = [&](auto operation, auto step) {
        EXPECT_TRUE(ComputesInEveryMode([&] { return Joined(Elements(operation())); },
                                        [&] {
                                          Doubles out;
                                          for (std::size_t i = 0; i < 4; ++i)
                                            for (std::size_t j = 0; j < cols; ++j)
                                              out.push_back(step(x[i][j], y[i][j]));
                                          return out;
                                        }));
      };
      check([&] { return a + b; }, [](double p, double q) { return p + q; });
      check([&] { return a - b; }, [](double p, double q) { return p - q; });
      check([&] { return CZEPHDoubleMatrix(-a); }, [](double p, double) { return 0.0 - p; });
    }
}

TEST(LinalgModes, VectorsMatchTheirOracles) {
  for (const std::size_t n : {1u, 2u, 5u, 8u, 13u, 100u, 600u})
    for (const auto& input : ModeInputs(n, n)) {
      SCOPED_TRACE(input.name + ", " + std::to_string(n));
      const Doubles& values = input.values;
      CZEPHVector v = ToVector(values);
      EXPECT_TRUE(MovesInEveryMode(
          [&] {
            return Doubles{double(ZEPH_GetVectorMaxSite(v)), double(ZEPH_GetVectorMinSite(v)),
                           ZEPH_GetVectorInfititeNorm(v)};
          },
          [&] {
            std::size_t most = 0, least = 0;
            volatile double norm = std::fabs(values[0]);  // so that no maximum instruction is used
            for (std::size_t i = 1; i < n; ++i) {
              if (values[i] > values[most]) most = i;
              if (values[least] > values[i]) least = i;
              if (std::fabs(values[i]) > norm) norm = std::fabs(values[i]);
            }
            return Doubles{double(most), double(least), norm};
          }));
      for (const double s : {1.0, -1.0, 3.0, 1e-9, 0.0, 1e200, Denormal<double>(3)}) {
        const auto product = [&] {
          Doubles out;
          for (const double x : values) out.push_back(s * x);
          return out;
        };
        EXPECT_TRUE(ComputesInEveryMode([&] { return Elements(s * v); }, product));
        EXPECT_TRUE(ComputesInEveryMode([&] { return Elements(v * s); }, product));
        EXPECT_TRUE(ComputesInEveryMode(
            [&] {
              Doubles out = Elements(v / s);
              out.push_back(ZEPH_GetVectorSquareNorm(v));
              return out;
            },
            [&] {
              const double factor = std::fabs(s) > 1e-8 ? 1.0 / s : 1.0;
              Doubles out;
              double sum = 0.0;
              for (const double x : values) {
                out.push_back(factor * x);
                sum += x * x;
              }
              out.push_back(sum);
              return out;
            }));
      }
    }
}

TEST(LinalgModes, Matrix4AndVector3MatchTheirOracles) {
  for (std::uint64_t seed = 0; seed < 40; ++seed)
    for (const auto& input : ModeInputs(32, seed)) {
      SCOPED_TRACE(input.name);
      const double* v = input.values.data();
      const CZEPHMatrix4 a(v, CZEPHMatrix4::RowMajor), b(v + 16, CZEPHMatrix4::RowMajor);
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            const CZEPHMatrix4 product = a * b;
            Doubles out;
            for (std::size_t k = 0; k < 16; ++k) out.push_back(product.m_data[k / 4 + k % 4 * 4]);
            return out;
          },
          [&] {
            oracle::Matrix4 x, y;
            for (std::size_t k = 0; k < 16; ++k)
              x[k / 4][k % 4] = v[k], y[k / 4][k % 4] = v[16 + k];
            Doubles out;
            for (const auto& row : oracle::Multiply(x, y))
              out.insert(out.end(), row.begin(), row.end());
            return out;
          }));
      const CZEPHVector3 p(v[0], v[1], v[2]), q(v[3], v[4], v[5]);
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            const CZEPHVector3 cross = p ^ q, middle = Bisect(p, q);
            return Doubles{p * q,      cross.m_x,  cross.m_y, cross.m_z,
                           middle.m_x, middle.m_y, middle.m_z};
          },
          [&] {
            const oracle::Vector3 x = {v[0], v[1], v[2]}, y = {v[3], v[4], v[5]};
            const auto cross = oracle::Cross(x, y), middle = oracle::Bisect(x, y);
            return Doubles{oracle::Dot(x, y), cross[0],  cross[1], cross[2],
                           middle[0],         middle[1], middle[2]};
          }));
    }
}

TEST(LinalgModes, Matrix4AndVector3ComponentsMatchTheirOracles) {
  for (std::uint64_t seed = 0; seed < 6; ++seed)
    for (const auto& input : ModeInputs(33, seed)) {
      SCOPED_TRACE(input.name);
      const double* v = input.values.data();
      const CZEPHMatrix4 a(v, CZEPHMatrix4::ColumnMajor), b(v + 16, CZEPHMatrix4::ColumnMajor);
      const CZEPHVector3 p(v[0], v[1], v[2]), q(v[3], v[4], v[5]);
      for (const double s : {v[32], 0.0, -0.0, 1.0, -1.0, 3.0, Denormal<double>(3)}) {
        const auto each = [&](auto operation, auto step) {
          EXPECT_TRUE(ComputesInEveryMode(operation, [&] {
            Doubles out;
            for (int k = 0; k < 16; ++k) out.push_back(step(v[k], v[16 + k]));
            for (int k = 0; k < 3; ++k) out.push_back(step(v[k], v[3 + k]));
            return out;
          }));
        };
        const auto both = [](const CZEPHMatrix4& m, const CZEPHVector3& w) {
          Doubles out(m.m_data, m.m_data + 16);
          out.insert(out.end(), {w.m_x, w.m_y, w.m_z});
          return out;
        };
        const auto inPlace = [&](auto change) {
          CZEPHMatrix4 m(a);
          CZEPHVector3 w(p);
          change(m);
          change(w);
          return both(m, w);
        };
        each([&] { return both(a * s, p * s); }, [s](double x, double) { return x * s; });
        each([&] { return both(s * a, s * p); }, [s](double x, double) { return x * s; });
        each([&] { return both(a / s, p / s); }, [s](double x, double) { return x / s; });
        each([&] { return inPlace([s](auto& m) { m *= s; }); },
             [s](double x, double) { return x * s; });
        each([&] { return inPlace([s](auto& m) { m /= s; }); },
             [s](double x, double) { return x / s; });
        each([&] { return both(a + b, p + q); }, [](double x, double y) { return x + y; });
        each([&] { return both(a - b, p - q); }, [](double x, double y) { return x - y; });
        EXPECT_TRUE(ComputesInEveryMode(
            [&] {
              const CZEPHVector3 between(q, p), unit = p.Normalized();
              CZEPHVector3 own(p);
              const double length = own.Normalize();
              return Doubles{between.m_x, between.m_y, between.m_z, length,  unit.m_x,
                             unit.m_y,    unit.m_z,    own.m_x,     own.m_y, own.m_z};
            },
            [&] {
              const double length = std::sqrt(oracle::Dot({v[0], v[1], v[2]}, {v[0], v[1], v[2]}));
              Doubles out = {v[0] - v[3], v[1] - v[4], v[2] - v[5], length};
              for (int times = 0; times < 2; ++times)
                for (int k = 0; k < 3; ++k) out.push_back(v[k] / length);
              return out;
            }));
        if (HasFailure()) return;
      }
    }
}

// A length of exactly 1 divides like any other.
TEST(LinalgModes, Vector3sOfLengthOneMatchTheirOracle) {
  const double small = Denormal<double>(5);
  for (int at = 0; at < 3; ++at)
    for (const double one : {1.0, -1.0}) {
      CZEPHVector3 p(small, -small, small);
      p[at] = one;
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            const CZEPHVector3 unit = p.Normalized();
            CZEPHVector3 own(p);
            own.Normalize();
            return Doubles{unit.m_x, unit.m_y, unit.m_z, own.m_x, own.m_y, own.m_z};
          },
          [&] {
            const oracle::Vector3 v = {p.m_x, p.m_y, p.m_z};
            const double length = std::sqrt(oracle::Dot(v, v));
            Doubles out;
            for (int times = 0; times < 2; ++times)
              for (const double x : v) out.push_back(x / length);
            return out;
          }));
    }
}

TEST(LinalgModes, Vector3sThatCountAsZeroAreEqualToZero) {
  for (int at = 0; at < 3; ++at)
    for (const double x : {Denormal<double>(5), Denormal<double>(-1), 0.0}) {
      CZEPHVector3 p, zero;
      p[at] = x;
      EXPECT_TRUE(ComputesInEveryMode(
          [&] {
            return Doubles{double(p == zero), double(p != zero), double(zero == p)};
          },
          [&] {
            const bool same = p[at] == zero[at];
            return Doubles{double(same), double(!same), double(same)};
          }));
    }
}
