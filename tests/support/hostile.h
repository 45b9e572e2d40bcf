// Ordinary and adversarial inputs for sorts: contents whose order is not unique, in orders that the
// classic algorithms are slow on.
#ifndef ZEPH_TESTS_SUPPORT_HOSTILE_H
#define ZEPH_TESTS_SUPPORT_HOSTILE_H

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

#include "support/not_finite.h"
#include "support/random.h"

namespace zeph::test {

/// Input on which median-of-three of (first, middle, last) quicksort splits off two elements at a
/// time until half of them are gone: the smallest are where the middle element will be and at even
/// places of the first half; the greater half, in any order, fills the rest.
inline std::vector<double> MedianOfThreeKiller(std::size_t n) {
  std::vector<double> v(n);
  Random random(n);
  for (double& x : v) x = static_cast<double>(n + random.Below(n));
  if (n < 4) return v;
  const std::size_t middle = (n - 1) / 2;
  for (std::size_t i = middle; i + 2 < n; ++i) v[i] = static_cast<double>(2 * (i - middle));
  for (std::size_t i = 0; i < middle; i += 2) v[i] = static_cast<double>(i + 3);
  v[n - 1] = 1;
  return v;
}

/// Plays an adversary against the documented quicksort: a value is fixed only when a comparison
/// needs it, and then so that the next pivot is among the smallest. `nans` are the places of NaNs,
/// for which every comparison is false and which move like other elements.
class QuickSortAdversary {
 public:
  QuickSortAdversary(std::size_t n, const std::vector<std::size_t>& nans)
      : value_(n, kOpen), at_(n) {
    std::iota(at_.begin(), at_.end(), std::size_t{0});
    for (std::size_t i : nans) value_[i] = kNaN;
    if (n > 0) Sort(0, static_cast<std::ptrdiff_t>(n) - 1);
    for (double& x : value_)
      if (x == kOpen) x = next_++;
  }
  /// 0, 1, 2, ... and the NaNs, in the order that the quicksort is slow on.
  const std::vector<double>& Values() const { return value_; }

 private:
  static constexpr double kOpen = kInfinity;

  double& Value(std::ptrdiff_t i) { return value_[at_[static_cast<std::size_t>(i)]]; }
  void Swap(std::ptrdiff_t i, std::ptrdiff_t j) {
    std::swap(at_[static_cast<std::size_t>(i)], at_[static_cast<std::size_t>(j)]);
  }
  /// Of two open values the one that may become the pivot is fixed first.
  bool Greater(std::ptrdiff_t i, std::ptrdiff_t j) {
    double &a = Value(i), &b = Value(j);
    if (a == kOpen && b == kOpen) (candidate_ == &a ? a : b) = next_++;
    if (a == kOpen) candidate_ = &a;
    if (b == kOpen) candidate_ = &b;
    return a > b;
  }
  void SwapIfGreater(std::ptrdiff_t i, std::ptrdiff_t j) {
    if (Greater(i, j)) Swap(i, j);
  }
  void Sort(std::ptrdiff_t left, std::ptrdiff_t right) {
    while (right - left + 1 > 3) {
      const std::ptrdiff_t center = (left + right) / 2, pivot = right - 1;
      SwapIfGreater(left, center);
      SwapIfGreater(left, right);
      SwapIfGreater(center, right);
      Swap(center, pivot);
      std::ptrdiff_t i = left, j = pivot;
      for (;;) {
        while (Greater(pivot, ++i)) {
        }
        while (Greater(--j, pivot)) {
        }
        if (i >= j) break;
        Swap(i, j);
      }
      Swap(i, pivot);
      if (i - left < right - i) {
        Sort(left, i - 1);
        left = i + 1;
      } else {
        Sort(i + 1, right);
        right = i - 1;
      }
    }
  }

  std::vector<double> value_;  // by the element's original place
  std::vector<std::size_t> at_;
  const double* candidate_ = nullptr;
  double next_ = 0;
};

/// The kind of contents. With every kind but the first, the ascending order is not unique.
enum class Content {
  kPlain,
  kBothZeros,
  kOnePercentZeros,
  kOneNan,
  kOnePercentNans,
  kRounded,
  kHalfZeros
};
constexpr const char* kContentNames[] = {"random",  "both zeros",      "1 % zeros", "one NaN",
                                         "1 % NaN", "rounded to 0.01", "half zeros"};
constexpr int kContents = 7;

enum class Arrangement { kShuffled, kSorted, kReversed, kKiller, kInterleaved };
constexpr const char* kArrangementNames[] = {"", "sorted", "reversed", "killer", "interleaved"};
constexpr int kArrangements = 5;

namespace hostile {

inline std::vector<std::size_t> Places(std::size_t n, Content content, Random& random) {
  std::vector<std::size_t> places;
  if (n == 0 || content == Content::kPlain || content == Content::kRounded) return places;
  std::size_t count = content == Content::kBothZeros ? std::min<std::size_t>(n, 2) : 1;
  if (content == Content::kOnePercentZeros || content == Content::kOnePercentNans)
    count = (n + 99) / 100;
  if (content == Content::kHalfZeros) count = n / 2;
  for (std::size_t i = 0; i < count; ++i) places.push_back(random.Below(n));
  if (content == Content::kBothZeros && count == 2)
    places[1] = (places[0] + 1 + random.Below(n - 1)) % n;
  return places;
}

inline bool IsNan(Content content) {
  return content == Content::kOneNan || content == Content::kOnePercentNans;
}

/// Comparison of values; NaNs do not take part.
inline void Arrange(std::vector<double>& v, Arrangement arrangement) {
  std::vector<std::size_t> at;  // where there is a number
  for (std::size_t i = 0; i < v.size(); ++i)
    if (v[i] == v[i]) at.push_back(i);
  std::vector<double> values;
  for (std::size_t i : at) values.push_back(v[i]);
  std::stable_sort(values.begin(), values.end());
  if (arrangement == Arrangement::kReversed) std::reverse(values.begin(), values.end());
  if (arrangement == Arrangement::kInterleaved) {
    // The lower half at even places, the upper half at odd ones: the last pass of Shell's sort
    // meets two chains of which one is all below the other.
    const auto sorted = values;
    const std::size_t half = (sorted.size() + 1) / 2;
    for (std::size_t i = 0; i < sorted.size(); ++i)
      values[i] = sorted[i % 2 == 0 ? half + i / 2 - sorted.size() % 2 : i / 2];
    if (sorted.size() % 2 == 1) values.back() = sorted.back();
  }
  for (std::size_t i = 0; i < at.size(); ++i) v[at[i]] = values[i];
}

}  // namespace hostile

namespace hostile {

/// Zeros of both signs in place of `count` adjacent greater values, which stay in the larger piece
/// for long.
inline void PutZeros(std::vector<double>& v, std::size_t count, Random& random) {
  std::vector<double> values = v;
  std::sort(values.begin(), values.end());
  const std::size_t first = std::min(v.size() * 3 / 4, v.size() - count);
  const double low = values[first], high = values[first + count - 1];
  for (double& x : v) x = low <= x && x <= high ? (random.Below(2) ? 0.0 : -0.0) : x - low;
}

inline std::vector<double> Killer(Content content, std::size_t n,
                                  const std::vector<std::size_t>& places, Random& random) {
  const bool nan = IsNan(content);
  std::vector<double> v =
      n <= 4096 ? QuickSortAdversary(n, nan ? places : std::vector<std::size_t>()).Values()
                : MedianOfThreeKiller(n);
  for (double& x : v) x = x / 128;
  if (nan)
    for (std::size_t i : places) v[i] = kNaN;
  else if (!places.empty())
    PutZeros(v, places.size(), random);
  return v;
}

}  // namespace hostile

/// `n` values of a kind in an order. A killer of up to 4096 elements is the adversary's; a longer
/// one is that for plain values, with the special values inserted.
inline std::vector<double> Hostile(Content content, Arrangement arrangement, std::size_t n,
                                   std::uint64_t seed, double lo = -100, double hi = 100) {
  Random random(seed);
  std::vector<double> v(n);
  // A range so narrow that some values round to zeros of both signs.
  if (content == Content::kRounded) hi = std::max(1.0, static_cast<double>(n) / 10000), lo = -hi;
  for (double& x : v) x = random.Real(lo, hi);
  const auto places = hostile::Places(n, content, random);
  if (arrangement == Arrangement::kKiller) {
    v = hostile::Killer(content, n, places, random);
  } else {
    for (std::size_t k = 0; k < places.size(); ++k)
      v[places[k]] = hostile::IsNan(content)          ? kNaN
                     : content == Content::kBothZeros ? (k % 2 ? -0.0 : 0.0)
                     : random.Below(2)                ? -0.0
                                                      : 0.0;
  }
  if (content == Content::kRounded)
    for (double& x : v) x = std::round(x * 100) / 100;
  if (arrangement != Arrangement::kShuffled && arrangement != Arrangement::kKiller)
    hostile::Arrange(v, arrangement);
  return v;
}

/// Calls visit(values, name) with every content in every arrangement.
template <class Visit>
void ForEachHostile(std::size_t n, std::uint64_t seed, Visit visit) {
  for (int content = 0; content < kContents; ++content)
    for (int arrangement = 0; arrangement < kArrangements; ++arrangement)
      visit(
          Hostile(static_cast<Content>(content), static_cast<Arrangement>(arrangement), n, seed),
          std::to_string(n) + " " + kContentNames[content] + " " + kArrangementNames[arrangement]);
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_HOSTILE_H
