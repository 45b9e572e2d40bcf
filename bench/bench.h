// SPDX-License-Identifier: MIT
//
// How a comparison is written. A `<family>_bench.cpp` adds rows; each row is the same work done by
// us and by the alternatives, checked to give the same result before it is timed.
//
//     static const bool added = Add("find", "last of n", {100, 10'000}, [](Row& row) {
//       auto& v = row.Keep<std::vector<double>>(row.n(), 1.0);
//       auto& at = row.Keep<int>();
//       row.Result([&] { return Values(&at, 1); });
//       row.Ours([&] { at = zeph_find(v); });
//       row.Peer("std::find", [&] { at = std_find(v); }).Target(4);
//     });
#ifndef ZEPH_BENCH_BENCH_H
#define ZEPH_BENCH_BENCH_H

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zeph::bench {

/// Hides `value` from the optimiser: it must be computed, and may have been changed.
template <class T>
inline void Keep(T& value) {
#if defined(__GNUC__) || defined(__clang__)
  asm volatile("" : : "r"(&value) : "memory");
#else
  static volatile const void* sink;
  sink = &value;
#endif
}

/// The numbers that a row compares; exact for int, float and double.
using Numbers = std::vector<double>;
template <class T>
Numbers Values(const T* first, std::size_t n) {
  return Numbers(first, first + n);
}

/// A library or loop that does a row's work.
struct Contender {
  std::string who;
  std::function<void(std::size_t times)> work;
  std::function<Numbers()> result;  // empty: the row's
  bool compared = true;             // false: different work, timed for comparison
  double near = 0;                  // the relative difference allowed to the result; 0: same bits
  double target = 0;                // the peer's time over ours that we aim at; 0: none
  double best = 0;                  // seconds per call, filled by the runner
  std::string trouble;              // why it was not timed, filled by the runner
};

/// One line of a table: `family/name/n`.
class Row {
 public:
  Row(std::string family, std::string name, std::size_t n)
      : family_(std::move(family)), name_(std::move(name)), n_(n), items_(n) {}

  const std::string& family() const { return family_; }
  const std::string& name() const { return name_; }
  std::size_t n() const { return n_; }
  /// The items that a call works on, for the time of one: n unless Items says otherwise; 0: none.
  std::size_t items() const { return items_; }
  void Items(std::size_t count) { items_ = count; }
  std::string Label() const { return family_ + "/" + name_ + "/" + std::to_string(n_); }

  /// An object that lives as long as the row, for the works to share.
  template <class T, class... Args>
  T& Keep(Args&&... args) {
    auto object = std::make_shared<T>(std::forward<Args>(args)...);
    kept_.push_back(object);
    return *object;
  }

  /// Runs before every timed call, off the clock. `round` is the same for all contenders of a
  /// round, so that each gets the same input and no branch predictor can learn it. A row without it
  /// is called many times between two readings of the clock.
  void Before(std::function<void(std::size_t round)> prepare) { before_ = std::move(prepare); }

  /// Runs, untimed, where another contender's turn begins.
  void Between(std::function<void()> pause) { between_ = std::move(pause); }

  /// The result of a contender, compared with ours before anything is timed.
  void Result(std::function<Numbers()> result) { result_ = std::move(result); }

  class Options {
   public:
    explicit Options(Contender& contender) : contender_(&contender) {}
    Options& Target(double ratio) { return contender_->target = ratio, *this; }
    Options& Near(double relative) { return contender_->near = relative, *this; }
    /// For a contender that does different work: only its time is compared.
    Options& NotCompared() { return contender_->compared = false, *this; }
    /// For a contender that leaves its result elsewhere.
    Options& Result(std::function<Numbers()> result) {
      contender_->result = std::move(result);
      return *this;
    }

   private:
    Contender* contender_;  // valid until the row's next contender
  };

  template <class Work>
  Options Ours(Work work) {
    return Peer("ours", work);
  }
  template <class Work>
  Options Peer(const char* who, Work work) {
    Contender contender;
    contender.who = who;
    contender.work = [work](std::size_t times) mutable {
      for (std::size_t i = 0; i < times; ++i) {
        work();
        bench::Keep(work);
      }
    };
    contenders.push_back(std::move(contender));
    return Options(contenders.back());
  }

  /// Releases everything except the figures.
  void Release();

  std::vector<Contender> contenders;  // ours first

 private:
  friend class Runner;
  std::string family_, name_;
  std::size_t n_, items_;
  std::vector<std::shared_ptr<void>> kept_;
  std::function<void(std::size_t)> before_;
  std::function<void()> between_;
  std::function<Numbers()> result_;
};

/// Adds a row per size; `build` fills it when its turn comes. Returns true, to initialise a static.
bool Add(const char* family, const char* name, const std::vector<std::size_t>& sizes,
         std::function<void(Row&)> build);

/// splitmix64 mapped to lo <= x < hi: the inputs are the same everywhere.
std::vector<double> RandomDoubles(std::size_t n, unsigned long long seed, double lo = -1,
                                  double hi = 1);

}  // namespace zeph::bench

#endif  // ZEPH_BENCH_BENCH_H
