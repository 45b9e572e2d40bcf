// SPDX-License-Identifier: MIT
#include "double_array/quick_walk.h"

#include <optional>
#include <utility>

#include "double_array/partition.h"
#include "double_array/sorting.h"
#include "double_array/stop_tree.h"
#include "double_array/zeros.h"
#include "kernels/partition.h"
#include "parallel/sort.h"

namespace zeph::double_array {
namespace {

void Finish(double* v, std::size_t n, std::size_t cutoff) {
  if (cutoff <= 3) {
    ManualSort(v, 0, static_cast<int>(n) - 1);
  } else {
    InsertionSort(v, n);
  }
}

/// The documented steps, where the result depends on their exchanges.
class QuickWalk {
 public:
  QuickWalk(double* v, std::size_t n, std::size_t cutoff) : v_(v), n_(n), cutoff_(cutoff) {}

  void Run() { Sort(0, n_, kernels::TakeCensus(v_, n_)); }

 private:
  static constexpr std::size_t kFew = 24;         // too few for a census to pay
  static constexpr std::size_t kTreeFloor = 512;  // below it scanning costs less than skipping
  static constexpr std::size_t kPatience = 6;     // partitions allowed before the piece has halved

  /// Sorts [first, first + n). The pieces on the two sides of a pivot are independent, so their
  /// order does not matter; recursing into the smaller one keeps the depth below log2(n). Only the
  /// smaller one is counted, n log n elements in all; the larger one's census is the difference.
  void Sort(std::size_t first, std::size_t n, kernels::Census census) {
    Progress progress(n);
    while (n > cutoff_ && n > kFew) {
      if (census.OrderIsUnique()) return parallel::SortAscending(v_ + first, n);
      if (census.plus + census.minus == n) return SortZeros(v_ + first, n, cutoff_);
      const std::size_t p = Part(first, n, progress);
      const std::size_t left = p - first, right = n - left - 1;
      const auto [low, high] = Divide(census, p, first, left, right);
      if (left < right) {
        Sort(first, left, low);
        first = p + 1;
        n = right;
        census = high;
      } else {
        Sort(p + 1, right, high);
        n = left;
        census = low;
      }
    }
    if (census.OrderIsUnique()) return parallel::SortAscending(v_ + first, n);
    if (census.plus + census.minus == n) return SortZeros(v_ + first, n, cutoff_);
    SortFew(first, n);
  }

  void SortFew(std::size_t first, std::size_t n) {
    while (n > cutoff_) {
      const std::size_t p = PlainPart(first, n);
      const std::size_t left = p - first, right = n - left - 1;
      if (left < right) {
        SortFew(first, left);
        first = p + 1;
        n = right;
      } else {
        SortFew(p + 1, right);
        n = left;
      }
    }
    Finish(v_ + first, n, cutoff_);
  }

  /// Elements that partitions have looked at since the piece last halved.
  struct Progress {
    explicit Progress(std::size_t n) : start(n) {}
    std::size_t start, looked = 0;
    bool skipping = false;
  };

  std::size_t PlainPart(std::size_t first, std::size_t n) {
    double* const v = v_ + first;
    const double pivot = MedianOf3(v, 0, static_cast<int>(n) - 1);
    return first + kernels::Part(v, n, pivot);
  }

  std::size_t Part(std::size_t first, std::size_t n, Progress& progress) {
    if (n <= progress.start / 2) progress = Progress(n);
    if (!progress.skipping && n >= kTreeFloor && progress.looked > kPatience * progress.start) {
      if (!tree_) tree_.emplace(v_, n_);
      tree_->Cover(first, first + n - 1);
      progress.skipping = true;
    }
    if (progress.skipping) return tree_->Part(first, first + n - 1);
    progress.looked += n;
    return PlainPart(first, n);
  }

  /// The census of the pieces on the two sides of the pivot at `p`.
  std::pair<kernels::Census, kernels::Census> Divide(kernels::Census both, std::size_t p,
                                                     std::size_t first, std::size_t left,
                                                     std::size_t right) const {
    const double pivot = v_[p];
    const bool ordinary = pivot < 0 || pivot > 0;
    if (ordinary && both.nans == 0) return {pivot < 0 ? kNone : both, pivot < 0 ? both : kNone};
    if (!ordinary) both -= kernels::TakeCensus(v_ + p, 1);
    const bool less = left < right;
    const kernels::Census one =
        less ? kernels::TakeCensus(v_ + first, left) : kernels::TakeCensus(v_ + p + 1, right);
    both -= one;
    return {less ? one : both, less ? both : one};
  }

  static constexpr kernels::Census kNone{};

  double* const v_;
  const std::size_t n_;
  const std::size_t cutoff_;
  std::optional<StopTree> tree_;
};

}  // namespace

void SortAsWalked(double* v, std::size_t n, std::size_t cutoff) {
  QuickWalk(v, n, cutoff).Run();
}

}  // namespace zeph::double_array
