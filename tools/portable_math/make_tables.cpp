// Writes src/portable_math/tables.h: every constant of the portable sine, cosine, tangent and
// logarithm, rounded from values of 2000 bits that MPFR computes.
#include <mpfr.h>

#include <cstdint>
#include <cstdio>

namespace {

constexpr mpfr_prec_t kPrecision = 2000;
constexpr int kWords = 8;          // of the integer phase, after the point
constexpr int kInverseWords = 44;  // of 2/pi: the largest double needs 31 + 8 + a few to spare
constexpr int kSteps = 512;        // of the sine's table, in half a turn
constexpr int kHeadBits = 27;      // of the table's heads: times 26 bits, exact
constexpr int kPartBits = 30;      // of the step's parts: times 23 bits, exact

class Real {
 public:
  Real() { mpfr_init2(x_, kPrecision); }
  ~Real() { mpfr_clear(x_); }
  Real(const Real&) = delete;
  Real& operator=(const Real&) = delete;
  operator mpfr_ptr() { return x_; }

 private:
  mpfr_t x_;
};

void PrintDouble(double x, const char* after) {
  std::printf("%a%s", x, after);
}

/// Returns the leading `bits` bits of x and subtracts them from x.
double TakeBits(Real& x, int bits) {
  Real part;
  mpfr_set_prec(part, bits);
  mpfr_set(part, x, MPFR_RNDZ);
  mpfr_sub(x, x, part, MPFR_RNDN);
  return mpfr_get_d(part, MPFR_RNDN);
}

/// x, non-negative and below 2^32, as its integer part and `words` fractional words.
void PrintWords(Real& x, int words) {
  Real rest;
  mpfr_set(rest, x, MPFR_RNDN);
  for (int i = 0; i <= words; ++i) {
    const auto word = static_cast<std::uint32_t>(mpfr_get_ui(rest, MPFR_RNDZ));
    std::printf("%s0x%08x%s", i % 6 == 0 ? "\n    " : " ", word, i < words ? "," : "");
    mpfr_sub_ui(rest, rest, word, MPFR_RNDN);
    mpfr_mul_2ui(rest, rest, 32, MPFR_RNDN);
  }
}

void PrintFixed(const char* comment, const char* name, Real& x) {
  std::printf("\n/// %s\nconstexpr Fixed %s = {{", comment, name);
  PrintWords(x, kWords);
  std::printf("}};\n");
}

/// As a double and the double of what it leaves.
void PrintPair(const char* comment, const char* name, Real& x) {
  const double head = mpfr_get_d(x, MPFR_RNDN);
  Real rest;
  mpfr_sub_d(rest, x, head, MPFR_RNDN);
  std::printf("\n/// %s\nconstexpr Pair %s = {", comment, name);
  PrintDouble(head, ", ");
  PrintDouble(mpfr_get_d(rest, MPFR_RNDN), "};\n");
}

/// As a multiple of 2^-43 and the double of what it leaves.
void PrintCoarsePair(Real& x) {
  Real head, rest;
  mpfr_mul_2ui(head, x, 43, MPFR_RNDN);
  mpfr_rint(head, head, MPFR_RNDN);
  mpfr_div_2ui(head, head, 43, MPFR_RNDN);
  mpfr_sub(rest, x, head, MPFR_RNDN);
  std::printf("{");
  PrintDouble(mpfr_get_d(head, MPFR_RNDN), ", ");
  PrintDouble(mpfr_get_d(rest, MPFR_RNDN), "}");
}

void PrintAngles() {
  Real pi, x;
  mpfr_const_pi(pi, MPFR_RNDN);

  mpfr_ui_div(x, 2, pi, MPFR_RNDN);
  mpfr_mul_2ui(x, x, 32, MPFR_RNDN);
  std::printf(
      "/// 2/pi, words of 32 bits behind the point.\n"
      "constexpr int kTwoOverPiWords = %d;\n"
      "constexpr std::uint32_t kTwoOverPi[kTwoOverPiWords] = {",
      kInverseWords);
  PrintWords(x, kInverseWords - 1);
  std::printf("};\n");

  mpfr_div_2ui(x, pi, 1, MPFR_RNDN);
  PrintFixed("pi/2.", "kQuarterTurn", x);
  PrintPair("pi/2.", "kQuarterTurnPair", x);

  std::printf(
      "\n/// Steps of the sine's table in a quarter turn.\n"
      "constexpr int kQuarterSteps = %d;\n",
      kSteps / 2);
  mpfr_ui_div(x, kSteps, pi, MPFR_RNDN);
  std::printf("\n/// One over a step.\nconstexpr double kStepsPerRadian = ");
  PrintDouble(mpfr_get_d(x, MPFR_RNDN), ";\n");
  mpfr_div_ui(x, pi, kSteps, MPFR_RNDN);
  std::printf(
      "\n/// A step in four parts: the first three have %d bits each.\n"
      "constexpr double kStep[4] = {",
      kPartBits);
  for (int part = 0; part < 3; ++part) PrintDouble(TakeBits(x, kPartBits), ", ");
  PrintDouble(mpfr_get_d(x, MPFR_RNDN), "};\n");

  std::printf(
      "\n/// The sine of each step of a quarter turn: a head of %d bits and the rest.\n"
      "constexpr Pair kSines[kQuarterSteps + 1] = {\n",
      kHeadBits);
  for (int i = 0; i <= kSteps / 2; ++i) {
    mpfr_mul_ui(x, pi, static_cast<unsigned>(i), MPFR_RNDN);
    mpfr_div_ui(x, x, kSteps, MPFR_RNDN);
    mpfr_sin(x, x, MPFR_RNDN);
    if (i == kSteps / 2) mpfr_set_ui(x, 1, MPFR_RNDN);
    const double head = TakeBits(x, kHeadBits);
    std::printf("    {");
    PrintDouble(head, ", ");
    PrintDouble(mpfr_get_d(x, MPFR_RNDN), "},\n");
  }
  std::printf("};\n");
}

/// The factor for a mantissa near i/128, in units of 1/512.
unsigned Reciprocal(int i) {
  return static_cast<unsigned>((512 * 128 * 2 + i) / (2 * i));
}

void PrintLogarithms() {
  constexpr int kFirst = 90, kLast = 182;
  Real x;
  mpfr_set_ui(x, 10, MPFR_RNDN);
  mpfr_log(x, x, MPFR_RNDN);
  mpfr_ui_div(x, 1, x, MPFR_RNDN);
  PrintFixed("1/ln 10.", "kInverseLn10", x);
  PrintPair("1/ln 10.", "kInverseLn10Pair", x);
  mpfr_set_ui(x, 2, MPFR_RNDN);
  mpfr_log10(x, x, MPFR_RNDN);
  PrintFixed("The decimal logarithm of 2.", "kLog2", x);
  std::printf("\n/// The same: a multiple of 2^-43 and the rest.\nconstexpr Pair kLog2Pair = ");
  PrintCoarsePair(x);
  std::printf(";\n");

  std::printf(
      "\n/// For a mantissa near i/128, i from %d on: its reciprocal c in units of 1/512.\n"
      "constexpr unsigned kFirstMantissa = %d;\n"
      "constexpr std::uint16_t kReciprocals[] = {",
      kFirst, kFirst);
  for (int i = kFirst; i <= kLast; ++i)
    std::printf("%s%u%s", (i - kFirst) % 16 == 0 ? "\n    " : "", Reciprocal(i),
                i < kLast ? ", " : "};\n");
  std::printf(
      "\n/// -log10(c): a multiple of 2^-43 and the rest.\n"
      "constexpr Pair kMantissaLogs[] = {\n");
  const auto set_log = [&x](int i) {
    mpfr_set_ui(x, Reciprocal(i), MPFR_RNDN);
    mpfr_div_ui(x, x, 512, MPFR_RNDN);
    mpfr_log10(x, x, MPFR_RNDN);
    mpfr_neg(x, x, MPFR_RNDN);
  };
  for (int i = kFirst; i <= kLast; ++i) {
    set_log(i);
    std::printf("    ");
    PrintCoarsePair(x);
    std::printf(",\n");
  }
  std::printf(
      "};\n\n/// |log10(c)|; -log10(c) is negative for i below 128.\n"
      "constexpr Fixed kMantissaLogsFixed[] = {");
  for (int i = kFirst; i <= kLast; ++i) {
    set_log(i);
    mpfr_abs(x, x, MPFR_RNDN);
    std::printf("\n    {{");
    PrintWords(x, kWords);
    std::printf("}},");
  }
  std::printf("};\n");
}

}  // namespace

int main() {
  std::puts(
      "// SPDX-License-Identifier: MIT\n"
      "//\n"
      "// Written by tools/portable_math/make_tables.cpp; the long proof writes it again and "
      "compares.\n"
      "// clang-format off\n"
      "#ifndef ZEPH_SRC_PORTABLE_MATH_TABLES_H\n"
      "#define ZEPH_SRC_PORTABLE_MATH_TABLES_H\n\n"
      "#include <cstdint>\n\n"
      "#include \"portable_math/fixed_point.h\"\n\n"
      "namespace zeph::portable_math::tables {\n\n"
      "/// An unevaluated sum.\n"
      "struct Pair {\n  double head, rest;\n};\n");
  PrintAngles();
  PrintLogarithms();
  std::puts(
      "\n}  // namespace zeph::portable_math::tables\n\n"
      "#endif  // ZEPH_SRC_PORTABLE_MATH_TABLES_H");
}
