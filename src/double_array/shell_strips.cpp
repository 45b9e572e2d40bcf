// SPDX-License-Identifier: MIT
#include "double_array/shell_strips.h"

#include <limits>

#include "kernels/chains.h"

namespace zeph::double_array {
namespace {

/// Strip s is column s of a table. The last strip is filled up with infinities.
class Strips {
 public:
  Strips(const double* v, std::size_t n, double* room)
      : cells_(room), count_(kernels::ChainsAbreast()), rows_((n + count_ - 1) / count_) {
    for (std::size_t row = 0; row < rows_; ++row)
      for (std::size_t strip = 0; strip < count_; ++strip) {
        const std::size_t i = strip * rows_ + row;
        *At(strip, row) = i < n ? v[i] : std::numeric_limits<double>::infinity();
      }
  }
  void PutBack(double* v, std::size_t n) const {
    for (std::size_t strip = 0, i = 0; i < n; ++strip)
      for (std::size_t row = 0; row < rows_ && i < n; ++row, ++i) v[i] = *At(strip, row);
  }
  /// Makes a pass; returns false if it would move elements far.
  bool Sort(std::size_t gap) {
    return kernels::SortChains(cells_, rows_ * count_, gap * count_) && Join(gap);
  }

 private:
  double* At(std::size_t strip, std::size_t row) const { return cells_ + row * count_ + strip; }

  /// Inserts the beginning of each strip among the strips before it. Once an element of a chain does not
  /// move, the rest of that chain's part in the strip does not either, being in order already.
  bool Join(std::size_t gap) {
    std::size_t steps = rows_ * count_;
    for (std::size_t strip = 1; strip < count_; ++strip)
      for (std::size_t chain = 0; chain < gap; ++chain)
        for (std::size_t row = chain, moves = 1; moves > 0 && row < rows_; row += gap) {
          moves = Insert(strip, row, gap);
          if (moves > steps) return false;
          steps -= moves;
        }
    return true;
  }
  /// Returns the number of elements passed.
  std::size_t Insert(std::size_t strip, std::size_t row, std::size_t gap) {
    double* place = At(strip, row);
    const double key = *place;
    std::size_t moves = 0;
    while (row >= gap || strip > 0) {
      if (row < gap) {
        --strip;
        row += rows_;
      }
      row -= gap;
      double* const before = At(strip, row);
      if (!(*before > key)) break;
      *place = *before;
      place = before;
      ++moves;
    }
    *place = key;
    return moves;
  }

  double* cells_;
  std::size_t count_, rows_;
};

}  // namespace

std::size_t ShellSortInStrips(double* v, std::size_t n, std::size_t gap, double* room) {
  Strips strips(v, n, room);
  while (gap > 0 && strips.Sort(gap)) gap /= 2;
  strips.PutBack(v, n);
  return gap;
}

}  // namespace zeph::double_array
