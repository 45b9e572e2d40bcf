// SPDX-License-Identifier: MIT
//
// The loops over a product's tiles, shared by its forms.
//
// A tile is some rows of the result by one strip of columns. Its sums stay in registers while k
// runs through a block, and are stored in `out`, without loss, until the next block: so every entry
// adds in increasing k for any block size.
#ifndef ZEPH_SRC_KERNELS_DENSE_PRODUCT_TILES_H
#define ZEPH_SRC_KERNELS_DENSE_PRODUCT_TILES_H

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "kernels/dense_product.h"
#include "kernels/memory.h"
#include "kernels/row_sums.h"
#include "kernels/target.h"

namespace zeph::kernels::product {

struct Tile {
  double* const* out;      // the tile's rows of the result
  const double* const* a;  // the same rows of the left factor, element 0 being k = first
  const double* const* b;  // the rows of the right factor, row 0 being k = first
  const double* packed;    // null, or the strip's columns of those rows, contiguous
  std::size_t column;      // the strip's first column
  std::size_t width;       // the strip's number of columns
  std::size_t inner;       // length of the block of k
  bool resume;             // whether the sums continue from `out`; else they start at 0.0
};

constexpr std::size_t kInnerBlock = 256;  // a packed strip then about fills the first-level cache
constexpr std::size_t kPanelCols = 48;    // columns of the right factor packed at a time
constexpr std::size_t kRowBlock = 512;    // rows of the left factor that use a packed panel

/// All of a product, or one block of it.
struct Block {
  double* const* out;
  const double* const* a;
  const double* const* b;
  std::size_t rows, inner, cols;
  bool resume;
};

/// Height of the next tile when `left` rows remain: `most`, but the last two share evenly.
constexpr std::size_t NextHeight(std::size_t left, std::size_t most) {
  return left >= 2 * most ? most : left > most ? (left + 1) / 2 : left;
}

/// Calls `run(row, height)` for each tile's rows, top to bottom.
template <class Form, class Run>
void ForEachHeight(const Block& block, Run run) {
  for (std::size_t i = 0; i < block.rows;) {
    const std::size_t height = NextHeight(block.rows - i, Form::kRows);
    run(i, height);
    i += height;
  }
}

/// The columns after the last whole vector, one by one, as ordered sums of the left factor's rows
/// times that column: the same products, added in the same order. (Not inlined: its stack frame
/// would slow small products down.)
template <class Form>
ZEPH_NOINLINE void RunLooseColumns(const Block& block) {
  constexpr std::size_t kAtOnce = 48;
  double factors[kInnerBlock], sums[kAtOnce];
  for (std::size_t j = block.cols - block.cols % Form::kVector; j < block.cols; ++j) {
    for (std::size_t k = 0; k < block.inner; ++k) factors[k] = block.b[k][j];
    for (std::size_t i = 0; i < block.rows; i += kAtOnce) {
      const std::size_t count = std::min(kAtOnce, block.rows - i);
      Form::kRowSums.dot(sums, block.a + i, factors, count, block.inner);
      for (std::size_t r = 0; r < count; ++r) block.out[i + r][j] = sums[r];
    }
  }
}

/// Strip after strip, reading the right factor in place. The last strip begins early enough to
/// consist of whole vectors, if there are columns enough: it computes some entries twice, to the
/// same bits, which is cheaper than partial vectors.
template <class Form>
void RunInPlace(const Block& block) {
  std::size_t cols = block.cols;
  const std::size_t loose = cols % Form::kVector;
  if (loose != 0 && loose <= Form::kLoose && loose < cols && block.inner <= kInnerBlock) {
    RunLooseColumns<Form>(block);
    cols -= loose;
  }
  Tile tile{nullptr, nullptr, block.b, nullptr, 0, 0, block.inner, false};
  for (std::size_t done = 0; done < cols; done += tile.width) {
    const std::size_t vectors = (cols - done + Form::kVector - 1) / Form::kVector;
    tile.width = std::min({Form::kCols, vectors * Form::kVector, cols});
    tile.column = std::min(done, cols - tile.width);
    ForEachHeight<Form>(block, [&](std::size_t row, std::size_t height) {
      tile.out = block.out + row;
      tile.a = block.a + row;
      Form::Run(tile, height);
    });
  }
}

/// Copies a panel of the right factor, strip after strip. Missing columns are filled with the first
/// column of the last vector: their results are never stored, and raise no exceptions other than
/// that column's.
template <class Form>
void PackPanel(double* to, const Tile& panel) {
  for (std::size_t k = 0; k < panel.inner; ++k, to += Form::kCols) {
    const double* from = panel.b[k] + panel.column;
    double* strip = to;
    std::size_t left = panel.width;
    for (; left >= Form::kCols; left -= Form::kCols, from += Form::kCols) {
      std::memcpy(strip, from, Form::kCols * sizeof(double));
      strip += panel.inner * Form::kCols;
    }
    if (!left) continue;
    const double missing = from[(left - 1) / Form::kVector * Form::kVector];
    for (std::size_t c = 0; c < Form::kCols; ++c) strip[c] = c < left ? from[c] : missing;
  }
}

/// Prefetches data that is about to be needed.
inline void Prefetch([[maybe_unused]] const double* x) {
#if defined(__GNUC__) || defined(__clang__)
  __builtin_prefetch(x);
#endif
}

/// Prefetches what later tiles need: the rows of a matrix are far apart, so no hardware prefetcher
/// does it.
class LookAhead {
 public:
  /// Spreads the next panel's prefetches over the `tiles` tiles of `panel`.
  LookAhead(const Block& block, const Tile& panel, std::size_t tiles)
      : block_(block),
        column_(panel.column + kPanelCols),
        width_(column_ < block.cols ? std::min(kPanelCols, block.cols - column_) : 0),
        share_(width_ ? block.inner / tiles + 1 : 0) {}

  /// Prefetches the next part of that panel for reading.
  void ForNextPanel() {
    for (std::size_t end = std::min(k_ + share_, block_.inner); k_ < end; ++k_)
      for (std::size_t c = 0; c < width_ + 7; c += 8)
        Prefetch(block_.b[k_] + column_ + std::min(c, width_ - 1));
  }

  /// Prefetches `height` rows of the result from `row` on, in the columns of `tile`, for writing.
  void ForNextTile(std::size_t row, std::size_t height, const Tile& tile) const {
    for (std::size_t r = row; r < row + height; ++r)
      for (std::size_t c = 0; c < tile.width + 7; c += 8)
        Prefetch(block_.out[r] + tile.column + std::min(c, tile.width - 1));
  }

 private:
  const Block& block_;
  std::size_t column_, width_, share_, k_ = 0;
};

/// Takes the right factor panel by panel, several strips each, and copies a panel before using it.
/// A block of rows is multiplied by all strips of the panel before the next rows are: so the left
/// factor is read from memory once per panel, and the panel stays in the second-level cache.
template <class Form>
void RunPacked(const Block& block, double* room) {
  static_assert(kPanelCols % Form::kCols == 0, "a panel is whole strips");
  const std::size_t tiles = (block.rows / Form::kRows + 1) * (kPanelCols / Form::kCols);
  Tile panel{nullptr, nullptr, block.b, room, 0, 0, block.inner, block.resume};
  for (; panel.column < block.cols; panel.column += kPanelCols) {
    panel.width = std::min(kPanelCols, block.cols - panel.column);
    PackPanel<Form>(room, panel);
    LookAhead ahead(block, panel, tiles);
    Tile tile = panel;
    ForEachHeight<Form>(block, [&](std::size_t row, std::size_t height) {
      tile.out = block.out + row;
      tile.a = block.a + row;
      const std::size_t next = row + height;
      for (std::size_t done = 0; done < panel.width; done += Form::kCols) {
        tile.column = panel.column + done;
        tile.width = std::min(Form::kCols, panel.width - done);
        tile.packed = room + done * block.inner;
        ahead.ForNextTile(next, NextHeight(block.rows - next, Form::kRows), tile);
        ahead.ForNextPanel();
        Form::Run(tile, height);
      }
    });
  }
}

/// Block after block, with `room` for a panel.
template <class Form>
void RunBlocks(const Block& all, double* room) {
  const double* a[kRowBlock];
  std::size_t k = 0;
  do {  // once even for inner = 0, to store the zeros
    Block block = all;
    block.b = all.b + k;
    block.inner = std::min(kInnerBlock, all.inner - k);
    block.resume = k != 0;
    block.a = a;
    for (std::size_t i = 0; i < all.rows; i += block.rows) {
      block.rows = NextHeight(all.rows - i, kRowBlock);
      block.out = all.out + i;
      for (std::size_t r = 0; r < block.rows; ++r) {
        a[r] = all.a[i + r] + k;
      }
      RunPacked<Form>(block, room);
    }
    k += block.inner;
  } while (k < all.inner);
}

/// The whole product by the tiles of `Form`, which gives their size kRows and kCols, kVector
/// (columns at a time), Run, and Packs: whether copying the right factor gains more than it costs.
template <class Form>
void Run(double* const* out, const double* const* a, const double* const* b, std::size_t rows,
         std::size_t inner, std::size_t cols) {
  const Block all{out, a, b, rows, inner, cols, false};
  if (!Form::Packs(rows, inner, cols)) return RunInPlace<Form>(all);
  const std::size_t room = kInnerBlock * kPanelCols;
  const Borrowed<double> block = Borrow<double>(room);
  if (!block) return RunInPlace<Form>(all);
  RunBlocks<Form>(all, block.get());
}

}  // namespace zeph::kernels::product

#endif  // ZEPH_SRC_KERNELS_DENSE_PRODUCT_TILES_H
