#include "tour.h"

namespace tour {

// Each step stands in a file of its own.
void ShowNumbers(const Context&);

const std::vector<Step>& Steps() {
  static const std::vector<Step> steps = {
      {"The numbers, read through operator>>", ShowNumbers},
  };
  return steps;
}

}  // namespace tour
