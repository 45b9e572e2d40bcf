// Reading the series: token by token, so that a bad one is reported with its position.
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include "tour.h"

namespace tour {
namespace {

constexpr const char* kBlanks = " \t\r\n\v\f";

/// The beginning of a file, which may be endless: as much as the greatest accepted count of numbers
/// can take.
std::string ReadText(const std::string& file) {
  if (std::filesystem::is_directory(file))
    RefuseInput(file + ": is a folder, not a file of numbers");
  errno = 0;
  std::ifstream in(file, std::ios::binary);
  if (!in) RefuseInput(file + ": cannot be opened: " + std::strerror(errno ? errno : ENOENT));
  std::string text(std::size_t{kMostNumbers} * 64, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (in.bad()) RefuseInput(file + ": cannot be read");
  const bool whole = static_cast<std::size_t>(in.gcount()) < text.size();
  text.resize(static_cast<std::size_t>(in.gcount()));
  // Where the text was cut, the last number may be cut too.
  const std::size_t cut = text.find_last_of(kBlanks);
  if (!whole && cut != std::string::npos) text.resize(cut);
  return text;
}

std::string Place(const std::string& file, const std::string& text, std::size_t at) {
  std::size_t line = 1, lineStart = 0;
  for (std::size_t i = 0; i < at; ++i)
    if (text[i] == '\n') {
      ++line;
      lineStart = i + 1;
    }
  return file + ":" + std::to_string(line) + ":" + std::to_string(at - lineStart + 1);
}

/// The beginning of `token`, fit for a terminal.
std::string Shown(const std::string& token) {
  std::string shown;
  for (const char c : token.substr(0, 20)) shown += c >= ' ' && c <= '~' ? c : '?';
  return shown + (token.size() > 20 ? "..." : "");
}

/// The number that is the whole of `token`. Streams do not read NaN and infinity, so these are
/// recognised by name.
bool ReadNumber(const std::string& token, double& value) {
  std::string name = token.substr(token[0] == '-' || token[0] == '+');
  for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  const double sign = token[0] == '-' ? -1.0 : 1.0;
  if (name == "nan") value = std::copysign(std::numeric_limits<double>::quiet_NaN(), sign);
  if (name == "inf" || name == "infinity") value = sign * std::numeric_limits<double>::infinity();
  if (name == "nan" || name == "inf" || name == "infinity") return true;
  std::istringstream one(token);
  return one >> value && one.peek() == std::istringstream::traits_type::eof();
}

}  // namespace

void RefuseInput(const std::string& message) {
  std::fflush(stdout);
  std::fprintf(stderr, "tour: %s\n", message.c_str());
  std::exit(2);
}

CZEPHDoubleArray ReadNumbers(const std::string& file) {
  const std::string text = ReadText(file);
  std::vector<double> numbers;
  std::size_t at = text.find_first_not_of(kBlanks);
  while (at != std::string::npos && numbers.size() < kMostNumbers) {
    const std::size_t end = std::min(text.find_first_of(kBlanks, at), text.size());
    const std::string token = text.substr(at, end - at);
    double value = 0;
    if (!ReadNumber(token, value))
      RefuseInput(Place(file, text, at) + ": \"" + Shown(token) + "\" is not a number");
    numbers.push_back(value);
    at = text.find_first_not_of(kBlanks, end);
  }
  if (numbers.empty()) RefuseInput(file + ":1:1: there are no numbers in this file");
  if (at != std::string::npos)
    std::printf("%s holds more: the tour takes its first %d numbers.\n", file.c_str(),
                kMostNumbers);
  return CZEPHDoubleArray(static_cast<int>(numbers.size()), numbers.data());
}

}  // namespace tour
