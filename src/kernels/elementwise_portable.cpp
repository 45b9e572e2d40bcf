// SPDX-License-Identifier: MIT
//
// What the operations mean. The plain loops are what compilers vectorise for the baseline.
#include "kernels/elementwise.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

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

}  // namespace

const Elementwise portable::kElementwise = {Add, Subtract, Multiply, Scale, SubtractFrom, Fill};

}  // namespace zeph::kernels
