// Every short array over values that cover every outcome of a comparison.
#ifndef ZEPH_TESTS_PROVE_SHORT_ARRAYS_H
#define ZEPH_TESTS_PROVE_SHORT_ARRAYS_H

#include <cstdint>
#include <vector>

#include "support/not_finite.h"

namespace zeph::prove {

/// The arrays of `shortest` to `longest` elements over an alphabet, by number.
struct ShortArrays {
  std::vector<double> alphabet;
  std::size_t shortest, longest;

  std::uint64_t Count() const {
    std::uint64_t all = 0;
    for (std::size_t n = shortest; n <= longest; ++n) all += CountOf(n);
    return all;
  }
  std::vector<double> Number(std::uint64_t k) const {
    std::size_t n = shortest;
    for (; k >= CountOf(n); ++n) k -= CountOf(n);
    std::vector<double> v(n);
    for (double& x : v) {
      x = alphabet[static_cast<std::size_t>(k % alphabet.size())];
      k /= alphabet.size();
    }
    return v;
  }

 private:
  std::uint64_t CountOf(std::size_t n) const {
    std::uint64_t count = 1;
    for (; n > 0; --n) count *= alphabet.size();
    return count;
  }
};

/// All values that differ in how they compare, at lengths for which the sorts take the documented
/// steps.
inline ShortArrays WalkedArrays() {
  return {{-test::kInfinity, -1, -0.0, 0.0, 1, test::kInfinity, test::kNaN}, 1, 8};
}
/// Fewer values, at lengths from which the sorts take their shortcuts.
inline ShortArrays LongerArrays() {
  return {{-0.0, 0.0, 1, test::kNaN}, 9, 10};
}
inline ShortArrays LongestArrays() {
  return {{-1, 0.0, -0.0}, 11, 12};
}

}  // namespace zeph::prove

#endif  // ZEPH_TESTS_PROVE_SHORT_ARRAYS_H
