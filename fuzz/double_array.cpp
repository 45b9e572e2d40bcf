// Call sequences on two double arrays against std::vector and a flag.
#include "double_array.h"

#include <cmath>
#include <sstream>

#include "oracle/searches.h"
#include "oracle/sorts.h"
#include "support/bytes.h"
#include "support/require.h"

namespace {

using zeph::fuzz::Bytes;
using zeph::fuzz::Require;
using zeph::fuzz::RequireBits;
using zeph::fuzz::RequireText;
using zeph::fuzz::RequireValue;
using zeph::fuzz::RequireValues;
using Doubles = std::vector<double>;

/// An array and what it should hold.
struct Pair {
  CZEPHDoubleArray array;
  Doubles model;
  int sorted = 0;

  int Size() const { return static_cast<int>(model.size()); }
  double& At(int i) { return model[static_cast<std::size_t>(i)]; }
  /// Takes unspecified elements as they are.
  void TakeFrom(std::size_t first) {
    for (std::size_t i = first; i < model.size(); ++i) model[i] = array.data[i];
  }
  void Check(const char* promise) const {
    Require(array.GetSize() == Size() && array.Size() == Size(), "the size is the model's");
    Require(array.sorted == sorted, "the flag is the model's");
    RequireBits(array.GetData(), model.data(), model.size(), promise);
    Require(array.end() - array.begin() == Size(), "begin() to end() are all elements");
  }
};

/// A new array of these elements replaces the old one.
void Assign(Pair& p, const Doubles& values) {
  p.array.Resize(0, 0);
  p.array = CZEPHDoubleArray(static_cast<int>(values.size()), values.data());
  p.model = values;
  p.sorted = 0;  // an assignment that allocates clears the flag
}

void Arithmetic(Bytes& in, const Pair& a, const Pair& b) {
  const double s = in.Double();
  const bool same = a.Size() == b.Size();
  const auto check = [](const CZEPHDoubleArray& got, std::size_t n, const char* what, auto entry) {
    Require(got.GetSize() == static_cast<int>(n) && got.sorted == 0, what);
    for (std::size_t i = 0; i < n; ++i) {
      volatile double want = entry(i);
      RequireValue(got[static_cast<int>(i)], static_cast<double>(want), what);
    }
  };
  const auto& x = a.model;
  const auto& y = b.model;
  check(s * a.array, x.size(), "s * a", [&](std::size_t i) { return s * x[i]; });
  check(a.array * s, x.size(), "a * s", [&](std::size_t i) { return s * x[i]; });
  volatile double reciprocal = 1.0 / s;
  check(a.array / s, x.size(), "a / s", [&](std::size_t i) { return reciprocal * x[i]; });
  check(-a.array, x.size(), "-a", [&](std::size_t i) { return 0.0 - x[i]; });
  check(+a.array, x.size(), "+a", [&](std::size_t i) { return x[i]; });
  if (!same) return;
  check(a.array + b.array, x.size(), "a + b", [&](std::size_t i) { return x[i] + y[i]; });
  check(a.array - b.array, x.size(), "a - b", [&](std::size_t i) { return x[i] - y[i]; });
  check(a.array * b.array, x.size(), "a * b", [&](std::size_t i) { return x[i] * y[i]; });
  check(a.array + (a.array + b.array), x.size(), "a + (a + b)",
        [&](std::size_t i) { return x[i] + (x[i] + y[i]); });
  double dot = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    volatile double product = x[i] * y[i];
    dot = i == 0 ? product : dot + product;  // the sum starts with a term: -0.0 stays
  }
  RequireValue(ZEPH_ArrayDotProduct(a.array, b.array), dot, "the dot product");
}

void Norms(const Pair& p) {
  double one = 0.0;
  double squares = 0.0;
  double most = p.model.empty() ? 0.0 : std::fabs(p.model[0]);
  for (const double x : p.model) {
    one += std::fabs(x);
    volatile double square = x * x;
    squares += square;
    if (std::fabs(x) > most) most = std::fabs(x);
  }
  RequireValue(p.array.OneNorm(), one, "OneNorm");
  RequireValue(p.array.TwoNorm(), std::sqrt(squares), "TwoNorm");
  RequireValue(p.array.MaxNorm(), most, "MaxNorm");
}

void Compound(Bytes& in, Pair& a, const Pair& b) {
  if (a.Size() != b.Size()) return;
  const bool plus = in.Flag();
  if (plus) {
    a.array += b.array;
  } else {
    a.array -= b.array;
  }
  const Doubles other = b.model;  // which may be a's own
  for (std::size_t i = 0; i < other.size(); ++i) {
    volatile double sum = plus ? a.model[i] + other[i] : a.model[i] - other[i];
    RequireValue(a.array.data[i], static_cast<double>(sum), plus ? "a += b" : "a -= b");
  }
  a.TakeFrom(0);
}

void Merge(Pair& a, const Pair& b) {
  Doubles got(a.model.size() + b.model.size());
  Doubles want(got.size());
  a.array.MergeSortedArray(a.array.data, a.Size(), b.array.data, b.Size(), got.data());
  oracle::Merge(a.model.data(), a.Size(), b.model.data(), b.Size(), want.data());
  RequireBits(got.data(), want.data(), want.size(), "MergeSortedArray");
}

void Search(Bytes& in, Pair& p) {
  const double x = p.model.empty() || in.Flag() ? in.Double() : p.model[in.Below(p.model.size())];
  Require(p.array.Find(x) == oracle::Find(p.model, x), "Find");
  int index = -7;
  const int found = p.array.BinarySearch(x, index);
  const auto want = oracle::BinarySearch(p.model, p.sorted != 0, x, -7);
  Require(found == want.result && index == want.index, "BinarySearch");
  if (in.Flag()) Require(p.array.Remove(x) == oracle::Remove(p.model, x), "Remove");
}

void Texts(Bytes& in, Pair& p) {
  std::ostringstream shown, want;
  p.array.Display(shown);
  for (std::size_t i = 0; i < p.model.size(); ++i) {
    want << p.model[i] << " ";
    if (i != 0 && i % 10 == 0) want << "\n";
  }
  RequireText(shown.str(), want.str(), "Display(stream)");
  const int from = p.Size() ? in.Int(0, p.Size() - 1) : 0;
  const int to = p.Size() ? in.Int(0, p.Size() - 1) : -1;
  CString text("x");
  p.array.Display(text, from, to);
  std::string listing = "x{ ";
  for (int i = from; i <= to; ++i) {
    char number[400];
    std::snprintf(number, sizeof number, "%f  ", p.At(i));
    listing += number;
    if (i != from && (i - from) % 10 == 0) listing += "\r\n";
  }
  RequireText(text.GetString(), listing + "}\r\n", "Display(text, from, to)");
}

void Sort(Bytes& in, Pair& p) {
  switch (in.Int(0, 4)) {
    case 0:
      p.array.BubbleSort();
      oracle::BubbleSort(p.model);
      break;
    case 1:
      p.array.InsertionSort();
      oracle::InsertionSort(p.model, 0, p.Size() - 1);
      break;
    case 2:
      p.array.ListInsertSort();
      oracle::ListInsertSort(p.model);
      break;
    case 3:
      p.array.ShellSort();
      oracle::ShellSort(p.model);
      break;
    default: {
      const int cutoff = in.Int(0, 12);
      p.array.QuickSort(cutoff);
      if (!p.model.empty()) oracle::RecQuickSort(p.model, 0, p.Size() - 1, cutoff);
    }
  }
  p.sorted = 1;
}

void Resize(Bytes& in, Pair& p) {
  const int n = in.Int(-2, 80);
  const int keep = in.Int(0, 2);
  const std::size_t kept =
      keep ? std::min(p.model.size(), static_cast<std::size_t>(n < 0 ? 0 : n)) : 0;
  p.array.Resize(n, keep);
  p.model.resize(static_cast<std::size_t>(n < 0 ? 0 : n));
  RequireBits(p.array.GetData(), p.model.data(), kept, "Resize keeps what it should");
  for (std::size_t i = kept; i < p.model.size(); ++i) p.model[i] = p.array.data[i] = in.Double();
}

void Step(Bytes& in, Pair& a, Pair& b) {
  switch (in.Int(0, 12)) {
    case 0:
      return Assign(a, in.Doubles(200));
    case 1:
      return Resize(in, a);
    case 2: {
      if (a.Size() != 0 && a.Size() != b.Size()) return;
      if (a.Size() == 0) {
        a.array.Resize(0, 0);  // a block held with size 0 would leak
        if (&a != &b) a.sorted = 0;
      }
      a.array = b.array;
      a.model = Doubles(b.model);
      return;
    }
    case 3: {
      const double x = in.Double();
      in.Flag() ? a.array.SetEntry(x) : a.array.Reset(x);
      for (double& y : a.model) y = x;
      return;
    }
    case 4: {
      if (a.model.empty()) return;
      const int i = in.Int(0, a.Size() - 1);
      const int j = in.Int(0, a.Size() - 1);
      a.array.Swap(i, j);
      std::swap(a.At(i), a.At(j));
      a.array[i] = a.At(i) = in.Double();
      RequireBits(&a.array[j], &a.At(j), 1, "Swap");
      Require(a.array.CheckBound(a.Size()) == 1, "CheckBound accepts the size");
      return;
    }
    case 5:
      return Compound(in, a, b);
    case 6:
      return Sort(in, a);
    case 7:
      a.sorted = oracle::CheckSorted(a.model);
      return Require(a.array.CheckSorted() == a.sorted, "CheckSorted");
    case 8:
      return Search(in, a);
    case 9:
      return Merge(a, b);
    case 10:
      return Norms(a);
    case 11:
      return Texts(in, a);
    default:
      return Arithmetic(in, a, b);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Bytes in(data, size);
  Pair a, b;
  for (int steps = 0; steps < 64 && !in.Empty(); ++steps) {
    const std::uint8_t which = in.Byte();
    Pair& left = which & 1 ? b : a;
    Pair& right = which & 2 ? b : a;
    Step(in, left, right);
    a.Check("the elements are the model's");
    b.Check("the elements are the model's");
  }
  return 0;
}
