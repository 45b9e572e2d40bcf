// The tour: what its steps share. Each step is a function in a file of its own, listed in
// steps.cpp.
#ifndef ZEPH_EXAMPLES_TOUR_TOUR_H
#define ZEPH_EXAMPLES_TOUR_TOUR_H

#include <string>
#include <vector>

#include <ZEPHDataStructureEngine/ZEPHDataStructureEngine.h>

namespace tour {

/// What every step is given.
struct Context {
  std::string file;          // where the numbers come from
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

/// The numbers of a text file; a file without any, or with something else in it, is refused.
CZEPHDoubleArray ReadNumbers(const std::string& file);

/// Reports bad input (file and position) on standard error and ends the program with status 2.
[[noreturn]] void RefuseInput(const std::string& message);

}  // namespace tour

#endif  // ZEPH_EXAMPLES_TOUR_TOUR_H
