// SPDX-License-Identifier: MIT
#include "double_array/shell_zeros.h"

#include <algorithm>
#include <cstdint>

#include "double_array/zeros.h"
#include "kernels/memory.h"
#include "parallel/sort.h"

namespace zeph::double_array {
namespace {

using Count = std::uint32_t;  // sizes are ints

constexpr std::size_t kDense = 16;  // one zero in so many elements is too many for a list

/// How many negatives every chain has, pass after pass. After a pass they come first in their chains,
/// which tells how many go to each chain of the next.
class Negatives {
 public:
  /// `counts` has room for n / 2 + n / 4.
  Negatives(const double* v, std::size_t n, Count* counts)
      : gap_(n / 2), below_(counts), next_(counts + gap_) {
    for (std::size_t r = 0; r < gap_; ++r) below_[r] = Count{v[r] < 0} + Count{v[r + gap_] < 0};
    if (n % 2 == 1) below_[0] += v[n - 1] < 0;  // NOLINT(clang-analyzer-core.*): n >= 2
  }

  /// Those of the chains of the gap at hand; the caller may change them after Prepare.
  Count* Here() { return below_; }

  /// Counts for the next gap.
  void Prepare() {
    const std::size_t next = gap_ / 2;
    if (gap_ % 2 == 0) {  // two chains make one
      for (std::size_t r = 0; r < next; ++r) next_[r] = below_[r] + below_[r + next];
      return;
    }
    // Element k of chain r goes to chain (r + k) mod next: the negatives of a chain go to chains
    // side by side. Where they begin and end is noted, and summed up afterwards.
    std::fill_n(next_, next, Count{0});
    Count everywhere = 0;
    for (std::size_t r = 0; r < gap_; ++r) {
      std::size_t count = below_[r], first = r;
      while (first >= next) first -= next;
      if (count >= next) {
        everywhere += static_cast<Count>(count / next);
        count %= next;
      }
      const std::size_t end = first + count;
      ++next_[first];
      if (end < next) {
        --next_[end];
      } else {  // round to the first chain
        ++everywhere;
        --next_[end - next];
      }
    }
    Count sum = everywhere;
    for (std::size_t r = 0; r < next; ++r) next_[r] = sum += next_[r];
  }
  void Advance() {
    std::swap(below_, next_);
    gap_ /= 2;
  }

 private:
  std::size_t gap_;
  Count* below_;
  Count* next_;
};

/// Few zeros: a list of them, each as twice its place plus its sign, in order of the places.
void SortByList(double* v, std::size_t n, std::size_t zeros, int* list, Count* counts) {
  Negatives chains(v, n, counts);
  int* entry = list;
  const std::size_t negatives = TakeZeros(v, n, [&entry](std::size_t place, std::uint64_t sign) {
    *entry++ = static_cast<int>(2 * place + sign);
  });
  for (std::size_t gap = n / 2; gap > 1; gap /= 2) {
    chains.Prepare();
    Count* const row = chains.Here();  // of its chain, where the next zero goes
    const auto step = static_cast<Count>(gap);
    for (entry = list; entry != list + zeros; ++entry) {
      const auto place = static_cast<Count>(*entry) / 2;  // NOLINT(clang-analyzer-core.*): filled
      const Count chain = place % step;
      *entry = static_cast<int>(2 * (chain + row[chain]++ * step)) | (*entry & 1);
    }
    parallel::SortAscending(list, zeros);
    chains.Advance();
  }
  parallel::SortAscending(v, n);
  for (std::size_t k = 0; k < zeros; ++k)
    if (list[k] & 1) v[negatives + k] = -0.0;
}

/// Many zeros: a byte for every element, 0 for what is none, else 1 plus the sign.
void SortByBytes(double* v, std::size_t n, std::uint8_t* cells, std::uint8_t* moved,
                 Count* counts) {
  Negatives chains(v, n, counts);
  std::fill_n(cells, n, std::uint8_t{0});
  const std::size_t negatives = TakeZeros(v, n, [cells](std::size_t place, std::uint64_t sign) {
    cells[place] = static_cast<std::uint8_t>(1 + sign);
  });
  for (std::size_t gap = n / 2; gap > 1; gap /= 2) {
    chains.Prepare();
    Count* const places = chains.Here();  // of its chain, where the next zero goes
    const auto step = static_cast<Count>(gap);
    for (std::size_t r = 0; r < gap; ++r) places[r] = static_cast<Count>(r) + places[r] * step;
    std::fill_n(moved, n, std::uint8_t{0});
    for (std::size_t row = 0; row < n; row += gap) {
      const std::size_t length = std::min(gap, n - row);
      // What is no zero is written as well, where the chain's next zero will be, or nothing.
      for (std::size_t r = 0; r < length; ++r) {
        const std::uint8_t cell = cells[row + r];
        moved[places[r]] = cell;
        places[r] += cell ? step : 0;
      }
    }
    std::swap(cells, moved);
    chains.Advance();
  }
  parallel::SortAscending(v, n);
  double* zero = v + negatives;
  for (std::size_t i = 0; i < n; ++i) {
    if (cells[i] == 2) *zero = -0.0;
    zero += cells[i] != 0;
  }
}

}  // namespace

bool ShellSortAroundZeros(double* v, std::size_t n, std::size_t zeros) {
  constexpr std::size_t kOwn = 256;
  const std::size_t counted = n / 2 + n / 4, cells = n + n / 2 + 1;  // a chain may reach behind n
  if (zeros < n / kDense && n < std::size_t{1} << 30) {
    int own_list[kOwn / kDense];
    Count own_counts[kOwn / 2 + kOwn / 4];
    if (n < kOwn) return SortByList(v, n, zeros, own_list, own_counts), true;
    const auto list = kernels::Borrow<int>(zeros);
    const auto counts = kernels::Borrow<Count>(counted);
    if (!list || !counts) return false;
    return SortByList(v, n, zeros, list.get(), counts.get()), true;
  }
  std::uint8_t own_bytes[2 * (kOwn + kOwn / 2 + 1)];
  Count own_counts[kOwn / 2 + kOwn / 4];
  if (n < kOwn) return SortByBytes(v, n, own_bytes, own_bytes + cells, own_counts), true;
  const auto bytes = kernels::Borrow<std::uint8_t>(2 * cells);
  const auto counts = kernels::Borrow<Count>(counted);
  if (!bytes || !counts) return false;
  return SortByBytes(v, n, bytes.get(), bytes.get() + cells, counts.get()), true;
}

}  // namespace zeph::double_array
