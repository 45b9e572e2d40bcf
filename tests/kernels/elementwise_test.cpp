// Element-by-element arithmetic in every form against plain loops.
#include "kernels/elementwise.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "kernels/few.h"
#include "support/bits.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

using Array = std::vector<double>;

constexpr std::size_t kSpare = 12;  // room for the skew and guards after the end

struct Operation {
  const char* name;
  bool binary;
  std::function<void(const Elementwise&, double* out, const double* a, const double* b,
                     std::size_t n)>
      run;
  std::function<double(double a, double b)> meaning;
};

constexpr double kScalar = -1.75;

const std::vector<Operation>& Operations() {
  using E = Elementwise;
  static const std::vector<Operation> all = {
      {"add", true,
       [](const E& e, double* o, const double* a, const double* b, std::size_t n) {
         e.add(o, a, b, n);
       },
       [](double a, double b) { return a + b; }},
      {"subtract", true,
       [](const E& e, double* o, const double* a, const double* b, std::size_t n) {
         e.subtract(o, a, b, n);
       },
       [](double a, double b) { return a - b; }},
      {"multiply", true,
       [](const E& e, double* o, const double* a, const double* b, std::size_t n) {
         e.multiply(o, a, b, n);
       },
       [](double a, double b) { return a * b; }},
      {"scale", false,
       [](const E& e, double* o, const double* a, const double*, std::size_t n) {
         e.scale(o, kScalar, a, n);
       },
       [](double a, double) { return kScalar * a; }},
      {"negate", false,
       [](const E& e, double* o, const double* a, const double*, std::size_t n) {
         e.subtract_from(o, 0.0, a, n);
       },
       [](double a, double) { return 0.0 - a; }},
      {"fill", false,
       [](const E& e, double* o, const double*, const double*, std::size_t n) {
         e.fill(o, kScalar, n);
       },
       [](double, double) { return kScalar; }},
  };
  return all;
}

/// The tables' forms, and the inline one for a few elements.
const std::vector<const Table*>& Forms() {
  static const Elementwise few = {Add, Subtract, Multiply, Scale, SubtractFrom, Fill};
  static const std::vector<const Table*> all = [] {
    std::vector<const Table*> tables = RunnableTables();
    static Table onTheSpot = *tables.front();
    onTheSpot.name = "on the spot";
    onTheSpot.elementwise = &few;
    tables.push_back(&onTheSpot);
    return tables;
  }();
  return all;
}

void Check(const Operation& operation, const Table* form, std::size_t n, std::size_t skewA,
           std::size_t skewB, std::size_t skewOut) {
  SCOPED_TRACE(::testing::Message()
               << operation.name << ", " << form->name << ", n " << n << ", offsets " << skewA
               << " and " << skewB << ", result at " << skewOut);
  const Array a = test::Awkward(n + kSpare, 1), b = test::Awkward(n + kSpare, 2);
  const Array before = test::Awkward(n + kSpare, 3);
  Array want = before, got = before;
  for (std::size_t i = 0; i < n; ++i)
    want[skewOut + i] = operation.meaning(a[skewA + i], b[skewB + i]);
  operation.run(*form->elementwise, got.data() + skewOut, a.data() + skewA, b.data() + skewB, n);
  ASSERT_TRUE(test::SameValues(got, want));
  ASSERT_TRUE(test::SameBits(got.data(), before.data(), skewOut)) << "before the result";
  ASSERT_TRUE(
      test::SameBits(got.data() + skewOut + n, before.data() + skewOut + n, kSpare - skewOut))
      << "after the result";
}

TEST(Elementwise, MatchesThePlainLoopAtEveryLengthAndMisalignment) {
  for (const Operation& operation : Operations())
    for (const Table* form : Forms())
      for (std::size_t n = 0; n <= 290; n = n == 67 ? 256 : n + 1)  // short ones, and long ones
        for (std::size_t skewA : {0u, 1u, 3u})
          for (std::size_t skewB : {0u, 2u})
            for (std::size_t skewOut : {0u, 1u, 3u, 7u})
              Check(operation, form, n, skewA, skewB, skewOut);
}

TEST(Elementwise, MatchesThePlainLoopOnLongArrays) {
  for (const Operation& operation : Operations())
    for (const Table* form : Forms())
      for (std::size_t n : {127u, 128u, 1000u, 4099u}) Check(operation, form, n, 1, 0, 2);
}

TEST(Elementwise, MatchesThePlainLoopAtEveryOffsetInACacheLine) {
  constexpr std::size_t kLine = 8;
  for (const Operation& operation : Operations()) {
    if (!operation.binary) continue;
    for (const Table* form : Forms())
      for (std::size_t skewA = 0; skewA < kLine; ++skewA)
        for (std::size_t skewB = 0; skewB < kLine; ++skewB)
          for (std::size_t skewOut : {0u, 1u, 2u, 6u})
            for (std::size_t n : {256u, 261u, 283u})
              Check(operation, form, n, skewA, skewB, skewOut);
  }
}

TEST(Elementwise, MayWriteOverAnOperand) {
  for (const Operation& operation : Operations())
    for (const Table* form : Forms())
      for (std::size_t n = 0; n <= 300; n = n == 67 ? 256 : n + 1) {
        SCOPED_TRACE(::testing::Message() << operation.name << ", " << form->name << ", n " << n);
        const Array a = test::Awkward(n, 4), b = test::Awkward(n, 5);
        Array want(n), self(n), overA = a, overB = b, both = a;
        for (std::size_t i = 0; i < n; ++i) want[i] = operation.meaning(a[i], b[i]);
        for (std::size_t i = 0; i < n; ++i) self[i] = operation.meaning(a[i], a[i]);
        operation.run(*form->elementwise, overA.data(), overA.data(), b.data(), n);
        ASSERT_TRUE(test::SameValues(overA, want)) << "over the first operand";
        if (operation.binary) {
          operation.run(*form->elementwise, overB.data(), a.data(), overB.data(), n);
          ASSERT_TRUE(test::SameValues(overB, want)) << "over the second operand";
        }
        operation.run(*form->elementwise, both.data(), both.data(), both.data(), n);
        ASSERT_TRUE(test::SameValues(both, self)) << "one array for all three";
      }
}

/// Zeros of both signs, denormals, infinities and NaNs as the number, in whole vectors and in what is left of one.
TEST(Elementwise, TakesAnyNumberAtEveryLength) {
  const auto check = [](const Table* form, double s, std::size_t n, std::size_t skew) {
    const Elementwise& e = *form->elementwise;
    const Array a = test::Awkward(n, 8), before = test::Awkward(n + kSpare, 9);
    Array product = before, difference = before, filled = before, got = before;
    for (std::size_t i = 0; i < n; ++i) {
      product[skew + i] = s * a[i];
      difference[skew + i] = s - a[i];
      filled[skew + i] = s;
    }
    e.scale(got.data() + skew, s, a.data(), n);
    ASSERT_TRUE(test::SameValues(got, product)) << "scale";
    got = before;
    e.subtract_from(got.data() + skew, s, a.data(), n);
    ASSERT_TRUE(test::SameValues(got, difference)) << "subtract_from";
    got = before;
    e.fill(got.data() + skew, s, n);
    ASSERT_TRUE(test::SameBits(got, filled)) << "fill";
  };
  for (const Table* form : Forms())
    for (const double s : test::SpecialValues<double>())
      for (std::size_t n = 0; n <= 276; n = n == 40 ? 256 : n + 1)
        for (const std::size_t skew : {0u, 3u, 6u}) {
          SCOPED_TRACE(::testing::Message()
                       << form->name << ", " << s << ", n " << n << " at " << skew);
          ASSERT_NO_FATAL_FAILURE(check(form, s, n, skew));
        }
}

TEST(Elementwise, FillKeepsTheBitsOfANaN) {
  const double nan = test::FromBits<double>(0xFFF8000000000123u);
  for (const Table* form : Forms()) {
    Array filled(37);
    form->elementwise->fill(filled.data(), nan, filled.size());
    EXPECT_TRUE(test::SameBits(filled, Array(37, nan))) << form->name;
  }
}

TEST(Elementwise, CopiesKeepEveryBit) {
  for (std::size_t n = 0; n <= 40; ++n) {
    const Array from = test::Awkward(n + 1, 6), before = test::Awkward(n + 2, 7);
    Array to = before;
    Copy(to.data() + 1, from.data() + 1, n);
    ASSERT_TRUE(test::SameBits(to.data() + 1, from.data() + 1, n)) << n;
    ASSERT_TRUE(test::SameBits(to.data(), before.data(), 1)) << n;
    ASSERT_TRUE(test::SameBits(to.data() + n + 1, before.data() + n + 1, 1)) << n;
    Copy(to.data(), to.data(), n);
    ASSERT_TRUE(test::SameBits(to.data() + 1, from.data() + 1, n)) << n;
  }
}

}  // namespace
}  // namespace zeph::kernels
