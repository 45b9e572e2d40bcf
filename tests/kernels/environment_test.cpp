// SPDX-License-Identifier: MIT
//
// Every form of the kernels and the processor's floating-point environment: what moves elements
// leaves control and status as they were, and lanes that belong to no element raise nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "kernels/batch.h"
#include "kernels/chains.h"
#include "kernels/dense_product.h"
#include "kernels/elementwise.h"
#include "kernels/largest_magnitude.h"
#include "kernels/merge.h"
#include "kernels/partition.h"
#include "kernels/row_sums.h"
#include "kernels/search.h"
#include "kernels/sort.h"
#include "support/bits.h"
#include "support/modes.h"
#include "support/not_finite.h"
#include "support/random.h"
#include "support/scale.h"

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

#if defined(__SSE2__) || defined(FE_INVALID)

namespace zeph::kernels {
namespace {

using test::kInfinity;
using test::kNaN;
using test::Random;
using Values = std::vector<double>;

class KernelEnvironment : public testing::TestWithParam<const Table*> {
 protected:
  void SetUp() override { Force(*GetParam()); }
  void TearDown() override { Force(*RunnableTables().back()); }
};

INSTANTIATE_TEST_SUITE_P(Forms, KernelEnvironment, testing::ValuesIn(RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

#if defined(__SSE2__)
constexpr unsigned kDenormalsAreZero = 0x0040, kFlushed = 0x8000, kAllFlags = 0x003F,
                   kDenormalTrap = 0x0100;

/// Numbers and one kind of zero, or of denormal, which counts as one.
Values WithDenormals(std::size_t n, std::uint64_t seed, double tiny, int distinct) {
  Random random(seed);
  Values v(n);
  for (double& x : v) x = random.Below(4) ? random.Int(-distinct, distinct) * 0.5 + 0.25 : tiny;
  return v;
}

/// Calls `work` with these bits in the control and status register; returns what it leaves there.
unsigned LeftBy(unsigned bits, const std::function<void()>& work) {
  const unsigned before = _mm_getcsr();
  _mm_setcsr(bits);
  work();
  const unsigned after = _mm_getcsr();
  _mm_setcsr(before);
  return after;
}

/// Bit for bit, whatever the modes say: ascending by the order of the bits of numbers.
std::vector<std::uint64_t> BitsInOrder(const Values& v) {
  std::vector<std::uint64_t> bits;
  for (const double x : v) bits.push_back(test::Bits(x));
  std::sort(bits.begin(), bits.end());
  return bits;
}

/// A processor with the environment's whole register: valgrind's keeps neither flags nor modes.
bool KeepsItsRegister() {
  return LeftBy(0x1F80 | kDenormalsAreZero | 1, [] {}) == (0x1F80 | kDenormalsAreZero | 1);
}

TEST_P(KernelEnvironment, SortsRestoreTheControlRegisterWhereDenormalsAreZero) {
  if (!KeepsItsRegister()) GTEST_SKIP() << "this processor's register is not a whole one";
  const double kTiny = std::numeric_limits<double>::denorm_min();
  for (const unsigned modes : {kDenormalsAreZero, kDenormalsAreZero | kFlushed})
    for (const unsigned flags : {0u, kAllFlags, 1u})
      for (const unsigned rounding : {0x0000u, 0x6000u})
        for (const std::size_t n : {2u, 9u, 40u, 130u, 257u, 3000u, 9000u})
          for (const int distinct : {2, 1000})
            for (const double tiny : {7 * kTiny, -3 * kTiny}) {
              const unsigned host = 0x1F80 | modes | flags | rounding;
              const Values before = WithDenormals(n, n, tiny, distinct);
              Values v = before;
              bool ascends = false;
              EXPECT_EQ(host, LeftBy(host,
                                     [&] {
                                       SortAscending(v.data(), n);
                                       ascends = std::is_sorted(v.begin(), v.end());
                                     }))
                  << n;
              EXPECT_TRUE(ascends) << n;
              EXPECT_EQ(BitsInOrder(before), BitsInOrder(v)) << n;
              if (n < kSplitFrom) continue;
              v = before;
              EXPECT_EQ(host,
                        LeftBy(host, [&] { Active().sorting->split_doubles(v.data(), n, 0.25); }))
                  << n;
              EXPECT_EQ(BitsInOrder(before), BitsInOrder(v)) << n;
            }
}

TEST_P(KernelEnvironment, SortsNeverTrapWhereDenormalsAreZero) {
  if (!KeepsItsRegister()) GTEST_SKIP() << "this processor's register is not a whole one";
  const double kTiny = std::numeric_limits<double>::denorm_min();
  const unsigned host = (0x1F80 | kDenormalsAreZero) & ~kDenormalTrap;
  for (const std::size_t n : {9u, 130u, 3000u, 9000u}) {
    Values v = WithDenormals(n, n, kTiny, 1000), w = v, x = WithDenormals(n, 3, 1.0, 1000);
    const auto middle = v.begin() + static_cast<std::ptrdiff_t>(n / 2);
    std::sort(v.begin(), middle);
    std::sort(middle, v.end());
    Values merged(n);
    EXPECT_EQ(host, LeftBy(host,
                           [&] {
                             const auto half = static_cast<std::ptrdiff_t>(n / 2);
                             MergeAscending(v.data(), half, v.data() + half,
                                            static_cast<std::ptrdiff_t>(n) - half, merged.data());
                             SortAscending(w.data(), n);
                             SortAscending(x.data(), n);
                           }))
        << n;
    EXPECT_TRUE(std::is_sorted(merged.begin(), merged.end())) << n;
  }
}

TEST_P(KernelEnvironment, SortsKeepTheDenormalTrapOfAHostThatKeepsDenormals) {
  if (!KeepsItsRegister()) GTEST_SKIP() << "this processor's register is not a whole one";
  const unsigned host = 0x1F80 & ~kDenormalTrap;
  for (const std::size_t n : {9u, 130u, 3000u, 9000u}) {
    Values v = WithDenormals(n, n, 1.0, 1000);  // and so without any, which would trap
    EXPECT_EQ(host, LeftBy(host, [&] { SortAscending(v.data(), n); })) << n;
    EXPECT_TRUE(std::is_sorted(v.begin(), v.end())) << n;
  }
}

/// What only moves or compares numbers, in a host that treats denormals as zeros: no flag, no mode.
TEST_P(KernelEnvironment, MovesAndComparisonsRestoreTheControlRegister) {
  if (!KeepsItsRegister()) GTEST_SKIP() << "this processor's register is not a whole one";
  const Table& t = Active();
  const double kTiny = std::numeric_limits<double>::denorm_min();
  for (const unsigned flags : {0u, kAllFlags})
    for (const std::size_t n : {3u, 8u, 17u, 64u, 100u, 333u}) {
      const Values numbers = WithDenormals(n, n, kTiny, 1000);
      Values v = numbers, out(n);
      const unsigned host = 0x1F80 | kDenormalsAreZero | kFlushed | flags;
      volatile std::uint64_t kept = 0;
      volatile double value = 0;
      EXPECT_EQ(host, LeftBy(host,
                             [&] {
                               kept = t.sorting->order_is_unique(v.data(), n);
                               kept = t.sorting->ascends_doubles(v.data(), n);
                               kept = t.searching->find_first(v.data(), n, 1e9);
                               kept = t.searching->first_least(v.data(), n);
                               kept = t.searching->none_descends(v.data(), n);
                               kept = t.partitions->census(v.data(), n).zeros;
                               value = t.partitions->bounds(v.data(), n).least;
                               kept = t.partitions->not_less(v.data(), n % 65, 1.0);
                               kept = t.partitions->not_greater(v.data(), n % 65, 1.0);
                               v[0] = -1e9;
                               kept = t.partitions->part(v.data(), n, v[n - 2]);
                               value = t.magnitudes->largest(v.data(), n);
                               value = t.magnitudes->largest_or_nan(v.data(), n);
                               t.elementwise->fill(out.data(), kTiny, n);
                               if (t.chains->abreast > 1 && n > t.chains->abreast)
                                 t.chains->sort(v.data(), n, t.chains->abreast);
                             }))
          << n;
      EXPECT_TRUE(test::SameBits(out, Values(n, kTiny))) << n;
    }
}
#endif

#ifdef FE_INVALID

/// Not where the processor raises too few, or the compiler speculates.
bool TellsExceptions() {
  return test::kFlagsAreKept && test::HasFloatingPointEnvironment();
}

/// The exceptions invalid, division by zero and overflow that `work` raises.
int Raised(const std::function<void()>& work) {
  return test::RaisedBy(test::Modes().front(), work);
}

/// What comes before and after the elements in memory: arithmetic with any of it raises invalid.
double Signalling() {
  return test::FromBits<double>(0x7FF4000000000000u);
}

/// `n` elements between signalling NaNs.
struct Framed {
  Framed(std::size_t n, double x, std::size_t skew = 3)
      : all(skew + n + 16, Signalling()), first(all.data() + skew) {
    for (std::size_t i = 0; i < n; ++i) first[i] = x;
  }
  Values all;
  double* first;
};

TEST_P(KernelEnvironment, ArithmeticRaisesExceptionsForItsElementsOnly) {
  if (!TellsExceptions()) GTEST_SKIP() << "exceptions are not told apart here";
  const Table& t = Active();
  const Elementwise& e = *t.elementwise;
  for (std::size_t n = 1; n <= 330; n += n < 80 || n > 250 ? 1 : 17)
    for (const std::size_t skew : {0u, 2u, 3u}) {
      const Framed a(n, kInfinity, skew), b(n, 2.0, skew + 1), out(n, 1.0, 5 - skew);
      EXPECT_EQ(0, Raised([&] {
                  e.add(out.first, a.first, b.first, n);
                  e.subtract(out.first, a.first, b.first, n);
                  e.multiply(out.first, a.first, b.first, n);
                  e.multiply(out.first, b.first, a.first, n);
                  e.scale(out.first, kInfinity, b.first, n);
                  e.scale(out.first, 2.0, a.first, n);
                  e.subtract_from(out.first, -kInfinity, b.first, n);
                  e.subtract_from(out.first, 1.0, a.first, n);
                  e.fill(out.first, kInfinity, n);
                  t.magnitudes->largest(a.first, n);
                  t.magnitudes->largest_or_nan(b.first, n);
                  t.sorting->order_is_unique(b.first, n);
                  t.sorting->ascends_doubles(b.first, n);
                  t.searching->find_first(b.first, n, 3.0);
                  t.searching->first_least(b.first, n);
                  t.searching->none_descends(b.first, n);
                  t.partitions->census(b.first, n);
                  t.partitions->bounds(b.first, n);
                  t.sorting->sort_doubles(b.first, n);
                }))
          << n << ", skew " << skew;
      if (n > 64) continue;
      EXPECT_EQ(0, Raised([&] {
                  t.partitions->not_less(b.first, n, 1.0);
                  t.partitions->not_greater(b.first, n, 1.0);
                }))
          << n;
    }
}

/// A scan that has found what ends it compares nothing behind, though whole vectors are read; and what
/// only looks for NaNs or equals raises nothing at all.
TEST_P(KernelEnvironment, ElementsTheStepsDoNotCompareRaiseNothing) {
  if (!TellsExceptions()) GTEST_SKIP() << "exceptions are not told apart here";
  const Table& t = Active();
  for (std::size_t n = 3; n <= 150; n += n < 80 ? 1 : 7)
    for (std::size_t at = 1; at + 1 < n; ++at) {
      Values v(n, 2.0);
      v[at] = 1.0;  // the first descent
      for (std::size_t behind : {at + 1, n - 1}) {
        v[behind] = kNaN;
        bool descends = false;
        EXPECT_EQ(0, Raised([&] { descends = !t.searching->none_descends(v.data(), n); }))
            << n << ' ' << at << ' ' << behind;
        EXPECT_TRUE(descends) << n << ' ' << at << ' ' << behind;
        if (behind != at + 1) v[behind] = 2.0;
      }
      EXPECT_EQ(0, Raised([&] {
                  t.searching->find_first(v.data(), n, 1.0);
                  t.searching->find_first(v.data(), n, kNaN);
                  t.sorting->order_is_unique(v.data(), n);
                  t.sorting->ascends_doubles(v.data(), n);
                  t.partitions->census(v.data(), n);
                  t.magnitudes->largest_or_nan(v.data(), 1);
                }))
          << n << ' ' << at;
    }
}

/// A merge whose one block runs out long before the other's NaN.
TEST_P(KernelEnvironment, MergesRaiseNothingForANaNTheyOnlyMove) {
  if (!TellsExceptions()) GTEST_SKIP() << "exceptions are not told apart here";
  for (const std::size_t n : {3u, 9u, 17u, 18u, 33u, 40u, 100u})
    for (std::size_t at = 2; at < n; at += 1 + n / 30)
      for (const std::size_t others : {1u, 5u, 17u, 40u, 90u}) {
        Values late(n, 2000.0), early(others), out(n + others);
        late[0] = 0.0;
        late[at] = kNaN;
        for (std::size_t i = 0; i < others; ++i) early[i] = 10.0 + static_cast<double>(i);
        const auto count = static_cast<std::ptrdiff_t>(n),
                   few = static_cast<std::ptrdiff_t>(others);
        EXPECT_EQ(0, Raised([&] {
                    MergeAscending(late.data(), count, early.data(), few, out.data());
                    MergeAscending(early.data(), few, late.data(), count, out.data());
                  }))
            << n << ", NaN at " << at << ", with " << others;
      }
}

/// An infinity in one row, numbers in the others, signalling NaNs around them all.
TEST_P(KernelEnvironment, RowSumsRaiseExceptionsForTheirRowsOnly) {
  if (!TellsExceptions()) GTEST_SKIP() << "exceptions are not told apart here";
  const RowSums& all = *Active().row_sums;
  for (std::size_t rows = 1; rows <= 26; ++rows)
    for (std::size_t cols = 1; cols <= 10; ++cols) {
      std::vector<Framed> blocks;
      std::vector<double*> m;
      for (std::size_t i = 0; i < rows; ++i) blocks.emplace_back(cols, 2.0, i % 4);
      for (const Framed& block : blocks) m.push_back(block.first);
      const Framed factors(cols, 2.0);
      Values sums(rows);
      for (std::size_t at = 0; at < rows; ++at)
        for (const double x : {kInfinity, 0.0, 300.0}) {
          // A row of zeros, or one whose length takes the other way than its neighbours'.
          std::fill_n(m[at], cols, x);
          EXPECT_EQ(0, Raised([&] {
                      all.sum(sums.data(), m.data(), rows, cols);
                      all.magnitude(sums.data(), m.data(), rows, cols);
                      all.dot(sums.data(), m.data(), factors.first, rows, cols);
                      if (x != kInfinity) all.length(sums.data(), m.data(), rows, cols);
                    }))
              << rows << " by " << cols << ", " << x << " in row " << at;
          std::fill_n(m[at], cols, 2.0);
        }
    }
}

TEST_P(KernelEnvironment, ProductsRaiseExceptionsForTheirEntriesOnly) {
  if (!TellsExceptions()) GTEST_SKIP() << "exceptions are not told apart here";
  const auto check = [](std::size_t rows, std::size_t inner, std::size_t cols) {
    std::vector<Framed> left, right, results;
    std::vector<double*> a, b, c;
    for (std::size_t i = 0; i < rows; ++i)
      left.emplace_back(inner, 2.0), results.emplace_back(cols, 1.0);
    for (std::size_t k = 0; k < inner; ++k) right.emplace_back(cols, 2.0, k % 4);
    for (std::size_t i = 0; i < rows; ++i)
      a.push_back(left[i].first), c.push_back(results[i].first);
    for (std::size_t k = 0; k < inner; ++k) b.push_back(right[k].first);
    a[rows / 2][inner / 3] = kInfinity;
    EXPECT_EQ(0, Raised([&] { DenseProduct(c.data(), a.data(), b.data(), rows, inner, cols); }))
        << rows << " x " << inner << " x " << cols;
    for (std::size_t i = 0; i < rows; ++i)
      for (std::size_t j = 0; j < cols; ++j)
        ASSERT_EQ(i == rows / 2 ? kInfinity : 4.0 * static_cast<double>(inner), c[i][j])
            << rows << " x " << inner << " x " << cols << " at " << i << ", " << j;
  };
  for (const std::size_t rows : {1u, 2u, 5u, 9u})
    for (const std::size_t inner : {1u, 3u, 260u})
      for (std::size_t cols = 1; cols <= (inner > 3 ? 27 : 50); ++cols) check(rows, inner, cols);
  for (std::size_t cols = 41; cols <= 49; ++cols) check(48, 258, cols);  // copied, by four lanes
  for (std::size_t cols = 393; cols <= 417; cols += test::Scaled<std::size_t>(1, 6))
    check(33, 261, cols);  // by eight
}

/// Objects 24 bytes apart with something else between their components: it is neither written nor
/// takes part in arithmetic, in place or not.
template <class T>
class Objects {
 public:
  static constexpr std::size_t kEach = 24 / sizeof(T);
  Objects(std::size_t n, std::uint32_t between) : bits_(24 * n + 64) {
    const T filled = test::FromBits<T>(
        static_cast<test::BitsOf<T>>(sizeof(T) == 4 ? between : std::uint64_t{between} << 32));
    for (std::size_t i = 0; i + 1 < bits_.size() / sizeof(T); ++i)
      std::memcpy(&bits_[i * sizeof(T)], &filled, sizeof filled);
  }
  T* First() { return reinterpret_cast<T*>(bits_.data()) + (sizeof(T) == 4 ? 2 : 0); }
  T* At(std::size_t i) { return First() + i * kEach; }
  std::vector<unsigned char> bits_;
};

/// Signalling NaNs of two payloads, to tell what lies between results from what lies between operands.
constexpr std::uint32_t kBetween[] = {0x7F9A0001u, 0x7F9B0002u, 0x7F9C0003u};

template <class T>
void ExpectOnlyComponentsWritten(Objects<T>& out, Objects<T> before, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) std::copy_n(out.At(i), 3, before.At(i));
  ASSERT_EQ(before.bits_, out.bits_) << n;
}

template <class T>
void VectorsRaiseNothing(const Vectors<T>& all, std::size_t n) {
  const auto make = [n](std::size_t which) {
    Objects<T> objects(n, kBetween[which]);
    for (std::size_t i = 0; i < n; ++i) {
      const T zero = i % 3 == 2 ? T(0) : T(1);
      objects.At(i)[0] = zero * T(3), objects.At(i)[1] = zero * T(4), objects.At(i)[2] = T(0);
    }
    return objects;
  };
  using Step = std::function<void(T * out, const T* a, const T* b)>;
  std::vector<T> dots(n + 8, T(77));
  // The length of a double vector divides, whatever it is; a float vector without length stays.
  std::vector<Step> steps = {[&](T* out, const T* a, const T* b) { all.cross(out, a, b, 24, n); }};
  if (sizeof(T) == 4)
    steps.push_back([&](T* out, const T* a, const T*) { all.normalise(out, a, 24, n); });
  for (const Step& step : steps) {
    Objects<T> a = make(0), b = make(1), out = make(2);
    const Objects<T> before = out;
    EXPECT_EQ(0, Raised([&] { step(out.First(), a.First(), b.First()); })) << n;
    ExpectOnlyComponentsWritten(out, before, n);
    Objects<T> inPlace = a;
    step(inPlace.First(), inPlace.First(), b.First());
    ExpectOnlyComponentsWritten(inPlace, a, n);
    Objects<T> second = b;
    step(second.First(), a.First(), second.First());
    ExpectOnlyComponentsWritten(second, b, n);
    for (std::size_t i = 0; i < n; ++i) {
      ASSERT_TRUE(test::SameValues(out.At(i), inPlace.At(i), 3)) << n << ' ' << i;
    }
  }
  Objects<T> a = make(0), b = make(1);
  EXPECT_EQ(0, Raised([&] {
              all.dot(dots.data(), a.First(), b.First(), 24, n);
              T low[3] = {1, 1, 1}, high[3] = {1, 1, 1};
              all.bounds(low, high, a.First(), 24, n);
            }))
      << n;
  for (std::size_t i = n; i < dots.size(); ++i) ASSERT_EQ(T(77), dots[i]) << n;
}

TEST_P(KernelEnvironment, BytesBetweenComponentsNeitherRaiseNorChange) {
  if (!TellsExceptions()) GTEST_SKIP() << "exceptions are not told apart here";
  const Batch& all = *Active().batch;
  const float affine[16] = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 1};
  float projecting[16];
  std::copy_n(affine, 16, projecting);
  projecting[3] = 1;  // w is x - 2 z: 1, 0 and others by the object
  projecting[11] = -2;
  projecting[15] = 0;
  for (std::size_t n = 1; n <= 40; ++n) {
    VectorsRaiseNothing<float>(all.floats, n);
    VectorsRaiseNothing<double>(all.doubles, n);
    Objects<float> a(n, kBetween[0]);
    for (std::size_t i = 0; i < n; ++i) {
      const auto k = static_cast<float>(i % 5);
      a.At(i)[0] = k, a.At(i)[1] = 1, a.At(i)[2] = i % 2 ? k / 2 : 0;
    }
    using Step = std::function<void(float* out)>;
    for (const Step& step :
         {Step([&](float* out) { all.directions(out, a.First(), 24, affine, n); }),
          Step([&](float* out) { all.points(out, a.First(), 24, affine, false, n); }),
          Step([&](float* out) { all.points(out, a.First(), 24, projecting, true, n); })}) {
      Objects<float> out(n, kBetween[1]);
      const Objects<float> before = out;
      EXPECT_EQ(0, Raised([&] { step(out.First()); })) << n;
      ExpectOnlyComponentsWritten(out, before, n);
    }
  }
}

/// Also a signalling NaN's, and a denormal's in a host that flushes.
TEST_P(KernelEnvironment, ACopiedLastComponentKeepsItsBits) {
  const float affine[16] = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 0, 0, 0, 1};
  for (const test::Mode& mode : test::Modes())
    for (std::size_t n = 1; n <= 20; ++n) {
      constexpr std::uint32_t kLast[] = {0x7FA00001u, 0xFFC00123u, 0x00000007u, 0x80000000u,
                                         0x7F800000u};
      std::vector<float> v(6 * n, 1.0F), out(6 * n, 1.0F);
      for (std::size_t i = 0; i < n; ++i) std::memcpy(&v[6 * i + 3], &kLast[i % 5], 4);
      test::RaisedBy(mode,
                     [&] { Active().batch->vectors(out.data(), v.data(), 24, affine, true, n); });
      for (std::size_t i = 0; i < n; ++i)
        ASSERT_EQ(0, std::memcmp(&out[6 * i + 3], &kLast[i % 5], 4)) << mode.name << ' ' << i;
    }
}

/// Every operand of a product of matrices by the affine ways: what those do not need raises nothing.
TEST_P(KernelEnvironment, AffineProductsRaiseNothingForTheRowsTheySkip) {
  if (!TellsExceptions()) GTEST_SKIP() << "exceptions are not told apart here";
  const BatchProducts& all = *Active().batch_products;
  const float kInf = std::numeric_limits<float>::infinity();
  const float e[16] = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, kInf, 11, 12, 1};
  for (const bool first : {false, true})
    for (const bool second : {false, true})
      for (std::size_t n = 1; n <= 5; ++n) {
        std::vector<float> m(16 * n, 2.0F), out(16 * n + 4, 77.0F);
        for (std::size_t i = 0; i < n; ++i) {
          float* x = &m[16 * i];
          x[0] = kInf;
          if (second) x[3] = x[7] = x[11] = 0, x[15] = 1;
        }
        // Without the affine ways 0 times infinity is invalid, in the bottom row or the last column.
        const int raised =
            Raised([&] { all.floats(out.data(), m.data(), 64, e, first, second, n); });
        EXPECT_EQ(first ? 0 : FE_INVALID, raised) << first << second << n;
        for (std::size_t i = 16 * n; i < out.size(); ++i) ASSERT_EQ(77.0F, out[i]);
      }
}
#endif

}  // namespace
}  // namespace zeph::kernels

#endif
