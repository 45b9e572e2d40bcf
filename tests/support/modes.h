// The floating-point modes of a host: the rounding direction, denormals treated as zeros or flushed
// to zero, and exceptions that trap.
#ifndef ZEPH_TESTS_SUPPORT_MODES_H
#define ZEPH_TESTS_SUPPORT_MODES_H

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/bits.h"

namespace zeph::test {

struct Mode {
  int rounding;          // as <cfenv> has it
  bool zerosForInputs;   // denormal operands are treated as zeros
  bool zerosForResults;  // denormal results become zeros; one switch for both on ARM
  std::string name;
};

/// All modes that this processor has, the usual one first.
const std::vector<Mode>& Modes();

/// Whether the processor raises exceptions and obeys the rounding direction: valgrind's does
/// neither completely.
bool HasFloatingPointEnvironment();

/// Calls `steps` in `mode` and returns which of the exceptions invalid, division by zero and
/// overflow were raised. With `trapping` they trap, where the system supports it.
int RaisedBy(const Mode& mode, const std::function<void()>& steps, bool trapping = false);

/// For example "invalid overflow".
std::string ExceptionNames(int raised);

/// Calls `visit(name)` once for each form of the kernels that can be chosen here, with it in use.
void ForEachForm(const std::function<void(const std::string& name)>& visit);

enum class Results { kMoved, kComputed };

/// Whether the compiler preserves the flags of operations. clang++ 14 speculates operations that
/// may not be needed.
#if defined(__clang__)
constexpr bool kFlagsAreKept = false;
#else
constexpr bool kFlagsAreKept = true;
#endif

/// Compares `operation` with `oracle` in every mode, in every form of the kernels: the same
/// results, no exception that the oracle does not raise, and none that traps where it raises none.
/// Both return a std::vector of floats or doubles, and each is called anew for every mode.
template <class Operation, class Oracle>
::testing::AssertionResult SameInEveryMode(Results kind, Operation operation, Oracle oracle) {
  using Values = decltype(oracle());
  ::testing::AssertionResult verdict = ::testing::AssertionSuccess();
  for (const Mode& mode : Modes()) {
    Values want;
    const int allowed = RaisedBy(mode, [&] { want = oracle(); });
    ForEachForm([&](const std::string& form) {
      if (!verdict) return;
      Values got;
      const int raised = RaisedBy(mode, [&] { got = operation(); });
      const auto same = kind == Results::kMoved ? SameBits(got, want) : SameValues(got, want);
      if (!same) {
        verdict = ::testing::AssertionFailure()
                  << mode.name << ", " << form << ": " << same.message();
      } else if (kFlagsAreKept && (raised & ~allowed)) {
        verdict = ::testing::AssertionFailure()
                  << mode.name << ", " << form << ": raises " << ExceptionNames(raised & ~allowed);
      } else if (kFlagsAreKept && allowed == 0) {
        RaisedBy(
            mode, [&] { got = operation(); }, true);
      }
    });
  }
  return verdict;
}
template <class Operation, class Oracle>
::testing::AssertionResult MovesInEveryMode(Operation operation, Oracle oracle) {
  return SameInEveryMode(Results::kMoved, operation, oracle);
}
template <class Operation, class Oracle>
::testing::AssertionResult ComputesInEveryMode(Operation operation, Oracle oracle) {
  return SameInEveryMode(Results::kComputed, operation, oracle);
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_MODES_H
