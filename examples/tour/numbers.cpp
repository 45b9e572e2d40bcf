// The numbers as they were read.
#include <iostream>

#include "tour.h"

namespace tour {

void ShowNumbers(const Context& context) {
  CZEPHDoubleArray numbers = context.numbers;
  numbers.Display(std::cout);
  std::cout << "\n";
}

}  // namespace tour
