// Texts that threads make at once: each gets its own, byte for byte.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "ZEPHDataStructureEngine.h"
#include "support/scale.h"
#include "support/temporary_file.h"

using namespace zeph::test;

namespace {

constexpr int kThreads = 4;

/// What one thread writes: texts of other lengths and digits than any other thread's.
struct Operands {
  explicit Operands(int thread) : number(thread * 1111 + 7), name("thread") {
    name += std::string(static_cast<std::size_t>(5 * thread + 1), static_cast<char>('a' + thread));
    for (int k = 0; k < 16; ++k) {
      doubles[k] = (k + 1.5) * (thread + 1) * (thread % 2 ? -1e10 : 1.0);
      ints[k] = (k + 1) * (thread % 2 ? -123456 : 3) * (thread + 1);
    }
    for (int i = 0; i < 4; ++i) rows[i] = doubles + 4 * i;
  }
  int number;
  std::string name;
  double doubles[16];
  int ints[16];
  double* rows[4];
  TemporaryFile file;
};

struct Text {
  const char* name;
  std::string (*make)(Operands& o);
};

template <class Body>
std::string ToString(Body body) {
  CString text;
  body(text);
  return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}
template <class Body>
std::string ToFile(const Operands& o, Body body) {
  std::FILE* const f = std::fopen(o.file.Path().c_str(), "wb");
  body(f);
  std::fclose(f);
  return ReadFile(o.file.Path());
}
template <class Body>
std::string ToStream(Body body) {
  std::ostringstream os;
  body(os);
  return os.str();
}

const Text kTexts[] = {
    {"a formatted text",
     [](Operands& o) {
       return ToString([&](CString& s) {
         s.Format("%d %f %e %s %u", o.number, o.doubles[0], o.doubles[1], o.name.c_str(), 9u);
       });
     }},
    {"a formatted text that the runtime writes",
     [](Operands& o) {
       return ToString([&](CString& s) { s.Format("%08x %g %+d", 99u, o.doubles[2], o.number); });
     }},
    {"a long formatted text",
     [](Operands& o) {
       return ToString([&](CString& s) { s.Format("%0600d|%s", o.number, o.name.c_str()); });
     }},
    {"appended texts",
     [](Operands& o) {
       return ToString([&](CString& s) {
         for (const int x : o.ints) s.AppendFormat("%d;", x);
       });
     }},
    {"scientific notation",
     [](Operands& o) {
       return ToString([&](CString& s) {
         int exponent;
         double mantissa;
         for (const double x : o.doubles)
           s += ZEPH_MathToScientificNotation(x, exponent, mantissa, 3, 5);
       });
     }},
    {"orderings",
     [](Operands& o) {
       return ToString([&](CString& s) { CZEPHPermutation::Run(o.ints, 0, 4, s); });
     }},
    {"doubles in a string",
     [](Operands& o) {
       return ToString([&](CString& s) { ZEPH_ArrayDisplay(s, o.doubles, 16, o.name.data()); });
     }},
    {"ints in a string",
     [](Operands& o) {
       return ToString([&](CString& s) { ZEPH_ArrayDisplay(s, o.ints, 16, o.name.data()); });
     }},
    {"an array in a string",
     [](Operands& o) {
       return ToString([&](CString& s) { CZEPHDoubleArray(16, o.doubles).Display(s); });
     }},
    {"doubles",
     [](Operands& o) {
       return ToFile(o, [&](std::FILE* f) { ZEPH_ArrayDisplay(f, o.doubles, 16, o.name.data()); });
     }},
    {"a matrix",
     [](Operands& o) {
       return ToFile(o, [&](std::FILE* f) { ZEPH_MatrixPrint(f, 4, o.rows, o.name.data()); });
     }},
    {"a 3-vector",
     [](Operands& o) {
       return ToFile(o, [&](std::FILE* f) { ZEPH_VectorPrint3(f, o.doubles, o.name.data()); });
     }},
    {"a vector",
     [](Operands& o) {
       return ToFile(o, [&](std::FILE* f) { CZEPHVector(16, o.doubles).Display(f, ';'); });
     }},
    {"an array to a stream",
     [](Operands& o) {
       return ToStream([&](std::ostream& os) { os << CZEPHDoubleArray(16, o.doubles); });
     }},
    {"a double matrix to a stream",
     [](Operands& o) {
       return ToStream([&](std::ostream& os) { os << CZEPHDoubleMatrix(3, 3, o.doubles[5]); });
     }},
};

/// The texts of one thread, in `rounds` rounds, against the first ones of each; returns the first that differs.
std::string Different(Operands& o, const std::vector<std::string>& want, std::size_t rounds) {
  for (std::size_t round = 0; round < rounds; ++round)
    for (std::size_t k = 0; k < want.size(); ++k)
      if (const std::string got = kTexts[k].make(o); got != want[k])
        return kTexts[k].name + (": " + got) + "\ninstead of: " + want[k];
  return "";
}

}  // namespace

TEST(ThreadTexts, AreThoseOfOneThread) {
  std::vector<std::thread> threads;
  std::string different[kThreads];
  std::atomic<int> ready{0};
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([t, &different, &ready] {
      Operands o(t);
      std::vector<std::string> want;
      while (ready < t) std::this_thread::yield();  // each first alone
      for (const Text& text : kTexts) want.push_back(text.make(o));
      ++ready;
      while (ready < kThreads) std::this_thread::yield();
      different[t] = Different(o, want, Scaled(1000));
    });
  for (std::thread& thread : threads) thread.join();
  for (const std::string& text : different) EXPECT_EQ(text, "");
}
