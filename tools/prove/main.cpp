// The long proofs: zeph_prove [--every N] [--threads N] [--list] [PROOF...]
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "proof.h"

namespace zeph::prove {
namespace {

constexpr std::uint64_t kBatch = 64;

struct Options {
  std::uint64_t every = 1;
  unsigned threads = std::thread::hardware_concurrency();
  bool list = false;
  std::vector<std::string> names;
};

struct Totals {
  std::uint64_t cases = 0, comparisons = 0, differences = 0;
};

std::vector<Proof> AllProofs() {
  std::vector<Proof> all;
  for (auto* proofs : {ArrayProofs, OrderProofs, HostileProofs, MatrixProofs, GeometryProofs,
                       ListingProofs, FunctionProofs})
    for (const Proof& proof : proofs()) all.push_back(proof);
  return all;
}

/// One proof on all threads, with a line on the standard error every few seconds.
class Run {
 public:
  Run(const Proof& proof, const Options& options)
      : proof_(proof), every_(options.every), cases_((proof.cases + every_ - 1) / every_) {
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::thread> workers;
    std::atomic<unsigned> working{options.threads ? options.threads : 1};
    for (unsigned t = working; t > 0; --t)
      workers.emplace_back([this, &working] {
        Work();
        --working;
      });
    auto next = start + std::chrono::seconds(3);
    while (working > 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      if (std::chrono::steady_clock::now() < next) continue;
      next += std::chrono::seconds(3);
      Progress();
    }
    for (auto& worker : workers) worker.join();
    seconds_ = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  Totals Report() const {
    std::printf("%-10s %9llu cases, %11llu comparisons, %llu differences, %.1f s: %s\n",
                proof_.name, Number(cases_), Number(comparisons_), Number(differences_), seconds_,
                proof_.what);
    std::fflush(stdout);
    return {cases_, comparisons_, differences_};
  }

 private:
  static unsigned long long Number(std::uint64_t n) { return n; }

  void Work() {
    for (;;) {
      const std::uint64_t first = next_.fetch_add(kBatch);
      if (first >= cases_) return;
      const std::uint64_t end = first + kBatch < cases_ ? first + kBatch : cases_;
      std::uint64_t comparisons = 0;
      for (std::uint64_t i = first; i < end; ++i) {
        Case seen;
        proof_.check(i * every_, seen);
        comparisons += seen.Comparisons();
        if (seen.Failed()) Complain(i * every_, seen);
      }
      comparisons_ += comparisons;
    }
  }

  void Complain(std::uint64_t k, const Case& seen) {
    const std::lock_guard<std::mutex> lock(complaints_);
    if (++differences_ <= 5)
      std::fprintf(stderr, "%s, case %llu: %s\n", proof_.name, Number(k), seen.Report().c_str());
  }

  void Progress() const {
    const std::uint64_t done = next_ < cases_ ? next_.load() : cases_;
    std::fprintf(stderr, "%-10s %3.0f %%  %llu of %llu\n", proof_.name,
                 100.0 * static_cast<double>(done) / static_cast<double>(cases_), Number(done),
                 Number(cases_));
  }

  const Proof& proof_;
  const std::uint64_t every_, cases_;
  std::atomic<std::uint64_t> next_{0}, comparisons_{0}, differences_{0};
  std::mutex complaints_;
  double seconds_ = 0;
};

[[noreturn]] void Usage() {
  std::fputs("usage: zeph_prove [--every N] [--threads N] [--list] [PROOF...]\n", stderr);
  std::exit(2);
}

std::uint64_t Positive(const char* text) {
  char* end;
  const std::uint64_t n = std::strtoull(text, &end, 10);
  if (n == 0 || *end != '\0') Usage();
  return n;
}

Options Parse(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--list") {
      options.list = true;
    } else if ((word == "--every" || word == "--threads") && i + 1 < argc) {
      const std::uint64_t n = Positive(argv[++i]);
      if (word == "--every") {
        options.every = n;
      } else {
        options.threads = static_cast<unsigned>(n);
      }
    } else if (word[0] == '-') {
      Usage();
    } else {
      options.names.push_back(word);
    }
  }
  return options;
}

bool Wanted(const Proof& proof, const Options& options) {
  if (options.names.empty()) return true;
  for (const auto& name : options.names)
    if (name == proof.name) return true;
  return false;
}

int Main(const Options& options) {
  Totals totals;
  for (const Proof& proof : AllProofs()) {
    if (!Wanted(proof, options)) continue;
    if (options.list) {
      std::printf("%-10s %9llu  %s\n", proof.name, static_cast<unsigned long long>(proof.cases),
                  proof.what);
      continue;
    }
    const Totals one = Run(proof, options).Report();
    totals.cases += one.cases;
    totals.comparisons += one.comparisons;
    totals.differences += one.differences;
  }
  if (options.list) return 0;
  std::printf("%llu cases, %llu comparisons with the literal steps, %llu differences\n",
              static_cast<unsigned long long>(totals.cases),
              static_cast<unsigned long long>(totals.comparisons),
              static_cast<unsigned long long>(totals.differences));
  return totals.cases > 0 && totals.differences == 0 ? 0 : 1;
}

}  // namespace
}  // namespace zeph::prove

int main(int argc, char** argv) {
  return zeph::prove::Main(zeph::prove::Parse(argc, argv));
}
