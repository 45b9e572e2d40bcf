// Comparison of floating-point values by their bits.
#ifndef ZEPH_TESTS_SUPPORT_BITS_H
#define ZEPH_TESTS_SUPPORT_BITS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iomanip>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace zeph::test {

template <class T>
using BitsOf = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;

template <class T>
BitsOf<T> Bits(T x) {
  BitsOf<T> bits;
  std::memcpy(&bits, &x, sizeof x);
  return bits;
}

template <class T>
T FromBits(BitsOf<T> bits) {
  T x;
  std::memcpy(&x, &bits, sizeof x);
  return x;
}

template <class T>
std::string Show(T x) {
  std::ostringstream out;
  out << std::setprecision(17) << x << " (0x" << std::hex << Bits(x) << ")";
  return out.str();
}

namespace detail {
template <class T>
bool HaveSameBits(T a, T b) {
  return Bits(a) == Bits(b);
}
template <class T>
bool HaveSameValue(T a, T b) {
  return HaveSameBits(a, b) || (a != a && b != b);
}

template <class T>
::testing::AssertionResult Compare(T got, T want, bool same) {
  if (same) return ::testing::AssertionResult(true);
  return ::testing::AssertionFailure() << "got " << Show(got) << ", want " << Show(want);
}
template <class T, class Same>
::testing::AssertionResult Compare(const T* got, const T* want, std::size_t n, Same same) {
  for (std::size_t i = 0; i < n; ++i)
    if (!same(got[i], want[i]))
      return ::testing::AssertionFailure() << "element " << i << " of " << n << ": got "
                                           << Show(got[i]) << ", want " << Show(want[i]);
  return ::testing::AssertionResult(true);
}
}  // namespace detail

/// For moved values: equal bits, a NaN's included.
template <class T>
::testing::AssertionResult SameBits(T got, T want) {
  return detail::Compare(got, want, detail::HaveSameBits(got, want));
}

/// For computed values: equal bits, or both NaN (the processor chooses its sign and payload).
template <class T>
::testing::AssertionResult SameValue(T got, T want) {
  return detail::Compare(got, want, detail::HaveSameValue(got, want));
}

template <class T>
::testing::AssertionResult SameBits(const T* got, const T* want, std::size_t n) {
  return detail::Compare(got, want, n, detail::HaveSameBits<T>);
}
template <class T>
::testing::AssertionResult SameBits(const std::vector<T>& got, const std::vector<T>& want) {
  if (got.size() != want.size())
    return ::testing::AssertionFailure()
           << "got " << got.size() << " elements, want " << want.size();
  return SameBits(got.data(), want.data(), got.size());
}
template <class T>
::testing::AssertionResult SameValues(const T* got, const T* want, std::size_t n) {
  return detail::Compare(got, want, n, detail::HaveSameValue<T>);
}
template <class T>
::testing::AssertionResult SameValues(const std::vector<T>& got, const std::vector<T>& want) {
  if (got.size() != want.size())
    return ::testing::AssertionFailure()
           << "got " << got.size() << " elements, want " << want.size();
  return SameValues(got.data(), want.data(), got.size());
}

}  // namespace zeph::test

// Print both numbers and their bits when they fail.
#define EXPECT_SAME_BITS(got, want) EXPECT_TRUE(::zeph::test::SameBits((got), (want)))
#define EXPECT_SAME_VALUE(got, want) EXPECT_TRUE(::zeph::test::SameValue((got), (want)))

#endif  // ZEPH_TESTS_SUPPORT_BITS_H
