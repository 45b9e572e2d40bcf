// Our containers under the ranges of C++20: they are contiguous, sized where they have size(), and
// work with the algorithms, views and spans. Returns 0 when every value is right.
#include <algorithm>
#include <iterator>
#include <numeric>
#include <ranges>
#include <span>

#include "ZEPHDataStructureEngine.h"

static_assert(std::ranges::contiguous_range<CZEPHDoubleArray>);
static_assert(std::ranges::contiguous_range<const CZEPHDoubleArray>);
static_assert(std::ranges::sized_range<CZEPHDoubleArray>);
static_assert(std::ranges::common_range<CZEPHDoubleArray>);
static_assert(std::ranges::contiguous_range<CZEPHVector>);
static_assert(std::ranges::contiguous_range<const CZEPHVector>);
static_assert(std::ranges::sized_range<const CZEPHVector>);
static_assert(
    std::is_same_v<decltype(std::span(std::declval<CZEPHDoubleArray&>())), std::span<double>>);
static_assert(std::is_same_v<decltype(std::span(std::declval<const CZEPHVector&>())),
                             std::span<const double>>);

// The ranges are not borrowed, so the algorithms return no iterator into a destroyed one.
static_assert(!std::ranges::borrowed_range<CZEPHDoubleArray>);

namespace {

int failures = 0;
void Expect(bool right) {
  if (!right) ++failures;
}

double Sum(std::span<const double> values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

}  // namespace

int main() {
  double values[] = {3, 1, 2};
  CZEPHDoubleArray a(3, values);
  const CZEPHDoubleArray constant(a);
  Expect(Sum(a) == 6.0 && Sum(constant) == 6.0);
  Expect(std::ranges::size(a) == 3 && std::ranges::data(a) == a.GetData());
  std::ranges::sort(a);
  Expect(a[0] == 1.0 && a[1] == 2.0 && a[2] == 3.0);
  Expect(a.sorted == 0);  // only the array's own sorts set the flag
  Expect(std::ranges::max(constant) == 3.0);
#if !defined(__clang__) || __clang_major__ >= 16  // older ones cannot read libstdc++'s views
  for (double& x : a | std::views::reverse | std::views::take(1)) x = 9.0;
#else
  a[2] = 9.0;
#endif
  Expect(a[2] == 9.0);
  CZEPHDoubleArray none, failed(-2, 1.0);
  Expect(std::ranges::empty(none) && std::ranges::empty(failed) && std::span(failed).empty());

  CZEPHVector v(3, values);
  const CZEPHVector twin(v);
  Expect(Sum(v) == 6.0 && Sum(twin) == 6.0 && std::ranges::size(v) == 3);
  std::ranges::sort(v, std::ranges::greater());
  Expect(v[0] == 3.0 && v[2] == 1.0);
  v.Free();
  Expect(std::ranges::empty(v));
  return failures;
}
