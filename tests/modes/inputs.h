// Arrays whose results depend on the host's modes.
#ifndef ZEPH_TESTS_MODES_INPUTS_H
#define ZEPH_TESTS_MODES_INPUTS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "support/numbers.h"

namespace zeph::test {

template <class T>
struct Input {
  std::string name;
  std::vector<T> values;
};

/// `n` values from `draw(random)`.
template <class T, class Draw>
std::vector<T> Drawn(std::size_t n, std::uint64_t seed, Draw draw) {
  Random random(seed);
  std::vector<T> values(n);
  for (T& x : values) x = draw(random);
  return values;
}

/// `times` the least denormal.
template <class T>
T Denormal(int times) {
  return static_cast<T>(times) * std::numeric_limits<T>::denorm_min();
}

/// Arrays of `n` elements; none has a signalling NaN, which arithmetic never produces.
template <class T = double>
std::vector<Input<T>> ModeInputs(std::size_t n, std::uint64_t seed) {
  using Limits = std::numeric_limits<T>;
  const auto number = [](Random& random) { return static_cast<T>(random.Real(-1000, 1000)); };
  const auto quiet = [](Random& random) {
    const T x = AwkwardValue<T>(random);
    return x != x ? Limits::quiet_NaN() : x;
  };
  return {
      {"numbers", Drawn<T>(n, seed, number)},
      {"denormals", Drawn<T>(n, seed, [](Random& r) { return Denormal<T>(r.Int(-9, 9)); })},
      {"denormals and numbers", Drawn<T>(n, seed,
                                         [number](Random& r) {
                                           return r.Below(2) ? Denormal<T>(r.Int(1, 99))
                                                             : number(r);
                                         })},
      {"one denormal and numbers",
       Drawn<T>(n, seed, [number](Random& r) { return r.Below(4) ? number(r) : Denormal<T>(7); })},
      {"about the least normal number",
       Drawn<T>(n, seed, [](Random& r) { return Limits::min() * static_cast<T>(r.Real(-3, 3)); })},
      {"infinities and zeros", Drawn<T>(n, seed,
                                        [](Random& r) {
                                          return r.Below(2)   ? T(r.Int(-1, 1))
                                                 : r.Below(8) ? T(0)
                                                              : Limits::infinity();
                                        })},
      {"about to overflow",
       Drawn<T>(n, seed, [](Random& r) { return Limits::max() * static_cast<T>(r.Real(-1, 1)); })},
      {"anything", Drawn<T>(n, seed, quiet)},
  };
}

/// Calls `check(values)` for arrays of doubles of every kind, `lengths` giving how long, until one
/// fails.
template <class Check>
void ForEachInput(const std::vector<std::size_t>& lengths, std::uint64_t seed, Check check) {
  for (const std::size_t n : lengths)
    for (const auto& input : ModeInputs(n, seed + n)) {
      SCOPED_TRACE(input.name + ", " + std::to_string(n) + " elements");
      check(input.values);
      if (testing::Test::HasFailure()) return;
    }
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_MODES_INPUTS_H
