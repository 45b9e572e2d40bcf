// Writes tests/portable_math/hard_cases.h: the arguments, found in a search of some seconds, whose
// function values are closest to the midpoint of two doubles (floats for the tangent), with the
// correctly rounded results by MPFR.
//
// Where it looks: random arguments, judged by the runtime's long double first; multiples of three
// by a power of two, for which x^3/6 can be exactly at a midpoint; the doubles nearest to multiples
// of pi/2, by continued fractions, which are hard to reduce; neighbours of powers of ten; floats
// from 2^-12 to 2^13.
#include <mpfr.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using Function = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);

struct HardCase {
  double x, result;
  double distance;  // from the middle, in units of the last place
};

/// x's value for `function`, and how far in units of the last of `digits` it is from a middle.
HardCase Measure(Function function, double x, int digits) {
  mpfr_t y, rounded;
  mpfr_init2(y, 400);
  mpfr_init2(rounded, digits);
  mpfr_set_d(y, x, MPFR_RNDN);
  function(y, y, MPFR_RNDN);
  mpfr_set(rounded, y, MPFR_RNDN);
  HardCase result{x, mpfr_get_d(rounded, MPFR_RNDN), 0.5};
  if (!mpfr_zero_p(y)) {
    mpfr_mul_2si(y, y, digits - mpfr_get_exp(y), MPFR_RNDN);
    mpfr_frac(y, y, MPFR_RNDN);
    mpfr_abs(y, y, MPFR_RNDN);
    mpfr_sub_d(y, y, 0.5, MPFR_RNDN);
    result.distance = std::fabs(mpfr_get_d(y, MPFR_RNDN));
  }
  mpfr_clear(y);
  mpfr_clear(rounded);
  return result;
}

/// Whether a value known to 2^-60 of itself is too close to the midpoint of two doubles to be
/// rounded.
bool IsDoubtful(long double y) {
  return static_cast<double>(y * (1 - 0x1p-60L)) != static_cast<double>(y * (1 + 0x1p-60L));
}

std::uint64_t state = 1;
std::uint64_t Word() {
  std::uint64_t z = state += 0x9e3779b97f4a7c15u;
  z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
  z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
  return z ^ (z >> 31);
}

double Drawn(int least, int most) {
  const int exponent = least + static_cast<int>(Word() % static_cast<unsigned>(most - least + 1));
  return std::ldexp(1 + static_cast<double>(Word() >> 12) * 0x1p-52, exponent);
}

void AddMultiplesOfThree(std::vector<double>& xs) {
  for (int exponent = -24; exponent <= -20; ++exponent)
    for (int n = 1; n < 2000; n += 2) xs.push_back(std::ldexp(3.0 * n, exponent));
}

void AddNeighboursOfMultiples(std::vector<double>& xs) {
  mpfr_t x, whole;
  mpfr_init2(x, 1300);
  mpfr_init2(whole, 1300);
  for (int exponent = -52; exponent <= 971; ++exponent) {
    mpfr_const_pi(x, MPFR_RNDN);
    mpfr_ui_div(x, 2, x, MPFR_RNDN);
    mpfr_mul_2si(x, x, exponent, MPFR_RNDN);
    double before = 0, denominator = 1;
    while (denominator < 0x1p53) {
      if (denominator > 0x1p50) xs.push_back(std::ldexp(denominator, exponent));
      mpfr_floor(whole, x);
      mpfr_sub(x, x, whole, MPFR_RNDN);
      mpfr_ui_div(x, 1, x, MPFR_RNDN);
      const double next = std::floor(mpfr_get_d(x, MPFR_RNDZ)) * denominator + before;
      before = denominator;
      denominator = next;
    }
  }
  mpfr_clear(x);
  mpfr_clear(whole);
}

std::vector<HardCase> Hardest(Function function, std::vector<double> xs, std::size_t count,
                              int digits) {
  std::sort(xs.begin(), xs.end());
  xs.erase(std::unique(xs.begin(), xs.end()), xs.end());
  std::vector<HardCase> all;
  for (const double x : xs) all.push_back(Measure(function, x, digits));
  std::sort(all.begin(), all.end(),
            [](const HardCase& a, const HardCase& b) { return a.distance < b.distance; });
  if (all.size() > count) all.resize(count);
  return all;
}

void Print(const char* comment, const char* name, const std::vector<HardCase>& cases) {
  std::printf("\n/// %s\nconstexpr HardCase %s[] = {\n", comment, name);
  for (const HardCase& one : cases)
    std::printf("    {%a, %a},  // 2^%.1f\n", one.x, one.result, std::log2(one.distance));
  std::printf("};\n");
}

void PrintSines(Function function, long double (*wide)(long double), const char* name) {
  std::vector<double> xs;
  for (int i = 0; i < 6'000'000; ++i) {
    const double x = i % 2 == 0 ? Drawn(-26, 9) : Drawn(-26, 1023);
    if (IsDoubtful(wide(x))) xs.push_back(x);
  }
  AddMultiplesOfThree(xs);
  auto cases = Hardest(function, xs, 24, 53);
  Print("Nearest to the middle, and how near in units of the last place.", name, cases);
}

/// The 24 whose sine or cosine is the least.
void PrintNeighboursOfMultiples(Function function, const char* name) {
  std::vector<double> xs;
  AddNeighboursOfMultiples(xs);
  auto cases = Hardest(function, xs, xs.size(), 53);
  std::sort(cases.begin(), cases.end(), [](const HardCase& a, const HardCase& b) {
    return std::fabs(a.result) < std::fabs(b.result);
  });
  cases.resize(24);
  Print("Next to multiples of pi/2.", name, cases);
}

void PrintLogarithms() {
  std::vector<double> xs;
  for (int i = 0; i < 6'000'000; ++i) {
    const double x = i % 2 == 0 ? Drawn(-4, 4) : Drawn(-1022, 1023);
    if (IsDoubtful(std::log10(static_cast<long double>(x)))) xs.push_back(x);
  }
  for (int power = -307; power <= 308; ++power) {
    char text[16];
    std::snprintf(text, sizeof text, "1e%d", power);
    double x = std::strtod(text, nullptr);
    for (int i = 0; i < 20; ++i) x = std::nextafter(x, 0);
    for (int i = 0; i < 40; ++i, x = std::nextafter(x, INFINITY))
      if (x != 1) xs.push_back(x);
  }
  Print("Nearest to the middle.", "kHardLogarithms", Hardest(mpfr_log10, xs, 24, 53));
}

void PrintTangents() {
  std::vector<double> xs;
  for (float x = 0x1p-12f; x < 0x1p13f; x = std::nextafter(x, INFINITY)) {
    const double y = std::tan(static_cast<double>(x));
    if (static_cast<float>(y * (1 - 0x1p-44)) != static_cast<float>(y * (1 + 0x1p-44)))
      xs.push_back(x);
  }
  Print("Nearest to the middle of two floats.", "kHardTangents", Hardest(mpfr_tan, xs, 24, 24));
}

}  // namespace

int main() {
  std::puts(
      "// Written by tools/portable_math/find_hard_cases.cpp, which says where it looked.\n"
      "// clang-format off\n"
      "#ifndef ZEPH_TESTS_PORTABLE_MATH_HARD_CASES_H\n"
      "#define ZEPH_TESTS_PORTABLE_MATH_HARD_CASES_H\n\n"
      "namespace zeph::test {\n\n"
      "struct HardCase {\n  double x, result;\n};");
  PrintSines(mpfr_sin, sinl, "kHardSines");
  PrintSines(mpfr_cos, cosl, "kHardCosines");
  PrintNeighboursOfMultiples(mpfr_sin, "kSinesNextToMultiples");
  PrintNeighboursOfMultiples(mpfr_cos, "kCosinesNextToMultiples");
  PrintLogarithms();
  PrintTangents();
  std::puts("\n}  // namespace zeph::test\n\n#endif  // ZEPH_TESTS_PORTABLE_MATH_HARD_CASES_H");
}
