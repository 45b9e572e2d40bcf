// The integer types that an overload for "any integer" takes.
#ifndef ZEPH_TESTS_SUPPORT_INTEGERS_H
#define ZEPH_TESTS_SUPPORT_INTEGERS_H

#include <limits>

namespace zeph::test {

/// `visit` with the greatest and the least value of each type, with one and with zero.
template <class Visit>
void ForEachInteger(Visit visit) {
  const auto of_type = [&](auto one) {
    using Integer = decltype(one);
    using Limits = std::numeric_limits<Integer>;
    for (const Integer value : {Limits::max(), Limits::min(), one, Integer{0}}) visit(value);
  };
  of_type(true);
  of_type(static_cast<signed char>(1));
  of_type(static_cast<unsigned char>(1));
  of_type(static_cast<short>(1));
  of_type(1);
  of_type(1u);
  of_type(1L);
  of_type(1LL);
  of_type(1ULL);
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_INTEGERS_H
