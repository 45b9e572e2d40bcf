// SPDX-License-Identifier: MIT
//
// The workload over the algorithm kit and the random numbers.
#include "algorithms.h"

#include <algorithm>
#include <limits>

#include "inputs.h"
#include "linalg.h"
#include "report.h"

namespace zeph::selftest {
namespace {

void Text(Digest& digest, const CString& text) {
  digest.Text(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

void Scalars(Report& report, Inputs& in, Kind kind) {
  double x = in.Value<double>(kind), y = in.Value<double>(kind), z = in.Value<double>(kind);
  Digest& digest = report("magnitude, range, angles");
  digest.Computed(ZEPH_MathAbs(x));
  digest.Computed(ZEPH_MathClamped(x, y, z));
  digest.Computed(ZEPH_MathDegToRad(x));
  digest.Computed(ZEPH_MathRadToDeg(x));
  ZEPH_MathConvertToDeg(y);
  digest.Computed(y);
  ZEPH_MathConvertToRad(z);
  digest.Computed(z);
  ZEPH_MathClamp(x, -1.0, 1.0);
  digest.Computed(x);
}

void Rounding(Report& report, Inputs& in, Kind kind) {
  const double x = in.Value<double>(kind);
  Digest& digest = report("rounding");
  digest.Computed(ZEPH_MathRoundOff(x, in.Whole(-4, 6)));
  digest.Integer(ZEPH_RoundOffToInt(x));
  digest.Integer(ZEPH_RoundOffToInt(in.Whole(-100, 100) / 2.0));
  report("powers of ten").Computed(ZEPH_MathGetScientificNotationValue(x, in.Whole(-320, 320)));
}

void WholeNumbers(Report& report, Inputs& in) {
  const int a = static_cast<int>(static_cast<std::uint32_t>(in.Word()));
  const int b = in.Whole(1, 1 << in.Whole(1, 30));
  int quotient = 0, remainder = 0;
  ZEPH_MathIntegerDivision(a, in.Whole(0, 1) ? b : -b - 1, quotient, remainder);
  Digest& digest = report("whole numbers");
  digest.Integer(quotient);
  digest.Integer(remainder);
  digest.Integer(ZEPH_MathGetRightMostDigit(a));
}

void Searches(Report& report, Inputs& in, int n) {
  std::vector<int> a;
  for (int i = 0; i <= n; ++i) a.push_back(in.Whole(-n, n));
  Digest& digest = report("CZEPHIntegralSearch");
  for (int k = 0; k < 20; ++k)
    digest.Integer(CZEPHIntegralSearch::SequentialSearch(a.data(), n, in.Whole(-n, n)));
  std::sort(a.begin(), a.end());
  for (int k = 0; k < 20; ++k)
    digest.Integer(CZEPHIntegralSearch::BinarySearch(a.data(), n, in.Whole(-n, n)));
  // The recursive form may access any index, so it is called only where its first middle is the
  // key.
  digest.Integer(
      CZEPHIntegralSearch::BinarySearch(a.data(), 0, n, a[static_cast<std::size_t>(n / 2)]));
}

void Selection(Report& report, Inputs& in, int n, Kind kind) {
  auto doubles = in.Values<double>(n, kind);
  CZEPHSelectionSort::Run(doubles.data(), n);
  report("CZEPHSelectionSort, double").Moved(doubles.data(), n);
  std::vector<int> ints;
  for (int i = 0; i < n; ++i) ints.push_back(in.Whole(-n, n));
  CZEPHSelectionSort::Run(ints.data(), n);
  report("CZEPHSelectionSort, int").Integers(ints.data(), n);
}

void Permutations(Report& report) {
  CString out;
  char letters[] = "abcdefg";
  int numbers[] = {3, -1, 4, 1, -5, 9, 2};
  Digest& digest = report("CZEPHPermutation");
  for (int n = 1; n <= 7; ++n) {
    digest.Integer(CZEPHPermutation::Run(letters, 0, n, out));
    digest.Integer(CZEPHPermutation::Run(numbers, 0, n, out));
    digest.Text(letters, 7);
    digest.Integers(numbers, 7);
  }
  Text(digest, out);
}

void Notation(Report& report, Inputs& in) {
  const double x = in.Value<double>(Kind::kPlain);
  const char digits = static_cast<char>(in.Whole(1, 4)),
             decimals = static_cast<char>(in.Whole(0, 6));
  Digest& digest = report("scientific notation", Rests::kFunctions);
  digest.Integer(ZEPH_MathGetScientificNotationBase(x, digits));
  int exponent = 0;
  double mantissa = 0;
  const CString text = ZEPH_MathToScientificNotation(x, exponent, mantissa, digits, decimals);
  digest.Integer(exponent);
  digest.Computed(mantissa);
  Text(report("scientific notation", Rests::kTexts), text);
}

void RandomNumbers(Report& report) {
  ZEPH_MathRandomSeed(12345);
  Digest& digest = report("random numbers", Rests::kRandom);
  for (int k = 1; k < 500; ++k) {
    digest.Integer(ZEPH_MathRandom(k));
    digest.Computed(ZEPH_MathRandom(-k, k));
  }
  CZEPHMatrix m(6, 6);
  ZEPH_RandomizeMatrix(m, 0.1);
  for (int i = 0; i < 6; ++i) digest.Computed(m[i], 6);
}

}  // namespace

void RunAlgorithms(Report& report) {
  Inputs in(6);
  for (Kind kind : kKinds) {
    for (int k = 0; k < 30000; ++k) {
      Scalars(report, in, kind);
      Rounding(report, in, kind);
      WholeNumbers(report, in);
    }
    for (int n : Sizes())
      for (int round = 0; round < 3; ++round) {
        Searches(report, in, n);
        Selection(report, in, n, kind);
      }
  }
  Permutations(report);
  for (int k = 0; k < 2000; ++k) Notation(report, in);
  RandomNumbers(report);
}

}  // namespace zeph::selftest
