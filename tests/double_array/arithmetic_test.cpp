#include <functional>

#include "double_array/arrays.h"
#include "support/allocation.h"
#include "support/not_finite.h"

using namespace zeph::test;

namespace {

using Values = std::vector<double>;

/// Lengths around every vector width and unrolling.
const std::vector<std::size_t>& Lengths() {
  static const std::vector<std::size_t> lengths = {0, 1,  2,  3,  4,  7,   8,
                                                   9, 15, 16, 17, 33, 100, 1001};
  return lengths;
}

template <class Op>
Values Combined(const Values& a, const Values& b, Op op) {
  Values result(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    volatile double x = op(a[i], b[i]);
    result[i] = x;
  }
  return result;
}

void ExpectNew(const CZEPHDoubleArray& got, const Values& want) {
  EXPECT_TRUE(SameValues(ElementsOf(got), want));
  EXPECT_EQ(got.sorted, 0);
}

}  // namespace

TEST(DoubleArrayArithmetic, WorksElementByElement) {
  for (std::size_t n : Lengths()) {
    SCOPED_TRACE(::testing::Message() << "n " << n);
    const Values v = Awkward(n, 1), w = Awkward(n, 2);
    const CZEPHDoubleArray a = ArrayOf(v), b = ArrayOf(w);
    ExpectNew(a + b, Combined(v, w, std::plus<>()));
    ExpectNew(a - b, Combined(v, w, std::minus<>()));
    ExpectNew(a * b, Combined(v, w, std::multiplies<>()));
    CZEPHDoubleArray sum(a), difference(a);
    sum.sorted = difference.sorted = 1;
    EXPECT_EQ(&(sum += b), &sum);
    EXPECT_EQ(&(difference -= b), &difference);
    EXPECT_TRUE(SameValues(ElementsOf(sum), Combined(v, w, std::plus<>())));
    EXPECT_TRUE(SameValues(ElementsOf(difference), Combined(v, w, std::minus<>())));
    EXPECT_EQ(sum.sorted, 1);
    EXPECT_EQ(difference.sorted, 1);
  }
}

TEST(DoubleArrayArithmetic, MultipliesByAScalar) {
  for (std::size_t n : Lengths())
    for (double s : {3.0, -0.0, 1e300, kInfinity, kNaN}) {
      const Values v = Awkward(n, 3), factors(n, s);
      const CZEPHDoubleArray a = ArrayOf(v);
      ExpectNew(s * a, Combined(factors, v, std::multiplies<>()));
      ExpectNew(a * s, Combined(factors, v, std::multiplies<>()));
    }
}

TEST(DoubleArrayArithmetic, DivisionMultipliesByTheReciprocal) {
  const Values v = {5, 7, -0.0, kInfinity, 1e-310};
  const CZEPHDoubleArray a = ArrayOf(v);
  for (double s : {3.0, 4.0, 49.0, 0.0, -0.0, kInfinity, 1e-320}) {
    const double reciprocal = 1.0 / s;
    ExpectNew(a / s, Combined(v, Values(v.size(), reciprocal), std::multiplies<>()));
  }
  EXPECT_TRUE(SameBits(ElementsOf(a / 4.0), ElementsOf(0.25 * a)));
  EXPECT_NE((ArrayOf({5}) / 49.0)[0], 5.0 / 49.0);  // a division would round differently
}

TEST(DoubleArrayArithmetic, UnaryMinusSubtractsFromZero) {
  const CZEPHDoubleArray a = ArrayOf({0.0, -0.0, 1, -kInfinity});
  EXPECT_TRUE(SameBits(ElementsOf(-a), {0.0, 0.0, -1, kInfinity}));
  EXPECT_TRUE(SameBits(ElementsOf(+a), {0.0, -0.0, 1, -kInfinity}));
  EXPECT_NE((+a).data, a.data);
}

TEST(DoubleArrayArithmetic, AnArrayMayBeBothOperands) {
  CZEPHDoubleArray a = ArrayOf({1, -2, 3});
  const CZEPHDoubleArray& same = a;
  a += same;
  EXPECT_TRUE(SameBits(ElementsOf(a), {2, -4, 6}));
  EXPECT_TRUE(SameBits(ElementsOf(a * a), {4, 16, 36}));
  a -= same;
  EXPECT_TRUE(SameBits(ElementsOf(a), {0, 0, 0}));
}

TEST(DoubleArrayArithmetic, TheProductHasTheSizeOfItsLeftOperand) {
  EXPECT_TRUE(SameBits(ElementsOf(ArrayOf({1, 2}) * ArrayOf({3, 4, 5})), {3, 8}));
}

TEST(DoubleArrayArithmetic, EmptyOperandsGiveEmptyResults) {
  const CZEPHDoubleArray a(0, 1.0), none;
  for (const CZEPHDoubleArray& result : {a + a, a - none, none * a, 2 * a, a / 2, -a, +none}) {
    EXPECT_EQ(result.size, 0);
    EXPECT_EQ(result.sorted, 0);
  }
}

TEST(DoubleArrayArithmetic, ANegativeCountGivesAnArrayWithoutStorage) {
  const CZEPHDoubleArray a(-2, 1.0);
  for (const CZEPHDoubleArray& result : {a + a, a - a, a * a, 2 * a, a / 2, -a, +a}) {
    EXPECT_EQ(result.size, -2);
    EXPECT_EQ(result.data, nullptr);
  }
}

TEST(DoubleArrayArithmetic, OperandsWithoutStorageAddNothing) {
  CZEPHDoubleArray a = ArrayOf({1, 2});
  const CZEPHDoubleArray none = WithoutStorage(2);
  a += none;
  a -= none;
  EXPECT_TRUE(SameBits(ElementsOf(a), {1, 2}));
  EXPECT_TRUE(SameBits(ElementsOf(a + none), {1, 2}));
  EXPECT_TRUE(SameBits(ElementsOf(a - none), {1, 2}));
  CZEPHDoubleArray target = WithoutStorage(2);
  target += a;
  target -= a;
  EXPECT_EQ(target.data, nullptr);
  EXPECT_TRUE(SameBits(ElementsOf(-none), {0, 0}));
  for (const CZEPHDoubleArray& result : {none + a, none - a, none * a, a * none, 2 * none}) {
    EXPECT_EQ(result.size, 2);
    EXPECT_NE(result.data, nullptr);  // of unspecified elements
  }
}

TEST(DoubleArrayArithmetic, EveryOperatorAllocatesOnceAndSwallowsMemoryExhaustion) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const CZEPHDoubleArray a = ArrayOf({1, 2}), b = ArrayOf({3, 4});
  const std::vector<std::function<CZEPHDoubleArray()>> operators = {
      [&] { return a + b; }, [&] { return a - b; }, [&] { return a * b; }, [&] { return 2 * a; },
      [&] { return a * 2; }, [&] { return a / 2; }, [&] { return -a; },    [&] { return +a; }};
  for (const auto& apply : operators)
    for (Failure how : {Failure::kBadAlloc, Failure::kMemoryException}) {
      SCOPED_TRACE(::testing::Message() << how);
      const long live = LiveBlocks();
      const long asked = AllocationCount();
      apply();
      EXPECT_EQ(AllocationCount() - asked, 1);
      FailAllocation failing(1, false, how);
      const CZEPHDoubleArray result = apply();
      EXPECT_TRUE(failing.Fired());
      EXPECT_EQ(result.size, 2);
      EXPECT_EQ(result.data, nullptr);
      EXPECT_EQ(LiveBlocks(), live);
    }
}

TEST(DoubleArrayArithmetic, OverlappingOperandsAreReadElementByElement) {
  for (const int elements : {1, 2, 3, 4, 5, 8, 37})
    for (const int shift : {-5, -4, -2, -1, 1, 2, 3, 4, 7})
      for (const bool add : {true, false}) {
        std::vector<double> block(57);
        for (std::size_t i = 0; i < block.size(); ++i) block[i] = static_cast<double>(i * i % 17);
        std::vector<double> want = block;
        double* const to = want.data() + 10;
        for (int i = 0; i < elements; ++i) add ? to[i] += to[i + shift] : to[i] -= to[i + shift];

        CZEPHDoubleArray a, b;
        a.size = b.size = elements;
        a.data = block.data() + 10;
        b.data = a.data + shift;
        add ? a += b : a -= b;
        a.data = b.data = nullptr;  // the block belongs to neither
        EXPECT_EQ(block, want) << elements << ", shift " << shift << (add ? ", +=" : ", -=");
      }
}
