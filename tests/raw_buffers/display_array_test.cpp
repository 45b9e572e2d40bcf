#include <gtest/gtest.h>

#include <cfenv>
#include <climits>
#include <cstdio>
#include <string>
#include <vector>

#include "algorithms.h"
#include "oracle/listing.h"
#include "raw_buffers.h"
#include "support/allocation.h"
#include "support/child.h"
#include "support/locales.h"
#include "support/numbers.h"
#include "support/scale.h"
#include "support/stream.h"

using namespace zeph::test;
using oracle::Listing;

namespace {

char kLabel[] = "x";

// The item formats, byte for byte.
const char kInt2[] = "%s[%-d]=%-5d  ";
const char kInt3[] = "%s[%-d]=%-5d   ";
const char kReal2[] = "%s[%-d]=%-5.4le  ";
const char kReal3[] = "%s[%-d]=%-5.4le   ";
const char kReal4[] = "%s[%-d]=%-5.4le    ";

std::string Text(const CString& s) {
  return std::string(s.GetString(), static_cast<std::size_t>(s.GetLength()));
}

/// On Windows the standard output is a text stream: its "\n" arrives as "\r\n".
std::string Untranslated(std::string text) {
#ifdef _WIN32
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at)
    text.erase(at, 1);
#endif
  return text;
}

template <class Body>
std::string OnStandardOutput(Body body) {
  CaptureStdout capture;
  body();
  return Untranslated(capture.Text());
}

struct Range {
  int lo, hi;
};
const Range kRanges[] = {{0, 0},  {0, 4},    {0, 5},   {0, 12}, {1, 10}, {1, 3},  {5, 5},
                         {-7, 7}, {-10, -5}, {-5, -5}, {4, 2},  {0, -1}, {3, -3}, {6, 9}};

/// An offset array over -20 .. 20.
template <class T>
struct Data {
  std::vector<T> storage;
  T* a;
  explicit Data(std::uint64_t seed) : storage(Awkward<double>(41, seed).size()) {
    const auto values = Awkward<double>(41, seed);
    Random random(seed);
    for (std::size_t k = 0; k < 41; ++k)
      storage[k] = sizeof(T) == 8 ? static_cast<T>(values[k])
                                  : static_cast<T>(static_cast<int>(random.Next()));
    a = storage.data() + 20;
  }
};

}  // namespace

TEST(RawArrayDisplay, WritesIntsToAStream) {
  int values[] = {0, 1, -22, 333, 55555, 666666, INT_MAX, INT_MIN, 8, 9, 10};
  const std::string text = Written([&](FILE* f) { ZEPH_ArrayDisplay(f, values, 1, 10, kLabel); });
  EXPECT_EQ(text,
            "x[1]=1      x[2]=-22    x[3]=333    x[4]=55555  x[5]=666666  \n"
            "x[6]=2147483647  x[7]=-2147483648  x[8]=8      x[9]=9      x[10]=10     \n"
            "\n");
}

TEST(RawArrayDisplay, WritesEveryRangeToEveryDestinationByteForByte) {
  const Data<int> ints(1);
  Data<double> reals(2);
  for (double& x : reals.storage)
    if (x != x) x = 0.5;  // how NaN is spelled has a test of its own
  for (const Range r : kRanges) {
    SCOPED_TRACE(std::to_string(r.lo) + ".." + std::to_string(r.hi));
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, ints.a, r.lo, r.hi, kLabel); }),
              Listing(kInt2, "\n", ints.a, r.lo, r.hi, kLabel));
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, reals.a, r.lo, r.hi, kLabel); }),
              Listing(kReal3, "\n", reals.a, r.lo, r.hi, kLabel));
    EXPECT_EQ(OnStandardOutput([&] { ZEPH_ArrayDisplay(ints.a, r.lo, r.hi, kLabel); }),
              Listing(kInt2, "\n", ints.a, r.lo, r.hi, kLabel));
    EXPECT_EQ(OnStandardOutput([&] { ZEPH_ArrayDisplay(reals.a, r.lo, r.hi, kLabel); }),
              Listing(kReal2, "\n", reals.a, r.lo, r.hi, kLabel));
    CString out("before ");
    ZEPH_ArrayDisplay(out, ints.a, r.lo, r.hi, kLabel);
    ZEPH_ArrayDisplay(out, reals.a, r.lo, r.hi, kLabel);
    EXPECT_EQ(Text(out), "before " + Listing(kInt3, "\r\n", ints.a, r.lo, r.hi, kLabel) +
                             Listing(kReal4, "\r\n", reals.a, r.lo, r.hi, kLabel));
  }
}

TEST(RawArrayDisplay, WritesEveryCountToEveryDestinationByteForByte) {
  const Data<int> ints(3);
  Data<double> reals(4);
  for (double& x : reals.storage)
    if (x != x) x = -0.0;
  for (const int n : {INT_MIN, -1, 0, 1, 3, 5, 6, 11, 20}) {
    SCOPED_TRACE(n);
    const int hi = n < 1 ? -1 : n - 1;
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, ints.a, n, kLabel); }),
              Listing(kInt2, "\n", ints.a, 0, hi, kLabel));
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, reals.a, n, kLabel); }),
              Listing(kReal3, "\n", reals.a, 0, hi, kLabel));
    EXPECT_EQ(OnStandardOutput([&] { ZEPH_ArrayDisplay(ints.a, n, kLabel); }),
              Listing(kInt2, "\n", ints.a, 0, hi, kLabel));
    CString out;
    ZEPH_ArrayDisplay(out, ints.a, n, kLabel);
    ZEPH_ArrayDisplay(out, reals.a, n, kLabel);
    EXPECT_EQ(Text(out), Listing(kInt3, "\r\n", ints.a, 0, hi, kLabel) +
                             Listing(kReal4, "\r\n", reals.a, 0, hi, kLabel));
  }
}

TEST(RawArrayDisplay, WritesTwoLineEndsAfterARangeEndingAtAMultipleOfFive) {
  int a[] = {0, 1, 2, 3, 4, 5};
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, a, 4, 5, kLabel); }),
            "x[4]=4      x[5]=5      \n\n");
  int* b = a + 5;  // -5 counts as a multiple, 0 does not
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, b, -5, -4, kLabel); }),
            "x[-5]=0      \nx[-4]=1      \n");
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, b, 0, 0, kLabel); }), "x[0]=5      \n");
}

TEST(RawArrayDisplay, BreaksLinesByIndexNotByItemsWritten) {
  double a[6] = {};
  const std::string text = Written([&](FILE* f) { ZEPH_ArrayDisplay(f, a, 6, kLabel); });
  EXPECT_EQ(text.find('\n'), text.size() - 2);  // six items on the first line
  EXPECT_EQ(text.substr(0, 19), "x[0]=0.0000e+00   x");
}

/// No loop over indices may pass the last one.
TEST(RawArrayDisplay, ReachesTheSmallestAndTheLargestIndex) {
  int ints[] = {7, 8, 9};
  double reals[] = {7, 8, 9};
  const auto at = [](auto* first, int lo) {
    return reinterpret_cast<decltype(first)>(
        reinterpret_cast<std::uintptr_t>(first) -
        static_cast<std::uintptr_t>(static_cast<std::intptr_t>(lo)) * sizeof *first);
  };
  if (sizeof(void*) < 8) GTEST_SKIP() << "such an index is in no 32-bit address space";
  for (const int lo : {INT_MAX - 2, INT_MIN}) {
    std::string name[3], end[3];
    for (int k = 0; k < 3; ++k) {
      name[k] = "x[" + std::to_string(lo + k) + "]=";
      end[k] = (lo + k) % 5 == 0 ? "\n" : "";
    }
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, at(ints, lo), lo, lo + 2, kLabel); }),
              name[0] + "7      " + end[0] + name[1] + "8      " + end[1] + name[2] + "9      " +
                  end[2] + "\n");
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, at(reals, lo), lo, lo + 2, kLabel); }),
              name[0] + "7.0000e+00   " + end[0] + name[1] + "8.0000e+00   " + end[1] + name[2] +
                  "9.0000e+00   " + end[2] + "\n");
  }
}

TEST(RawArrayDisplay, WritesPercentSignsInALabelAsText) {
  char label[] = "%s%n%5d%%";
  int a[] = {7};
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, a, 1, label); }), "%s%n%5d%%[0]=7      \n");
  CString out;
  ZEPH_ArrayDisplay(out, a, 1, label);
  EXPECT_EQ(Text(out), "%s%n%5d%%[0]=7       \r\n");
}

TEST(RawArrayDisplay, WritesANullLabelAsNull) {
  int a[] = {7};
  char* none = nullptr;
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_ArrayDisplay(f, a, 1, none); }), "(null)[0]=7      \n");
}

TEST(RawArrayDisplay, AcceptsLabelsLongerThanAnyBlock) {
  std::string label(20000, 'a');
  label += "end";
  const int a[] = {1, 2, 3};
  EXPECT_EQ(
      Written([&](FILE* f) { ZEPH_ArrayDisplay(f, const_cast<int*>(a), 0, 2, label.data()); }),
      Listing(kInt2, "\n", a, 0, 2, label.c_str()));
}

TEST(RawArrayDisplay, AppendsToTheString) {
  double a[] = {1.5, -2.5};
  CString out;
  ZEPH_ArrayDisplay(out, a, 2, kLabel);
  const std::string once = Text(out);
  EXPECT_EQ(once, "x[0]=1.5000e+00    x[1]=-2.5000e+00    \r\n");
  ZEPH_ArrayDisplay(out, a, 2, kLabel);
  EXPECT_EQ(Text(out), once + once);
}

TEST(RawArrayDisplay, AcceptsALabelInsideTheStringItAppendsTo) {
  int a[] = {1, 2};
  CString out("me");
  ZEPH_ArrayDisplay(out, a, 2, const_cast<char*>(out.GetString()));
  EXPECT_EQ(Text(out), "meme[0]=1       me[1]=2       \r\n");
}

TEST(RawArrayDisplay, LeavesTheStringUnchangedWhenItCannotGrow) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  std::vector<double> a(2000, 1.0);
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException}) {
    SCOPED_TRACE(::testing::Message() << how);
    CString out("before");
    bool threw = false;
    const long failures = FailEachAllocation(
        how, false,
        [&] {
          try {
            ZEPH_ArrayDisplay(out, a.data(), 2000, kLabel);
          } catch (const std::bad_alloc&) {
            threw = true;
          } catch (CMemoryException* exception) {
            threw = true;
            exception->Delete();
          }
        },
        [&](long) {
          EXPECT_TRUE(threw);
          EXPECT_EQ(Text(out), "before");
          threw = false;
        });
    EXPECT_GT(failures, 0);
    EXPECT_FALSE(threw);
    EXPECT_GT(out.GetLength(), 6);
  }
}

TEST(RawArrayDisplay, AllocatesNothingForAStream) {
  std::vector<double> a = Awkward(3000, 5);
  const std::string text = Written([&](FILE* f) {
    const long before = AllocationCount();
    ZEPH_ArrayDisplay(f, a.data(), 3000, kLabel);
    EXPECT_EQ(AllocationCount(), before);
  });
  EXPECT_FALSE(text.empty());
}

TEST(RawArrayDisplay, SpellsInfinitiesAndNaNAsTheRuntimeDoes) {
  const auto special = SpecialValues<double>();
  const int last = static_cast<int>(special.size()) - 1;
  EXPECT_EQ(Written([&](FILE* f) {
              ZEPH_ArrayDisplay(f, const_cast<double*>(special.data()), 0, last, kLabel);
            }),
            Listing(kReal3, "\n", special.data(), 0, last, kLabel));
}

// A million doubles of any bits, and as many near ties of the fifth digit.
TEST(RawArrayDisplay, MatchesPrintfForAMillionDoubles) {
  const std::size_t n = Scaled(1000000);
  Random random(6);
  std::vector<double> a(n);
  for (std::size_t i = 0; i < n; ++i) {
    const double any = FromBits<double>(random.Next());
    const double tie =
        (static_cast<double>(random.Int(10000, 99999)) + 0.5) * (i % 4 == 0   ? 1.0
                                                                 : i % 4 == 1 ? 0x1p-9
                                                                 : i % 4 == 2 ? 1e9
                                                                              : 1e-7);
    a[i] = i % 2 == 0 ? any : tie;
  }
  const int last = static_cast<int>(n) - 1;
  const std::string got =
      Written([&](FILE* f) { ZEPH_ArrayDisplay(f, a.data(), 0, last, kLabel); });
  EXPECT_TRUE(got == Listing(kReal3, "\n", a.data(), 0, last, kLabel));
}

// A library with texts of its own rounds to nearest and knows no locale.
TEST(RawArrayDisplay, RoundsInTheRuntimesDirection) {
  double a[] = {1.00001, -1.00001, 1.99999, 2.5, 1e300};
  const std::string nearest = Listing(kReal3, "\n", a, 0, 4, kLabel);
  for (const int direction : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO, FE_TONEAREST}) {
    std::fesetround(direction);
    const std::string runtimes = Listing(kReal3, "\n", a, 0, 4, kLabel);
    const std::string got = Written([&](FILE* f) { ZEPH_ArrayDisplay(f, a, 0, 4, kLabel); });
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(got, ZEPH_PortableMath ? nearest : runtimes) << "direction " << direction;
  }
}

TEST(RawArrayDisplay, WritesTheDecimalPointOfTheCallersLocale) {
  double a[] = {1.5, -0.25, 1e100};
  const std::string usual = Listing(kReal3, "\n", a, 0, 2, kLabel);
  const zeph::test::ProcessLocale locale(zeph::test::kCommaLocales);
  if (!locale.Found()) GTEST_SKIP() << "no locale with a decimal comma is installed";
  const std::string runtimes = Listing(kReal3, "\n", a, 0, 2, kLabel);
  EXPECT_EQ(runtimes.substr(0, 9), "x[0]=1,50");
  const std::string got = Written([&](FILE* f) { ZEPH_ArrayDisplay(f, a, 0, 2, kLabel); });
  EXPECT_EQ(got, ZEPH_PortableMath ? usual : runtimes);
}
