// A straight line through the series: least squares by the normal equations, with CZEPHMatrix.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>

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

/// Places indices and values in the picture.
struct Frame {
  double width, height, left, lowest, highest;
  int count;
  double X(int index) const { return left + (width - 2 * left) * index / std::max(count - 1, 1); }
  double Y(double value) const {
    const double span = highest > lowest ? highest - lowest : 1.0;
    return height - 45 - (height - 80) * (value - lowest) / span;
  }
};

/// Lines across the picture at quarters of the range, with their values, and places below.
void WriteAxes(std::ostream& svg, const Frame& frame) {
  svg << "<g stroke='gainsboro'>\n";
  for (int quarter = 0; quarter <= 4; ++quarter) {
    const double y = frame.Y(frame.lowest + (frame.highest - frame.lowest) * quarter / 4);
    svg << "<line x1='" << frame.left << "' y1='" << y << "' x2='" << frame.width - frame.left
        << "' y2='" << y << "'/>\n";
  }
  svg << "</g>\n<g fill='dimgray'>\n";
  for (int quarter = 0; quarter <= 4; ++quarter) {
    const double value = frame.lowest + (frame.highest - frame.lowest) * quarter / 4;
    const int index = static_cast<int>(std::lround((frame.count - 1) * 0.25 * quarter));
    svg << "<text text-anchor='end' x='" << frame.left - 6 << "' y='" << frame.Y(value) + 4 << "'>"
        << value << "</text>\n<text text-anchor='middle' x='" << frame.X(index) << "' y='"
        << frame.height - 25 << "'>" << index + 1 << "</text>\n";
  }
  svg << "<text text-anchor='middle' x='" << frame.width / 2 << "' y='" << frame.height - 7
      << "'>place in the series</text>\n<text text-anchor='middle' transform='translate(14,"
      << frame.height / 2 << ") rotate(-90)'>value</text>\n</g>\n";
}

void WritePicture(const std::string& path, const CZEPHDoubleArray& series, const Line& line) {
  const auto [lowest, highest] = std::minmax_element(series.begin(), series.end());
  const int n = series.GetSize();
  const Frame frame{800, 400, 70, *lowest, *highest, n};
  std::ofstream svg(path);
  svg << "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 800 400' font-family='sans-serif' "
         "font-size='12'>\n<rect width='800' height='400' fill='white'/>\n";
  WriteAxes(svg, frame);
  svg << "<polyline fill='none' stroke='steelblue' stroke-width='1.5' points='";
  for (int i = 0; i < n; ++i) svg << frame.X(i) << "," << frame.Y(series[i]) << " ";
  svg << "'/>\n<line stroke='crimson' stroke-width='2' x1='" << frame.X(0) << "' y1='"
      << frame.Y(line.At(0)) << "' x2='" << frame.X(n - 1) << "' y2='" << frame.Y(line.At(n - 1))
      << "'/>\n<text x='70' y='20' fill='crimson'>least-squares trend: " << line.slope
      << " per step</text>\n</svg>\n";
  if (!svg.flush()) RefuseInput(path + ": cannot be written");
}

}  // namespace

void ShowTrend(const Context& context) {
  std::printf("X'X of the normal equations (X'X) b = X'y:\n");
  const Line line = FitByNormalEquations(context.numbers);
  const Line check = FitByFormula(context.numbers);
  std::printf("trend: %.10g at the start, %+.10g per step\n", line.level, line.slope);
  CZEPHDoubleArray series = context.numbers;
  const double largest = std::max(series.MaxNorm(), 1e-300);
  const double apart = std::max(std::fabs(line.level - check.level),
                                std::fabs(line.slope - check.slope) * series.GetSize());
  std::printf("closed formula: %s (at most %.1e of the largest number apart)\n",
              apart / largest < 1e-9 ? "the same line" : "ANOTHER LINE", apart / largest);
  const std::string path = context.outputFolder + "/trend.svg";
  WritePicture(path, context.numbers, line);
  std::printf("picture: %s\n", path.c_str());
}

}  // namespace tour
