// tour [FILE] [SOLID.obj] [--out FOLDER]: shows the library at work on the numbers in FILE.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>

#include "tour.h"

namespace {

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

constexpr const char* kNile = ZEPH_TOUR_DATA "/nile.txt";

struct Arguments {
  std::string file = kNile;
  std::string solid;  // an OBJ file; empty: the built-in icosahedron
  std::string out = "tour-output";
};

Arguments Parse(int argc, char** argv) {
  Arguments arguments;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--help" || word == "-h") {
      std::puts(
          "usage: tour [FILE] [SOLID.obj] [--out FOLDER]\n"
          "  FILE       numbers with blanks between them (default: the yearly flow of the Nile)\n"
          "  SOLID.obj  a solid to draw instead of the icosahedron\n"
          "  FOLDER     where pictures go (default: tour-output)");
      std::exit(0);
    } else if (word == "--out") {
      if (++i == argc) tour::RefuseInput("--out needs a folder");
      arguments.out = argv[i];
    } else if (EndsWith(word, ".obj")) {
      arguments.solid = word;
    } else {
      arguments.file = word;
    }
  }
  return arguments;
}

void Heading(std::size_t number, const char* text) {
  std::cout << std::flush;
  const std::string line = std::to_string(number) + ". " + text;
  std::printf("\n%s\n%s\n", line.c_str(), std::string(line.size(), '-').c_str());
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  const Arguments arguments = Parse(argc, argv);
  const tour::Context context{arguments.file, arguments.file == kNile,
                              tour::ReadNumbers(arguments.file), arguments.out, arguments.solid};
  std::error_code failed;
  std::filesystem::create_directories(arguments.out, failed);
  if (failed) tour::RefuseInput(arguments.out + ": cannot be made: " + failed.message());

  std::printf("ZEPHDataStructureEngine: a tour on %d numbers from %s\n", context.numbers.GetSize(),
              context.file.c_str());
  if (context.ofTheNile)
    std::puts(
        "They are the flow of the Nile at Aswan, year by year from 1871 to 1970, in 10^8 cubic "
        "metres.");
  std::size_t number = 0;
  for (const tour::Step& step : tour::Steps()) {
    Heading(++number, step.heading);
    step.run(context);
    std::cout << std::flush;
  }
  std::printf("\nPictures are in %s\n", std::filesystem::absolute(arguments.out).string().c_str());
  return 0;
}
