// A call that checks whether the callee preserves the registers and modes that the calling
// convention requires.
#ifndef ZEPH_TESTS_SUPPORT_WATCHED_CALL_H
#define ZEPH_TESTS_SUPPORT_WATCHED_CALL_H

#include <cstddef>
#include <functional>

namespace zeph::test {

/// The stack's alignments that a call may meet: multiples of 16 below a 64-byte register's.
constexpr std::size_t kStackShifts[] = {0, 16, 32, 48};

/// Calls `work` with the stack moved down by `shift` bytes. Returns "" if all are preserved, else
/// those that were not: the control bits of the floating-point units anywhere on x86, xmm6 to xmm15
/// as well on 64-bit Windows. Elsewhere, `shift` moves the stack through a block of that size.
const char* WatchedCall(const std::function<void()>& work, std::size_t shift);

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_WATCHED_CALL_H
