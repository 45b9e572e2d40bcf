// The double array in every floating-point mode of the host: the bits of the documented steps run
// in that mode, and no exception that they do not raise.
#include "double_array.h"

#include <cmath>

#include "double_array/arrays.h"
#include "modes/inputs.h"
#include "oracle/searches.h"
#include "oracle/sorts.h"
#include "support/modes.h"
#include "support/not_finite.h"

using namespace zeph::test;

namespace {

using Doubles = std::vector<double>;

const std::vector<std::size_t> kLengths = {1, 2, 3, 7, 8, 9, 12, 31, 33, 70, 129, 300, 1000};

/// A sort of a whole array, against its oracle.
template <class Sort, class Oracle>
void CheckSort(Sort sort, Oracle walk) {
  ForEachInput(kLengths, 100, [&](const Doubles& values) {
    EXPECT_TRUE(MovesInEveryMode(
        [&] {
          CZEPHDoubleArray a = ArrayOf(values);
          sort(a);
          return ElementsOf(a);
        },
        [&] {
          Doubles v = values;
          walk(v);
          return v;
        }));
  });
}

/// One double computed from an array.
template <class Operation, class Oracle>
void CheckNumber(Results kind, Operation operation, Oracle steps) {
  ForEachInput(kLengths, 100, [&](const Doubles& values) {
    const CZEPHDoubleArray a = ArrayOf(values);
    EXPECT_TRUE(SameInEveryMode(
        kind, [&] { return Doubles{operation(a)}; }, [&] { return Doubles{steps(values)}; }));
  });
}

double Half(const Doubles& v, std::size_t i) {
  return v[i] * 0.5;
}

}  // namespace

TEST(DoubleArrayModes, BubbleSortMatchesItsOracle) {
  CheckSort([](CZEPHDoubleArray& a) { a.BubbleSort(); }, oracle::BubbleSort);
}

TEST(DoubleArrayModes, InsertionSortMatchesItsOracle) {
  CheckSort([](CZEPHDoubleArray& a) { a.InsertionSort(); },
            [](Doubles& v) { oracle::InsertionSort(v, 0, oracle::SizeOf(v) - 1); });
}

TEST(DoubleArrayModes, ListInsertSortMatchesItsOracle) {
  CheckSort([](CZEPHDoubleArray& a) { a.ListInsertSort(); }, oracle::ListInsertSort);
}

TEST(DoubleArrayModes, ShellSortMatchesItsOracle) {
  CheckSort([](CZEPHDoubleArray& a) { a.ShellSort(); }, oracle::ShellSort);
}

TEST(DoubleArrayModes, QuickSortMatchesItsOracle) {
  for (const int cutoff : {1, 3, 10})
    CheckSort([cutoff](CZEPHDoubleArray& a) { a.QuickSort(cutoff); },
              [cutoff](Doubles& v) { oracle::RecQuickSort(v, 0, oracle::SizeOf(v) - 1, cutoff); });
}

TEST(DoubleArrayModes, PartsOfQuickSortMatchTheirOracles) {
  CheckSort(
      [](CZEPHDoubleArray& a) {
        if (a.size > 2) a.MedianOf3(0, a.size - 1);
        a.ManualSort(0, std::min(a.size, 3) - 1);
      },
      [](Doubles& v) {
        if (v.size() > 2) oracle::MedianOf3(v, 0, oracle::SizeOf(v) - 1);
        oracle::ManualSort(v, 0, std::min(oracle::SizeOf(v), 3) - 1);
      });
  CheckSort(
      [](CZEPHDoubleArray& a) { a.Partition(0, a.size - 1, Denormal<double>(2)); },
      [](Doubles& v) { oracle::Partition(v, 0, oracle::SizeOf(v) - 1, Denormal<double>(2)); });
}

TEST(DoubleArrayModes, CheckSortedAndSearchesMatchTheirOracles) {
  ForEachInput(kLengths, 100, [](const Doubles& values) {
    for (const double x : {values.front(), values.back(), 0.0, Denormal<double>(5), 12.0}) {
      EXPECT_TRUE(MovesInEveryMode(
          [&] {
            CZEPHDoubleArray a = ArrayOf(values);
            const double first = a.CheckSorted();
            int index = -7;
            a.sorted = 0;
            const double found = a.BinarySearch(x, index);
            return Doubles{first, found, double(index), double(a.Find(x))};
          },
          [&] {
            const double first = oracle::CheckSorted(values);
            const auto found = oracle::BinarySearch(values, false, x, -7);
            return Doubles{first, double(found.result), double(found.index),
                           double(oracle::Find(values, x))};
          }))
          << "x " << x;
      EXPECT_TRUE(MovesInEveryMode(
          [&] {
            CZEPHDoubleArray a = ArrayOf(values);
            a.Remove(x);
            return ElementsOf(a);
          },
          [&] {
            Doubles v = values;
            oracle::Remove(v, x);
            return v;
          }))
          << "x " << x;
    }
  });
}

TEST(DoubleArrayModes, BinarySearchOfASortedArrayMatchesItsOracle) {
  ForEachInput(kLengths, 100, [](const Doubles& values) {
    Doubles ascending = values;
    for (double& x : ascending) x = x != x ? 3.0 : x;
    std::sort(ascending.begin(), ascending.end());
    for (const double x : {ascending.front(), ascending[ascending.size() / 2], 0.0, 12.0})
      EXPECT_TRUE(MovesInEveryMode(
          [&] {
            CZEPHDoubleArray a = ArrayOf(ascending);
            a.sorted = 1;
            int index = -7;
            const double found = a.BinarySearch(x, index);
            return Doubles{found, double(index)};
          },
          [&] {
            const auto found = oracle::BinarySearch(ascending, true, x, -7);
            return Doubles{double(found.result), double(found.index)};
          }))
          << "x " << x;
  });
}

TEST(DoubleArrayModes, MergeSortedArrayMatchesItsOracle) {
  ForEachInput(kLengths, 100, [](const Doubles& values) {
    Doubles ascending = values;
    for (double& x : ascending) x = x != x ? 3.0 : x;
    const auto middle = ascending.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::sort(ascending.begin(), middle);
    std::sort(middle, ascending.end());
    for (const Doubles& all : {values, ascending}) {
      const Doubles a(all.begin(), all.begin() + (middle - ascending.begin()));
      const Doubles b(all.begin() + (middle - ascending.begin()), all.end());
      EXPECT_TRUE(MovesInEveryMode(
          [&] {
            Doubles x = a, y = b, out(all.size());
            CZEPHDoubleArray().MergeSortedArray(x.data(), oracle::SizeOf(x), y.data(),
                                                oracle::SizeOf(y), out.data());
            return out;
          },
          [&] {
            Doubles out(all.size());
            oracle::Merge(a.data(), oracle::SizeOf(a), b.data(), oracle::SizeOf(b), out.data());
            return out;
          }));
    }
  });
}

TEST(DoubleArrayModes, MaxNormReturnsItsElementUnchanged) {
  CheckNumber(
      Results::kMoved, [](const CZEPHDoubleArray& a) { return a.MaxNorm(); },
      [](const Doubles& v) -> double {
        volatile double largest = std::fabs(v[0]);  // so that no maximum instruction is used
        for (const double x : v)
          if (std::fabs(x) > largest) largest = std::fabs(x);
        return largest;
      });
}

TEST(DoubleArrayModes, NormsAndDotProductMatchTheirOracles) {
  CheckNumber(
      Results::kComputed, [](const CZEPHDoubleArray& a) { return a.OneNorm(); },
      [](const Doubles& v) {
        double sum = std::fabs(v[0]);
        for (std::size_t i = 1; i < v.size(); ++i) sum += std::fabs(v[i]);
        return sum;
      });
  CheckNumber(
      Results::kComputed, [](const CZEPHDoubleArray& a) { return a.TwoNorm(); },
      [](const Doubles& v) {
        double sum = v[0] * v[0];
        for (std::size_t i = 1; i < v.size(); ++i) sum += v[i] * v[i];
        return std::sqrt(sum);
      });
  CheckNumber(
      Results::kComputed,
      [](const CZEPHDoubleArray& a) {
        CZEPHDoubleArray halves = a;
        for (double& x : halves) x = x * 0.5;
        return ZEPH_ArrayDotProduct(a, halves);
      },
      [](const Doubles& v) {
        double sum = v[0] * Half(v, 0);
        for (std::size_t i = 1; i < v.size(); ++i) sum += v[i] * Half(v, i);
        return sum;
      });
}

TEST(DoubleArrayModes, ArithmeticMatchesPlainLoops) {
  ForEachInput(kLengths, 100, [](const Doubles& values) {
    const Doubles other(values.rbegin(), values.rend());
    const CZEPHDoubleArray a = ArrayOf(values), b = ArrayOf(other);
    const auto check = [&](const char* what, auto operation, auto step) {
      SCOPED_TRACE(what);
      EXPECT_TRUE(ComputesInEveryMode([&] { return ElementsOf(operation()); },
                                      [&] {
                                        Doubles out;
                                        for (std::size_t i = 0; i < values.size(); ++i)
                                          out.push_back(step(values[i], other[i]));
                                        return out;
                                      }));
    };
    check(
        "sum", [&] { return a + b; }, [](double x, double y) { return x + y; });
    check(
        "difference", [&] { return a - b; }, [](double x, double y) { return x - y; });
    check(
        "product", [&] { return a * b; }, [](double x, double y) { return x * y; });
    check(
        "minus", [&] { return -a; }, [](double x, double) { return 0.0 - x; });
    for (const double s : {0.0, 1.0, -1.0, 3.0, 1e300, kInfinity, Denormal<double>(3)}) {
      check(
          "multiple", [&] { return s * a; }, [s](double x, double) { return s * x; });
      check(
          "share", [&] { return a / s; },
          [s](double x, double) {
            const double r = 1.0 / s;
            return r * x;
          });
    }
  });
}
