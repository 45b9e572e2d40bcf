// SPDX-License-Identifier: MIT
//
// The inputs of the self-test: the same bits on every machine, from a generator of its own.
#ifndef ZEPH_TOOLS_SELFTEST_INPUTS_H
#define ZEPH_TOOLS_SELFTEST_INPUTS_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace zeph::selftest {

/// What kind of values a workload draws.
enum class Kind {
  kPlain,   ///< finite, both signs, magnitudes from 2^-12 to 2^12
  kTies,    ///< small whole numbers with many repeats, and zeros of both signs
  kAwkward  ///< plain ones mixed with NaN, infinities, zeros, denormals, huge and tiny values
};

/// Splitmix64.
class Inputs {
 public:
  explicit Inputs(std::uint64_t seed) : m_state(seed) {}

  std::uint64_t Word() {
    std::uint64_t z = m_state += 0x9e3779b97f4a7c15u;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
  }

  /// A whole number in lo..hi.
  int Whole(int lo, int hi) {
    const auto span = static_cast<std::uint64_t>(static_cast<std::int64_t>(hi) - lo + 1);
    return static_cast<int>(lo + static_cast<std::int64_t>(Word() % span));
  }

  template <class T>
  T Value(Kind kind) {
    if (kind == Kind::kTies) return Tie<T>();
    if (kind == Kind::kAwkward && Whole(0, 7) == 0) return Special<T>();
    return Plain<T>();
  }

  template <class T>
  void Fill(T* out, int n, Kind kind) {
    for (int i = 0; i < n; ++i) out[i] = Value<T>(kind);
  }

  template <class T>
  std::vector<T> Values(int n, Kind kind) {
    std::vector<T> values(static_cast<std::size_t>(n));
    Fill(values.data(), n, kind);
    return values;
  }

 private:
  template <class T>
  T Plain() {
    constexpr int kDigits = std::numeric_limits<T>::digits;
    const auto fraction = static_cast<T>(Word() >> (64 - kDigits));  // exact: it fits
    const T value = std::ldexp(fraction, Whole(-12, 12) - kDigits);
    return Whole(0, 1) ? value : -value;
  }
  template <class T>
  T Tie() {
    const T value = static_cast<T>(Whole(0, 9));
    return Whole(0, 1) ? value : -value;
  }
  template <class T>
  T Special() {
    using Limits = std::numeric_limits<T>;
    // Quiet NaNs only: passing a signalling one changes it on some processors.
    const T values[] = {Limits::quiet_NaN(), Limits::infinity(), 0, Limits::denorm_min(),
                        Limits::max(),       Limits::min(),      1, Limits::max() / 3};
    const T value = values[Whole(0, 7)];
    return Whole(0, 1) ? value : -value;
  }

  std::uint64_t m_state;
};

/// Sizes on both sides of every block that the kernels work in.
inline const std::vector<int>& Sizes() {
  static const std::vector<int> sizes = [] {
    std::vector<int> all;
    for (int n = 1; n <= 40; ++n) all.push_back(n);
    for (int n : {63, 64, 65, 100, 127, 129, 255, 256, 257, 511, 513, 1000, 2049}) all.push_back(n);
    return all;
  }();
  return sizes;
}

constexpr Kind kKinds[] = {Kind::kPlain, Kind::kTies, Kind::kAwkward};

}  // namespace zeph::selftest

#endif  // ZEPH_TOOLS_SELFTEST_INPUTS_H
