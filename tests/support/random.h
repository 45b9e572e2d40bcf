// Random numbers that are the same on every system and standard library.
#ifndef ZEPH_TESTS_SUPPORT_RANDOM_H
#define ZEPH_TESTS_SUPPORT_RANDOM_H

#include <cstddef>
#include <cstdint>

namespace zeph::test {

/// splitmix64: every bit usable, one word of state.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  std::uint64_t Next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15u);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }
  /// 0 .. n - 1.
  std::size_t Below(std::size_t n) { return static_cast<std::size_t>(Next() % n); }
  int Int(int lo, int hi) {
    // 64 bits: the span of all ints does not fit in a 32-bit size_t.
    const auto span = static_cast<std::uint64_t>(std::int64_t{hi} - lo + 1);
    return static_cast<int>(lo + static_cast<std::int64_t>(Next() % span));
  }
  /// lo <= x < hi.
  double Real(double lo = -1, double hi = 1) {
    return lo + (hi - lo) * (static_cast<double>(Next() >> 11) * 0x1p-53);
  }

 private:
  std::uint64_t state_;
};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_RANDOM_H
