// Shared by the tests of the double array.
#ifndef ZEPH_TESTS_DOUBLE_ARRAY_ARRAYS_H
#define ZEPH_TESTS_DOUBLE_ARRAY_ARRAYS_H

#include <vector>

#include "double_array.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

namespace zeph::test {

/// Seven values that compare in every way: ties that differ in their bits, a NaN, infinities.
inline const std::vector<double>& Alphabet() {
  static const std::vector<double> values = {-kInfinity, -1, -0.0, 0.0, 1, kInfinity, kNaN};
  return values;
}

inline CZEPHDoubleArray ArrayOf(const std::vector<double>& v) {
  return CZEPHDoubleArray(static_cast<int>(v.size()), v.data());
}

inline std::vector<double> ElementsOf(const CZEPHDoubleArray& a) {
  return std::vector<double>(a.begin(), a.end());
}

inline std::string Show(const std::vector<double>& v) {
  std::string text = std::to_string(v.size()) + " elements:";
  for (std::size_t i = 0; i < v.size() && i < 40; ++i) text += " " + Show(v[i]);
  return text;
}

/// An array without storage but with a `size`, as after a failed allocation.
inline CZEPHDoubleArray WithoutStorage(int size) {
  CZEPHDoubleArray a(-1, 0.0);
  a.size = size;
  return a;
}

/// An empty array with access to the storage helpers.
class OpenArray : public CZEPHDoubleArray {
 public:
  using CZEPHDoubleArray::AllocMemory;
  using CZEPHDoubleArray::FreeMemory;
};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_DOUBLE_ARRAY_ARRAYS_H
