// SPDX-License-Identifier: MIT
#include "double_array/shell_runs.h"

#include <algorithm>

#include "double_array/shell_strips.h"
#include "double_array/sorting.h"
#include "kernels/chains.h"
#include "kernels/memory.h"
#include "kernels/sort.h"

namespace zeph::double_array {
namespace {

constexpr std::size_t kFewest = 4;    // elements; fewer are not worth an allocation
constexpr std::size_t kFew = 16;      // elements; fewer are sorted faster by plain insertion
constexpr std::size_t kAbreast = 8;   // chains gathered side by side: a cache line
constexpr std::size_t kShortest = 4;  // elements of a chain in a strip; fewer are not worth it

/// Copies the elements at even indices to `even`, the others to `odd`.
void Deal(const double* v, std::size_t n, double* even, double* odd) {
  for (std::size_t i = 0; i < n / 2; ++i) {
    even[i] = v[2 * i];
    odd[i] = v[2 * i + 1];
  }
  if (n % 2 == 1) even[n / 2] = v[n - 1];
}
void Undeal(double* v, std::size_t n, const double* even, const double* odd) {
  for (std::size_t i = 0; i < n / 2; ++i) {
    v[2 * i] = even[i];
    v[2 * i + 1] = odd[i];
  }
  if (n % 2 == 1) v[n - 1] = even[n / 2];
}

/// The passes with gaps `gap`, gap / 2, ..., 1, a power of two, on contiguous elements. `room` has
/// space for as many.
void SortNested(double* v, std::size_t n, std::size_t gap, double* room) {
  if (n > kFewest && SortIfOrderIsUnique(v, n)) return;
  if (n <= kFew) {
    ShellWalk(v, n, gap, n);
    return;
  }
  if (gap > 1) {
    double* const even = room;
    double* const odd = room + (n + 1) / 2;
    Deal(v, n, even, odd);
    SortNested(even, (n + 1) / 2, gap / 2, v);
    SortNested(odd, n / 2, gap / 2, v);
    Undeal(v, n, even, odd);
  }
  SortRuns(v, n, Equals::kKept);
}

/// The passes with gaps gap * nested, ..., 2 gap, gap; `nested` is a power of two.
void SortChains(double* v, std::size_t n, std::size_t gap, std::size_t nested, double* room) {
  if (gap == 1) return SortNested(v, n, nested, room);
  const std::size_t rows = (n + gap - 1) / gap, whole = n / gap;
  const std::size_t most = std::min(kAbreast, gap / 2);
  for (std::size_t first = 0; first < gap; first += most) {
    const std::size_t chains = std::min(most, gap - first);
    const auto for_each = [&](auto visit) {
      for (std::size_t k = 0; k < whole; ++k)
        for (std::size_t c = 0; c < chains; ++c) visit(v[first + c + k * gap], room[c * rows + k]);
      for (std::size_t c = 0; whole < rows && first + c + whole * gap < n && c < chains; ++c)
        visit(v[first + c + whole * gap], room[c * rows + whole]);
    };
    for_each([](double& own, double& gathered) { gathered = own; });
    for (std::size_t c = 0; c < chains; ++c) {
      const std::size_t length = (n - first - c + gap - 1) / gap;
      SortNested(room + c * rows, length, nested, room + most * rows);
    }
    for_each([](double& own, double& gathered) { own = gathered; });
  }
}

/// Whether making the passes from `gap` on one by one on adjacent chains, while the gap halves
/// evenly, is faster than sorting each chain without NaN once.
bool PaysAbreast(std::size_t gap, std::size_t nans) {
  constexpr std::size_t kPassesOfASort = 5;
  std::size_t passes = 1, sorts = 1;
  for (; gap % 2 == 0; gap /= 2) ++passes;
  for (std::size_t each = nans / gap; each > 0; each /= 2)
    ++sorts;  // until the parts of a chain have no NaN
  return passes <= sorts * kPassesOfASort;
}

}  // namespace

bool ShellSortByRuns(double* v, std::size_t n, std::size_t gap, std::size_t nans) {
  // Chains side by side and as much room as one of them: (gap / 2 + 1) / gap of n, rounded up.
  const auto room = kernels::Borrow<double>(n + 2 * kAbreast + 2);
  if (!room) return false;
  const std::size_t abreast = kernels::ChainsAbreast();
  for (bool strips = abreast > 1; gap > 0; gap /= 2) {
    std::size_t nested = 1;
    const bool pays = abreast > 1 && PaysAbreast(gap, nans);
    if (pays && gap >= abreast) {
      if (kernels::SortChains(v, n, gap)) continue;
    } else if (pays && strips && n >= kShortest * abreast * gap) {
      gap = ShellSortInStrips(v, n, gap, room.get());
      if (gap == 0) break;
      strips = false;
    } else {
      for (; gap % 2 == 0; gap /= 2) nested *= 2;
    }
    SortChains(v, n, gap, nested, room.get());
  }
  return true;
}

}  // namespace zeph::double_array
