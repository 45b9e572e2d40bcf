#include <gtest/gtest.h>

#include <iomanip>
#include <numeric>
#include <sstream>
#include <type_traits>

#include "linalg.h"
#include "oracle/matrix4.h"
#include "support/bits.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

oracle::Matrix4 Rows(const CZEPHMatrix4& m) {
  oracle::Matrix4 rows{};
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j) rows[i][j] = m.m_data[i + 4 * j];
  return rows;
}

void ExpectRows(const CZEPHMatrix4& got, const oracle::Matrix4& want) {
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      EXPECT_SAME_VALUE(got.m_data[i + 4 * j],
                        want[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)])
          << " at (" << i << ", " << j << ")";
}

CZEPHMatrix4 Counted() {
  double data[16];
  std::iota(data, data + 16, 0.0);
  return CZEPHMatrix4(data, CZEPHMatrix4::RowMajor);
}

CZEPHMatrix4 AwkwardMatrix(std::uint64_t seed) {
  return CZEPHMatrix4(Awkward(16, seed).data(), CZEPHMatrix4::ColumnMajor);
}

std::string Text(const CZEPHMatrix4& m) {
  std::ostringstream os;
  os << m;
  return os.str();
}

}  // namespace

TEST(Matrix4, LoadsByRowsOnlyWhenToldRowMajor) {
  double data[16];
  std::iota(data, data + 16, 0.0);
  CZEPHMatrix4 rows(data, CZEPHMatrix4::RowMajor);
  EXPECT_EQ(rows(0, 1), 1.0);
  EXPECT_EQ(rows(1, 0), 4.0);
  EXPECT_EQ(rows(3, 2), 14.0);
  for (const int mode : {0, 2, -1, 77}) {
    CZEPHMatrix4 columns(data, static_cast<CZEPHMatrix4::ordermode>(mode));
    EXPECT_TRUE(SameBits(columns.m_data, data, 16)) << mode;
    EXPECT_EQ(columns(1, 0), 1.0) << "mode " << mode;
  }
}

TEST(Matrix4, ConstructedFromOneValueHoldsItSixteenTimes) {
  const CZEPHMatrix4 m(-0.0);
  for (const double x : m.m_data) EXPECT_SAME_BITS(x, -0.0) << "x " << x;
}

TEST(Matrix4, CopiesBitForBit) {
  const CZEPHMatrix4 m = AwkwardMatrix(1);
  const CZEPHMatrix4 copy(m);
  CZEPHMatrix4 assigned(3.0);
  EXPECT_EQ(&(assigned = m), &assigned);
  assigned = *&assigned;
  EXPECT_TRUE(SameBits(copy.m_data, m.m_data, 16));
  EXPECT_TRUE(SameBits(assigned.m_data, m.m_data, 16));
}

TEST(Matrix4, LoadsEveryBitInEitherOrder) {
  const std::vector<double>& special = SpecialValues<double>();
  for (std::size_t first = 0; first < special.size(); ++first) {
    std::vector<double> data;
    for (std::size_t k = 0; k < 16; ++k) data.push_back(special[(first + k) % special.size()]);
    CZEPHMatrix4 rows(data.data(), CZEPHMatrix4::RowMajor);
    CZEPHMatrix4 columns(data.data(), CZEPHMatrix4::ColumnMajor), stored(0.0);
    for (int i = 0; i < 4; ++i)
      for (int j = 0; j < 4; ++j) {
        const auto at = static_cast<std::size_t>(4 * i + j);
        stored(j, i) = data[at];
        EXPECT_SAME_BITS(rows(i, j), data[at]);
        EXPECT_SAME_BITS(columns(j, i), data[at]);
        EXPECT_SAME_BITS(CZEPHMatrix4(data[at]).m_data[at], data[at]);
      }
    EXPECT_TRUE(SameBits(stored.m_data, data.data(), 16));
  }
}

TEST(Matrix4, LoadsTheIdentity) {
  CZEPHMatrix4 m = AwkwardMatrix(2);
  m.loadIdentity();
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j)
      EXPECT_SAME_BITS(m(i, j), i == j ? 1.0 : 0.0) << "i " << i << ", j " << j;
}

TEST(Matrix4, GivesWritableElements) {
  CZEPHMatrix4 m(0.0);
  m(2, 3) = 5.0;
  EXPECT_EQ(m.m_data[14], 5.0);
}

TEST(Matrix4, ConvertsToAFloatPointerToItsDoubles) {
  CZEPHMatrix4 m(1.5);
  float* p = m;
  EXPECT_EQ(static_cast<void*>(p), static_cast<void*>(m.m_data));
}

TEST(Matrix4, ComparesAddresses) {
  CZEPHMatrix4 m(1.0), n(1.0), o(2.0);
  EXPECT_FALSE(m == n);
  EXPECT_TRUE(m != n);
  EXPECT_TRUE(m == m);
  n = m;
  EXPECT_FALSE(m == n);
  EXPECT_EQ(m < o, static_cast<void*>(&m) < static_cast<void*>(&o));
}

TEST(Matrix4, ArithmeticAgreesWithTheOracle) {
  for (std::uint64_t seed = 0; seed < 400; ++seed) {
    const CZEPHMatrix4 a = AwkwardMatrix(3 * seed), b = AwkwardMatrix(3 * seed + 1);
    const double s = Awkward(1, 3 * seed + 2)[0];
    const auto ra = Rows(a), rb = Rows(b);
    const auto sum = oracle::ForEach(ra, rb, [](double x, double y) { return x + y; });
    const auto difference = oracle::ForEach(ra, rb, [](double x, double y) { return x - y; });
    const auto scaled = oracle::ForEach(ra, [s](double x) { return x * s; });
    const auto divided = oracle::ForEach(ra, [s](double x) { return x / s; });
    const auto product = oracle::Multiply(ra, rb);
    ExpectRows(a + b, sum);
    ExpectRows(a - b, difference);
    ExpectRows(a * s, scaled);
    ExpectRows(s * a, scaled);
    ExpectRows(a / s, divided);
    ExpectRows(a * b, product);
    CZEPHMatrix4 m(a);
    ExpectRows(m += b, sum);
    m = a;
    ExpectRows(m -= b, difference);
    m = a;
    ExpectRows(m *= s, scaled);
    m = a;
    ExpectRows(m /= s, divided);
    m = a;
    ExpectRows(m *= b, product);
  }
}

TEST(Matrix4, OperatesOnItself) {
  for (std::uint64_t seed = 0; seed < 50; ++seed) {
    const CZEPHMatrix4 a(Moderate(16, seed).data(), CZEPHMatrix4::ColumnMajor);
    CZEPHMatrix4 m(a);
    EXPECT_EQ(&(m *= m), &m) << "seed " << seed;
    ExpectRows(m, oracle::Multiply(Rows(a), Rows(a)));
    m = a;
    m += m;
    ExpectRows(m, oracle::ForEach(Rows(a), [](double x) { return x + x; }));
    m = a;
    m -= static_cast<const CZEPHMatrix4&>(m);
    ExpectRows(m, oracle::Matrix4{});
  }
}

TEST(Matrix4, ScalesByTheOldValueOfItsOwnElement) {
  CZEPHMatrix4 m(3.0);
  m(0, 0) = 2.0;
  CZEPHMatrix4 n(m);
  m *= m(0, 0);
  EXPECT_EQ(m(0, 0), 4.0);
  EXPECT_EQ(m(3, 3), 6.0);
  n /= n(0, 0);
  EXPECT_EQ(n(0, 0), 1.0);
  EXPECT_EQ(n(3, 3), 1.5);
}

TEST(Matrix4, OfOneMatrixTwiceMeetsEveryKindOfNumber) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    const CZEPHMatrix4 a = AwkwardMatrix(seed + 5000);
    const auto rows = Rows(a);
    const auto twice = oracle::ForEach(rows, [](double x) { return x + x; });
    const auto none = oracle::ForEach(rows, [](double x) { return x - x; });
    CZEPHMatrix4 sum(a), difference(a), product(a);
    sum += sum;
    difference -= *&difference;
    product *= product;
    ExpectRows(sum, twice);
    ExpectRows(a + a, twice);
    ExpectRows(difference, none);
    ExpectRows(a - a, none);
    ExpectRows(product, oracle::Multiply(rows, rows));
    ExpectRows(a * a, oracle::Multiply(rows, rows));
  }
}

// No operand is special: also the identity's products are added, in which a zero loses its sign and an infinity meets 0.
TEST(Matrix4, TheIdentityZeroAndOneOperateAsAnyOther) {
  CZEPHMatrix4 identity;
  identity.loadIdentity();
  for (const CZEPHMatrix4& special : {identity, CZEPHMatrix4(0.0), CZEPHMatrix4(-0.0)})
    for (std::uint64_t seed = 0; seed < 100; ++seed) {
      const CZEPHMatrix4 a = AwkwardMatrix(seed + 7000);
      const auto s = Rows(special), rows = Rows(a);
      CZEPHMatrix4 product(a), sum(a), difference(a);
      product *= special, sum += special, difference -= special;
      ExpectRows(a * special, oracle::Multiply(rows, s));
      ExpectRows(special * a, oracle::Multiply(s, rows));
      ExpectRows(product, oracle::Multiply(rows, s));
      const auto added = oracle::ForEach(rows, s, [](double x, double y) { return x + y; });
      const auto taken = oracle::ForEach(rows, s, [](double x, double y) { return x - y; });
      ExpectRows(a + special, added);
      ExpectRows(sum, added);
      ExpectRows(a - special, taken);
      ExpectRows(difference, taken);
    }
}

TEST(Matrix4, UnaryMinusChangesTheMatrixItself) {
  const CZEPHMatrix4 a = AwkwardMatrix(9);
  CZEPHMatrix4 m(a);
  EXPECT_EQ(&-m, &m);
  for (int k = 0; k < 16; ++k)
    EXPECT_EQ(Bits(m.m_data[k]), Bits(a.m_data[k]) ^ (std::uint64_t{1} << 63)) << "k " << k;
}

TEST(Matrix4, PrintsRowByRow) {
  EXPECT_EQ(Text(Counted()), "[ 0 1 2 3 ]\n[ 4 5 6 7 ]\n[ 8 9 10 11 ]\n[ 12 13 14 15 ]\n");
  CZEPHMatrix4 m;
  m.loadIdentity();
  EXPECT_EQ(Text(m), "[ 1 0 0 0 ]\n[ 0 1 0 0 ]\n[ 0 0 1 0 ]\n[ 0 0 0 1 ]\n");
}

TEST(Matrix4, PrintsInTheFormatOfTheStream) {
  std::ostringstream os;
  os << std::fixed << std::setprecision(2) << CZEPHMatrix4(1.0 / 3);
  EXPECT_EQ(os.str().substr(0, 24), "[ 0.33 0.33 0.33 0.33 ]\n");
}

TEST(Matrix4, AWidthAppliesToTheFirstBracketAndTheStreamIsNotFlushed) {
  struct Counting : std::stringbuf {
    int flushes = 0;
    int sync() override { return ++flushes, 0; }
  } buffer;
  std::ostream os(&buffer);
  os << std::setfill('.') << std::setw(5) << Counted();
  EXPECT_EQ(buffer.str().substr(0, 30), "...[ 0 1 2 3 ]\n[ 4 5 6 7 ]\n[ 8");
  EXPECT_EQ(buffer.flushes, 0);
  EXPECT_EQ(os.width(), 0);
}

TEST(Matrix4, EveryElementIsStoredWhereDocumented) {
  CZEPHMatrix4 m(0.0);
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j) m(i, j) = 10 * i + j;
  for (int i = 0; i < 4; ++i)
    for (int j = 0; j < 4; ++j) EXPECT_EQ(m.m_data[i + 4 * j], 10 * i + j);
  EXPECT_EQ(Text(m), "[ 0 1 2 3 ]\n[ 10 11 12 13 ]\n[ 20 21 22 23 ]\n[ 30 31 32 33 ]\n");
}

TEST(Matrix4, RefusesAnyOtherCharacterInTheText) {
  std::string good = "[1 2 3 4][5 6 7 8][9 1 2 3][4 5 6 7]";
  for (std::size_t at = 0; at < good.size(); ++at)
    if (good[at] == '[' || good[at] == ']')
      for (const char wrong : {'(', ')', ';', good[at] == '[' ? ']' : '['}) {
        std::string text = good;
        text[at] = wrong;
        std::istringstream is(text);
        CZEPHMatrix4 m(7.0);
        EXPECT_FALSE(is >> m) << text;
        for (const double x : m.m_data) EXPECT_EQ(x, 7.0);
      }
  std::istringstream is(good);
  CZEPHMatrix4 m(7.0);
  EXPECT_TRUE(is >> m);
  EXPECT_EQ(Text(m), "[ 1 2 3 4 ]\n[ 5 6 7 8 ]\n[ 9 1 2 3 ]\n[ 4 5 6 7 ]\n");
}

TEST(Matrix4, MayBeBothOperandsOrScaledByItsOwnElement) {
  const CZEPHMatrix4 a(Moderate(16, 40).data(), CZEPHMatrix4::ColumnMajor);
  const auto rows = Rows(a);
  for (std::size_t k = 0; k < 16; ++k) {
    const double s = a.m_data[k];
    CZEPHMatrix4 scaled(a), divided(a);
    scaled *= scaled.m_data[k];
    divided /= divided.m_data[k];
    ExpectRows(scaled, oracle::ForEach(rows, [s](double x) { return x * s; }));
    ExpectRows(divided, oracle::ForEach(rows, [s](double x) { return x / s; }));
    ExpectRows(a * a.m_data[k], oracle::ForEach(rows, [s](double x) { return x * s; }));
    ExpectRows(a / a.m_data[k], oracle::ForEach(rows, [s](double x) { return x / s; }));
  }
  ExpectRows(a + a, oracle::ForEach(rows, [](double x) { return x + x; }));
  ExpectRows(a - a, oracle::Matrix4{});
  ExpectRows(a * a, oracle::Multiply(rows, rows));
}

TEST(Matrix4, ReadsWhatItPrinted) {
  const CZEPHMatrix4 a(Moderate(16, 4).data(), CZEPHMatrix4::ColumnMajor);
  std::stringstream stream;
  stream << std::setprecision(17) << a << " next";
  CZEPHMatrix4 b(0.0);
  std::string next;
  EXPECT_TRUE(stream >> b >> next);
  EXPECT_TRUE(SameBits(b.m_data, a.m_data, 16));
  EXPECT_EQ(next, "next");
}

TEST(Matrix4, StaysUnchangedWhenTheTextIsNotAMatrix) {
  for (const char* text : {"", "x", "[ 1 2 3 ]", "[ 1 2 3 4 ]\n[ 1 2 3 4 ]\n[ 1 2 3 4 ]\n[ 1 2 3 4",
                           "[ 1 2 3 4 ]\n( 1 2 3 4 ]\n[ 1 2 3 4 ]\n[ 1 2 3 4 ]",
                           "[ 1 2 3 4 ]\n[ 1 2 3 4 ]\n[ 1 2 3 4 ]\n[ 1 2 3 4 )",
                           "[ 1 2 3 4 ]\n[ 1 2 3 4 5 ]\n[ 1 2 3 4 ]\n[ 1 2 3 4 ]"}) {
    std::istringstream is(text);
    CZEPHMatrix4 m(7.0);
    EXPECT_FALSE(is >> m) << text;
    for (const double x : m.m_data) EXPECT_EQ(x, 7.0) << "text " << text << ", x " << x;
  }
}

TEST(Matrix4, CountsItsLiveObjects) {
  ASSERT_EQ(CZEPHMatrix4::howMany(), 0);
  {
    CZEPHMatrix4 m;
    CZEPHMatrix4 copy(m);
    EXPECT_EQ(CZEPHMatrix4::howMany(), 2);
    copy = CZEPHMatrix4(1.0);
    m = copy;
    EXPECT_EQ(CZEPHMatrix4::howMany(), 2);
    EXPECT_EQ(((m + copy), CZEPHMatrix4::howMany()), 3);
    EXPECT_EQ(CZEPHMatrix4::howMany(), 2);
    const CZEPHMatrix4 product = m * copy;
    EXPECT_EQ(CZEPHMatrix4::howMany(), 3);
    m *= m;
    -m;
    m *= 2.0;
    EXPECT_EQ(CZEPHMatrix4::howMany(), 3);
    const CZEPHMatrix4 moved(std::move(copy));
    EXPECT_EQ(CZEPHMatrix4::howMany(), 4);
    const double data[16] = {};
    EXPECT_EQ((CZEPHMatrix4(data, CZEPHMatrix4::RowMajor), CZEPHMatrix4::howMany()), 5);
  }
  EXPECT_EQ(CZEPHMatrix4::howMany(), 0);
}

TEST(Matrix4, KeepsItsLayout) {
  EXPECT_EQ(sizeof(CZEPHMatrix4), 16 * sizeof(double));
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<CZEPHMatrix4::ordermode>, int>));
  EXPECT_EQ(CZEPHMatrix4::ColumnMajor, 0);
  EXPECT_EQ(CZEPHMatrix4::RowMajor, 1);
}
