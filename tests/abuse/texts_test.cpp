// Labels that look like formats, very long labels, streams with any contents, sizes at the limits
// of their ranges.
#include <gtest/gtest.h>

#include <climits>
#include <sstream>

#include "linalg.h"
#include "oracle/listing.h"
#include "raw_buffers.h"
#include "support/allocation.h"
#include "support/bits.h"
#include "support/numbers.h"
#include "support/scale.h"
#include "support/stream.h"

namespace zeph::test {
namespace {

std::vector<std::string> HostileLabels() {
  return {"%",        "%n%n%n",
          "%s%s%s%s", "%999999d",
          "100%%",    "a\r\nb",
          "\t[%d]=%", "\xff\xfe\x80",
          "",         std::string(Scaled<std::size_t>(1'000'000, 100'000), 'L')};
}

TEST(AbuseLabels, AreWrittenVerbatim) {
  double v[] = {1.5, -2.0, 3.0};
  int w[] = {4, -5};
  double* rows[] = {v, v, v};
  for (std::string label : HostileLabels()) {
    SCOPED_TRACE(::testing::Message() << "label " << label);
    char* name = label.data();
    CString listed;
    ZEPH_ArrayDisplay(listed, v, 3, name);
    EXPECT_EQ(std::string(listed.GetString()),
              oracle::Listing("%s[%d]=%-5.4e    ", "\r\n", v, 0, 2, name));
    CString ints;
    ZEPH_ArrayDisplay(ints, w, 2, name);
    EXPECT_EQ(std::string(ints.GetString()),
              oracle::Listing("%s[%d]=%-5d   ", "\r\n", w, 0, 1, name));
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint3(f, rows, name); }),
              oracle::MatrixListing(
                  3, 3, [&](int i, int j) { return rows[i][j]; }, name));
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_VectorPrint3(f, v, name); }),
              oracle::VectorLine(v, name));
    double* p = ZEPH_ArrayAllocDouble(name, 0, 3);
    p = ZEPH_ArrayRealloc(p, 3, 9, name);
    ASSERT_NE(p, nullptr);
    ZEPH_ArrayFree(p, 0, 9);
    CString s;
    s.Format("%s", name);
    EXPECT_EQ(std::string(s.GetString()), label);
  }
}

/// Counts of every kind; `stored` is -1 where the text has none that fits an int.
struct Announced {
  const char* text;
  int stored;
};
const Announced kAnnounced[] = {
    {"", 0},
    {" ", 0},
    {"x", 0},
    {"-", 0},
    {"1e9", 0},
    {"3", 0},
    {"3 1 2", 0},
    {"2 1 x", 0},
    {"0", 0},
    {"-7", -7},
    {"-2147483648", INT_MIN},
    {"2147483648", 0},
    {"99999999999999999999", 0},
    {"3 1 2 3", 3},
    {"2 1e400 1", 0},
    {"2 nan 1", 0},
    {"+2 .5 -.5", 2},
    {"1 0x10", 0},
};

TEST(AbuseExtractors, AnArrayStoresOnlyWhatTheStreamHolds) {
  for (const auto& given : kAnnounced) {
    if (std::string(given.text) == "1 0x10") continue;  // libraries differ on hexadecimal digits
    SCOPED_TRACE(given.text);
    CZEPHDoubleArray a(8, 7.5);
    std::istringstream is(given.text);
    is >> a;
    EXPECT_EQ(a.size, given.stored);
    for (int i = 3; i < 8; ++i) EXPECT_EQ(a.data[i], 7.5);
  }
}

TEST(AbuseExtractors, RefuseEveryCountWithoutStorage) {
  for (const char* text : {"2147483647 1", "1 1", "1000000000"}) {
    CZEPHDoubleArray a;
    std::istringstream is(text);
    is >> a;
    EXPECT_EQ(a.size, 0) << "text " << text;
    CZEPHDoubleMatrix m;
    std::istringstream twice("2147483647 2147483647 1");
    twice >> m;
    EXPECT_EQ(m.m_nRows, 0) << "text " << text;
    EXPECT_EQ(m.m_nColumns, 0) << "text " << text;
  }
}

TEST(AbuseExtractors, AMatrixCutShortBecomesEmpty) {
  for (const char* text : {"", "2", "2 x", "2 2 1 2 3", "2 2 1 2 3 x", "99999999999 2 1"}) {
    CZEPHDoubleMatrix m(2, 2, 7.5);
    std::istringstream is(text);
    is >> m;
    EXPECT_EQ(m.m_nRows, 0) << text;
    EXPECT_EQ(m.m_nColumns, 0) << text;
    EXPECT_NE(m.m_ppData, nullptr) << text;
    m.m_nRows = 2;  // so that both rows are released
  }
}

TEST(AbuseExtractors, LeaveObjectsUsableAfterGarbageOfEveryLength) {
  Random random(21);
  for (std::size_t k = 0; k < Scaled(20'000); ++k) {
    std::string text;
    for (std::size_t n = random.Below(60); n > 0; --n)
      text += "0123456789 -+.e[];nxi\n\t\0"[random.Below(23)];
    CZEPHVector3 v(1, 2, 3);
    std::istringstream first(text);
    if (!(first >> v)) {
      EXPECT_EQ(v, CZEPHVector3(1, 2, 3)) << text;
    }
    CZEPHMatrix4 m(4.0);
    std::istringstream second(text);
    if (!(second >> m)) {
      for (const double x : m.m_data) ASSERT_EQ(x, 4.0) << text;
    }
  }
}

TEST(AbuseSizes, HugeCountsAreRefused) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (const int n : {INT_MAX, INT_MAX - 1, 1 << 30}) {
    SCOPED_TRACE(::testing::Message() << "n " << n);
    FailAllocation failing(1, true);  // gigabytes are refused here
    EXPECT_EQ(ZEPH_ArrayAllocDouble(nullptr, 0, n - 1), nullptr);
    EXPECT_EQ(ZEPH_ArrayAllocInt(nullptr, INT_MIN, INT_MIN + n - 1), nullptr);
    EXPECT_EQ(ZEPH_MatrixAllocDouble(nullptr, n, n), nullptr);
    CZEPHDoubleArray a(n, 1.0);
    EXPECT_EQ(a.GetData(), nullptr);
    EXPECT_EQ(a.GetSize(), n);
    EXPECT_EQ(a.OneNorm(), 0.0);
    a.BubbleSort();
    EXPECT_EQ(a.Find(1.0), -1);
    CZEPHDoubleMatrix m(n, n, 1.0);
    EXPECT_EQ(m.m_ppData, nullptr);
  }
}

TEST(AbuseSizes, NegativeAndInvertedRangesAreEmpty) {
  for (const int n : {-1, -2, INT_MIN + 1, INT_MIN}) {
    SCOPED_TRACE(::testing::Message() << "n " << n);
    EXPECT_EQ(ZEPH_ArrayAllocDouble(nullptr, 0, n), nullptr);
    EXPECT_EQ(ZEPH_ArrayAllocDouble(nullptr, INT_MAX, n), nullptr);
    EXPECT_EQ(ZEPH_MatrixAllocInt(nullptr, n, 3), nullptr);
    EXPECT_EQ(ZEPH_MatrixAllocInt(nullptr, 3, n), nullptr);
    CZEPHDoubleArray a(n, 1.0);
    EXPECT_EQ(a.GetData(), nullptr);
    EXPECT_EQ(a.begin(), a.end());
    a.QuickSort(3);
    a.Resize(n, 1);
    EXPECT_EQ(a.GetSize(), 0);
    CZEPHMatrix m(n, 4);
    EXPECT_EQ(m.GetNoRow(), 0);
    CZEPHVector v(n);
    EXPECT_EQ(v.GetSize(), 0);
  }
  for (const int at : {INT_MIN, -1, 0, INT_MAX}) {  // one element anywhere
    double* p = ZEPH_ArrayAllocDouble(nullptr, at, at);
    ASSERT_NE(p, nullptr) << "at " << at;
    ZEPH_ArrayFree(p, at, at);
  }
}

}  // namespace
}  // namespace zeph::test
