// Every operation on two objects, called with one object twice or with a reference into itself.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "algorithms.h"
#include "graphics.h"
#include "linalg/matrices.h"
#include "oracle/graphics.h"
#include "raw_buffers.h"
#include "support/numbers.h"
#include "support/scale.h"

#ifdef __clang__
#pragma clang diagnostic ignored "-Wself-assign-overloaded"  // the subject of these tests
#endif

namespace zeph::test {
namespace {

namespace flat = ::oracle;  // plain arrays of floats

// An array of no elements keeps its block when it is assigned to: documented, and a leak to a
// sanitizer.
#ifdef ZEPH_TEST_SANITIZED
constexpr int kSizes[] = {1, 3, 8, 17, 100};
#else
constexpr int kSizes[] = {0, 1, 3, 8, 17, 100};
#endif

CZEPHDoubleArray Fresh(int n) {
  const auto v = Awkward(static_cast<std::size_t>(n), 3);
  return CZEPHDoubleArray(n, v.data());
}

/// `aliased` on one array gives what `apart` gives on two equal ones.
void SameArray(const std::function<void(CZEPHDoubleArray&)>& aliased,
               const std::function<void(CZEPHDoubleArray&, const CZEPHDoubleArray&)>& apart) {
  for (const int n : kSizes) {
    CZEPHDoubleArray got = Fresh(n), want = Fresh(n);
    const CZEPHDoubleArray other = Fresh(n);
    aliased(got);
    apart(want, other);
    EXPECT_TRUE(SameValues(Elements(got), Elements(want))) << n;
  }
}

TEST(AbuseAliasing, AnArrayMayBeItsOwnOperand) {
  using A = CZEPHDoubleArray;
  SameArray([](A& a) { a += a; }, [](A& a, const A& b) { a += b; });
  SameArray([](A& a) { a -= a; }, [](A& a, const A& b) { a -= b; });
  SameArray([](A& a) { a = a + a; }, [](A& a, const A& b) { a += b; });
  SameArray([](A& a) { a = a - a; }, [](A& a, const A& b) { a -= b; });
  SameArray([](A& a) { a = a * a; }, [](A& a, const A& b) { a = a * b; });
  SameArray(
      [](A& a) {
        if (a.size) a = a[0] * a;
      },
      [](A& a, const A& b) {
        if (a.size) a = b[0] * b;
      });
  SameArray(
      [](A& a) {
        if (a.size) a = a / a[0];
      },
      [](A& a, const A& b) {
        if (a.size) a = b / b[0];
      });
  SameArray([](A& a) { a = +a; }, [](A&, const A&) {});
  SameArray(
      [](A& a) {
        A& same = a;
        a = same;
      },
      [](A&, const A&) {});
  for (const int n : kSizes) {
    const A a = Fresh(n);
    const A b = Fresh(n);
    EXPECT_SAME_VALUE(ZEPH_ArrayDotProduct(a, a), ZEPH_ArrayDotProduct(a, b)) << "n " << n;
  }
}

TEST(AbuseAliasing, ASearchKeyAndResultMayLieInTheArray) {
  for (const int n : {1, 3, 8, 17, 100}) {
    SCOPED_TRACE(::testing::Message() << "n " << n);
    auto v = Moderate(static_cast<std::size_t>(n), 9);
    CZEPHDoubleArray a(n, v.data());
    const double key = a[n - 1];
    EXPECT_EQ(a.Find(a[n - 1]), n - 1);
    EXPECT_EQ(a.BinarySearch(a[n - 1], a.size), 1);  // the result index is the count itself
    EXPECT_EQ(a.size, n - 1);
    a.size = n;
    EXPECT_EQ(a.Remove(a[n - 1]), 1);
    EXPECT_EQ(a.Find(key), -1);
    if (n > 1) a.SetEntry(a[0]);
    for (const double x : a) EXPECT_SAME_BITS(x, v[0]) << "n " << n << ", x " << x;
  }
}

TEST(AbuseAliasing, AMergeMayOverwriteElementsItHasRead) {
  for (const int n : {1, 3, 8, 100}) {
    std::vector<double> block(static_cast<std::size_t>(2 * n)), apart, want(block.size());
    for (int i = 0; i < n; ++i) {
      block[static_cast<std::size_t>(n + i)] = 2 * i;  // b, at the end of the output
      apart.push_back(2 * i + 1);
    }
    const std::vector<double> b(block.begin() + n, block.end());
    std::merge(apart.begin(), apart.end(), b.begin(), b.end(), want.begin());
    CZEPHDoubleArray any;
    any.MergeSortedArray(apart.data(), n, block.data() + n, n, block.data());
    EXPECT_TRUE(SameBits(block, want)) << "n " << n;
    std::vector<double> twice(apart.size() * 2), doubled;
    any.MergeSortedArray(apart.data(), n, apart.data(), n, twice.data());  // one input as both
    for (const double x : apart) doubled.insert(doubled.end(), {x, x});
    EXPECT_TRUE(SameBits(twice, doubled)) << "n " << n;
  }
}

/// As SameArray, for square matrices of both classes.
template <class Matrix, class Make, class Aliased, class Apart>
void SameMatrix(Make make, Aliased aliased, Apart apart) {
  for (const int n : {1, 2, 7, 33}) {
    const Rows cells = AwkwardRows(n, n, 4);
    Matrix got = make(cells, n), want = make(cells, n);
    const Matrix other = make(cells, n);
    aliased(got);
    apart(want, other);
    EXPECT_TRUE(SameValues(Elements(got), Elements(want))) << n;
  }
}

TEST(AbuseAliasing, ADoubleMatrixMayBeItsOwnOperand) {
  using M = CZEPHDoubleMatrix;
  const auto make = [](const Rows& cells, int n) { return ToDoubleMatrix(cells, n, n); };
  SameMatrix<M>(
      make, [](M& m) { m += m; }, [](M& m, const M& o) { m += o; });
  SameMatrix<M>(
      make, [](M& m) { m -= m; }, [](M& m, const M& o) { m -= o; });
  SameMatrix<M>(
      make, [](M& m) { m *= m; }, [](M& m, const M& o) { m.operator*=(o); });
  SameMatrix<M>(
      make, [](M& m) { m = m + m; }, [](M& m, const M& o) { m += o; });
  SameMatrix<M>(
      make, [](M& m) { m = m - m; }, [](M& m, const M& o) { m -= o; });
  SameMatrix<M>(
      make, [](M& m) { m += -m; }, [](M& m, const M& o) { m += -o; });
  SameMatrix<M>(
      make, [](M& m) { m = -m; }, [](M& m, const M& o) { m = -o; });
  SameMatrix<M>(
      make, [](M& m) { EXPECT_EQ(m.SetData(m), 1); }, [](M&, const M&) {});
  SameMatrix<M>(
      make,
      [](M& m) {
        M& same = m;
        m = same;
      },
      [](M&, const M&) {});
  SameMatrix<M>(
      make, [](M& m) { m.SetEntry(m[0][0]); }, [](M& m, const M& o) { m.SetEntry(o[0][0]); });
}

TEST(AbuseAliasing, AGeneralMatrixOrVectorMayBeItsOwnOperand) {
  using M = CZEPHMatrix;
  const auto make = [](const Rows& cells, int) { return ToMatrix(cells); };
  SameMatrix<M>(
      make, [](M& m) { m = m + m; }, [](M& m, const M& o) { m = m + o; });
  SameMatrix<M>(
      make, [](M& m) { m = m * m; }, [](M& m, const M& o) { m = m * o; });
  SameMatrix<M>(
      make,
      [](M& m) {
        M& same = m;
        m = same;
      },
      [](M&, const M&) {});
  SameMatrix<M>(
      make,
      [](M& m) {
        CZEPHVector column = m.PickCol(0);
        m.SetCol(0, column);
      },
      [](M&, const M&) {});
  for (const int n : kSizes) {
    SCOPED_TRACE(::testing::Message() << "n " << n);
    const auto v = Awkward(static_cast<std::size_t>(n), 8);
    const CZEPHVector kept = ToVector(v);
    CZEPHVector a = ToVector(v), b = ToVector(v);
    a = a + a;
    b = b + kept;
    EXPECT_TRUE(SameValues(Elements(a), Elements(b)));
    a = a - a;
    b = b - CZEPHVector(b);
    EXPECT_TRUE(SameValues(Elements(a), Elements(b)));
    CZEPHVector& same = a;
    a = same;
    EXPECT_TRUE(SameValues(Elements(a), Elements(b)));
    if (!n) continue;
    CZEPHVector c = ToVector(v);
    c = c[0] * c;  // the scalar is an element of what is replaced
    EXPECT_TRUE(SameValues(Elements(c), Elements(v[0] * kept)));
  }
}

TEST(AbuseAliasing, AFourByFourMatrixMayBeItsOwnOperandOrScaledByItsOwnEntry) {
  for (int seed = 0; seed < 200; ++seed) {
    const auto v = Awkward<float>(16, static_cast<std::uint64_t>(seed));
    flat::Matrix cells{};
    std::copy(v.begin(), v.end(), cells.begin());
    const auto check = [&v, seed](const flat::Matrix& want, const auto& change) {
      CZEPHMatrix4x4 m(v.data());
      change(m);
      EXPECT_TRUE(SameValues(m.entries, want.data(), 16)) << "seed " << seed;
    };
    using M = CZEPHMatrix4x4;
    check(flat::Product(cells, cells), [](M& m) { m *= m; });
    check(flat::Product(cells, cells), [](M& m) { m = m * m; });
    check(flat::Over(cells, cells[5]), [](M& m) { m /= m.entries[5]; });
    check(flat::Transposed(cells), [](M& m) { m = m.GetTranspose(); });
    flat::Matrix sum{}, scaled{};
    for (std::size_t i = 0; i < 16; ++i) {
      sum[i] = flat::Add(cells[i], cells[i]);
      scaled[i] = flat::Mul(cells[i], cells[3]);
    }
    check(sum, [](M& m) { m += m; });
    check(scaled, [](M& m) { m *= m.entries[3]; });
  }
}

TEST(AbuseAliasing, AFloatVectorMayBeItsOwnOperandResultAndAxis) {
  for (int seed = 0; seed < 200; ++seed) {
    const auto v = Awkward<float>(3, static_cast<std::uint64_t>(seed));
    const CZEPHVector3D kept(v.data());
    const auto check = [&v, seed](const CZEPHVector3D& want, const auto& change) {
      CZEPHVector3D a(v.data());
      change(a);
      EXPECT_TRUE(SameValues(&a.x, &want.x, 3)) << "seed " << seed;
    };
    using V = CZEPHVector3D;
    check(kept + kept, [](V& a) { a += a; });
    check(kept - kept, [](V& a) { a -= a; });
    check(kept + kept, [](V& a) { a.Add(a, a); });
    check(kept - kept, [](V& a) { a.Subtract(a, a); });
    check(kept * kept.y, [](V& a) { a *= a.y; });
    check(kept.CrossProduct(V(kept)), [](V& a) { a = a.CrossProduct(a); });
    check(kept.GetRotatedAxis(30, V(kept)), [](V& a) { a.RotateAxis(30, a); });
    check(kept.LinearInterpolate(V(kept), kept.x), [](V& a) { a = a.LinearInterpolate(a, a.x); });
  }
}

TEST(AbuseAliasing, RawSnappedProductsAndRotationsWorkInPlace) {
  double a[3][3], b[3][3], apart[3][3];
  const auto v = Moderate(18, 12, -2, 2);
  std::copy_n(v.begin(), 9, &a[0][0]);
  std::copy_n(v.begin() + 9, 9, &b[0][0]);
  double kept[3][3];
  std::memcpy(kept, a, sizeof a);
  ZEPH_MatrixMultiply3(a, b, apart);
  ZEPH_MatrixMultiply3(a, b, a);
  EXPECT_TRUE(SameValues(&a[0][0], &apart[0][0], 9));
  std::memcpy(a, kept, sizeof a);
  ZEPH_MatrixMultiply3(a, b, b);
  EXPECT_TRUE(SameValues(&b[0][0], &apart[0][0], 9));
  ZEPH_MatrixMultiply3(a, kept, apart);
  ZEPH_MatrixMultiply3(a, a, a);
  EXPECT_TRUE(SameValues(&a[0][0], &apart[0][0], 9));
}

TEST(AbuseAliasing, AStringMayBeItsOwnArgument) {
  CString s("a%sb");
  s += s;
  EXPECT_STREQ(s, "a%sba%sb");
  s += s.GetString() + 4;
  EXPECT_STREQ(s, "a%sba%sba%sb");
  s.Format("%s", s.GetString());
  EXPECT_STREQ(s, "a%sba%sba%sb");
  s.AppendFormat("[%s|%s]", s.GetString() + 8, s.GetString() + 9);
  EXPECT_STREQ(s, "a%sba%sba%sb[a%sb|%sb]");
  s = s.GetString() + 12;
  EXPECT_STREQ(s, "[a%sb|%sb]");
  s = s.Mid(1, 4);
  EXPECT_STREQ(s, "a%sb");
  s.Append(s.GetString(), s.GetLength());
  EXPECT_STREQ(s, "a%sba%sb");
  EXPECT_EQ(s.Find(s), 0);
  std::string big(100'000, 'x');
  CString text(big);
  for (int k = 0; k < 4; ++k) text += text.GetString();  // outgrows its storage each time
  EXPECT_EQ(text.GetLength(), 1'600'000);
}

TEST(AbuseAliasing, AListingsLabelMayLieInItsOutputString) {
  CString out("label%d");
  int a[] = {1, 2};
  ZEPH_ArrayDisplay(out, a, 2, const_cast<char*>(out.GetString()));
  EXPECT_STREQ(out, "label%dlabel%d[0]=1       label%d[1]=2       \r\n");
}

TEST(AbuseAliasing, ScalarOutputsMayBeTheSameVariable) {
  double v = 3.0;
  ZEPH_MathClamp(v, v, v);
  EXPECT_EQ(v, 3.0);
  EXPECT_EQ(ZEPH_MathClamped(v, v, v), 3.0);
  int q = 0;
  ZEPH_MathIntegerDivision(7, 2, q, q);
  EXPECT_TRUE(q == 3 || q == 1) << q;
}

}  // namespace
}  // namespace zeph::test
