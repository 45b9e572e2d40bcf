// SPDX-License-Identifier: MIT
//
// Two doubles or four ints at a time.
#include "kernels/sort.h"

#include "kernels/counting.h"
#include "kernels/denormal_guard.h"
#include "kernels/forms.h"
#include "kernels/merge_steps.h"
#include "kernels/sort_limits.h"

#if ZEPH_NEON

#include <arm_neon.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

#include "kernels/quietly_neon.h"

#define ZEPH_WIDE_CALL
#define ZEPH_WIDE __attribute__((always_inline)) inline

namespace zeph::kernels::neon {

namespace doubles {
namespace {

using Vector = float64x2_t;
constexpr int kLanes = 2;

ZEPH_WIDE Vector Min(Vector a, Vector b) {
  return vminq_f64(a, b);
}
ZEPH_WIDE Vector Max(Vector a, Vector b) {
  return vmaxq_f64(a, b);
}
/// The lanes of `a` whose index has bit D clear, and the others of `b`.
template <int D>
ZEPH_WIDE Vector Pick(Vector a, Vector b) {
  return vcopyq_laneq_f64(a, 1, b, 1);
}
/// The lesser in lanes whose index has bit D clear, the greater in the others.
template <int D>
ZEPH_WIDE Vector LowHigh(Vector a, Vector b) {
  return Pick<D>(Min(a, b), Max(a, b));
}
template <int D>
ZEPH_WIDE Vector Flip(Vector x) {
  return vextq_f64(x, x, 1);
}
template <int G>
ZEPH_WIDE Vector Reverse(Vector x) {
  return vextq_f64(x, x, 1);
}
template <int Unit, bool kUpper>
ZEPH_WIDE Vector Interleave(Vector a, Vector b) {
  return kUpper ? vzip2q_f64(a, b) : vzip1q_f64(a, b);
}
ZEPH_WIDE void Transpose(Vector* r) {
  const Vector upper = vzip2q_f64(r[0], r[1]);
  r[0] = vzip1q_f64(r[0], r[1]);
  r[1] = upper;
}

ZEPH_WIDE Vector Load(const double* v) {
  return vld1q_f64(v);
}
/// Lanes beyond the first `count` are filled with a value that sorts to the end; `count` may be
/// anything.
ZEPH_WIDE Vector LoadFirst(const double* v, int count) {
  static constexpr double kEnd = std::numeric_limits<double>::infinity();
  return vcombine_f64(vld1_f64(count > 0 ? v : &kEnd), vld1_f64(count > 1 ? v + 1 : &kEnd));
}
ZEPH_WIDE void Store(double* v, Vector x) {
  vst1q_f64(v, x);
}
/// Unwanted lanes are stored to a dummy location, which needs no branch.
ZEPH_WIDE void StoreFirst(double* v, Vector x, int count) {
  double elsewhere;
  vst1q_lane_f64(count > 0 ? v : &elsewhere, x, 0);
  vst1q_lane_f64(count > 1 ? v + 1 : &elsewhere, x, 1);
}
ZEPH_WIDE Vector Broadcast(double x) {
  return vdupq_n_f64(x);
}
ZEPH_WIDE unsigned LessLanes(Vector a, Vector b) {
  const uint64x2_t less = vcltq_f64(a, b);
  return static_cast<unsigned>((vgetq_lane_u64(less, 0) & 1) | (vgetq_lane_u64(less, 1) & 2));
}
ZEPH_WIDE std::size_t CountLanes(unsigned mask) {
  return (mask & 1) + (mask >> 1);
}
/// The lanes in `mask` moved to the front, the others after them.
ZEPH_WIDE Vector FrontFirst(Vector x, unsigned mask) {
  return mask == 2 ? Flip<1>(x) : x;
}

ZEPH_WIDE uint64x2_t LaneCounts(double x) {
  return vreinterpretq_u64_f64(Broadcast(x));
}
ZEPH_WIDE uint64x2_t LoadBits(const double* v) {
  return vreinterpretq_u64_f64(Load(v));
}
ZEPH_WIDE void CountEqual(uint64x2_t& counts, uint64x2_t x, uint64x2_t wanted) {
  counts = vsubq_u64(counts, vceqq_u64(x, wanted));
}
ZEPH_WIDE std::size_t SumOfLanes(uint64x2_t counts) {
  return vaddvq_u64(counts);
}

ZEPH_WIDE bool AllLanes(uint64x2_t x) {
  return ~(vgetq_lane_u64(x, 0) & vgetq_lane_u64(x, 1)) == 0;
}
ZEPH_WIDE uint64x2_t NotAbove(Vector a, Vector b) {
  return vcleq_f64(a, b);
}
/// As in the merge, without examining single lanes.
template <int... I>
ZEPH_WIDE bool AllLess(const double* v, double x, std::integer_sequence<int, I...>) {
  const Vector pivot = Broadcast(x);
  return AllLanes((vcltq_f64(Load(v + I * kLanes), pivot) & ...));
}
template <int... I>
ZEPH_WIDE bool NoneAbove(const double* v, double x, std::integer_sequence<int, I...>) {
  const Vector pivot = Broadcast(x);
  return AllLanes(~(vcgtq_f64(Load(v + I * kLanes), pivot) | ...));
}

/// As in the network, by the least and the greatest of neighbours.
template <int D, int... I>
ZEPH_WIDE void HalveColumns(Vector* rows, std::integer_sequence<int, I...>) {
  constexpr int kRows = sizeof...(I);
  if constexpr (D == 1 && kRows == 1) {
    rows[0] = LowHigh<1>(rows[0], Flip<1>(rows[0]));
  } else if constexpr (D == 1) {
    for (int i = 0; i < kRows; i += 2) {
      const Vector low = vpminq_f64(rows[i], rows[i + 1]), high = vpmaxq_f64(rows[i], rows[i + 1]);
      rows[i] = vzip1q_f64(low, high);
      rows[i + 1] = vzip2q_f64(low, high);
    }
  }
}
/// As in the network, where one shuffle both picks and mirrors.
template <int G>
ZEPH_WIDE void CrossRows(Vector& a, Vector& b) {
  const Vector mirrored = Flip<1>(b);
  const Vector low = Min(a, mirrored), high = Max(a, mirrored);
  a = Pick<1>(low, high);
  b = vextq_f64(low, high, 1);
}

#include "kernels/sort_network.inc"  // first: the others use it

#include "kernels/sort_merge.inc"
#include "kernels/sort_quick.inc"

#include "kernels/sort_front_neon.inc"  // uses the merge

/// Two vectors at once, the left end at `to` and the right one `room` after it. The order within
/// either end does not matter, so each pair of lanes is sorted: then those that belong left come
/// first. Each vector takes kLanes of the room, so that one count moves both ends.
template <class Test>
ZEPH_WIDE double* SplitTwo(double* to, std::ptrdiff_t room, Vector a, Vector b, Vector pivot) {
  const Vector low = Min(a, b), high = Max(a, b);
  const Vector pairs[] = {vzip1q_f64(low, high), vzip2q_f64(low, high)};
  uint64x2_t left[2];
  for (int i = 0; i < 2; ++i)
    left[i] = std::is_same_v<Test, Less> ? vcltq_f64(pairs[i], pivot) : vcleq_f64(pairs[i], pivot);
  const int64x2_t counts = vreinterpretq_s64_u64(vpaddq_u64(left[0], left[1]));
  const std::int64_t below_zero[] = {vgetq_lane_s64(counts, 0), vgetq_lane_s64(counts, 1)};
  for (int i = 0; i < 2; ++i) {
    Store(to, pairs[i]);
    Store(to + room - (i + 1) * kLanes, pairs[i]);
    to -= below_zero[i];
  }
  return to;
}
template <class Test, std::size_t Count, std::size_t... I>
ZEPH_WIDE void SplitAll(Ends<double>& ends, const Vector (&x)[Count], Vector pivot,
                        std::index_sequence<I...>) {
  if constexpr (Count == 1) {
    Split<Test>(ends, x[0], pivot);
  } else {
    static_assert(Count % 2 == 0);
    std::ptrdiff_t room = ends.write_right - ends.write_left;
    for (std::size_t i = 0; i < Count; i += 2, room -= 2 * kLanes)
      ends.write_left = SplitTwo<Test>(ends.write_left, room, x[i], x[i + 1], pivot);
    ends.write_right = ends.write_left + room;
  }
}

/// Bits that were clear and bits that were set in an element equal to 0.0.
struct Seen {
  uint64x2_t clear, set;
};
ZEPH_WIDE void Look(Seen& seen, Vector a) {
  const uint64x2_t zero = vceqzq_f64(a), bits = vreinterpretq_u64_f64(a);
  seen.clear = vorrq_u64(seen.clear, vbicq_u64(zero, bits));
  seen.set = vorrq_u64(seen.set, vandq_u64(zero, bits));
}
ZEPH_WIDE std::uint64_t AnyLane(uint64x2_t x) {
  return vgetq_lane_u64(x, 0) | vgetq_lane_u64(x, 1);
}

/// Calls body(vector) for each vector of `n` elements; the last one is filled up with a non-zero
/// value.
template <class Body>
ZEPH_WIDE void ForEachVector(const double* v, std::size_t n, Body body) {
  constexpr std::size_t kRound = 4 * kLanes;
  std::size_t i = 0;
  for (; i + kRound <= n; i += kRound)
    for (std::size_t k = i; k < i + kRound; k += kLanes) body(Load(v + k));
  for (; i + kLanes <= n; i += kLanes) body(Load(v + i));
  if (i < n) body(LoadFirst(v + i, 1));
}

/// Most blocks have no zero, and then the test for zeros and NaN is all they need.
bool OrderIsUnique(const double* v, std::size_t n) {
  constexpr std::size_t kBlock = 32 * kLanes;
  Seen seen = {vdupq_n_u64(0), vdupq_n_u64(0)};
  for (std::size_t i = 0; i < n; i += kBlock) {
    const std::size_t count = std::min(n - i, kBlock);
    uint64x2_t zeros = vdupq_n_u64(0), numbers = vdupq_n_u64(~std::uint64_t{0});
    ForEachVector(v + i, count, [&](Vector x) {
      zeros = vorrq_u64(zeros, vceqzq_f64(x));
      numbers = vandq_u64(numbers, vceqq_f64(x, x));
    });
    if (vgetq_lane_u64(numbers, 0) + 1 || vgetq_lane_u64(numbers, 1) + 1) return false;
    if (AnyLane(zeros)) ForEachVector(v + i, count, [&](Vector x) { Look(seen, x); });
  }
  return (AnyLane(seen.clear) & AnyLane(seen.set)) == 0;
}

}  // namespace
}  // namespace doubles

namespace ints {
namespace {

using Vector = int32x4_t;
constexpr int kLanes = 4;

ZEPH_WIDE Vector Min(Vector a, Vector b) {
  return vminq_s32(a, b);
}
ZEPH_WIDE Vector Max(Vector a, Vector b) {
  return vmaxq_s32(a, b);
}
/// The lanes of `a` whose index has bit D clear, and the others of `b`.
template <int D>
ZEPH_WIDE Vector Pick(Vector a, Vector b) {
  if constexpr (D == 1)
    return vtrn1q_s32(a, vrev64q_s32(b));
  else
    return vcombine_s32(vget_low_s32(a), vget_high_s32(b));
}
/// The lesser in lanes whose index has bit D clear, the greater in the others.
template <int D>
ZEPH_WIDE Vector LowHigh(Vector a, Vector b) {
  return Pick<D>(Min(a, b), Max(a, b));
}
/// Each lane's neighbour at distance D.
template <int D>
ZEPH_WIDE Vector Flip(Vector x) {
  return D == 1 ? vrev64q_s32(x) : vextq_s32(x, x, 2);
}
/// The first halves of two vectors, or the second ones.
template <int Which>
ZEPH_WIDE Vector Halves(Vector a, Vector b) {
  const int64x2_t x = vreinterpretq_s64_s32(a), y = vreinterpretq_s64_s32(b);
  return vreinterpretq_s32_s64(Which == 1 ? vzip1q_s64(x, y) : vzip2q_s64(x, y));
}
/// The lanes of each group of G in reverse.
template <int G>
ZEPH_WIDE Vector Reverse(Vector x) {
  const Vector pairs = vrev64q_s32(x);
  return G == 2 ? pairs : vextq_s32(pairs, pairs, 2);
}
/// Interleaves lanes of `a` and `b`, of the lower half or of the upper.
template <int Unit, bool kUpper>
ZEPH_WIDE Vector Interleave(Vector a, Vector b) {
  static_assert(Unit == 1);
  return kUpper ? vzip2q_s32(a, b) : vzip1q_s32(a, b);
}
ZEPH_WIDE void Transpose(Vector* r) {
  const int64x2_t even01 = vreinterpretq_s64_s32(vtrn1q_s32(r[0], r[1]));
  const int64x2_t odd01 = vreinterpretq_s64_s32(vtrn2q_s32(r[0], r[1]));
  const int64x2_t even23 = vreinterpretq_s64_s32(vtrn1q_s32(r[2], r[3]));
  const int64x2_t odd23 = vreinterpretq_s64_s32(vtrn2q_s32(r[2], r[3]));
  r[0] = vreinterpretq_s32_s64(vzip1q_s64(even01, even23));
  r[1] = vreinterpretq_s32_s64(vzip1q_s64(odd01, odd23));
  r[2] = vreinterpretq_s32_s64(vzip2q_s64(even01, even23));
  r[3] = vreinterpretq_s32_s64(vzip2q_s64(odd01, odd23));
}

ZEPH_WIDE Vector Load(const int* v) {
  return vld1q_s32(v);
}
/// Lanes beyond the first `count` are filled with a value that sorts to the end; `count` may be
/// anything.
ZEPH_WIDE Vector LoadFirst(const int* v, int count) {
  static constexpr int kEnd = std::numeric_limits<int>::max();
  Vector x = vld1q_dup_s32(count > 0 ? v : &kEnd);
  x = vld1q_lane_s32(count > 1 ? v + 1 : &kEnd, x, 1);
  x = vld1q_lane_s32(count > 2 ? v + 2 : &kEnd, x, 2);
  return vld1q_lane_s32(count > 3 ? v + 3 : &kEnd, x, 3);
}
ZEPH_WIDE void Store(int* v, Vector x) {
  vst1q_s32(v, x);
}
/// Unwanted lanes are stored to a dummy location, which needs no branch.
ZEPH_WIDE void StoreFirst(int* v, Vector x, int count) {
  int elsewhere;
  vst1q_lane_s32(count > 0 ? v : &elsewhere, x, 0);
  vst1q_lane_s32(count > 1 ? v + 1 : &elsewhere, x, 1);
  vst1q_lane_s32(count > 2 ? v + 2 : &elsewhere, x, 2);
  vst1q_lane_s32(count > 3 ? v + 3 : &elsewhere, x, 3);
}
ZEPH_WIDE Vector Broadcast(int x) {
  return vdupq_n_s32(x);
}
ZEPH_WIDE unsigned LessLanes(Vector a, Vector b) {
  static constexpr std::uint32_t kBits[] = {1, 2, 4, 8};
  return vaddvq_u32(vandq_u32(vcltq_s32(a, b), vld1q_u32(kBits)));
}
/// The bits of a mask, four to a hexadecimal digit.
ZEPH_WIDE std::size_t CountLanes(unsigned mask) {
  return 0x4332322132212110 >> (4 * mask) & 0xF;
}

/// For each mask the bytes of the lanes in it, then those of the others.
struct FrontTable {
  alignas(16) std::uint8_t places[16][16] = {};
  constexpr FrontTable() {
    for (unsigned mask = 0; mask < 16; ++mask) {
      int at = 0;
      for (unsigned wanted : {1u, 0u})
        for (unsigned byte = 0; byte < 16; ++byte)
          if ((mask >> byte / 4 & 1) == wanted)
            places[mask][at++] = static_cast<std::uint8_t>(byte);
    }
  }
};
constexpr FrontTable kFront;

/// The lanes in `mask` moved to the front, the others after them.
ZEPH_WIDE Vector FrontFirst(Vector x, unsigned mask) {
  return vreinterpretq_s32_u8(vqtbl1q_u8(vreinterpretq_u8_s32(x), vld1q_u8(kFront.places[mask])));
}

ZEPH_WIDE uint32x4_t LaneCounts(int x) {
  return vreinterpretq_u32_s32(Broadcast(x));
}
ZEPH_WIDE uint32x4_t LoadBits(const int* v) {
  return vreinterpretq_u32_s32(Load(v));
}
ZEPH_WIDE void CountEqual(uint32x4_t& counts, uint32x4_t x, uint32x4_t wanted) {
  counts = vsubq_u32(counts, vceqq_u32(x, wanted));
}
ZEPH_WIDE std::size_t SumOfLanes(uint32x4_t counts) {
  return vaddlvq_u32(counts);
}

ZEPH_WIDE bool AllLanes(uint32x4_t x) {
  return vminvq_u32(x) != 0;
}
ZEPH_WIDE uint32x4_t NotAbove(Vector a, Vector b) {
  return vcleq_s32(a, b);
}
/// As in the merge, without examining single lanes.
template <int... I>
ZEPH_WIDE bool AllLess(const int* v, int x, std::integer_sequence<int, I...>) {
  const Vector pivot = Broadcast(x);
  return AllLanes((vcltq_s32(Load(v + I * kLanes), pivot) & ...));
}
template <int... I>
ZEPH_WIDE bool NoneAbove(const int* v, int x, std::integer_sequence<int, I...>) {
  const Vector pivot = Broadcast(x);
  return AllLanes(~(vcgtq_s32(Load(v + I * kLanes), pivot) | ...));
}

/// As in the network, two rows at a time.
template <int D, int... I>
ZEPH_WIDE void HalveColumns(Vector* rows, std::integer_sequence<int, I...> all) {
  constexpr int kRows = sizeof...(I);
  if constexpr (D > 0 && kRows == 1) {
    rows[0] = LowHigh<D>(rows[0], Flip<D>(rows[0]));
    HalveColumns<D / 2>(rows, all);
  } else if constexpr (D > 0) {
    for (int i = 0; i < kRows; i += 2) {
      if constexpr (D == 1) {
        const Vector low = vpminq_s32(rows[i], rows[i + 1]),
                     high = vpmaxq_s32(rows[i], rows[i + 1]);
        rows[i] = vzip1q_s32(low, high);
        rows[i + 1] = vzip2q_s32(low, high);
      } else {
        const Vector lower = Halves<1>(rows[i], rows[i + 1]),
                     upper = Halves<2>(rows[i], rows[i + 1]);
        const Vector low = Min(lower, upper), high = Max(lower, upper);
        rows[i] = Halves<1>(low, high);
        rows[i + 1] = Halves<2>(low, high);
      }
    }
    HalveColumns<D / 2>(rows, all);
  }
}

#include "kernels/sort_network.inc"  // first: the others use it

#include "kernels/sort_merge.inc"
#include "kernels/sort_quick.inc"

#include "kernels/sort_front_neon.inc"  // uses the merge

}  // namespace
}  // namespace ints

const Sorting kSorting = {doubles::OrderIsUnique,
                          doubles::Sort<double>,
                          ints::Sort<int>,
                          doubles::SplitLess<double>,
                          ints::SplitLess<int>,
                          doubles::AscendsByVectors<double>,
                          ints::AscendsByVectors<int>,
                          doubles::MergeWide<double>,
                          ints::MergeWide<int>,
                          doubles::TakeFrontQuietly<double>,
                          ints::TakeFrontQuietly<int>,
                          200};

}  // namespace zeph::kernels::neon

#endif  // ZEPH_NEON
