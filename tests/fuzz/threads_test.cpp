// Threads with objects of their own do not meet: every body at once, each on inputs of its own.
//
// What threads may share by the documentation is not called here (the random generator) or
// suppressed by the step that runs this under the thread sanitizer (the live counts of CZEPHMatrix4
// and CZEPHVector3, tools/check/threads.supp).
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "fuzz/bodies.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

constexpr int kThreads = 8;
/// Inputs of a thread for every body; most hold several operations, together above 10,000.
constexpr std::size_t kInputs = Scaled<std::size_t>(300, 100);

void RunAll(std::uint64_t seed) {
  Random random(seed);
  std::vector<unsigned char> input;
  for (std::size_t k = 0; k < kInputs; ++k)
    for (FuzzBody* body : kFuzzBodies) {
      input.resize(random.Below(120));
      for (auto& byte : input) byte = static_cast<unsigned char>(random.Next());
      body(input.data(), input.size());
    }
}

TEST(Threads, WithObjectsOfTheirOwnGetTheAnswersOfOneThread) {
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(RunAll, static_cast<std::uint64_t>(i));
  for (auto& thread : threads) thread.join();
}

}  // namespace
}  // namespace zeph::test
