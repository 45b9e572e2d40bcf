// Arrays of small objects, made from generated components, and their components.
#ifndef ZEPH_TESTS_BATCH_INPUTS_H
#define ZEPH_TESTS_BATCH_INPUTS_H

#include <cstddef>
#include <vector>

#include "batch.h"
#include "support/numbers.h"

namespace zeph::test {

inline float* Components(CZEPHVector3D& v) {
  return &v.x;
}
inline float* Components(CZEPHVector4D& v) {
  return &v.x;
}
inline float* Components(CZEPHMatrix4x4& m) {
  return m.entries;
}
inline double* Components(CZEPHVector3& v) {
  return &v.m_x;
}
inline double* Components(CZEPHMatrix4& m) {
  return m.m_data;
}

template <class Object>
inline constexpr std::size_t kComponents = 3;
template <>
inline constexpr std::size_t kComponents<CZEPHVector4D> = 4;
template <>
inline constexpr std::size_t kComponents<CZEPHMatrix4x4> = 16;
template <>
inline constexpr std::size_t kComponents<CZEPHMatrix4> = 16;

template <class Object>
using Component = std::remove_pointer_t<decltype(Components(std::declval<Object&>()))>;

/// Objects made of consecutive `values`.
template <class Object>
std::vector<Object> Objects(const std::vector<Component<Object>>& values) {
  std::vector<Object> objects(values.size() / kComponents<Object>);
  std::size_t k = 0;
  for (Object& object : objects)
    for (std::size_t c = 0; c < kComponents<Object>; ++c) Components(object)[c] = values[k++];
  return objects;
}
template <class Object>
std::vector<Component<Object>> Values(std::vector<Object> objects) {
  std::vector<Component<Object>> values;
  for (Object& object : objects)
    values.insert(values.end(), Components(object), Components(object) + kComponents<Object>);
  return values;
}

/// Kinds of components: anything, moderate ones, units and zeros of both signs, denormals, ones whose products
/// overflow, and moderate ones with quiet NaNs among them, of which no arithmetic raises an exception.
enum class Kind { kAwkward, kModerate, kUnits, kDenormal, kHuge, kQuietNans };
constexpr const char* kKindNames[] = {"awkward",  "moderate", "units",
                                      "denormal", "huge",     "quiet NaNs"};
constexpr Kind kKinds[] = {Kind::kAwkward,  Kind::kModerate, Kind::kUnits,
                           Kind::kDenormal, Kind::kHuge,     Kind::kQuietNans};

template <class T>
std::vector<T> Numbers(Kind kind, std::size_t n, std::uint64_t seed) {
  if (kind == Kind::kAwkward) return Awkward<T>(n, seed);
  if (kind == Kind::kModerate) return Moderate<T>(n, seed, -4, 4);
  using Limits = std::numeric_limits<T>;
  const T units[] = {T(0), -T(0), T(1), T(-1)};
  Random random(seed);
  std::vector<T> values(n);
  for (T& x : values) {
    const T part = static_cast<T>(random.Real(-1, 1));
    if (kind == Kind::kUnits)
      x = units[random.Below(4)];
    else if (kind == Kind::kQuietNans)
      x = random.Below(6) == 0 ? Limits::quiet_NaN() : 1 + part;
    else
      x = kind == Kind::kDenormal ? Limits::min() * part : Limits::max() * part;
  }
  return values;
}

template <class Object>
std::vector<Object> Generated(Kind kind, std::size_t n, std::uint64_t seed) {
  return Objects<Object>(Numbers<Component<Object>>(kind, n * kComponents<Object>, seed));
}

/// All sizes up to 67 and those around the forms' thresholds.
inline std::vector<int> AllSizes() {
  std::vector<int> sizes;
  for (int n = 0; n <= 67; ++n) sizes.push_back(n);
  return sizes;
}
constexpr int kSomeSizes[] = {1, 3, 4, 5, 8, 9, 16, 19, 35};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_BATCH_INPUTS_H
