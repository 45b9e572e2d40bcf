// The numbers as they were read.
#include <algorithm>
#include <iostream>

#include "tour.h"

namespace tour {

void ShowNumbers(const Context& context) {
  constexpr int kMostShown = 200;
  const int count = context.numbers.GetSize(), shown = std::min(count, kMostShown);
  CZEPHDoubleArray first(shown, context.numbers.GetData());
  first.Display(std::cout);
  std::cout << "\n";
  if (shown < count) std::cout << "... and " << count - shown << " more\n";
}

}  // namespace tour
