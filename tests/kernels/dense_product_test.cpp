// The dense product in every form against the literal triple loop.
#include "kernels/dense_product.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "kernels/memory.h"
#include "oracle/dense_product.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

using oracle::Rows;
using test::kInfinity;
using test::Random;

constexpr double kGuard = -7.25;
constexpr std::size_t kGuards = 8;

/// Rows in blocks of their own, each `skew` doubles off alignment and between guards.
class Matrix {
 public:
  Matrix(const Rows& values, std::size_t rows, std::size_t cols, std::size_t skew)
      : cols_(cols), skew_(skew) {
    blocks_.assign(rows, std::vector<double>(skew + cols + kGuards, kGuard));
    for (std::size_t i = 0; i < rows; ++i) {
      for (std::size_t j = 0; j < cols && !values.empty(); ++j) blocks_[i][skew + j] = values[i][j];
      pointers_.push_back(blocks_[i].data() + skew);
    }
  }
  double* const* Pointers() const { return pointers_.data(); }
  ::testing::AssertionResult GuardsHold() const {
    for (const auto& block : blocks_)
      for (std::size_t j = 0; j < block.size(); ++j)
        if ((j < skew_ || j >= skew_ + cols_) && block[j] != kGuard)
          return ::testing::AssertionFailure() << "guard " << j << " overwritten";
    return ::testing::AssertionSuccess();
  }

 private:
  std::size_t cols_, skew_;
  std::vector<std::vector<double>> blocks_;
  std::vector<double*> pointers_;
};

template <class Make>
Rows MakeRows(std::size_t rows, std::size_t cols, Make make) {
  Rows values(rows, std::vector<double>(cols));
  for (auto& row : values)
    for (double& x : row) x = make();
  return values;
}

template <class Make>
void CompareWithOracle(std::size_t rows, std::size_t inner, std::size_t cols, std::size_t skew,
                       Make make) {
  const Rows a = MakeRows(rows, inner, make), b = MakeRows(inner, cols, make);
  const Rows want = oracle::DenseProduct(a, b, rows, inner, cols);
  const Matrix left(a, rows, inner, skew), right(b, inner, cols, skew);
  for (const Table* form : RunnableTables()) {
    SCOPED_TRACE(std::string(form->name) + " " + std::to_string(rows) + "x" +
                 std::to_string(inner) + "x" + std::to_string(cols) + " skew " +
                 std::to_string(skew));
    const Matrix out({}, rows, cols, skew);
    form->products->dense(out.Pointers(), left.Pointers(), right.Pointers(), rows, inner, cols);
    for (std::size_t i = 0; i < rows; ++i)
      ASSERT_TRUE(test::SameValues(out.Pointers()[i], want[i].data(), cols)) << "row " << i;
    ASSERT_TRUE(out.GuardsHold()) << "a place beside the result was written";
  }
}

TEST(DenseProduct, MatchesTheTripleLoopOnEverySmallShape) {
  Random random(1);
  for (std::size_t rows = 0; rows <= 9; ++rows)
    for (std::size_t inner = 0; inner <= 5; ++inner)
      for (std::size_t cols = 0; cols <= 33; ++cols)
        CompareWithOracle(rows, inner, cols, (rows + cols) % 4,
                          [&] { return random.Real(-10, 10); });
}

TEST(DenseProduct, MatchesTheTripleLoopOnSampledShapesOfUpToForty) {
  Random random(2);
  for (int round = 0; round < 400; ++round)
    CompareWithOracle(random.Below(41), random.Below(41), random.Below(41), random.Below(4),
                      [&] { return random.Real(-1e3, 1e3); });
}

TEST(DenseProduct, KeepsNaNInfinitiesSignedZerosAndDenormals) {
  Random random(3);
  for (int round = 0; round < 200; ++round)
    CompareWithOracle(random.Below(41), random.Below(5), random.Below(41), random.Below(4),
                      [&] { return test::AwkwardValue<double>(random); });
}

TEST(DenseProduct, StartsEachEntryAtPositiveZero) {
  Random random(4);
  for (std::size_t n = 1; n <= 40; ++n)
    CompareWithOracle(n, 3, n, 0, [&] { return random.Below(2) ? -0.0 : 0.0; });
}

TEST(DenseProduct, AddsInIncreasingOrderWhereLargeTermsCancel) {
  static const double kTerms[] = {1e300, -1e300, 1e-300, 1.0, -1.0, 0x1p53, -0x1p53, 3.0};
  Random random(5);
  for (int round = 0; round < 60; ++round)
    CompareWithOracle(1 + random.Below(40), 1 + random.Below(40), 1 + random.Below(40), 1,
                      [&] { return kTerms[random.Below(8)]; });
}

TEST(DenseProduct, RoundsTheProductBeforeItIsAdded) {
  // (1 + e)(1 - e) = 1 - e^2 rounds to 1; a fused step would keep the e^2.
  const double e = std::numeric_limits<double>::epsilon();
  for (std::size_t n : {1u, 4u, 8u, 16u, 30u, 64u}) {
    const Rows a(n, {-1.0, 1.0 + e});
    const Rows b = {std::vector<double>(n, 1.0), std::vector<double>(n, 1.0 - e)};
    const Matrix left(a, n, 2, 0), right(b, 2, n, 0);
    for (const Table* form : RunnableTables()) {
      const Matrix out({}, n, n, 0);
      form->products->dense(out.Pointers(), left.Pointers(), right.Pointers(), n, 2, n);
      for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j)
          EXPECT_SAME_BITS(out.Pointers()[i][j], -1.0 + (1.0 + e) * (1.0 - e)) << form->name;
    }
  }
}

TEST(DenseProduct, MatchesTheTripleLoopOnOddTallAndFlatShapes) {
  struct Shape {
    std::size_t rows, inner, cols;
  };
  Random random(6);
  for (const Shape s :
       {Shape{300, 3, 5}, Shape{3, 300, 5}, Shape{3, 5, 300}, Shape{127, 129, 131},
        Shape{1, 299, 257}, Shape{257, 299, 1}, Shape{49, 531, 65}, Shape{101, 50, 41},
        Shape{101, 256, 58}, Shape{37, 300, 345}, Shape{35, 1030, 101}})
    CompareWithOracle(s.rows, s.inner, s.cols, 1, [&] { return random.Real(-1, 1); });
#ifdef __OPTIMIZE__
  for (const Shape s :
       {Shape{299, 300, 298}, Shape{61, 1100, 67}, Shape{200, 33, 1037}, Shape{1100, 33, 50}})
    CompareWithOracle(s.rows, s.inner, s.cols, 3, [&] { return random.Real(-1, 1); });
#endif
}

// The columns that do not fill a vector are row sums of columns gathered 256 elements at a time.
TEST(DenseProduct, MatchesTheTripleLoopOnRemainingColumnsLongerThanABlock) {
  Random random(12);
  for (std::size_t inner : {255u, 256u, 257u, 513u})
    for (std::size_t cols : {1u, 2u, 5u, 6u, 9u, 10u, 17u, 18u})
      CompareWithOracle(13, inner, cols, 1, [&] { return random.Real(-1, 1); });
}

int refusals = 0;
void* Refuse(std::size_t) {
  ++refusals;
  return nullptr;
}

/// The values that pad a copied panel must raise no exception that no entry raises.
TEST(DenseProduct, RaisesNoExceptionForThePaddingOfACopiedPanel) {
#ifdef FE_INVALID
  constexpr std::size_t kRows = 50, kInner = 600;
  for (const std::size_t cols : {173u, 181u}) {
    Rows a(kRows, std::vector<double>(kInner, 1.0)), b(kInner, std::vector<double>(cols, 1.0));
    a[3][5] = kInfinity;
    const Matrix left(a, kRows, kInner, 0), right(b, kInner, cols, 0), out({}, kRows, cols, 0);
    for (const Table* form : RunnableTables()) {
      std::feclearexcept(FE_ALL_EXCEPT);
      form->products->dense(out.Pointers(), left.Pointers(), right.Pointers(), kRows, kInner, cols);
      EXPECT_EQ(0, std::fetestexcept(FE_INVALID)) << form->name;
      EXPECT_EQ(a[3][5], out.Pointers()[3][cols - 1]) << form->name;
    }
  }
#endif
}

TEST(DenseProduct, WorksWithoutTheMemoryItAsksFor) {
  const auto lender = detail::borrow.exchange(Refuse);
  refusals = 0;
  Random random(11);
  for (std::size_t cols : {360u, 361u})
    CompareWithOracle(65, 300, cols, 1, [&] { return random.Real(-1000, 1000); });
  detail::borrow = lender;
  EXPECT_EQ(refusals, 2 * static_cast<int>(RunnableTables().size()));
}

}  // namespace
}  // namespace zeph::kernels
