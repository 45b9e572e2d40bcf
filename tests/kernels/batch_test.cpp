// Operations on arrays of small objects in every form against scalar steps, each rounded
// separately.
#include "kernels/batch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "kernels/table.h"
#include "oracle/graphics.h"
#include "support/bits.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kMost = 41;  // twice the widest form, and a remainder

template <class T>
std::vector<T> Mixed(std::size_t n, unsigned seed) {
  return seed % 2 == 0 ? test::Awkward<T>(n, seed) : test::Moderate<T>(n, seed, T(-4), T(4));
}

/// Volatile, so that every product, sum and root is rounded separately.
double Sum(double a, double b) {
  const volatile double r = a + b;
  return r;
}
double Product(double a, double b) {
  const volatile double r = a * b;
  return r;
}

/// Compares `call(form, out)`, which writes n objects of `size` components, with `want(i)`.
template <class T, class Call, class Want>
void Check(std::size_t n, std::size_t size, Call call, Want want) {
  std::vector<T> expected;
  for (std::size_t i = 0; i < n; ++i)
    for (const T x : want(i)) expected.push_back(x);
  expected.resize(n * size + 4, T(77));  // and nothing after them
  for (const Table* form : RunnableTables()) {
    SCOPED_TRACE(std::string(form->name) + " n=" + std::to_string(n));
    std::vector<T> out(n * size + 4, T(77));
    call(*form, out.data());
    ASSERT_TRUE(test::SameValues(out, expected));
  }
}

oracle::Vector Of(const std::vector<float>& v, std::size_t i, std::size_t size) {
  const float* first = v.data() + i * size;
  return oracle::Vector(first, first + size);
}
oracle::Matrix MatrixOf(const float* e) {
  oracle::Matrix m;
  std::copy_n(e, 16, m.begin());
  return m;
}
void MakeAffine(float* e) {
  e[3] = e[7] = e[11] = 0.0f;
  e[15] = 1.0f;
}

/// The squares are summed as y, x, z, and every component is divided by the length.
std::vector<double> NormalisedDoubles(const double* v) {
  const double squares = Sum(Sum(Product(v[1], v[1]), Product(v[0], v[0])), Product(v[2], v[2]));
  const volatile double length = std::sqrt(squares);
  std::vector<double> r;
  for (int c = 0; c < 3; ++c) {
    const volatile double quotient = v[c] / length;
    r.push_back(double{quotient});
  }
  return r;
}

TEST(BatchForms, NormaliseFloatsAndDoubles) {
  constexpr std::size_t floats = 24, doubles = sizeof(double[3]);
  for (std::size_t n = 0; n <= kMost; ++n)
    for (unsigned seed : {0u, 1u}) {
      std::vector<float> v = Mixed<float>(6 * n + 6, seed);  // objects of 24 bytes
      for (std::size_t i = 0; i + 5 < v.size() && seed == 1; i += 24)
        v[i] = v[i + 1] = v[i + 2] = 0;
      Check<float>(
          n, 6,
          [&](const Table& form, float* out) {
            std::copy_n(v.data(), 6 * n, out);
            form.batch->floats.normalise(out, v.data(), floats, n);
          },
          [&](std::size_t i) {
            oracle::Vector want = Of(v, i, 6);
            const oracle::Vector unit = oracle::Normalized({want[0], want[1], want[2]});
            std::copy(unit.begin(), unit.end(), want.begin());
            return want;
          });
      const std::vector<double> w = Mixed<double>(3 * n + 3, seed);
      Check<double>(
          n, 3,
          [&](const Table& form, double* out) {
            form.batch->doubles.normalise(out, w.data(), doubles, n);
          },
          [&](std::size_t i) { return NormalisedDoubles(&w[3 * i]); });
    }
}

TEST(BatchForms, MultiplyVectorsByVectors) {
  for (std::size_t n = 0; n <= kMost; ++n)
    for (unsigned seed : {0u, 1u}) {
      const auto a = Mixed<float>(6 * n + 6, seed), b = Mixed<float>(6 * n + 6, seed + 2);
      const auto first = [](const std::vector<float>& v, std::size_t i) {
        return oracle::Vector{v[6 * i], v[6 * i + 1], v[6 * i + 2]};
      };
      Check<float>(
          n, 1,
          [&](const Table& form, float* out) {
            form.batch->floats.dot(out, a.data(), b.data(), 24, n);
          },
          [&](std::size_t i) { return oracle::Vector{oracle::Dot(first(a, i), first(b, i))}; });
      Check<float>(
          n, 6,
          [&](const Table& form, float* out) {
            std::copy_n(a.data(), 6 * n, out);
            form.batch->floats.cross(out, a.data(), b.data(), 24, n);
          },
          [&](std::size_t i) {
            oracle::Vector want = Of(a, i, 6);
            const oracle::Vector cross = oracle::Cross(first(a, i), first(b, i));
            std::copy(cross.begin(), cross.end(), want.begin());
            return want;
          });
      const auto c = Mixed<double>(3 * n + 3, seed), d = Mixed<double>(3 * n + 3, seed + 2);
      const auto term = [&](std::size_t i, int p, int q) {
        return Product(c[3 * i + static_cast<std::size_t>(p)],
                       d[3 * i + static_cast<std::size_t>(q)]);
      };
      Check<double>(
          n, 1,
          [&](const Table& form, double* out) {
            form.batch->doubles.dot(out, c.data(), d.data(), 24, n);
          },
          [&](std::size_t i) {
            return std::vector<double>{Sum(Sum(term(i, 1, 1), term(i, 0, 0)), term(i, 2, 2))};
          });
      Check<double>(
          n, 3,
          [&](const Table& form, double* out) {
            form.batch->doubles.cross(out, c.data(), d.data(), 24, n);
          },
          [&](std::size_t i) {
            return std::vector<double>{Sum(term(i, 1, 2), -term(i, 2, 1)),
                                       Sum(term(i, 2, 0), -term(i, 0, 2)),
                                       Sum(term(i, 0, 1), -term(i, 1, 0))};
          });
    }
}

template <class T>
void CheckBounds(const Vectors<T>& form, std::size_t n, unsigned seed) {
  std::vector<T> v = Mixed<T>(3 * n, seed);
  std::vector<T> spread((24 / sizeof(T)) * n + 4, T(0));  // objects of 24 bytes
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t c = 0; c < 3; ++c) spread[i * (24 / sizeof(T)) + c] = v[3 * i + c];
  T low[3] = {v[0], v[1], v[2]}, high[3] = {v[0], v[1], v[2]};
  form.bounds(low, high, spread.data(), 24, n);
  for (std::size_t c = 0; c < 3; ++c) {
    T least = v[c], greatest = v[c];
    for (std::size_t i = 1; i < n; ++i) {
      const T x = v[3 * i + c];
      if (x < least) least = x;
      if (x > greatest) greatest = x;
    }
    // Zeros may have either sign; all other values have one bit pattern.
    ASSERT_TRUE(low[c] == least || (low[c] != low[c] && least != least)) << n << ' ' << c;
    ASSERT_TRUE(high[c] == greatest || (high[c] != high[c] && greatest != greatest))
        << n << ' ' << c;
  }
}

TEST(BatchForms, FindTheBounds) {
  for (const Table* form : RunnableTables()) {
    SCOPED_TRACE(form->name);
    for (std::size_t n = 1; n <= kMost; ++n)
      for (unsigned seed = 0; seed < 6; ++seed) {
        CheckBounds(form->batch->floats, n, seed);
        CheckBounds(form->batch->doubles, n, seed);
      }
  }
}

TEST(BatchForms, TransformPoints) {
  for (std::size_t n = 0; n <= kMost; ++n)
    for (unsigned seed : {0u, 1u, 2u, 3u}) {
      const auto v = Mixed<float>(6 * n + 6, seed);
      auto e = Mixed<float>(16, seed + 7);
      if (seed == 3) e[3] = e[7] = e[11] = 0.0f, e[15] = seed % 2 ? 0.0f : 1.0f;  // w is 0
      const auto keepRest = [&](std::size_t i, const oracle::Vector& moved) {
        oracle::Vector want = Of(v, i, 6);
        std::copy_n(moved.begin(), 3, want.begin());
        return want;
      };
      Check<float>(
          n, 6,
          [&](const Table& form, float* out) {
            std::copy_n(v.data(), 6 * n, out);
            form.batch->directions(out, v.data(), 24, e.data(), n);
          },
          [&](std::size_t i) {
            return keepRest(i, oracle::Rotated(MatrixOf(e.data()), Of(v, i, 6)));
          });
      Check<float>(
          n, 6,
          [&](const Table& form, float* out) {
            std::copy_n(v.data(), 6 * n, out);
            form.batch->points(out, v.data(), 24, e.data(), true, n);
          },
          [&](std::size_t i) {
            oracle::Vector point = Of(v, i, 6), four;
            for (std::size_t r = 0; r < 4; ++r)
              four.push_back(
                  oracle::Sum({oracle::Mul(e[r], point[0]), oracle::Mul(e[4 + r], point[1]),
                               oracle::Mul(e[8 + r], point[2]), e[12 + r]}));
            return keepRest(i, oracle::Projected(four));
          });
      MakeAffine(e.data());
      Check<float>(
          n, 6,
          [&](const Table& form, float* out) {
            std::copy_n(v.data(), 6 * n, out);
            form.batch->points(out, v.data(), 24, e.data(), false, n);
          },
          [&](std::size_t i) {
            const oracle::Vector point = Of(v, i, 6);
            return keepRest(i, oracle::Product(MatrixOf(e.data()),
                                               oracle::Vector{point[0], point[1], point[2], 1.0f}));
          });
    }
}

TEST(BatchForms, TransformVectorsOfFour) {
  for (std::size_t n = 0; n <= kMost; ++n)
    for (unsigned seed : {0u, 1u})
      for (const bool affine : {false, true}) {
        // Objects of 24 bytes: four components and padding.
        const auto v = Mixed<float>(6 * n + 6, seed);
        auto e = Mixed<float>(16, seed + 11);
        if (affine) MakeAffine(e.data());
        Check<float>(
            n, 6,
            [&](const Table& form, float* out) {
              std::copy_n(v.data(), 6 * n, out);
              form.batch->vectors(out, v.data(), 24, e.data(), affine, n);
            },
            [&](std::size_t i) {
              oracle::Vector want = Of(v, i, 6);
              const oracle::Vector four = oracle::Product(
                  MatrixOf(e.data()), oracle::Vector{want[0], want[1], want[2], want[3]});
              std::copy(four.begin(), four.end(), want.begin());
              return want;
            });
      }
}

TEST(BatchForms, MultiplyMatrices) {
  for (std::size_t n = 0; n <= 9; ++n)
    for (unsigned seed : {0u, 1u})
      for (const bool first : {false, true})
        for (const bool second : {false, true}) {
          auto e = Mixed<float>(16, seed + 21), m = Mixed<float>(16 * n + 16, seed);
          if (first) MakeAffine(e.data());
          for (std::size_t i = 0; i < n && second; ++i) MakeAffine(&m[16 * i]);
          // The slower paths may be called for any product, but the oracle chooses its path as the
          // class does.
          if (!first && oracle::IsAffine(MatrixOf(e.data()))) continue;
          Check<float>(
              n, 16,
              [&](const Table& form, float* out) {
                form.batch_products->floats(out, m.data(), 64, e.data(), first, second, n);
              },
              [&](std::size_t i) {
                return oracle::Product(MatrixOf(e.data()), MatrixOf(&m[16 * i]));
              });
        }
  for (std::size_t n = 0; n <= 9; ++n)
    for (unsigned seed : {0u, 1u}) {
      const auto e = Mixed<double>(16, seed + 31), m = Mixed<double>(16 * n + 16, seed);
      Check<double>(
          n, 16,
          [&](const Table& form, double* out) {
            form.batch_products->doubles(out, m.data(), 128, e.data(), n);
          },
          [&](std::size_t i) {
            std::vector<double> r;
            for (std::size_t j = 0; j < 4; ++j)
              for (std::size_t row = 0; row < 4; ++row) {
                double sum = Product(e[row], m[16 * i + 4 * j]);
                for (std::size_t k = 1; k < 4; ++k)
                  sum = Sum(sum, Product(e[row + 4 * k], m[16 * i + 4 * j + k]));
                r.push_back(sum);
              }
            return r;
          });
    }
}

}  // namespace
}  // namespace zeph::kernels
