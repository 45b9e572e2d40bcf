// The mathematical functions and the selection sort in every floating-point mode of the host.
#include "algorithms.h"

#include "modes/inputs.h"
#include "oracle/decimal.h"
#include "oracle/selection_sort.h"
#include "support/modes.h"

using namespace zeph::test;

namespace {

using Doubles = std::vector<double>;

/// Each value separately.
template <class Operation, class Steps>
void CheckEach(Results kind, Operation operation, Steps steps) {
  ForEachInput({60}, 400, [&](const Doubles& values) {
    for (const double x : values)
      EXPECT_TRUE(SameInEveryMode(
          kind, [&] { return Doubles{operation(x)}; }, [&] { return Doubles{steps(x)}; }))
          << "x " << x;
  });
}

}  // namespace

TEST(AlgorithmsModes, MagnitudeIsCorrectInEveryMode) {
  CheckEach(
      Results::kMoved, [](double x) { return ZEPH_MathAbs(x); },
      [](double x) { return x > 0 ? x : -x; });
}

TEST(AlgorithmsModes, ClampingKeepsItsValuesInEveryMode) {
  for (const double lo : {-1.0, 0.0, Denormal<double>(-3)})
    for (const double hi : {1.0, 0.0, Denormal<double>(5)}) {
      const auto steps = [lo, hi](double x) {
        volatile double v = x;  // so that no maximum instruction is used
        if (lo > v) return lo;
        if (v > hi) return hi;
        return x;
      };
      CheckEach(
          Results::kMoved, [lo, hi](double x) { return ZEPH_MathClamped(x, lo, hi); }, steps);
      CheckEach(
          Results::kMoved,
          [lo, hi](double x) {
            ZEPH_MathClamp(x, lo, hi);
            return x;
          },
          [lo, hi](double x) {
            volatile double v = x;
            if (lo > v) v = lo;
            if (v > hi) v = hi;
            return v;
          });
    }
}

TEST(AlgorithmsModes, AnglesAreCorrectInEveryMode) {
  CheckEach(
      Results::kComputed, [](double x) { return ZEPH_MathDegToRad(x); },
      [](double x) { return x * 0.01745329251994; });
  CheckEach(
      Results::kComputed, [](double x) { return ZEPH_MathRadToDeg(x); },
      [](double x) { return x * 57.29577951308; });
}

TEST(AlgorithmsModes, RoundingIsCorrectInEveryMode) {
  for (const int places : {-3, 0, 2, 9})
    CheckEach(
        Results::kComputed, [places](double x) { return ZEPH_MathRoundOff(x, places); },
        [places](double x) { return oracle::RoundOff(x, places); });
  CheckEach(
      Results::kComputed, [](double x) { return double(ZEPH_RoundOffToInt(x)); },
      [](double x) { return double(oracle::RoundOffToInt(x)); });
}

// No step beyond the documented ones overflows, though the next square of a power would.
TEST(AlgorithmsModes, PowersOfTenAreCorrectInEveryMode) {
  for (const int power : {1, 15, 17, 22, 31, 32, 128, 200, 255, 256, 257, 300, 308, 309, 511, 512})
    for (const int n : {power, -power})
      for (const double x : {1.5, -7.25e300, 3e-300, Denormal<double>(3)}) {
        SCOPED_TRACE("10^" + std::to_string(n) + " and " + Show(x));
        EXPECT_TRUE(
            ComputesInEveryMode([&] { return Doubles{ZEPH_MathGetScientificNotationValue(x, n)}; },
                                [&] { return Doubles{oracle::Mantissa(x, n)}; }));
        EXPECT_TRUE(ComputesInEveryMode([&] { return Doubles{ZEPH_MathRoundOff(x, n)}; },
                                        [&] { return Doubles{oracle::RoundOff(x, n)}; }));
      }
}

TEST(AlgorithmsModes, SelectionSortIsCorrectInEveryMode) {
  ForEachInput({1, 2, 9, 40, 300}, 400, [](const Doubles& values) {
    EXPECT_TRUE(MovesInEveryMode(
        [&] {
          Doubles v = values;
          CZEPHSelectionSort::Run(v.data(), static_cast<int>(v.size()));
          return v;
        },
        [&] {
          Doubles v = values;
          oracle::SelectionSort(v);
          return v;
        }));
  });
}
