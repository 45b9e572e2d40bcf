// SPDX-License-Identifier: MIT
#include "raw_buffers/matrix_alloc.h"

#include <algorithm>

#include "raw_buffers.h"

namespace zeph::raw_buffers {
namespace {

template <class T>
T** AllocRange(int nrl, int nrh, int ncl, int nch, long int* bytes) {
  return AllocMatrix<T>(RangeCount(nrl, nrh), RangeCount(ncl, nch), nrl, ncl, bytes);
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

#define ZEPH_DEFINE(T, Alloc)                                             \
  T** Alloc(char*, int rows, int cols) {                                  \
    return AllocMatrix<T>(rows, cols, 0, 0, nullptr);                     \
  }                                                                       \
  T** Alloc(char*, int rows, int cols, long int& bytes) {                 \
    return AllocMatrix<T>(rows, cols, 0, 0, &bytes);                      \
  }                                                                       \
  T** Alloc(char*, int nrl, int nrh, int ncl, int nch) {                  \
    return AllocRange<T>(nrl, nrh, ncl, nch, nullptr);                    \
  }                                                                       \
  T** Alloc(char*, int nrl, int nrh, int ncl, int nch, long int& bytes) { \
    return AllocRange<T>(nrl, nrh, ncl, nch, &bytes);                     \
  }                                                                       \
  void ZEPH_MatrixFree(T** m, int rows, int /*cols*/) {                   \
    RequireMatrix(__func__, m, 0, std::max(rows, 0) - 1, 0);              \
    FreeMatrix(m, 0, std::max(rows, 0) - 1, 0);                           \
  }                                                                       \
  void ZEPH_MatrixFree(T** m, int nrl, int nrh, int ncl, int /*nch*/) {   \
    RequireMatrix(__func__, m, nrl, nrh, ncl);                            \
    FreeMatrix(m, nrl, nrh, ncl);                                         \
  }
ZEPH_DEFINE(double, ZEPH_MatrixAllocDouble)
ZEPH_DEFINE(float, ZEPH_MatrixAllocFloat)
ZEPH_DEFINE(int, ZEPH_MatrixAllocInt)
ZEPH_DEFINE(ZEPH_Long, ZEPH_MatrixAllocLong)
#undef ZEPH_DEFINE
