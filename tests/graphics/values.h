// Generated vectors and matrices, and their comparison with plain arrays.
#ifndef ZEPH_TESTS_GRAPHICS_VALUES_H
#define ZEPH_TESTS_GRAPHICS_VALUES_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "graphics.h"
#include "oracle/graphics.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::test {

inline oracle::Vector Array(const CZEPHVector2D& v) {
  return {v.x, v.y};
}
inline oracle::Vector Array(const CZEPHVector3D& v) {
  return {v.x, v.y, v.z};
}
inline oracle::Vector Array(const CZEPHVector4D& v) {
  return {v.x, v.y, v.z, v.w};
}
inline oracle::Matrix Array(const CZEPHMatrix4x4& m) {
  oracle::Matrix r;
  std::copy(m.entries, m.entries + 16, r.begin());
  return r;
}

/// Every component has the same bits, where all NaNs are equal.
template <class V>
::testing::AssertionResult Same(const V& got, const oracle::Vector& want) {
  return SameValues(Array(got), want);
}
inline ::testing::AssertionResult Same(const CZEPHMatrix4x4& got, const oracle::Matrix& want) {
  return SameValues(got.entries, want.data(), 16);
}
inline ::testing::AssertionResult Same(const CZEPHMatrix4x4& got, const CZEPHMatrix4x4& want) {
  return SameValues(got.entries, want.entries, 16);
}
/// Every component has the same bits, a NaN's included.
template <class T>
::testing::AssertionResult Moved(const T& got, const T& want) {
  const auto a = Array(got), b = Array(want);
  return SameBits(a.data(), b.data(), a.size());
}

/// The operands that the current case has drawn, in order, for the message of a failure.
class DrawnOperands {
 public:
  static DrawnOperands& OfThisCase() {
    thread_local DrawnOperands drawn;  // proofs run in several threads
    return drawn;
  }
  void Clear() {
    names_.clear();
    values_.clear();
  }
  template <class T>
  void Note(const char* name, const T* values, std::size_t count) {
    if (names_.size() == kMost) Clear();  // a caller without cases clears nothing
    names_.emplace_back(name, count);
    values_.insert(values_.end(), values, values + count);
  }
  /// A line for each, with the bits of every value as a float, or as a double where it is not a
  /// float.
  std::string Text() const {
    std::string text;
    const double* value = values_.data();
    for (const auto& [name, count] : names_) {
      text += std::string("\n  ") + name;
      for (std::size_t i = 0; i < count; ++i, ++value) {
        const auto single = static_cast<float>(*value);
        text += " " + (SameValue<double>(single, *value) ? Show(single) : Show(*value));
      }
    }
    return text;
  }

 private:
  static constexpr std::size_t kMost = 1000;
  std::vector<std::pair<const char*, std::size_t>> names_;
  std::vector<double> values_;
};

/// Where twice a number, its square, or the sum of two overflow or become denormal, or just do not.
inline float EdgeFloat(Random& random) {
  static const float kMantissas[] = {1.0f, 1.0f + std::numeric_limits<float>::epsilon(), 1.0005f,
                                     1.5f, 2.0f - std::numeric_limits<float>::epsilon()};
  static const int kExponents[] = {127, 126, 125,  64,   63,   62,  -63,
                                   -64, -75, -125, -126, -127, -149};
  const float x = std::ldexp(kMantissas[random.Below(5)], kExponents[random.Below(13)]);
  return random.Below(2) ? x : -x;
}

/// Mostly moderate, sometimes awkward: special values one at a time and all at once.
inline float AnyFloatUnnoted(Random& random, bool awkward) {
  if (awkward) return AwkwardValue<float>(random);
  return static_cast<float>(random.Real(-10, 10));
}
inline float AnyFloat(Random& random, bool awkward) {
  const float x = AnyFloatUnnoted(random, awkward);
  DrawnOperands::OfThisCase().Note("number", &x, 1);
  return x;
}

template <class V>
V AnyVector(Random& random) {
  V v;
  const bool awkward = random.Below(3) == 0;
  for (std::size_t i = 0; i < Array(v).size(); ++i)
    (&v.x)[i] = AnyFloatUnnoted(random, awkward || random.Below(20) == 0);
  DrawnOperands::OfThisCase().Note("vector", &v.x, Array(v).size());
  return v;
}

/// A matrix of a random kind: any entries, small whole numbers (often singular), affine, affine but
/// for one entry of the bottom row, rigid.
inline CZEPHMatrix4x4 AnyMatrixUnnoted(Random& random) {
  CZEPHMatrix4x4 m;
  const std::size_t kind = random.Below(6);
  const bool awkward = random.Below(4) == 0;
  for (float& entry : m.entries)
    entry = kind == 1 ? static_cast<float>(random.Int(-2, 2)) : AnyFloatUnnoted(random, awkward);
  if (kind < 2) return m;
  if (kind == 2 && random.Below(2))
    m.SetRotationAxis(random.Real(-720, 720), AnyVector<CZEPHVector3D>(random));
  static const float kZeros[] = {0.0f, -0.0f};
  for (int i = 3; i < 15; i += 4) m.entries[i] = kZeros[random.Below(2)];
  m.entries[15] = 1.0f;
  if (kind < 4) {  // off by one ulp
    static const float kNearZero[] = {std::numeric_limits<float>::denorm_min(), 1e-38f, kNaNF,
                                      -std::numeric_limits<float>::denorm_min(), kInfinityF};
    static const float kNearOne[] = {1.0f + std::numeric_limits<float>::epsilon(), 0.99999994f,
                                     -1.0f, kNaNF, 0.0f};
    if (kind == 3) {
      const std::size_t at = random.Below(4);
      m.entries[4 * at + 3] = at == 3 ? kNearOne[random.Below(5)] : kNearZero[random.Below(5)];
    }
  }
  return m;
}

inline CZEPHMatrix4x4 AnyMatrix(Random& random) {
  const CZEPHMatrix4x4 m = AnyMatrixUnnoted(random);
  DrawnOperands::OfThisCase().Note("matrix, column by column:", m.entries, 16);
  return m;
}

/// Degrees of every size; special values among them.
inline double AnyAngleUnnoted(Random& random) {
  switch (random.Below(8)) {
    case 0:
      return AwkwardValue<double>(random);
    case 1:
      return 15.0 * random.Int(-48, 48);
    case 2:
      return random.Real(-1e6, 1e6);
    default:
      return random.Real(-360, 360);
  }
}

inline double AnyAngle(Random& random) {
  const double angle = AnyAngleUnnoted(random);
  DrawnOperands::OfThisCase().Note("angle", &angle, 1);
  return angle;
}

/// Calls `body(random)` for so many cases, or until a check fails, whose message then has the case
/// and its operands.
template <class Body>
void ForEachCase(std::size_t cases, std::uint64_t seed, Body body) {
  Random random(seed);
  for (std::size_t k = 0; k < cases && !::testing::Test::HasFailure(); ++k) {
    DrawnOperands::OfThisCase().Clear();
    body(random);
    if (::testing::Test::HasFailure())
      ADD_FAILURE() << "That was case " << k << " of " << cases << ", seed " << seed
                    << ", which drew" << DrawnOperands::OfThisCase().Text();
  }
}
template <class Body>
void ForEachCase(std::uint64_t seed, Body body) {
  ForEachCase(Scaled(100'000), seed, body);
}

/// What + and - of two vectors, and * by a number, give: each component by itself.
struct Componentwise {
  oracle::Vector sum, difference, scaled;
};
inline Componentwise ByComponents(const oracle::Vector& a, const oracle::Vector& b, float s) {
  Componentwise results = {a, a, a};
  for (std::size_t i = 0; i < a.size(); ++i) {
    results.sum[i] = oracle::Add(a[i], b[i]);
    results.difference[i] = oracle::Sub(a[i], b[i]);
    results.scaled[i] = oracle::Mul(a[i], s);
  }
  return results;
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_GRAPHICS_VALUES_H
