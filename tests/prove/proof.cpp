#include "prove/proof.h"

#include <algorithm>
#include <atomic>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace zeph::prove {
namespace {

constexpr std::uint64_t kBatch = 64;
constexpr std::uint64_t kShown = 5;  // differences

std::uint64_t Every() {
  const char* every = std::getenv("ZEPH_PROVE_EVERY");
  return every ? std::max(std::strtoull(every, nullptr, 10), 1ull) : 37;
}

}  // namespace

void Prove(std::uint64_t cases, const std::function<void(std::uint64_t k, Case& seen)>& check) {
  const std::uint64_t every = Every(), count = (cases + every - 1) / every;
  std::atomic<std::uint64_t> next{0}, comparisons{0}, differences{0};
  const auto work = [&] {
    for (std::uint64_t first; (first = next.fetch_add(kBatch)) < count;)
      for (std::uint64_t i = first; i < std::min(first + kBatch, count); ++i) {
        Case seen;
        check(i * every, seen);
        comparisons += seen.Comparisons();
        if (seen.Failed() && ++differences <= kShown)
          ADD_FAILURE() << "case " << i * every << ": " << seen.Report();
      }
  };
  std::vector<std::thread> workers;
  for (unsigned t = std::max(std::thread::hardware_concurrency(), 1u); t > 0; --t)
    workers.emplace_back(work);
  for (auto& worker : workers) worker.join();
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  std::printf("%" PRIu64 " cases, %" PRIu64 " comparisons, %" PRIu64 " differences: %s %s\n", count,
              comparisons.load(), differences.load(), test->name(),
              test->value_param() ? test->value_param() : "");
}

}  // namespace zeph::prove
