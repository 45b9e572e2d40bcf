// SPDX-License-Identifier: MIT
//
// The array is partitioned into as many pieces as there are threads, or twice as many if they stay
// long, so that a delayed thread delays the others less. To split a piece, it is cut into chunks,
// each chunk is partitioned by the same pivot, and the elements on the wrong side are exchanged;
// both sides are split further until each is one piece, which one thread sorts. No work is done
// twice: these are the passes with which a quicksort begins anyway.
#ifndef ZEPH_SRC_PARALLEL_SHARED_SORT_H
#define ZEPH_SRC_PARALLEL_SHARED_SORT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "kernels/sort.h"
#include "parallel/range.h"

namespace zeph::parallel {

inline std::size_t Split(double* v, std::size_t n, double pivot) {
  return kernels::Active().sorting->split_doubles(v, n, pivot);
}
inline std::size_t Split(int* v, std::size_t n, int pivot) {
  return kernels::Active().sorting->split_ints(v, n, pivot);
}

/// A part of the array that will be split into several pieces, or is one.
template <class T>
struct Piece {
  T* v;
  std::size_t n;
  int pieces;
  int firstChunk;  // it has as many chunks as it will have pieces
  T pivot;
  std::size_t less;  // elements below the pivot
};

/// What a user of the sort may want to know of it; the library's own does not.
struct Unwatched {
  static void SortsPiece(std::size_t) {}
};

/// One sort of an array whose ascending order is unique to the bit, on up to `threads` threads.
template <class T, class Watch = Unwatched>
class SharedSort {
 public:
  SharedSort(T* v, std::size_t n, int threads) : threads_(threads), count_(1) {
    const bool twice = n / kLong / 2 >= static_cast<std::size_t>(threads);
    pieces_[0] = {v, n, std::min(twice ? 2 * threads : threads, kMostThreads), 0, T(), 0};
  }

  /// Returns false if it leaves the data unchanged, for the single-threaded kernel, which counts
  /// values.
  bool Run() {
    for (bool first = true; DealChunks(); first = false) {
      ForEachShared([this](Piece<T>& piece) { ChoosePivot(piece); });
      if (first && few_) return false;
      ForEachChunk([this](Piece<T>& piece, int chunk) {
        const Part part = ChunkOf(piece, chunk);
        less_[piece.firstChunk + chunk] = Split(piece.v + part.first, part.count, piece.pivot);
      });
      ForEachShared([this](Piece<T>& piece) { CountLess(piece); });
      ForEachChunk([this](Piece<T>& piece, int chunk) { Exchange(piece, chunk); });
      DividePieces();
    }
    std::sort(pieces_, pieces_ + count_,
              [](const Piece<T>& a, const Piece<T>& b) { return a.n > b.n; });
    Share(threads_, static_cast<std::size_t>(count_),
          [this](std::size_t k) { kernels::SortAscending(pieces_[k].v, pieces_[k].n); });
    for (int k = 0; k < count_; ++k) Watch::SortsPiece(pieces_[k].n);
    return true;
  }

 private:
  static constexpr std::size_t kLeast = 16 * 1024;  // elements for each thread of a shared piece
  static constexpr std::size_t kLong = 200 * 1024;  // from here on more pieces than threads
  static constexpr std::size_t kSample = 2047;

  /// Numbers the chunks of the pieces that will be shared; returns false if none is.
  bool DealChunks() {
    chunks_ = 0;
    for (int k = 0; k < count_; ++k) {
      Piece<T>& piece = pieces_[k];
      const auto most = std::max<std::size_t>(1, piece.n / kLeast);
      if (static_cast<std::size_t>(piece.pieces) > most) piece.pieces = static_cast<int>(most);
      piece.firstChunk = chunks_;
      if (piece.pieces > 1) chunks_ += piece.pieces;
    }
    return chunks_ > 0;
  }

  template <class Work>
  void ForEachShared(Work work) {
    Share(threads_, static_cast<std::size_t>(count_), [&](std::size_t k) {
      if (pieces_[k].pieces > 1) work(pieces_[k]);
    });
  }
  template <class Work>
  void ForEachChunk(Work work) {
    Share(threads_, static_cast<std::size_t>(chunks_), [&](std::size_t chunk) {
      int k = 0;
      while (pieces_[k].pieces == 1 ||
             static_cast<int>(chunk) >= pieces_[k].firstChunk + pieces_[k].pieces)
        ++k;
      work(pieces_[k], static_cast<int>(chunk) - pieces_[k].firstChunk);
    });
  }

  static Part ChunkOf(const Piece<T>& piece, int chunk) {
    return PartOf(piece.n, 1, static_cast<std::size_t>(piece.pieces),
                  static_cast<std::size_t>(chunk));
  }

  /// The value that splits a sample in the proportion of the left half of the pieces. Where it
  /// occurs often, all its equals go to one side, right or left.
  void ChoosePivot(Piece<T>& piece) {
    T sample[kSample];
    const std::size_t size = std::min(kSample, piece.n / 256);
    std::uint64_t state = piece.n;
    for (std::size_t k = 0; k < size; ++k) {  // one from each stretch, against periodic patterns
      state = state * 6364136223846793005u + 1442695040888963407u;
      const std::size_t stretch = piece.n / size;
      sample[k] = piece.v[k * stretch + static_cast<std::size_t>(state >> 33) % stretch];
    }
    kernels::SortAscending(sample, size);
    if (count_ == 1) few_ = HasFewValues(sample, size);
    const auto pieces = static_cast<std::size_t>(piece.pieces);
    const T* const end = sample + size;
    const T* const wanted = sample + size * (pieces / 2) / pieces;
    const T* const right = std::lower_bound<const T*>(sample, wanted, *wanted);
    const T* const left = std::upper_bound(wanted, end, *wanted);
    piece.pivot = left != end && left - wanted < wanted - right ? *left : *right;
  }

  /// Whether half of a sorted sample are repeated values: then the kernel can count values, or most
  /// are equal, and one thread is faster than several.
  static bool HasFewValues(const T* sample, std::size_t size) {
    std::size_t repeated = 0;
    for (std::size_t k = 1; k < size; ++k) repeated += !(sample[k - 1] < sample[k]);
    return repeated > size / 2;
  }

  void CountLess(Piece<T>& piece) const {
    piece.less = 0;
    for (int chunk = 0; chunk < piece.pieces; ++chunk)
      piece.less += less_[piece.firstChunk + chunk];
  }

  /// Iterates over the places of one kind that are on the wrong side, skipping whole runs.
  class Misplaced {
   public:
    /// Places of elements that belong right but are left (`kLeft`), or the reverse.
    Misplaced(const SharedSort& sort, const Piece<T>& piece, bool left)
        : sort_(sort), piece_(piece), left_(left) {
      Load();
      Advance(0);
    }
    void Skip(std::size_t count) {
      while (count > 0 && chunk_ < piece_.pieces) {
        const std::size_t step = std::min(count, length_);
        Advance(step);
        count -= step;
      }
    }
    T* Place() const { return piece_.v + first_; }
    std::size_t Length() const { return length_; }
    void Advance(std::size_t count) {
      first_ += count;
      length_ -= count;
      while (length_ == 0 && ++chunk_ < piece_.pieces) Load();
    }
    /// All places of the kind.
    std::size_t Count() {
      std::size_t count = 0;
      for (; chunk_ < piece_.pieces; Advance(length_)) count += length_;
      return count;
    }

   private:
    /// The run of the current chunk.
    void Load() {
      const Part part = ChunkOf(piece_, chunk_);
      const std::size_t less = sort_.less_[piece_.firstChunk + chunk_];
      std::size_t begin = part.first, end = part.first + part.count;
      if (left_) {
        begin += less;
        end = std::min(end, piece_.less);
      } else {
        end = begin + less;
        begin = std::max(begin, piece_.less);
      }
      first_ = begin;
      length_ = begin < end ? end - begin : 0;
    }

    const SharedSort& sort_;
    const Piece<T>& piece_;
    const bool left_;
    int chunk_ = 0;
    std::size_t first_ = 0, length_ = 0;
  };

  /// One thread's part of the exchanges.
  void Exchange(const Piece<T>& piece, int share) const {
    const std::size_t all = Misplaced(*this, piece, true).Count();
    const Part part =
        PartOf(all, 1, static_cast<std::size_t>(piece.pieces), static_cast<std::size_t>(share));
    Misplaced left(*this, piece, true), right(*this, piece, false);
    left.Skip(part.first);
    right.Skip(part.first);
    for (std::size_t togo = part.count; togo > 0;) {
      const std::size_t count = std::min({togo, left.Length(), right.Length()});
      std::swap_ranges(left.Place(), left.Place() + count, right.Place());
      left.Advance(count);
      right.Advance(count);
      togo -= count;
    }
  }

  /// The two sides of each shared piece get pieces in proportion to their lengths. Where one side
  /// has all elements, no value of the sample splits it, and it stays one piece.
  void DividePieces() {
    const int before = count_;
    for (int k = 0; k < before; ++k) {
      Piece<T>& piece = pieces_[k];
      if (piece.pieces == 1) continue;
      if (piece.less == 0 || piece.less == piece.n) {
        piece.pieces = 1;
        continue;
      }
      const std::size_t share =
          (piece.less * static_cast<std::size_t>(piece.pieces) + piece.n / 2) / piece.n;
      const int left = std::clamp(static_cast<int>(share), 1, piece.pieces - 1);
      pieces_[count_++] = {
          piece.v + piece.less, piece.n - piece.less, piece.pieces - left, 0, T(), 0};
      piece.n = piece.less;
      piece.pieces = left;
    }
  }

  const int threads_;
  int count_;       // pieces
  int chunks_ = 0;  // of all shared pieces
  bool few_ = false;
  Piece<T> pieces_[kMostThreads];
  std::size_t less_[kMostThreads];  // elements of each chunk that are below its piece's pivot
};

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_SHARED_SORT_H
