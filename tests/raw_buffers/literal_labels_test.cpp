#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "raw_buffers.h"
#include "support/allocation.h"
#include "support/child.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

template <class T>
void ExpectCells(T* p) {
  ASSERT_NE(p, nullptr);
  EXPECT_TRUE(p[1] == T(0));
  ZEPH_ArrayFree(p, 1, 2);
}
template <class T>
void ExpectCells(T** m, bool range) {
  ASSERT_NE(m, nullptr);
  EXPECT_TRUE(m[1][1] == T(0));
  range ? ZEPH_MatrixFree(m, 1, 2, 1, 2) : ZEPH_MatrixFree(m, 2, 2);
}

}  // namespace

TEST(LiteralLabels, WorkInEveryAllocator) {
  long bytes = 0;
  ExpectCells(ZEPH_ArrayAllocDouble("x", 1, 2));
  ExpectCells(ZEPH_ArrayAllocDouble("x", 1, 2, bytes));
  EXPECT_EQ(bytes, 16);
  ExpectCells(ZEPH_ArrayAllocFloat("", 1, 2));
  ExpectCells(ZEPH_ArrayAllocFloat("x", 1, 2, bytes));
  EXPECT_EQ(bytes, 8);
  ExpectCells(ZEPH_ArrayAllocInt("x", 1, 2));
  ExpectCells(ZEPH_ArrayAllocInt("x", 1, 2, bytes));
  ExpectCells(ZEPH_ArrayAllocLong("x", 1, 2));
  ExpectCells(ZEPH_ArrayAllocLong("x", 1, 2, bytes));
  ExpectCells(ZEPH_MatrixAllocDouble("m", 2, 2), false);
  ExpectCells(ZEPH_MatrixAllocDouble("m", 2, 2, bytes), false);
  EXPECT_EQ(bytes, 32);
  ExpectCells(ZEPH_MatrixAllocDouble("m", 1, 2, 1, 2), true);
  ExpectCells(ZEPH_MatrixAllocDouble("m", 1, 2, 1, 2, bytes), true);
  ExpectCells(ZEPH_MatrixAllocFloat("m", 2, 2), false);
  ExpectCells(ZEPH_MatrixAllocFloat("m", 1, 2, 1, 2, bytes), true);
  EXPECT_EQ(bytes, 16);
  ExpectCells(ZEPH_MatrixAllocInt("m", 2, 2, bytes), false);
  ExpectCells(ZEPH_MatrixAllocInt("m", 1, 2, 1, 2), true);
  ExpectCells(ZEPH_MatrixAllocLong("m", 2, 2), false);
  ExpectCells(ZEPH_MatrixAllocLong("m", 1, 2, 1, 2), true);
}

namespace {

/// `rows` x `cols` from 0 on, with every element writable; the bytes are those of the other form.
template <class T, class Alloc, class AllocBytes>
void ExpectPlainMatrix(Alloc alloc, AllocBytes allocBytes) {
  long bytes = 0;
  T** const m = alloc();
  T** const counted = allocBytes(bytes);
  EXPECT_EQ(bytes, static_cast<long>(2 * 5 * sizeof(T)));
  for (T** each : {m, counted}) {
    ASSERT_NE(each, nullptr);
    for (int i = 0; i < 2; ++i)
      for (int j = 0; j < 5; ++j) {
        EXPECT_TRUE(each[i][j] == T(0));
        each[i][j] = static_cast<T>(10 * i + j);
      }
    ZEPH_MatrixFree(each, 2, 5);
  }
}
template <class T, class Alloc, class AllocBytes>
void ExpectRangeMatrix(Alloc alloc, AllocBytes allocBytes) {
  long bytes = 0;
  T** const m = alloc();
  T** const counted = allocBytes(bytes);
  EXPECT_EQ(bytes, static_cast<long>(2 * 3 * sizeof(T)));
  for (T** each : {m, counted}) {
    ASSERT_NE(each, nullptr);
    for (int i = 4; i <= 5; ++i)
      for (int j = 7; j <= 9; ++j) {
        EXPECT_TRUE(each[i][j] == T(0));
        each[i][j] = static_cast<T>(i + j);
      }
    ZEPH_MatrixFree(each, 4, 5, 7, 9);
  }
}
template <class T, class Alloc, class AllocBytes>
void ExpectArray(Alloc alloc, AllocBytes allocBytes) {
  long bytes = 0;
  T* const a = alloc();
  T* const counted = allocBytes(bytes);
  EXPECT_EQ(bytes, static_cast<long>(4 * sizeof(T)));
  for (T* each : {a, counted}) {
    ASSERT_NE(each, nullptr);
    for (int i = 3; i <= 6; ++i) {
      EXPECT_TRUE(each[i] == T(0));
      each[i] = static_cast<T>(i);
    }
    ZEPH_ArrayFree(each, 3, 6);
  }
}

}  // namespace

namespace {

/// The bytes of each request and release of `body`.
template <class Body>
std::vector<std::size_t> Requests(Body body) {
  const RecordAllocations record;
  body();
  std::vector<std::size_t> bytes;
  for (const AllocationEvent& event : record.Events()) bytes.push_back(event.bytes);
  return bytes;
}

}  // namespace

TEST(LiteralLabels, AllocateTheBlocksOfTheDocumentedForms) {
  char label[] = "m";
  long bytes = 0;
#define ZEPH_EXPECT(T, ArrayAlloc, MatrixAlloc)                                                   \
  {                                                                                               \
    const auto blocks = [&](auto name) {                                                          \
      return std::vector<std::vector<std::size_t>>{                                               \
          Requests([&] { ZEPH_ArrayFree(ArrayAlloc(*name, 3, 6), 3, 6); }),                       \
          Requests([&] { ZEPH_ArrayFree(ArrayAlloc(*name, 3, 6, bytes), 3, 6); }),                \
          Requests([&] { ZEPH_MatrixFree(MatrixAlloc(*name, 2, 5), 2, 5); }),                     \
          Requests([&] { ZEPH_MatrixFree(MatrixAlloc(*name, 2, 5, bytes), 2, 5); }),              \
          Requests([&] { ZEPH_MatrixFree(MatrixAlloc(*name, 4, 5, 7, 9), 4, 5, 7, 9); }),         \
          Requests([&] { ZEPH_MatrixFree(MatrixAlloc(*name, 4, 5, 7, 9, bytes), 4, 5, 7, 9); })}; \
    };                                                                                            \
    char* const documented = label;                                                               \
    EXPECT_EQ(blocks(&"m"), blocks(&documented));                                                 \
  }
  ZEPH_EXPECT(double, ZEPH_ArrayAllocDouble, ZEPH_MatrixAllocDouble)
  ZEPH_EXPECT(float, ZEPH_ArrayAllocFloat, ZEPH_MatrixAllocFloat)
  ZEPH_EXPECT(int, ZEPH_ArrayAllocInt, ZEPH_MatrixAllocInt)
  ZEPH_EXPECT(ZEPH_Long, ZEPH_ArrayAllocLong, ZEPH_MatrixAllocLong)
#undef ZEPH_EXPECT
}

TEST(LiteralLabels, PassEveryBoundOnInOrder) {
#define ZEPH_EXPECT(T, ArrayAlloc, MatrixAlloc)                                    \
  ExpectArray<T>([] { return ArrayAlloc("a", 3, 6); },                             \
                 [](long& bytes) { return ArrayAlloc("a", 3, 6, bytes); });        \
  ExpectPlainMatrix<T>([] { return MatrixAlloc("m", 2, 5); },                      \
                       [](long& bytes) { return MatrixAlloc("m", 2, 5, bytes); }); \
  ExpectRangeMatrix<T>([] { return MatrixAlloc("m", 4, 5, 7, 9); },                \
                       [](long& bytes) { return MatrixAlloc("m", 4, 5, 7, 9, bytes); })
  ZEPH_EXPECT(double, ZEPH_ArrayAllocDouble, ZEPH_MatrixAllocDouble);
  ZEPH_EXPECT(float, ZEPH_ArrayAllocFloat, ZEPH_MatrixAllocFloat);
  ZEPH_EXPECT(int, ZEPH_ArrayAllocInt, ZEPH_MatrixAllocInt);
  ZEPH_EXPECT(ZEPH_Long, ZEPH_ArrayAllocLong, ZEPH_MatrixAllocLong);
#undef ZEPH_EXPECT
}

TEST(LiteralLabels, ListingsMatchThoseOfTheDocumentedForms) {
  char a[] = "a", m[] = "m";
  int i[] = {11, 12, 13, 14};
  double d[] = {1, 2, 3, 4}, flat[16], *rows[4];
  for (int k = 0; k < 16; ++k) flat[k] = k;
  for (int k = 0; k < 4; ++k) rows[k] = flat + 4 * k;
  const auto file = [](auto body) { return Written([&](FILE* f) { body(f); }); };
  const auto text = [](auto body) {
    CString out("in front ");
    body(out);
    return std::string(out.GetString());
  };
  const auto standard = [](auto body) {
    CaptureStdout capture;
    body();
    return capture.Text();
  };
#define ZEPH_EXPECT_BOTH(how, call, literal) EXPECT_EQ(how([&] call), how([&] literal))
#define ZEPH_EXPECT_TO(how, parameter, call, literal) \
  EXPECT_EQ(how([&](parameter) call), how([&](parameter) literal))
  ZEPH_EXPECT_BOTH(
      standard, { ZEPH_ArrayDisplay(i, 1, 3, a); }, { ZEPH_ArrayDisplay(i, 1, 3, "a"); });
  ZEPH_EXPECT_BOTH(
      standard, { ZEPH_ArrayDisplay(d, 1, 3, a); }, { ZEPH_ArrayDisplay(d, 1, 3, "a"); });
  ZEPH_EXPECT_BOTH(
      standard, { ZEPH_ArrayDisplay(i, 3, a); }, { ZEPH_ArrayDisplay(i, 3, "a"); });
  ZEPH_EXPECT_TO(
      file, FILE * f, { ZEPH_ArrayDisplay(f, i, 1, 3, a); },
      { ZEPH_ArrayDisplay(f, i, 1, 3, "a"); });
  ZEPH_EXPECT_TO(
      file, FILE * f, { ZEPH_ArrayDisplay(f, d, 1, 3, a); },
      { ZEPH_ArrayDisplay(f, d, 1, 3, "a"); });
  ZEPH_EXPECT_TO(
      file, FILE * f, { ZEPH_ArrayDisplay(f, i, 3, a); }, { ZEPH_ArrayDisplay(f, i, 3, "a"); });
  ZEPH_EXPECT_TO(
      file, FILE * f, { ZEPH_ArrayDisplay(f, d, 3, a); }, { ZEPH_ArrayDisplay(f, d, 3, "a"); });
  ZEPH_EXPECT_TO(
      text, CString & out, { ZEPH_ArrayDisplay(out, i, 1, 3, a); },
      { ZEPH_ArrayDisplay(out, i, 1, 3, "a"); });
  ZEPH_EXPECT_TO(
      text, CString & out, { ZEPH_ArrayDisplay(out, d, 1, 3, a); },
      { ZEPH_ArrayDisplay(out, d, 1, 3, "a"); });
  ZEPH_EXPECT_TO(
      text, CString & out, { ZEPH_ArrayDisplay(out, i, 3, a); },
      { ZEPH_ArrayDisplay(out, i, 3, "a"); });
  ZEPH_EXPECT_TO(
      text, CString & out, { ZEPH_ArrayDisplay(out, d, 3, a); },
      { ZEPH_ArrayDisplay(out, d, 3, "a"); });
  ZEPH_EXPECT_TO(
      file, FILE * f, { ZEPH_MatrixPrint(f, 2, 3, rows, m); },
      { ZEPH_MatrixPrint(f, 2, 3, rows, "m"); });
  ZEPH_EXPECT_TO(
      file, FILE * f, { ZEPH_MatrixPrint(f, 3, rows, m); }, { ZEPH_MatrixPrint(f, 3, rows, "m"); });
  ZEPH_EXPECT_TO(
      file, FILE * f, { ZEPH_MatrixPrint4(f, rows, m); }, { ZEPH_MatrixPrint4(f, rows, "m"); });
  ZEPH_EXPECT_TO(
      file, FILE * f, { ZEPH_MatrixPrint4(f, flat, m); }, { ZEPH_MatrixPrint4(f, flat, "m"); });
#undef ZEPH_EXPECT_TO
#undef ZEPH_EXPECT_BOTH
}

TEST(LiteralLabels, ReallocateFromTheOldToTheNewCount) {
  char label[] = "p";
  for (const auto& [from, to] :
       {std::pair(3, 6), std::pair(6, 3), std::pair(6, 1), std::pair(1, 2)}) {
    int *literal = ZEPH_ArrayAllocInt("p", 0, from),
        *documented = ZEPH_ArrayAllocInt(label, 0, from);
    for (int i = 0; i <= from; ++i) literal[i] = documented[i] = 5 + i;
    literal = ZEPH_ArrayRealloc(literal, from, to, "p");
    documented = ZEPH_ArrayRealloc(documented, from, to, label);
    for (int i = 0; i <= to; ++i) EXPECT_EQ(literal[i], documented[i]) << from << ' ' << to;
    ZEPH_ArrayFree(literal, 0, to);
    ZEPH_ArrayFree(documented, 0, to);
  }
}

TEST(LiteralLabels, WorkInTheReallocation) {
  double* p = ZEPH_ArrayRealloc(ZEPH_ArrayAllocDouble("p", 0, 1), 1, 2, "p");
  EXPECT_EQ(p[2], 0.0);
  ZEPH_ArrayFree(p, 0, 2);
  int* q = ZEPH_ArrayRealloc(ZEPH_ArrayAllocInt("q", 0, 1), 1, 2, "q");
  EXPECT_EQ(q[2], 0);
  ZEPH_ArrayFree(q, 0, 2);
}

TEST(LiteralLabels, WorkInEveryListing) {
  int i[] = {1, 2};
  double d[] = {1, 2};
  CString out;
  ZEPH_ArrayDisplay(out, i, 0, 0, "a%d");
  ZEPH_ArrayDisplay(out, i, 1, "b");
  ZEPH_ArrayDisplay(out, d, 0, 0, "c");
  ZEPH_ArrayDisplay(out, d, 1, "d");
  EXPECT_STREQ(out.GetString(),
               "a%d[0]=1       \r\nb[0]=1       \r\n"
               "c[0]=1.0000e+00    \r\nd[0]=1.0000e+00    \r\n");
  EXPECT_EQ(Written([&](FILE* f) {
              ZEPH_ArrayDisplay(f, i, 0, 0, "a");
              ZEPH_ArrayDisplay(f, i, 1, "b");
              ZEPH_ArrayDisplay(f, d, 0, 0, "c");
              ZEPH_ArrayDisplay(f, d, 1, "d");
            }),
            "a[0]=1      \nb[0]=1      \nc[0]=1.0000e+00   \nd[0]=1.0000e+00   \n");
  CaptureStdout capture;
  ZEPH_ArrayDisplay(i, 0, 0, "a");
  ZEPH_ArrayDisplay(i, 1, "b");
  ZEPH_ArrayDisplay(d, 0, 0, "c");
  const std::string text = capture.Text();
  EXPECT_EQ(text.substr(0, 12), "a[0]=1      ");
  EXPECT_NE(text.find("b[0]=1      "), std::string::npos);
  EXPECT_NE(text.find("c[0]=1.0000e+00  "), std::string::npos);
}

TEST(LiteralLabels, WorkInThePrintsOfMatricesAndVectors) {
  double flat[16] = {}, *rows[4] = {flat, flat, flat, flat};
  EXPECT_EQ(Written([&](FILE* f) {
              ZEPH_MatrixPrint(f, 0, 0, rows, "a");
              ZEPH_MatrixPrint(f, 0, rows, "b");
            }),
            "a = \nb = \n");
  const auto lines = [](const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
  };
  EXPECT_EQ(lines(Written([&](FILE* f) { ZEPH_MatrixPrint4(f, rows, "m"); })), 5);
  EXPECT_EQ(lines(Written([&](FILE* f) { ZEPH_MatrixPrint4(f, flat, "m"); })), 5);
}

// Null and writable labels still compile; these calls use no template.
TEST(LiteralLabels, DoNotCaptureNullAndWritableLabels) {
  char buffer[] = "label";
  char* pointer = buffer;
  ExpectCells(ZEPH_ArrayAllocDouble(nullptr, 1, 2));
  ExpectCells(ZEPH_ArrayAllocDouble(NULL, 1, 2));
  ExpectCells(ZEPH_ArrayAllocDouble(0, 1, 2));
  ExpectCells(ZEPH_ArrayAllocDouble(buffer, 1, 2));
  ExpectCells(ZEPH_ArrayAllocDouble(pointer, 1, 2));
  ExpectCells(ZEPH_MatrixAllocInt(nullptr, 2, 2), false);
  ExpectCells(ZEPH_MatrixAllocInt(0, 1, 2, 1, 2), true);
  int* p = ZEPH_ArrayRealloc(ZEPH_ArrayAllocInt(0, 0, 1), 1, 2, nullptr);
  p = ZEPH_ArrayRealloc(p, 1, 2, buffer);
  EXPECT_EQ(Written([&](FILE* f) {
              ZEPH_ArrayDisplay(f, p, 1, nullptr);
              ZEPH_ArrayDisplay(f, p, 1, buffer);
              ZEPH_ArrayDisplay(f, p, 0, 0, pointer);
            }),
            "(null)[0]=0      \nlabel[0]=0      \nlabel[0]=0      \n");
  ZEPH_ArrayFree(p, 0, 2);
}
