// SPDX-License-Identifier: MIT
//
// The definition of the operations: one object at a time.
#include <cmath>
#include <cstring>
#include <type_traits>

#include "kernels/batch.h"
#include "kernels/forms.h"
#include "platform/choose.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_FORM
template <class T>
struct One;
template <class T>
using Wide = One<T>;
#include "kernels/batch.inc"

void FloatProducts(float* out, const float* m, std::size_t stride, const float* e, bool firstAffine,
                   bool secondAffine, std::size_t n) {
  const int rows = firstAffine ? 3 : 4;
  for (std::size_t k = 0; k < n; ++k) {
    const float* b = At(m, stride, k);
    float* to = At(out, stride, k);
    float r[16];
    for (int j = 0; j < 4; ++j) {
      const float* column = b + 4 * j;
      for (int i = 0; i < rows; ++i) {
        r[4 * j + i] = e[i] * column[0] + e[4 + i] * column[1] + e[8 + i] * column[2];
        if (!secondAffine)
          r[4 * j + i] += e[12 + i] * column[3];
        else if (j == 3)
          r[4 * j + i] += e[12 + i];
      }
      if (firstAffine) r[4 * j + 3] = secondAffine ? (j == 3 ? 1.0f : 0.0f) : column[3];
    }
    std::memcpy(to, r, sizeof r);
  }
}

void DoubleProducts(double* out, const double* m, std::size_t stride, const double* e,
                    std::size_t n) {
  for (std::size_t k = 0; k < n; ++k) {
    const double* b = At(m, stride, k);
    double r[16];
    for (int j = 0; j < 4; ++j)
      for (int i = 0; i < 4; ++i)
        r[i + 4 * j] = e[i] * b[4 * j] + e[i + 4] * b[4 * j + 1] + e[i + 8] * b[4 * j + 2] +
                       e[i + 12] * b[4 * j + 3];
    std::memcpy(At(out, stride, k), r, sizeof r);
  }
}

}  // namespace

const Batch portable::kBatch = {kVectors<float>, kVectors<double>, Directions, Points,
                                VectorsOfFour};
const BatchProducts portable::kBatchProducts = {FloatProducts, DoubleProducts};

}  // namespace zeph::kernels
