// SPDX-License-Identifier: MIT
#include "double_array/shell_zeros.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "double_array/zeros.h"
#include "kernels/memory.h"
#include "parallel/sort.h"

namespace zeph::double_array {
namespace {

using Count = std::uint32_t;  // sizes are ints

constexpr std::size_t kDense = 16;  // one zero in so many elements: too many for a list

/// The number of negatives in every chain, pass after pass. After a pass they come first in their
/// chains, which determines how many each chain of the next pass gets.
class Negatives {
 public:
  /// `counts` has room for gap + gap / 2. `negative(i)` tells whether element i is negative.
  template <class Test>
  Negatives(std::size_t n, std::size_t gap, Count* counts, Test negative)
      : gap_(gap), below_(counts), next_(counts + gap) {
    for (std::size_t r = 0; r < gap; ++r) below_[r] = Count{negative(r)};
    for (std::size_t row = gap; row < n; row += gap) {
      const std::size_t length = std::min(gap, n - row);
      for (std::size_t r = 0; r < length; ++r) below_[r] += Count{negative(row + r)};
    }
  }

  /// The counts of the current gap's chains; the caller may change them after Prepare.
  Count* Here() { return below_; }

  /// Computes the counts of the next gap.
  void Prepare() {
    const std::size_t next = gap_ / 2;
    if (gap_ % 2 == 0) {  // two chains become one
      for (std::size_t r = 0; r < next; ++r) next_[r] = below_[r] + below_[r + next];
      return;
    }
    // Element k of chain r goes to chain (r + k) mod next: the negatives of a chain go to adjacent
    // chains. The first and the one past the last are marked, and a prefix sum follows.
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
      } else {  // wraps around to the first chain
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

/// Few zeros: a list, each entry twice the index of a zero plus its sign, in ascending order.
void SortByList(double* v, std::size_t n, std::size_t zeros, int* list, Count* counts) {
  Negatives chains(n, n / 2, counts, [v](std::size_t i) { return v[i] < 0; });
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
    if (list[k] & 1) v[negatives + k] = -0.0;  // NOLINT(clang-analyzer-core.*): filled
}

// Many zeros: a byte for every element. Zeros differ in the lowest bit, which comparisons ignore.
constexpr std::uint8_t kNegative = 0, kZero = 2, kMinusZero = 3, kPositive = 4;

/// Makes all zeros of `v` 0.0. Without branches, which could not be predicted.
void Classify(double* v, std::size_t n, std::uint8_t* cells) {
  constexpr std::uint32_t kClasses = kPositive | kNegative << 8 | kZero << 16 | kMinusZero << 24;
  for (std::size_t i = 0; i < n; ++i) {
    std::uint64_t bits;
    std::memcpy(&bits, v + i, sizeof bits);
    const std::uint64_t sign = bits >> 63, zero = bits << 1 == 0;
    cells[i] = static_cast<std::uint8_t>(kClasses >> (8 * (2 * zero + sign)));
    bits ^= (zero & sign) << 63;
    std::memcpy(v + i, &bits, sizeof bits);
  }
}

/// Moves the lesser of each two cells to `lower`; equal cells stay.
inline void Exchange(std::uint8_t* lower, std::uint8_t* upper, std::size_t count) {
  for (std::size_t c = 0; c < count; ++c) {
    const std::uint8_t a = lower[c], b = upper[c];
    const auto differ = static_cast<std::uint8_t>(a > (b | 1) ? a ^ b : 0);
    lower[c] = a ^ differ;
    upper[c] = b ^ differ;
  }
}

/// One pass over short chains, many side by side: insertion as a network that only exchanges
/// neighbours, hence stable. `interleaved`: each chain consists of two sorted ones, so an element
/// passes only elements of the other. Positives follow the last element up to the end of its row.
void SortShortChains(std::uint8_t* cells, std::size_t n, std::size_t gap, bool interleaved) {
  constexpr std::size_t kAbreast = 64;
  for (std::size_t first = 0; first < gap; first += kAbreast)
    for (std::size_t row = 1; row * gap < n; ++row) {
      const std::size_t most = interleaved ? (row + 1) / 2 : row;
      std::uint8_t* upper = cells + row * gap + first;
      for (std::size_t k = 0; k < most; ++k, upper -= gap)
        if (gap - first >= kAbreast)
          Exchange(upper - gap, upper, kAbreast);
        else
          Exchange(upper - gap, upper, gap - first);
    }
}

/// The range that is out of order, if any: from the first element that a later one should precede
/// to the last element that should precede an earlier one.
struct Disorder {
  std::size_t begin = 0, end = 0;
  bool Empty() const { return end <= begin; }
};

/// The passes, followed in a byte for every element. Elements outside the disorder stay, so soon
/// only the surroundings of the first and the last zero remain to be processed.
class Cells {
 public:
  /// `cells` and `scratch` have room for n + n / 2 + 1 each: a chain may extend beyond n.
  Cells(double* v, std::size_t n, std::uint8_t* cells, std::uint8_t* scratch)
      : n_(n), cells_(cells), scratch_(scratch) {
    Classify(v, n, cells);
    std::fill_n(cells + n, n / 2 + 1, kPositive);
    std::size_t i = 0;
    while (i < n && cells[i] == kNegative) ++i;
    below_.begin = i;
    while (i < n && cells[i] != kPositive) ++i;
    above_.begin = i;
    for (i = n; i > 0 && cells[i - 1] == kPositive;) --i;
    above_.end = i;
    while (i > 0 && cells[i - 1] != kNegative) --i;
    below_.end = i;
  }

  /// `counts` has room for n / 2 + n / 4.
  void Sort(Count* counts) {
    constexpr std::size_t kShort = 16;  // elements of a chain; with more the network is slower
    std::size_t gap = n_ / 2;
    for (std::size_t last = 0; gap > 1 && n_ <= kShort * gap && !Done(); gap /= 2) {
      SortShortChains(cells_, n_, gap, last == 2 * gap);
      last = gap;
    }
    if (gap <= 1 || Done()) return;
    Negatives chains(n_, gap, counts, [this](std::size_t i) { return cells_[i] == kNegative; });
    for (std::size_t i = 0; i < n_; ++i) cells_[i] &= cells_[i] == kPositive ? 0 : 3;
    for (Count* const places = counts + gap + gap / 2; !Done(); gap /= 2) {
      SortLongChains(gap, chains.Here(), places);
      if (gap < 4) return;  // the pass with gap 1 leaves the zeros in their order
      chains.Prepare();
      chains.Advance();
    }
  }

  /// Gives the zeros of `v`, which are all 0.0 and begin at `zero`, their signs.
  void Sign(double* zero, std::size_t zeros) const {
    constexpr std::uint64_t kEightZeros = 0x0202020202020202;
    const double* const end = zero + zeros;
    for (const std::uint8_t* cell = cells_ + below_.begin; zero != end;) {
      std::uint64_t eight;
      std::memcpy(&eight, cell, sizeof eight);  // there is room after the last
      if ((eight & kEightZeros) == kEightZeros && end - zero >= 8) {
        for (int k = 0; k < 8; ++k) PutSign(zero + k, cell[k]);
        cell += 8;
        zero += 8;
      } else {
        PutSign(zero, *cell);  // overwritten later if this cell is no zero
        zero += *cell++ >> 1 & 1;
      }
    }
  }

 private:
  static void PutSign(double* zero, std::uint8_t cell) {
    const std::uint64_t bits = std::uint64_t{cell} << 63;
    std::memcpy(zero, &bits, sizeof bits);
  }
  bool Done() const { return below_.Empty() && above_.Empty(); }

  /// `below` holds the number of negatives in each chain; `places` has room for `gap` entries.
  void SortLongChains(std::size_t gap, const Count* below, Count* places) {
    const bool joined = !below_.Empty() && !above_.Empty() && above_.begin < below_.end;
    if (!below_.Empty()) {
      const Disorder range = {below_.begin, joined ? above_.end : below_.end};
      const std::size_t chains = std::min(gap, range.end - range.begin);
      for (std::size_t k = 0, r = range.begin % gap; k < chains; ++k, r = r + 1 < gap ? r + 1 : 0)
        places[k] = static_cast<Count>(r + gap * below[r]);
      below_ = Left(range, gap, places);
      Move(range, gap, places);
      if (joined) above_ = Left(range, gap, places);
    }
    if (!joined && !above_.Empty()) {
      const Disorder range = above_;
      for (std::size_t k = 0; k < std::min(gap, range.end - range.begin); ++k)
        places[k] = static_cast<Count>(range.begin + k);
      Move(range, gap, places);
      above_ = Left(range, gap, places);
    }
  }

  /// The disorder that is left when each chain is partitioned at its place.
  static Disorder Left(Disorder range, std::size_t gap, const Count* places) {
    const auto [first, last] =
        std::minmax_element(places, places + std::min(gap, range.end - range.begin));
    return {std::min<std::size_t>(*first, range.end), *last + 1 > gap ? *last + 1 - gap : 0};
  }

  /// Moves the zeros of chain k, which begins at element k of the range, to places[k] and the
  /// chain's following places, in their order.
  void Move(Disorder range, std::size_t gap, Count* places) {
    std::fill(scratch_ + range.begin, scratch_ + range.end, kNegative);
    const auto step = static_cast<Count>(gap);
    for (std::size_t row = range.begin; row < range.end; row += gap) {
      const std::size_t length = std::min(gap, range.end - row);
      // Other elements are written too, to avoid a branch; the chain's next zero, if any,
      // overwrites them.
      for (std::size_t k = 0; k < length; ++k) {
        const std::uint8_t cell = cells_[row + k];
        const Count place = places[k];
        places[k] = place + (cell ? step : 0);
        scratch_[place] = cell;
      }
    }
    std::copy(scratch_ + range.begin, scratch_ + range.end, cells_ + range.begin);
  }

  std::size_t n_;
  std::uint8_t* cells_;
  std::uint8_t* scratch_;
  Disorder below_;  // of the negatives and the rest
  Disorder above_;  // of the positives and the rest
};

void SortByBytes(double* v, std::size_t n, std::size_t zeros, std::uint8_t* bytes, Count* counts) {
  Cells cells(v, n, bytes, bytes + n + n / 2 + 1);
  cells.Sort(counts);
  parallel::SortAscending(v, n);
  cells.Sign(std::lower_bound(v, v + n, 0.0), zeros);
}

}  // namespace

bool ShellSortAroundZeros(double* v, std::size_t n, std::size_t zeros) {
  constexpr std::size_t kOwn = 256;
  const std::size_t counted = n / 2 + n / 4, bytes = 2 * (n + n / 2 + 1);
  if (zeros < n / kDense && n < std::size_t{1} << 30) {
    int own_list[kOwn / kDense];
    Count own_counts[kOwn / 2 + kOwn / 4];
    if (n < kOwn) return SortByList(v, n, zeros, own_list, own_counts), true;
    const auto list = kernels::Borrow<int>(zeros);
    const auto counts = kernels::Borrow<Count>(counted);
    if (!list || !counts) return false;
    return SortByList(v, n, zeros, list.get(), counts.get()), true;
  }
  std::uint8_t own_cells[2 * (kOwn + kOwn / 2 + 1)];
  Count own_counts[kOwn / 2 + kOwn / 4];
  if (n < kOwn) return SortByBytes(v, n, zeros, own_cells, own_counts), true;
  const auto cells = kernels::Borrow<std::uint8_t>(bytes);
  const auto counts = kernels::Borrow<Count>(counted);
  if (!cells || !counts) return false;
  return SortByBytes(v, n, zeros, cells.get(), counts.get()), true;
}

}  // namespace zeph::double_array
