#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <type_traits>

#include "raw_buffers.h"
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

TEST(LiteralLabels, ServeEveryAllocator) {
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

TEST(LiteralLabels, ServeTheReallocation) {
  double* p = ZEPH_ArrayRealloc(ZEPH_ArrayAllocDouble("p", 0, 1), 1, 2, "p");
  EXPECT_EQ(p[2], 0.0);
  ZEPH_ArrayFree(p, 0, 2);
  int* q = ZEPH_ArrayRealloc(ZEPH_ArrayAllocInt("q", 0, 1), 1, 2, "q");
  EXPECT_EQ(q[2], 0);
  ZEPH_ArrayFree(q, 0, 2);
}

TEST(LiteralLabels, ServeEveryListing) {
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

TEST(LiteralLabels, ServeThePrintingOfMatricesAndVectors) {
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
TEST(LiteralLabels, LeaveNullAndWritableLabelsToTheDocumentedFunctions) {
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
