// Reading the series: checked token by token, so that a bad one is named with its place, then
// handed to the array's own stream extractor.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tour.h"

namespace tour {
namespace {

constexpr const char* kBlanks = " \t\r\n\v\f";

std::string ReadText(const std::string& file) {
  errno = 0;
  std::ifstream in(file, std::ios::binary);
  if (!in) RefuseInput(file + ": cannot be opened: " + std::strerror(errno ? errno : ENOENT));
  std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad()) RefuseInput(file + ": cannot be read");
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

/// How many numbers `text` holds; ends the program at the first token that is none.
int CountNumbers(const std::string& file, const std::string& text) {
  int count = 0;
  std::size_t at = text.find_first_not_of(kBlanks);
  while (at != std::string::npos) {
    const std::size_t end = std::min(text.find_first_of(kBlanks, at), text.size());
    const std::string token = text.substr(at, end - at);
    // The same extraction that the array performs, on this token alone.
    std::istringstream one(token);
    double value;
    if (!(one >> value) || one.peek() != std::istringstream::traits_type::eof())
      RefuseInput(Place(file, text, at) + ": \"" + token.substr(0, 40) + "\" is not a number");
    ++count;
    at = text.find_first_not_of(kBlanks, end);
  }
  if (count == 0) RefuseInput(file + ":1:1: there are no numbers in this file");
  return count;
}

}  // namespace

void RefuseInput(const std::string& message) {
  std::fflush(stdout);
  std::fprintf(stderr, "tour: %s\n", message.c_str());
  std::exit(2);
}

CZEPHDoubleArray ReadNumbers(const std::string& file) {
  const std::string text = ReadText(file);
  const int count = CountNumbers(file, text);
  CZEPHDoubleArray numbers(count, 0.0);  // the extractor reads into storage that is there
  std::istringstream in(std::to_string(count) + "\n" + text);
  in >> numbers;
  return numbers;
}

}  // namespace tour
