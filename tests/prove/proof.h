// The framework of the long proofs: numbered inputs, for each of which the library is compared with
// the literal steps.
#ifndef ZEPH_TESTS_PROVE_PROOF_H
#define ZEPH_TESTS_PROVE_PROOF_H

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>

#include "support/bits.h"

namespace zeph::prove {

/// The comparisons on one input. GoogleTest's assertions do not count them, and there are hundreds
/// of millions.
class Case {
 public:
  /// Records one comparison; the first that fails is kept.
  void Expect(const ::testing::AssertionResult& same, const char* what) {
    ++comparisons_;
    if (same || Failed()) return;
    differs_ = std::string(what) + " differs";
    if (*same.message()) differs_ += std::string(": ") + same.message();
  }
  void Expect(bool same, const char* what) { Expect(::testing::AssertionResult(same), what); }
  template <class T>
  void ExpectValue(T got, T want, const char* what) {
    Expect(test::SameValue(got, want), what);
  }
  bool Failed() const { return !differs_.empty(); }
  void Describe(const std::string& input) { input_ = input; }

  std::uint64_t Comparisons() const { return comparisons_; }
  std::string Report() const { return differs_ + "\non " + input_; }

 private:
  std::uint64_t comparisons_ = 0;
  std::string differs_, input_;
};

/// A call's result and the array after it.
inline ::testing::AssertionResult Both(int got, int want, const ::testing::AssertionResult& rest) {
  if (got == want) return rest;
  return ::testing::AssertionFailure() << "got " << got << ", want " << want;
}

constexpr std::uint64_t kRandomCases = 1'000'000;

/// Runs `check(k, seen)` for every ZEPH_PROVE_EVERY-th (by default every 37th) k below `cases`, on a
/// thread for each processor; fails the test that calls it with the first differences found.
void Prove(std::uint64_t cases, const std::function<void(std::uint64_t k, Case& seen)>& check);

}  // namespace zeph::prove

#endif  // ZEPH_TESTS_PROVE_PROOF_H
