// SPDX-License-Identifier: MIT
//
// Plain loops, optimised by clang++ -O3. Compiled without fused arithmetic, which gives other
// results.
#include "textbook.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

#include "kernels/batch.h"
#include "kernels/chains.h"
#include "kernels/dense_product.h"
#include "kernels/elementwise.h"
#include "kernels/largest_magnitude.h"
#include "kernels/partition.h"
#include "kernels/row_sums.h"
#include "kernels/search.h"
#include "kernels/sort.h"

namespace zeph::arm_model {
namespace {

using namespace kernels;

// --- sort and merge ---

/// Quicksort around the median of three, short pieces by insertion.
template <class T>
void Sort(T* v, std::ptrdiff_t first, std::ptrdiff_t last) {
  while (last - first > 10) {
    const std::ptrdiff_t middle = first + (last - first) / 2;
    if (v[middle] < v[first]) std::swap(v[middle], v[first]);
    if (v[last] < v[first]) std::swap(v[last], v[first]);
    if (v[last] < v[middle]) std::swap(v[last], v[middle]);
    const T pivot = v[middle];
    std::ptrdiff_t i = first, j = last;
    while (i <= j) {
      while (v[i] < pivot) ++i;
      while (pivot < v[j]) --j;
      if (i <= j) std::swap(v[i++], v[j--]);
    }
    Sort(v, first, j);
    first = i;
  }
  for (std::ptrdiff_t i = first + 1; i <= last; ++i) {
    const T x = v[i];
    std::ptrdiff_t k = i;
    for (; k > first && x < v[k - 1]; --k) v[k] = v[k - 1];
    v[k] = x;
  }
}
template <class T>
void SortAll(T* v, std::size_t n) {
  Sort(v, 0, static_cast<std::ptrdiff_t>(n) - 1);
}

bool OrderIsUnique(const double* v, std::size_t n) {
  bool plus = false, minus = false;
  for (std::size_t i = 0; i < n; ++i) {
    if (v[i] != v[i]) return false;
    if (v[i] == 0) (std::signbit(v[i]) ? minus : plus) = true;
  }
  return !(plus && minus);
}

template <class T>
bool Ascends(const T* v, std::size_t n) {
  for (std::size_t i = 1; i < n; ++i)
    if (!(v[i - 1] <= v[i])) return false;
  return n != 1 || v[0] == v[0];
}
template <class T>
std::size_t SplitLess(T* v, std::size_t n, T pivot) {
  std::size_t less = 0;
  for (std::size_t i = 0; i < n; ++i)
    if (v[i] < pivot) std::swap(v[i], v[less++]);
  return less;
}
template <class T>
void Merge(const merge::Pair<T>& blocks) {
  merge::Pair<T> p = blocks;
  while (p.a < p.aEnd && p.b < p.bEnd) *p.out++ = *p.a < *p.b ? *p.a++ : *p.b++;
  while (p.a < p.aEnd) *p.out++ = *p.a++;
  while (p.b < p.bEnd) *p.out++ = *p.b++;
}
/// One element after another, as long as it comes from `a`.
template <class T>
void TakeFront(merge::Pair<T>& p) {
  while (p.a < p.aEnd && p.b < p.bEnd && *p.a < *p.b) *p.out++ = *p.a++;
}

// --- partition ---

Census Count(const double* v, std::size_t n) {
  Census census;
  for (std::size_t i = 0; i < n; ++i) {
    if (v[i] != v[i]) ++census.nans;
    if (v[i] == 0) {
      ++census.zeros;
      ++(std::signbit(v[i]) ? census.minus : census.plus);
    }
  }
  return census;
}
std::size_t Part(double* v, std::size_t n, double pivot) {
  std::size_t i = 0, j = n - 2;
  for (;;) {
    while (v[++i] < pivot) {
    }
    while (v[--j] > pivot) {
    }
    if (i >= j) break;
    std::swap(v[i], v[j]);
  }
  std::swap(v[i], v[n - 2]);
  return i;
}
std::uint64_t NotLess(const double* v, std::size_t n, double pivot) {
  std::uint64_t mask = 0;
  for (std::size_t i = 0; i < n; ++i)
    if (!(v[i] < pivot)) mask |= std::uint64_t{1} << i;
  return mask;
}
std::uint64_t NotGreater(const double* v, std::size_t n, double pivot) {
  std::uint64_t mask = 0;
  for (std::size_t i = 0; i < n; ++i)
    if (!(v[i] > pivot)) mask |= std::uint64_t{1} << i;
  return mask;
}
Bounds FindBounds(const double* v, std::size_t n) {
  Bounds bounds = {v[0], v[0]};
  for (std::size_t i = 0; i < n; ++i) {
    if (v[i] != v[i]) return {-HUGE_VAL, HUGE_VAL};
    if (v[i] < bounds.least) bounds.least = v[i];
    if (v[i] > bounds.greatest) bounds.greatest = v[i];
  }
  return bounds;
}

// --- searches ---

std::size_t FindFirst(const double* v, std::size_t n, double x) {
  for (std::size_t i = 0; i < n; ++i)
    if (v[i] == x) return i;
  return n;
}
std::size_t FindLast(const int* v, std::size_t n, int x) {
  for (std::size_t i = n; i > 0; --i)
    if (v[i - 1] == x) return i - 1;
  return n;
}
std::size_t FirstLeast(const double* v, std::size_t n) {
  std::size_t least = 0;
  for (std::size_t i = 1; i < n; ++i)
    if (v[i] < v[least]) least = i;
  return least;
}
bool NoneDescends(const double* v, std::size_t n) {
  for (std::size_t i = 1; i < n; ++i)
    if (v[i - 1] > v[i]) return false;
  return true;
}

// --- element-wise arithmetic, magnitudes, row sums, product ---

void Add(double* out, const double* a, const double* b, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = a[i] + b[i];
}
void Subtract(double* out, const double* a, const double* b, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = a[i] - b[i];
}
void Multiply(double* out, const double* a, const double* b, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = a[i] * b[i];
}
void Scale(double* out, double s, const double* a, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = s * a[i];
}
void SubtractFrom(double* out, double s, const double* a, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = s - a[i];
}
void Fill(double* out, double s, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = s;
}

double Largest(const double* x, std::size_t n) {
  double m = std::fabs(x[0]);
  for (std::size_t i = 1; i < n; ++i)
    if (std::fabs(x[i]) > m) m = std::fabs(x[i]);
  return m;
}
double LargestOrNaN(const double* x, std::size_t n) {
  double m = std::fabs(x[0]);
  for (std::size_t i = 0; i < n; ++i) {
    if (x[i] != x[i]) return x[i];
    if (!(m > std::fabs(x[i]))) m = std::fabs(x[i]);
  }
  return m;
}

void RowSum(double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
  for (std::size_t i = 0; i < rows; ++i) {
    double sum = 0;
    for (std::size_t j = 0; j < cols; ++j) sum += m[i][j];
    sums[i] = sum;
  }
}
void RowMagnitude(double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
  for (std::size_t i = 0; i < rows; ++i) {
    double sum = 0;
    for (std::size_t j = 0; j < cols; ++j) sum += std::fabs(m[i][j]);
    sums[i] = sum;
  }
}
double Hypotenuse(double a, double b) {
  if (a < 1e100 && b < 1e100) return std::sqrt(a * a + b * b);
  const double longer = a > b ? a : b, ratio = (a > b ? b : a) / longer;
  return longer * std::sqrt(1 + ratio * ratio);
}
void RowLength(double* lengths, const double* const* m, std::size_t rows, std::size_t cols) {
  for (std::size_t i = 0; i < rows; ++i) {
    double length = std::fabs(m[i][0]);
    for (std::size_t j = 1; j < cols; ++j) length = Hypotenuse(length, std::fabs(m[i][j]));
    lengths[i] = length;
  }
}
void RowDot(double* sums, const double* const* m, const double* v, std::size_t rows,
            std::size_t cols) {
  for (std::size_t i = 0; i < rows; ++i) {
    double sum = 0;
    for (std::size_t j = 0; j < cols; ++j) sum += m[i][j] * v[j];
    sums[i] = sum;
  }
}

void Dense(double* const* out, const double* const* a, const double* const* b, std::size_t rows,
           std::size_t inner, std::size_t cols) {
  for (std::size_t i = 0; i < rows; ++i)
    for (std::size_t j = 0; j < cols; ++j) {
      double sum = 0;
      for (std::size_t k = 0; k < inner; ++k) sum += a[i][k] * b[k][j];
      out[i][j] = sum;
    }
}

// --- arrays of small objects ---

template <class T>
T* At(T* p, std::size_t stride, std::size_t i) {
  return p + i * (stride / sizeof(T));
}

template <class T>
void Normalise(T* out, const T* v, std::size_t stride, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    const T* p = At(v, stride, i);
    T* to = At(out, stride, i);
    const T x = p[0], y = p[1], z = p[2], length = std::sqrt(x * x + y * y + z * z);
    if (sizeof(T) == sizeof(double)) {
      to[0] = x / length, to[1] = y / length, to[2] = z / length;
    } else if (length != 1 && length != 0) {
      const T scale = 1 / length;
      to[0] = x * scale, to[1] = y * scale, to[2] = z * scale;
    }
  }
}
template <class T>
void Dot(T* out, const T* a, const T* b, std::size_t stride, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    const T *p = At(a, stride, i), *q = At(b, stride, i);
    out[i] = p[0] * q[0] + p[1] * q[1] + p[2] * q[2];
  }
}
template <class T>
void Cross(T* out, const T* a, const T* b, std::size_t stride, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    const T *p = At(a, stride, i), *q = At(b, stride, i);
    const T x = p[1] * q[2] - p[2] * q[1], y = p[2] * q[0] - p[0] * q[2],
            z = p[0] * q[1] - p[1] * q[0];
    T* to = At(out, stride, i);
    to[0] = x, to[1] = y, to[2] = z;
  }
}
template <class T>
void BoundsOfVectors(T* low, T* high, const T* v, std::size_t stride, std::size_t n) {
  for (std::size_t i = 1; i < n; ++i)
    for (int c = 0; c < 3; ++c) {
      const T x = At(v, stride, i)[c];
      if (x < low[c]) low[c] = x;
      if (x > high[c]) high[c] = x;
    }
}
template <class T>
constexpr Vectors<T> kVectors = {Normalise<T>, Dot<T>, Cross<T>, BoundsOfVectors<T>};

void Directions(float* out, const float* v, std::size_t stride, const float* e, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    const float* p = At(v, stride, i);
    const float x = p[0], y = p[1], z = p[2];
    for (int c = 0; c < 3; ++c) At(out, stride, i)[c] = e[c] * x + e[4 + c] * y + e[8 + c] * z;
  }
}
void Points(float* out, const float* v, std::size_t stride, const float* e, bool divide,
            std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    const float* p = At(v, stride, i);
    float* to = At(out, stride, i);
    const float x = p[0], y = p[1], z = p[2];
    for (int c = 0; c < 3; ++c) to[c] = e[c] * x + e[4 + c] * y + e[8 + c] * z + e[12 + c];
    if (!divide) continue;
    const float w = e[3] * x + e[7] * y + e[11] * z + e[15];
    if (w != 0 && w != 1)
      for (int c = 0; c < 3; ++c) to[c] /= w;
  }
}
void VectorsOfFour(float* out, const float* v, std::size_t stride, const float* e, bool copyLast,
                   std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    const float* p = At(v, stride, i);
    const float x = p[0], y = p[1], z = p[2], w = p[3];
    for (int c = 0; c < 4; ++c)
      At(out, stride, i)[c] =
          copyLast && c == 3 ? w : e[c] * x + e[4 + c] * y + e[8 + c] * z + e[12 + c] * w;
  }
}

template <class T>
void ProductsOf(T* out, const T* m, std::size_t stride, const T* e, std::size_t n) {
  for (std::size_t k = 0; k < n; ++k) {
    const T* b = At(m, stride, k);
    T r[16];
    for (int j = 0; j < 4; ++j)
      for (int i = 0; i < 4; ++i) {
        T sum = e[i] * b[4 * j];
        for (int c = 1; c < 4; ++c) sum += e[4 * c + i] * b[4 * j + c];
        r[4 * j + i] = sum;
      }
    std::memcpy(At(out, stride, k), r, sizeof r);
  }
}
void FloatProducts(float* out, const float* m, std::size_t stride, const float* e, bool, bool,
                   std::size_t n) {
  ProductsOf(out, m, stride, e, n);
}

const Sorting kSorting = {OrderIsUnique,  SortAll<double>,   SortAll<int>,   SplitLess<double>,
                          SplitLess<int>, Ascends<double>,   Ascends<int>,   Merge<double>,
                          Merge<int>,     TakeFront<double>, TakeFront<int>, 0};
const Partitions kPartitions = {Count, Part, NotLess, NotGreater, FindBounds};
const Chains kChains = {[](double*, std::size_t, std::size_t) { return false; }, 1};
const Searching kSearching = {FindFirst, FindLast, FirstLeast, NoneDescends};
const Elementwise kElementwise = {Add, Subtract, Multiply, Scale, SubtractFrom, Fill};
const Magnitudes kMagnitudes = {Largest, LargestOrNaN};
const RowSums kRowSums = {RowSum, RowMagnitude, RowLength, RowDot};
const Products kProducts = {Dense};
const Batch kBatch = {kVectors<float>, kVectors<double>, Directions, Points, VectorsOfFour};
const BatchProducts kBatchProducts = {FloatProducts, ProductsOf<double>};

}  // namespace

const kernels::Table kTextbook = {"textbook",  &kSorting,     &kPartitions,   &kChains,
                                  &kSearching, &kElementwise, &kMagnitudes,   &kRowSums,
                                  &kProducts,  &kBatch,       &kBatchProducts};

}  // namespace zeph::arm_model
