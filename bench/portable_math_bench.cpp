// SPDX-License-Identifier: MIT
//
// Sine, cosine, tangent and logarithm of our own, correctly rounded, against the runtime's: each row
// over `n` arguments.
#include <cmath>

#include "bench.h"
#include "portable_math/logarithm.h"
#include "portable_math/sine_cosine.h"
#include "portable_math/tangent.h"

namespace zeph::bench {
namespace {

using portable_math::DecimalLogarithm;
using portable_math::SineAndCosine;
using portable_math::SineCosine;
using portable_math::Tangent;

constexpr double kRounding = 1e-6;  // the runtime may round differently; tangents are floats
constexpr double kMostTimesSlower = 1.5;

template <class T, class Ours, class Runtimes>
void Compare(Row& row, const std::vector<double>& arguments, Ours ours, Runtimes runtimes,
             double target) {
  auto& in = row.Keep<std::vector<double>>(arguments);
  auto& out = row.Keep<std::vector<T>>(arguments.size());
  const auto all = [&in, &out](auto function) {
    return [&in, &out, function] {
      for (std::size_t i = 0; i < in.size(); ++i) out[i] = function(in[i]);
      Keep(out);
    };
  };
  row.Result([&out] {
    Numbers numbers;
    for (const T& x : out) {
      if constexpr (std::is_same_v<T, SineAndCosine>) {
        numbers.push_back(x.sine);
        numbers.push_back(x.cosine);
      } else {
        numbers.push_back(x);
      }
    }
    return numbers;
  });
  row.Ours(all(ours));
  row.Peer("C runtime", all(runtimes)).Near(kRounding).Target(target);
}

/// Between -largest and largest.
std::vector<double> Angles(std::size_t n, double largest) {
  auto angles = RandomDoubles(n, 31);
  for (double& x : angles) x *= largest;
  return angles;
}

void SineRow(Row& row, double largest) {
  Compare<SineAndCosine>(
      row, Angles(row.n(), largest), SineCosine,
      [](double x) {
        const volatile double again = x;  // two calls, as the library makes them
        return SineAndCosine{std::sin(x), std::cos(again)};
      },
      1 / kMostTimesSlower);
}

const std::vector<std::size_t> kSizes = {1000};

const bool added =
    Add("portable", "sine and cosine, half a turn", kSizes, [](Row& row) { SineRow(row, 3.14); }) &&
    Add("portable", "sine and cosine, 100 turns", kSizes, [](Row& row) { SineRow(row, 628.0); }) &&
    Add("portable", "sine and cosine, to 1e300", kSizes, [](Row& row) { SineRow(row, 1e300); }) &&
    Add("portable", "float tangent, half a turn", kSizes,
        [](Row& row) {
          Compare<float>(
              row, Angles(row.n(), 3.14), [](double x) { return Tangent(static_cast<float>(x)); },
              [](double x) { return std::tan(static_cast<float>(x)); }, 0);
        }) &&
    Add("portable", "decimal logarithm", kSizes, [](Row& row) {
      auto numbers = RandomDoubles(row.n(), 32);
      for (double& x : numbers) x = std::exp(20 * x);
      Compare<double>(
          row, numbers, DecimalLogarithm, [](double x) { return std::log10(x); }, 0);
    });

}  // namespace
}  // namespace zeph::bench
