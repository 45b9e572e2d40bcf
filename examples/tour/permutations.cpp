// All orderings of a short word.
#include <cstdio>
#include <string>

#include "tour.h"

namespace tour {

void ListOrderings(const Context&) {
  char word[] = {'n', 'i', 'l', 'e'};
  CString text;
  CZEPHPermutation::Run(word, 0, 4, text);

  // A line holds one ordering, a blank and a line feed; six to a row are easier to look at.
  const std::string lines = text.GetString();
  const std::size_t width = lines.find('\n') + 1;
  for (std::size_t at = 0; at < lines.size(); at += width)
    std::printf("%.4s%s", lines.c_str() + at, (at / width) % 6 == 5 ? "\n" : "  ");

  std::printf("\nThree numbers, straight to a stream:\n");
  int numbers[] = {1, 2, 3};
  CZEPHPermutation::Run(numbers, 0, 3, stdout);
}

}  // namespace tour
