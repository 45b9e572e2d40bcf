// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

#include "report.h"

namespace zeph::bench {
namespace {

constexpr double kWidth = 720, kHeight = 440, kLeft = 80, kRight = 190, kTop = 40, kBottom = 50;
const char* const kColours[] = {"#d62728", "#1f77b4", "#2ca02c", "#9467bd",
                                "#ff7f0e", "#17becf", "#8c564b", "#7f7f7f"};

/// Whole decades around the data, mapped to pixels.
struct Axis {
  double lo, hi, from, to;
  static Axis Around(double least, double most, double from, double to) {
    const double lo = std::floor(std::log10(least)), hi = std::ceil(std::log10(most));
    return {lo, std::max(hi, lo + 1), from, to};
  }
  double At(double x) const { return from + (std::log10(x) - lo) / (hi - lo) * (to - from); }
};

std::string Escaped(const std::string& text) {
  std::string out;
  for (char c : text)
    out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
  return out;
}

void Label(std::ostream& svg, double x, double y, const char* anchor, const std::string& text,
           const char* colour = "#333") {
  svg << "<text x='" << x << "' y='" << y << "' text-anchor='" << anchor << "' fill='" << colour
      << "'>" << Escaped(text) << "</text>\n";
}

void Grid(std::ostream& svg, const Axis& x, const Axis& y) {
  const auto line = [&](double x1, double y1, double x2, double y2) {
    svg << "<line x1='" << x1 << "' y1='" << y1 << "' x2='" << x2 << "' y2='" << y2
        << "' stroke='#ddd'/>\n";
  };
  for (double d = x.lo; d <= x.hi; ++d) {
    const double at = x.At(std::pow(10, d));
    line(at, y.from, at, y.to);
    Label(svg, at, y.from + 20, "middle", "1e" + std::to_string(static_cast<int>(d)));
  }
  for (double d = y.lo; d <= y.hi; ++d) {
    const double at = y.At(std::pow(10, d));
    line(x.from, at, x.to, at);
    Label(svg, x.from - 8, at + 4, "end", Duration(std::pow(10, d)));
  }
  Label(svg, (x.from + x.to) / 2, y.from + 40, "middle", "n");
}

std::vector<std::string> Everyone(const std::vector<const Row*>& rows) {
  std::vector<std::string> names;
  for (const Row* row : rows)
    for (const Contender& c : row->contenders)
      if (std::find(names.begin(), names.end(), c.who) == names.end()) names.push_back(c.who);
  return names;
}

}  // namespace

std::string Plot(const std::string& title, const std::vector<const Row*>& rows) {
  double least = std::numeric_limits<double>::infinity(), most = 0;
  for (const Row* row : rows)
    for (const Contender& c : row->contenders) {
      least = std::min(least, c.best);
      most = std::max(most, c.best);
    }
  const auto size = [](const Row* row) { return static_cast<double>(row->n()); };
  const Axis x = Axis::Around(size(rows.front()), size(rows.back()), kLeft, kWidth - kRight);
  const Axis y = Axis::Around(std::max(least, 1e-12), most, kHeight - kBottom, kTop);

  std::ostringstream svg;
  svg << "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 " << kWidth << " " << kHeight
      << "' font-family='sans-serif' font-size='12'>\n<rect width='100%' height='100%' "
      << "fill='white'/>\n";
  Label(svg, kLeft, kTop - 16, "start", title);
  Grid(svg, x, y);
  const auto names = Everyone(rows);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const char* colour = kColours[i % std::size(kColours)];
    svg << "<polyline fill='none' stroke='" << colour << "' stroke-width='" << (i ? 1.5 : 3)
        << "' points='";
    for (const Row* row : rows)
      for (const Contender& c : row->contenders)
        if (c.who == names[i]) svg << x.At(size(row)) << "," << y.At(c.best) << " ";
    svg << "'/>\n";
    Label(svg, kWidth - kRight + 16, kTop + 18 * static_cast<double>(i) + 10, "start", names[i],
          colour);
  }
  svg << "</svg>\n";
  return svg.str();
}

}  // namespace zeph::bench
