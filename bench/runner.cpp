// SPDX-License-Identifier: MIT
#include "runner.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>

namespace zeph::bench {
namespace {

struct Entry {
  std::string family, name;
  std::size_t n;
  std::function<void(Row&)> build;
  std::string Label() const { return family + "/" + name + "/" + std::to_string(n); }
};

std::vector<Entry>& Entries() {
  static std::vector<Entry> entries;
  return entries;
}

std::vector<const Entry*> Selected(const std::string& filter) {
  std::vector<const Entry*> selected;
  for (const Entry& entry : Entries())
    if (entry.Label().find(filter) != std::string::npos) selected.push_back(&entry);
  // Files register in link order: keeps a family together.
  std::stable_sort(selected.begin(), selected.end(),
                   [](const Entry* a, const Entry* b) { return a->family < b->family; });
  return selected;
}

double Now() {
  using Clock = std::chrono::steady_clock;
  return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
}

bool Same(double got, double want, double near) {
  if (got != got || want != want) return got != got && want != want;
  if (near > 0) return std::fabs(got - want) <= near * std::max(1.0, std::fabs(want));
  return std::memcmp(&got, &want, sizeof got) == 0;
}

std::string Difference(const Numbers& got, const Numbers& want, double near) {
  if (got.size() != want.size()) return "gave another count of numbers than ours";
  for (std::size_t i = 0; i < got.size(); ++i)
    if (!Same(got[i], want[i], near)) return "differs from ours at number " + std::to_string(i);
  return {};
}

}  // namespace

bool Add(const char* family, const char* name, const std::vector<std::size_t>& sizes,
         std::function<void(Row&)> build) {
  for (std::size_t n : sizes) Entries().push_back({family, name, n, build});
  return true;
}

std::vector<double> RandomDoubles(std::size_t n, unsigned long long seed, double lo, double hi) {
  std::vector<double> values(n);
  for (double& x : values) {
    unsigned long long z = (seed += 0x9E3779B97F4A7C15u);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    x = lo + (hi - lo) * (static_cast<double>((z ^ (z >> 31)) >> 11) * 0x1p-53);
  }
  return values;
}

void Row::Release() {
  for (Contender& contender : contenders) contender.work = nullptr, contender.result = nullptr;
  before_ = nullptr;
  between_ = nullptr;
  result_ = nullptr;
  kept_.clear();
}

/// Keeps Google Benchmark's own tables off the screen.
class NoReport : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>&) override {}
};

class Runner {
 public:
  Runner(Row& row, const Plan& plan) : row_(row), plan_(plan) {}

  void Run() {
    if (!Verify()) return;
    benchmark::ClearRegisteredBenchmarks();
    for (Contender& contender : row_.contenders) Register(contender);
    NoReport reporter;  // the figures go into the row
    benchmark::RunSpecifiedBenchmarks(&reporter, "all");
  }

 private:
  /// A contender with a different result is an error in the row: it is reported and not timed.
  bool Verify() {
    Numbers want;
    bool good = true;
    for (Contender& contender : row_.contenders) {
      Time(contender, 0, 1);
      if (!contender.compared) continue;
      const auto& result = contender.result ? contender.result : row_.result_;
      if (!result) {
        contender.trouble = "no result to compare";
      } else if (&contender == &row_.contenders.front()) {
        want = result();
      } else {
        contender.trouble = Difference(result(), want, contender.near);
      }
      good = good && contender.trouble.empty();
    }
    return good;
  }

  /// Google Benchmark drives the rounds: so many repetitions per contender, shuffled among them.
  void Register(Contender& contender) {
    const std::size_t times = CallsPerReading(contender);
    const double share = plan_.seconds / static_cast<double>(row_.contenders.size());
    benchmark::RegisterBenchmark(
        (row_.Label() + "/" + contender.who).c_str(),
        [this, &contender, times, round = std::size_t{0}](benchmark::State& state) mutable {
          for ([[maybe_unused]] auto iteration : state) {
            const double seconds = Time(contender, round++, times);
            state.SetIterationTime(seconds * static_cast<double>(times));
            if (contender.best == 0 || seconds < contender.best) contender.best = seconds;
          }
        })
        ->UseManualTime()
        ->Repetitions(plan_.rounds)
        ->MinTime(share / plan_.rounds);
  }

  double Time(Contender& contender, std::size_t round, std::size_t times) {
    if (row_.between_ && turn_ != &contender) row_.between_();
    turn_ = &contender;
    if (row_.before_) row_.before_(round);
    const double start = Now();
    contender.work(times);
    return (Now() - start) / static_cast<double>(times);
  }

  /// Enough calls for the clock's own cost not to count.
  std::size_t CallsPerReading(Contender& contender) {
    if (row_.before_) return 1;
    std::size_t times = 1;
    while (Time(contender, 0, times) * static_cast<double>(times) < 50e-6 && times < (1u << 24))
      times *= 2;
    return times;
  }

  Row& row_;
  const Plan& plan_;
  const Contender* turn_ = nullptr;  // the contender whose turn it is
};

std::vector<std::string> Labels(const std::string& filter) {
  std::vector<std::string> labels;
  for (const Entry* entry : Selected(filter)) labels.push_back(entry->Label());
  return labels;
}

std::vector<Row> Run(
    const Plan& plan,
    const std::function<void(std::size_t, std::size_t, const std::string&)>& progress) {
  char name[] = "zeph_bench", shuffled[] = "--benchmark_enable_random_interleaving=true";
  char* arguments[] = {name, shuffled, nullptr};
  int count = 2;
  benchmark::Initialize(&count, arguments);
  std::vector<Row> rows;
  const auto selected = Selected(plan.filter);
  for (const Entry* entry : selected) {
    Row row(entry->family, entry->name, entry->n);
    progress(rows.size(), selected.size(), row.Label());
    entry->build(row);
    Runner(row, plan).Run();
    row.Release();
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace zeph::bench
