// Generated inputs: fixed seeds, the same on every system and standard library.
#ifndef ZEPH_TESTS_SUPPORT_NUMBERS_H
#define ZEPH_TESTS_SUPPORT_NUMBERS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "support/bits.h"
#include "support/hostile.h"
#include "support/not_finite.h"
#include "support/random.h"

namespace zeph::test {

/// NaNs of both signs and several payloads, infinities, zeros of both signs, denormals, extremes.
template <class T>
const std::vector<T>& SpecialValues() {
  using Limits = std::numeric_limits<T>;
  static const std::vector<T> values = {
      Limits::quiet_NaN(),
      -Limits::quiet_NaN(),
      FromBits<T>(static_cast<BitsOf<T>>(Bits(Limits::quiet_NaN()) | 0x123u)),
      Limits::infinity(),
      -Limits::infinity(),
      T(0),
      -T(0),
      Limits::denorm_min(),
      -Limits::denorm_min(),
      Limits::min(),
      -Limits::min(),
      Limits::max(),
      Limits::lowest(),
      Limits::min() / T(4),
      Limits::epsilon(),
      T(1),
      T(-1),
      T(2),
      T(0.5),
      T(1) + Limits::epsilon()};
  return values;
}

/// A mixture: one third special values, one third of any magnitude, one third small integers
/// (ties).
template <class T>
T AwkwardValue(Random& random) {
  switch (random.Below(3)) {
    case 0:
      return SpecialValues<T>()[random.Below(SpecialValues<T>().size())];
    case 1:
      return FromBits<T>(static_cast<BitsOf<T>>(random.Next()));
    default:
      return static_cast<T>(random.Int(-4, 4));
  }
}
template <class T = double>
std::vector<T> Awkward(std::size_t n, std::uint64_t seed) {
  Random random(seed);
  std::vector<T> values(n);
  for (T& x : values) x = AwkwardValue<T>(random);
  return values;
}

/// Finite, of moderate size: differences are rounding, not overflow.
template <class T = double>
std::vector<T> Moderate(std::size_t n, std::uint64_t seed, double lo = -1000, double hi = 1000) {
  Random random(seed);
  std::vector<T> values(n);
  for (T& x : values) x = static_cast<T>(random.Real(lo, hi));
  return values;
}

/// Calls `visit(vector<T>)` with every array of length `n` over `alphabet`.
template <class T, class Visit>
void ForEachArray(const std::vector<T>& alphabet, std::size_t n, Visit visit) {
  std::vector<std::size_t> digits(n, 0);
  std::vector<T> values(n);
  for (;;) {
    for (std::size_t i = 0; i < n; ++i) values[i] = alphabet[digits[i]];
    visit(values);
    std::size_t i = 0;
    while (i < n && ++digits[i] == alphabet.size()) digits[i++] = 0;
    if (i == n) return;
  }
}

/// A named family of input orders for the sorts.
struct Order {
  const char* name;
  std::function<std::vector<double>(std::size_t n, std::uint64_t seed)> make;
};

inline const std::vector<Order>& Orders() {
  static const auto ramp = [](std::size_t n) {
    std::vector<double> v(n);
    for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i) - static_cast<double>(n) / 3;
    return v;
  };
  static const std::vector<Order> orders = {
      {"random", [](std::size_t n, std::uint64_t seed) { return Moderate(n, seed); }},
      {"awkward", [](std::size_t n, std::uint64_t seed) { return Awkward(n, seed); }},
      {"few distinct",
       [](std::size_t n, std::uint64_t seed) {
         Random random(seed);
         std::vector<double> v(n);
         for (double& x : v) x = random.Int(0, 7);
         return v;
       }},
      {"signed zeros",
       [](std::size_t n, std::uint64_t seed) {
         Random random(seed);
         std::vector<double> v(n);
         for (double& x : v)
           x = random.Below(4) ? (random.Below(2) ? 0.0 : -0.0) : random.Int(-1, 1);
         return v;
       }},
      {"one NaN",
       [](std::size_t n, std::uint64_t seed) {
         auto v = Moderate(n, seed);
         if (n) v[static_cast<std::size_t>(seed % n)] = kNaN;
         return v;
       }},
      {"sorted", [](std::size_t n, std::uint64_t) { return ramp(n); }},
      {"reversed",
       [](std::size_t n, std::uint64_t) {
         auto v = ramp(n);
         std::reverse(v.begin(), v.end());
         return v;
       }},
      {"organ pipe",
       [](std::size_t n, std::uint64_t) {
         std::vector<double> v(n);
         for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(std::min(i, n - 1 - i));
         return v;
       }},
      {"all equal", [](std::size_t n, std::uint64_t) { return std::vector<double>(n, 42.0); }},
      {"nearly sorted",
       [](std::size_t n, std::uint64_t seed) {
         auto v = ramp(n);
         Random random(seed);
         for (std::size_t k = 0; n > 1 && k < n / 50 + 1; ++k)
           std::swap(v[random.Below(n)], v[random.Below(n)]);
         return v;
       }},
      {"median-of-three killer",
       [](std::size_t n, std::uint64_t) { return MedianOfThreeKiller(n); }},
  };
  return orders;
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_NUMBERS_H
