#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <sstream>
#include <vector>

#include "linalg.h"
#include "oracle/matrix4.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

using V = CZEPHVector3;

void ExpectIs(const V& got, double x, double y, double z) {
  EXPECT_SAME_VALUE(got.m_x, x);
  EXPECT_SAME_VALUE(got.m_y, y);
  EXPECT_SAME_VALUE(got.m_z, z);
}

V Awkward3(Random& random) {
  const double x = AwkwardValue<double>(random), y = AwkwardValue<double>(random);
  return V(x, y, AwkwardValue<double>(random));
}

oracle::Vector3 Numbers(const V& v) {
  return {v.m_x, v.m_y, v.m_z};
}

std::string Text(const V& v) {
  std::ostringstream os;
  os << v;
  return os.str();
}

}  // namespace

TEST(Vector3, ConstructsZeroOrTheDifferenceOfTwoPoints) {
  ExpectIs(V(), 0.0, 0.0, 0.0);
  V from(1, 2, 3), to(10, 20, 30);
  ExpectIs(V(from, to), 9, 18, 27);
  ExpectIs(V(from, from), 0, 0, 0);
  ExpectIs(V(V(1, 1, 1), from + to), 10, 21, 32);  // temporaries and constants
}

TEST(Vector3, CopiesBitForBitAndSurvivesSelfAssignment) {
  Random random(1);
  for (int i = 0; i < 100; ++i) {
    const V v = Awkward3(random);
    V copy(v), assigned;
    EXPECT_EQ(&(assigned = v), &assigned) << "i " << i;
    assigned = *&assigned;
    EXPECT_TRUE(SameBits(&copy.m_x, &v.m_x, 3)) << "i " << i;
    EXPECT_TRUE(SameBits(&assigned.m_x, &v.m_x, 3)) << "i " << i;
  }
}

TEST(Vector3, GivesItsComponentsByNameAndIndex) {
  V v(1, 2, 3);
  const V& constant = v;
  EXPECT_EQ(constant.x(), 1);
  EXPECT_EQ(constant.y(), 2);
  EXPECT_EQ(constant.z(), 3);
  EXPECT_EQ(v.GetX(), 1);
  EXPECT_EQ(v.GetY(), 2);
  EXPECT_EQ(v.GetZ(), 3);
  v.x() = 4;
  v.y() = 5;
  v.z() = 6;
  for (int i = 0; i < 3; ++i) EXPECT_EQ(v[i], 4 + i) << "i " << i;
  v[2] = 9;
  EXPECT_EQ(v.m_z, 9);
  float* p = v;
  EXPECT_EQ(static_cast<void*>(p), static_cast<void*>(&v.m_x));
}

TEST(Vector3, SetZStoresTheXComponent) {
  V v(1, 2, 3);
  v.SetZ(5);
  ExpectIs(v, 5, 2, 3);
}

TEST(Vector3, SetOfThreeNumbersStoresTheSecondAsYAndTheThirdAsX) {
  V v(1, 2, 3);
  v.Set(7, 8, 9);
  ExpectIs(v, 9, 8, 3);
}

TEST(Vector3, SetOfAVectorStoresItsXAsXAndItsZAsY) {
  V v(1, 2, 3);
  v.Set(V(4, 5, 6));
  ExpectIs(v, 4, 6, 3);
  v.Set(v);
  ExpectIs(v, 4, 3, 3);
}

TEST(Vector3, SetXAndSetYStoreTheirOwnComponent) {
  V v(1, 2, 3);
  v.SetX(4);
  v.SetY(5);
  ExpectIs(v, 4, 5, 3);
}

TEST(Vector3, ArithmeticAgreesWithTheOracle) {
  Random random(2);
  for (int i = 0; i < 2000; ++i) {
    SCOPED_TRACE(::testing::Message() << "i " << i);
    const V a = Awkward3(random), b = Awkward3(random);
    const double s = AwkwardValue<double>(random);
    const auto [ax, ay, az] = Numbers(a);
    const auto [bx, by, bz] = Numbers(b);
    ExpectIs(a + b, ax + bx, ay + by, az + bz);
    ExpectIs(a - b, ax - bx, ay - by, az - bz);
    ExpectIs(a * s, ax * s, ay * s, az * s);
    ExpectIs(s * a, ax * s, ay * s, az * s);
    ExpectIs(a / s, ax / s, ay / s, az / s);
    const auto cross = oracle::Cross(Numbers(a), Numbers(b));
    ExpectIs(a ^ b, cross[0], cross[1], cross[2]);
    EXPECT_SAME_VALUE(a * b, oracle::Dot(Numbers(a), Numbers(b)));
    const double square = oracle::Dot(Numbers(a), Numbers(a));
    EXPECT_SAME_VALUE(a.GetLength2(), square);
    EXPECT_SAME_VALUE(a.GetLength(), std::sqrt(square));
    const double length = std::sqrt(square);
    ExpectIs(a.Normalized(), ax / length, ay / length, az / length);
    V v(a);
    EXPECT_SAME_VALUE(v.Normalize(), length);
    ExpectIs(v, ax / length, ay / length, az / length);
    v = a;
    ExpectIs(v += b, ax + bx, ay + by, az + bz);
    v = a;
    ExpectIs(v -= b, ax - bx, ay - by, az - bz);
    v = a;
    ExpectIs(v *= s, ax * s, ay * s, az * s);
    v = a;
    ExpectIs(v /= s, ax / s, ay / s, az / s);
    const auto bisector = oracle::Bisect(Numbers(a), Numbers(b));
    ExpectIs(Bisect(a, b), bisector[0], bisector[1], bisector[2]);
  }
}

TEST(Vector3, DotProductAddsTheZTermLast) {
  const V ones(1, 1, 1);
  EXPECT_EQ(V(1e16, -1e16, 1) * ones, 1.0);
  EXPECT_EQ(V(1e16, 1, -1e16) * ones, 0.0);  // 1e16 + 1 rounds to 1e16
  EXPECT_EQ(V(1, 1e16, -1e16) * ones, 0.0);
}

TEST(Vector3, UnaryMinusFlipsSignBits) {
  ExpectIs(-V(1, -2, 0.0), -1, 2, -0.0);
  EXPECT_EQ(Bits((-V(kNaN, 0, 0)).m_x), Bits(kNaN) ^ (std::uint64_t{1} << 63));
}

/// Each component by itself: it moves every bit, and its sign, its zeros and its NaNs are its own.
TEST(Vector3, EachComponentKeepsEveryBitWhereverItIsMoved) {
  const double special[] = {0.0,    -0.0,  0.1,  -kInfinity, FromBits<double>(0x7FF8000000000123),
                            1e-310, -kNaN, 1e300};
  const double others[] = {1.5, -2.5, 3.5};
  for (int at = 0; at < 3; ++at)
    for (const double x : special) {
      SCOPED_TRACE(::testing::Message() << "component " << at << " is " << Show(x));
      double want[] = {others[0], others[1], others[2]};
      want[at] = x;
      V v(want[0], want[1], want[2]), assigned, indexed(1.5, -2.5, 3.5), named(indexed);
      assigned = v;
      indexed[at] = x;
      (at == 0 ? named.x() : at == 1 ? named.y() : named.z()) = x;
      const V copy(v);
      const V* const all[] = {&v, &copy, &assigned, &indexed, &named};
      for (const V* each : all) EXPECT_TRUE(SameBits(&each->m_x, want, 3));
      EXPECT_TRUE(SameBits(std::vector<double>{v.GetX(), v.GetY(), v.GetZ()}.data(), want, 3));
      EXPECT_TRUE(SameBits(std::vector<double>{copy.x(), copy.y(), copy.z()}.data(), want, 3));
      const V flipped = -v;
      for (int c = 0; c < 3; ++c)
        EXPECT_EQ(Bits((&flipped.m_x)[c]), Bits(want[c]) ^ (std::uint64_t{1} << 63));
    }
}

TEST(Vector3, SettersMoveEveryBitToTheDocumentedComponents) {
  for (const double x : {0.0, -0.0, 0.1, FromBits<double>(0xFFF8000000000123), 1e-310}) {
    const double one[] = {x, 2, 3}, two[] = {1, x, 3}, both[] = {x, x, 3};
    V v(1, 2, 3);
    v.SetX(x);
    EXPECT_TRUE(SameBits(&v.m_x, one, 3));
    v = V(1, 2, 3);
    v.SetZ(x);
    EXPECT_TRUE(SameBits(&v.m_x, one, 3));
    v = V(1, 2, 3);
    v.SetY(x);
    EXPECT_TRUE(SameBits(&v.m_x, two, 3));
    v = V(1, 2, 3);
    v.Set(7, x, x);
    EXPECT_TRUE(SameBits(&v.m_x, both, 3));
    v = V(1, 2, 3);
    v.Set(V(x, 7, x));
    EXPECT_TRUE(SameBits(&v.m_x, both, 3));
  }
}

TEST(Vector3, DiffersIfAnySingleComponentDiffers) {
  for (int at = 0; at < 3; ++at) {
    V a(1.5, 1.5, 1.5), b(a);
    for (const double other : {std::nextafter(1.5, 2.0), std::nextafter(1.5, 1.0), -1.5, kNaN}) {
      b[at] = other;
      EXPECT_EQ(a == b, 0) << at;
      EXPECT_EQ(b == a, 0) << at;
      EXPECT_EQ(a != b, 1) << at;
      EXPECT_EQ(b != a, 1) << at;
    }
    a[at] = kNaN;
    EXPECT_EQ(a == b, 0) << at;
    EXPECT_EQ(a != b, 1) << at;
    a[at] = 0.0, b[at] = -0.0;
    EXPECT_EQ(a == b, 1) << at;
    EXPECT_EQ(a != b, 0) << at;
    a[at] = b[at] = kInfinity;
    EXPECT_EQ(a == b, 1) << at;
    EXPECT_EQ(a != b, 0) << at;
  }
}

TEST(Vector3, BetweenTwoPointsIsTheSecondLessTheFirst) {
  Random random(21);
  for (int i = 0; i < 1000; ++i) {
    V from = Awkward3(random), to = Awkward3(random);
    const V &fixedFrom = from, &fixedTo = to;
    for (const V& v : {V(from, to), V(fixedFrom, fixedTo)})
      ExpectIs(v, to.m_x - from.m_x, to.m_y - from.m_y, to.m_z - from.m_z);
  }
}

TEST(Vector3, ScalesByTheOldValueOfItsOwnComponent) {
  V v(2, 4, 6), w(v);
  v *= v.x();
  ExpectIs(v, 4, 8, 12);
  w /= w[0];
  ExpectIs(w, 1, 2, 3);
}

TEST(Vector3, OperatesOnItself) {
  V v(1, 2, 3);
  v += v;
  ExpectIs(v, 2, 4, 6);
  v -= static_cast<const V&>(v);
  ExpectIs(v, 0, 0, 0);
}

TEST(Vector3, OfOneVectorTwiceMeetsEveryKindOfNumber) {
  Random random(12);
  for (int i = 0; i < 1000; ++i) {
    const V a = Awkward3(random);
    const auto [x, y, z] = Numbers(a);
    V sum(a), difference(a);
    sum += sum;
    difference -= *&difference;
    ExpectIs(sum, x + x, y + y, z + z);
    ExpectIs(a + a, x + x, y + y, z + z);
    ExpectIs(difference, x - x, y - y, z - z);
    ExpectIs(a - a, x - x, y - y, z - z);
    const auto cross = oracle::Cross(Numbers(a), Numbers(a));
    ExpectIs(a ^ a, cross[0], cross[1], cross[2]);
    EXPECT_SAME_VALUE(a * a, oracle::Dot(Numbers(a), Numbers(a)));
    const auto bisector = oracle::Bisect(Numbers(a), Numbers(a));
    ExpectIs(Bisect(a, a), bisector[0], bisector[1], bisector[2]);
  }
}

TEST(Vector3, CrossProductOfXAndYIsZ) {
  ExpectIs(V(1, 0, 0) ^ V(0, 1, 0), 0, 0, 1);
}

TEST(Vector3, NormalizesInPlaceAndReturnsTheLength) {
  V v(3, 0, 4);
  EXPECT_EQ(v.Normalize(), 5.0);
  ExpectIs(v, 0.6, 0.0, 0.8);
  V null;
  EXPECT_EQ(null.Normalize(), 0.0);
  ExpectIs(null, kNaN, kNaN, kNaN);
  ExpectIs(V().Normalized(), kNaN, kNaN, kNaN);
}

TEST(Vector3, CorrectsOnlyWhereAllComponentsAreTiny) {
  const V fallback(1, 2, 3);
  const auto corrected = [&](V v) {
    v.EpsilonCorrect(fallback);
    return v.m_y == 2.0;
  };
  EXPECT_TRUE(corrected(V(1e-9, -1e-9, 0)));
  EXPECT_TRUE(corrected(V(-0.0, 0.0, -9.9e-9)));
  EXPECT_FALSE(corrected(V(1e-8, 0, 0)));
  EXPECT_FALSE(corrected(V(0, -1e-8, 0)));
  EXPECT_FALSE(corrected(V(0, 0, 1e-8)));
  EXPECT_FALSE(corrected(V(kNaN, 0, 0)));
  V tiny(1e-9, 0, 0);
  tiny.EpsilonCorrect(tiny);
  ExpectIs(tiny, 1e-9, 0, 0);
}

TEST(Vector3, CorrectsEveryComponentUnlessOneIsNaN) {
  V tiny(1e-9, 1e-9, 1e-9);
  tiny.EpsilonCorrect(V(4, 5, 6));
  ExpectIs(tiny, 4, 5, 6);
  for (const V& v :
       {V(kNaN, 0, 0), V(0, kNaN, 0), V(0, 0, kNaN), V(kInfinity, 0, 0), V(0, 0, -1)}) {
    V kept(v);
    kept.EpsilonCorrect(V(4, 5, 6));
    EXPECT_TRUE(SameBits(&kept.m_x, &v.m_x, 3));
  }
  const double below = std::nextafter(1e-8, 0.0);
  V justBelow(below, -below, below);
  justBelow.EpsilonCorrect(V(4, 5, 6));
  ExpectIs(justBelow, 4, 5, 6);
}

TEST(Vector3, BisectComparesTheSquaredLengthWithItsBound) {
  // A number whose square rounds to the bound exactly, and the one below.
  double x = std::sqrt(1e-5);
  while (x * x > 1e-5) x = std::nextafter(x, 0.0);
  while (x * x < 1e-5) x = std::nextafter(x, 1.0);
  volatile double square = x * x;
  if (square == 1e-5) {
    EXPECT_EQ(Bisect(V(x, 0, 0), V()).m_z, 0.0);
    EXPECT_EQ(Bisect(V(0, x, 0), V()).m_z, 0.0);
  }
  const double below = std::nextafter(x, 0.0);
  volatile double less = below * below;
  if (less < 1e-5) {
    ExpectIs(Bisect(V(below, 0, 0), V()), 0, 0, 1);
  }
}

TEST(Vector3, ComparesExactly) {
  EXPECT_EQ(V(1, 2, 3) == V(1, 2, 3), 1);
  EXPECT_EQ(V(1, 2, 3) != V(1, 2, 3), 0);
  EXPECT_EQ(V(0.0, 0, 0) == V(-0.0, 0, 0), 1);
  for (const V& other : {V(9, 2, 3), V(1, 9, 3), V(1, 2, 9)}) {
    EXPECT_EQ(V(1, 2, 3) == other, 0);
    EXPECT_EQ(V(1, 2, 3) != other, 1);
  }
  const V nan(kNaN, 0, 0);
  EXPECT_EQ(nan == nan, 0);
  EXPECT_EQ(nan != nan, 1);
}

TEST(Vector3, BisectOfOppositeOrZeroVectorsIsTheZAxis) {
  ExpectIs(Bisect(V(1, 0, 0), V(-1, 0, 0)), 0, 0, 1);
  ExpectIs(Bisect(V(), V()), 0, 0, 1);
  const double half = 1.0 / std::sqrt(2.0);
  ExpectIs(Bisect(V(1, 0, 0), V(0, 1, 0)), half, half, 0);
  ExpectIs(Bisect(V(0.00316, 0, 0), V()), 0, 0, 1);  // just below 1e-5 squared
  EXPECT_EQ(Bisect(V(0.00317, 0, 0), V()).m_z, 0.0);
}

TEST(Vector3, ClampsEachComponentByTheScalarRule) {
  V v(-5, 0.5, kNaN);
  ZEPH_MathClamp(v, 0.0, 1.0);
  ExpectIs(v, 0, 0.5, kNaN);
  V crossed(-5, 7, 20);
  ZEPH_MathClamp(crossed, 10.0, 5.0);
  ExpectIs(crossed, 5, 5, 5);
  V own(3, 1, 9);
  ZEPH_MathClamp(own, own.m_y,
                 2.0);  // the bound is a component, which the clamping leaves as it is
  ExpectIs(own, 2, 1, 2);
}

TEST(Vector3, RereadsBoundsThatAliasItsComponents) {
  const double numbers[] = {1, 2, 3, kNaN};
  for (const double x : numbers)
    for (const double y : numbers)
      for (const double z : numbers)
        for (int low = 0; low < 3; ++low)
          for (int high = 0; high < 3; ++high) {
            V v(x, y, z);
            double want[] = {x, y, z};
            for (double& component : want) {
              if (want[low] > component) component = want[low];
              if (component > want[high]) component = want[high];
            }
            ZEPH_MathClamp(v, v[low], v[high]);
            ExpectIs(v, want[0], want[1], want[2]);
          }
}

TEST(Vector3, AWidthAppliesToTheBracketAndTheStreamIsNotFlushed) {
  struct Counting : std::stringbuf {
    int flushes = 0;
    int sync() override { return ++flushes, 0; }
  } buffer;
  std::ostream os(&buffer);
  os << std::setfill('.') << std::setw(5) << V(1, 2, 3);
  EXPECT_EQ(buffer.str(), "...[ 1 ; 2 ; 3 ]");
  EXPECT_EQ(buffer.flushes, 0);
  EXPECT_EQ(os.width(), 0);
}

TEST(Vector3, PrintsWithoutALineEnd) {
  EXPECT_EQ(Text(V(1, -2.5, 1e10)), "[ 1 ; -2.5 ; 1e+10 ]");
  std::ostringstream os;
  os << std::fixed << std::setprecision(1) << V(1, 2, 3) << V();
  EXPECT_EQ(os.str(), "[ 1.0 ; 2.0 ; 3.0 ][ 0.0 ; 0.0 ; 0.0 ]");
}

TEST(Vector3, ReadsWhatItPrinted) {
  std::stringstream stream;
  stream << std::setprecision(17) << V(0.1, -2e-300, 3) << "[1;2;3]x";
  V a, b;
  char next = 0;
  EXPECT_TRUE(stream >> a >> b >> next);
  ExpectIs(a, 0.1, -2e-300, 3);
  ExpectIs(b, 1, 2, 3);
  EXPECT_EQ(next, 'x');
}

TEST(Vector3, StaysUnchangedWhenTheTextIsNotAVector) {
  for (const char* text : {"", "1 2 3", "[ 1 2 3 ]", "[ 1 ; 2 ; 3", "[ 1 ; 2 ; x ]", "[1;2;3;",
                           "; 1 ; 2 ; 3 ]", "[ 1 [ 2 ; 3 ]", "[ 1 ; 2 [ 3 ]", "] 1 ; 2 ; 3 ]",
                           "[ 1 ; 2 ; 3 ; ]", "[ 1 ; 2 ; 3 [", "[ 1 ; ; 3 ]", "[ ; 2 ; 3 ]",
                           "[ 1 ; 2 ]", "[ 1 , 2 , 3 ]", "( 1 ; 2 ; 3 ]", "[ 1 ; 2 ; 3 )"}) {
    std::istringstream is(text);
    V v(7, 8, 9);
    EXPECT_FALSE(is >> v) << text;
    ExpectIs(v, 7, 8, 9);
  }
}

TEST(Vector3, CountsItsLiveObjects) {
  ASSERT_EQ(V::HowMany(), 0);
  {
    V a(1, 2, 3), b(a), c(a, b), d;
    EXPECT_EQ(V::HowMany(), 4);
    d = a + b;
    a += b;
    a.Normalize();
    a.EpsilonCorrect(V());
    EXPECT_EQ(V::HowMany(), 4);
    EXPECT_EQ((a ^ b, V::HowMany()), 5);
    const V moved(std::move(d));
    EXPECT_EQ(V::HowMany(), 5);
    const V bisector = Bisect(a, b);  // its two arguments are copies, destroyed by now
    EXPECT_EQ(V::HowMany(), 6);
    const V between(V(0, 0, 0), a);
    EXPECT_EQ(V::HowMany(), 7);
  }
  EXPECT_EQ(V::HowMany(), 0);
}

TEST(Vector3, BisectsCopiesLiveToTheEndOfTheFullExpression) {
  const V a(1, 2, 3), b;
  EXPECT_EQ((Bisect(a, b), V::HowMany()), 5);  // with the result
  EXPECT_EQ((Bisect(a, b), Bisect(a, b), V::HowMany()), 8);
  EXPECT_EQ(V::HowMany(), 2);
}

TEST(Vector3, KeepsItsLayout) {
  EXPECT_EQ(sizeof(V), 3 * sizeof(double));
}
