// Arrays of objects that end or begin at a page boundary, beside inaccessible pages.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "batch/inputs.h"
#include "support/modes.h"

namespace zeph::test {
namespace {

/// Generated objects on pages of their own.
template <class Object>
class OnPages {
 public:
  OnPages(int n, bool atEnd, std::uint64_t seed)
      : n_(static_cast<std::size_t>(n)), at_(pages_.Room<Object>(n_, atEnd)) {
    const auto from = Generated<Object>(Kind::kModerate, n_, seed);
    std::uninitialized_copy(from.begin(), from.end(), at_);
  }
  ~OnPages() { std::destroy_n(at_, n_); }
  OnPages(const OnPages&) = delete;
  OnPages& operator=(const OnPages&) = delete;
  operator Object*() const { return at_; }

 private:
  const Guarded pages_;
  std::size_t n_;
  Object* at_;
};

TEST(BatchGuardPages, EveryOperationStaysInBounds) {
  ForEachForm([](const std::string&) {
    for (const bool atEnd : {true, false})
      for (const int n : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 33}) {
        const OnPages<CZEPHVector3D> v(n, atEnd, 1), w(n, atEnd, 2);
        const OnPages<CZEPHVector4D> fours(n, atEnd, 3), outFours(n, atEnd, 4);
        const OnPages<CZEPHMatrix4x4> matrices(n, atEnd, 5), outMatrices(n, atEnd, 6);
        const OnPages<CZEPHVector3> d(n, atEnd, 7), e(n, atEnd, 8);
        const OnPages<CZEPHMatrix4> doubles(n, atEnd, 9), outDoubles(n, atEnd, 10);
        const Guarded pages;
        const CZEPHMatrix4x4 affine;
        for (const CZEPHMatrix4x4* m : {&affine, static_cast<const CZEPHMatrix4x4*>(matrices)}) {
          ZEPH_BatchTransformPoints(*m, v, w, n);
          ZEPH_BatchTransformDirections(*m, v, w, n);
          ZEPH_BatchTransformVectors(*m, fours, outFours, n);
          ZEPH_BatchMultiply(*m, matrices, outMatrices, n);
        }
        ZEPH_BatchMultiply(doubles[0], doubles, outDoubles, n);
        for (const double angle : {0.0, 30.0}) ZEPH_BatchRotateAxis(angle, v[0], v, w, n);
        ZEPH_BatchNormalize(v, w, n);
        ZEPH_BatchNormalize(d, e, n);
        ZEPH_BatchCross(v, w, w, n);
        ZEPH_BatchCross(d, e, e, n);
        ZEPH_BatchDot(v, w, pages.Room<float>(static_cast<std::size_t>(n), atEnd), n);
        ZEPH_BatchDot(d, e, pages.Room<double>(static_cast<std::size_t>(n), atEnd), n);
        EXPECT_EQ(ZEPH_BatchBounds(v, n, w[0], w[n - 1]), 1);
        EXPECT_EQ(ZEPH_BatchBounds(d, n, e[0], e[n - 1]), 1);
      }
  });
}

}  // namespace
}  // namespace zeph::test
#endif
