// SPDX-License-Identifier: MIT
//
// Counting sort for few distinct values: a pass that counts each, and one that writes them in
// order. Values are told apart by their bits; the caller knows that equal values have equal bits.
#ifndef ZEPH_SRC_KERNELS_COUNTING_H
#define ZEPH_SRC_KERNELS_COUNTING_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "kernels/sort_steps.h"
#include "kernels/target.h"

namespace zeph::kernels::counting {

constexpr std::size_t kFewest = 8000;  // elements; below, a sample of them costs too much
constexpr std::size_t kMost = 256;     // distinct values
constexpr std::size_t kSample = 64;

/// How often each value occurred. 16 KiB, for the stack.
template <class T>
class Counts {
 public:
  // A slot whose bits are all 0 is free, except the first: it belongs to that very value.
  Counts() { std::memset(static_cast<void*>(slots_), 0, sizeof slots_); }

  /// Counts the elements; false when they have more than kMost values.
  bool Add(const T* v, std::size_t n) {
    while (n > 0 && others_ < kMost) {
      const std::size_t part = std::min(n, kPart);
      std::size_t i = 0;
      // Two counters a value, so that a run of equal values does not form one chain of additions.
      for (; i + 2 <= part; i += 2) {
        ++Find(v[i]).count[0];
        ++Find(v[i + 1]).count[1];
      }
      if (i < part) ++Find(v[i]).count[0];
      v += part;
      n -= part;
    }
    return n == 0 && others_ < kMost;
  }

  /// The number of distinct values, and the values in no particular order.
  std::size_t Values(T* out) const {
    T* end = out;
    for (const Slot& slot : slots_)
      if (slot.count[0] | slot.count[1]) *end++ = slot.value;
    return static_cast<std::size_t>(end - out);
  }
  std::size_t CountOf(T value) {
    const Slot& slot = Find(value);
    return std::size_t{slot.count[0]} + slot.count[1];
  }

 private:
  using Bits = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;
  static constexpr int kLog = 10;
  static constexpr std::size_t kSlots = std::size_t{1} << kLog, kPart = 128;
  static_assert(kMost + kPart < kSlots, "a part always finds free slots");
  struct Slot {
    T value;
    std::uint32_t count[2];
  };

  static Bits BitsOf(T x) {
    Bits bits;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
  }

  /// The slot of a value: where its bits point, or the next one that is free.
  Slot& Find(T x) {
    const Bits bits = BitsOf(x);
    auto at = static_cast<std::size_t>(bits * std::uint64_t{0x9E3779B97F4A7C15u} >> (64 - kLog));
    while (BitsOf(slots_[at].value) != bits) {
      if (at != 0 && BitsOf(slots_[at].value) == 0) {
        ++others_;
        slots_[at].value = x;
        break;
      }
      at = (at + 1) % kSlots;
    }
    return slots_[at];
  }

  Slot slots_[kSlots];
  std::size_t others_ = 0;  // distinct values, without that of the first slot
};

/// The distinct values of a sample taken from all over `v` (n >= kSample), in no particular order,
/// and their number.
template <class T>
ZEPH_NOINLINE std::size_t Sample(const T* v, std::size_t n, T* values) {
  ZEPH_SORT_STEP(kSampled, n);
  Counts<T> counts;
  const std::size_t step = n / kSample;
  for (std::size_t i = 0; i < kSample; ++i) counts.Add(v + i * step + i * 37 % step, 1);
  return counts.Values(values);
}

/// Sorts `v` if it has few distinct values, which `form` sorts; otherwise leaves it unchanged and
/// returns false.
template <class T, class Form>
ZEPH_NOINLINE bool SortFew(T* v, std::size_t n, const Form& form) {
  Counts<T> counts;
  if (n > UINT32_MAX || !counts.Add(v, n)) return false;
  T values[kMost];
  const std::size_t distinct = counts.Values(values);
  form.Sort(values, distinct);
  for (std::size_t i = 0; i < distinct; ++i)
    v = std::fill_n(v, counts.CountOf(values[i]), values[i]);
  return true;
}

// Functions that hold counts are not inlined: the sort that calls them is recursive and needs a
// small frame.

/// Decides which pieces to sample for few distinct values: as long as the pieces above have shown
/// repeated values, and no more once counting has failed.
class Chance {
 public:
  /// True when `v` was sorted by counting. The form sorts short arrays, and may treat values so few
  /// that a sample has them all in its own way.
  template <class T, class Form>
  ZEPH_NOINLINE bool Take(T* v, std::size_t n, const Form& form) {
    if (n < kFewest || left_ == 0) return false;
    T values[kSample];
    const std::size_t distinct = Sample(v, n, values);
    left_ -= distinct == kSample;
    if (distinct > kSample - kPromising) return false;
    if (form.SortVeryFew(v, n, values, distinct) || SortFew(v, n, form)) {
      ZEPH_SORT_STEP(kCounted, n);
      return true;
    }
    --left_;
    return false;
  }

 private:
  static constexpr std::size_t kPromising = 4;  // about 8 among 256 values, 2 among 1000
  int left_ = 3;
};

}  // namespace zeph::kernels::counting

#endif  // ZEPH_SRC_KERNELS_COUNTING_H
