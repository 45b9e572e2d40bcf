// SPDX-License-Identifier: MIT
//
// The definition of the operations. Elements are taken eight at a time, all read before any is
// written: so compilers need no overlap check, and vectorise for the baseline without a branch
// after every vector.
#include "kernels/elementwise.h"
#include "kernels/forms.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kAtOnce = 8;

/// out[i] = value(i).
template <class Value>
inline void ForEach(double* out, std::size_t n, Value value) {
  std::size_t i = 0;
  for (; i + kAtOnce <= n; i += kAtOnce) {
    double values[kAtOnce];
    for (std::size_t k = 0; k < kAtOnce; ++k) values[k] = value(i + k);
    for (std::size_t k = 0; k < kAtOnce; ++k) out[i + k] = values[k];
  }
  for (; i < n; ++i) out[i] = value(i);
}

void Add(double* out, const double* a, const double* b, std::size_t n) {
  ForEach(out, n, [=](std::size_t i) { return a[i] + b[i]; });
}
void Subtract(double* out, const double* a, const double* b, std::size_t n) {
  ForEach(out, n, [=](std::size_t i) { return a[i] - b[i]; });
}
void Multiply(double* out, const double* a, const double* b, std::size_t n) {
  ForEach(out, n, [=](std::size_t i) { return a[i] * b[i]; });
}
void Scale(double* out, double s, const double* a, std::size_t n) {
  ForEach(out, n, [=](std::size_t i) { return s * a[i]; });
}
void SubtractFrom(double* out, double s, const double* a, std::size_t n) {
  ForEach(out, n, [=](std::size_t i) { return s - a[i]; });
}
void Fill(double* out, double s, std::size_t n) {
  ForEach(out, n, [=](std::size_t) { return s; });
}

}  // namespace

const Elementwise portable::kElementwise = {Add, Subtract, Multiply, Scale, SubtractFrom, Fill};

}  // namespace zeph::kernels
