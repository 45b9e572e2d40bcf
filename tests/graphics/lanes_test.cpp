// The form of the lanes that this processor uses against the portable one.
#include "graphics/lanes.h"

#include <gtest/gtest.h>

#include "graphics/inverse.h"
#include "graphics/product.h"
#include "graphics/values.h"

using namespace zeph::test;
using zeph::graphics::Columns;
using zeph::graphics::Form;
using zeph::graphics::Lanes;
using zeph::graphics::PlainLanes;

const std::size_t kCases = Scaled(100'000);

template <class L>
static oracle::Vector Array(L lanes) {
  oracle::Vector r(4);
  lanes.Store(r.data());
  return r;
}

// The results of the operations on eight floats, in the lanes `L`.
template <class L>
static std::vector<oracle::Vector> Moves(const float* p) {
  const L a = L::Load(p), b = L::Load(p + 4);
  return {Array(a),
          Array(L::All(p[5])),
          Array(L::Of(p[3], p[1], p[4], p[0])),
          Array(-a),
          Array(a.template Pick<3, 0, 2, 2>()),
          Array(L::template Join<1, 3, 0, 2>(a, b)),
          Array(L::WithLast(a, b)),
          Array(L::Alternate(a, b)),
          {a.First()}};
}
template <class L>
static std::vector<oracle::Vector> Arithmetic(const float* p) {
  const L a = L::Load(p), b = L::Load(p + 4);
  return {Array(a + b), Array(a - b), Array(a * b)};
}

TEST(Lanes, MoveAndComputeAsThePortableFormDoes) {
  ForEachCase(kCases, 81, [](Random& random) {
    float p[8];
    for (float& x : p) x = AnyFloat(random, random.Below(2) == 0);
    const auto moves = Moves<Lanes>(p), plainMoves = Moves<PlainLanes>(p);
    for (std::size_t i = 0; i < moves.size(); ++i)
      EXPECT_TRUE(SameBits(moves[i], plainMoves[i])) << "move " << i;
    const auto sums = Arithmetic<Lanes>(p), plainSums = Arithmetic<PlainLanes>(p);
    for (std::size_t i = 0; i < sums.size(); ++i)
      EXPECT_TRUE(SameValues(sums[i], plainSums[i])) << "operation " << i;
  });
}

template <class L>
static CZEPHMatrix4x4 Stored(const Columns<L>& columns) {
  CZEPHMatrix4x4 m;
  columns.Store(m.entries);
  return m;
}

// The results of the matrix operations in the lanes `L`.
template <class L>
static std::vector<CZEPHMatrix4x4> Results(const float* a, const float* b) {
  using namespace zeph::graphics;
  CZEPHMatrix4x4 vector;
  Product(a, L::Load(b)).Store(vector.entries);
  return {Stored(Product<L>(a, b)),
          vector,
          Stored(GeneralInverse<L, Form::kInverse>(a)),
          Stored(GeneralInverse<L, Form::kInverseTranspose>(a)),
          Stored(RigidInverse<L, Form::kInverse>(a)),
          Stored(RigidInverse<L, Form::kInverseTranspose>(a)),
          Stored(Columns<L>::Load(a).Transposed())};
}

TEST(Lanes, MultiplyAndInvertMatricesAsThePortableFormDoes) {
  ForEachCase(kCases, 82, [](Random& random) {
    const CZEPHMatrix4x4 a = AnyMatrix(random), b = AnyMatrix(random);
    const auto got = Results<Lanes>(a.entries, b.entries);
    const auto want = Results<PlainLanes>(a.entries, b.entries);
    for (std::size_t i = 0; i < got.size(); ++i)
      EXPECT_TRUE(Same(got[i], want[i])) << "operation " << i;
  });
}
