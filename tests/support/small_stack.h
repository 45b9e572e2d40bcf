// Runs something on a thread with a small stack, to test that it recurses little.
#ifndef ZEPH_TESTS_SUPPORT_SMALL_STACK_H
#define ZEPH_TESTS_SUPPORT_SMALL_STACK_H

#include <cstddef>
#include <functional>

namespace zeph::test {

/// Runs `body` to its end on a thread of its own with a stack of `bytes`; false when the system
/// cannot create such a thread (then `body` has not run). An exception out of `body` ends the
/// program.
bool RunOnSmallStack(std::size_t bytes, const std::function<void()>& body);

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_SMALL_STACK_H
