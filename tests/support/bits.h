// Comparison of floating-point values by their bits.
#ifndef ZEPH_TESTS_SUPPORT_BITS_H
#define ZEPH_TESTS_SUPPORT_BITS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iomanip>
#include <sstream>
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

/// For moved values: equal bits, a NaN's included.
template <class T>
bool SameBits(T a, T b) {
  return Bits(a) == Bits(b);
}

/// For computed values: equal bits, or both NaN (the processor chooses its sign and payload).
template <class T>
bool SameValue(T a, T b) {
  return Bits(a) == Bits(b) || (a != a && b != b);
}

template <class T>
std::string Show(T x) {
  std::ostringstream out;
  out << std::setprecision(17) << x << " (0x" << std::hex << Bits(x) << ")";
  return out.str();
}

namespace detail {
template <class T, class Same>
::testing::AssertionResult Compare(const T* got, const T* want, std::size_t n, Same same) {
  for (std::size_t i = 0; i < n; ++i)
    if (!same(got[i], want[i]))
      return ::testing::AssertionFailure() << "element " << i << " of " << n << ": got "
                                           << Show(got[i]) << ", want " << Show(want[i]);
  return ::testing::AssertionSuccess();
}
}  // namespace detail

template <class T>
::testing::AssertionResult SameBits(const T* got, const T* want, std::size_t n) {
  return detail::Compare(got, want, n, [](T a, T b) { return SameBits(a, b); });
}
template <class T>
::testing::AssertionResult SameBits(const std::vector<T>& got, const std::vector<T>& want) {
  if (got.size() != want.size())
    return ::testing::AssertionFailure() << "sizes " << got.size() << " and " << want.size();
  return SameBits(got.data(), want.data(), got.size());
}
template <class T>
::testing::AssertionResult SameValues(const T* got, const T* want, std::size_t n) {
  return detail::Compare(got, want, n, [](T a, T b) { return SameValue(a, b); });
}
template <class T>
::testing::AssertionResult SameValues(const std::vector<T>& got, const std::vector<T>& want) {
  if (got.size() != want.size())
    return ::testing::AssertionFailure() << "sizes " << got.size() << " and " << want.size();
  return SameValues(got.data(), want.data(), got.size());
}

}  // namespace zeph::test

#define EXPECT_SAME_BITS(got, want)                  \
  EXPECT_TRUE(::zeph::test::SameBits((got), (want))) \
      << "got " << ::zeph::test::Show(got) << ", want " << ::zeph::test::Show(want)
#define EXPECT_SAME_VALUE(got, want)                  \
  EXPECT_TRUE(::zeph::test::SameValue((got), (want))) \
      << "got " << ::zeph::test::Show(got) << ", want " << ::zeph::test::Show(want)

#endif  // ZEPH_TESTS_SUPPORT_BITS_H
