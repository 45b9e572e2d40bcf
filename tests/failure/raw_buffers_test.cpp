// Raw buffers: null without a message, and the documented leaks.
#include <cstring>

#include "failure/operations.h"
#include "raw_buffers.h"
#include "raw_buffers/families.h"

using namespace zeph::test;

using RawBufferFailure = AllocationFailure;

namespace {

char kName[] = "name";

template <class T>
struct Buffer {
  T* p = nullptr;
  int lo = 0;
  long bytes = -77;
  Buffer() = default;
  Buffer(Buffer&& other) noexcept : p(other.p), lo(other.lo), bytes(other.bytes) {
    other.p = nullptr;
  }
  ~Buffer() { ZEPH_ArrayFree(p, lo, lo); }
};

template <class T>
struct Matrix {
  T** m = nullptr;
  int rows = 0;
  long bytes = -77;
  T** fresh = nullptr;  // a resized one
  Matrix() = default;
  Matrix(Matrix&& other) noexcept : m(other.m), rows(other.rows), bytes(other.bytes) {
    other.m = nullptr;
  }
  ~Matrix() { ZEPH_MatrixFree(m, rows, 1); }
};

template <class T>
bool Nothing(const Buffer<T>& b) {
  return !b.p && b.bytes == -77;
}

template <class T>
void ExpectNullArrays() {
  const auto make = [] { return Buffer<T>(); };
  const auto range = [](Buffer<T>& b, int lo) -> Buffer<T>& {
    b.lo = lo;
    return b;
  };
  ExpectOnFailure(
      {"array", 1, Ending::kSilent}, make,
      [=](Buffer<T>& b) { b.p = Family<T>::Alloc(range(b, 1).lo, 10); }, Nothing<T>);
  ExpectOnFailure(
      {"array with its size", 1, Ending::kSilent}, make,
      [=](Buffer<T>& b) { b.p = Family<T>::Alloc(range(b, -3).lo, 10, b.bytes); }, Nothing<T>);
}

template <class T>
void ExpectKeptBlocks() {
  struct State : Buffer<T> {
    T* fresh = nullptr;
  };
  const auto make = [] {
    State s;
    s.p = Family<T>::Alloc(0, 4);
    for (int i = 0; i < 5; ++i) s.p[i] = static_cast<T>(i);
    return s;
  };
  const auto kept = [](const State& s) {
    for (int i = 0; i < 5; ++i)
      if (s.p[i] != static_cast<T>(i)) return false;
    return !s.fresh;
  };
  const auto take = [](State& s, T* fresh) {
    s.fresh = fresh;
    if (fresh) s.p = fresh;
  };
  ExpectOnFailure(
      {"realloc", 1, Ending::kSilent}, make,
      [=](State& s) { take(s, ZEPH_ArrayRealloc(s.p, 4, 8, kName)); }, kept);
  ExpectOnFailure(
      {"resize", 1, Ending::kSilent}, make, [=](State& s) { take(s, ZEPH_ArrayResize(s.p, 5, 9)); },
      kept);
}

template <class T>
void ExpectNullMatrices() {
  const auto make = [] { return Matrix<T>(); };
  const auto none = [](const Matrix<T>& m) { return !m.m && m.bytes == -77; };
  const Expectation want{"matrix", 5, Ending::kSilent, LosesTheEarlierBlocks};
  const auto of = [](Matrix<T>& m) -> Matrix<T>& {
    m.rows = 4;
    return m;
  };
  ExpectOnFailure(
      want, make, [=](Matrix<T>& m) { of(m).m = Family<T>::Matrix(4, 3); }, none);
  ExpectOnFailure(
      want, make, [=](Matrix<T>& m) { of(m).m = Family<T>::Matrix(4, 3, m.bytes); }, none);
  ExpectOnFailure(
      want, make, [=](Matrix<T>& m) { of(m).m = Family<T>::Matrix(0, 3, 0, 2); }, none);
  ExpectOnFailure(
      want, make, [=](Matrix<T>& m) { of(m).m = Family<T>::Matrix(0, 3, 0, 2, m.bytes); }, none);
}

template <class T>
void ExpectKeptMatrices() {
  ExpectOnFailure(
      {"matrix resize", 5, Ending::kSilent, LosesTheEarlierBlocks},
      [] {
        Matrix<T> s;
        s.rows = 2;
        s.m = Family<T>::Matrix(2, 2);
        s.m[1][1] = static_cast<T>(7);
        return s;
      },
      [](Matrix<T>& s) {
        s.fresh = ZEPH_MatrixResize(s.m, 1, 1, 3, 3);
        if (s.fresh) s.m = s.fresh, s.rows = 4;
      },
      [](const Matrix<T>& s) { return !s.fresh && s.m[1][1] == static_cast<T>(7); });
}

}  // namespace

TEST_F(RawBufferFailure, ArraysAreNullAndTheByteCountUntouched) {
  ForEachElementType([](auto zero) { ExpectNullArrays<decltype(zero)>(); });
}

TEST_F(RawBufferFailure, ABlockThatCannotGrowIsKept) {
  ForEachElementType([](auto zero) { ExpectKeptBlocks<decltype(zero)>(); });
}

TEST_F(RawBufferFailure, MatricesAreNullAndLeakTheRowsBeforeTheFailure) {
  ForEachElementType([](auto zero) { ExpectNullMatrices<decltype(zero)>(); });
}

TEST_F(RawBufferFailure, AMatrixThatCannotGrowIsKeptAndTheNewRowsLeak) {
  ForEachElementType([](auto zero) { ExpectKeptMatrices<decltype(zero)>(); });
}

TEST_F(RawBufferFailure, ListingsLeaveTheTextUnchanged) {
  struct State {
    std::vector<double> doubles = std::vector<double>(50, 1.0);
    std::vector<int> ints = std::vector<int>(50, 1);
    CString text = "before";
  };
  const auto list = [](const char* name, auto call) {
    ExpectOnFailure(
        {name, kSome, Ending::kPasses}, [] { return State(); }, call,
        [](const State& s) { return std::strcmp(s.text, "before") == 0; });
  };
  list("ints", [](State& s) { ZEPH_ArrayDisplay(s.text, s.ints.data(), 50, kName); });
  list("ints, a range", [](State& s) { ZEPH_ArrayDisplay(s.text, s.ints.data(), 1, 49, kName); });
  list("doubles", [](State& s) { ZEPH_ArrayDisplay(s.text, s.doubles.data(), 50, kName); });
  list("doubles, a range",
       [](State& s) { ZEPH_ArrayDisplay(s.text, s.doubles.data(), 1, 49, kName); });
}

TEST_F(RawBufferFailure, NormsMergesAndProductsAllocateNothing) {
  struct State {
    std::vector<double> a = std::vector<double>(400, 1.0), b = a, c = std::vector<double>(800);
    std::vector<double*> rows;
    State() {
      for (std::size_t i = 0; i < 20; ++i) rows.push_back(a.data() + 20 * i);
    }
  };
  const auto none = [](const char* name, auto call) {
    ExpectNoRequest(
        name, [] { return State(); }, call);
  };
  none("merge",
       [](State& s) { ZEPH_ArrayMergeSorted(s.a.data(), 400, s.b.data(), 400, s.c.data()); });
  none("product", [](State& s) {
    ZEPH_MatrixMult(20, 20, s.rows.data(), 20, 20, s.rows.data(), s.rows.data());
  });
  none("transpose", [](State& s) { ZEPH_MatrixTranspose(20, s.a.data(), s.b.data()); });
  none("norms", [](State& s) {
    ZEPH_MatrixOneNorm(s.rows.data(), 20, 0);
    ZEPH_ArrayTwoNorm2(s.a.data(), 400, 0);
  });
}
