// What a long proof is made of: numbered inputs, on each of which the library is compared with the
// literal steps.
#ifndef ZEPH_TOOLS_PROVE_PROOF_H
#define ZEPH_TOOLS_PROVE_PROOF_H

#include <cstdint>
#include <string>
#include <vector>

namespace zeph::prove {

/// The comparisons on one input.
class Case {
 public:
  /// Notes one comparison; the first that fails is kept.
  void Expect(bool same, const char* what) {
    ++comparisons_;
    if (!same && !differs_) differs_ = what;
  }
  bool Failed() const { return differs_ != nullptr; }
  void Describe(const std::string& input) { input_ = input; }

  std::uint64_t Comparisons() const { return comparisons_; }
  std::string Report() const { return std::string(differs_) + " differs on " + input_; }

 private:
  std::uint64_t comparisons_ = 0;
  const char* differs_ = nullptr;
  std::string input_;
};

/// `check(k, seen)` compares on input k, 0 <= k < cases; several threads call it at once.
struct Proof {
  const char* name;
  const char* what;
  std::uint64_t cases;
  void (*check)(std::uint64_t k, Case& seen);
};

constexpr std::uint64_t kRandomCases = 1'000'000;

// A function for each source.
std::vector<Proof> ArrayProofs();
std::vector<Proof> OrderProofs();
std::vector<Proof> HostileProofs();
std::vector<Proof> MatrixProofs();
std::vector<Proof> GeometryProofs();
std::vector<Proof> ListingProofs();
std::vector<Proof> FunctionProofs();  ///< none without MPFR

}  // namespace zeph::prove

#endif  // ZEPH_TOOLS_PROVE_PROOF_H
