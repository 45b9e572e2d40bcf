// A straight line through the series: least squares by the normal equations, with CZEPHMatrix.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <vector>

#include "tour.h"

namespace tour {
namespace {

struct Line {
  double level;  // at the first number
  double slope;  // per number
  double At(double index) const { return level + slope * index; }
};

/// The design matrix: a column of ones and a column of places from 0 to 1, a range in which the
/// equations stay well conditioned for any length.
CZEPHMatrix Design(int n) {
  CZEPHMatrix x(n, 2);
  for (int i = 0; i < n; ++i) {
    x[i][0] = 1.0;
    x[i][1] = static_cast<double>(i) / std::max(n - 1, 1);
  }
  return x;
}

CZEPHMatrix Transposed(CZEPHMatrix& m) {
  CZEPHMatrix t(m.GetNoColumn(), m.GetNoRow());
  for (int i = 0; i < m.GetNoRow(); ++i)
    for (int j = 0; j < m.GetNoColumn(); ++j) t[j][i] = m[i][j];
  return t;
}

/// Solves (X'X) b = X'y, a system of two equations, by Cramer's rule.
Line FitByNormalEquations(const CZEPHDoubleArray& series) {
  const int n = series.GetSize();
  CZEPHMatrix x = Design(n);
  CZEPHMatrix y(n, 1, series.GetData());
  CZEPHMatrix xt = Transposed(x);
  CZEPHMatrix a = xt * x, b = xt * y;
  a.Display(stdout, ' ');
  const double determinant = a[0][0] * a[1][1] - a[0][1] * a[1][0];
  if (determinant == 0.0) return {b[0][0] / a[0][0], 0.0};  // one number: level
  return {(b[0][0] * a[1][1] - a[0][1] * b[1][0]) / determinant,
          (a[0][0] * b[1][0] - a[1][0] * b[0][0]) / determinant / (n - 1)};
}

/// The same line by the textbook's closed formula, in deviations from the means.
Line FitByFormula(const CZEPHDoubleArray& series) {
  const int n = series.GetSize();
  double mean = 0.0, covariance = 0.0, variance = 0.0;
  for (double y : series) mean += y / n;
  const double middle = (n - 1) / 2.0;
  for (int i = 0; i < n; ++i) {
    covariance += (i - middle) * (series[i] - mean);
    variance += (i - middle) * (i - middle);
  }
  const double slope = n > 1 ? covariance / variance : 0.0;
  return {mean - slope * middle, slope};
}

/// Round places between the ends of a range, about five of them.
std::vector<double> Ticks(double lowest, double highest) {
  const double rough = (highest - lowest) / 5;
  if (!(rough > 0)) return {lowest};
  const double power = std::pow(10.0, std::floor(std::log10(rough)));
  double step = 10 * power;
  for (double round : {5.0, 2.0, 1.0})
    if (round * power >= rough) step = round * power;
  std::vector<double> ticks;
  for (double k = std::ceil(lowest / step); k * step <= highest; ++k) ticks.push_back(k * step);
  return ticks;
}

/// The scales and labels of the picture.
struct Frame {
  double width, height, left, lowest, highest;
  int count;
  int first;  // the label of the first index: a year, or 1
  const char* title;
  const char* across;
  const char* up;
  double X(double index) const {
    return left + (width - 2 * left) * index / std::max(count - 1, 1);
  }
  double Y(double value) const {
    const double span = highest > lowest ? highest - lowest : 1.0;
    return height - 45 - (height - 95) * (value - lowest) / span;
  }
};

/// Lines across the picture at round values, and round places below.
void WriteAxes(std::ostream& svg, const Frame& frame) {
  for (double value : Ticks(frame.lowest, frame.highest)) {
    const double y = frame.Y(value);
    svg << "<line stroke='gainsboro' x1='" << frame.left << "' y1='" << y << "' x2='"
        << frame.width - frame.left << "' y2='" << y
        << "'/>\n<text text-anchor='end' fill='dimgray' x='" << frame.left - 6 << "' y='" << y + 4
        << "'>" << value << "</text>\n";
  }
  for (double place : Ticks(frame.first, frame.first + frame.count - 1))
    if (place == std::floor(place))
      svg << "<text text-anchor='middle' fill='dimgray' x='" << frame.X(place - frame.first)
          << "' y='" << frame.height - 25 << "'>" << place << "</text>\n";
  svg << "<g text-anchor='middle'>\n<text font-size='15' x='" << frame.width / 2 << "' y='20'>"
      << frame.title << "</text>\n<text fill='dimgray' x='" << frame.width / 2 << "' y='"
      << frame.height - 7 << "'>" << frame.across
      << "</text>\n<text fill='dimgray' transform='translate(14," << frame.height / 2
      << ") rotate(-90)'>" << frame.up << "</text>\n</g>\n";
}

/// The series as a line. For a long one each pixel column shows its least and greatest number.
void WriteSeries(std::ostream& svg, const Frame& frame, const CZEPHDoubleArray& series) {
  constexpr int kMostPoints = 1600;
  const int together = std::max(1, frame.count * 2 / kMostPoints);
  if (together > 1)
    std::printf("the picture shows the lowest and the highest of each %d numbers\n", together);
  svg << "<polyline fill='none' stroke='steelblue' stroke-width='1.5' points='";
  for (int i = 0; i < frame.count; i += together) {
    const auto ends = std::minmax_element(series.begin() + i,
                                          series.begin() + std::min(i + together, frame.count));
    const auto [a, b] = std::minmax(ends.first, ends.second);  // in their order
    svg << frame.X(static_cast<double>(a - series.begin())) << "," << frame.Y(*a) << " ";
    if (a != b)
      svg << frame.X(static_cast<double>(b - series.begin())) << "," << frame.Y(*b) << " ";
  }
  svg << "'/>\n";
}

void WritePicture(const std::string& path, const Context& context, const Line& line) {
  const CZEPHDoubleArray& series = context.numbers;
  const auto [lowest, highest] = std::minmax_element(series.begin(), series.end());
  const int n = series.GetSize();
  const Frame frame = context.ofTheNile
                          ? Frame{800,      400,      70,   *lowest,
                                  *highest, n,        1871, "Yearly flow of the Nile at Aswan",
                                  "year",   "10^8 m3"}
                          : Frame{800,
                                  400,
                                  70,
                                  *lowest,
                                  *highest,
                                  n,
                                  1,
                                  "The numbers and their trend",
                                  "place in the series",
                                  "value"};
  std::ofstream svg(path);
  svg << "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 800 400' font-family='sans-serif' "
         "font-size='12'>\n<rect width='800' height='400' fill='white'/>\n";
  WriteAxes(svg, frame);
  WriteSeries(svg, frame, series);
  svg << "<line stroke='crimson' stroke-width='2' x1='" << frame.X(0) << "' y1='"
      << frame.Y(line.At(0)) << "' x2='" << frame.X(n - 1) << "' y2='" << frame.Y(line.At(n - 1))
      << "'/>\n<text x='70' y='40' fill='crimson'>least-squares trend: " << line.slope
      << (context.ofTheNile ? " a year" : " per step") << "</text>\n</svg>\n";
  if (!svg.flush()) RefuseInput(path + ": cannot be written");
}

}  // namespace

void ShowTrend(const Context& context) {
  CZEPHDoubleArray series = context.numbers;
  if (!(series.TwoNorm() < 1e150)) {  // a NaN, an infinity, or squares that overflow
    std::printf(
        "no line goes through these numbers: one of them is not finite, or too large to be "
        "squared\n");
    return;
  }
  std::printf("X'X of the normal equations (X'X) b = X'y:\n");
  const Line line = FitByNormalEquations(context.numbers);
  const Line check = FitByFormula(context.numbers);
  std::printf("trend: %.10g at the start, %+.10g per step\n", line.level, line.slope);
  const double largest = std::max(series.MaxNorm(), 1e-300);
  const double apart = std::max(std::fabs(line.level - check.level),
                                std::fabs(line.slope - check.slope) * series.GetSize());
  std::printf("closed formula: %s (at most %.1e of the largest number apart)\n",
              apart / largest < 1e-9 ? "the same line" : "ANOTHER LINE", apart / largest);
  const std::string path = context.outputFolder + "/trend.svg";
  WritePicture(path, context, line);
  std::printf("picture: %s\n", path.c_str());
}

}  // namespace tour
