// SPDX-License-Identifier: MIT
#include "report.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <utility>

#include "kernels/table.h"

namespace zeph::bench {
namespace {

std::string Text(const char* format, double x) {
  char text[64];
  std::snprintf(text, sizeof text, format, x);
  return text;
}

std::string RatioText(double ratio) {
  return Text(ratio < 10 ? "%.2f" : ratio < 100 ? "%.1f" : "%.0f", ratio);
}

/// One peer against us.
struct Line {
  const Row* row;
  const Contender* ours;
  const Contender* peer;
  double Ratio() const { return ours->best > 0 ? peer->best / ours->best : 0; }
  bool Missed() const { return peer->target > 0 && Ratio() < peer->target; }
  std::string Remark() const {
    if (Missed()) return "below target";
    return peer->compared && Ratio() < 1 ? "lost" : "";
  }
};

std::vector<Line> Lines(const std::vector<Row>& rows) {
  std::vector<Line> lines;
  for (const Row& row : rows)
    for (std::size_t i = 1; i < row.contenders.size(); ++i)
      lines.push_back({&row, &row.contenders[0], &row.contenders[i]});
  return lines;
}

bool Timed(const Row& row) {
  return std::all_of(row.contenders.begin(), row.contenders.end(),
                     [](const Contender& c) { return c.trouble.empty(); });
}

/// The first value of `field` in /proc/cpuinfo.
std::string OfProcessor(const std::string& field) {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);)
    if (line.rfind(field + "\t", 0) == 0) return line.substr(line.find(": ") + 2);
  return "unknown";
}

/// The first processor's caches for data, as Linux lists them: "48K, 2048K".
std::string Caches() {
  const std::string folder = "/sys/devices/system/cpu/cpu0/cache/index";
  std::string all;
  for (int k = 0;; ++k) {
    std::string type, size;
    std::ifstream(folder + std::to_string(k) + "/type") >> type;
    if (type.empty()) break;
    std::ifstream(folder + std::to_string(k) + "/size") >> size;
    if (type != "Instruction") all += (all.empty() ? "" : ", ") + size;
  }
  return all.empty() ? "unknown" : all;
}

/// Virtual machines often hide the name, but not the numbers.
std::string Processor() {
  return OfProcessor("model name") + " (family " + OfProcessor("cpu family") + ", model " +
         OfProcessor("model\t") + "), caches " + Caches();
}

std::string Compiler() {
#if defined(__clang__)
  return std::string("clang ") + __clang_version__;
#elif defined(__GNUC__)
  return std::string("g++ ") + __VERSION__;
#else
  return "unknown compiler";
#endif
}

std::string Today() {
  const std::time_t now = std::time(nullptr);
  char text[16];
  std::strftime(text, sizeof text, "%Y-%m-%d", std::gmtime(&now));
  return text;
}

std::string FileName(const std::string& family, const std::string& name) {
  std::string file = family + "-" + name;
  for (char& c : file)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '-';
  return file + ".svg";
}

using Group = std::vector<const Row*>;

/// The rows of each family, and within it of each name, in running order.
std::vector<std::pair<std::string, std::vector<Group>>> Families(const std::vector<Row>& rows) {
  std::vector<std::pair<std::string, std::vector<Group>>> families;
  for (const Row& row : rows) {
    if (families.empty() || families.back().first != row.family())
      families.push_back({row.family(), {}});
    auto& groups = families.back().second;
    if (groups.empty() || groups.back().front()->name() != row.name()) groups.emplace_back();
    groups.back().push_back(&row);
  }
  return families;
}

/// The time of one item, mostly far below a nanosecond for arithmetic.
std::string PerItem(const Row& row) {
  if (row.items() == 0) return {};
  const double seconds = row.contenders[0].best / static_cast<double>(row.items());
  return seconds < 1e-9 ? Text("%.3f ns", seconds * 1e9) : Duration(seconds);
}

void WriteRows(std::ostream& page, const Group& group) {
  for (const Row* row : group)
    for (std::size_t i = 1; i < row->contenders.size(); ++i) {
      const Line line{row, &row->contenders[0], &row->contenders[i]};
      page << "| " << row->name() << " | " << row->n() << " | ";
      if (!Timed(*row)) {
        page << "| | " << line.peer->who << " | | not timed: " << line.peer->trouble << " | |\n";
        continue;
      }
      page << Duration(line.ours->best) << " | " << PerItem(*row) << " | " << line.peer->who
           << " | " << Duration(line.peer->best) << " | " << (line.Ratio() < 1 ? "_" : "**")
           << RatioText(line.Ratio()) << (line.Ratio() < 1 ? "_" : "**") << " | ";
      if (line.peer->target > 0)
        page << RatioText(line.peer->target) << (line.Missed() ? " (missed)" : "");
      page << " |\n";
    }
}

const char kIntroduction[] =
    "# Performance\n\n"
    "Written by `./dev bench`. Each row is the same work, checked to give the same result, timed\n"
    "in turns with its peers in one process; the best of many rounds counts. The ratio is the\n"
    "peer's time over ours: above 1 we are faster, and rows in italics we lose. An item is one "
    "of\nthe row's elements, objects, numbers or keys or, in products, one multiplication.\n\n";

const char kByHand[] = "<!-- by hand: kept when the page is written anew -->\n";
const char kByHandEnd[] = "<!-- end of what is by hand -->\n";

/// The hand-written part of the page between the two marks, with the marks.
std::string WrittenByHand(const std::string& file) {
  std::ifstream page(file);
  const std::string text{std::istreambuf_iterator<char>(page), {}};
  const std::size_t begin = text.find(kByHand), end = text.find(kByHandEnd);
  if (begin == std::string::npos || end == std::string::npos || end < begin)
    return std::string(kByHand) + kByHandEnd;
  return text.substr(begin, end - begin) + kByHandEnd;
}

}  // namespace

std::string Duration(double seconds) {
  static constexpr std::pair<double, const char*> kUnits[] = {
      {1, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}};
  for (const auto& [unit, name] : kUnits)
    if (seconds >= unit || unit == 1e-9) {
      const double x = seconds / unit;
      return Text(x < 10 ? "%.2f " : x < 100 ? "%.1f " : "%.0f ", x) + name;
    }
  return {};
}

bool PrintTable(std::ostream& out, const std::vector<Row>& rows) {
  bool good = true;
  std::size_t width = 4;
  for (const Row& row : rows) width = std::max(width, row.Label().size());
  const auto print = [&](const std::string& label, const std::string& ours, const std::string& who,
                         const std::string& theirs, const std::string& ratio,
                         const std::string& target, const std::string& remark) {
    char text[256];
    std::snprintf(text, sizeof text, "  %9s  %-24s %9s  %9s %7s  ", ours.c_str(), who.c_str(),
                  theirs.c_str(), ratio.c_str(), target.c_str());
    out << label << std::string(width - label.size(), ' ') << text << remark << "\n";
  };
  print("row", "ours", "peer", "peer's", "peer/ours", "target", "");
  for (const Line& line : Lines(rows)) {
    if (!Timed(*line.row)) {
      good = false;
      print(line.row->Label(), "", line.peer->who, "", "", "", "not timed: " + line.peer->trouble);
      continue;
    }
    good = good && !line.Missed();
    print(line.row->Label(), Duration(line.ours->best), line.peer->who, Duration(line.peer->best),
          RatioText(line.Ratio()), line.peer->target > 0 ? RatioText(line.peer->target) : "",
          line.Remark());
  }
  return good;
}

bool WritePage(const std::string& folder, const std::vector<Row>& rows) {
  std::error_code error;
  std::filesystem::create_directories(folder + "/plots", error);
  const std::string byHand = WrittenByHand(folder + "/performance.md");
  std::ofstream page(folder + "/performance.md");
  page << kIntroduction << "Measured on " << Today() << ": " << Processor() << ", " << Compiler()
       << ", kernels " << kernels::Active().name << ".\n\n"
       << byHand;
  for (const auto& [family, groups] : Families(rows)) {
    page << "\n## " << family
         << "\n\n| case | n | ours | ours, an item | peer | peer's | peer / ours "
            "| target |\n|---|---|---|---|---|---|---|---|\n";
    for (const Group& group : groups) WriteRows(page, group);
    for (const Group& group : groups) {
      if (group.size() < 3 ||
          !std::all_of(group.begin(), group.end(), [](const Row* row) { return Timed(*row); }))
        continue;
      const std::string title = family + ": " + group.front()->name();
      const std::string file = FileName(family, group.front()->name());
      std::ofstream(folder + "/plots/" + file) << Plot(title, group);
      page << "\n![" << title << ", time against n](plots/" << file << ")\n";
    }
  }
  page.close();
  return page.good();
}

}  // namespace zeph::bench
