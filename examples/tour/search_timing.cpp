// The integer searches, timed against the size of the array and drawn.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "tour.h"

namespace tour {
namespace {

// A reading is off by a millisecond at most: two digits are significant.
constexpr long kEnoughMilliseconds = 20;

/// `x` with two significant digits.
double TwoDigits(double x) {
  if (x <= 0) return x;
  const double unit = std::pow(10.0, std::floor(std::log10(x)) - 1);
  return std::round(x / unit) * unit;
}

/// Nanoseconds a call of `search(i)` takes: enough calls for the stopwatch to measure, the best of
/// three readings.
template <class Search>
double TimeEach(Search search) {
  double best = HUGE_VAL;
  int count = 64;
  for (int readings = 0; readings < 3;) {
    CZEPHDSTimer watch;
    watch.Start();
    int sum = 0;
    for (int i = 0; i < count; ++i) sum += search(i) & 1;
    const long elapsed = watch.Stop();
    if (sum < 0) std::puts("");  // uses the results, so that no call is optimised away
    if (elapsed >= kEnoughMilliseconds || count >= (1 << 28)) {
      best = std::fmin(best, static_cast<double>(elapsed) * 1e6 / count);
      ++readings;
    } else {
      count *= 2;
    }
  }
  return best;
}

struct Row {
  int size;
  double sequential;  // nanoseconds
  double binary;
};

Row Measure(int size) {
  // Element 0 is the sequential search's sentinel; the binary search uses the elements after it.
  std::vector<int> slots(static_cast<std::size_t>(size) + 1);
  for (int i = 0; i <= size; ++i) slots[static_cast<std::size_t>(i)] = i;
  int* a = slots.data();
  const auto key = [size](int i) {
    return 1 +
           static_cast<int>(static_cast<unsigned>(i) * 2654435761u % static_cast<unsigned>(size));
  };
  return {size,
          TimeEach([&](int i) { return CZEPHIntegralSearch::SequentialSearch(a, size, key(i)); }),
          TimeEach([&](int i) { return CZEPHIntegralSearch::BinarySearch(a + 1, size, key(i)); })};
}

/// A log-log plot, one polyline a search.
class Plot {
 public:
  explicit Plot(const std::vector<Row>& rows) : rows_(rows) {}

  bool Write(const std::string& path) const {
    FILE* f = std::fopen(path.c_str(), "w");
    if (!f) return false;
    std::fprintf(f,
                 "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
                 "font-family=\"sans-serif\" font-size=\"12\">\n"
                 "<rect width=\"100%%\" height=\"100%%\" fill=\"white\"/>\n"
                 "<text x=\"60\" y=\"20\">Nanoseconds a search, by number of elements</text>\n",
                 kWidth, kHeight);
    for (int e = 0; e <= kDecades; ++e) {
      const double y = Y(std::pow(10.0, e));
      std::fprintf(f, "<path d=\"M60 %.1fH%d\" stroke=\"#ddd\"/>", y, kWidth - 100);
      std::fprintf(f, "<text x=\"52\" y=\"%.1f\" text-anchor=\"end\">%.0f</text>\n", y + 4,
                   std::pow(10.0, e));
    }
    for (const Row& row : rows_)
      std::fprintf(f, "<text x=\"%.1f\" y=\"%d\" text-anchor=\"middle\">%d</text>\n", X(row.size),
                   kHeight - 12, row.size);
    Curve(f, "sequential", "#c0392b", &Row::sequential);
    Curve(f, "binary", "#2471a3", &Row::binary);
    std::fprintf(f, "</svg>\n");
    return std::fclose(f) == 0;
  }

 private:
  static constexpr int kWidth = 560, kHeight = 320, kDecades = 5;

  double X(int size) const {
    const double first = std::log(rows_.front().size), last = std::log(rows_.back().size);
    return 80 + (std::log(size) - first) / (last - first) * (kWidth - 200);
  }
  static double Y(double nanoseconds) {
    const double decades = std::log10(ZEPH_MathClamped(nanoseconds, 1.0, std::pow(10.0, kDecades)));
    return kHeight - 40 - decades / kDecades * (kHeight - 80);
  }
  void Curve(FILE* f, const char* name, const char* colour, double Row::*value) const {
    std::fprintf(f, "<polyline fill=\"none\" stroke-width=\"2\" stroke=\"%s\" points=\"", colour);
    for (const Row& row : rows_) std::fprintf(f, "%.1f,%.1f ", X(row.size), Y(row.*value));
    std::fprintf(f, "\"/>\n<text x=\"%d\" y=\"%.1f\" fill=\"%s\">%s</text>\n", kWidth - 95,
                 Y(rows_.back().*value) + 4, colour, name);
  }

  const std::vector<Row>& rows_;
};

}  // namespace

void TimeSearches(const Context& context) {
  std::vector<Row> rows;
  std::printf("%10s %16s %16s\n", "elements", "sequential, ns", "binary, ns");
  for (int size = 16; size <= 65536; size *= 4) {
    rows.push_back(Measure(size));
    std::printf("%10d %16.4g %16.4g\n", size, TwoDigits(rows.back().sequential),
                TwoDigits(rows.back().binary));
  }
  const std::string path = context.outputFolder + "/searches.svg";
  if (!Plot(rows).Write(path)) RefuseInput(path + ": cannot be written");
  std::printf("Drawn in %s\n", path.c_str());
}

}  // namespace tour
