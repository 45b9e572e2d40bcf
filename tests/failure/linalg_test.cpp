// Matrices and vectors: the double matrix returns 0 or has no storage, the general ones throw.
#include <optional>
#include <utility>

#include "failure/operations.h"
#include "linalg/matrices.h"

using namespace zeph::test;

using LinalgFailure = AllocationFailure;

namespace {

constexpr int kPlaces = 17;  // the negations that a thread keeps

const Rows& X() {
  static const Rows rows = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
  return rows;
}

/// Nine elements in three rows: a table and three rows to ask for.
struct Matrices {
  CZEPHDoubleMatrix a = ToDoubleMatrix(X(), 3, 3), b = ToDoubleMatrix(X(), 3, 3);
  std::optional<CZEPHDoubleMatrix> result;
  int answer = -1;
  bool sized = false;
};
Matrices MakeMatrices() {
  return Matrices();
}
bool Unchanged(const Matrices& s) {
  return SameBits(Elements(s.a), X()) && SameBits(Elements(s.b), X());
}
/// Counts as documented; a row that could not be allocated is null, and so may be the table.
bool HasMissingRows(const CZEPHDoubleMatrix& m) {
  if (m.m_nRows != 3 || m.m_nColumns != 3) return false;
  for (int i = 0; m.m_ppData && i < 3; ++i)
    if (!m.m_ppData[i]) return true;
  return !m.m_ppData;
}

/// An operator's result has its size; returning it may copy it once more, and the copy then has
/// storage after all.
void Note(Matrices& s, const CZEPHDoubleMatrix& result) {
  s.sized = result.m_nRows == 3 && result.m_nColumns == 3;
}

template <class Call>
void ExpectMissingRows(const char* name, Call call, long requests = 4) {
  ExpectOnFailure({name, requests, Ending::kSilent}, MakeMatrices, call, [](const Matrices& s) {
    return Unchanged(s) && (s.sized || (s.result && HasMissingRows(*s.result)));
  });
}

template <class Call>
void ExpectZero(const char* name, Call call) {
  ExpectOnFailure(
      {name, 4, Ending::kSilent},
      [] {
        Matrices s;
        s.result.emplace();
        return s;
      },
      call,
      [](const Matrices& s) { return s.answer == 0 && Unchanged(s) && HasMissingRows(*s.result); });
}

struct General {
  CZEPHMatrix m = ToMatrix(X()), other = ToMatrix(X()), small = CZEPHMatrix(1, 1);
  CZEPHVector v = ToVector({1, 2, 3}), shortOne = ToVector({1});
};
General MakeGeneral() {
  return General();
}
bool OperandsStay(const General& s) {
  return SameBits(Elements(s.m), X()) && SameBits(Elements(s.other), X()) &&
         SameBits(Elements(s.v), {1, 2, 3});
}

template <class Call>
void ExpectPassed(const char* name, long requests, Call call) {
  ExpectOnFailure({name, requests, Ending::kPasses}, MakeGeneral, call, OperandsStay);
}

void FillTheKeptNegations() {
  CZEPHDoubleMatrix a = ToDoubleMatrix(X(), 3, 3);
  for (int i = 0; i < kPlaces; ++i) -a;
}

}  // namespace

TEST_F(LinalgFailure, DoubleMatrixConstructorsLeaveOutTheRowsNotAllocated) {
  ExpectMissingRows("copy", [](Matrices& s) { s.result.emplace(std::as_const(s.a)); });
  ExpectMissingRows("(rows, cols, v)", [](Matrices& s) { s.result.emplace(3, 3, 1.0); });
  ExpectMissingRows("(rows, cols, whole v)", [](Matrices& s) { s.result.emplace(3, 3, 1); });
  ExpectMissingRows("(rows, cols, rows)",
                    [](Matrices& s) { s.result.emplace(3, 3, s.a.m_ppData); });
  ExpectNoRequest("()", MakeMatrices, [](Matrices& s) { s.result.emplace(); });
  ExpectNoRequest("move", MakeMatrices, [](Matrices& s) { s.result.emplace(std::move(s.a)); });
}

TEST_F(LinalgFailure, SetDataAndCreateReturnZero) {
  ExpectZero("Create", [](Matrices& s) { s.answer = s.result->Create(3, 3); });
  ExpectZero("SetData of a matrix", [](Matrices& s) { s.answer = s.result->SetData(s.a); });
  ExpectZero("SetData of a value", [](Matrices& s) { s.answer = s.result->SetData(3, 3, 1.0); });
  ExpectZero("SetData of a whole value",
             [](Matrices& s) { s.answer = s.result->SetData(3, 3, 1); });
  ExpectZero("SetData of rows",
             [](Matrices& s) { s.answer = s.result->SetData(3, 3, s.a.m_ppData); });
}

TEST_F(LinalgFailure, AMatrixLosesItsStorageWhereNewStorageCannotBeAllocated) {
  // Of 2 x 3 elements before; a source that reads them is kept until it has been copied.
  const auto held = [] {
    Matrices s;
    s.result.emplace(2, 3, 7.0);
    return s;
  };
  const auto expect = [&](const char* name, auto call) {
    ExpectOnFailure({name, 4, Ending::kSilent}, held, call, [](const Matrices& s) {
      return s.answer == 0 && Unchanged(s) && HasMissingRows(*s.result);
    });
  };
  expect("Create", [](Matrices& s) { s.answer = s.result->Create(3, 3); });
  expect("SetData of a matrix", [](Matrices& s) { s.answer = s.result->SetData(s.a); });
  expect("SetData of a value", [](Matrices& s) { s.answer = s.result->SetData(3, 3, 1.0); });
  expect("SetData of rows", [](Matrices& s) { s.answer = s.result->SetData(3, 3, s.a.m_ppData); });
  ExpectOnFailure(
      {"SetData of own rows", 4, Ending::kSilent},
      [] {
        Matrices s;
        s.result.emplace(3, 3, 7.0);
        return s;
      },
      [](Matrices& s) {
        double* own[] = {s.result->m_ppData[2], s.result->m_ppData[0], s.result->m_ppData[1]};
        s.answer = s.result->SetData(3, 3, own);
      },
      [](const Matrices& s) { return s.answer == 0 && HasMissingRows(*s.result); });
  ExpectOnFailure(
      {"= to a matrix with a count of 0", 4, Ending::kSilent},
      [] {
        Matrices s;
        s.result.emplace(2, 0, 7.0);
        return s;
      },
      [](Matrices& s) { *s.result = s.a; },
      [](const Matrices& s) { return Unchanged(s) && HasMissingRows(*s.result); });
}

TEST_F(LinalgFailure, DoubleMatrixOperatorsReturnTheSizeWithoutStorage) {
  ExpectMissingRows("member +", [](Matrices& s) { Note(s, s.a + s.b); });
  ExpectMissingRows("member -", [](Matrices& s) { Note(s, s.a - s.b); });
  ExpectMissingRows("+", [](Matrices& s) { Note(s, std::as_const(s.a) + s.b); });
  ExpectMissingRows("-", [](Matrices& s) { Note(s, std::as_const(s.a) - s.b); });
  ExpectMissingRows("unary +", [](Matrices& s) { Note(s, +std::as_const(s.a)); });
  ExpectMissingRows("unary -", [](Matrices& s) { Note(s, -std::as_const(s.a)); });
  ExpectMissingRows("= to an empty matrix", [](Matrices& s) { Note(s, s.result.emplace() = s.a); });
  ExpectNoRequest("+=", MakeMatrices, [](Matrices& s) { s.a += s.b; });
  ExpectNoRequest("-=", MakeMatrices, [](Matrices& s) { s.a -= s.b; });
  ExpectNoRequest("= of equal sizes", MakeMatrices, [](Matrices& s) { s.a = s.b; });
}

namespace {

/// Whether the rows that there are hold those of X.
bool StoredRowsAreX(const CZEPHDoubleMatrix& m) {
  for (int i = 0; m.m_ppData && i < 3 && m.m_ppData[i]; ++i)
    if (!SameBits(std::vector<double>(m.m_ppData[i], m.m_ppData[i] + 3), X()[Count(i)]))
      return false;
  return true;
}

}  // namespace

TEST_F(LinalgFailure, AnAssignmentFillsTheRowsThatItGot) {
  const auto expect = [](const char* name, int rows, int cols) {
    ExpectOnFailure(
        {name, 4, Ending::kSilent},
        [=] {
          Matrices s;
          s.result.emplace(rows, cols, 7.0);
          return s;
        },
        [](Matrices& s) { *s.result = s.a; },
        [](const Matrices& s) {
          return Unchanged(s) && HasMissingRows(*s.result) && StoredRowsAreX(*s.result);
        });
  };
  expect("= to an empty matrix", 0, 0);
  expect("= to a matrix without columns", 2, 0);
  expect("= to a matrix without rows", 0, 4);
}

TEST_F(LinalgFailure, TheProductLeavesTheMatrixUnchanged) {
  ExpectOnFailure(
      {"*=", 4, Ending::kSilent}, MakeMatrices, [](Matrices& s) { s.a *= s.b; }, Unchanged);
}

TEST_F(LinalgFailure, AMatrixTimesAnArrayReturnsTheSizeWithoutStorage) {
  struct State {
    CZEPHDoubleMatrix a = ToDoubleMatrix(X(), 3, 3);
    CZEPHDoubleArray v = CZEPHDoubleArray(3, 1.0);
    bool empty = false;
  };
  ExpectOnFailure(
      {"* array", 1, Ending::kSilent}, [] { return State(); },
      [](State& s) {
        const CZEPHDoubleArray& result = s.a * s.v;
        s.empty = result.size == 3 && !result.data;
      },
      [](const State& s) { return s.empty; });
}

TEST_F(LinalgFailure, TheMemberUnaryMinusReturnsAMatrixOfTheSize) {
  struct State : Matrices {
    CZEPHDoubleMatrix* negated = nullptr;
    State() = default;
    State(State&&) = default;
    ~State() { FillTheKeptNegations(); }  // the failed ones have less storage than the others
  };
  FillTheKeptNegations();
  ExpectOnFailure(
      {"member unary -", 4, Ending::kSilent}, [] { return State(); },
      [](State& s) { s.negated = &-s.a; },
      [](const State& s) {
        const CZEPHDoubleMatrix& m = *s.negated;  // not the one that was kept there before
        const Rows zeros(3, std::vector<double>(3, 0.0));
        return Unchanged(s) && m.m_nRows == 3 &&
               (HasMissingRows(m) || SameBits(Elements(m), zeros));
      });
}

TEST_F(LinalgFailure, GeneralMatricesPropagateItAndLeakNothing) {
  static const double data[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  ExpectPassed("(rows, cols)", 4, [](General&) { CZEPHMatrix(3, 3); });
  ExpectPassed("(rows, cols, data)", 4, [](General&) { CZEPHMatrix(3, 3, data); });
  ExpectPassed("copy", 4, [](General& s) { CZEPHMatrix copy(s.m); });
  ExpectPassed("copy of a constant", 4, [](General& s) { CZEPHMatrix copy(std::as_const(s.m)); });
  ExpectPassed("= of equal sizes", 4, [](General& s) { s.m = s.other; });
  ExpectPassed("= of another size", 8, [](General& s) { s.small = s.other; });
  ExpectPassed("ReSize", 4, [](General& s) { s.small.ReSize(3, 3); });
  ExpectPassed("+", 4, [](General& s) { s.m + s.other; });
  ExpectPassed("*", 4, [](General& s) { s.m* s.other; });
  ExpectPassed("PickCol", 1, [](General& s) { s.m.PickCol(1); });
  ExpectPassed("ZEPH_SumVector", 1, [](General& s) { ZEPH_SumVector(s.m); });
  ExpectNoRequest("move", MakeGeneral, [](General& s) { CZEPHMatrix moved(std::move(s.m)); });
  ExpectNoRequest("PickCol into", MakeGeneral, [](General& s) { s.m.PickCol(1, s.v); });
  ExpectNoRequest("ZEPH_SumVector into", MakeGeneral, [](General& s) { ZEPH_SumVector(s.m, s.v); });
  ExpectNoRequest("SetCol", MakeGeneral, [](General& s) { s.m.SetCol(1, s.v); });
  ExpectNoRequest("ZEPH_RandomizeMatrix", MakeGeneral,
                  [](General& s) { ZEPH_RandomizeMatrix(s.m, 1.0); });
}

TEST_F(LinalgFailure, GeneralVectorsPropagateItAndLeakNothing) {
  static const double data[3] = {1, 2, 3};
  ExpectPassed("(n)", 1, [](General&) { CZEPHVector w(3); });
  ExpectPassed("(n, data)", 1, [](General&) { CZEPHVector w(3, data); });
  ExpectPassed("copy", 1, [](General& s) { CZEPHVector copy(s.v); });
  ExpectPassed("copy of a constant", 1, [](General& s) { CZEPHVector copy(std::as_const(s.v)); });
  ExpectPassed("= of another size", 2, [](General& s) { s.shortOne = s.v; });
  ExpectPassed("= of equal sizes", 1, [](General& s) { s.v = std::as_const(s.v); });
  ExpectPassed("ReSize", 1, [](General& s) { s.shortOne.ReSize(3); });
  ExpectPassed("+", 1, [](General& s) { s.v + s.v; });
  ExpectPassed("-", 1, [](General& s) { s.v - s.v; });
  ExpectPassed("/", 1, [](General& s) { s.v / 2.0; });
  ExpectPassed("s *", 1, [](General& s) { 2.0 * s.v; });
  ExpectPassed("* s", 1, [](General& s) { s.v * 2.0; });
  ExpectNoRequest("move", MakeGeneral, [](General& s) { CZEPHVector moved(std::move(s.v)); });
}

TEST_F(LinalgFailure, GeneralObjectsHaveTheirNewCountsWhereMemoryRunsOut) {
  for (const int before : {0, 1, 3, 5})
    for (const int after : {1, 2, 8}) {
      SCOPED_TRACE(::testing::Message() << before << " to " << after);
      const auto vector = [=] { return CZEPHVector(before); };
      const CZEPHVector longer(after);
      const auto sized = [=](const CZEPHVector& v) { return v.GetSize() == after; };
      ExpectOnFailure(
          {"vector ReSize", 1, Ending::kPasses}, vector, [=](CZEPHVector& v) { v.ReSize(after); },
          [=](const CZEPHVector& v) { return sized(v) && !v.m_pData; });
      ExpectOnFailure(
          {"vector =", kSome, Ending::kPasses}, vector, [&](CZEPHVector& v) { v = longer; }, sized);

      const auto matrix = [=] { return CZEPHMatrix(before, 2); };
      const CZEPHMatrix higher(after, 3);
      const auto shaped = [=](const CZEPHMatrix& m) {
        return m.GetNoRow() == after && m.GetNoColumn() == 3;
      };
      ExpectOnFailure(
          {"matrix ReSize", after + 1, Ending::kPasses}, matrix,
          [=](CZEPHMatrix& m) { m.ReSize(after, 3); }, shaped);
      ExpectOnFailure(
          {"matrix =", 2 * (after + 1), Ending::kPasses}, matrix,
          [&](CZEPHMatrix& m) { m = higher; }, shaped);
    }
}

TEST_F(LinalgFailure, FixedSizeClassesAllocateNothing) {
  const auto none = [] { return 0; };
  ExpectNoRequest("CZEPHMatrix4", none, [](int) { CZEPHMatrix4 a(2.0), b(a * a), c(-b); });
  ExpectNoRequest("CZEPHVector3", none,
                  [](int) { CZEPHVector3 v(1, 2, 3), w(v ^ v), x(Bisect(v, w)); });
}
