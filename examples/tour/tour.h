// Declarations shared by the steps of the tour. Each step is a function in a file of its own,
// listed in steps.cpp.
#ifndef ZEPH_EXAMPLES_TOUR_TOUR_H
#define ZEPH_EXAMPLES_TOUR_TOUR_H

#include <string>
#include <vector>

#include <ZEPHDataStructureEngine/ZEPHDataStructureEngine.h>

namespace tour {

/// The most numbers that are read from a file: the slowest sorts need a second for them.
constexpr int kMostNumbers = 20000;

/// The input of every step.
struct Context {
  std::string file;          // where the numbers come from
  bool ofTheNile;            // the file that comes with the tour: a flow for each year from 1871
  CZEPHDoubleArray numbers;  // the series; steps work on copies
  std::string outputFolder;  // pictures go here; exists
  std::string solidFile;     // an OBJ file to draw; empty for the built-in solid
};

struct Step {
  const char* heading;
  void (*run)(const Context&);
};

/// The steps in their order.
const std::vector<Step>& Steps();

/// The numbers of a text file, NaN and infinities included, at most kMostNumbers. A file without any, or with
/// something else before them, is refused.
CZEPHDoubleArray ReadNumbers(const std::string& file);

/// Reports bad input (file and position) on standard error and ends the program with status 2.
[[noreturn]] void RefuseInput(const std::string& message);

}  // namespace tour

#endif  // ZEPH_EXAMPLES_TOUR_TOUR_H
